"""A second, independent statement of how a mirror follows from a site.

Works on bytes, one file after the other, without sockets, timers or disk. The end-to-end tests
compare what the program wrote with what this model says, byte for byte.
"""

import posixpath
import re

DEFAULT_TYPES = [b".htm", b".html", b".php", b".asp", b".txt", b".gif",
                 b".jpg", b".jpeg", b".png", b".pdf", b".zip", b".css"]

# In this order: an earlier spelling may take away what a later one would have matched.
LINK_SPELLINGS = [name + rest for names, endings in (
    ((b"href",), (b" =", b" = ", b"=")),
    ((b"HREF", b"hRef", b"Href", b"hREF"), (b"=", b" = ", b" =", b"= ")),
    ((b"background", b"BACKGROUND", b"BackGround"), (b" =", b"=", b" = ", b"= ")),
) for name in names for rest in endings]
LINK_SPELLINGS += [b" " + name + rest
                   for rest in (b"=", b" =", b" = ", b"= ") for name in (b"SRC", b"src")]

HOST_ENDINGS = [b".info", b".tk", b".uk", b".au", b".mil", b".gov", b".edu", b".org", b".net", b".com"]

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
        if len(segments) > 1:  # what is left of the first "/" is never a segment
            link = link.replace(b"/" + segments[-1], b"")
        before, found, after = link.partition(b"/../")
        link = before + b"/" + after if found else link
    return link


def links_of(response, base):
    """The absolute links of a page, in the order in which they are met."""
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
    """Whether what follows the last dot, a query included, is one of the types."""
    lowered = link.lower()
    return b".php?" in lowered or lowered[max(lowered.rfind(b"."), 0):] in DEFAULT_TYPES


def without_scheme(link):
    return trim(link)[7:] if trim(link).lower().startswith(b"http://") else link


class SiteModel:
    """Crawls with one connection. `receive(host, path)` gives what a server answers, header and all.

    Afterwards `files` holds path -> bytes relative to the target folder, with "/" between folders,
    `queued` the addresses in log.txt, `resolved` the pairs in transdd.txt, both in their order, and
    `original` path -> received bytes.
    """

    def __init__(self, start, receive):
        self.receive = receive
        self.host = re.split(rb"[#'>}? /\\]", start, maxsplit=1)[0]
        self.site_host = self.host.replace(b"www.", b"")
        self.files, self.original = {}, {}
        self.queued, self.resolved = [], []
        self.placeholders, self.queue = set(), []
        self.fetch(start)
        while self.queue:
            self.fetch(self.queue.pop())

    def fetch(self, address):
        address = without_scheme(trim(address)).replace(b"\\", b"/").replace(b".jpeg", b".jpg")
        host, slash, rest = address.partition(b"/")
        path = (slash + rest)[:999] or b"/"
        path = path if b"." in path else path + b"/"
        path = path.replace(b"/index.html", b"/")
        response = self.receive(host, path.replace(b"//", b"/"))
        saved = self.save(response, host, path)
        self.original[saved] = response
        base = address[:address.rindex(b"/") + 1] if b"/" in address else address
        for link in links_of(response, base):
            self.admit(link)

    def admit(self, link):
        link = without_scheme(link)
        if self.site_host.lower() not in link.lower():
            return
        link = trim(trim(link.replace(b"http:\\", b"http://")).replace(b"\\", b"/"))
        link += b"index.html" if link.endswith(b"/") else b""
        local = clean_link_name(trim(without_scheme(link).replace(b"www.", b"")))
        local = posixpath.normpath(local)
        if local + b".html" in self.files or local in self.files or local in self.placeholders:
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
        self.queue.append(link)
        self.queued.append(link)
        self.placeholders.add(local)

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
        self.files[posixpath.normpath(local)] = self.rewritten(text, host, local) + b"\r\n"
        self.placeholders.discard(posixpath.normpath(before_rename))
        return posixpath.normpath(local)

    def rewritten(self, text, host, local):
        for mark in (b".php", b".asp"):
            for end in (b"'", b'"', b">"):
                text = text.replace(mark + end, mark + b".html" + end)
        text = text.replace(b".php?", b".php_").replace(b".PHP?", b".PHP_")
        if b"/" not in local.partition(self.site_host + b"/")[2][1:]:
            for blanks in (b"=", b" =", b" = ", b"= "):
                text = text.replace(b"href" + blanks + b'"../', b"href" + blanks + b'"')
            for blanks, put in ((b"=", b"="), (b" =", b" ="), (b" = ", b" = "), (b"= ", b" =")):
                text = text.replace(b"href" + blanks + b"'../", b"href" + put + b'"')
        own = b"http://" + host.replace(b"www.", b"") + b"/"
        text = text.replace(own, b"").replace(own.replace(b"http://", b"http://www."), b"")
        return text.replace(b"applet", b"").replace(b"script ", b" !-- script ")
