#!/usr/bin/env python3
"""run_fault_test.py LIBRARY QUORVANE_CLI [SAVE_SETTING]: the programs, struck at every write, close, rename and flush.

The file that a program replaces is the old one or the new one whatever happens, the new one when the program says so,
and nothing lies beside it; after a kill the next run clears up.
"""

import errno
import itertools
import os
import shutil
import subprocess
import sys
import tempfile

WORDS = sorted({"".join(word) for word in itertools.product("abcdefghij", repeat=5)})[:60000]


def fail(text):
    sys.exit("FAILED: " + text)


class Case:
    """A command that replaces `old`, the file "target" in a folder of its own."""

    def __init__(self, library, home, name, command, old):
        self.library, self.name, self.command, self.old = library, name, command, old
        self.folder = os.path.join(home, name)
        self.target = os.path.join(self.folder, "target")
        self.mark = os.path.join(home, "mark")
        self.scratch = os.path.join(home, "scratch")
        os.makedirs(self.folder)

    def run(self, at=0, error=0):
        """The status of a run that is struck at its at-th call, and whether it was."""
        environment = dict(os.environ, TMPDIR=self.scratch)
        if at > 0:
            environment.update(LD_PRELOAD=self.library, FAULT_AT=str(at), FAULT_ERROR=str(error), FAULT_MARK=self.mark)
        result = subprocess.run(self.command + [self.target], env=environment, capture_output=True, timeout=60)
        struck = os.path.exists(self.mark)
        if struck:
            os.remove(self.mark)
        return result.returncode, struck

    def begin(self):
        shutil.rmtree(self.scratch, ignore_errors=True)  # What a kill leaves there is the system's to clear up.
        os.makedirs(self.scratch)
        with open(self.target, "wb") as file:
            file.write(self.old)

    def bytes(self):
        with open(self.target, "rb") as file:
            return file.read()

    def check(self):
        self.begin()
        if self.run()[0] != 0 or self.bytes() == self.old:
            fail(f"{self.name} does not work at all")
        new = self.bytes()
        strikes = 0
        for error in (0, errno.ENOSPC, errno.EIO):
            for at in itertools.count(1):
                where = f"{self.name}, call {at}, {os.strerror(error) if error else 'killed'}"
                self.begin()
                status, struck = self.run(at, error)
                if self.bytes() not in ([new] if status == 0 else [self.old, new]):
                    fail(where + ": the file is neither the old one nor the new one it should be")
                if not struck:
                    break
                strikes += 1
                if error == 0 and (self.run()[0] != 0 or self.bytes() != new):
                    fail(where + ": the next run fails")
                left = os.listdir(self.folder) + (os.listdir(self.scratch) if error else [])
                if left != ["target"]:
                    fail(where + f": left behind: {left}")
        if strikes < 9:
            fail(f"{self.name} was struck {strikes} times only")
        print(f"{self.name}: struck {strikes} times")


def main():
    library, cli = sys.argv[1:3]
    with tempfile.TemporaryDirectory(prefix="quorvane-fault-") as home:
        words = os.path.join(home, "words.lex")
        with open(words, "w", encoding="ascii") as file:
            file.write("\n".join(WORDS) + "\n")
        old = b"what was there before\r\n"
        Case(library, home, "save", [cli, "find", "--lexicon", words, "*a*", "--save"], old).check()
        Case(library, home, "make", [cli, "lexicon", "make", words, "-o"], old).check()
        if len(sys.argv) > 3:
            settings = b"[Options]\nTimerInd=No\n\n[Theirs]\nKey=1\n"
            script = ["/bin/sh", "-c", 'exec "$0" "$1" Yes', sys.argv[3]]
            Case(library, home, "settings", script, settings).check()


main()
