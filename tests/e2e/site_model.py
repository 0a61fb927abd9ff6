"""A second, independent implementation of the rules that make a mirror from a site.

It works on bytes, one file after the other, without sockets, timers or disk. The end-to-end tests
compare its results with the program's files, byte for byte.
"""

import posixpath
import re

DEFAULT_TYPES = [b".htm", b".html", b".php", b".asp", b".txt", b".gif",
                 b".jpg", b".jpeg", b".png", b".pdf", b".zip", b".css"]

# The order matters: an earlier spelling may consume what a later one would match.
LINK_SPELLINGS = [name + rest for names, endings in (
    ((b"href",), (b" =", b" = ", b"=")),
    ((b"HREF", b"hRef", b"Href", b"hREF"), (b"=", b" = ", b" =", b"= ")),
    ((b"background", b"BACKGROUND", b"BackGround"), (b" =", b"=", b" = ", b"= ")),
) for name in names for rest in endings]
LINK_SPELLINGS += [b" " + name + rest
                   for rest in (b"=", b" =", b" = ", b"= ") for name in (b"SRC", b"src")]

HOST_ENDINGS = [b".info", b".tk", b".uk", b".au", b".mil", b".gov", b".edu", b".org", b".net", b".com"]

PLACEHOLDER = b".tmp"

TEXT_MARKS = (b".htm", b".php", b".shtm", b".asp", b".txt")


def trim(text):
    return text.strip(b" ")


def clean_link_name(name):
    for find, put in ((b"*", b""), (b">", b"_"), (b"<", b"_"), (b"{", b""), (b"}", b""), (b"?", b"_"),
                      (b"!", b"_"), (b"&", b"_"), (b"|", b""), (b"__", b"_"), (b"__", b"_"), (b"__", b"_")):
        name = name.replace(find, put)
    return name


def resolve_dot_dot(link):
    while b"/../" in link:
        segments = link[:link.index(b"/../")].split(b"/")
        if len(segments) > 1:  # what precedes the first "/" is never a segment
            link = link.replace(b"/" + segments[-1], b"")
        before, found, after = link.partition(b"/../")
        link = before + b"/" + after if found else link
    return link


def links_of(response, base):
    """The absolute links of a page, in their order."""
    text = response
    for spelling in LINK_SPELLINGS:
        text = text.replace(spelling, b"href=")
    text = text.replace(b'"', b"'").replace(b"\r\n", b"").replace(b"\n", b"").replace(b"\r", b"")
    for refresh in (b"; url=", b";url=", b"; URL=", b";URL="):
        text = text.replace(refresh, b"a href='http://")
    base = base if base.endswith(b"/") else base + b"/"
    at = text.find(b"href")
    while at >= 0:
        link = trim(text[at + 5:at + 305])
        link = link[1:] if link.startswith(b"'") else link
        at = text.find(b"href", at + 10)
        if link.startswith(b"#"):
            continue
        link = trim(re.split(rb"[#'>} ;]", link, maxsplit=1)[0])
        if any(mark in link for mark in (b"https", b"irc:", b"ftp:", b"@")):
            continue
        link = link.replace(b"\\", b"/")
        link = link if link.startswith(b"http://") else base + link
        for letter in (b"m", b"t", b"g"):
            link = link.replace(letter + b"//", letter + b"/")
        link = link[:7] + trim(link[7:]).replace(b"//", b"/")
        yield link.replace(b"http://http://", b"http://")


def is_wanted(link):
    """Whether the text from the last dot on, including a query, is one of the types."""
    lowered = link.lower()
    return b".php?" in lowered or lowered[max(lowered.rfind(b"."), 0):] in DEFAULT_TYPES


def without_scheme(link):
    return trim(link)[7:] if trim(link).lower().startswith(b"http://") else link


class Unanswered(Exception):
    """No server answers a request for `address`, so a crawl with it cannot end well."""

    def __init__(self, address):
        super().__init__(address)
        self.address = address


class SiteModel:
    """A crawl with one connection. `receive(host, path)` returns a server's answer with its header, or
    None if there is no answer; then `Unanswered` is raised. An address that contains one of the words in
    `filters` is not fetched, unless it is the first.

    Afterwards, `files` maps paths relative to the target folder, with "/" between folders, to bytes;
    `queued` has the addresses in log.txt and `resolved` the pairs in transdd.txt, in their order;
    `original` maps paths to the received bytes.
    """

    def __init__(self, start, receive, filters=()):
        self.receive, self.filters = receive, filters
        self.host = re.split(rb"[#'>}? /\\]", start, maxsplit=1)[0]
        self.site_host = self.host.replace(b"www.", b"")
        self.files, self.original = {}, {}
        self.queued, self.resolved = [], []
        self.placeholders, self.unwritten, self.queue = set(), set(), []
        self.folders = {b"."}
        self.fetch(start)
        while self.queue:
            self.fetch(self.queue.pop())

    def fetch(self, queued):
        address = without_scheme(trim(queued)).replace(b"\\", b"/").replace(b".jpeg", b".jpg")
        host, slash, rest = address.partition(b"/")
        path = (slash + rest)[:999] or b"/"
        path = path if b"." in path else path + b"/"
        path = path.replace(b"/index.html", b"/")
        response = self.receive(host, path.replace(b"//", b"/"))
        if response is None:
            raise Unanswered(queued)
        if trim(response).lower() != b"cancel":
            self.original[self.save(response, host, path)] = response
        base = address[:address.rindex(b"/") + 1] if b"/" in address else address
        for link in links_of(response, base):
            self.admit(link)

    def admit(self, link):
        link = without_scheme(link)
        if self.site_host.lower() not in link.lower():
            return
        link = trim(trim(link.replace(b"http:\\", b"http://")).replace(b"\\", b"/"))
        link += b"index.html" if link.endswith(b"/") else b""
        as_named = clean_link_name(trim(without_scheme(link).replace(b"www.", b""))).replace(b"www.", b"")
        local = posixpath.normpath(as_named)
        if any(self.is_known(local + end) for end in (b".html", b"", PLACEHOLDER)):
            return
        if not is_wanted(link):
            return
        link = link[:-1] if link.endswith(b"?") else link
        if any(ending + b"/.." in link for ending in HOST_ENDINGS):
            return
        if b"/../" in link:
            found, link = link, resolve_dot_dot(link)
            self.resolved.append((found, link))
        link = link.replace(b"/./", b"/").replace(b"http://", b"http:/").replace(b"http:/", b"http://")
        if any(word.lower() in link.lower() for word in self.filters):
            return
        self.queue.append(link)
        self.queued.append(link)
        self.make_folders(as_named)
        if self.is_written(local + PLACEHOLDER):
            self.placeholders.add(local + PLACEHOLDER)

    def save(self, response, host, path):
        address = clean_link_name(host + path)
        found = response.find(b"\r\n\r\n")
        text = response[found + 4:] if found >= 0 else response[3:]
        local = trim(address).replace(b"www.", b"").replace(b"//", b"/")
        local += b"index.html" if local.endswith(b"/") else b""
        local = local.replace(b"/.html", b"/index.html")
        if any(mark in local for mark in TEXT_MARKS):
            text = text.replace(b"\n", b"\r\n").replace(b"\r", b"\r\n")
        before_rename = local
        for mark in (b".php", b".asp"):
            local += b".html" if mark in local and b".html" not in local else b""
        local = local.replace(b"//", b"/")
        self.make_folders(local)
        saved = posixpath.normpath(local)
        own_folder = address.partition(b"/")[0].replace(b"www.", b"") + b"/"
        if self.is_written(saved, own_folder):
            self.files[saved] = self.rewritten(text, host, local) + b"\r\n"
        self.placeholders.discard(posixpath.normpath(before_rename) + PLACEHOLDER)
        return saved

    def is_known(self, path):
        return path in self.files or path in self.placeholders or path in self.unwritten

    def make_folders(self, path):
        """Creates each folder on the path of a file, including those that the path leaves again."""
        for end in (at for at, letter in enumerate(path) if letter == ord("/")):
            folder = posixpath.normpath(path[:end])
            if self.can_write(folder) and folder not in self.files and folder not in self.placeholders:
                self.folders.add(folder)

    def is_written(self, path, own_folder=b""):
        """Whether a write succeeds. A file that failed counts as known from then on."""
        written = path.startswith(own_folder) and self.can_write(path)
        if not written:
            self.unwritten.add(path)
        return written

    def can_write(self, path):
        folder, name = posixpath.split(path)
        return path not in self.folders and len(name) <= 255 and (folder or b".") in self.folders

    def left_placeholders(self):
        """Those in the target folder itself. A crawl clears only the folders that it created."""
        line = b"This file is queued to be downloaded, or did not download correctly.\r\n"
        return {path: line for path in self.placeholders if b"/" not in path}

    def rewritten(self, text, host, local):
        for mark in (b".php", b".asp"):
            for end in (b"'", b'"', b">"):
                text = text.replace(mark + end, mark + b".html" + end)
        text = text.replace(b".php?", b".php_").replace(b".PHP?", b".PHP_")
        _, found, after = local.lower().partition(self.site_host.lower() + b"/")
        if found and b"/" not in after[1:]:
            for blanks in (b"=", b" =", b" = ", b"= "):
                text = text.replace(b"href" + blanks + b'"../', b"href" + blanks + b'"')
            for blanks, put in ((b"=", b"="), (b" =", b" ="), (b" = ", b" = "), (b"= ", b" =")):
                text = text.replace(b"href" + blanks + b"'../", b"href" + put + b'"')
        own = b"http://" + host.replace(b"www.", b"") + b"/"
        text = text.replace(own, b"").replace(own.replace(b"http://", b"http://www."), b"")
        return text.replace(b"applet", b"").replace(b"script ", b" !-- script ")
