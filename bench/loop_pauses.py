"""How long the event loop of the real program does not look for events.

    VANTORIN_PROGRAM=build/release/cli/vantorin /usr/bin/python3 -m bench.loop_pauses

Needs the target loop_pauses. First measures the longest pause for large answers, as the median of several
crawls each, without a window. Then measures a crawl with the window shown, at the scheduler's full pace.
"""

import os
import statistics
import sys
import time
from pathlib import Path

from bench.crawl_cost import FILES, SITE, make_site
from bench.table import row
from harness import private_network, web
from harness.desktop import MAIN, WIZARD, Desktop
from harness.program import Crawl, copy_program, wait_until
from harness.web import ScriptedServer, links_to, page

RUNS = 3
MB = 1_000_000
LIBRARY = Path(os.environ["VANTORIN_PROGRAM"]).resolve().parent.parent / "bench/libloop_pauses.so"
PARAGRAPH = b"<p>Words of a page, with <b>some</b> markup and &quot;quotes&quot; in it.</p>\n"

ANSWERS = {
    "one zip of 50 MB": (b"a.zip", os.urandom(MB) * 50),
    "one zip of 300 MB": (b"a.zip", os.urandom(MB) * 300),
    "html of 50 MB": (b"a.html", PARAGRAPH * (50 * MB // len(PARAGRAPH))),
    "html of 300 MB": (b"a.html", PARAGRAPH * (300 * MB // len(PARAGRAPH))),
    "a text of 50 MB of line feeds": (b"a.txt", b"\n" * (50 * MB)),
}


def watched(log):
    """The environment that makes a program write its pauses to `log`."""
    return {"LD_PRELOAD": str(LIBRARY), "VANTORIN_PAUSES": str(log)}


def pauses(log, since=0.0):
    """The length in milliseconds of each pause that began after `since`."""
    lines = [line.split() for line in log.read_text().splitlines()]
    return [float(length) for began, length in lines if float(began) > since]


def longest_pause(name, body):
    folder = private_network.scratch("pauses")
    with ScriptedServer({b"/": page(links_to(name)), b"/" + name: page(body, "any")}):
        crawl = Crawl(copy_program(folder / "program"), SITE, folder / "mirror", "--timeout", 60,
                      **watched(folder / "log"))
        if crawl.wait(300) != 0:
            sys.exit(crawl.output())
    saved = folder / "mirror/example.test" / name.decode()
    if saved.stat().st_size < len(body):
        sys.exit(f"{saved} is cut")
    saved.unlink()
    return max(pauses(folder / "log"))


def pauses_with_window():
    folder = private_network.scratch("window")
    site = private_network.scratch("site")
    make_site(site)
    desktop = Desktop(folder / "home")
    desktop.environment |= watched(folder / "log")
    with web.nginx(private_network.scratch("nginx"), {SITE: site}):
        program = desktop.start(copy_program(folder / "program"))
        desktop.await_window(WIZARD)
        desktop.type(SITE)
        desktop.press("Tab")
        desktop.type(str(folder / "mirror"))
        desktop.press("Return")
        wait_until((folder / "mirror/log.txt").exists, what="the first page")
        began = time.monotonic()
        desktop.await_window("Done.", 120)
        seconds = time.monotonic() - began
        desktop.press("alt+n")
        desktop.await_window(MAIN)
        desktop.press("alt+F4")
        desktop.await_window("Exit Vantorin")
        desktop.press("alt+y")
        program.wait(20)
    desktop.close()
    lengths = sorted(pauses(folder / "log", since=began))
    return lengths, FILES / seconds


def main():
    for what, (name, body) in ANSWERS.items():
        lengths = [longest_pause(name, body) for _ in range(RUNS)]
        row(f"longest pause, {what}", f"{statistics.median(lengths):.0f} ms",
            f"{min(lengths):.0f} to {max(lengths):.0f} in {RUNS} runs")
    lengths, pace = pauses_with_window()
    row("pauses in a crawl with the window shown", f"longest {lengths[-1]:.0f} ms",
        f"99 % below {lengths[len(lengths) * 99 // 100]:.1f} ms, {pace:.0f} starts a second")


if __name__ == "__main__":
    private_network.enter()
    main()
