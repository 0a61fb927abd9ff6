"""Links that lead out of the folder, under Linux's or Windows' reading of a name."""

import os
import unittest

from harness import private_network
from tests.e2e import faults_test
from harness.program import tree
from harness.web import ScriptedServer, links_to, page
from wine import COMMAND, DRIVE_C, Wine, crawl_arguments

WINDOWS_CLIMBS = [b"c:", b"c:/", b"c:\\Mirror\\..\\", b"\\\\localhost\\c$\\", b"\\\\?\\c:\\", b"\\\\.\\c:\\",
                  b".. /.. /", b".../.../", b". ./", b".*. /.*. /", b"..:/..:/", b"a:b/", b"x:$DATA/",
                  b"con/../../", b"nul\\..\\..\\", b"MIRROR~1/../../", b"..%5c..%5c",
                  b".*.\\.*.\\.*.\\", b"aux.*./.*./.*./"]
FILES = [b"con", b"NUL.html", b"com1.html", b"prn.txt.html", b"stream.html:hidden.html", b"canary.html::$DATA",
         b"index.html:x.html", b"index.html.", b"index.html ", b"PHYSICALDRIVE0", b"pipe\\x.html", b"log.txt:x.html"]
ESCAPES = [*faults_test.ESCAPES, *(folder + b"escape-%d.html" % i for i, folder in enumerate(WINDOWS_CLIMBS)), *FILES]


class HostileCheck(unittest.TestCase):
    def test_nothing_is_written_outside_the_folder(self):
        home = private_network.scratch("hostile")
        wine = self.enterContext(Wine(home))
        (DRIVE_C / "canary").mkdir()
        (DRIVE_C / "canary/kept.txt").write_text("as it was")
        wine.run(COMMAND, "--version")  # creates what Windows makes at a first start
        before = outside()
        links = [*ESCAPES, b".*./.*./canary/kept.txt", b".*./.*./Vantorin/filters.txt"]
        answers = {path: page(links_to(*links, b"/a/b/c/deep.html")) for path in (b"/", b"/a/b/c/deep.html")}
        answers |= {b"/" + link: page(b"harm") for link in links}
        with ScriptedServer(answers) as server:
            arguments = crawl_arguments("www.example.test", "C:\\Mirror", "--connections", "24", "--timeout", "1")
            output, status = wine.run(COMMAND, *arguments, seconds=300)
            self.assertEqual(status, 3, output)  # most names are invalid on Windows
        self.assertEqual(outside(), before)
        late = {b"/" + link for link in faults_test.ESCAPES[len(faults_test.CLIMBS):]}
        self.assertEqual(late - set(server.paths()), set(), "each was tried")
        print(f"{len(links)} hostile links, {len(server.requests)} requests, "
              f"{len(tree(DRIVE_C / 'Mirror'))} files, all of them in the folder", flush=True)


def outside():
    """Everything outside the mirror: the user's and the programs' files with their contents, and suspicious
    names in the root folders.
    """
    kept = ("Mirror", "windows", "users")
    files = {path: data for path, data in tree(DRIVE_C).items()
             if os.fsdecode(path).split("/")[0] not in kept and not path.startswith(b"Vantorin/temp/")}
    roots = [sorted(name for name in os.listdir(root) if "escape" in name or name in ("example.test", "harm"))
             for root in ("/", "/tmp", DRIVE_C.parent, DRIVE_C, DRIVE_C / "windows", DRIVE_C / "windows/system32")]
    return files, roots
