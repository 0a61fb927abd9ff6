"""A private desktop for a test: X server, window manager, and one user with a keyboard."""

import random
import re
import subprocess
from pathlib import Path

from harness.program import environment, wait_until

COMMANDS = ["/usr/bin/Xvfb", "/usr/bin/openbox", "/usr/bin/xdotool", "/usr/bin/wmctrl"]  # what this module runs
VERSION = re.search(r"VERSION (\S+)", Path("CMakeLists.txt").read_text().split("project(")[1])[1]
MAIN = f"Vantorin Website Downloader {VERSION}"
WIZARD = "New Site Wizard"

# Opens files and addresses for the program: records the number of arguments and each argument.
OPENER = """\
#!/bin/sh
printf '%s\\n' "$#" "$@" >> "$HOME/opened"
"""


class Desktop:
    """An invisible desktop that records what it is asked to open."""

    def __init__(self, home, screen=(1280, 1024)):
        (home / "bin").mkdir(parents=True)
        opener = home / "bin/xdg-open"
        opener.write_text(OPENER)
        opener.chmod(0o755)
        self.home = home
        # The number is random, because servers with the same number share keyboard files. There is no lock and no
        # socket: they would be placed beside the machine's own, whose processes look dead from inside the namespace.
        display = f":{random.randrange(100, 50000)}"
        self.server = subprocess.Popen(["Xvfb", display, "-displayfd", "1", "-nolock", "-noreset",
                                        "-nolisten", "unix", "-nolisten", "tcp", "-screen", "0",
                                        f"{screen[0]}x{screen[1]}x24"],
                                       stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        with self.server.stdout as ready:
            ready.readline()
        self.environment = environment(home, DISPLAY=display)
        self.environment["PATH"] = f"{home}/bin:{self.environment['PATH']}"
        # A window that opens before the manager is ready may never be shown.
        managed = home / "managed"
        self.manager = self.start("openbox", "--startup", f"touch {managed}", stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL)
        wait_until(managed.exists, what="the window manager")

    def start(self, *command, **how):
        return subprocess.Popen(command, env=self.environment, **how)

    def run(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True, timeout=30,
                              check=False).stdout.strip()

    def await_window(self, title, seconds=60):
        """Waits until the window with that title has the keyboard. If it does not come, saves a screenshot."""
        try:
            wait_until(lambda: self.run("xdotool", "getwindowfocus", "getwindowname") == title, seconds,
                       f'a window "{title}" with the keyboard')
        except TimeoutError:
            self.run("import", "-window", "root", "build/instead.png")
            raise

    def press(self, *keys):
        self.run("xdotool", "key", "--clearmodifiers", "--delay", "30", *keys)

    def type(self, text):
        self.run("xdotool", "type", "--delay", "10", text)

    def opened(self):
        """What was opened since the last call: the number of arguments, then each argument."""
        opened = self.home / "opened"
        wait_until(lambda: opened.exists() and opened.read_text().endswith("\n"), what="the opener")
        words = opened.read_text().splitlines()
        opened.unlink()
        return words

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()
