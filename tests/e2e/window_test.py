"""Ends the windowed program from outside: no placeholder may stay, because it would count as a known file."""

import shutil
import signal
import time
import unittest

from harness import private_network
from harness.desktop import MAIN
from harness.program import tree, wait_until
from harness.web import ScriptedServer, silent, site_of
from tests.e2e.desktops import DesktopTest

LINKS = [b"folder%d/page%d.html" % (i % 7, i) for i in range(300)]


class EndedFromOutside(DesktopTest):
    def setUp(self):
        super().setUp()
        self.mirror = self.home / "mirror"
        self.mirror.mkdir()
        self.enterContext(ScriptedServer(site_of({b"/" + link: silent for link in LINKS})))

    def start_a_crawl(self):
        running = self.start()
        self.fill_in_the_wizard()
        self.desktop.press("Return")
        self.desktop.await_window(MAIN)
        wait_until(lambda: len(self.placeholders()) == len(LINKS), what="the queue")
        return running

    def fill_in_the_wizard(self):
        self.desktop.type("www.example.test")
        self.desktop.press("Tab")
        self.desktop.type(str(self.mirror))

    def placeholders(self):
        return [path for path in tree(self.mirror) if path.endswith(b".tmp")]

    def test_signals_end_the_program(self):
        for number, keys, title in ((signal.SIGTERM, "F1", "About"), (signal.SIGHUP, "ctrl+p", "Paused"),
                                    (signal.SIGINT, "ctrl+q", "Exit Vantorin")):
            with self.subTest(number=number):
                running = self.start_a_crawl()
                self.desktop.press(keys)
                self.desktop.await_window(title)
                running.send_signal(number)
                self.assertEqual(running.wait(30), 128 + number)
                self.assertEqual(self.placeholders(), [])
                self.assertIn(b"example.test/index.html", tree(self.mirror))
                shutil.rmtree(self.mirror / "example.test")  # a crawl sweeps only the folders that it created

    def test_a_signal_ends_the_open_wizard(self):
        running = self.start()
        self.desktop.press("Tab", "Tab", "Tab", "space")  # the options
        running.send_signal(signal.SIGTERM)
        self.assertEqual(running.wait(30), 128 + signal.SIGTERM)

    def test_a_lost_display_ends_the_program(self):
        running = self.start_a_crawl()
        self.desktop.server.kill()
        self.assertEqual(running.wait(30), 1)
        self.assertEqual(self.placeholders(), [])

    def test_the_wizard_removes_what_a_killed_program_left(self):
        running = self.start_a_crawl()
        running.kill()
        running.wait()
        self.assertEqual(len(self.placeholders()), len(LINKS))
        self.start()
        self.fill_in_the_wizard()
        self.desktop.press("Tab")  # While there is nothing to press, the folder's box would take the letter.

        def removed():
            """The wizard searches after a pause in typing, and then shows the link that Alt+R presses."""
            self.desktop.press("alt+r")
            time.sleep(1)
            if self.desktop.run("xdotool", "getwindowfocus", "getwindowname") == "Unfinished Files":
                self.desktop.press("alt+y")
            return not self.placeholders()

        wait_until(removed, what="the removal of the unfinished files")
        self.assertIn(b"example.test/index.html", tree(self.mirror))


if __name__ == "__main__":
    private_network.enter()
    unittest.main(verbosity=2)
