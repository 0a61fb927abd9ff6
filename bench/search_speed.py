"""Times a search of an extract of 500 MB, compared with grep. The program counts matches; grep counts lines.

    VANTORIN_PROGRAM=build/release/cli/vantorin /usr/bin/python3 -m bench.search_speed

Makes the extract from the documentation installed on this machine, in $TMPDIR. Prints medians of alternating
runs.
"""

import html
import os
import re
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

from bench.table import row

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


if __name__ == "__main__":
    main()
