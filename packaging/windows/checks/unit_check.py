"""The core's unit tests, the contract tests and those of the window, compiled for Windows."""

import re
import unittest

import private_network
from wine import ROOT, Wine

# Why a test of qt_tests cannot be passed here.
WINE_LACKS = {}


class UnitCheck(unittest.TestCase):
    def setUp(self):
        self.wine = self.enterContext(Wine(private_network.scratch("unit")))

    def run_all(self, name, skipped):
        output, status = self.wine.run(ROOT / f"build/windows/tests/{name}.exe",
                                       f"--gtest_filter=*:-{':'.join(skipped)}", seconds=900)
        (ROOT / f"build/windows/{name}.txt").write_text(output)
        print("\n".join(re.findall(r"^\[  (?:PASSED|FAILED|SKIPPED) .*", output, re.M)), flush=True)
        for test, why in skipped.items():
            print(f"skipped: {test}: {why}", flush=True)
        self.assertEqual(status, 0, f"build/windows/{name}.txt says more")

    def test_core(self):
        self.run_all("core_tests", {})

    def test_qt(self):
        self.run_all("qt_tests", WINE_LACKS)
