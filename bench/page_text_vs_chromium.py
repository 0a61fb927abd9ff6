#!/usr/bin/python3
"""Compares the visible text that a tool reads from pages with headless Chromium's.

    page_text_vs_chromium.py [--saved] [--static] [--sample N] [--show N] TOOL PAGE_OR_FOLDER...

TOOL reads one file name per line and answers with a line containing the text's length, then the text and a
line end (bench/page_text_tool). Each page is first copied to an empty folder, so that neither side finds its
style sheets and scripts. --static also empties those inside the page, because the tool ignores them on
purpose. --saved makes the changes that saving makes to a page's text.

Prints the share of pages whose texts agree after folding blanks as the search extract does, the share of
words in the same order, and the pages that differ most.
"""

import argparse
import difflib
import os
import random
import re
import subprocess
import sys
import tempfile

from selenium import webdriver
from selenium.webdriver.chrome.service import Service

FLAGS = ("--headless --no-sandbox --disable-gpu --no-first-run --disable-background-networking "
         "--disable-component-update --disable-sync").split()


def start_browser():
    options = webdriver.ChromeOptions()
    for flag in FLAGS:
        options.add_argument(flag)
    options.binary_location = "/usr/bin/chromium"
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


def as_saved(page):
    """A page's text as the program saves it, except for links."""
    page = page.replace(b"\n", b"\r\n").replace(b"\r", b"\r\n")
    return page.replace(b"applet", b"").replace(b"script ", b" !-- script ") + b"\r\n"


def without_style(page):
    return re.sub(rb"(?is)(<(script|style)\b[^>]*>).*?(</\2)", rb"\1\3", page)


def fold(text):
    for line_end in ("\r\n", "\n", "\r"):
        text = text.replace(line_end, " ")
    return text.replace("  ", " ").replace("  ", " ")


def find_pages(places):
    for place in places:
        if os.path.isfile(place):
            yield place
        for folder, _, names in os.walk(place):
            for name in names:
                if name.endswith((".html", ".htm", ".txt")):
                    yield os.path.join(folder, name)


class Tool:
    def __init__(self, path):
        self.process = subprocess.Popen([path], stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def text_of(self, path):
        self.process.stdin.write(path.encode() + b"\n")
        self.process.stdin.flush()
        length = int(self.process.stdout.readline())
        return self.process.stdout.read(length + 1)[:-1].decode("utf-8")


class Comparison:
    """Sums up how much of the pages' texts is equal."""

    def __init__(self):
        self.pages = self.equal = self.words = self.same_words = 0
        self.differing = []  # (words off, page, expected, got)

    def add(self, page, expected, got):
        words, got_words = expected.split(), got.split()
        matcher = difflib.SequenceMatcher(None, words, got_words, autojunk=False)
        matched = len(words) if words == got_words else sum(
            block.size for block in matcher.get_matching_blocks())
        most_words = max(len(words), len(got_words))
        self.pages += 1
        self.equal += expected == got
        self.same_words += matched
        self.words += most_words
        if expected != got:
            self.differing.append((most_words - matched, page, expected, got))

    def show(self, count):
        """Prints the sums and the `count` pages that differ most."""
        print(f"{self.pages} pages, {self.equal} equal ({100 * self.equal / max(self.pages, 1):.2f}%), "
              f"{100 * self.same_words / max(self.words, 1):.4f}% of {self.words} words")
        for words_off, page, expected, got in sorted(self.differing, reverse=True)[:count]:
            at = next((i for i, (a, b) in enumerate(zip(expected, got)) if a != b),
                      min(len(expected), len(got)))
            print(f"{page}: {words_off} words off, first at {at}\n"
                  f"  browser: {expected[max(0, at - 30):at + 50]!r}\n"
                  f"  tool:    {got[max(0, at - 30):at + 50]!r}")


def copy_page(page, folder, arguments):
    """Copies a page in the form to be compared, and returns the copy's path."""
    with open(page, "rb") as file:
        content = file.read()
    if arguments.static:
        content = without_style(content)
    copy = os.path.join(folder, "page" + os.path.splitext(page)[1])
    with open(copy, "wb") as file:
        file.write(as_saved(content) if arguments.saved else content)
    return copy


def compare(pages, arguments):
    tool = Tool(arguments.tool)
    browser = start_browser()
    comparison = Comparison()
    with tempfile.TemporaryDirectory() as folder:
        for page in pages:
            copy = copy_page(page, folder, arguments)
            try:
                browser.get("file://" + copy)
                expected = browser.execute_script(
                    "return document.body ? document.body.innerText : ''")
            except Exception as fault:  # pylint: disable=broad-except
                print(f"{page}: the browser failed: {fault}", file=sys.stderr)
                continue
            comparison.add(page, fold(expected), fold(tool.text_of(copy)))
    browser.quit()
    return comparison


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--saved", action="store_true")
    parser.add_argument("--static", action="store_true")
    parser.add_argument("--sample", type=int, default=0)
    parser.add_argument("--show", type=int, default=5)
    parser.add_argument("tool")
    parser.add_argument("places", nargs="+")
    arguments = parser.parse_args()

    pages = sorted(set(find_pages(arguments.places)))
    if arguments.sample and arguments.sample < len(pages):
        pages = random.Random(1).sample(pages, arguments.sample)
    compare(pages, arguments).show(arguments.show)


if __name__ == "__main__":
    main()
