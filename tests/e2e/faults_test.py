"""With the worst pages, folders, disks and list files, the crawl goes on and ends."""

import functools
import os
import shutil
import signal
import subprocess
import time
import unittest

from harness import private_network
from harness.program import copy_program, tree, wait_until
from harness.web import ScriptedServer, links_to, page, silent, site_of
from tests.e2e.downloads import HOME, DownloadTest


# Names are cleaned late, so ".*./" and the like become "../" after every test for it.
CLIMBS = [b"../../", b"..\\..\\", b"a/../../../", b"/../../", b"%2e%2e/%2e%2e/",
          b"/tmp/", b"c:\\", b"c:/.*./", b"z:\\tmp\\", b"file:///tmp/", b"http://.www../.www../example.test/"]
LATE_CLIMBS = [b".*./.*./.*./", b".{./.{./", b".|./.|./", b".www../.www../.www../", b"a/.*./.*./.*./.*./",
               b".*./.*./canary/", b".*./.*./new/folder/", b".www../.*./program/", b"link/"]
ESCAPES = [folder + b"escape%d.html" % i for i, folder in enumerate(CLIMBS + LATE_CLIMBS)]


class Escapes(DownloadTest):
    def test_nothing_is_written_outside_the_folder(self):
        canary = self.folder / "canary"
        canary.mkdir()
        (canary / "kept.txt").write_text("as it was")
        (self.program.parent / "filters.txt").write_text("nothing\r\n")
        (self.mirror / "example.test").mkdir(parents=True)
        (self.mirror / "example.test/link").symlink_to(canary)
        before = self.outside()
        links = [*ESCAPES, b".*./.*./canary/kept.txt", b".*./.*./program/filters.txt"]
        answers = {path: page(links_to(*links, b"/a/b/c/deep.html")) for path in (b"/", b"/a/b/c/deep.html")}
        self.crawl(answers, "--connections", 24, "--timeout", 1, status=3)
        self.assertEqual(self.outside(), before)
        late = {b"/" + link for link in ESCAPES[len(CLIMBS):]}
        self.assertEqual(late - set(self.requested), set(), "each was tried")

    def test_the_users_files_in_the_folder_are_left_alone(self):
        mine, answers = {}, {}
        for kind, answer in ((b"told", page(b"harm")), (b"silent", silent)):
            for name in (b".%src", b"%s.html", b"%s.tmp", b"other.test/%s.html", b"other.test/%s.tmp"):
                mine[name % kind] = b"mine"
                answers[b"/x.php?.html/.*./.*./" + (name % kind).removesuffix(b".tmp")] = answer
        for path in map(os.fsdecode, mine):
            (self.mirror / path).parent.mkdir(parents=True, exist_ok=True)
            (self.mirror / path).write_text("mine")
        links = [path[1:] + b"?" for path in answers]  # the "?" keeps them from counting as known
        answers_and_start = answers | {b"/": page(links_to(*links))}
        self.crawl(answers_and_start, "--connections", 24, "--timeout", 0.5, status=3)
        self.assertEqual(set(self.requested), {b"/", *answers}, "each was tried")
        files = tree(self.mirror)
        self.assertEqual({path: files.get(path) for path in mine}, mine)
        added = [path for path in files.keys() - mine.keys() if not path.endswith(b"_.tmp")]
        self.assertEqual(set(added), {HOME, b"_SearchData/example.test.txt", b"log.txt"})

    def outside(self):
        """The test's folder without the mirror and the program's own lists, and the roots."""
        near = {path: data for path, data in tree(self.folder).items()
                if not path.startswith((b"mirror/", b"program/output-", b"program/temp/"))}
        folders = sorted(os.listdir(self.folder)), sorted(os.listdir(self.folder / "canary"))
        roots = [sorted(name for name in os.listdir(root) if "escape" in name or name == "example.test")
                 for root in ("/", "/tmp", self.folder.parent)]
        return near, folders, roots


class ManyLinks(DownloadTest):
    def test_pages_that_keep_the_program_busy_for_longer_than_the_timeout(self):
        names = [b"page%d.html" % i for i in range(30)]
        body = page(links_to(*(names * 120)))
        answers = {path: body for path in (b"/", *(b"/" + name for name in names))}
        self.crawl(answers, "--connections", 24, "--timeout", 0.3)
        self.assertEqual(len(self.saved()), len(answers))
        self.assertLessEqual(len(self.requested), 1.1 * len(answers), "our own work is not the server's silence")


class TargetFolder(DownloadTest):
    def test_a_folder_that_cannot_be_written_is_refused(self):
        (self.folder / "file").write_text("in the way")
        read_only = self.folder / "read_only"
        self.mount(read_only, "ro")
        for folder in (self.folder / "file/mirror", read_only, read_only / "mirror"):
            crawl = self.start(folder=folder)
            self.assertEqual(crawl.wait(20), 1, folder)
            self.assertIn("That is an invalid directory. Check it has no invalid characters.", crawl.output())

    def test_a_folder_in_use_by_another_download_is_refused(self):
        with ScriptedServer({b"/": silent}) as server:
            first = self.start()
            wait_until(lambda: server.requests, what="the first download's request")
            before = tree(self.mirror)
            second = self.start(folder=self.mirror / "../mirror")
            self.assertEqual(second.wait(), 1)
            self.assertIn("Folder in Use Another download is saving into this folder.", second.output())
            self.assertEqual((len(server.requests), tree(self.mirror)), (1, before))
            first.process.kill()
            first.wait()
            third = self.start()
            wait_until(lambda: len(server.requests) == 2, what="the third download's request")
            third.process.kill()
            third.wait()


class ListFiles(DownloadTest):
    def test_a_list_that_can_be_neither_read_nor_created(self):
        (self.program.parent / "temp/filetypes.txt").mkdir(parents=True)
        (self.program.parent / "filters.txt").mkdir()
        self.assert_no_type_known()
        self.program = copy_program(self.folder / "bin")  # keeps its lists in the home folder
        home = self.folder / "home"
        subprocess.run(["mount", "--bind", "-o", "ro", home, home], check=True)
        self.addCleanup(subprocess.run, ["umount", home], check=True)  # otherwise the folder cannot be deleted
        self.assertIn(f"{home}/.local/share/Vantorin/temp/filetypes.txt", self.assert_no_type_known())

    def assert_no_type_known(self):
        crawl = self.start()
        self.assertEqual(crawl.wait(20), 1)
        self.assertIn("No file type to download is known.", crawl.output())
        return crawl.output()


def slow(connection, _):
    time.sleep(0.2)  # so that the crawl lasts for several lines of progress
    connection.sendall(page(b"slow"))


class Surroundings(DownloadTest):
    """Runs in unusual environments."""

    names = [b"slow%d.html" % i for i in range(30)]
    site = site_of({b"/" + name: slow for name in names})

    def setUp(self):
        super().setUp()
        self.enterContext(ScriptedServer(self.site))

    def test_a_reader_that_closes_the_output_ends_the_download(self):
        reader, writer = os.pipe()
        crawl = self.start("--connections", 1, output=writer)
        os.close(writer)
        wait_until(self.placeholders, what="a placeholder")
        os.close(reader)
        self.assertEqual(crawl.wait(20), 141)
        self.assertEqual(self.placeholders(), [])

    def test_a_missing_display_does_not_matter(self):
        crawl = self.start(DISPLAY=":77", QT_QPA_PLATFORM="xcb", QT_QPA_PLATFORMTHEME="gtk3")
        self.assertEqual(crawl.wait(20), 0, crawl.output())
        self.assertEqual(self.saved().keys(), {HOME} | {b"example.test/" + name for name in self.names})

    def test_missing_standard_streams_are_opened(self):
        crawl = self.start(before=lambda: os.closerange(0, 3))
        wait_until(self.placeholders, what="a placeholder")
        streams = {os.readlink(f"/proc/{crawl.process.pid}/fd/{number}") for number in range(3)}
        self.assertEqual(streams, {os.devnull}, "no file or connection may get their numbers")
        self.assertEqual(crawl.wait(20), 0)

    def test_signals_end_the_download(self):
        ignore = functools.partial(signal.signal, signal.SIGHUP, signal.SIG_IGN)
        for numbers, before in (([signal.SIGINT], None), ([signal.SIGHUP, signal.SIGTERM], ignore)):
            crawl = self.start("--connections", 1, before=before)
            wait_until(self.placeholders, what="a placeholder")
            for number in numbers:
                crawl.process.send_signal(number)
                time.sleep(0.2)  # so that the first one can take effect, if it does
            self.assertEqual(crawl.wait(1), 128 + numbers[-1], crawl.output())
            self.assertEqual(self.placeholders(), [])
            shutil.rmtree(self.mirror)


if __name__ == "__main__":
    private_network.enter()
    unittest.main(verbosity=2)
