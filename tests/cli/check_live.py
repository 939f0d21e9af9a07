"""Types patterns into quorvane-live on a terminal of its own.

Usage: check_live.py DIRECTORY-OF-THE-PROGRAMS. Exit status 1 with what differs; 77 where fzf is missing.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

from terminal import Terminal

NASTY = "it's {q} {} $(touch pwned) `touch pwned`; \\'\n.lex"


def main():
    live = pathlib.Path(sys.argv[1]).resolve() / "quorvane-live"
    faults = []
    with tempfile.TemporaryDirectory() as scratch:
        directory = pathlib.Path(scratch)
        (directory / NASTY).write_text("cat\nchat\ncoat\ncut\n")
        missing = subprocess.run(["/bin/sh", live], env={"PATH": scratch}, capture_output=True, text=True)
        if (missing.returncode, missing.stderr) != (2, "quorvane-live: fzf is missing; it is in the package fzf\n"):
            faults.append(f"without fzf: {missing}")
        if shutil.which("fzf") is None:
            print("\n".join(faults) or "fzf is missing")
            return 1 if faults else 77
        script = 'exec "$0" "$@" >found'
        terminal = Terminal(["sh", "-c", script, str(live), "--lexicon", NASTY, "--upper", "--", "c?t"],
                            os.environ | {"TERM": "xterm"}, directory)
        terminal.press("", "(?=.*2 words found).*CUT")
        terminal.press("*a", "0 words found")
        terminal.press("\x15$(touch pwned)'", "words? found")
        terminal.press("\x15c*t**", "A maximum of two asterisks may be entered")
        terminal.press("\x15c?@t", "(?=.*2 words found).*COAT")
        terminal.press("\x1b[B\r", "1049l")  # Down, Enter; the program's screen goes.
        status = terminal.end()
        found = (directory / "found").read_text()
        if (status, found) != (0, "COAT\n"):
            faults.append(f"the word chosen: status {status}, '{found}'")
        if (directory / "pwned").exists():
            faults.append("what was typed or given was run")
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
