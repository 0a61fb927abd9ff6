"""The common base of tests of the program with its windows."""

import unittest

from harness import private_network
from harness.desktop import WIZARD, Desktop
from harness.program import copy_program


class DesktopTest(unittest.TestCase):
    """Has a desktop and a copy of the program, for a new user."""

    def setUp(self):
        self.folder = private_network.scratch("desktop")
        self.home = self.folder / "home"
        self.desktop = Desktop(self.home)
        self.addCleanup(self.desktop.close)
        self.program = copy_program(self.folder / "program")

    def start(self):
        running = self.desktop.start(self.program)
        self.addCleanup(running.kill)
        self.desktop.await_window(WIZARD)
        return running
