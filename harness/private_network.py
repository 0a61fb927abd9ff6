"""Runs a test in a private network, where it may serve port 80 and invent host names.

`enter` restarts the running script inside new user, mount, network and process namespaces. There it is root,
whoever started it. Only the loopback device exists, and any process left running ends with the script. If the
machine forbids this, the test counts as skipped.
"""

import atexit
import contextlib
import itertools
import os
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import uuid
from pathlib import Path

SKIPPED = 77  # the exit status that CTest reports as "skipped"
INSIDE = "VANTORIN_TEST_NETWORK"

# The last one needs root and keeps the system's other users.
WAYS_IN = [
    ["unshare", "--map-root-user", "--net", "--mount", "--pid", "--fork", "--kill-child", "--mount-proc"],
    ["unshare", "--map-root-user", "--net", "--mount", "--pid", "--fork", "--kill-child"],
    ["unshare", "--net", "--mount", "--pid", "--fork", "--kill-child", "--mount-proc"],
]

NAMES = """\
127.0.0.1 localhost www.example.test example.test www.second.test www.third.test other.test
127.0.0.9 refused.example.test
"""


def skip(reason):
    print(f"skipped: {reason}", flush=True)
    sys.exit(SKIPPED)


def enter(ways=tuple(WAYS_IN), needs=()):
    """Returns inside the private network, in a new process of the script. If a file or folder in `needs` is
    missing, the test counts as skipped, because "./test" installs packages only on Debian.
    """
    for path in needs:
        if not Path(path).exists():
            skip(f"{path} does not exist")
    if INSIDE in os.environ:
        folder = Path(os.environ[INSIDE])
        atexit.register(shutil.rmtree, folder, ignore_errors=True)
        prepare(folder)
        return
    reason = ""
    for way in ways:
        trial = subprocess.run([*way, "sh", "-c", "ip link set lo up && mount --bind /etc/passwd /etc/passwd"],
                               stderr=subprocess.PIPE, text=True, check=False)
        if trial.returncode == 0:
            # Not mkdtemp: its names may contain "__", which the program shortens in a folder's name.
            folder = Path(tempfile.gettempdir(), f"vantorin-e2e-{uuid.uuid4().hex}")
            folder.mkdir(mode=0o700)
            os.environ[INSIDE] = str(folder)
            os.execvp(way[0], [*way, *sys.orig_argv])
        reason = trial.stderr.strip()
    if "propagation" in reason:
        reason += " (the root of this chroot must be a mount point; bind it to itself first)"
    skip(f"cannot create a private network: {reason}")


def prepare(folder):
    """Starts the loopback device and defines the host names above, without a name server for others."""
    files = {"/etc/hosts": NAMES,
             "/etc/nsswitch.conf": "passwd: files\ngroup: files\nhosts: files dns\n",
             "/etc/resolv.conf": "nameserver 127.0.0.1\noptions timeout:1 attempts:1\n"}
    if not Path("/etc/hosts").exists():
        # A minimal system may lack it. The test then gets a copy of /etc that has it.
        shutil.copytree("/etc", folder / "etc", symlinks=True)
        (folder / "etc/hosts").touch()
        subprocess.run(["mount", "--bind", folder / "etc", "/etc"], check=True)
    for path, text in files.items():
        ours = folder / Path(path).name
        ours.write_text(text)
        if Path(path).exists():
            subprocess.run(["mount", "--bind", ours, os.path.realpath(path)], check=True)
    subprocess.run(["ip", "link", "set", "lo", "up"], check=True)


@contextlib.contextmanager
def name_server_without_names():
    """A name server that answers that no name exists."""
    end = b"end"

    def serve():
        question, client = server.recvfrom(512)
        while question != end:
            server.sendto(question[:2] + b"\x81\x83" + question[4:], client)
            question, client = server.recvfrom(512)

    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as server:
        server.bind(("127.0.0.1", 53))
        serving = threading.Thread(target=serve)
        serving.start()
        try:
            yield
        finally:
            server.sendto(end, server.getsockname())
            serving.join()


def scratch(name, numbers=itertools.count(1)):
    """A new folder for the running test, deleted when the test ends."""
    path = Path(os.environ[INSIDE], f"{next(numbers)}-{name}")
    path.mkdir()
    return path
