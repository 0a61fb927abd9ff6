"""Uses the installed package in another system's folder tree as an ordinary user: a download without a
display, and a start from the desktop's menu. packaging/debian/check prepares that system.
"""

import os
import subprocess
import sys
from pathlib import Path

from harness import private_network
from harness.desktop import MAIN, WIZARD, Desktop
from harness.program import tree, wait_until
from harness.web import ScriptedServer, links_to, page

SITE = {b"/": page(links_to(b"a.html")), b"/a.html": page(b"the end")}


def expect(condition, what):
    if not condition:
        sys.exit(f"failed: {what}")


def as_user(system, *command, **variables):
    """The command line that runs `command` as that system's user."""
    settings = {"HOME": "/home/anna", "PATH": "/usr/bin:/bin:/usr/games", "LANG": "C.UTF-8",
                **variables}
    return ["chroot", "--userspec=anna", system, "env", "-i", *(f"{key}={value}" for key, value in settings.items()),
            *command]


def download(system):
    """Downloads without a display."""
    with ScriptedServer(SITE):
        done = subprocess.run(as_user(system, "vantorin", "--site", "www.example.test",
                                      "--folder", "/home/anna/mirror"),
                              capture_output=True, text=True, timeout=60, check=False)
    expect(done.returncode == 0, done.stdout + done.stderr)
    files = tree(system / "home/anna/mirror/example.test")
    expect(set(files) == {b"index.html", b"a.html"}, files)


def start_from_menu(system):
    icons = [path.parent.parent.name for path in (system / "usr/share/icons/hicolor").glob("*/apps/vantorin.png")]
    expect({"16x16", "48x48", "256x256"} <= set(icons), icons)
    desktop = Desktop(private_network.scratch("desktop"))
    program = desktop.start(*as_user(system, "gio", "launch", "/usr/share/applications/vantorin.desktop",
                                     DISPLAY=desktop.environment["DISPLAY"]))
    try:
        desktop.await_window(WIZARD)
        desktop.press("Escape")
        desktop.await_window(MAIN)
        desktop.press("ctrl+q")
        desktop.await_window("Exit Vantorin")
        desktop.press("alt+y")
        wait_until(lambda: not desktop.run("xdotool", "search", "--name", "Vantorin"), what="its end")
    finally:
        program.wait(20)
        desktop.close()
    lists = system / "home/anna/.local/share/Vantorin/temp/filetypes.txt"
    expect(lists.exists(), "the lists lie in the user's data folder")


def main():
    system = Path(sys.argv[1])
    (system / "etc/hosts").write_text(private_network.NAMES)
    (system / "etc/resolv.conf").write_text("nameserver 127.0.0.1\n")
    version = subprocess.run(as_user(system, "vantorin", "--version"), capture_output=True, text=True, check=True)
    expect(version.stdout.startswith("Vantorin"), version.stdout)
    subprocess.run(["mount", "--bind", "/dev", system / "dev"], check=True)
    download(system)
    start_from_menu(system)


if __name__ == "__main__":
    os.umask(0o022)
    private_network.enter(private_network.WAYS_IN[-1:])
    main()
