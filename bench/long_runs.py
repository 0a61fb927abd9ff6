"""Long runs of the real program: does it stay level, and what is left when the worst happens?

    VANTORIN_PROGRAM=build/release/cli/vantorin /usr/bin/python3 -m bench.long_runs RUN

RUN is one of
    level        20,000 pages: memory, handles and pace in each tenth of the crawl (about eight minutes)
    valgrind     a documentation tree under valgrind (needs Debian's package valgrind)
    full-disk    a disk that fills up, and the same crawl again with room
    folder-gone  the target folder is deleted again and again
    killed       the program is killed at ten moments and restarted in the same folder each time

For the tests under the sanitizers: cmake --build --preset sanitize, then ctest --preset sanitize.
"""

import contextlib
import os
import shutil
import subprocess
import sys
import threading
import time

from bench.watched_crawl import COMPLETE, HOST, ONE_MB, SITE, WatchedCrawl

from harness import private_network, web
from harness.program import tree
from harness.web import ScriptedServer, links_to, page

WORDS = b"<p>" + b"some words of a page " * 200


class Tree(dict):
    """A site of `count` pages in 100 folders. Each page links to three new ones and to ten known ones."""

    def __init__(self, count):
        paths = [b"/folder%d/page%d.html" % (i % 100, i) for i in range(count)]
        super().__init__((path, self.page_of(i, paths)) for i, path in enumerate(paths))
        self[b"/"] = page(links_to(paths[0]))

    @staticmethod
    def page_of(i, paths):
        more = paths[3 * i + 1:3 * i + 4]
        known = paths[max(0, i // 3 - 10):i // 3]
        return page(links_to(*(b"http://www.example.test" + path for path in more + known)) + WORDS)


def level():
    count = 20_000
    print("| pages | pages a second | memory held | handles |\n|---|---|---|---|", flush=True)
    with ScriptedServer(Tree(count)) as server:
        crawl = WatchedCrawl("--connections", 24)
        since, before = time.monotonic(), 0
        while crawl.process.poll() is None:
            time.sleep(0.1)
            crawl.peak = max(crawl.peak, crawl.memory("VmHWM:"))
            done = len(server.requests)
            if done >= before + count // 10:
                now = time.monotonic()
                handles = len(os.listdir(f"/proc/{crawl.process.pid}/fd"))
                print(f"| {done} | {(done - before) / (now - since):.1f} | "
                      f"{crawl.memory('VmRSS:') / ONE_MB:.0f} MB | {handles} |", flush=True)
                since, before = now, done
    files = sum(len(names) for _, _, names in os.walk(crawl.mirror / HOST))
    print(f"{files} files, {len(server.requests)} requests; {crawl.figures()}")
    return crawl.process.returncode in COMPLETE and files == count + 1


def valgrind():
    check = ["valgrind", "--error-exitcode=99", "--leak-check=full", "--errors-for-leak-kinds=definite", "-q"]
    with web.nginx(private_network.scratch("nginx"), {SITE: "/usr/share/doc/xapian-doc"}):
        crawl = WatchedCrawl("--connections", 24, "--timeout", 60, under=check)
        status = crawl.wait(3000)
    print(crawl.output())
    print(f"{len(tree(crawl.mirror / HOST))} files; {crawl.figures()}")
    return status in COMPLETE


@contextlib.contextmanager
def small_disk(folder, size):
    folder.mkdir()
    subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size}", "none", folder], check=True)
    yield
    subprocess.run(["umount", folder], check=True)


def report(what, crawl, whole):
    """Prints what a mirror contains. Returns False if a file differs from the undisturbed mirror, `whole`."""
    files = tree(crawl.mirror / HOST)
    saved = {path: data for path, data in files.items() if not path.endswith(b".tmp")}
    wrong = [path for path, data in saved.items() if data != whole.get(path)]
    print(f"{what}: {len(saved)} of {len(whole)} files, {len(wrong)} not whole, "
          f"{len(files) - len(saved)} placeholders; {crawl.figures()}", flush=True)
    return not wrong


def whole_mirror(site):
    with ScriptedServer(site):
        crawl = WatchedCrawl("--connections", 24)
        if crawl.wait(300) != 0:
            sys.exit(crawl.output())
    print(f"undisturbed: {crawl.figures()}")
    return tree(crawl.mirror / HOST)


def full_disk():
    site = Tree(1000)
    whole = whole_mirror(site)
    scratch = private_network.scratch("full")
    well = True
    with ScriptedServer(site), small_disk(scratch / "mirror", "3m"):
        for size in ("3m", "100m"):
            subprocess.run(["mount", "-o", f"remount,size={size}", scratch / "mirror"], check=True)
            crawl = WatchedCrawl("--connections", 24, "--timeout", 2, scratch=scratch)
            status = crawl.wait(300)
            well = report(f"disk of {size}", crawl, whole) and status in COMPLETE and well
    return well


def folder_gone():
    site = Tree(1000)
    whole = whole_mirror(site)
    with ScriptedServer(site):
        crawl = WatchedCrawl("--connections", 24, "--timeout", 2)
        for i in range(10):
            threading.Timer(2 * i + 1, shutil.rmtree, (crawl.mirror, True)).start()
        status = crawl.wait(600)
    return report("deleted 10 times, since then", crawl, whole) and status in COMPLETE


def killed():
    site = Tree(1000)
    whole = whole_mirror(site)
    well = True
    with ScriptedServer(site):
        for seconds in range(1, 11):
            crawl = WatchedCrawl("--connections", 24)
            crawl.wait(seconds)
            well = report(f"killed after {seconds} s", crawl, whole) and well
            crawl = WatchedCrawl("--connections", 24, scratch=crawl.scratch)
            status = crawl.wait(60)
            well = report("started again", crawl, whole) and status in COMPLETE and well
    return well


RUNS = {"level": level, "valgrind": valgrind, "full-disk": full_disk, "folder-gone": folder_gone,
        "killed": killed}


def main():
    if len(sys.argv) != 2 or sys.argv[1] not in RUNS:
        sys.exit(__doc__)
    sys.exit(0 if RUNS[sys.argv[1]]() else 1)


if __name__ == "__main__":
    private_network.enter()
    main()
