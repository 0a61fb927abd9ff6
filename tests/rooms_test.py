"""Reads every include of the tree: arrows between the rooms point one way only.

A room is a folder; a file in it may include its own room and those that the table names. The table
is as narrow as the code: an arrow that nothing needs any more has to be taken out of it. A room
stands below all that it knows, so the table itself cannot hold a circle.
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

KNOWS = {
    "text": set(),
    "page_text": {"text"},
    "platform": set(),
    "platform/qt": {"platform"},
    "engine/state": {"platform", "text"},
    "output": {"engine/state", "platform", "text"},
    "setup": {"output", "engine/state", "platform", "text"},
    "extractor": {"setup", "output", "engine/state", "platform", "text"},
    "engine": {"extractor", "setup", "output", "engine/state", "platform", "text"},
    "widgets": set(),
    "setup/forms": {"widgets", "engine", "setup", "engine/state", "platform/qt", "platform", "text"},
    "ui": {"setup/forms", "widgets", "engine", "setup", "output", "engine/state", "platform/qt",
           "platform", "page_text", "text"},
    "packaging/desktop": {"widgets"},
}  # fmt: skip
MAY_USE_QT = {"platform/qt", "widgets", "setup/forms", "ui", "packaging/desktop"}

INCLUDE = re.compile(r'^#include (?:"([^"]+)"|<([^>]+)>)', re.M)


def includes():
    """Every include of the rooms: the file's room, the file, what it includes, whether in quotes."""
    for room in KNOWS:
        for file in sorted((ROOT / room).glob("*.*")):
            if file.suffix in {".h", ".cpp"}:
                for own, system in INCLUDE.findall(file.read_text()):
                    yield room, str(file.relative_to(ROOT)), own or system, bool(own)


def circles(files):
    """The files that include each other in a circle, each circle as its list of files."""
    done = set()

    def walk(file, way):
        if file in way:
            yield way[way.index(file) :] + [file]
        elif file not in done:
            for included in files.get(file, ()):
                yield from walk(included, way + [file])
            done.add(file)

    for file in files:
        yield from walk(file, [])


def main():
    faults, used, files = [], {room: set() for room in KNOWS}, {}
    for room, file, included, own in includes():
        if own:
            to = str(Path(included).parent)
            files.setdefault(file, []).append(included)
            used[room].add(to)
            if to != room and to not in KNOWS[room]:
                faults.append(f"{file} includes {included}: {room} may not know {to}")
        elif re.match(r"Q[A-Z]", included) and room not in MAY_USE_QT:
            faults.append(f"{file} includes <{included}>: {room} does without Qt")
    for room, known in KNOWS.items():
        faults += [f"{room} need not know {other}" for other in sorted(known - used[room])]
    below = set()
    for room, known in KNOWS.items():
        faults += [f"{room} stands below {other}, which it knows" for other in known - below]
        below.add(room)
    faults += ["a circle: " + " -> ".join(circle) for circle in circles(files)]
    on_disk = {str(f.parent.relative_to(ROOT)) for f in ROOT.rglob("*.cpp") if "build" not in f.parts}
    strangers = {r for r in on_disk - set(KNOWS) if r.split("/")[0] not in {"tests", "bench", "packaging"}}
    faults += [f"{room} is in no row of the table" for room in strangers]
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
