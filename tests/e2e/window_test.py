"""Downloads a site through the window, with nothing but key presses."""

import subprocess
import time
import unittest

import private_network
import web
from program import copy_program, environment, tree, wait_until
from site_model import SiteModel

SITE = "www.example.test"
ROOT = "/usr/share/doc/python-flask-doc/html"
SECOND_SITE = "www.second.test"


class Desktop:
    """An X server that shows nowhere, with a window manager, one user and one keyboard.

    Its socket is one of the private network alone, and it takes no lock: those of the machine's own
    X servers would look abandoned from here, and be taken away from them.
    """

    def __init__(self, home):
        self.server = subprocess.Popen(["Xvfb", ":1", "-displayfd", "1", "-nolock", "-nolisten", "unix",
                                        "-nolisten", "tcp", "-screen", "0", "1280x1024x24"],
                                       stdout=subprocess.PIPE, text=True, stderr=subprocess.DEVNULL)
        with self.server.stdout as said:
            self.environment = environment(home, DISPLAY=":" + said.readline().strip())
        self.manager = self.start("openbox", stderr=subprocess.DEVNULL)

    def start(self, *command, **how):
        return subprocess.Popen(command, env=self.environment, **how)

    def run(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True, timeout=30,
                              check=False).stdout.strip()

    def active_window(self):
        return self.run("xdotool", "getactivewindow", "getwindowname")

    def await_window(self, title, seconds=60):
        wait_until(lambda: self.active_window() == title, seconds, f'an active window "{title}"')
        time.sleep(0.3)  # the focus comes to its control a moment after the window has it

    def press(self, *keys):
        self.run("xdotool", "key", "--clearmodifiers", "--delay", "30", *keys)

    def type(self, text):
        self.run("xdotool", "type", "--delay", "10", text)

    def shoot(self, name):
        """Leaves a picture of the screen in the folder that the test runs in; its number of colours."""
        self.run("import", "-window", "root", name)
        return int(self.run("identify", "-format", "%k", name))

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


MAIN = "Vantorin Website Downloader 1.9"


class WindowTest(unittest.TestCase):
    def setUp(self):
        self.folder = private_network.scratch("window")
        small_site = self.folder / "site"
        small_site.mkdir()
        (small_site / "index.html").write_text("<a href='a.html'>a</a>")
        (small_site / "a.html").write_text("the end")
        server = web.nginx(private_network.scratch("nginx"), {SITE: ROOT, SECOND_SITE: small_site})
        server.__enter__()
        self.addCleanup(server.__exit__, None, None, None)
        settings = self.folder / "home/.config/Vantorin/Vantorin.conf"
        settings.parent.mkdir(parents=True)
        settings.write_bytes(b"\0\xff[[[=\n" * 1000)  # damaged, which must not matter
        self.settings = settings
        self.desktop = Desktop(self.folder / "home")
        self.addCleanup(self.desktop.close)

    def test_two_sites(self):
        desktop = self.desktop
        program = desktop.start(copy_program(self.folder / "program"))
        self.addCleanup(program.kill)

        desktop.await_window("New Site Wizard")
        desktop.type(SITE)
        desktop.press("Tab")
        desktop.type(str(self.folder / "mirror"))
        self.assertGreater(desktop.shoot("wizard.png"), 20)
        desktop.press("Return")
        desktop.await_window(MAIN)
        wait_until(lambda: len(self.site_files()) > 20, what="the first files")
        self.assertGreater(desktop.shoot("downloading.png"), 50)

        desktop.await_window("Done.", 120)
        self.assertGreater(desktop.shoot("done.png"), 50)
        model = SiteModel(SITE.encode(), web.receive)
        self.assertEqual(sorted(self.site_files()), sorted(model.files))
        self.assertTrue(self.site_files() == model.files)
        desktop.press("alt+n")

        desktop.await_window(MAIN)
        desktop.press("ctrl+a")
        desktop.type("HTTP://" + SECOND_SITE)
        desktop.press("Return")
        desktop.await_window("Done.")
        self.assertEqual(set(self.site_files(b"second.test/")),
                         {b"second.test/index.html", b"second.test/a.html"})
        desktop.press("alt+n")

        desktop.await_window(MAIN)
        desktop.press("alt+F4")
        desktop.await_window("Exit Vantorin")
        desktop.press("alt+y")
        self.assertEqual(program.wait(20), 0)
        stored = self.settings.read_text(errors="replace")
        self.assertIn(f"LastURL={SITE}", stored)

    def site_files(self, site=b"example.test/"):
        return {path: data for path, data in tree(self.folder / "mirror").items()
                if path.startswith(site) and not path.endswith(b".tmp")}


if __name__ == "__main__":
    private_network.enter()
    unittest.main(verbosity=2)
