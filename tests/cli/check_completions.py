"""Holds the completions against the real shells: what is typed, with a Tab behind it, becomes the line that is meant.

Usage: check_completions.py QUORVANE_CLI DIRECTORY-OF-COMPLETIONS. Exit status 1 with what differs; 77 where a shell is
missing, and the others agree.
"""

import os
import pathlib
import shutil
import sys
import tempfile

from terminal import Terminal

CASES = {
    "fi": ["find"],
    "lexicon ma": ["lexicon", "make"],
    "find --up": ["find", "--upper"],
    "explain --pa": ["explain", "--paste"],
    "find --type pal": ["find", "--type", "palindrome"],
    "find --sort=lo": ["find", "--sort=long"],
    "find cat --color al": ["find", "cat", "--color", "always"],
    "find --lexicon g": ["find", "--lexicon", "gb.lex"],
    "has --lexicon min": ["has", "--lexicon", "mine.lex"],
    "stats --data-dir 'the other' --lexicon our": ["stats", "--data-dir", "the other", "--lexicon", "our own.lex"],
    "find --named cof": ["find", "--named", "coffee"],
    "find --named it": ["find", "--named", "it's $(touch pwned) & \"more\""],
    "find --named 'it": ["find", "--named", "it's $(touch pwned) & \"more\""],
    'find --named "it': ["find", "--named", "it's $(touch pwned) & \"more\""],
    "lexicon check mi": ["lexicon", "check", "mine.lex"],
    "lexicon make --phrases jo": ["lexicon", "make", "--phrases", "join"],
    "lexicon make my": ["lexicon", "make", "my list.txt"],
    "find --data-dir the": ["find", "--data-dir", "the other"],
    "completion fi": ["completion", "fish"],
    "has fi": ["has", "fi"],  # A word, and a file's beginning.
    "find -- --ty": ["find", "--", "--ty"],
}

# A Tab, then `say ` at the line's beginning. zsh completes nothing while more keys wait: its Tab does it all.
KEYS = {"bash": "\t\x01say \r", "zsh": "\t", "fish": "\t\x01say \r"}

# What `say` says.
SAID = r"<<(.*?)\|>>"

SHELLS = {
    "bash": (["bash", "--norc", "--noprofile", "-i"],
             "bind 'set bell-style none'; say() { printf '<<'; printf '%s|' \"$@\"; printf '>>\\n'; }; . {}/quorvane-cli"),
    "zsh": (["zsh", "-f", "-i"],
            "say() { printf '<<'; printf '%s|' \"$@\"; printf '>>\\n'; }; fpath=({} $fpath); autoload -Uz compinit; "
            "compinit -u -D; tab() { zle complete-word; BUFFER=\"say $BUFFER\"; zle accept-line }; zle -N tab; bindkey '^I' tab"),
    "fish": (["fish", "--no-config", "-i"],
             "function say; printf '<<'; printf '%s|' $argv; printf '>>\\n'; end; source {}/quorvane-cli.fish"),
}


def check(shell, program, completions, directory):
    environment = {"PATH": f"{program.parent}:{os.environ['PATH']}", "HOME": str(directory), "LC_ALL": "C.UTF-8",
                   "TERM": "dumb", "QUORVANE_DIR": str(directory / "own")}
    command, setup = SHELLS[shell]
    (directory / "setup").write_text(setup.replace("{}", str(completions)) + "\n")
    terminal = Terminal(command, environment, directory)
    terminal.press(". ./setup\rsay ready\r", SAID)
    faults = []
    for typed, words in CASES.items():
        said = terminal.press(f"quorvane-cli {typed}{KEYS[shell]}", SAID).group(1).split("|")
        if [word.rstrip("/") for word in said] != ["quorvane-cli", *words]:
            faults.append(f"{shell}: {typed}<Tab> becomes {said[1:]}, not {words}")
    terminal.close()
    return faults + ([f"{shell}: a name was run"] if (directory / "pwned").exists() else [])


def main():
    program, completions = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    faults, missing = [], [shell for shell in SHELLS if shutil.which(shell) is None]
    for shell in [shell for shell in SHELLS if shell not in missing]:
        with tempfile.TemporaryDirectory() as scratch:
            directory = pathlib.Path(scratch)
            for name in ("own/gb.lex", "the other/our own.lex", "mine.lex", "my list.txt", "first"):
                (directory / name).parent.mkdir(exist_ok=True)
                (directory / name).write_text("cat\n")
            names = ("coffee", r"it's $(touch pwned) & \"more\"")
            (directory / "own/history.jsonl").write_text(
                "".join(f'{{"v":1,"time":"","pattern":"c","type":"word","lexicon":"gb.lex","count":1,"name":"{name}"}}\n'
                        for name in names))
            faults += check(shell, program, completions, directory)
    print("\n".join(faults + [f"{shell} is missing" for shell in missing]))
    return 1 if faults else 77 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
