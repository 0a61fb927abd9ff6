"""The unit tests of the core, the contract tests and the window's tests, compiled for Windows."""

import re
import shutil
import unittest

from harness import private_network
from wine import DRIVE_C, ROOT, Wine

# Why a test cannot pass here.
NO_RESET = "Wine reports a reset as an orderly close"
NO_FONT = "Qt's offscreen platform finds no fonts under Wine; window_check shows them"
SKIPPED = {
    "InnerText.Encodings": "Wine has no code pages for ISO-2022-JP and GB18030",
    "Qt/SocketContract/0.DoesNotTakeAResetForAClose": NO_RESET,
    "QtSocketTest.DoesNotTakeAResetDetectedBySendingForAClose": NO_RESET,
    "WizardTest.GrowsWithTheFontOfTheDesktop": NO_FONT,
    "ElidedText.KeepsBothEndsOfAnAddress": NO_FONT,
    "EveryForm.FitsAndWorksByKeyboardAtTwoFontSizes": NO_FONT,
    "WizardTest.EnterStartsAsUsualAboveTheOffers": "the offscreen platform there keeps Enter; it works in a window",
}  # fmt: skip


class UnitCheck(unittest.TestCase):
    def setUp(self):
        self.wine = self.enterContext(Wine(private_network.scratch("unit")))

        # Without the names that other checks need, because these tests have their own name servers.
        (DRIVE_C / "windows/system32/drivers/etc/hosts").write_text("127.0.0.1 localhost\r\n")

        shutil.copy(ROOT / "build/windows/tests/explorer.exe", DRIVE_C / "windows/explorer.exe")

    def run_all(self, name):
        output, status = self.wine.run(ROOT / f"build/windows/tests/{name}.exe",
                                       f"--gtest_filter=*:-{':'.join(SKIPPED)}", seconds=900)
        (ROOT / f"build/windows/{name}.txt").write_text(output)
        print("\n".join(re.findall(r"^\[  (?:PASSED|FAILED|SKIPPED) .*", output, re.M)), flush=True)
        for test, why in SKIPPED.items():
            print(f"skipped: {test}: {why}", flush=True)
        self.assertEqual(status, 0, f"build/windows/{name}.txt says more")
        self.assertIn("[  PASSED  ]", output, "Wine's exit status does not show a crash")

    def test_core(self):
        self.run_all("core_tests")

    def test_qt(self):
        self.run_all("qt_tests")
