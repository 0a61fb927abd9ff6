"""The program as a command: what it prints where, how it ends, and where it keeps its lists."""

import contextlib
import os
import pty
import re
import select
import shutil
import subprocess
import unittest

from harness import private_network
from harness.desktop import MAIN
from harness.program import tree, wait_until
from harness.web import ScriptedServer, links_to, page
from wine import COMMAND, DRIVE_C, PROGRAM, ROOT, Wine, crawl_arguments

HERE = crawl_arguments("www.example.test", "C:\\Mirror")
SITE = {b"/": page(links_to(b"a.html", b"b.html")), b"/a.html": page(b"a"), b"/b.html": page(b"b")}


def slowly(connection, ending):
    ending.wait(0.5)
    connection.sendall(page(b"x" * 1000))


NAMES = [b"%d.html" % i for i in range(300)]
LARGE = {b"/": page(links_to(*NAMES))} | {b"/" + name: page(b"x" * 1000) for name in NAMES}
SLOW = {b"/": page(links_to(*NAMES))} | {b"/" + name: slowly for name in NAMES}


class UnattendedCheck(unittest.TestCase):
    def setUp(self):
        self.folder = private_network.scratch("unattended")
        self.wine = self.enterContext(Wine(self.folder))

    def test_prints_the_outcome_and_exits_with_a_status(self):
        for program in (PROGRAM, COMMAND):
            for arguments, status, said in (
                    (["--version"], 0, MAIN + "\r\n"),
                    (["--help"], 0, "Usage: vantorin"),
                    (["--no-such-word"], 2, "--help"),
                    (["--site", "x"], 2, "--folder"),
                    (crawl_arguments("www.example.test", "Q:\\none"), 1, "That is an invalid directory."),
                    (crawl_arguments("www.example.test", "\\\\server\\share"), 1, "That is an invalid directory."),
                    (crawl_arguments("www.example.test", "C:\\a|b"), 1, "would be changed")):
                with self.subTest(program=program, arguments=arguments):
                    output, ended = self.wine.run(program, *arguments)
                    self.assertIn(said, output)
                    self.assertEqual(ended, status)

    def test_contains_the_properties_and_icon_that_the_system_shows(self):
        data = (DRIVE_C / "Vantorin/vantorin.exe").read_bytes()
        icon = (ROOT / "packaging/windows/vantorin.ico").read_bytes()
        manifest = (ROOT / "build/windows/cli/vantorin.manifest").read_bytes()
        largest = icon[icon.rindex(b"\x89PNG"):]
        for part in ("ProductName\0".encode("utf-16-le"), "Vantorin Website Downloader".encode("utf-16-le"),
                     largest, manifest.strip()):
            self.assertTrue(part in data, part[:40])

    def test_a_crawl_prints_into_a_pipe_and_into_a_file(self):
        with ScriptedServer(SITE):
            output, status = self.wine.run(COMMAND, *HERE)
            self.assertEqual(status, 0, output)
            self.assertIn("Done. The website has been downloaded.", output)
            self.assertTrue(output.endswith(" bytes.\r\n"), output)
            self.assertEqual(len([path for path in tree(DRIVE_C / "Mirror") if path.startswith(b"example.test/")]), 3)
            shutil.rmtree(DRIVE_C / "Mirror")
            # As typed in a console: the command without its extension, redirected to a file by the shell.
            line = f"vantorin {' '.join(HERE)} > C:\\output.txt"
            _, status = self.wine.run("cmd", "/c", line, cwd=DRIVE_C / "Vantorin")
            self.assertEqual(status, 0)
            self.assertIn("Done. The website has been downloaded.", (DRIVE_C / "output.txt").read_text())
        self.assertEqual(self.wine.registry("HKCU\\Software\\Vantorin"), "", "the stored settings are left alone")

    def test_survives_a_reader_that_pauses_or_goes_away(self):
        with ScriptedServer(LARGE) as server:
            crawl = self.wine.start(COMMAND, *HERE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
            wait_until(lambda: len(server.requests) > 300, 120, "the whole crawl though nobody reads")
            crawl.stdout.read()
            crawl.stdout.close()
            self.assertEqual(crawl.wait(30), 0)
        shutil.rmtree(DRIVE_C / "Mirror")
        with ScriptedServer(SITE):
            crawl = self.wine.start(COMMAND, *HERE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
            crawl.stdout.close()
            self.assertEqual(crawl.wait(60), 0, "it has nothing to say before the end")

    def test_prints_to_a_console_and_stops_at_ctrl_c(self):
        version = int(re.search(r"wine-(\d+)", self.wine.run("--version")[0])[1])
        for program in (PROGRAM, COMMAND):
            with self.subTest(program=program):
                status, shown = self.in_console(program, "--no-such-word")
                self.assertIn(b"vantorin --help", shown)
                self.assertEqual(status, 2)
                shows_progress = version < 10 or program == COMMAND
                with ScriptedServer(SLOW) as server:
                    status, shown = self.in_console(
                        program, *HERE, keys=b"\x03",
                        when=lambda shown: b" queued" in shown if shows_progress else len(server.requests) > 20)
                self.assertIn(b"when it was stopped.", shown)
                self.assertEqual(status, 130)
                if not shows_progress:
                    print("skipped: progress; this Wine gives the program its terminal in place of a console")

    def in_console(self, *arguments, keys=b"", when=lambda shown: False):
        """Runs a command in a console and presses `keys` as soon as `when(shown)` says so. Returns the exit status
        and what the console shows.
        """
        process, console = pty.fork()
        if process == 0:
            os.execvpe("wine", ["wine", *arguments], self.wine.environment)
        shown = b""
        with contextlib.suppress(OSError):  # raised at the end of the output
            while True:
                if keys and when(shown):
                    os.write(console, keys)
                    keys = b""
                if select.select([console], [], [], 0.1)[0]:
                    shown += os.read(console, 65536)
        os.close(console)
        _, status = os.waitpid(process, 0)
        return os.waitstatus_to_exitcode(status), shown

    def test_keeps_its_lists_beside_it_or_in_the_users_data_folder(self):
        with ScriptedServer(SITE):
            self.assertEqual(self.wine.run(COMMAND, *HERE)[1], 0)
            lists = DRIVE_C / "Vantorin/temp/filetypes.txt"
            self.assertTrue(lists.is_file(), "a copy on a stick keeps them beside it")
            shutil.rmtree(DRIVE_C / "Vantorin/temp")
            shutil.rmtree(DRIVE_C / "Mirror")
            before = tree(DRIVE_C / "Vantorin")
            subprocess.run(["mount", "--bind", DRIVE_C / "Vantorin", DRIVE_C / "Vantorin"], check=True)
            self.addCleanup(subprocess.run, ["umount", DRIVE_C / "Vantorin"], check=True)
            subprocess.run(["mount", "-o", "remount,bind,ro", DRIVE_C / "Vantorin"], check=True)
            output, status = self.wine.run(COMMAND, *HERE)
            self.assertEqual(status, 0, output)
        self.assertEqual(tree(DRIVE_C / "Vantorin"), before)
        self.assertEqual([path.name for path in (DRIVE_C / "users").glob("*/AppData/Roaming/Vantorin/temp/*")],
                         ["filetypes.txt"])
