"""A private Windows for a check: Wine, containing only what the check puts there."""

import os
import shutil
import subprocess
import zipfile
from pathlib import Path

from harness.program import environment

ROOT = Path(__file__).resolve().parents[3]
PREFIX = ROOT / "build/windows/wine"
PROGRAM = "C:\\Vantorin\\vantorin.exe"
COMMAND = "C:\\Vantorin\\vantorin.com"
DRIVE_C = PREFIX / "drive_c"

# Keeps Wine from offering to install components for web pages and .NET programs, which nothing here needs.
QUIET = {"WINEDEBUG": "-all", "WINEDLLOVERRIDES": "mscoree,mshtml=", "WINEPREFIX": str(PREFIX)}


class Wine:
    """Windows, with or without a desktop. As a context manager, it shuts down at the end."""

    def __init__(self, home, desktop=None):
        self.environment = (desktop.environment if desktop else environment(home)) | QUIET

    def __enter__(self):
        shutil.rmtree(PREFIX, ignore_errors=True)
        PREFIX.mkdir(parents=True)
        subprocess.run(["wineboot", "--init"], env=self.environment, capture_output=True, check=True, timeout=300)
        # Its programs look up host names here.
        shutil.copy("/etc/hosts", DRIVE_C / "windows/system32/drivers/etc/hosts")
        self.install()
        return self

    def __exit__(self, *_):
        subprocess.run(["wineserver", "--kill"], env=self.environment, check=False)
        subprocess.run(["wineserver", "--wait"], env=self.environment, check=False)

    def install(self):
        """Installs the program as a user does, by unpacking the zip. Its folder becomes C:\\Vantorin."""
        with zipfile.ZipFile(os.environ["VANTORIN_ZIP"]) as archive:
            archive.extractall(DRIVE_C)
        folder, = DRIVE_C.glob("vantorin-*")
        folder.rename(DRIVE_C / "Vantorin")

    def start(self, *arguments, **how):
        return subprocess.Popen(["wine", *map(str, arguments)], env=self.environment, **how)

    def run(self, *arguments, seconds=120, **how):
        """Runs a program and returns its output and its exit status."""
        how = {"stdout": subprocess.PIPE, "stderr": subprocess.STDOUT, "stdin": subprocess.DEVNULL} | how
        done = subprocess.run(["wine", *map(str, arguments)], env=self.environment, timeout=seconds, check=False, **how)
        return (done.stdout or b"").decode(errors="replace"), done.returncode

    def registry(self, key):
        """The values of a key as shown by the system's own tool; "" if the key does not exist."""
        text, status = self.run("reg", "query", key)
        return text if status == 0 else ""


def crawl_arguments(site, folder, *arguments):
    return ("--site", site, "--folder", folder, *arguments)
