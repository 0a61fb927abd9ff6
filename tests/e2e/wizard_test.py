"""Follows a user who has only a keyboard, from the first start to browsing the copy."""

import shutil
import time
import unittest

from harness import private_network, web
from harness.desktop import COMMANDS, MAIN, WIZARD
from harness.program import wait_until
from tests.e2e.desktops import DesktopTest

SITE = "www.example.test"
NOT_WANTED = {"ads/banner.html", "clip.wav"}
WANTED = {"index.html", "sound.ogg", *(f"page{i}.html" for i in range(30))}


def write_site(root):
    (root / "ads").mkdir(parents=True)
    for name in WANTED | NOT_WANTED:
        (root / name).write_text("word " * 800)
    links = (f"<a href='{name}'>{name}</a>" for name in sorted(WANTED | NOT_WANTED))
    (root / "index.html").write_text("\n".join(links))


class WizardTest(DesktopTest):
    def setUp(self):
        super().setUp()
        write_site(self.folder / "site")
        # Slow enough for actions in the middle of a crawl.
        nginx = private_network.scratch("nginx")
        self.enterContext(web.nginx(nginx, {SITE: self.folder / "site"}, "limit_rate 2k;"))
        self.access_log = nginx / "access.log"
        self.mirror = self.home / "Sites/Copy"
        self.mirror.mkdir(parents=True)

    def exit_by_menu(self, running):
        for answer in ("alt+n", "alt+y"):
            self.desktop.await_window(MAIN)
            self.desktop.press("alt+f", "e")
            self.desktop.await_window("Exit Vantorin")
            self.assertIsNone(running.poll())
            self.desktop.press(answer)
        self.assertEqual(running.wait(30), 0)

    def fill_in_the_wizard(self):
        press, await_window, enter = self.desktop.press, self.desktop.await_window, self.enter
        self.desktop.type(SITE)
        press("Tab", "Tab", "space")
        await_window("Select Directory to Save the Website")
        press("shift+Tab", "Down", "Up", "Tab")  # the drive z:, and back
        enter("Sites")
        enter("Copy")
        press("alt+o")
        await_window(WIZARD)
        press("Tab", "Tab", "space", "Tab", "Tab", "space")  # the options, and there "Add"
        await_window("Vantorin")
        enter(" OGG")
        await_window(WIZARD)
        press("Tab", "Tab", "Tab")
        self.desktop.type("25")
        press("Tab", "space")
        await_window("Keyword Filters")
        enter("/ads/")
        press("shift+Tab", "space")  # the last control is "Close"
        await_window(WIZARD)

    def enter(self, text):
        self.desktop.type(text)
        self.desktop.press("Return")

    def test_two_downloads_by_keyboard(self):
        press, await_window = self.desktop.press, self.desktop.await_window
        running = self.start()
        self.fill_in_the_wizard()
        press("Tab", "Tab", "Return")  # past "Close" and round to the address
        self.await_first_file()
        self.pause()
        await_window("Done.")
        self.assertEqual(self.saved(), WANTED)
        for keys in (["alt+y"], ["alt+s", "e"]):
            press(*keys)
            self.assertEqual(self.desktop.opened(), ["1", str(self.mirror)])
            await_window(MAIN)
        self.exit_by_menu(running)

        shutil.rmtree(self.mirror)
        running = self.start()
        press("Return")  # with what the first run has stored
        self.await_first_file()
        self.stop()
        await_window(WIZARD)
        press("Return")
        await_window("Done.")
        self.assertEqual(self.saved(), WANTED)
        press("alt+n")
        self.exit_by_menu(running)
        self.assertIn("Timeout=25", (self.home / ".config/Vantorin/Vantorin.conf").read_text().split())

    def test_a_box_waits_until_the_program_is_in_front(self):
        desktop = self.desktop
        first = self.start()
        desktop.type(SITE)
        desktop.press("Tab")
        desktop.type(str(self.mirror))
        desktop.press("Return")
        desktop.await_window(MAIN)
        self.start()  # any other program would do
        wait_until(lambda: len(self.saved()) > 30 and not list(self.mirror.rglob("*.tmp")), what="the whole site")
        time.sleep(1)
        self.assertEqual(desktop.run("xdotool", "getwindowfocus", "getwindowname"), WIZARD)
        desktop.press("Escape")
        desktop.await_window(MAIN)
        second = desktop.run("xdotool", "getwindowfocus")
        main = desktop.run("xdotool", "search", "--all", "--pid", str(first.pid), "--name", MAIN)
        desktop.run("xdotool", "windowactivate", main)
        desktop.await_window("Done.")
        desktop.press("alt+n")
        desktop.await_window(MAIN)
        for hide in ("windowminimize", "windowlower"):
            desktop.run("xdotool", hide, main)
            wait_until(lambda: self.has_keyboard_when_asked(second), what="the other program")
            desktop.run("wmctrl", "-i", "-c", main)  # as a task bar does
            desktop.await_window("Exit Vantorin")
            desktop.press("alt+n")
            desktop.await_window(MAIN)

    def has_keyboard_when_asked(self, window):
        return self.desktop.run("xdotool", "windowactivate", window, "sleep", "0.5", "getwindowfocus") == window

    def await_first_file(self):
        self.desktop.await_window(MAIN)
        wait_until(self.saved, what="the first file")

    def pause(self):
        """While paused, running downloads end and no new ones start."""
        self.desktop.press("alt+s", "Return")
        self.desktop.await_window("Paused")
        wait_until(lambda: time.time() - self.access_log.stat().st_mtime > 4, what="a quiet server")
        self.assertLess(len(self.saved()), len(WANTED))
        self.desktop.press("Return")

    def stop(self):
        self.desktop.press("Tab")  # from the queue round to the first enabled control
        for answer in ("alt+n", "alt+y"):
            self.desktop.await_window(MAIN)
            self.desktop.press("space")
            self.desktop.await_window("Stop Download")
            self.desktop.press(answer)

    def saved(self):
        site = self.mirror / "example.test"
        return {str(path.relative_to(site)) for path in site.glob("**/*.*") if path.suffix != ".tmp"}


if __name__ == "__main__":
    private_network.enter(needs=[web.NGINX, *COMMANDS])
    unittest.main(verbosity=2)
