"""A program on a terminal of its own."""

import fcntl
import os
import pty
import re
import struct
import termios


class Terminal:
    def __init__(self, command, environment, directory):
        self.child, self.terminal = pty.fork()
        if self.child == 0:
            os.chdir(directory)
            os.execvpe(command[0], command, environment)
        fcntl.ioctl(self.terminal, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 80, 0, 0))
        self.shown = ""

    def press(self, keys, answer):
        """What the terminal shows of the expression `answer` behind the keys; waits for it."""
        os.write(self.terminal, keys.encode())
        while not (found := re.search(answer, self.shown, re.DOTALL)):
            self.shown += os.read(self.terminal, 4096).decode(errors="replace")
        self.shown = ""
        return found

    def end(self):
        """The status of a program that ends by itself."""
        try:
            while os.read(self.terminal, 4096):
                pass
        except OSError:  # The program's side is closed.
            pass
        return self.close()

    def close(self):
        os.close(self.terminal)
        return os.waitstatus_to_exitcode(os.waitpid(self.child, 0)[1])
