"""Takes the pictures in docs/pictures from the real program: its window during a crawl, and each dialog.

Run by scripts/take_pictures, which builds the program and installs the site shown.
"""

import contextlib
import os
import re
import signal
import subprocess
from pathlib import Path

from harness import private_network, web
from harness.desktop import MAIN, WIZARD, Desktop
from harness.program import copy_program, wait_until

SITE = "www.example.test"
ROOT = "/usr/share/doc/python-flask-doc/html"
UNKNOWN = "www.exmple.org"
# It has so many pages that it takes a moment to delete their placeholders.
ENDLESS = "www.second.test"
PAGES = [f"{i // 100}/{i}.html" for i in range(4000)]
LONG_PAGE = b"word " * 100_000
PLACEHOLDER = "This file is queued to be downloaded, or did not download correctly."


class Photographer:
    def __init__(self, desktop, folder):
        self.desktop = desktop
        self.folder = folder

    def take(self, title, name):
        """Takes a picture of the window with that title, including its frame, once it has the keyboard."""
        self.desktop.await_window(title)
        self.desktop.run("xdotool", "mousemove", "0", "0", "sleep", "0.5")  # wait for painting, and avoid tooltips
        self.take_now(name, "-frame", "-window", self.desktop.run("xdotool", "getwindowfocus"))

    def take_with_menu(self, name):
        """Takes a picture of the window that has the keyboard, with the menu that it has opened."""
        said = self.desktop.run("xdotool", "sleep", "0.5", "getwindowfocus", "getwindowgeometry", "--shell")
        place = dict(re.findall(r"(\w+)=(\d+)", said))
        self.take_now(name, "-window", "root", "-crop", "{WIDTH}x{HEIGHT}+{X}+{Y}".format(**place), "+repage")

    def take_now(self, name, *what):
        self.desktop.run("import", *what, "+dither", "-colors", "96", "-strip", f"PNG8:{self.folder}/{name}.png")


@contextlib.contextmanager
def serve(limits=""):
    """Serves the sites in the pictures, with a name server that knows no other."""
    endless = private_network.scratch("endless")
    (endless / "index.html").write_bytes(web.links_to(*(name.encode() for name in PAGES)))
    (endless / "long.html").write_bytes(LONG_PAGE)  # the queue stays long while this is fetched
    for name in PAGES:
        (endless / name).parent.mkdir(exist_ok=True)
        (endless / name).symlink_to(endless / "long.html")
    with (web.nginx(private_network.scratch("nginx"), {SITE: ROOT, ENDLESS: endless}, limits),
          private_network.name_server_without_names()):
        yield


def take_all(desktop, running, websites, pictures):
    """Takes a picture of every window of the program, which has just been started for the first time, and
    ends the program. Saves the site in the folder `websites`.
    """
    picture = Photographer(desktop, pictures)
    copy = websites / "example.test"
    take_wizard(picture)
    take_crawl(picture, copy)
    take_finished_crawl(picture)
    take_unfinished_copy(picture, copy)
    take_exit(picture, running, websites / "second.test")
    running.wait(60)


def take_wizard(picture):
    """Takes the wizard and the dialogs that it opens, and starts the crawl."""
    desktop, press, take = picture.desktop, picture.desktop.press, picture.take
    desktop.await_window(WIZARD)
    desktop.type(f"https://{SITE}")
    take(WIZARD, "hint")
    press("alt+u")  # the address that was meant
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


def take_crawl(picture, copy):
    """Takes the main window while it saves a site in the folder `copy`, and asks to stop it."""
    desktop, press, take = picture.desktop, picture.desktop.press, picture.take
    desktop.await_window(MAIN)
    wait_until(lambda: len(list(copy.glob("**/*.html"))) > 5, what="the first files")
    press("Home", "Menu")
    picture.take_with_menu("menu")
    press("Escape", *["Tab"] * 7)  # from the queue
    desktop.type("12")  # connections
    wait_until(lambda: len(list(copy.glob("**/*.html"))) > 30, what="some files")
    take(MAIN, "window")
    press("alt+s", "Return")
    take("Paused", "pause")
    press("Return")
    desktop.await_window(MAIN)
    press(*["shift+Tab"] * 5, "space")
    take("Stop Download", "stop")
    press("alt+n")


def take_finished_crawl(picture):
    """Takes what the program says at the end of the crawl, and the dialogs about its result."""
    desktop, press, take = picture.desktop, picture.desktop.press, picture.take
    desktop.await_window("Done.", 180)  # the longest page takes most of a minute
    take("Done.", "done")
    press("alt+n")
    desktop.await_window(MAIN)
    press("ctrl+f")
    desktop.await_window("Search the Copy")
    desktop.type("request context")
    take("Search the Copy", "search")
    press("Escape")
    desktop.await_window(MAIN)
    press("ctrl+r")
    take("Report", "report")
    press("Escape")
    desktop.await_window(MAIN)
    press("alt+h", "a")
    take("About", "about")
    press("Return")
    desktop.await_window(MAIN)


def take_unfinished_copy(picture, copy):
    """Takes the wizard over a copy with a placeholder, and the end of a crawl whose server is unknown."""
    desktop, press, take = picture.desktop, picture.desktop.press, picture.take
    (copy / "late.html.tmp").write_text(PLACEHOLDER)
    press("ctrl+n")
    take(WIZARD, "copy")
    press("ctrl+a")
    desktop.type(UNKNOWN)
    press("Return")
    desktop.await_window("Done.")
    press("alt+n")
    take(MAIN, "lost")


def take_exit(picture, running, copy):
    """Takes the end of the program during a crawl that has saved many placeholders in the folder `copy`."""
    desktop, press = picture.desktop, picture.desktop.press
    press("ctrl+n")
    desktop.await_window(WIZARD)
    press("ctrl+a")
    desktop.type(ENDLESS)
    press("Return")
    desktop.await_window(MAIN)
    wait_until((copy / f"{PAGES[-100]}.tmp").exists, 300, "most placeholders")
    press("alt+f", "e")
    picture.take("Exit Vantorin", "exit")
    take_clean_up(picture, running, copy)


def take_clean_up(picture, running, folder):
    """Answers Yes, and halts the program for the picture while it deletes its placeholders."""
    def placeholders():
        return sum(name.endswith(".tmp") for _, _, names in os.walk(folder) for name in names)

    desktop = picture.desktop
    window = desktop.run("xdotool", "search", "--name", f"^{MAIN}$").split()[-1]
    few = placeholders() - 1000
    desktop.press("alt+y")
    while placeholders() > few and running.poll() is None:
        pass
    running.send_signal(signal.SIGSTOP)
    picture.take_now("cleaning_up", "-frame", "-window", window)
    running.send_signal(signal.SIGCONT)


def main():
    # A user with a short name, visible only in this namespace.
    subprocess.run(["mount", "-t", "tmpfs", "none", "/mnt"], check=True)
    home = Path("/mnt/anna")
    for name in ("Documents", "Music", "Pictures", "Websites"):
        (home / name).mkdir(parents=True)
    desktop = Desktop(home)
    try:
        with serve("limit_rate 20k;"):
            running = desktop.start(copy_program(private_network.scratch("program")))
            take_all(desktop, running, home / "Websites", Path("docs/pictures").resolve())
    finally:
        desktop.close()


if __name__ == "__main__":
    os.environ["VANTORIN_PROGRAM"] = str(Path(os.environ["VANTORIN_PROGRAM"]).resolve())
    private_network.enter()
    main()
