"""Runs the checks in a private network. packaging/windows/check builds what they need and starts this.

An argument selects what to run: "mirror_check", or
"window_check.WindowCheck.test_first_start_to_a_whole_copy".
"""

import sys
import unittest

from harness import private_network

CHECKS = ["unit_check", "unattended_check", "console_check", "mirror_check", "hostile_check", "window_check"]

if __name__ == "__main__":
    private_network.enter()
    unittest.main(module=None, argv=[sys.argv[0], "--verbose", *(sys.argv[1:] or CHECKS)])
