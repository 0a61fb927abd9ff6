"""Downloads the same sites with the Linux and the Windows program and compares the copies file by file."""

import unittest

import names
from harness import private_network, web
from harness.program import Crawl, copy_program, tree
from harness.web import ScriptedServer, links_to, page
from wine import COMMAND, DRIVE_C, Wine, crawl_arguments

SITES = {"www.example.test": "/usr/share/doc/python-flask-doc/html",
         "www.second.test": "/usr/share/doc/xapian-doc",
         "www.third.test": "/usr/share/doc/libxml2-doc"}

DEEP = b"/".join([b"folder-with-a-long-name-%d" % i for i in range(12)])  # about 300 characters
ODD_NAMES = [DEEP + b"/page.html", b"n" * 200 + b".html", b"Case.html", b"case.html", b"CASE/a.html", b"case/b.html",
             b"caf\xc3\xa9.html", b"caf\xe9.html", b"\x81\x8d.html", b"a:b.html", b"a::$DATA.html", b"con.html",
             b"nul", b"Com1.txt.html", b"aux/a.html", b"dot./a.html", b"blank /a.html", b"...html", b'quote".html',
             b"a;b,c=d.html", b"~tilde~1.html", b"progra~1/a.html", b"%41.html", b"a+b.html", b"lpt1", b"com10.html"]


class MirrorCheck(unittest.TestCase):
    def setUp(self):
        self.folder = private_network.scratch("mirrors")
        self.linux = copy_program(self.folder / "linux")
        (self.folder / "home").mkdir()
        self.wine = self.enterContext(Wine(self.folder / "home"))

    def both(self, site, *arguments, windows_status=0):
        """The trees that the two programs make of a site, both run as a command."""
        name = site.split(".")[1]
        crawl = Crawl(self.linux, site, self.folder / name, *arguments)
        self.assertEqual(crawl.wait(), 0, crawl.output())
        output, status = self.wine.run(COMMAND, *crawl_arguments(site, f"C:\\Mirrors\\{name}", *arguments), seconds=600)
        self.assertEqual(status, windows_status, output)
        self.assertIn("The website has been downloaded.", output)
        return tree(self.folder / name), tree(DRIVE_C / "Mirrors" / name)

    def test_real_sites_are_the_same_byte_for_byte(self):
        with web.nginx(private_network.scratch("nginx"), SITES):
            for site in SITES:
                # One connection gives the record files the same order, too.
                linux, windows = self.both(site, "--connections", "1")
                self.assertGreater(len(linux), 80)
                print(f"{site}: {len(linux)} files on Linux, {len(windows)} on Windows", flush=True)
                record = f"_SearchData/{site.removeprefix('www.')}.txt".encode()
                extracts = linux.pop(record), windows.pop(record)
                lines = [set(files.pop(b"log.txt").splitlines()) for files in (linux, windows)]
                faults, counts = names.differences(linux, windows)
                print(counts, flush=True)
                self.assertEqual(faults, [])
                self.assertLessEqual(counts["twins of another case"], 1)
                self.assertLessEqual(lines[1], lines[0])
                self.assertEqual(len(lines[0] - lines[1]), counts["twins of another case"])
                if not counts["twins of another case"]:
                    self.compare_extracts(*extracts)

    def compare_extracts(self, linux, windows):
        """The Windows extract is in the system's code page. A character that the code page lacks becomes "?"
        or a similar letter.
        """
        linux, windows = linux.decode(), windows.decode("cp1252", "replace")
        self.assertEqual(len(linux), len(windows))
        other = {a for a, b in zip(linux, windows) if a != b}
        print(f"the search extract differs in letters that the code page lacks: {sorted(other)}", flush=True)
        self.assertEqual([a for a in other if a.encode("cp1252", "ignore")], [])

    def test_odd_names_differ_only_where_windows_does_not_allow_them(self):
        pages = {b"/" + name: page(links_to(b"/index.html") + b"This is " + name) for name in ODD_NAMES}
        pages[b"/"] = page(links_to(*ODD_NAMES))
        with ScriptedServer(pages) as server:
            linux, windows = self.both("www.example.test", "--connections", "1", "--timeout", "2",
                                       windows_status=3)  # some names are invalid on Windows
            asked = server.paths()
        self.assertLess(len(asked), 6 * len(pages), "what cannot be saved is not asked for again and again")
        site = b"example.test/"
        faults, counts = names.differences({path: data for path, data in linux.items() if path.startswith(site)},
                                           {path: data for path, data in windows.items() if path.startswith(site)})
        print(f"odd names: {counts}", flush=True)
        self.assertEqual(faults, [])
        self.assertTrue(all(counts.values()), counts)
