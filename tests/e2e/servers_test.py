"""A table of servers' behaviours: what ends with a close is saved, the rest is requested three times."""

import socket
import time
import unittest
from collections import Counter

from harness import private_network
from harness.program import Crawl, copy_program, tree
from tests.e2e.site_model import SiteModel
from harness.web import ScriptedServer, closes, links_to, page, resets, silent

SITE = b"www.example.test"
REST_OF_REQUEST = (b" HTTP/1.0\r\nHost: " + SITE + b"\r\nReferrer: " + SITE +
                   b"\r\nUser-Agent: Internet Explorer 6.01\r\n\r\n")
TIMEOUT = 1.5  # seconds; no answering server below pauses for more than a third of it


def sends(*parts, pause=0.05):
    """Sends one part after the other, each in its own packet."""
    def send(connection, _):
        connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        for i, part in enumerate(parts):
            time.sleep(pause if i else 0)
            connection.sendall(part)
    return send


def then(send, end):
    """Calls `send`, then `end`."""
    def both(connection, ending):
        send(connection, ending)
        end(connection, ending)
    return both


def waits_a_moment(_, ending):
    ending.wait(TIMEOUT / 3)


def ends_its_side(connection, ending):
    connection.shutdown(socket.SHUT_WR)
    ending.wait()


def sends_urgent(connection, _):
    connection.send(b"!", socket.MSG_OOB)


def fills_small_packets(connection, _):
    connection.setsockopt(socket.SOL_SOCKET, socket.SO_SNDBUF, 4096)
    connection.sendall(LONG)


ANSWER = page(b"<p>some\ntext</p>")
BODY_AT = ANSWER.index(b"\r\n\r\n") + 4
LONG = page(b"<p>" + b"word " * 300_000 + b"</p>")


def header(*lines, body=b"text"):
    return b"".join(line + b"\r\n" for line in lines) + b"\r\n" + body


# Answers that are saved as they are, because the server closes after them.
ANSWERS = {
    "plain": ANSWER, "empty_body": page(b""), "long": LONG, "nul": page(b"\0<a href='a\0b.html'>\0</a>\0"),
    "no_header": b"<html><body>Nothing before this.</body></html>", "garbage": bytes(range(256)) * 40,
    "bare_lines": b"HTTP/1.0 200 OK\n\n<html>\n<p>\r</html>", "blank_first": b"\r\n\r\n" + ANSWER,
    "length_short": header(b"HTTP/1.0 200 OK", b"Content-Length: 2"),
    "length_long": header(b"HTTP/1.0 200 OK", b"Content-Length: 99999"),
    "length_huge": header(b"HTTP/1.0 200 OK", b"Content-Length: 99999999999999999999"),
    "length_negative": header(b"HTTP/1.0 200 OK", b"Content-Length: -4"),
    "two_answers": ANSWER + ANSWER, "continue": header(b"HTTP/1.1 100 Continue", body=ANSWER),
    "chunked": header(b"HTTP/1.1 200 OK", b"Transfer-Encoding: chunked", body=b"4\r\ntext\r\n0\r\n\r\n"),
    "redirect": header(b"HTTP/1.0 301 Moved", b"Location: http://www.example.test/elsewhere.html"),
    "missing": header(b"HTTP/1.0 404 Not Found"), "broken": header(b"HTTP/1.0 500 Internal Server Error"),
    "long_header": header(b"HTTP/1.0 200 OK", b"X: " + b"x" * 2_000_000),
    "many_headers": header(b"HTTP/1.0 200 OK", *[b"X-%d: x" % i for i in range(20_000)]),
    "long_link": page(links_to(b"y" * 100_000)), "deep": page(b"<div>" * 100_000 + b"deep"),
    "unclosed": page(b"<a href='" + b"<b title=\"" * 1000 + b"<!--"), "picture": page(bytes(1000), "image/gif"),
}
ANSWERS |= {f"cut_at_{at}": ANSWER[:at] for at in (1, 2, 3, 9, BODY_AT - 3, BODY_AT - 1, BODY_AT, BODY_AT + 1)}

# Answers that arrive in unusual ways: the bytes, and how they are sent.
WAYS = {
    "closes": (ANSWER, then(sends(ANSWER), closes)),
    "closes_late": (ANSWER, then(sends(ANSWER), waits_a_moment)),
    "ends_its_side": (ANSWER, then(sends(ANSWER), ends_its_side)),
    "answers_late": (ANSWER, then(waits_a_moment, sends(ANSWER))),
    "byte_by_byte": (ANSWER, sends(*(ANSWER[i:i + 1] for i in range(len(ANSWER))), pause=0.003)),
    "drips": (page(b"") + b"drop", sends(page(b""), b"d", b"r", b"o", b"p", pause=TIMEOUT / 3)),
    "urgent_first": (ANSWER, then(sends_urgent, sends(ANSWER))),
    "urgent_last": (ANSWER, then(sends(ANSWER), sends_urgent)),
    "urgent_within": (ANSWER, then(then(sends(ANSWER[:40]), sends_urgent), sends(ANSWER[40:]))),
    "small_packets": (LONG, fills_small_packets),
}
WAYS |= {f"split_at_{at}": (ANSWER, sends(ANSWER[:at], ANSWER[at:]))
         for at in (1, 4, 30, *range(BODY_AT - 4, BODY_AT + 2))}

# Answers without an end, or with a bad one, which are never saved.
FAULTS = {
    "silent": silent, "closes_at_once": closes, "ends_its_side_at_once": ends_its_side, "resets_at_once": resets,
    "resets_in_header": then(sends(ANSWER[:20]), resets),
    "resets_before_body": then(sends(ANSWER[:BODY_AT]), resets),
    "resets_in_body": then(sends(ANSWER[:-5]), resets), "resets_at_end": then(sends(ANSWER), resets),
    "stays_open": then(sends(ANSWER), silent), "stays_open_in_header": then(sends(ANSWER[:20]), silent),
}
UNREACHABLE = [b"http://%s.example.test/x.html" % name for name in (b"refused", b"nowhere")]

# Connections, part of the table, number of parts. With one connection, the faults take long.
CRAWLS = [(24, 0, 1), (4, 0, 1)] + [(1, part, 6) for part in range(6)]


class Behaviours(unittest.TestCase):
    def test_answers_are_saved_and_faults_requested_three_times(self):
        ways = {name: (answer, sends(answer)) for name, answer in ANSWERS.items()} | WAYS
        crawls = [Behaved(ways, *crawl) for crawl in CRAWLS]
        answers = {path: answer for crawl in crawls for path, answer in crawl.answers.items()}
        with ScriptedServer(answers) as server:
            for crawl in crawls:
                crawl.start()
            for crawl in crawls:
                self.assertEqual(crawl.running.wait(), 3, crawl.running.output())
        for request, path in zip(server.requests, server.paths()):
            self.assertEqual(request, b"GET " + path + REST_OF_REQUEST)
        self.assertEqual(set(server.extra), {b""}, "a connection serves one file")
        asked = Counter(server.paths())
        for crawl in crawls:
            with self.subTest(connections=crawl.connections, folder=crawl.folder):
                self.check(crawl, asked)

    def check(self, crawl, asked):
        files = {path: data for path, data in tree(crawl.mirror).items() if path.startswith(b"example.test/")}
        expected = crawl.expected()
        self.assertEqual(sorted(files), sorted(expected))
        for name in crawl.faults:
            self.assertEqual(asked[crawl.path(name)], 3, name)
        for name, (answer, _) in crawl.ways.items():
            times = asked[crawl.path(name)]
            # With one connection, no slot idles. An idle slot asks again; what it still holds from before
            # is then cut off together with the header.
            self.assertIn(times, (1,) if crawl.connections == 1 else (1, 2, 3), name)
            if times == 1 or b"\r\n\r\n" in answer:
                path = b"example.test" + crawl.path(name)
                self.assertTrue(files[path] == expected[path], name)


class Behaved:
    """A crawl of one part of the table, in its own folder on the site."""

    def __init__(self, ways, connections, part, parts):
        self.connections, self.folder = connections, b"/%d-%d/" % (connections, part)
        self.ways = dict(list(ways.items())[part::parts])
        self.faults = dict(list(FAULTS.items())[part::parts])
        names = [*self.ways, *self.faults]
        self.start_page = page(links_to(*[name.encode() + b".html" for name in names[::2] + names[1::2]],
                                        *UNREACHABLE[part::parts]))
        self.answers = {self.path(name): way for name, (_, way) in self.ways.items()}
        self.answers |= {self.path(name): fault for name, fault in self.faults.items()}
        self.answers[self.folder] = self.start_page

    def path(self, name):
        return self.folder + name.encode() + b".html"

    def start(self):
        folder = private_network.scratch("behaved")
        self.mirror = folder / "mirror"
        self.running = Crawl(copy_program(folder / "program"), (SITE + self.folder).decode(), self.mirror,
                             "--connections", self.connections, "--timeout", TIMEOUT)

    def expected(self):
        received = {self.path(name): answer for name, (answer, _) in self.ways.items()}
        received[self.folder] = self.start_page
        model = SiteModel(SITE + self.folder, lambda _, path: received.get(path, b""))
        return {path: data for path, data in model.files.items()
                if path.removeprefix(b"example.test").removesuffix(b"index.html") in received}


class LargeAnswer(unittest.TestCase):
    def test_is_held_twice_at_most(self):
        folder = private_network.scratch("large")
        body = bytes(range(256)) * 400_000
        with ScriptedServer({b"/large.zip": page(body)}):
            crawl = Crawl(copy_program(folder / "program"), f"{SITE.decode()}/large.zip", folder / "mirror")
            self.assertEqual(crawl.wait(), 0, crawl.output())
        self.assertTrue(tree(folder / "mirror")[b"example.test/large.zip"] == body + b"\r\n")
        # A text that grows is there twice, and the program itself takes about 30 MB.
        self.assertLess(crawl.peak, 2.1 * len(body) + 40e6)


if __name__ == "__main__":
    private_network.enter()
    unittest.main(verbosity=2)
