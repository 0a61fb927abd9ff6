"""Downloads real documentation from a real web server and browses the mirror offline."""

import os
import posixpath
import time
import unittest
from collections import Counter
from urllib.parse import unquote

from harness import private_network, web
from harness.browser import DRIVER, Browser
from harness.program import Crawl, copy_program, tree
from tests.e2e.site_model import SiteModel, clean_link_name, is_wanted

# Sites of other authors: one with many folders and "../" links, one with many pages and pictures, and an
# old one written by hand. In none of them do two links lead to one file by different ways of resolving
# "../"; otherwise, the order of the links would decide what is fetched.
SITES = {"www.example.test": "/usr/share/doc/python-flask-doc/html",
         "www.second.test": "/usr/share/doc/xapian-doc",
         "www.third.test": "/usr/share/doc/libxml2-doc"}

# (name of the crawl, site, connections)
CRAWLS = [("one", "www.example.test", 1), ("many", "www.example.test", 24),
          ("four", "www.second.test", 4), ("third", "www.third.test", 24)]

RECORDS = {b"log.txt", b"transdd.txt"}


class Mirror:
    """What a crawl left, and the model of its site. `all` has those of all crawls."""

    all = []

    def __init__(self, name, site, connections, model):
        folder = private_network.scratch(name)
        self.name, self.site, self.model, self.target = name, site, model, folder / "mirror"
        self.target.mkdir()
        started = time.monotonic()
        crawl = Crawl(copy_program(folder / "program"), site, self.target, "--connections", connections)
        self.status, self.output = crawl.wait(), crawl.output()
        self.tree, self.home = tree(self.target), tree(folder / "home")
        self.beside = set(os.listdir(folder))
        print(f"{site} with {connections} connections: {len(self.tree)} files in "
              f"{time.monotonic() - started:.1f} s", flush=True)


def setUpModule():
    server = web.nginx(private_network.scratch("nginx"), SITES)
    server.__enter__()
    unittest.addModuleCleanup(server.__exit__, None, None, None)
    models = {site: SiteModel(site.encode(), web.receive) for site in SITES}
    Mirror.all = [Mirror(*crawl, models[crawl[1]]) for crawl in CRAWLS]


def lines(data):
    return data.decode("latin-1").split("\r\n")[:-1]


def site_files(files):
    return {path: data for path, data in files.items()
            if path not in RECORDS and not path.startswith(b"_SearchData/")}


class MirrorTest(unittest.TestCase):
    def test_every_crawl_succeeds_and_writes_nothing_outside_the_mirror(self):
        for mirror in Mirror.all:
            self.assertEqual(mirror.status, 0, mirror.output)
            self.assertIn("The website has been downloaded.", mirror.output)
            self.assertEqual(mirror.beside, {"mirror", "program", "home"})
            self.assertEqual(mirror.home, {})

    def test_every_wanted_file_is_there_and_nothing_else(self):
        for mirror in Mirror.all:
            files = site_files(mirror.tree)
            self.assertGreater(len(mirror.model.files), 80)
            self.assertEqual(sorted(files), sorted(mirror.model.files), mirror.name)
            wrong = [path for path, data in mirror.model.files.items() if files[path] != data]
            self.assertEqual(wrong, [], f"{mirror.name}: other bytes than those of the model")

    def test_each_queued_address_is_logged_once(self):
        for mirror in Mirror.all:
            self.assertEqual(sorted(lines(mirror.tree[b"log.txt"])),
                             sorted(address.decode("latin-1") for address in mirror.model.queued))

    def test_one_connection_takes_the_newest_address_first(self):
        model, files = Mirror.all[0].model, Mirror.all[0].tree
        self.assertEqual(files[b"log.txt"], b"".join(address + b"\r\n" for address in model.queued))
        self.assertTrue(model.resolved)
        self.assertEqual(files[b"transdd.txt"], b"".join(found + b"\r\n" + resolved + b"\r\n\r\n"
                                                         for found, resolved in model.resolved))

    def test_the_search_extract_has_the_text_of_each_page(self):
        for mirror in Mirror.all:
            records = lines(mirror.tree[f"_SearchData/{mirror.site.replace('www.', '')}.txt".encode()])
            pages = [path.decode().lower() for path in mirror.model.files
                     if b".htm" in path.lower() or b".tx" in path.lower()]
            # A page has several records if several addresses led to it.
            self.assertEqual(set(records[0::2]), {"! " + page.replace("/", "\\") for page in pages}, mirror.name)
            empty = [page for page, text in zip(records[0::2], records[1::2]) if not text.strip()]
            self.assertEqual(empty, [])


class OfflineTest(unittest.TestCase):
    """Opens every page of the mirrors in a browser."""

    def test_links_lead_to_saved_files_and_no_request_leaves_the_disk(self):
        found = Counter()
        with Browser(private_network.scratch("browser")) as browser:
            for mirror in Mirror.all[1:]:
                model = mirror.model
                pages = [path for path in sorted(model.files) if is_page(path, model.original[path])]
                self.assertGreater(len(pages), 70)
                for path in pages:
                    self.check_page(browser, str(mirror.target), path, model, found)
            elsewhere = {url for url in browser.requested if not url.startswith(("file:", "data:", "about:"))}
        self.assertEqual(elsewhere, set())
        self.assertGreater(found["leads to a saved file"], 15_000)
        for what, count in found.most_common():
            print(f"{count:6} links: {what}")

    def check_page(self, browser, mirror, path, model, found):
        for written, address in browser.links(f"{mirror}/{path.decode()}"):
            if not address.startswith("file://"):
                continue
            if written.startswith("/"):
                found["begins at the site's root, which a page on disk cannot reach"] += 1
                continue
            file, mark, query = address.removeprefix("file://").partition("#")[0].partition("?")
            target = unquote(file)
            self.assertTrue(target.startswith(mirror + "/"), f"{path}: {written} leaves the mirror")
            if os.path.isfile(target) or os.path.isfile(target + "/index.html"):
                found["leads to a saved file"] += 1
                continue
            reason = excuse(posixpath.relpath(target, mirror).encode(), (mark + query).encode(), model)
            self.assertTrue(reason, f"{path}: {written} is broken")
            found[reason] += 1


def is_page(path, response):
    return path.endswith(b".html") and response.startswith(b"HTTP/1.1 200 ")


def excuse(missing, query, model):
    """Why a file that a page links to may be missing from the mirror; None if it must not be missing."""
    if not is_wanted(missing):
        return "missing, its type is not wanted"
    if not is_wanted(missing + query):
        return "missing, its type including the query is not wanted"
    if clean_link_name(missing) in model.files:
        return "missing, it was saved under a cleaned name"
    return None


if __name__ == "__main__":
    private_network.enter(needs=[*SITES.values(), web.NGINX, DRIVER])
    unittest.main(verbosity=2)
