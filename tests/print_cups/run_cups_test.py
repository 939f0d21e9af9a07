#!/usr/bin/env python3
"""Prints from the real window through a CUPS scheduler of its own and reads what the printer would get.

Usage: run_cups_test.py PRINT_LIST [--pictures FOLDER]

The scheduler keeps to a temporary folder and the loopback interface; its queue has no device, so that each document
stays in the spool. Where it can't run, the test says why and ends with 77.
"""

import getpass
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
os.environ["PATH"] += ":/usr/sbin:/sbin"
TOOLS = ("cupsd", "lp", "lpadmin", "lpstat", "cupsreject", "pdftotext", "pdftoppm", "pdfinfo", "pdffonts")
WORDS = [a + b + c for a in "bcdfg" for b in "aeiou" for c in "bdgklmnprstx"]
PATTERN = "#*"
REFUSED = "FP/482: Printer error - check connections to your printer and that it can cope with this kind of printing."


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def wait_until(condition):
    """What `condition` gives once it gives something, or its last answer after half a minute."""
    end = time.monotonic() + 30
    while not (answer := condition()) and time.monotonic() < end:
        time.sleep(0.05)
    return answer


class PrintingThroughCups(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="print_cups_"))
        self.addCleanup(shutil.rmtree, self.folder)
        with socket.socket() as free:
            free.bind(("127.0.0.1", 0))
            os.environ["CUPS_SERVER"] = f"127.0.0.1:{free.getsockname()[1]}"
        self.start_scheduler("lp" if os.geteuid() == 0 else getpass.getuser())
        run("lpadmin", "-p", "words", "-E", "-v", "file:///dev/null")

    def start_scheduler(self, user):
        folder = self.folder
        for name in ("root", "spool/tmp", "state", "cache", "log"):
            (folder / name).mkdir(parents=True)
        if os.geteuid() == 0:
            for path in (folder, *folder.rglob("*")):
                shutil.chown(path, "root", "lp")
                path.chmod(0o775)
        allow = "Order allow,deny\nAllow from 127.0.0.1"
        (folder / "root/cupsd.conf").write_text(
            f"Listen {os.environ['CUPS_SERVER']}\nBrowsing No\nLogLevel debug\nPreserveJobFiles Yes\n"
            f"WebInterface No\nDefaultAuthType None\n<Location />\n{allow}\n</Location>\n"
            "<Policy default>\nJobPrivateAccess all\nJobPrivateValues none\nSubscriptionPrivateAccess all\n"
            f"SubscriptionPrivateValues none\n<Limit All>\n{allow}\n</Limit>\n</Policy>\n")
        (folder / "root/cups-files.conf").write_text(
            f"User {user}\n{'Group lp' if user == 'lp' else ''}\nServerRoot {folder}/root\n"
            f"RequestRoot {folder}/spool\nTempDir {folder}/spool/tmp\nStateDir {folder}/state\n"
            f"CacheDir {folder}/cache\n" + "".join(f"{name}Log {folder}/log/{name.lower()}_log\n"
                                                   for name in ("Access", "Error", "Page")))
        with open(folder / "log/output", "w") as output:
            scheduler = subprocess.Popen(["cupsd", "-f", "-c", folder / "root/cupsd.conf", "-s",
                                          folder / "root/cups-files.conf"], stdout=output, stderr=output)
        self.addCleanup(scheduler.wait)
        self.addCleanup(scheduler.terminate)
        runs = lambda: "is running" in subprocess.run(["lpstat", "-r"], capture_output=True, text=True).stdout
        if not wait_until(lambda: scheduler.poll() is not None or runs()) or scheduler.poll() is not None:
            self.skipTest("cupsd did not start: " + (folder / "log/output").read_text())

    def print_list(self, answer="ok", command="true", **settings):
        """What the window said, line by line, and what it logged."""
        program = self.folder / "program"
        shutil.rmtree(program, ignore_errors=True)
        program.mkdir()
        (program / "words.lex").write_text("\r\n".join([*WORDS, "zoo", ""]), newline="")
        (program / "quorvane.conf").write_text("[Selection]\nSelectedChars=bcdfg\n[Printer]\nPrinterName=words\n"
                                               + "".join(f"{key}={value}\n" for key, value in settings.items()))
        os.environ.update(HOME=str(program), QT_QPA_PLATFORM="offscreen", LC_ALL="C.UTF-8")
        said = run(program_path, program, PATTERN, answer, command).splitlines()
        return said, (program / "quorvane.log").read_text(encoding="latin-1")

    def check_pages(self, pdf, count, size):
        facts = dict(line.split(":", 1) for line in run("pdfinfo", pdf).splitlines())
        self.assertEqual(int(facts["Pages"]), count)
        self.assertTrue(facts["Page size"].strip().startswith(size), facts["Page size"])
        words = []
        pages = run("pdftotext", "-raw", pdf, "-").split("\f")[:-1]  # In the order in which it was drawn.
        for number, page in enumerate(pages, 1):
            title, legend, footer, *body = page.splitlines()
            self.assertEqual(title, f'{len(WORDS)} words found matching the word pattern "{PATTERN}"')
            self.assertEqual(legend, "# : any of [bcdfg]")
            self.assertRegex(footer, rf"^Printed on \d+ \w+ \d+ at \d\d:\d\d Page {number} of {count}$")
            words += body
        self.assertEqual(words, WORDS)
        for line in run("pdffonts", pdf).splitlines()[2:]:
            self.assertEqual(line.split()[-5], "yes", f"not embedded: {line}")

    def test_printed(self):
        for job, (count, per_page, size, slanted, settings) in enumerate((
                (3, 132, "612 x 792", False, {"PrinterColumns": 3, "PaperSize": "Letter"}),
                (5, 74, "842 x 595", True, {"PrinterColumns": 2, "FontSize": 10, "PaperSize": "A4", "Italic": "Yes",
                                            "PrinterOrientation": "Landscape", "FontName": "DejaVu Sans"})), 1):
            said, log = self.print_list(**settings)
            pages = f"{count} page(s), with up to {per_page} words per page."
            self.assertEqual(said, [f"Quorvane Print: The print will contain {pages}", f"The print contained {pages}   "
                                    f"{len(WORDS)} words were printed matching '{PATTERN}'."])
            self.assertRegex(log, rf"PRINT .*Word list was printed - {count} page\(s\)")
            self.assertTrue(wait_until(lambda: len(run("lpstat", "-W", "completed", "-o").splitlines()) == job))
            told = (self.folder / "log/error_log").read_text()
            title, options = (re.search(rf'\[Job {job}\] argv\[{i}\]="(.*)"', told)[1] for i in (3, 5))
            self.assertEqual(title, "Quorvane")
            self.assertIn("media=" + settings["PaperSize"], options.split())
            pdf = self.folder / f"spool/d{job:05}-001"
            self.check_pages(pdf, count, size)
            self.assertEqual(re.search("Italic|Oblique", run("pdffonts", pdf)) is not None, slanted)
            if pictures_folder and job == 1:
                for page in ("1", "2"):
                    run("pdftoppm", "-png", "-r", "60", "-f", page, "-l", page, "-singlefile", pdf,
                        os.path.join(pictures_folder, f"printed_page_{page}"))

    def test_printer_that_does_not_reach_the_edges(self):
        """Everything stands within what it reaches, 18 points at the sides and 36 at the ends, however it is turned."""
        run("lpadmin", "-p", "edges", "-E", "-v", "file:///dev/null", "-m", "drv:///sample.drv/deskjet.ppd")
        for job, (orientation, across, down) in enumerate((("Portrait", 18, 36), ("Landscape", 36, 18)), 1):
            said, _ = self.print_list(PrinterName="edges", PrinterOrientation=orientation, PrinterColumns=4)
            self.assertIn("were printed", said[-1])
            pages = run("pdftotext", "-bbox", self.folder / f"spool/d{job:05}-001", "-").split("<page ")[1:]
            for page in pages:
                width, height = (float(size) for size in re.findall(r'(?:width|height)="([\d.]+)"', page))
                boxes = [[float(place) for place in box] for box in
                         re.findall(r'xMin="(.*)" yMin="(.*)" xMax="(.*)" yMax="(.*)"', page)]
                left, top = (min(box[side] for box in boxes) for side in (0, 1))
                right, bottom = (max(box[side] for box in boxes) for side in (2, 3))
                self.assertAlmostEqual(left, across + 5, delta=1)
                self.assertAlmostEqual(top, down, delta=1)
                self.assertLessEqual(right, width - across)
                self.assertLessEqual(bottom, height - down)

    def test_cancelled_and_refused(self):
        """Nothing is printed; a refusal is told, and logged as an error."""
        asked = "Quorvane Print: The print will contain 7 page(s), with up to 44 words per page."
        for answer, command, told, entry in (
                ("cancel", "true", [asked, "Print Cancelled: Print request cancelled."], "Print request was cancelled"),
                ("ok", "cupsreject words", [asked, "Quorvane: " + REFUSED], REFUSED),
                ("none", "lpadmin -x words", ["Quorvane: " + REFUSED], REFUSED),
                ("ok", "true", [], "SELECTS")):  # The queue is gone by then: Print is grey.
            said, log = self.print_list(answer, command)
            self.assertEqual(said[:-1], told)
            self.assertIn(entry, log)
            self.assertNotIn("was printed", log)
        self.assertFalse((self.folder / "spool/d00001-001").exists())


def main():
    global program_path, pictures_folder
    program_path = os.path.abspath(sys.argv[1])
    pictures_folder = sys.argv[3] if sys.argv[2:3] == ["--pictures"] else None
    missing = [tool for tool in TOOLS if not shutil.which(tool)]
    if missing:
        print("SKIPPED: not installed: " + ", ".join(missing))
        return SKIPPED
    signal.alarm(240)  # Seconds for everything.
    suite = unittest.defaultTestLoader.loadTestsFromTestCase(PrintingThroughCups)
    result = unittest.TextTestRunner(verbosity=2).run(suite)
    if result.skipped:
        print("SKIPPED: " + result.skipped[0][1])
    return 1 if not result.wasSuccessful() else SKIPPED if result.skipped else 0


if __name__ == "__main__":
    sys.exit(main())
