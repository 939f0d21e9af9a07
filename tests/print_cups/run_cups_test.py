#!/usr/bin/env python3
"""Prints from the real window through a CUPS scheduler of its own and reads back what the scheduler wrote.

Usage: run_cups_test.py PRINT_LIST [--pictures FOLDER]

The scheduler has its own configuration, spool and state in a temporary folder and listens on the loopback interface
only; its queue has no device, so that each document stays in the spool as the printer would get it. Where it can't
run, the test says why and ends with 77.
"""

import getpass
import json
import math
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
import xml.etree.ElementTree

SKIPPED = 77
TIME_LIMIT = 240  # Seconds for everything.
WAIT_LIMIT = 30  # Seconds for the scheduler to come up or to finish a job.
POINTS = 72  # To the inch.
os.environ["PATH"] += ":/usr/sbin:/sbin"
TOOLS = {
    "cupsd": "cups-daemon",
    "lpadmin": "cups-client",
    "lpstat": "cups-client",
    "cupsreject": "cups-client",
    "pdftotext": "poppler-utils",
    "pdftoppm": "poppler-utils",
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
pictures_folder = None


def run(*command, **more):
    return subprocess.run(command, check=True, capture_output=True, text=True, **more).stdout


def wait_until(condition):
    """What `condition` gives once it gives something, or its last answer at the time limit."""
    end = time.monotonic() + WAIT_LIMIT
    while not (answer := condition()) and time.monotonic() < end:
        time.sleep(0.05)
    return answer


def nearest(value):
    return round(value)  # Ties to even.


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


class Sheet:
    """What the settings must give, by the rules of the estimate."""

    def __init__(self, width, height, columns, font_size):
        self.width = width  # In points, as the height.
        self.height = height
        self.columns = columns
        self.usable = height / POINTS - 1
        self.line = font_size / 56 * POINTS
        self.per_page = nearest(56 / font_size * (self.usable - 0.75) + 0.5) * columns
        self.pages = nearest(abs(len(WORDS) / self.per_page + 0.4999))
        # A column is full when the next line would begin at the usable height or below it.
        self.rows = math.ceil((self.usable - 0.75) * 56 / font_size)
        self.top = 0.75 * POINTS
        self.lefts = [5 + column * width / columns for column in range(columns)]

    def pages_text(self):
        return f"{self.pages} page(s), with up to {self.per_page} words per page."

    def columns_of_words(self):
        """Page by page, column by column."""
        columns = [WORDS[start:start + self.rows] for start in range(0, len(WORDS), self.rows)]
        return [columns[start:start + self.columns] for start in range(0, len(columns), self.columns)]


class Box:
    def __init__(self, element):
        self.text = element.text
        self.left, self.top, self.right, self.bottom = (float(element.get(name))
                                                        for name in ("xMin", "yMin", "xMax", "yMax"))


def boxes_of(pdf):
    """Page by page, the words with their places in points."""
    tree = xml.etree.ElementTree.fromstring(run("pdftotext", "-bbox", pdf, "-"))
    space = "{http://www.w3.org/1999/xhtml}"
    return [[Box(word) for word in page.iter(space + "word")] for page in tree.iter(space + "page")]


class Picture:
    """A page in grey, read from a binary PGM file."""

    def __init__(self, path):
        kind, width, height, white, self.bytes = path.read_bytes().split(maxsplit=4)
        assert kind == b"P5" and white == b"255", path
        self.width, self.height = int(width), int(height)
        # Splitting may not take leading white space off the pixels.
        self.bytes = path.read_bytes()[-self.width * self.height:]

    def darkest(self, left, top, right, bottom):
        rows = range(max(0, int(top)), min(self.height, math.ceil(bottom)))
        return min((min(self.bytes[row * self.width + int(left):row * self.width + math.ceil(right)], default=255)
                    for row in rows), default=255)


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

    def print_list(self, program, sheet):
        """The printed pages as a PDF file."""
        asked = program.tell("print")
        self.assertEqual(asked, {"event": "asked", "title": "Quorvane Print",
                                 "text": "The print will contain " + sheet.pages_text()})
        self.assertEqual(self.scheduler.jobs("all"), [], "printed before the answer")
        done = program.tell("ok")
        self.assertEqual(done["event"], "done", done)
        self.assertEqual(done["status"], f"The print contained {sheet.pages_text()}   {len(WORDS)} words were printed "
                                         f"matching '{PATTERN}'.")
        self.assertTrue(wait_until(lambda: self.scheduler.jobs("completed")), "the job was not completed")
        self.assertEqual(len(self.scheduler.jobs("all")), 1)
        self.assertEqual(program.quit(), 0)
        self.assertRegex(program.log(), rf"PRINT .*Word list was printed - {sheet.pages} page\(s\)")
        return self.scheduler.document(1)

    def check_pages(self, pdf, sheet, today):
        facts = dict(line.split(":", 1) for line in run("pdfinfo", pdf).splitlines())
        self.assertEqual(int(facts["Pages"]), sheet.pages)
        size = re.match(r"\s*([\d.]+) x ([\d.]+) pts", facts["Page size"])
        self.assertAlmostEqual(float(size[1]), sheet.width, delta=1)
        self.assertAlmostEqual(float(size[2]), sheet.height, delta=1)
        self.check_lines(pdf, sheet, today)
        pages = boxes_of(pdf)
        self.assertEqual(len(pages), sheet.pages)
        for number, (page, columns) in enumerate(zip(pages, sheet.columns_of_words()), 1):
            with self.subTest(page=number):
                self.check_places(page, columns, sheet)
        self.check_ink(pdf, pages, sheet)

    def check_lines(self, pdf, sheet, today):
        """The text read line by line, across the columns."""
        pages = run("pdftotext", "-layout", pdf, "-").split("\f")
        self.assertEqual(pages.pop(), "")
        self.assertEqual(len(pages), sheet.pages)
        for number, (page, columns) in enumerate(zip(pages, sheet.columns_of_words()), 1):
            with self.subTest(page=number):
                title, legend, *rows, footer = [line.split() for line in page.splitlines() if line.strip()]
                self.assertEqual(" ".join(title), f'{len(WORDS)} words found matching the word pattern "{PATTERN}"')
                self.assertEqual(" ".join(legend), f"# : any of [{LEGEND_LETTERS}]")
                across = [[column[row] for column in columns if row < len(column)] for row in range(len(columns[0]))]
                self.assertEqual(rows, across)
                printed_on = re.fullmatch(r"Printed on (\d+ \w+ \d+) at \d\d:\d\d Page (\d+) of (\d+)",
                                          " ".join(footer))
                self.assertTrue(printed_on, footer)
                self.assertIn(printed_on[1], today)
                self.assertEqual((int(printed_on[2]), int(printed_on[3])), (number, sheet.pages))

    def check_places(self, page, columns, sheet):
        """Every word once, in its column and line, in the order of the list; all of it on the sheet."""
        for box in page:
            self.assertGreaterEqual(box.left, 0, box.text)
            self.assertLessEqual(box.right, sheet.width, box.text)
            self.assertGreaterEqual(box.top, 0, box.text)
            self.assertLessEqual(box.bottom, sheet.height, box.text)
        body = [box for box in page if sheet.top - 5 < box.top < sheet.usable * POINTS + 5]
        read = [[] for _ in sheet.lefts]
        for box in sorted(body, key=lambda box: box.top):
            column = max(i for i, left in enumerate(sheet.lefts) if box.left > left - 1)
            read[column].append(box)
            self.assertAlmostEqual(box.left, sheet.lefts[column], delta=2, msg=box.text)
            self.assertLess(box.right, (*sheet.lefts, sheet.width)[column + 1], box.text)
        self.assertEqual([[box.text for box in column] for column in read if column], columns)
        first = min(box.top for box in body)
        self.assertAlmostEqual(first, sheet.top, delta=4)
        for column in read:
            for row, box in enumerate(column):
                self.assertAlmostEqual(box.top, first + row * sheet.line, delta=0.6, msg=box.text)

    def check_ink(self, pdf, pages, sheet):
        """Drawn pages: ink where the words are and none between the columns."""
        for line in run("pdffonts", pdf).splitlines()[2:]:
            self.assertEqual(line.split()[-5], "yes", f"not embedded: {line}")
        dots = 144
        run("pdftoppm", "-gray", "-r", str(dots), pdf, self.folder / "page")
        pictures = sorted(self.folder.glob("page-*.pgm"))
        self.assertEqual(len(pictures), len(pages))
        scale = dots / POINTS
        for path, page in zip(pictures, pages):
            picture = Picture(path)
            self.assertAlmostEqual(picture.width, sheet.width * scale, delta=2)
            self.assertAlmostEqual(picture.height, sheet.height * scale, delta=2)
            for box in page:
                self.assertLess(picture.darkest(box.left * scale, box.top * scale, box.right * scale,
                                                box.bottom * scale), 128, f"{box.text} can't be seen")
            # A slanted letter may reach a little to the left of where it stands.
            for left in sheet.lefts:
                gap = picture.darkest((left - 5) * scale, (sheet.top - 2) * scale, (left - 2) * scale,
                                      sheet.usable * POINTS * scale)
                self.assertEqual(gap, 255, f"ink left of the column at {left}")

    def print_and_check(self, sheet, **settings):
        program = self.start(**settings)
        today = [time.strftime("%-d %b %Y")]
        pdf = self.print_list(program, sheet)
        today.append(time.strftime("%-d %b %Y"))
        self.check_pages(pdf, sheet, today)
        title, options = self.scheduler.job_facts(1)
        self.assertEqual(title, "Quorvane")
        self.assertIn("media=" + settings["PaperSize"], options.split())
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
        sheet = Sheet(612, 792, 3, 12)
        self.assertEqual((sheet.per_page, sheet.pages), (132, 3))
        pdf = self.print_and_check(sheet, PrinterColumns="3", FontSize="12", PaperSize="Letter")
        if pictures_folder:
            for page in ("1", "2"):
                run("pdftoppm", "-png", "-r", "60", "-f", page, "-l", page, "-singlefile", pdf,
                    os.path.join(pictures_folder, f"printed_page_{page}"))

    def test_two_columns_in_italics_on_a4_across(self):
        pdf = self.print_and_check(Sheet(842, 595, 2, 10), PrinterColumns="2", FontSize="10", PaperSize="A4",
                                   PrinterOrientation="Landscape", Italic="Yes")
        self.assertRegex(run("pdffonts", pdf), "Italic|Oblique")

    def test_eight_columns_on_legal_in_one_page(self):
        sheet = Sheet(612, 1008, 8, 6)
        self.assertEqual(sheet.pages, 1)
        self.print_and_check(sheet, PrinterColumns="8", FontSize="6", PaperSize="Legal")

    def test_list_that_fills_its_last_page(self):
        sheet = Sheet(612, 792, 2, 15)
        self.assertEqual(len(WORDS), sheet.per_page * sheet.pages)
        self.print_and_check(sheet, PrinterColumns="2", FontSize="15", PaperSize="Letter")

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
    global program_path, pictures_folder
    program_path = os.path.abspath(sys.argv[1])
    if sys.argv[2:3] == ["--pictures"]:
        pictures_folder = sys.argv[3]
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
