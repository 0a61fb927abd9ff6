"""Compares the requests on the wire, byte for byte."""

import unittest

import private_network
from program import Crawl, copy_program
from web import ScriptedServer, page

LINKS = b"""\
<a href="a.html">
<a href='docs/index.html'>
<a href="/rooted//twice.html">
<img src=pic.jpeg>
<a href="list.php?id=3&x=%20y">
<a href="other.php?">
<a href="deep/a/../b.html">
<a href="sub\\back.html">
<a href="Mixed/CASE.html">
<a href="caf\xe9.html">
<a href=".../climbs.html">
<a href="..up.html">
<a href="http://www.example.test/absolute.html">
<a href="http://other.test/?from=example.test/x.html">
<meta http-equiv=refresh content="5; url=http://www.example.test/refreshed.html">
<a href="last.html#part">
"""

# With one connection the newest address goes first, so the links come from the last to the first.
# Those that would climb above the site's root are never asked for.
WANTED = [
    (b"/", b"www.example.test"),
    (b"/last.html", b"www.example.test"),
    (b"/refreshed.html", b"www.example.test"),
    (b"/?from=example.test/x.html", b"other.test"),
    (b"/absolute.html", b"www.example.test"),
    (b"/caf\xe9.html", b"www.example.test"),
    (b"/Mixed/CASE.html", b"www.example.test"),
    (b"/sub/back.html", b"www.example.test"),
    (b"/deep/b.html", b"www.example.test"),
    (b"/other.php", b"www.example.test"),
    (b"/list.php?id=3&x=%20y", b"www.example.test"),
    (b"/pic.jpg", b"www.example.test"),
    (b"/rooted/twice.html", b"www.example.test"),
    (b"/docs/", b"www.example.test"),
    (b"/a.html", b"www.example.test"),
]


def request(path, host):
    return (b"GET " + path + b" HTTP/1.0\r\nHost: " + host + b"\r\nReferrer: " + host +
            b"\r\nUser-Agent: Internet Explorer 6.01\r\n\r\n")


class WireTest(unittest.TestCase):
    def crawl(self, site, answers):
        """The crawl's exit status, and the server with all that it was sent."""
        folder = private_network.scratch("crawl")
        with ScriptedServer(answers) as server:
            crawl = Crawl(copy_program(folder / "program"), site, folder / "mirror",
                          "--connections", 1, "--timeout", 2)
            return crawl.wait(), server

    def test_requests(self):
        status, server = self.crawl("www.example.test", {b"/": page(LINKS)})
        self.assertEqual(status, 0)
        self.assertEqual(server.requests, [request(path, host) for path, host in WANTED])
        self.assertEqual(set(server.extra), {b""}, "a connection is for one file")

    def test_addresses_above_the_root_are_not_asked_for(self):
        status, server = self.crawl("www.example.test/../x.html", {})
        self.assertEqual(status, 0)
        self.assertEqual((server.requests, server.silent), ([], 3))


if __name__ == "__main__":
    private_network.enter()
    unittest.main(verbosity=2)
