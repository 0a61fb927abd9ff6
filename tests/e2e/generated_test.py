"""Downloads generated sites and compares every file with the model.

Their pages are full of difficult links, paths and texts: folders that a path names twice or leaves again, late
"../", every spelling of an attribute, queries, other hosts, answers without a header. The same number always
gives the same site. To run any number of them, starting at any one:

    GENERATED_SITES=1000 FIRST_SITE=100 VANTORIN_PROGRAM=build/release/cli/vantorin \
        /usr/bin/python3 -m tests.e2e.generated_test
"""

import os
import random
import unittest

from harness import private_network
from harness.program import Crawl, copy_program, tree
from tests.e2e.site_model import SiteModel, Unanswered
from harness.web import ScriptedServer, page, path_of

SITES = int(os.environ.get("GENERATED_SITES", "6"))
FIRST = int(os.environ.get("FIRST_SITE", "1"))

HOSTS = (b"www.example.test", b"example.test", b"other.test")
STARTS = (b"www.example.test", b"www.example.test/alpha/", b"www.example.test/alpha/./beta//gamma/one.html")
FILTERS = (b"Ads", b"alpha/two")

# A link is composed of words of these kinds.
HEADS = (b"http://www.example.test/", b"http://example.test//", b"HTTP://www.EXAMPLE.test/", b"http:\\\\example.test/",
         b"http://other.test/example.test/", b"http://other.test/", b"http://http://www.example.test/", b"/", b"www.")
FOLDERS = (b"alpha/", b"beta/", b"gamma/", b"delta/", b"alphabet/", b"www.alpha/", b"ads/", b"file.html/", b"old.php/")
CLIMBS = (b"./", b"././", b"/", b"///", b"\\", b".\\", b"../", b"..\\", b"../../", b"/../", b"/./", b".*/", b".*./",
          b".www../", b"{/")
NAMES = (b"one.html", b"two.htm", b"list.php?id=1", b"list.php?id=2&x", b"list.php?", b"list.php", b"old.PHP",
         b"page.asp", b"page.asp?a=b", b"pic.gif", b"pic.bmp", b"photo.jpeg", b"read.txt", b"index.html", b".html",
         b"file.html", b"a&b!c*d.html", b"a__b_______c.html", b"<b>.html", b"https.html", b"me@x.html", b"noname",
         b"n" * 253 + b".html", b"")
TAILS = (b"#top", b";jsession=1", b"}x", b" x", b"\r\n", b"?")

ATTRIBUTES = (b"href", b"HREF", b"hRef", b"Href", b"hREF", b"HrEf", b"background", b"BACKGROUND", b"BackGround",
              b"src", b"SRC", b"Src")
TEXTS = (b"\r\n", b"\n", b"\r", b"text", b".php'", b'.php"', b".php>", b".php?", b".PHP?", b".asp'", b'.asp"', b".asp>",
         b'href="../', b'href ="../', b'href = "../', b'href= "../', b"href='../", b"href ='../", b"href = '../",
         b"href= '../", b"hr\r\nef=late.html ", b"h\nref =", b"applet", b"appappletlet", b"script ",
         b"http://example.test/", b"http://www.example.test/", b"http://www.www.example.test/", b"href='#top'",
         b"; url=http://example.test/", b";URL=", b"mailto:me@x", b"\xff", b"href=aaaa" + b"/alpha" * 60 + b".html ")


class GeneratedSite:
    """Answers every path of the hosts. The same path always gets the same answer."""

    def __init__(self, number):
        self.number = number
        self.start = self.choices_for(b"start").choice(STARTS)

    def choices_for(self, what):
        return random.Random(b"%d %s" % (self.number, what))

    def answer(self, host, path):
        """None if the program would wait for ever: the host does not exist, or the path is never requested."""
        if host.lower() not in HOSTS or path.startswith(b"/.."):
            return None
        choices = self.choices_for(host + path)
        links = 8 if len(path) < 10 else choices.randrange(4) if len(path) < 40 else 0  # the site must be finite
        parts = [self.link(choices) + b"".join(choices.choices(TEXTS, k=2)) for _ in range(links)]
        body = b"".join(parts + choices.choices(TEXTS, k=choices.randrange(6)))
        is_deep = len(path) > 20
        return choices.choices((page(body), body + b"no header", b" CANCEL "), (20, 2 * is_deep, is_deep))[0]

    @staticmethod
    def link(choices):
        target = choices.choice(HEADS) if choices.random() < 0.25 else b""
        for _ in range(choices.randrange(7)):
            target += choices.choice(choices.choice((FOLDERS, CLIMBS)))
        target += choices.choice(NAMES) + (choices.choice(TAILS) if choices.random() < 0.2 else b"")
        equals = choices.choice((b"=", b"=", b" =", b" = ", b"= "))
        before, after = choices.choice(((b'"', b'"'), (b"'", b"'"), (b"", b" "), (b"", b">")))
        return b"<a " + choices.choice(ATTRIBUTES) + equals + before + target + after


class SiteServer(ScriptedServer):
    def __init__(self, site):
        super().__init__({})
        self.site = site

    def answer_to(self, request):
        host = request.partition(b"\r\nHost: ")[2].partition(b"\r\n")[0]
        return self.site.answer(host, path_of(request))


def model_of(site):
    """The model of a site, with keyword filters that exclude the addresses without an answer."""
    filters = list(FILTERS)
    while True:
        try:
            return SiteModel(site.start, site.answer, filters)
        except Unanswered as unanswered:
            filters.append(unanswered.address)


class GeneratedSites(unittest.TestCase):
    def test_the_mirror_equals_the_model(self):
        files = 0
        for number in range(FIRST, FIRST + SITES):
            with self.subTest(site=number):
                site = GeneratedSite(number)
                model = model_of(site)
                self.check(site, model)
                files += len(model.files)
        print(f"{SITES} sites, {files} files", flush=True)
        self.assertGreater(files, 10 * SITES)

    def check(self, site, model):
        folder = private_network.scratch("generated")
        mirror = folder / "mirror"
        mirror.mkdir()
        program = copy_program(folder / "program")
        (program.parent / "filters.txt").write_bytes(b"\r\n".join(model.filters))
        with SiteServer(site):
            crawl = Crawl(program, site.start.decode(), mirror, "--connections", 1, "--timeout", 0)
            self.assertIn(crawl.wait(120), {0, 3, 4}, crawl.output())
        found = {path: data for path, data in tree(mirror).items() if not path.startswith(b"_SearchData/")}
        log, climbs = (found.pop(name, b"") for name in (b"log.txt", b"transdd.txt"))
        expected = model.files | model.left_placeholders()
        # In this order, the first difference is the cause and the others are its consequences.
        self.assert_same("queued", log.split(b"\r\n")[:-1], model.queued)
        self.assert_same("resolved", climbs.split(b"\r\n\r\n")[:-1], [b"\r\n".join(pair) for pair in model.resolved])
        self.assert_same("files", sorted(found), sorted(expected))
        for path, data in found.items():
            self.assert_same(path, data, expected[path])

    def assert_same(self, what, found, expected):
        """Shows the first difference."""
        if found != expected:
            at = len(os.path.commonprefix([found, expected]))
            some = slice(at, at + (60 if isinstance(found, bytes) else 2))
            self.fail(f"{what}: at {at} found {found[some]}, expected {expected[some]}")


if __name__ == "__main__":
    private_network.enter()
    unittest.main(verbosity=2)
