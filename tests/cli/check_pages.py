"""Holds the command line's pages: each example of docs/command_line.md prints what the page says, its Python programs
among them, and the page, the man page and --help name the same options.

Usage: check_pages.py QUORVANE_CLI SOURCE_DIRECTORY. Exit status 1 with what differs; 77 where the default lexicon beside
the program is not the one that the page speaks of.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

LONG_OPTION = re.compile(r"(?<![\w-])--[a-z][a-z-]*[a-z]")
TIMES = re.compile(r'(ms": )[0-9.]+|(Time = )[0-9.]+')


def examples_of(page: str) -> list:
    """(command, what it prints) of every console block."""
    examples = []
    for block in re.findall(r"^```console\n(.*?)^```$", page, re.MULTILINE | re.DOTALL):
        for line in block.splitlines(keepends=True):
            if line.startswith("$ "):
                examples.append((line[2:].rstrip("\n"), ""))
            else:
                examples[-1] = (examples[-1][0], examples[-1][1] + line)
    return examples


def programs_of(page: str) -> dict:
    """Every Python block by its file's name, which is its first line."""
    blocks = re.findall(r"^```python\n(# (\S+\.py)\n.*?)^```$", page, re.MULTILINE | re.DOTALL)
    return {name: text for text, name in blocks}


def run(command: list, environment: dict, directory: str) -> str:
    """What a terminal would show: both streams in the order written."""
    done = subprocess.run(command, cwd=directory, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, check=False)
    # Line ends of files are CR LF; a page shows none of it.
    return TIMES.sub(r"\1\2T", done.stdout.decode("utf-8").replace("\r\n", "\n"))


def options_of(program: str, command: list) -> set:
    """The options that --help lists, of the command and of those below it."""
    text = subprocess.run([program, *command, "--help"], capture_output=True, check=True, text=True).stdout
    options = {name for names in re.findall(r"^ +(-\S+)", text, re.MULTILINE) for name in names.split("=")[0].split(",")}
    below = text.partition("\nSubcommands:\n")[2]
    for name in re.findall(r"^  (\w+)", below, re.MULTILINE):
        options |= options_of(program, [*command, name])
    return options


def check_options(program: str, pages: dict) -> list:
    options = options_of(program, [])
    faults = []
    for name, text in pages.items():
        named = set(re.findall(r"(?<![\w-])-[a-z]\b", text)) | set(LONG_OPTION.findall(text))
        faults += [f"{name} does not say what {option} is" for option in sorted(options - named)]
        faults += [f"{name}: the program has no {option}" for option in sorted(named - options) if option[1] == "-"]
    return faults


def check_examples(program: pathlib.Path, page: str) -> list:
    faults = []
    with tempfile.TemporaryDirectory() as scratch, tempfile.TemporaryDirectory() as home:
        environment = {"PATH": f"{program.parent}:{os.environ['PATH']}", "HOME": home, "LC_ALL": "C.UTF-8"}
        for name, text in programs_of(page).items():
            pathlib.Path(scratch, name).write_text(text, encoding="utf-8")
        examples = examples_of(page)
        for command, expected in examples:
            shown = run(["bash", "-c", command], environment, scratch)
            if shown != TIMES.sub(r"\1\2T", expected):
                faults.append(f"$ {command}\nthe page:\n{expected}the program:\n{shown}")
    return faults if examples else ["the page has no examples"]


def main() -> int:
    program, source = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
    page = (source / "docs/command_line.md").read_text(encoding="utf-8")
    manual = (source / "packaging/quorvane-cli.1").read_text(encoding="utf-8").replace("\\-", "-")
    faults = check_options(str(program), {"docs/command_line.md": page, "the man page": manual})
    lexicon = program.parent / "words.lex"
    words = lexicon.read_bytes().count(b"\n") if lexicon.exists() else 0
    same = f"({words:,} words)" in page
    faults += check_examples(program, page) if same else []
    print("\n".join(faults) if faults or same else f"the default lexicon has {words:,} words: examples not run")
    return 1 if faults else 0 if same else 77


if __name__ == "__main__":
    sys.exit(main())
