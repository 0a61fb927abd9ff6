"""The rows that the scripts of this folder print, and the way to what they share with tests/e2e."""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests/e2e"))


def row(what, figure, beside=""):
    print(f"| {what} | {figure} | {beside} |", flush=True)
