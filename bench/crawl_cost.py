"""What a crawl costs per file, compared with "wget -m -k" on the same site.

    VANTORIN_PROGRAM=build/release/cli/vantorin /usr/bin/python3 -m bench.crawl_cost

The site has 222 pages of 20 KB with 4 pictures each, served by nginx on the loopback. Prints the processor
time of the program and of wget, as medians of alternating runs, and the program's instructions and system
calls, counted by valgrind and strace in separate runs.
"""

import collections
import os
import statistics
import subprocess
import sys

from bench.table import row

from harness import private_network, web
from harness.program import Crawl, copy_program, environment, tree

SITE = "www.example.test"
PAGES = 222
PICTURES = 4
FILES = PAGES * (1 + PICTURES)
PAGE_BYTES = 20_000
PICTURE = bytes(range(256)) * 20
RUNS = 5


def make_site(folder):
    """Page i links to its two children in a tree and to the page before it."""
    filler = "<p>Words of a page, with <b>some</b> markup and &quot;quotes&quot; in it.</p>\n"
    for i in range(PAGES):
        name = folder / ("index.html" if i == 0 else f"part{i % 10}/page{i}.html")
        name.parent.mkdir(exist_ok=True)
        site = f"http://{SITE}"
        links = "".join(f'<a href="{site}/part{n % 10}/page{n}.html">page {n}</a>\n'
                        for n in (2 * i + 1, 2 * i + 2, i - 1) if 0 < n < PAGES)
        pictures = "".join(f'<img src="{site}/pictures{i % 10}/picture{i}-{p}.gif">\n' for p in range(PICTURES))
        page = f"<html><head><title>{i}</title></head>\n<body>{links}{pictures}"
        name.write_text(page + filler * ((PAGE_BYTES - len(page)) // len(filler)) + "</body></html>\n")
        (folder / f"pictures{i % 10}").mkdir(exist_ok=True)
        for p in range(PICTURES):
            (folder / f"pictures{i % 10}/picture{i}-{p}.gif").write_bytes(PICTURE)


def processor_seconds(process):
    """The processor time of an ended child process, which must have exited with status 0."""
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"exit {process.returncode}")
    return usage.ru_utime + usage.ru_stime


def check_count(folder):
    found = sum(1 for path in tree(folder) if path.endswith((b".html", b".gif")))
    if found != FILES:
        sys.exit(f"{found} files instead of {FILES} in {folder}")


def crawl(under=()):
    folder = private_network.scratch("ours")
    running = Crawl(copy_program(folder / "program"), SITE, folder / "mirror", "--connections", 24, under=under)
    seconds = processor_seconds(running.process)
    check_count(folder / "mirror")
    return seconds


def wget():
    folder = private_network.scratch("wget")
    with (folder / "output.txt").open("wb") as log:
        running = subprocess.Popen(["wget", "-m", "-k", f"http://{SITE}/"], cwd=folder, env=environment(folder),
                               stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT)
    seconds = processor_seconds(running)
    check_count(folder)
    return seconds


def system_calls():
    """The number of calls of each kind in a whole crawl."""
    log = private_network.scratch("strace") / "calls"
    crawl(under=["strace", "-f", "-c", "-U", "name,calls", "-o", log])
    calls = collections.Counter()
    for line in log.read_text().splitlines():
        words = line.split()
        if len(words) == 2 and words[1].isdigit() and words[0] != "total":
            calls[words[0]] += int(words[1])
    return calls


def instructions():
    """The number of instructions in a whole crawl, and how many of them are in the program itself."""
    profile = private_network.scratch("valgrind") / "profile"
    crawl(under=["valgrind", "--quiet", "--tool=callgrind", "--compress-strings=no", "--dump-line=no",
                 f"--callgrind-out-file={profile}"])
    own = every = 0
    is_own = is_call = False
    with profile.open() as lines:
        for line in lines:
            if line.startswith("ob="):
                is_own = line.rstrip().endswith("/vantorin")
            elif line.startswith("calls="):
                is_call = True  # the next line repeats the cost of the called function
            elif line[0] in "0123456789+-*":
                count = 0 if is_call else int(line.split()[1])
                own += is_own * count
                every += count
                is_call = False
    return every, own


def main():
    site = private_network.scratch("site")
    make_site(site)
    with web.nginx(private_network.scratch("nginx"), {SITE: site}):
        ours, theirs = [], []
        for _ in range(RUNS):
            ours.append(crawl())
            theirs.append(wget())
        every, own = instructions()
        calls = system_calls()
    ours, theirs = (statistics.median(seconds) / FILES * 1e3 for seconds in (ours, theirs))
    row(f"processor time per file, crawl of {FILES:,} files", f"{ours:.2f} ms",
        f"wget -m -k: {theirs:.2f} ms, ratio {ours / theirs:.1f}")
    row("instructions per file of that crawl", f"{every / FILES / 1e6:.2f} million",
        f"{own / FILES / 1e6:.2f} million in the program itself, the others in libraries")
    most = ", ".join(f"{name} {count / FILES:.1f}" for name, count in calls.most_common(8))
    row("system calls per file of that crawl", f"{sum(calls.values()) / FILES:.0f}", most)


if __name__ == "__main__":
    private_network.enter()
    main()
