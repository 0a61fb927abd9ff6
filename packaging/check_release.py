"""check_release.py FOLDER VERSION DEBIAN_RELEASE...: checks that everything is there, undamaged, and of that
version.

packaging/release makes the folder and has already tested the programs in it.
"""

import hashlib
import re
import subprocess
import sys
import tarfile
import zipfile
from pathlib import Path, PurePosixPath


def expect(condition, what):
    if not condition:
        sys.exit(f"The release is not complete: {what}")


def command(*words):
    return subprocess.run(words, capture_output=True, text=True, check=True).stdout


def linked_from_readme():
    """The files to which the README links: its pictures and documents."""
    links = re.findall(r"\]\(([^)#:]+)\)", Path("README.md").read_text(encoding="utf-8"))
    expect(links, "the README shows no picture")
    return set(links)


def check_zip(path, top):
    with zipfile.ZipFile(path) as archive:
        expect(archive.testzip() is None, f"{path} is damaged")
        names = {str(PurePosixPath(name).relative_to(top)) for name in archive.namelist()}
        licenses = archive.read(f"{top}/LICENSES.txt").decode()
        program = archive.read(f"{top}/vantorin.exe")
    named = set(re.findall(r"licenses/\S+\.txt", licenses))
    expect("Qt, version" in licenses and len(named) > 3, f"{path} does not say what the program contains")
    needed = {"vantorin.exe", "vantorin.com", "README.md", "CHANGELOG.md"} | linked_from_readme() | named
    expect(needed <= names, f"{path} lacks {sorted(needed - names)}")
    return program


def check_windows_version(program, version):
    """Checks the version that the file's properties show."""
    text = f"ProductVersion\0{version}\0".encode("utf-16-le")
    expect(text in program, f"vantorin.exe is not version {version}")


def check_package(path, version, release):
    expect(command("dpkg-deb", "--field", path, "Version").strip() == version, f"{path} is not version {version}")
    held = command("dpkg-deb", "--contents", path)
    documents = {f"usr/share/doc/vantorin/{name}" for name in linked_from_readme()}
    for name in {"usr/bin/vantorin", "usr/share/man/man1/vantorin.1.gz"} | documents:
        expect(f" ./{name}\n" in held, f"{path} lacks {name}")
    log = subprocess.run(f"dpkg-deb --fsys-tarfile {path} | tar -xO ./usr/share/doc/vantorin/changelog.gz | zcat",
                         shell=True, capture_output=True, text=True, check=True).stdout
    expect(log.startswith(f"vantorin ({version}) {release};"), f"{path} is not for {release}")


def check_source(path, top):
    with tarfile.open(path) as archive:
        held = {name.removeprefix(top + "/") for name in archive.getnames()}
    missing = set(command("git", "ls-files").splitlines()) - held
    expect(not missing, f"{path} lacks {sorted(missing)}")


def check_sums(folder):
    sums = dict(reversed(line.split("  ")) for line in (folder / "SHA256SUMS").read_text().splitlines())
    for name, expected in sums.items():
        found = hashlib.sha256((folder / name).read_bytes()).hexdigest()
        expect(found == expected, f"SHA256SUMS is wrong about {name}")
    return sums.keys() | {"SHA256SUMS"}


def main(folder, version, *releases):
    top = f"vantorin-{version}"
    archive, source = f"{top}-win64.zip", f"{top}-source.tar.gz"
    packages = {release: f"vantorin_{version}_{release}_amd64.deb" for release in releases}
    expected = {archive, source, "SHA256SUMS", *packages.values()}
    found = {path.name for path in folder.iterdir()}
    expect(found == expected, f"{folder} lacks {sorted(expected - found)}, has {sorted(found - expected)} in excess")
    expect(check_sums(folder) == expected, "SHA256SUMS does not list every file")
    check_windows_version(check_zip(folder / archive, f"{top}-win64"), version)
    for release, package in packages.items():
        check_package(folder / package, version, release)
    check_source(folder / source, top)
    print((folder / "SHA256SUMS").read_text(), end="")
    print(f"Everything is there and whole: {folder}")


if __name__ == "__main__":
    main(Path(sys.argv[1]), *sys.argv[2:])
