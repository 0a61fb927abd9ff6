"""The program in its window, used by keyboard alone."""

import shutil
import subprocess
import unittest

from harness import private_network
from scripts import take_pictures
from harness.desktop import MAIN, WIZARD, Desktop
from harness.program import Crawl, copy_program, tree, wait_until
from wine import DRIVE_C, PROGRAM, ROOT, Wine

WEBSITES = DRIVE_C / "Websites"
SETTINGS = "HKCU\\Software\\Vantorin\\Settings"


class WindowCheck(unittest.TestCase):
    def setUp(self):
        self.folder = private_network.scratch("window")
        self.desktop = Desktop(self.folder / "home")
        self.addCleanup(self.desktop.close)
        self.wine = self.enterContext(Wine(self.folder / "home", self.desktop))

    def serve(self, limits=""):
        self.enterContext(take_pictures.serve(limits))

    def test_first_start_to_a_whole_copy(self):
        self.serve()
        desktop = self.desktop
        running = self.wine.start(PROGRAM)
        desktop.await_window(WIZARD, 120)
        desktop.type(take_pictures.SITE)
        desktop.press("Return")
        desktop.await_window("Done.", 300)
        crawl = Crawl(copy_program(self.folder / "linux"), take_pictures.SITE, self.folder / "mirror")
        self.assertEqual(crawl.wait(), 0)
        linux, windows = site_files(self.folder / "mirror"), site_files(WEBSITES)
        self.assertGreater(len(linux), 80)
        self.assertEqual(sorted(linux), sorted(windows))
        self.assertTrue(linux == windows)
        print(f"by the window: {len(windows)} files, the same as on Linux", flush=True)

        desktop.press("alt+n")
        desktop.await_window(MAIN)
        desktop.press("alt+F4")
        desktop.await_window("Exit Vantorin")
        desktop.press("alt+y")
        self.assertEqual(running.wait(60), 0)
        stored = self.wine.registry(SETTINGS)
        for name, value in (("LastURL", take_pictures.SITE), ("InDir", "C:\\Websites\\"), ("Timeout", "15")):
            self.assertRegex(stored, rf"{name} +REG_SZ +{value}".replace("\\", "\\\\"))
        print(stored.strip(), flush=True)
        self.assertNotIn("Vantorin\\Vantorin", self.wine.registry("HKCU\\Software\\Vantorin"))

    def test_every_dialog_pause_stop_and_exit(self):
        """Takes pictures into the build folder. Look at them and copy them to docs/pictures/windows."""
        self.serve("limit_rate 20k;")
        for name in ("Documents", "Music", "Websites"):
            (DRIVE_C / name).mkdir()
        pictures = ROOT / "build/windows/pictures"
        shutil.rmtree(pictures, ignore_errors=True)
        pictures.mkdir(parents=True)
        running = self.wine.start(PROGRAM)
        take_pictures.take_all(self.desktop, running, WEBSITES, pictures)
        self.assertEqual(running.wait(60), 0)
        on_linux = {path.name for path in (ROOT / "docs/pictures").glob("*.png")}
        self.assertEqual({path.name for path in pictures.iterdir()}, on_linux)

    def test_a_console_does_not_wait_for_the_window(self):
        desktop = self.desktop
        for line in ("vantorin", f"vantorin {take_pictures.SITE}"):
            # With a pipe here, the test itself would wait until the window closes its output.
            _, status = self.wine.run("cmd", "/c", line, cwd=DRIVE_C / "Vantorin", stdout=subprocess.DEVNULL)
            self.assertEqual(status, 0)
            desktop.await_window(WIZARD, 120)
            desktop.press("Escape")
            desktop.await_window(MAIN)
            desktop.press("alt+F4")
            desktop.await_window("Exit Vantorin")
            desktop.press("alt+y")
            wait_until(lambda: not desktop.run("xdotool", "search", "--name", f"^{MAIN}$"), what="the end")
        self.assertRegex(self.wine.registry(SETTINGS), rf"LastURL +REG_SZ +{take_pictures.SITE}")


def site_files(folder):
    return {path: data for path, data in tree(folder).items() if path.startswith(b"example.test/")}
