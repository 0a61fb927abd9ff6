"""Tests scripts/setup.sh in copied and moved checkouts, and on a system without Debian's tools."""

import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PROJECT = """\
cmake_minimum_required(VERSION 3.24)
project(checkout LANGUAGES NONE)
file(WRITE ${CMAKE_BINARY_DIR}/made_of ${CMAKE_SOURCE_DIR})
"""


class ScriptsTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name).resolve()

    def call(self, words, folder, **how):
        """Calls a function of setup.sh in a folder. Returns its standard error output."""
        done = subprocess.run(["/bin/bash", "-c", f"source {ROOT}/scripts/setup.sh && {words}"], cwd=folder,
                              capture_output=True, text=True, check=False, **how)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        return done.stderr

    def test_a_checkout_can_be_copied_and_moved(self):
        first, copy, moved = (self.folder / name for name in ("first", "copy", "moved"))
        first.mkdir()
        shutil.copy(ROOT / "CMakePresets.json", first)
        (first / "CMakeLists.txt").write_text(PROJECT)
        self.call("configure release", first)
        (first / "build/release/filters.txt").write_text("kept")
        with (first / "build/release/CMakeCache.txt").open("a") as cache:
            cache.write("OF_A_DEVELOPER:STRING=set\n")
        self.call("configure release", first)
        settings = (first / "build/release/CMakeCache.txt").read_text()
        self.assertIn("OF_A_DEVELOPER:STRING=set", settings, "a build folder in its place keeps its settings")
        shutil.copytree(first, copy)
        self.call("configure release", copy)
        first.rename(moved)
        self.call("configure release", moved)
        for checkout in (copy, moved):
            self.assertEqual((checkout / "build/release/made_of").read_text(), str(checkout))
            self.assertEqual((checkout / "build/release/filters.txt").read_text(), "kept")

    def test_without_dpkg_it_lists_the_needed_packages(self):
        said = self.call("install_missing cmake ninja-build", self.folder, env={"PATH": str(self.folder)})
        self.assertIn("cmake ninja-build", said)


if __name__ == "__main__":
    unittest.main()
