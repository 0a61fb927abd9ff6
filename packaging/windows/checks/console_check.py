"""Commands typed into a console give the exit statuses, report, quiet output and search results of Linux."""

import csv
import re
import subprocess
import unittest

from harness import private_network
from harness.program import Crawl, copy_program, environment
from harness.web import ScriptedServer, links_to, page
from tests.e2e import report_test
from wine import DRIVE_C, Wine

# Names that Windows allows, and answers that Wine does not change.
NAMES = [b"whole.html", report_test.ODD, b"missing.html", b"broken.html", b"moved.html", b"short.html", b"silent.html"]
SITE = {b"/" + name: report_test.SITE[name][0] for name in NAMES} | {
    b"/": page(links_to(*NAMES, b"word.html", b"con.html")),
    b"/word.html": page(b"A comma, and the word caf\xe9."),
    b"/con.html": page(b"The name of a device."),
}
REFUSED = "refused.example.test"


class ConsoleCheck(unittest.TestCase):
    def setUp(self):
        self.folder = private_network.scratch("console")
        self.linux = copy_program(self.folder / "linux")
        (self.folder / "home").mkdir()
        self.wine = self.enterContext(Wine(self.folder / "home"))

    def typed(self, *lines):
        """What cmd prints for each line, and the exit status after it."""
        batch = "@echo off\r\n" + "".join(f"{line}\r\necho [status %errorlevel%]\r\n" for line in lines)
        (DRIVE_C / "typed.bat").write_bytes(batch.encode("cp437"))  # as cmd reads it
        cmd = self.wine.start("cmd", "/c", "C:\\typed.bat", cwd=DRIVE_C / "Vantorin", stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        said = cmd.communicate(timeout=300)[0].decode("cp1252")
        found = re.findall(r"(.*?)\[status (\d+)\]\r\n", said, re.DOTALL)
        self.assertEqual(len(found), len(lines), said)
        return [(text, int(status)) for text, status in found]

    def crawled_on_linux(self):
        crawl = Crawl(self.linux, "www.example.test", self.folder / "mirror", "--timeout", 1, "--quiet",
                      "--report", self.folder / "report.csv")
        self.assertEqual(crawl.wait(), 3, crawl.output())
        return rows(self.folder / "report.csv"), crawl.output()

    def test_the_report_and_the_search_say_what_they_say_on_linux(self):
        line = "vantorin --site www.example.test --folder C:\\Mirror --timeout 1 --quiet --report "
        with ScriptedServer(SITE):
            expected, said = self.crawled_on_linux()
            (windows, status), = self.typed(line + "report.csv")
        self.assertEqual(status, 3)
        found = rows(DRIVE_C / "Vantorin/report.csv")  # in the folder of the console
        self.assertEqual(said, "5 saved, 2 error, 1 moved, 1 short, 1 unanswered\n")
        self.assertRegex(windows, r"^4 saved, 2 error, 1 moved, 1 short, 1 unanswered, 1 not written \(.+\)\r\n$")
        expected["www.example.test/con.html"][0] = "not written"
        self.assertRegex(found["www.example.test/con.html"].pop(), ".+")
        expected["www.example.test/con.html"].pop()
        self.assertEqual(found, expected)
        print(windows.strip(), flush=True)
        self.compare_searches()

    def compare_searches(self):
        for words, status in (("comma", 0), ("the word caf\xe9", 0), ("nowhere", 5)):
            with self.subTest(words=words):
                linux = subprocess.run([self.linux, "--search", words, "--folder", self.folder / "mirror"],
                                       env=environment(self.folder / "home"), capture_output=True, check=False)
                (said, ended), = self.typed(f"vantorin --search \"{words}\" --folder C:\\Mirror")
                self.assertEqual((ended, linux.returncode), (status, status), said)
                self.assertEqual(said.splitlines(), linux.stdout.decode().splitlines())
                print(said.strip(), flush=True)

    def test_every_status(self):
        crawl = "vantorin --site www.example.test --folder C:\\Mirror "
        nobody = f"vantorin --site {REFUSED} --folder C:\\Nobody --timeout 1 "
        typed = {
            crawl + "--quiet": 0,
            crawl + "--report C:\\none\\report.csv": 1,
            crawl + "--report C:\\Mirror": 1,
            crawl + "--connections 25": 2,
            nobody + "--quiet": 4,
            "vantorin --search end --folder C:\\Mirror": 0,
            "vantorin --search end --folder C:\\Mirror --limit 0": 2,
            "vantorin --search end --folder C:\\Nowhere": 1,
            "vantorin --search nowhere --folder C:\\Mirror": 5,
        }
        with ScriptedServer({b"/": page(b"The end.")}):
            ended = self.typed(*typed)
        for line, (said, status) in zip(typed, ended):
            print(f"{status} {line}\n    {said.strip()}", flush=True)
        self.assertEqual([status for _, status in ended], list(typed.values()))
        self.assertEqual(ended[0][0], "1 saved\r\n", "the quiet run prints nothing else")


def rows(path):
    """What the report says about each address, without tries and seconds, which the system's pace changes."""
    lines = list(csv.reader(path.read_bytes().decode("latin-1").splitlines(), strict=True))
    assert lines[0] == report_test.COLUMNS, lines[0]
    return {line[0]: line[1:5] + line[7:] for line in lines[1:]}
