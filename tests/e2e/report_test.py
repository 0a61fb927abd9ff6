"""What the program reports about a download: the report file, the last lines, the exit status."""

import contextlib
import csv
import io
import os
import pty
import shutil
import signal
import time
import unittest

from harness import private_network
from harness.program import read, wait_until
from harness.web import ScriptedServer, closes, links_to, page, resets, silent, site_of
from tests.e2e.downloads import START, DownloadTest

COLUMNS = ["address", "outcome", "status", "bytes", "announced", "tries", "seconds", "detail"]


def silent_in_body(connection, ending):
    connection.sendall(page(b"text")[:-2])
    ending.wait()


def answer(status, *lines, body=b"text"):
    return b"\r\n".join([b"HTTP/1.0 " + status, *lines, b"", body])


ODD = b"comma,\xe9.html"
LONG = b"n" * 260 + b".html"
PLACE = "https://www.example.test/\"there\", or so"

# The answers, and their rows in the report: outcome, status, bytes, announced, tries, detail.
SITE = {
    b"whole.html": (page(b"text"), ("saved", "200", "4", "4", "1", "")),
    ODD: (answer(b"200 OK"), ("saved", "200", "4", "", "1", "")),
    b"missing.html": (answer(b"404 Not Here"), ("error", "404", "4", "", "1", "Not Here")),
    b"broken.html": (answer(b"500 "), ("error", "500", "4", "", "1", "")),
    b"moved.html": (answer(b"301 Moved", b"Location: " + PLACE.encode()), ("moved", "301", "4", "", "1", PLACE)),
    b"short.html": (answer(b"200 OK", b"Content-Length: 99"), ("short", "200", "4", "99", "1", "")),
    b"silent.html": (silent, ("unanswered", "", "", "", "3", "silent")),
    b"half.html": (silent_in_body,
                   ("unanswered", "", "", "", "3", f"silent after {len(page(b'text')) - 2} bytes")),
    b"closes.html": (closes, ("unanswered", "", "", "", "3", "closed without an answer")),
    b"resets.html": (resets, ("unanswered", "", "", "", "3", "reset")),
    LONG: (answer(b"200 OK"), ("not written", "200", "4", "", "1", "File name too long")),
}
ELSEWHERE = {
    b"refused.example.test/x.html": ("unanswered", "", "", "", "3", "refused"),
    b"unknown.example.test/x.html": ("unanswered", "", "", "", "3", "name unknown"),
}
SUMMARY = "3 saved, 2 error, 1 moved, 1 short, 6 unanswered, 1 not written (File name too long)"


class ReportTest(DownloadTest):
    def rows(self):
        """The report's rows as dictionaries. Addresses are bytes, read as Latin-1."""
        text = read(self.report).decode("latin-1")
        self.assertTrue(text.endswith("\r\n"))
        rows = list(csv.reader(io.StringIO(text, newline=""), strict=True))
        self.assertEqual(rows[0], COLUMNS)
        return [dict(zip(COLUMNS, row, strict=True)) for row in rows[1:]]


class Outcomes(ReportTest):
    def test_a_server_of_known_faults(self):
        links = links_to(*SITE, *(b"http://" + address for address in ELSEWHERE))
        answers = {b"/": page(links)} | {b"/" + name: sent for name, (sent, _) in SITE.items()}
        with private_network.name_server_without_names():
            lines = self.crawl(answers, "--connections", 24, "--timeout", 1, "--report", self.report, status=3)
        told = {row["address"].encode("latin-1"):
                tuple(row[column] for column in COLUMNS if column not in ("address", "seconds"))
                for row in self.rows()}
        expected = {START.encode() + b"/" + name: row for name, (_, row) in SITE.items()} | ELSEWHERE
        expected[START.encode()] = ("saved", "200", str(len(links)), str(len(links)), "1", "")
        self.assertEqual(told, expected)
        logged = read(self.mirror / "log.txt").split(b"\r\n")[:-1]
        self.assertEqual(sorted([START.encode(), *logged]), sorted(row["address"].encode("latin-1")
                                                                   for row in self.rows()))
        for row in self.rows():
            late = row["outcome"] == "unanswered"
            self.assertTrue(late == (float(row["seconds"]) >= 3), row)
        self.assertIn(SUMMARY, lines)
        self.assertTrue(lines[-1].endswith(" bytes."), "the closing line is the last one")

    def test_nothing_saved(self):
        lines = self.crawl({b"/": answer(b"404 Not Found")}, "--report", self.report, status=4)
        self.assertIn("1 error", lines)
        crawl = self.start("--timeout", 5, "--report", self.report, site="www.nowhere.test")
        self.assertEqual(crawl.wait(20), 4)
        self.assertIn("1 unanswered", crawl.output().splitlines())
        self.assertEqual(self.rows()[0]["detail"], "no name server answered")

    def test_twice_into_one_folder(self):
        names = [b"page%d.html" % i for i in range(5)]
        answers = {b"/": page(links_to(*names, b"dir/"))} | {b"/" + name: page(links_to(*names)) for name in names}
        answers[b"/dir/"] = page(b"")
        self.assertIn("7 saved", self.crawl(answers))
        self.assertIn("1 saved, 6 already there", self.crawl(answers, "--report", self.report))
        self.assertEqual(self.requested, [b"/"])
        self.assertEqual([row["outcome"] for row in self.rows()], ["saved"])

    def test_addresses_not_asked_and_answers_too_large(self):
        def endless(connection, _):
            with contextlib.suppress(OSError):
                while True:
                    connection.sendall(bytes(1 << 20))

        if b"__asan_init" in read(self.program):
            self.skipTest("the sanitizer's own memory passes every limit")
        answers = {b"/": page(links_to(b"endless.zip", b"..above.html", b"whole.html")), b"/whole.html": page(b"")}
        lines = self.crawl(answers | {b"/endless.zip": endless}, "--report", self.report, status=3,
                           under=["prlimit", "--as=600000000"])
        outcomes = {row["address"]: row["outcome"] for row in self.rows()}
        self.assertEqual(outcomes, {START: "saved", f"{START}/endless.zip": "too large",
                                    f"{START}/..above.html": "not asked", f"{START}/whole.html": "saved"})
        self.assertIn("2 saved, 1 too large, 1 not asked", lines)

    def test_a_full_disk(self):
        self.mount(self.mirror, "size=512k")
        body = b"picture" * 10_000
        answers = site_of({b"/dir%d/file.gif" % i: page(body) for i in range(20)})
        lines = self.crawl(answers, "--report", self.report, status=3)
        self.assertEqual(sorted(self.requested), sorted(answers))
        full = [row for row in self.rows() if row["outcome"] == "not written"]
        self.assertEqual({row["detail"] for row in full}, {"No space left on device"})
        pictures = [data for path, data in self.saved().items() if path.endswith(b".gif")]
        self.assertTrue(3 < len(pictures) < 8, f"{len(pictures)} files fit")
        self.assertEqual(set(pictures), {body + b"\r\n"}, "a file is complete or missing")
        self.assertIn(f"{len(pictures) + 1} saved, {len(full)} not written (No space left on device)", lines)

    def test_stopped(self):
        with ScriptedServer({b"/": page(links_to(*SITE)), b"/" + LONG: silent}):
            crawl = self.start("--connections", 1, "--report", self.report)
            wait_until(lambda: read(self.report).count(b"\r\n") > 1 if self.report.exists() else False)
            time.sleep(0.3)
            crawl.process.send_signal(signal.SIGINT)
            self.assertEqual(crawl.wait(10), 130)
        outcomes = [row["outcome"] for row in self.rows()]
        self.assertEqual(outcomes, ["saved"] + ["unfinished"] * len(SITE))
        self.assertIn(f"1 saved, {len(SITE)} unfinished", crawl.output().splitlines())


class Output(ReportTest):
    site = site_of({b"/a.html": page(b"")})

    def test_what_is_printed(self):
        lines = self.crawl(self.site)
        self.assertEqual(lines, ["Done. The website has been downloaded. Would you like to browse the download"
                                 " directory? No.", "2 saved", lines[-1]])
        shutil.rmtree(self.mirror)
        self.assertEqual(self.crawl(self.site, "--quiet"), ["2 saved"])
        self.mirror = self.folder / "file"
        self.mirror.write_text("in the way")
        self.assertIn("invalid directory", self.crawl({}, "--quiet", status=1)[0])

    def test_a_terminal_shows_the_progress(self):
        def slow(connection, _):
            time.sleep(1.5)
            connection.sendall(page(b""))

        ours, terminal = pty.openpty()
        self.crawl(self.site | {b"/a.html": slow}, output=terminal)
        os.close(terminal)
        self.assertIn(b"\r1 files, 0 queued, ", os.read(ours, 65536))
        os.close(ours)


class ReportFiles(ReportTest):
    site = Output.site

    def test_a_file_that_cannot_be_opened_is_refused_at_once(self):
        full = self.folder / "full"
        self.mount(full, "size=4k")
        (full / "all.txt").write_bytes(bytes(4096))
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        for path, why in ((self.mirror, "not a regular file"), (pipe, "not a regular file"),
                          ("/dev/full", "not a regular file"), (self.program / "x", "Not a directory"),
                          (self.folder / "no/report.csv", "No such file or directory"),
                          (full / "r", "No space left on device")):
            lines = self.crawl(self.site, "--quiet", "--report", path, status=1)
            self.assertEqual(lines, [f"The report cannot be written to {path}: {why}"])
            self.assertEqual(self.requested, [])

    def test_a_disk_that_fills_up(self):
        disk = self.folder / "disk"
        self.mount(disk, "size=8k")
        self.report = disk / "report.csv"
        answers = site_of({b"/" + b"n" * 100 + b"%d.html" % i: page(b"") for i in range(100)})
        lines = self.crawl(answers, "--connections", 24, "--report", self.report, status=1)
        self.assertIn("The report is not complete: No space left on device", lines)
        self.assertIn("101 saved", lines)
        self.assertTrue(10 < len(self.rows()) < 101, "it has as many complete lines as fit")

    def test_a_folder_that_is_deleted(self):
        folder = self.folder / "reports"
        folder.mkdir()

        def vanish(connection, _):
            shutil.rmtree(folder)
            connection.sendall(page(b""))

        lines = self.crawl(self.site | {b"/a.html": vanish}, "--report", folder / "r.csv", status=1)
        self.assertIn("The report is not complete: the file was removed or changed", lines)

    def test_an_old_report_is_replaced(self):
        self.report.write_bytes(b"x" * 10_000)
        self.crawl(self.site, "--report", self.report)
        self.assertEqual([row["outcome"] for row in self.rows()], ["saved", "saved"])


if __name__ == "__main__":
    private_network.enter()
    unittest.main(verbosity=2)
