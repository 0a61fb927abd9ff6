"""How the program copes with huge and hostile servers, hosts and shells.

    VANTORIN_PROGRAM=build/release/cli/vantorin /usr/bin/python3 -m bench.hostile_runs [PART-OF-A-NAME ...]

Prints a table with one row per case: what was done, whether the program behaved as it should, and what was
seen. Takes about ten minutes and 2 GB of disk in $TMPDIR. Smaller forms of these cases run in tests/e2e.
"""

import contextlib
import os
import socket
import subprocess
import sys
import time
from pathlib import Path

from bench.watched_crawl import COMPLETE, HOST, ONE_MB, SITE, WatchedCrawl
from harness import private_network
from harness.program import copy_program, environment, tree
from harness.web import ScriptedServer, links_to, page, silent, site_of


@contextlib.contextmanager
def silent_name_server():
    """A name server that never answers, and that is not given up soon."""
    settings = Path("/etc/resolv.conf")
    before = settings.read_text()
    settings.write_text("nameserver 127.0.0.1\n")
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as server:
        server.bind(("127.0.0.1", 53))
        yield
    settings.write_text(before)


def good_pages(count):
    return {b"/good%d.html" % i: page(b"good %d" % i) for i in range(count)}


def count_good(crawl, count):
    return sum(crawl.saved(f"good{i}.html") == b"good %d\r\n" % i for i in range(count))


# Each function below runs one row of the table at the end. It returns whether the program behaved as it should, and
# what was seen.

# --- Memory ---------------------------------------------------------------------------------------

PART = bytes(range(256)) * 4096


def send_large(megabytes):
    def send(connection, _):
        connection.sendall(b"HTTP/1.0 200 OK\r\nContent-Length: %d\r\n\r\n" % (megabytes * ONE_MB))
        for _ in range(megabytes):
            connection.sendall(PART)
    return send


def is_whole(path, megabytes):
    if not path.is_file() or path.stat().st_size != megabytes * ONE_MB + 2:
        return False
    with path.open("rb") as file:
        return all(file.read(ONE_MB) == PART for _ in range(megabytes)) and file.read() == b"\r\n"


def large_file(megabytes, timeout, busy_seconds):
    def busy(connection, ending):
        connection.sendall(b"HTTP/1.0 200 OK\r\n\r\n")
        for _ in range(busy_seconds):
            connection.sendall(b"busy ")
            ending.wait(1)

    answers = {b"/large.zip": send_large(megabytes), b"/busy.html": busy}
    with ScriptedServer(site_of(answers)) as server:
        crawl = WatchedCrawl("--timeout", timeout)
        status = crawl.wait(400)
    path = crawl.mirror / HOST / "large.zip"
    size = path.stat().st_size / 1e6 if path.exists() else 0
    whole = is_whole(path, megabytes) and crawl.saved("busy.html") == b"busy " * busy_seconds + b"\r\n"
    path.unlink(missing_ok=True)
    return status in COMPLETE and whole, (f"{'whole' if whole else 'NOT WHOLE'}, {size:.0f} MB on disk, "
                                   f"asked for {server.paths().count(b'/large.zip')} times; {crawl.figures()}")


def endless_answers():
    def endless(connection, ending):
        connection.sendall(b"HTTP/1.0 200 OK\r\n\r\n")
        while not ending.is_set():
            connection.sendall(PART)

    good = good_pages(200)
    answers = good | {b"/endless%d.zip" % i: endless for i in range(4)}
    with ScriptedServer(site_of(answers)):
        crawl = WatchedCrawl("--connections", 24, "--timeout", 5)
        status = crawl.wait(300)
    found = count_good(crawl, 200)
    left = [i for i in range(4) if crawl.saved(f"endless{i}.zip") is not None]
    well = status in COMPLETE and found == 200 and not left and crawl.peak < 3.3e9
    return well, f"{found} of 200 pages, {len(left)} cut files; {crawl.figures()}"


def refused_memory():
    good = good_pages(50)
    answers = good | {b"/large.zip": send_large(300)}
    with ScriptedServer(site_of(answers)):
        crawl = WatchedCrawl("--timeout", 3, under=["prlimit", "--as=600000000"])
        status = crawl.wait(120)
    found = count_good(crawl, 50)
    large = crawl.saved("large.zip")
    well = status in COMPLETE and found == 50 and (large is None or len(large) == 300 * ONE_MB + 2)
    return well, f"{found} of 50 pages, the large file {'saved' if large else 'given up'}; {crawl.figures()}"


# --- Many links -----------------------------------------------------------------------------------

def many_links():
    pages = [b"page%d.html" % i for i in range(300)]
    body = page(links_to(*(pages * 67)[:20_000]))
    with ScriptedServer({b"/": body} | {b"/" + name: body for name in pages}) as server:
        crawl = WatchedCrawl("--connections", 24, "--timeout", 3)
        status = crawl.wait(900)
    found = sum(crawl.saved(name.decode()) is not None for name in pages)
    well = status in COMPLETE and found == 300 and len(server.requests) <= 331
    return well, f"{found} of 300 files, {len(server.requests)} requests; {crawl.figures()}"


def growing_addresses(length):
    class Everywhere(dict):
        def get(self, path, _=None):
            times.append(time.monotonic())
            return page(links_to(b"d" * length + b"/"))

    times = []
    with ScriptedServer(Everywhere()):
        crawl = WatchedCrawl()
        status = crawl.wait(150)
    subprocess.run(["rm", "-r", crawl.mirror], check=True)  # too deep for Python's own
    tenth = max(1, len(times) // 10)
    first, last = (part[-1] - part[0] for part in (times[:tenth + 1], times[-tenth - 1:]))
    return status in COMPLETE, (f"{len(times)} pages, the first tenth in {first:.1f} s, the last in {last:.1f} s; "
                         f"{crawl.figures()}")


# --- Files ----------------------------------------------------------------------------------------

def users_files():
    scratch = private_network.scratch("users")
    answers = {}
    for kind, answer in ((b"told", page(b"harm")), (b"silent", silent)):
        for name in (b".%src", b"%s.html", b"%s.tmp", b"other.test/%s.html", b"other.test/%s.tmp"):
            path = scratch / "mirror" / os.fsdecode(name % kind)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text("mine")
            answers[b"/x.php?.html/.*./.*./" + (name % kind).removesuffix(b".tmp")] = answer
    mine = tree(scratch / "mirror")
    links = [path[1:] + b"?" for path in answers]  # the "?" keeps them from counting as known
    with ScriptedServer({b"/": page(links_to(*links)), **answers}):
        crawl = WatchedCrawl("--timeout", 1, "--connections", 24, scratch=scratch)
        status = crawl.wait(120)
    left = tree(crawl.mirror)
    harmed = [path for path in mine if left.get(path) != mine[path]]
    return status in COMPLETE and not harmed, (f"{len(harmed)} of {len(mine)} replaced, deleted or added to; "
                                        f"{crawl.figures()}")


def looks_outside():
    folder = private_network.scratch("outside")
    (folder / "there.html").write_text("a user's")
    climbs = [b"../" * i for i in range(1, 5)] + [b"a/" + b"../" * i for i in range(2, 6)]
    climbs += [climb.replace(b"../", b".*./") for climb in climbs]
    climbs += [b".*./" * 20 + os.fsencode(folder)[1:] + b"/"]
    links = [climb + name for climb in climbs for name in (b"there.html", b"missing.html")]
    with ScriptedServer({b"/": page(links_to(*links))}) as server:
        crawl = WatchedCrawl("--timeout", 1, scratch=folder)
        status = crawl.wait(120)
    there, missing = (sorted(path.removesuffix(name) for path in server.paths() if path.endswith(name))
                      for name in (b"there.html", b"missing.html"))
    return status in COMPLETE and there == missing, (f"{len(missing)} missing ones asked for, "
                                              f"{len(there)} that are there; {crawl.figures()}")


def file_named_like_a_folder():
    answers = {b"/": page(links_to(b"next.html", b"index.php/article/5.html")),
               b"/index.php/article/5.html": page(b"five"), b"/next.html": page(links_to(b"index.php")),
               b"/index.php": page(links_to(b"behind.html")), b"/behind.html": page(b"behind")}
    with ScriptedServer(answers):
        crawl = WatchedCrawl("--connections", 1)
        status = crawl.wait(60)
    wanted = ["index.html", "index.php/article/5.html", "next.html", "index.php.html", "behind.html"]
    found = [name for name in wanted if crawl.saved(name) is not None]
    return status in COMPLETE and found == wanted, f"{len(found)} of 5 files; {crawl.figures()}"


# --- The shell ------------------------------------------------------------------------------------

def program_in(scratch):
    return scratch / "program" / Path(os.environ["VANTORIN_PROGRAM"]).name


def run(scratch, *words, other=page(b"b"), **more):
    """Crawls two pages and a third one that answers `other`. Returns whether the two were saved, the exit
    status (None if it did not end), and what was printed.
    """
    command = [program_in(scratch), "--site", SITE, *words]
    with ScriptedServer(site_of({b"/a.html": page(b"a"), b"/other.html": other})):
        try:
            done = subprocess.run(command, capture_output=True, text=True, timeout=20, check=False,
                                  env=environment(scratch / "home", **more))
        except subprocess.TimeoutExpired:
            return False, None, "never ended"
    both = (scratch / "mirror" / HOST / "a.html").is_file()
    said = (done.stdout + done.stderr).strip()[:150]
    return both, done.returncode, f"{'both' if both else 'not both'} pages, exit {done.returncode}: {said!r}"


def place(name):
    """A scratch folder with a copy of the program."""
    scratch = private_network.scratch(name)
    copy_program(scratch / "program")
    return scratch


def unwritable_lists():
    scratch = place("unwritable")
    environment(scratch / "home")
    for name in ("program", "home"):
        subprocess.run(["mount", "--bind", scratch / name, scratch / name], check=True)
        subprocess.run(["mount", "-o", "remount,ro,bind", scratch / name], check=True)
    both, status, said = run(scratch, "--folder", scratch / "mirror")
    for name in ("program", "home"):
        subprocess.run(["umount", scratch / name], check=True)
    return status == (0 if both else 1), said


def damaged_list():
    scratch = place("damaged")
    (scratch / "program/temp").mkdir()
    (scratch / "program/temp/filetypes.txt").write_bytes(bytes(1000))
    _, status, said = run(scratch, "--folder", scratch / "mirror")
    return status == 1, said


def no_display():
    scratch = place("display")
    both, status, said = run(scratch, "--folder", scratch / "mirror", QT_QPA_PLATFORM="xcb")
    return both and status in COMPLETE, said


def altered_folder_name():
    scratch = place("altered")
    _, status, said = run(scratch, "--folder", scratch / "www.mirror")
    return status == 1 and not (scratch / "mirror").exists(), said


def tiny_timeout():
    scratch = place("tiny")
    both, status, said = run(scratch, "--folder", scratch / "mirror", "--timeout", "0.0001", other=silent)
    return status == 2 or (both and status in COMPLETE), said


def crawl_into_pipe(writer):
    """Starts a crawl of 100 slow pages whose output goes into a pipe."""
    scratch = place("pipe")
    command = [program_in(scratch), "--site", SITE, "--folder", scratch / "mirror"]
    process = subprocess.Popen(command, stdout=writer, stderr=subprocess.STDOUT,
                               env=environment(scratch / "home"))
    os.close(writer)
    return process, scratch / "mirror"


def late(connection, ending):
    ending.wait(0.1)
    connection.sendall(page(b"late"))


LATE_PAGES = site_of({b"/page%d.html" % i: late for i in range(100)})


def closed_pipe():
    reader, writer = os.pipe()
    with ScriptedServer(LATE_PAGES):
        process, mirror = crawl_into_pipe(writer)
        os.read(reader, 10)
        os.close(reader)
        status = ended_within(process, 30)
    left = [path for path in tree(mirror) if path.endswith(b".tmp")]
    return status is not None and status >= 0 and not left, f"exit {status}, {len(left)} placeholders left"


def unread_pipe():
    reader, writer = os.pipe()
    os.set_blocking(writer, False)
    with contextlib.suppress(BlockingIOError):
        while True:
            os.write(writer, bytes(4096))
    os.set_blocking(writer, True)
    with ScriptedServer(LATE_PAGES) as server:
        process, _ = crawl_into_pipe(writer)
        status = ended_within(process, 30)
    os.close(reader)
    asked, pages = len(server.requests), len(LATE_PAGES)
    return status in COMPLETE and asked == pages, f"exit {status}, {asked} of {pages} pages asked for"


def ended_within(process, seconds):
    """The exit status; None for a process that had to be killed."""
    try:
        return process.wait(seconds)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
        return None


# --- Look-ups -------------------------------------------------------------------------------------

DEAD = [b"http://dead%d.example.test/x.html" % i for i in range(20)]


def dead_names():
    live = [b"live%d.example.test" % i for i in range(40)]
    with open("/etc/hosts", "ab") as hosts:
        hosts.write(b"127.0.0.1 " + b" ".join(live) + b"\n")
    links = [b"http://%s/x.html" % name for name in live] + DEAD
    answers = {b"/": page(links_to(*links)), b"/x.html": page(b"x")}
    with silent_name_server(), ScriptedServer(answers) as server:
        crawl = WatchedCrawl("--connections", 24)
        while server.paths().count(b"/x.html") < 40 and time.monotonic() < crawl.started + 60:
            time.sleep(0.02)
        took = time.monotonic() - crawl.started
        crawl.process.terminate()
        crawl.wait()
    found = server.paths().count(b"/x.html")
    return found == 40 and took < 5, f"{found} of 40 live ones asked for after {took:.1f} s"


def ended_during_look_ups():
    with silent_name_server(), ScriptedServer({b"/": page(links_to(*DEAD))}):
        crawl = WatchedCrawl("--connections", 24)
        time.sleep(2)
        crawl.process.terminate()
        asked = time.monotonic()
        status = crawl.wait(60)
        gone = time.monotonic() - asked
    return gone < 1, f"gone after {gone:.1f} s, exit {status}"


ROWS = [
    ("one file of 700 MB, timeout 5 s, another page busy for 40 s", large_file, 700, 5, 40),
    ("one file of 700 MB, timeout 15 s, another page busy for 40 s", large_file, 700, 15, 40),
    ("one file of 600 MB, timeout 15 s", large_file, 600, 15, 0),
    ("one file of 400 MB, timeout 5 s, another page busy for 20 s", large_file, 400, 5, 20),
    ("one file of 900 MB, timeout 3 s", large_file, 900, 3, 0),
    ("300 pages of 20,000 links, 24 connections, timeout 3 s", many_links),
    ("4 endless answers beside 200 pages, 24 connections", endless_answers),
    ("an answer of 300 MB where the program may have 600 MB", refused_memory),
    ("the user's files in the target folder, and names that lead to them", users_files),
    ("links to existing and to missing files outside the folder", looks_outside),
    ("every page links to a folder below its own, 290 characters a name", growing_addresses, 290),
    ("every page links to a folder below its own, 2 characters a name", growing_addresses, 2),
    ('"index.php/article/5.html", then "index.php" and what it links to', file_named_like_a_folder),
    ("home and program folder unwritable", unwritable_lists),
    ("a damaged list of file types", damaged_list),
    ("20 names that the name server is silent about, beside 40 live ones", dead_names),
    ("SIGTERM while the name server is silent", ended_during_look_ups),
    ("the output goes into a closed pipe", closed_pipe),
    ("the output goes into a pipe that nobody reads", unread_pipe),
    ("QT_QPA_PLATFORM=xcb without a display", no_display),
    ("--folder X/www.mirror", altered_folder_name),
    ("--timeout 0.0001 and a silent page", tiny_timeout),
]


def main():
    wanted = [row for row in ROWS if not sys.argv[1:] or any(part in row[0] for part in sys.argv[1:])]
    print("| what was done | well | what was seen |\n|---|---|---|", flush=True)
    failed = 0
    for name, function, *words in wanted:
        well, seen = function(*words)
        failed += not well
        print(f"| {name} | {'yes' if well else 'NO'} | {seen} |", flush=True)
    sys.exit(failed > 0)


if __name__ == "__main__":
    private_network.enter()
    main()
