"""Runs the real program unattended from its own copy, and reads what it left on disk."""

import os
import shutil
import subprocess
import time
from pathlib import Path


def copy_program(folder):
    """Makes a portable copy, which keeps its lists beside its executable."""
    folder.mkdir(parents=True, exist_ok=True)
    return Path(shutil.copy(os.environ["VANTORIN_PROGRAM"], folder))


def environment(home, **more):
    """The environment of a new user without a display."""
    runtime = home / "runtime"
    runtime.mkdir(mode=0o700, parents=True, exist_ok=True)
    kept = {key: os.environ[key] for key in ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS") if key in os.environ}
    return kept | {"HOME": str(home), "XDG_RUNTIME_DIR": str(runtime), "LANG": "C.UTF-8"} | more


class Crawl:
    """One unattended crawl, started by the constructor. `under` is a command to run it under."""

    def __init__(self, program, site, folder, *arguments, under=(), output=None, before=None, **variables):
        """`output` replaces the file that `output()` reads. `before` is called in the new process.
        `variables` are added to its environment.
        """
        self.folder = Path(folder)
        self.output_file = program.parent / f"output-{time.monotonic_ns()}.txt"
        self.peak = 0
        with self.output_file.open("wb") as file:
            self.process = subprocess.Popen(
                [*under, program, "--site", site, "--folder", folder, *map(str, arguments)],
                env=environment(program.parent.parent / "home", **variables), preexec_fn=before,
                stdin=subprocess.DEVNULL, stdout=output or file, stderr=subprocess.STDOUT)

    def wait(self, seconds=120, most_memory=4 << 30):
        """Returns the exit status. A crawl that takes too much time or memory is killed, and the status is
        None.

        Stores the most memory that it held, in bytes, in `peak`.
        """
        deadline = time.monotonic() + seconds
        while self.process.poll() is None:
            self.peak = max(self.peak, self.memory("VmHWM:"))
            if time.monotonic() > deadline or self.peak > most_memory:
                self.process.kill()
                self.process.wait()
                return None
            time.sleep(0.02)
        return self.process.returncode

    def output(self):
        return self.output_file.read_text(errors="replace")

    def memory(self, kind):
        """A figure of the running program's memory in bytes, as the system reports it; 0 after its end."""
        try:
            status = Path(f"/proc/{self.process.pid}/status").read_text()
        except OSError:
            return 0
        lines = [line for line in status.splitlines() if line.startswith(kind)]
        return int(lines[0].split()[1]) * 1024 if lines else 0


def tree(folder):
    """Maps the relative path of every file below a folder, as bytes, to the file's contents."""
    folder = os.fsencode(folder)
    return {os.path.relpath(os.path.join(parent, name), folder): read(os.path.join(parent, name))
            for parent, _, names in os.walk(folder) for name in names}


def read(path):
    with open(path, "rb") as file:
        return file.read()


def wait_until(condition, seconds=60, what="the awaited state"):
    """Waits for the first true value of `condition()` and returns it."""
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        value = condition()
        if value:
            return value
        time.sleep(0.05)
    raise TimeoutError(f"{what} did not come within {seconds} s")
