"""How names that the Linux program saves look on Windows."""

import re

DEVICE = re.compile(rb"(con|prn|aux|nul|conin\$|conout\$|(com|lpt)([1-9]|\xb9|\xb2|\xb3)) *(\..*)?", re.I | re.S)
NO_NAME = re.compile(rb'[\x00-\x1f<>:"|?*]|[. ]$')


def is_refused(path):
    """Whether Windows does not take every part of this path as a file's name."""
    return any(NO_NAME.search(name) or DEVICE.fullmatch(name) for name in path.split(b"/"))


def windows_name(path):
    """On Windows, a name's bytes are in the Western European code page. Wine's disk shows it in UTF-8."""
    return "".join(letter(byte) for byte in path).encode()


def letter(byte):
    try:
        return bytes([byte]).decode("cp1252")
    except UnicodeDecodeError:
        return chr(byte)  # one of the five that the code page leaves undefined


def differences(linux, windows):
    """Compares two trees that should be equal except for names that Windows cannot have. Returns the
    differences in plain words, and the number of files that were the same, refused, or merged with one whose
    name differs only in case.
    """
    faults, expected, refused = [], {}, 0
    for path, data in linux.items():
        if is_refused(path):
            refused += 1
        else:
            expected.setdefault(windows_name(path).decode().lower(), []).append(data)
    found = {path.decode().lower(): data for path, data in windows.items()}
    for name in sorted(expected.keys() | found.keys()):
        if name not in found:
            faults.append(f"missing: {name}")
        elif name not in expected:
            faults.append(f"not on Linux: {name}")
        elif found[name] not in expected[name]:
            faults.append(f"other bytes: {name}")
    twins = len(linux) - refused - len(expected)
    return faults, {"same": len(expected) - len(faults), "refused": refused, "twins of another case": twins}
