"""Times whole crawls of a documentation tree with different numbers of connections.

    VANTORIN_PROGRAM=build/release/cli/vantorin /usr/bin/python3 -m bench.crawl_speed

Prints the median of three runs each. The network is the loopback, so the program's own pace shows: the
scheduler starts at most one file per 20 ms.
"""

import statistics
import sys
import time

from harness import private_network, web
from harness.program import Crawl, copy_program, tree

SITE = "www.example.test"
ROOT = "/usr/share/doc/xapian-doc"
RUNS = 3


def crawl(connections, run):
    """The duration of one crawl in seconds, and the number of files it left."""
    folder = private_network.scratch(f"speed-{connections}-{run}")
    target = folder / "mirror"
    target.mkdir()
    program = copy_program(folder / "program")
    started = time.monotonic()
    running = Crawl(program, SITE, target, "--connections", connections)
    if running.wait() != 0:
        sys.exit(running.output())
    return time.monotonic() - started, len(tree(target))


def main():
    with web.nginx(private_network.scratch("nginx"), {SITE: ROOT}):
        for connections in (1, 4, 24):
            results = [crawl(connections, run) for run in range(RUNS)]
            seconds = statistics.median(seconds for seconds, _ in results)
            print(f"{connections:2} connections: {results[0][1]} files in {seconds:.1f} s")


if __name__ == "__main__":
    private_network.enter()
    main()
