#!/usr/bin/python3
"""qt_parts.py SOURCE FOLDER: collects what the zip says about Qt and the third-party libraries in it.

Qt's source describes those libraries in files named qt_attribution.json. Each one must be in one of the two
lists below, so that no zip omits a library that a newer Qt adds. FOLDER receives the texts of the licences
and contents.tsv (name, version, licence, file), which the script build reads.
"""

import json
import re
import shutil
import sys
from pathlib import Path

# In Qt Core, Gui and Widgets as build_qt configures them.
INSIDE = """
    aglfn blake2 doubleconversion easing freetype freetype-bdf freetype-pcf freetype-zlib grayraster harfbuzz-ng
    icc-sRGB-color-profile libpng md4 md4c md5 pcre2 pcre2-sljit rfc6234 sha1 sha3_endian sha3_keccak siphash
    smooth-scaling-algorithm tinycbor unicode-character-database unicode-cldr xserverhelper zlib
""".split()
# For other systems and processors, in parts of Qt that the program does not use, or in build tools.
OUTSIDE = """
    android-gradle-wrapper android-native-style cocoa-platform-plugin cycle dejayvu forkfd libdbus-1-headers libjpeg
    libpsl linuxperf opengl-es2-headers opengl-headers pixman psl qeventdispatcher_cf valgrind vera_font
    vulkan-xml-spec VulkanMemoryAllocator xcb-xinput
""".split()


def attributions(source):
    """Each library's description, with the folder that contains it."""
    for path in sorted(source.glob("src/**/qt_attribution.json")):
        described = json.loads(path.read_text(encoding="utf-8"), strict=False)
        for library in described if isinstance(described, list) else [described]:
            yield path.parent, library


def text_of(folder, library):
    """The licence in full, or what the source says if nobody claims a licence."""
    texts = [(folder / name).read_text(encoding="utf-8", errors="replace")
             for name in library.get("LicenseFiles", [library.get("LicenseFile")]) if name]
    return "\n".join([f"{library['Name']}: {library['License']}", library.get("Copyright", ""), *texts]) + "\n"


def version_of(library):
    """The version, shortened: some are a commit's full hash, and one includes the repository's address."""
    return re.sub(r"([0-9a-f]{12})[0-9a-f]{28}$", r"\1", library.get("Version", "-").split()[-1])


def collect(source, folder):
    found = {library["Id"]: (place, library) for place, library in attributions(source)}
    unknown = found.keys() - set(INSIDE) - set(OUTSIDE)
    gone = set(INSIDE) - found.keys()
    if unknown or gone:
        sys.exit(f"qt_parts.py does not know whether these are in the program: {sorted(unknown)}; "
                 f"this Qt does not have: {sorted(gone)}")
    folder.mkdir(parents=True, exist_ok=True)
    version = re.match(r"qt6-base \((.*)\)", (source / "debian/changelog").read_text(encoding="utf-8"))[1]
    rows = [("Qt", version, "LGPL-3.0-only", "LGPL-3.0-only.txt")]
    for name in ("LGPL-3.0-only", "GPL-3.0-only"):
        shutil.copy(source / f"LICENSES/{name}.txt", folder)
    for name in INSIDE:
        place, library = found[name]
        file = f"qt-{name}.txt"
        (folder / file).write_text(text_of(place, library), encoding="utf-8")
        rows.append((f"{library['Name']} (in Qt)", version_of(library),
                     library.get("LicenseId", library["License"]), file))
    (folder / "contents.tsv").write_text("".join("\t".join(row) + "\n" for row in rows), encoding="utf-8")


if __name__ == "__main__":
    collect(Path(sys.argv[1]), Path(sys.argv[2]))
