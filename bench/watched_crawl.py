"""A crawl of the real program in a scratch folder. Shared by the long runs of this folder."""

import time

from harness import private_network
from harness.program import Crawl, copy_program

SITE = "www.example.test"
HOST = "example.test"  # the folder of the site's files
ONE_MB = 1 << 20
COMPLETE = (0, 3)  # exit statuses of a crawl that came to its end; with 3, not every file could be had


class WatchedCrawl(Crawl):
    """A crawl with a portable copy of the program into "mirror", both in `scratch`."""

    def __init__(self, *words, scratch=None, under=()):
        self.scratch = scratch or private_network.scratch("crawl")
        self.mirror = self.scratch / "mirror"
        self.started = time.monotonic()
        super().__init__(copy_program(self.scratch / "program"), SITE, self.mirror, *words, under=under)

    def saved(self, name):
        """The bytes of a file of the site; None when it is not there."""
        path = self.mirror / HOST / name
        return path.read_bytes() if path.is_file() else None

    def figures(self):
        """How it ended, to be asked right after."""
        status = self.process.returncode
        end = "never ended" if status is None or status == -9 else f"exit {status}"
        return f"{end}, {time.monotonic() - self.started:.1f} s, {self.peak / ONE_MB:.0f} MB"
