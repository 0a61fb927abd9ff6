"""Times a search of an extract of 500 MB, compared with grep. The program counts matches; grep counts lines.

    VANTORIN_PROGRAM=build/release/cli/vantorin /usr/bin/python3 -m bench.search_speed

Makes the extract from the documentation installed on this machine, in $TMPDIR. Prints medians of alternating
runs.
Then types the same words into the search of the window. Needs the target loop_pauses.
"""

import html
import os
import re
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

from bench.loop_pauses import pauses, watched
from bench.table import row
from harness import private_network
from harness.desktop import MAIN, WIZARD, Desktop
from harness.program import copy_program, wait_until

SIZE = 500_000_000
RUNS = 5
WORDS = ["needle", "python", "xapian", "window", "the"]


def texts():
    for file in sorted(filter(Path.is_file, Path("/usr/share/doc").rglob("*.html"))):
        markup = file.read_text(errors="replace")
        yield " ".join(html.unescape(re.sub(r"<[^>]+>", " ", markup)).split())


def make_extract(folder):
    records = list(texts())
    extract = folder / "_SearchData/example.test.txt"
    extract.parent.mkdir()
    with extract.open("w", encoding="utf-8", errors="replace", newline="") as file:
        number = 0
        while file.tell() < SIZE:
            for text in records:
                number += 1
                file.write(f"! example.test\\{number}.html\r\n{text}\r\n")
    return extract


def seconds(*command, **variables):
    """The duration of a command. Its output is read, because grep stops early if nobody reads it."""
    begun = time.monotonic()
    subprocess.run(command, env=os.environ | variables, stdout=subprocess.PIPE, check=False)
    return time.monotonic() - begun


def processor_time(process):
    return sum(map(int, Path(f"/proc/{process.pid}/stat").read_text().rsplit(")", 1)[1].split()[11:13]))


def rest(process):
    """Waits until a program has been idle for a second."""
    seen = [0.0, -1]

    def rests():
        if processor_time(process) != seen[1]:
            seen[:] = time.monotonic(), processor_time(process)
        return time.monotonic() - seen[0] > 1

    wait_until(rests, 120, "an idle program")


def pauses_in_the_window(copy):
    """Milliseconds of each pause while the words are typed, and the peak memory in bytes."""
    folder = private_network.scratch("window")
    desktop = Desktop(folder / "home")
    desktop.environment |= watched(folder / "log")
    program = desktop.start(copy_program(folder / "program"))
    desktop.await_window(WIZARD)
    desktop.press("Tab")
    desktop.type(str(copy))
    desktop.press("Escape")
    desktop.await_window(MAIN)
    desktop.press("ctrl+f")
    desktop.await_window("Search the Copy")
    began = time.monotonic()
    for word in WORDS:
        desktop.press("ctrl+a")
        desktop.type(word)
        rest(program)
        desktop.press("Down", "Page_Down", "F5")
        rest(program)
    status = Path(f"/proc/{program.pid}/status").read_text()
    desktop.press("Escape")
    desktop.await_window(MAIN)
    desktop.press("ctrl+q")
    desktop.await_window("Exit Vantorin")
    desktop.press("alt+y")
    program.wait(20)
    desktop.close()
    return pauses(folder / "log", since=began), int(status.split("VmHWM:")[1].split()[0]) * 1024


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        extract = make_extract(folder)
        for word in WORDS:
            ours, greps = [], []
            for _ in range(RUNS):
                ours.append(seconds(os.environ["VANTORIN_PROGRAM"], "--search", word, "--folder", name))
                greps.append(seconds("grep", "-i", "-F", "-c", word, extract, LC_ALL="C"))
            ours, greps = statistics.median(ours), statistics.median(greps)
            row(f'search 500 MB for "{word}"', f"{ours:.2f} s", f"{ours / greps:.1f} times grep ({greps:.2f} s)")
        lengths, memory = pauses_in_the_window(folder)
        row("pauses while words are typed into the search of 500 MB", f"longest {max(lengths):.0f} ms",
            f"{memory / 1e6:.0f} MB of memory at most")


if __name__ == "__main__":
    private_network.enter()
    main()
