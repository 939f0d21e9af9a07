#!/usr/bin/env python3
"""Prints from the real window through a CUPS scheduler of its own and reads back what the scheduler wrote.

Usage: run_cups_test.py PRINT_LIST

The scheduler has its own configuration, spool and state in a temporary folder and listens on the loopback interface
only; its queue has no device, so that each document stays in the spool as the printer would get it. Where it can't
run, the test says why and ends with 77.
"""

import getpass
import json
import os
import pathlib
import re
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest

SKIPPED = 77
TIME_LIMIT = 240  # Seconds for everything.
WAIT_LIMIT = 30  # Seconds for the scheduler to come up or to finish a job.
os.environ["PATH"] += ":/usr/sbin:/sbin"
TOOLS = {
    "cupsd": "cups-daemon",
    "lpadmin": "cups-client",
    "lpstat": "cups-client",
    "cupsreject": "cups-client",
    "pdftotext": "poppler-utils",
    "pdfinfo": "poppler-utils",
    "pdffonts": "poppler-utils",
}

STEMS = """add alert answer ask attack board boil burn call camp climb cook count crawl design drift end farm form golf
           groan hunt jump kick lend light load look mend mind morph murmur neighbour open paint pick plant play point
           print rain read roast roll scream sing sleep speak talk teach think train turn view walk want""".split()
LEGEND_LETTERS = "abcdefghijklmnopqrstuvwxy"
WORDS = sorted(stem + ending for stem in STEMS for ending in ("", "s", "er", "ers", "ing"))
OTHER_WORDS = ["zebra", "zip", "zoo"]  # In the lexicon, not in the printed list.
PATTERN = "#*"

program_path = None


def run(*command, **more):
    return subprocess.run(command, check=True, capture_output=True, text=True, **more).stdout


def wait_until(condition):
    """What `condition` gives once it gives something, or its last answer at the time limit."""
    end = time.monotonic() + WAIT_LIMIT
    while not (answer := condition()) and time.monotonic() < end:
        time.sleep(0.05)
    return answer


class Scheduler:
    """A running cupsd."""

    def __init__(self, folder):
        self.folder = folder
        self.process = None
        with socket.socket() as free:
            free.bind(("127.0.0.1", 0))
            self.server = f"127.0.0.1:{free.getsockname()[1]}"
        user = "lp" if os.geteuid() == 0 else getpass.getuser()
        for name in ("root", "spool/tmp", "state", "cache", "log"):
            (folder / name).mkdir(parents=True)
        if os.geteuid() == 0:
            for path in (folder, *folder.rglob("*")):
                shutil.chown(path, "root", "lp")
                path.chmod(0o775)
        (folder / "root/cupsd.conf").write_text(f"""
Listen {self.server}
Browsing No
LogLevel debug
PreserveJobFiles Yes
WebInterface No
DefaultAuthType None
<Location />
  Order allow,deny
  Allow from 127.0.0.1
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess all
  SubscriptionPrivateValues none
  <Limit All>
    Order allow,deny
    Allow from 127.0.0.1
  </Limit>
</Policy>
""")
        (folder / "root/cups-files.conf").write_text(f"""
User {user}
{"Group lp" if user == "lp" else ""}
ServerRoot {folder}/root
RequestRoot {folder}/spool
TempDir {folder}/spool/tmp
StateDir {folder}/state
CacheDir {folder}/cache
AccessLog {folder}/log/access_log
ErrorLog {folder}/log/error_log
PageLog {folder}/log/page_log
""")

    def start(self):
        """Why it did not start; None when it runs."""
        configuration = self.folder / "root"
        with open(self.folder / "log/output", "w") as output:
            self.process = subprocess.Popen(
                ["cupsd", "-f", "-c", configuration / "cupsd.conf", "-s", configuration / "cups-files.conf"],
                stdin=subprocess.DEVNULL, stdout=output, stderr=output)
        if wait_until(lambda: self.process.poll() is not None or self.answers()) and self.process.poll() is None:
            return None
        self.stop()
        said = [path.read_text(errors="replace") for path in sorted((self.folder / "log").iterdir())]
        return "cupsd did not start: " + "".join(said).strip()

    def answers(self):
        done = subprocess.run(["lpstat", "-h", self.server, "-r"], capture_output=True, text=True)
        return "is running" in done.stdout

    def stop(self):
        if self.process:
            self.process.terminate()
            self.process.wait()
            self.process = None

    def add_queue(self, name):
        run("lpadmin", "-h", self.server, "-p", name, "-E", "-v", "file:///dev/null")

    def remove_queue(self, name):
        run("lpadmin", "-h", self.server, "-x", name)

    def refuse_jobs(self, name):
        run("cupsreject", "-h", self.server, name)

    def jobs(self, which):
        return run("lpstat", "-h", self.server, "-W", which, "-o").splitlines()

    def document(self, job):
        """The file that the job would send to its printer."""
        return self.folder / f"spool/d{job:05}-001"

    def job_facts(self, job):
        """The job's title and options, as its printer would be told."""
        log = (self.folder / "log/error_log").read_text()
        return [re.search(rf'\[Job {job}\] argv\[{i}\]="(.*)"', log)[1] for i in (3, 5)]


class Program:
    """The window under test, in a folder of its own."""

    def __init__(self, folder, server, settings):
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir()
        self.folder = folder
        (folder / "words.lex").write_bytes(b"".join(word.encode() + b"\r\n" for word in WORDS + OTHER_WORDS))
        settings = {"Selection/SelectedChars": LEGEND_LETTERS, **settings}
        environment = {**os.environ, "CUPS_SERVER": server, "HOME": str(folder), "QT_QPA_PLATFORM": "offscreen",
                       "LC_ALL": "C.UTF-8"}
        self.process = subprocess.Popen([program_path, folder, *(f"{name}={value}" for name, value in settings.items())],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, env=environment)
        self.ready = self.next_event()

    def next_event(self):
        line = self.process.stdout.readline()
        if not line:
            raise AssertionError(f"the program ended with {self.process.wait()}")
        return json.loads(line)

    def say(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()

    def tell(self, line):
        """The next thing the program says after that line."""
        self.say(line)
        return self.next_event()

    def quit(self):
        self.say("quit")
        status = self.process.wait()
        self.close()
        return status

    def close(self):
        self.process.kill()
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()

    def log(self):
        return (self.folder / "quorvane.log").read_text(encoding="latin-1")


class PrintingThroughCups(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="print_cups_"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.scheduler = Scheduler(self.folder)
        self.addCleanup(self.scheduler.stop)
        if reason := self.scheduler.start():
            self.skipTest(reason)
        self.scheduler.add_queue("words")

    def start(self, **settings):
        settings = {f"Printer/{name}": value for name, value in {"PrinterName": "words", **settings}.items()}
        program = Program(self.folder / "program", self.scheduler.server, settings)
        self.addCleanup(program.close)
        self.assertEqual(program.ready["event"], "ready", program.ready)
        self.assertEqual(program.ready["printers"].split("\n"), ["words", "PDF file"])
        self.assertFalse(program.ready["canPrint"], "the list is still empty")
        found = program.tell("search " + PATTERN)
        self.assertEqual((found["event"], found["entries"]), ("done", len(WORDS)), found)
        self.assertTrue(found["canPrint"])
        return program

    def print_list(self, size, pages, per_page, **settings):
        """Prints and reads every page back from the spool; its PDF file."""
        program = self.start(**settings)
        text = f"{pages} page(s), with up to {per_page} words per page."
        asked = program.tell("print")
        self.assertEqual(asked, {"event": "asked", "title": "Quorvane Print", "text": "The print will contain " + text})
        self.assertEqual(self.scheduler.jobs("all"), [], "printed before the answer")
        done = program.tell("ok")
        self.assertEqual(done["status"],
                         f"The print contained {text}   {len(WORDS)} words were printed matching '{PATTERN}'.")
        self.assertTrue(wait_until(lambda: self.scheduler.jobs("completed")), "the job was not completed")
        self.assertEqual(len(self.scheduler.jobs("all")), 1)
        self.assertEqual(program.quit(), 0)
        self.assertRegex(program.log(), rf"PRINT .*Word list was printed - {pages} page\(s\)")
        title, options = self.scheduler.job_facts(1)
        self.assertEqual(title, "Quorvane")
        self.assertIn("media=" + settings["PaperSize"], options.split())

        pdf = self.scheduler.document(1)
        facts = dict(line.split(":", 1) for line in run("pdfinfo", pdf).splitlines())
        self.assertEqual(int(facts["Pages"]), pages)
        self.assertEqual([round(float(side)) for side in re.findall(r"[\d.]+", facts["Page size"])[:2]], size)
        for line in run("pdffonts", pdf).splitlines()[2:]:
            self.assertEqual(line.split()[-5], "yes", f"not embedded: {line}")
        words = []
        for number, page in enumerate(run("pdftotext", pdf, "-").split("\f")[:-1], 1):
            self.assertIn(f'{len(WORDS)} words found matching the word pattern "{PATTERN}"', page)
            self.assertIn(f"Page {number} of {pages}", page)
            self.assertIn(f"[{LEGEND_LETTERS}]", page)
            words += [line for line in page.splitlines() if line in WORDS]
        self.assertEqual(words, WORDS, "every word once, column by column")
        return pdf

    def check_refused(self, program, event):
        """The printer error is shown and logged, and the program goes on."""
        message = ("FP/482: Printer error - check connections to your printer and that it can cope with this kind of "
                   "printing.")
        self.assertEqual((event["event"], event.get("text")), ("told", message), event)
        done = program.next_event()
        self.assertEqual(done["event"], "done", done)
        self.assertNotIn("The print contained", done["status"])
        found = program.tell("search walk*")
        self.assertEqual((found["event"], found["entries"]), ("done", 5), found)
        self.assertEqual(program.quit(), 0)
        self.assertIn(message, program.log())
        self.assertNotIn("Word list was printed", program.log())

    def test_three_columns_on_letter(self):
        self.print_list([612, 792], 3, 132, PrinterColumns="3", FontSize="12", PaperSize="Letter")

    def test_two_columns_in_italics_on_a4_across(self):
        pdf = self.print_list([842, 595], 4, 74, PrinterColumns="2", FontSize="10", PaperSize="A4",
                              PrinterOrientation="Landscape", Italic="Yes")
        self.assertRegex(run("pdffonts", pdf), "Italic|Oblique")

    def test_cancelled(self):
        program = self.start()
        self.assertEqual(program.tell("print")["event"], "asked")
        self.assertEqual(program.tell("cancel"), {"event": "told", "title": "Print Cancelled",
                                                  "text": "Print request cancelled."})
        self.assertEqual(program.next_event()["event"], "done")
        self.assertEqual(program.quit(), 0)
        self.assertRegex(program.log(), "PRINT .*Print request was cancelled")
        self.assertEqual(self.scheduler.jobs("all"), [])
        self.assertFalse(self.scheduler.document(1).exists())

    def test_failures_before_the_question(self):
        for fail in (lambda: self.scheduler.remove_queue("words"), self.scheduler.stop):
            self.scheduler.add_queue("words")
            program = self.start()
            fail()
            self.check_refused(program, program.tell("print"))

    def test_failures_while_the_question_is_open(self):
        for fail in (lambda: self.scheduler.refuse_jobs("words"), self.scheduler.stop):
            self.scheduler.add_queue("words")
            program = self.start()
            self.assertEqual(program.tell("print")["event"], "asked")
            fail()
            self.check_refused(program, program.tell("ok"))


def time_is_up(_signal, _frame):
    raise TimeoutError(f"not finished after {TIME_LIMIT} seconds")


def main():
    global program_path
    program_path = os.path.abspath(sys.argv[1])
    missing = sorted({package for tool, package in TOOLS.items() if not shutil.which(tool)})
    if missing:
        print("SKIPPED: not installed: " + ", ".join(missing))
        return SKIPPED
    signal.signal(signal.SIGALRM, time_is_up)
    signal.alarm(TIME_LIMIT)
    suite = unittest.defaultTestLoader.loadTestsFromTestCase(PrintingThroughCups)
    result = unittest.TextTestRunner(verbosity=2).run(suite)
    if result.skipped:
        print("SKIPPED: " + result.skipped[0][1])
    if not result.wasSuccessful():
        return 1
    return SKIPPED if result.skipped else 0


if __name__ == "__main__":
    sys.exit(main())
