"""Downloads a site through the window, with nothing but key presses."""

import time
import unittest

import private_network
import web
from desktop import MAIN, WIZARD, Desktop
from program import copy_program, tree, wait_until
from site_model import SiteModel

SITE = "www.example.test"
ROOT = "/usr/share/doc/python-flask-doc/html"
SECOND_SITE = "www.second.test"


class WindowTest(unittest.TestCase):
    def setUp(self):
        self.folder = private_network.scratch("window")
        small_site = self.folder / "site"
        small_site.mkdir()
        (small_site / "index.html").write_text("<a href='a.html'>a</a>")
        (small_site / "a.html").write_text("the end")
        self.enterContext(web.nginx(private_network.scratch("nginx"), {SITE: ROOT, SECOND_SITE: small_site}))
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

        desktop.await_window(WIZARD)
        desktop.type(SITE)
        desktop.press("Tab")
        desktop.type(str(self.folder / "mirror"))
        desktop.press("Return")
        desktop.await_window("Done.", 120)
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

    def test_a_box_waits_until_the_program_is_in_front(self):
        desktop = self.desktop
        program = copy_program(self.folder / "program")
        first = desktop.start(program)
        self.addCleanup(first.kill)
        desktop.await_window(WIZARD)
        desktop.type(SITE)
        desktop.press("Tab")
        desktop.type(str(self.folder / "mirror"))
        desktop.press("Return")
        desktop.await_window(MAIN)
        other = desktop.start(program)  # any other program would do
        self.addCleanup(other.kill)
        desktop.await_window(WIZARD)

        wait_until(self.is_complete, 120, "the whole site")
        time.sleep(1)
        self.assertEqual(desktop.run("xdotool", "getwindowfocus", "getwindowname"), WIZARD)
        other.kill()
        desktop.run("xdotool", "search", "--all", "--pid", str(first.pid), "--name", MAIN, "windowactivate")
        desktop.await_window("Done.")

    def is_complete(self):
        """Files have come, and no placeholder is left."""
        names = [path.name for path in (self.folder / "mirror/example.test").rglob("*")]
        return len(names) > 30 and not any(name.endswith(".tmp") for name in names)

    def site_files(self, site=b"example.test/"):
        return {path: data for path, data in tree(self.folder / "mirror").items()
                if path.startswith(site) and not path.endswith(b".tmp")}


if __name__ == "__main__":
    private_network.enter()
    unittest.main(verbosity=2)
