"""Takes the pictures in docs/pictures from the real program: its window during a crawl, and each dialog.

Run by scripts/take_pictures, which builds the program and installs the site shown.
"""

import os
import subprocess
from pathlib import Path

from harness import private_network, web
from harness.desktop import MAIN, WIZARD, Desktop
from harness.program import copy_program, wait_until

SITE = "www.example.test"
ROOT = "/usr/share/doc/python-flask-doc/html"


class Photographer:
    def __init__(self, desktop, folder):
        self.desktop = desktop
        self.folder = folder

    def take(self, title, name):
        """Takes a picture of the window with that title, including its frame, once it has the keyboard."""
        self.desktop.await_window(title)
        self.desktop.run("xdotool", "mousemove", "0", "0", "sleep", "0.5")  # wait for painting, and avoid tooltips
        window = self.desktop.run("xdotool", "getwindowfocus")
        self.desktop.run("import", "-frame", "-window", window, "+dither", "-colors", "96",
                         "-strip", f"PNG8:{self.folder}/{name}.png")


def take_all(desktop, running, websites, pictures):
    """Takes every window of the program, which has just been started for the first time, and ends it. Saves
    the site in the folder `websites`.
    """
    press, take = desktop.press, Photographer(desktop, pictures).take

    desktop.await_window(WIZARD)
    desktop.type(SITE)
    take(WIZARD, "wizard")
    press("Tab", "Tab", "space")
    desktop.await_window("Select Directory to Save the Website")
    press("Up", "Return")  # the parent folder
    take("Select Directory to Save the Website", "directory")
    press("Escape")
    desktop.await_window(WIZARD)
    press("Tab", "Tab", "space")
    take(WIZARD, "options")
    press("Tab", "Tab", "space")
    take("Vantorin", "add_type")
    press("Escape")
    desktop.await_window(WIZARD)
    press("Tab", "Tab", "Tab", "Tab", "space")
    desktop.await_window("Keyword Filters")
    for keyword in ("advert", "/forum/", "print=yes"):
        desktop.type(keyword)
        press("Return")
    take("Keyword Filters", "filters")
    press("Escape")
    desktop.await_window(WIZARD)
    press("Tab", "Tab", "Return")

    desktop.await_window(MAIN)
    press("Tab", "Tab", "Tab", "Tab")  # away from the queue
    desktop.type("12")  # connections
    copy = websites / "example.test"
    wait_until(lambda: len(list(copy.glob("**/*.html"))) > 30, what="some files")
    take(MAIN, "window")
    press("alt+s", "Return")
    take("Paused", "pause")
    press("Return")
    desktop.await_window(MAIN)
    press("shift+Tab", "shift+Tab", "shift+Tab", "space")
    take("Stop Download", "stop")
    press("alt+n")
    take("Done.", "done")
    press("alt+n")
    desktop.await_window(MAIN)
    press("ctrl+r")
    take("Report", "report")
    press("Escape")
    desktop.await_window(MAIN)
    press("alt+h", "a")
    take("About", "about")
    press("Return")
    desktop.await_window(MAIN)
    press("alt+f", "e")
    take("Exit Vantorin", "exit")
    press("alt+y")
    running.wait(30)


def main():
    # A user with a short name, visible only in this namespace.
    subprocess.run(["mount", "-t", "tmpfs", "none", "/mnt"], check=True)
    home = Path("/mnt/anna")
    for name in ("Documents", "Music", "Pictures", "Websites"):
        (home / name).mkdir(parents=True)
    desktop = Desktop(home)
    try:
        with web.nginx(private_network.scratch("nginx"), {SITE: ROOT}, "limit_rate 20k;"):
            running = desktop.start(copy_program(private_network.scratch("program")))
            take_all(desktop, running, home / "Websites", Path("docs/pictures").resolve())
    finally:
        desktop.close()


if __name__ == "__main__":
    os.environ["VANTORIN_PROGRAM"] = str(Path(os.environ["VANTORIN_PROGRAM"]).resolve())
    private_network.enter()
    main()
