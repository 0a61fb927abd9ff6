"""Checks all includes against the table "Layers" of docs/architecture.md.

The table must not allow more than the code needs: an unused entry is a fault, too. It lists the layers
from the bottom up, so that it cannot contain a cycle. Each layer's CMake library may link only to the
layers in its row, and must reach all of them.
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TABLE = ROOT / "docs/architecture.md"
WITHOUT_QT = {"text", "page_text", "platform", "crawl", "output", "setup", "extractor", "engine", "search"}
# Besides these, they may include every layer of the program.
AROUND = {"tests": {"tests"}, "bench": {"bench", "tests"}}

IMPORT = re.compile(r"^from (\w+)[\w.]* import", re.M)
INCLUDE = re.compile(r'^#include (?:"([^"]+)"|<([^>]+)>)', re.M)
LINK = re.compile(r"target_link_libraries\((vantorin_\w+)([^)]*)\)")


def table():
    """The layers that each layer may include, in the order of the table's rows."""
    knows = {}
    section = TABLE.read_text().split("## Layers")[1].split("\n## ")[0]
    for layer, includes in re.findall(r"^\| `([\w/]+)` \|.*\|([^|]*)\|$", section, re.M):
        if layer not in AROUND:
            knows[layer] = set(re.findall(r"`([\w/]+)`", includes))
    for layer, own in AROUND.items():
        knows[layer] = own | {other for other in knows if not other.startswith("packaging")}
    return knows


def layer_of(file, knows):
    """The innermost layer that contains a path relative to the root."""
    folders = [str(folder) for folder in Path(file).parents]
    return next((folder for folder in folders if folder in knows), None)


def includes():
    """Yields each include: the file, the name it includes, and whether that is in quotes."""
    for file in sorted(ROOT.rglob("*.*")):
        path = file.relative_to(ROOT)
        if file.suffix in {".h", ".cpp"} and path.parts[0] != "build":
            for own, system in INCLUDE.findall(file.read_text()):
                yield str(path), own or system, bool(own)


def top_folders():
    """The other top folders that the C++ and Python files of each top folder include or import."""
    tops = {}
    folders = {path.name for path in ROOT.iterdir() if path.is_dir()} - {"build"}
    for file, included, own in includes():
        if own:
            tops.setdefault(file.split("/")[0], set()).add(included.split("/")[0])
    for file in sorted(ROOT.rglob("*.py")):
        top = file.relative_to(ROOT).parts[0]
        if top in folders:
            tops.setdefault(top, set()).update(IMPORT.findall(file.read_text()))
    return {top: (known & folders) - {top} for top, known in tops.items()}


def cycles(arrows):
    """Yields the cycles in a dictionary from each node to its successors, each as a list."""
    done = set()

    def walk(node, way):
        if node in way:
            yield way[way.index(node) :] + [node]
        elif node not in done:
            for other in sorted(arrows.get(node, ())):
                yield from walk(other, way + [node])
            done.add(node)

    for node in sorted(arrows):
        yield from walk(node, [])


def include_faults(knows):
    used, files = {layer: set() for layer in knows}, {}
    for file, included, own in includes():
        layer = layer_of(file, knows)
        if layer is None:
            yield f"{file} is in no layer of the table"
        elif own:
            to = layer_of(included, knows)
            used[layer].add(to)
            files.setdefault(file, set()).add(included)
            if to != layer and to not in knows[layer]:
                yield f"{file} includes {included}: {layer} must not include {to}"
        elif re.match(r"Q[A-Z]", included) and layer in WITHOUT_QT:
            yield f"{file} includes <{included}>: {layer} must not use Qt"
    for layer in knows.keys() - AROUND.keys():
        yield from (f"{layer} never includes {o}, which its row names" for o in sorted(knows[layer] - used[layer]))
    yield from ("a cycle: " + " -> ".join(c) for c in [*cycles(files), *cycles(top_folders())])


def order_faults(knows):
    below = set(AROUND)
    for layer, known in knows.items():
        yield from (f"{layer} is listed before {other}, which it includes" for other in known - below - {layer})
        below.add(layer)


def link_faults(knows):
    """Compares the libraries with the table. A library is named after the last part of its folder."""
    folder_of = {"vantorin_" + layer.split("/")[-1]: layer for layer in knows}
    links = {}
    for layer in knows.keys() - AROUND.keys():
        lists = ROOT / layer / "CMakeLists.txt"
        for target, rest in LINK.findall(lists.read_text() if lists.exists() else ""):
            linked = {folder_of[name] for name in re.findall(r"vantorin_\w+", rest)}
            if folder_of.get(target) == layer:
                links.setdefault(layer, set()).update(linked)
    for layer, linked in links.items():
        yield from (f"the library of {layer} links to {other}" for other in sorted(linked - knows[layer]))
        reached, new = set(), linked
        while new:
            reached |= new
            new = set().union(*(links.get(other, set()) for other in new)) - reached
        yield from (f"the library of {layer} does not reach {o}" for o in sorted(knows[layer] - reached))


def main():
    knows = table()
    faults = [*include_faults(knows), *order_faults(knows), *link_faults(knows)]
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
