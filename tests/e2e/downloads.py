"""The common base of tests of unattended downloads."""

import subprocess
import unittest

from harness import private_network
from harness.program import Crawl, copy_program, tree
from harness.web import ScriptedServer

START = "www.example.test"
HOME = b"example.test/index.html"


class DownloadTest(unittest.TestCase):
    """Has a copy of the program and a folder for its downloads."""

    def setUp(self):
        self.folder = private_network.scratch(self.id().rpartition(".")[2])
        self.mirror = self.folder / "mirror"
        self.report = self.folder / "report.csv"
        self.program = copy_program(self.folder / "program")
        (self.folder / "home").mkdir()

    def start(self, *arguments, site=START, folder=None, **more):
        return Crawl(self.program, site, folder or self.mirror, *arguments, **more)

    def crawl(self, answers, *arguments, status=0, **how):
        """Crawls a server that gives these answers. Returns the lines printed, and leaves the requested paths
        in `requested`. The crawl must end with `status`: 3 if some files cannot be fetched or written."""
        with ScriptedServer(answers) as server:
            crawl = self.start(*arguments, **how)
            self.assertEqual(crawl.wait(90), status, crawl.output())
        self.requested = server.paths()
        return crawl.output().splitlines()

    def saved(self):
        """The site's files by path, including placeholders."""
        return {path: data for path, data in tree(self.mirror).items() if path.startswith(b"example.test/")}

    def placeholders(self):
        return [path for path in tree(self.mirror) if path.endswith(b".tmp")]

    def mount(self, folder, options):
        """Mounts a separate file system at this folder."""
        folder.mkdir(exist_ok=True)
        subprocess.run(["mount", "-t", "tmpfs", "-o", options, "none", folder], check=True)
        self.addCleanup(subprocess.run, ["umount", folder], check=True)
