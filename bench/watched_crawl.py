"""A crawl of the real program in a scratch folder, for the scripts in this folder."""

import time

from harness import private_network
from harness.program import Crawl, copy_program

SITE = "www.example.test"
HOST = "example.test"  # the folder of the site's files
ONE_MB = 1 << 20
COMPLETE = (0, 3)  # exit statuses of a crawl that ran to its end; 3 means that some files are missing


class WatchedCrawl(Crawl):
    """A crawl into "mirror" with a portable copy of the program, both in `scratch`."""

    def __init__(self, *words, scratch=None, under=()):
        self.scratch = scratch or private_network.scratch("crawl")
        self.mirror = self.scratch / "mirror"
        self.started = time.monotonic()
        super().__init__(copy_program(self.scratch / "program"), SITE, self.mirror, *words, under=under)

    def saved(self, name):
        """The contents of a file of the site; None if it does not exist."""
        path = self.mirror / HOST / name
        return path.read_bytes() if path.is_file() else None

    def figures(self):
        """How the crawl ended. Call this right afterwards."""
        status = self.process.returncode
        end = "never ended" if status is None or status == -9 else f"exit {status}"
        return f"{end}, {time.monotonic() - self.started:.1f} s, {self.peak / ONE_MB:.0f} MB"
