"""Searches a copy by keyboard and opens the pages found in a browser."""

import os
import subprocess
import unittest
import urllib.parse

from harness import private_network
from harness.browser import DRIVER, Browser
from harness.desktop import COMMANDS, MAIN
from harness.program import Crawl, wait_until
from harness.web import ScriptedServer, links_to, page
from tests.e2e.desktops import DesktopTest

FILLER = b"<p>Nothing to be found in here.</p>" * 300
SITE = {
    b"/": page(links_to(b"Guide/Birds%20and%20Bees.html", b"Notes.TXT", b"other.html")),
    b"/Guide/Birds%20and%20Bees.html": page(
        b"<title>The stork</title>" + FILLER + b"<p id=here>The white (wading-)stork, and other storks.</p>" + FILLER),
    b"/Notes.TXT": page(b"storks nest on roofs", "text/plain"),
    b"/other.html": page(b"No bird at all."),
}


class SearchTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.copy = self.home / "Websites"

    def mirror(self):
        with ScriptedServer(SITE):
            self.assertEqual(Crawl(self.program, "www.example.test", self.copy).wait(), 0)

    def open_the_search(self):
        self.desktop.press("Escape")
        self.desktop.await_window(MAIN)
        self.desktop.press("ctrl+f")
        self.desktop.await_window("Search the Copy")

    def opened(self, *keys):
        """The address of the file that pressing `keys` opens."""
        self.desktop.press(*keys)
        number, address = self.desktop.opened()
        self.assertEqual(number, "1")
        return address

    def test_a_page_opens_at_the_match(self):
        self.mirror()
        self.start()
        self.desktop.type("http://www.example.test")
        self.open_the_search()
        self.desktop.type("white stork")
        address = self.opened("Return")
        file, words = address.split("#:~:text=")
        self.assertEqual(urllib.parse.unquote(file), f"file://{self.copy}/example.test/Guide/Birds%20and%20Bees.html")
        self.assertEqual(words, "white")
        self.desktop.press("ctrl+a")
        self.desktop.type("(WADING")
        address = self.opened("Return")
        self.assertEqual(address.split("=")[1], "%28wading%2D%29stork")
        with Browser(self.folder / "browser") as browser:
            browser.driver.get(address)
            place = "return document.getElementById('here').getBoundingClientRect().top"
            wait_until(lambda: 0 <= browser.driver.execute_script(place) <= browser.driver.get_window_size()["height"],
                       10, "the place of the match")
            browser.driver.get(file)
            self.assertGreater(browser.driver.execute_script(place), 2000, "without the words it is out of sight")
        self.desktop.press("ctrl+a")
        self.desktop.type("roofs")
        self.assertEqual(self.opened("Return"), f"{self.copy}/example.test/Notes.TXT")
        self.desktop.press("Escape")
        self.desktop.await_window(MAIN)
        self.assertEqual(self.opened("ctrl+shift+o"), f"{self.copy}/example.test/index.html")

    def test_an_extract_of_another_program(self):
        extract = self.copy / "_SearchData/example.test.txt"
        extract.parent.mkdir(parents=True)
        with extract.open("wb") as file:
            file.write(b"needle without a path\r\n\0\0! \0\xff\r\nneedle\0" + bytes(1_000_000) + b"\n")
            for mark in (b"", b"! ", b"! large.html\r\n"):
                file.writelines([mark, *[b"needle in a haystack " * 1000] * 5000, b"\n"])
            file.write(b"! page.html\r\nneedle\r\n! cut.html\r\nneedle")
        search = self.desktop.start(self.program, "--search", "needle", "--folder", self.copy, stdout=subprocess.PIPE)
        with search.stdout as said:
            found = [line.split(b"\t")[1] for line in said.read().splitlines()]
        self.assertEqual(found, [b"large.html", b"page.html"])
        _, status, usage = os.wait4(search.pid, 0)
        self.assertEqual(status, 0)
        self.assertLess(usage.ru_maxrss, 100_000, "kilobytes of memory")
        self.assertEqual(self.desktop.start(self.program, "--search", "nowhere", "--folder", self.copy).wait(30), 5)


if __name__ == "__main__":
    private_network.enter(needs=[DRIVER, *COMMANDS])
    unittest.main(verbosity=2)
