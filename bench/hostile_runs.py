"""What huge and hostile servers, hosts and shells do to the program: one row for each kind.

    VANTORIN_PROGRAM=build/release/ui/vantorin /usr/bin/python3 bench/hostile_runs.py [PART-OF-A-NAME ...]

Prints a table: what was done, whether the program took it as it should, and what was seen. Takes about
ten minutes and 2 GB of disk in $TMPDIR. The small forms of these rows run in tests/e2e.
"""

import contextlib
import os
import socket
import subprocess
import sys
import time

from watched_crawl import HOST, ONE_MB, SITE, WatchedCrawl

import private_network
from program import copy_program, environment, tree
from web import ScriptedServer, links_to, page

ROWS = []


def row(name, *words):
    """Enters a function into the table. It gives whether all was well, and what was seen."""
    def enter(function):
        ROWS.append((name, lambda: function(*words)))
        return function
    return enter


def silent(_, ending):
    ending.wait()


def good_pages(count):
    return {b"/good%d.html" % i: page(b"good %d" % i) for i in range(count)}


def count_good(crawl, count):
    return sum(crawl.saved(f"good{i}.html") == b"good %d\r\n" % i for i in range(count))


def names(answers):
    return [path[1:] for path in answers]


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


@row("one file of 700 MB, timeout 5 s, another page busy for 40 s", 700, 5, 40)
@row("one file of 700 MB, timeout 15 s, another page busy for 40 s", 700, 15, 40)
@row("one file of 600 MB, timeout 15 s", 600, 15, 0)
@row("one file of 400 MB, timeout 5 s, another page busy for 20 s", 400, 5, 20)
@row("one file of 900 MB, timeout 3 s", 900, 3, 0)
def large_file(megabytes, timeout, busy_seconds):
    def busy(connection, ending):
        connection.sendall(b"HTTP/1.0 200 OK\r\n\r\n")
        for _ in range(busy_seconds):
            connection.sendall(b"busy ")
            ending.wait(1)

    answers = {b"/": page(links_to(b"large.zip", b"busy.html")),
               b"/large.zip": send_large(megabytes), b"/busy.html": busy}
    with ScriptedServer(answers) as server:
        crawl = WatchedCrawl("--timeout", timeout)
        status = crawl.wait(400)
    path = crawl.mirror / HOST / "large.zip"
    size = path.stat().st_size / 1e6 if path.exists() else 0
    whole = is_whole(path, megabytes) and crawl.saved("busy.html") == b"busy " * busy_seconds + b"\r\n"
    path.unlink(missing_ok=True)
    return status == 0 and whole, (f"{'whole' if whole else 'NOT WHOLE'}, {size:.0f} MB on disk, "
                                   f"asked for {server.paths().count(b'/large.zip')} times; {crawl.figures()}")


@row("4 endless answers beside 200 pages, 24 connections")
def endless_answers():
    def endless(connection, ending):
        connection.sendall(b"HTTP/1.0 200 OK\r\n\r\n")
        while not ending.is_set():
            connection.sendall(PART)

    good = good_pages(200)
    answers = good | {b"/endless%d.zip" % i: endless for i in range(4)}
    with ScriptedServer({b"/": page(links_to(*sorted(names(answers)))), **answers}):
        crawl = WatchedCrawl("--connections", 24, "--timeout", 5)
        status = crawl.wait(300)
    found = count_good(crawl, 200)
    left = [i for i in range(4) if crawl.saved(f"endless{i}.zip") is not None]
    well = status == 0 and found == 200 and not left and crawl.peak < 3.3e9
    return well, f"{found} of 200 pages, {len(left)} cut files; {crawl.figures()}"


@row("an answer of 300 MB where the program may have 600 MB")
def refused_memory():
    good = good_pages(50)
    answers = good | {b"/large.zip": send_large(300)}
    with ScriptedServer({b"/": page(links_to(*names(answers))), **answers}):
        crawl = WatchedCrawl("--timeout", 3, under=["prlimit", "--as=600000000"])
        status = crawl.wait(120)
    found = count_good(crawl, 50)
    large = crawl.saved("large.zip")
    well = status == 0 and found == 50 and (large is None or len(large) == 300 * ONE_MB + 2)
    return well, f"{found} of 50 pages, the large file {'saved' if large else 'given up'}; {crawl.figures()}"


# --- Many links -----------------------------------------------------------------------------------

@row("300 pages of 20,000 links, 24 connections, timeout 3 s")
def many_links():
    pages = [b"page%d.html" % i for i in range(300)]
    body = page(links_to(*(pages * 67)[:20_000]))
    with ScriptedServer({b"/": body} | {b"/" + name: body for name in pages}) as server:
        crawl = WatchedCrawl("--connections", 24, "--timeout", 3)
        status = crawl.wait(900)
    found = sum(crawl.saved(name.decode()) is not None for name in pages)
    well = status == 0 and found == 300 and len(server.requests) <= 331
    return well, f"{found} of 300 files, {len(server.requests)} requests; {crawl.figures()}"


@row("every page links to a folder below its own, 290 characters a name", 290)
@row("every page links to a folder below its own, 2 characters a name", 2)
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
    return status == 0, (f"{len(times)} pages, the first tenth in {first:.1f} s, the last in {last:.1f} s; "
                         f"{crawl.figures()}")


# --- Files ----------------------------------------------------------------------------------------

@row("the user's files in the target folder, and names that lead to them")
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
    with ScriptedServer(answers | {b"/": page(links_to(*[path[1:] + b"?" for path in answers]))}):
        crawl = WatchedCrawl("--timeout", 1, "--connections", 24, scratch=scratch)
        status = crawl.wait(120)
    left = tree(crawl.mirror)
    harmed = [path for path in mine if left.get(path) != mine[path]]
    return status == 0 and not harmed, (f"{len(harmed)} of {len(mine)} replaced, deleted or added to; "
                                        f"{crawl.figures()}")


@row("links to existing and to missing files outside the folder")
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
    return status == 0 and there == missing, (f"{len(missing)} missing ones asked for, "
                                              f"{len(there)} that are there; {crawl.figures()}")


@row('"index.php/article/5.html", then "index.php" and what it links to')
def file_named_like_a_folder():
    answers = {b"/": page(links_to(b"next.html", b"index.php/article/5.html")),
               b"/index.php/article/5.html": page(b"five"), b"/next.html": page(links_to(b"index.php")),
               b"/index.php": page(links_to(b"behind.html")), b"/behind.html": page(b"behind")}
    with ScriptedServer(answers):
        crawl = WatchedCrawl("--connections", 1)
        status = crawl.wait(60)
    wanted = ["index.html", "index.php/article/5.html", "next.html", "index.php.html", "behind.html"]
    found = [name for name in wanted if crawl.saved(name) is not None]
    return status == 0 and found == wanted, f"{len(found)} of 5 files; {crawl.figures()}"


# --- Unattended -----------------------------------------------------------------------------------

def run(program, *words, seconds=20, **more):
    """A run of the program to its end: exit status (None when it did not end), what it said."""
    home = program.parent.parent / "home"
    try:
        done = subprocess.run([program, "--site", SITE, *map(str, words)], capture_output=True, text=True,
                              timeout=seconds, check=False, env=environment(home, **more), stdin=subprocess.DEVNULL)
    except subprocess.TimeoutExpired:
        return None, ""
    return done.returncode, (done.stdout + done.stderr).strip()


TWO_PAGES = {b"/": page(links_to(b"a.html")), b"/a.html": page(b"a")}


@row("home and program folder unwritable")
def nowhere_to_keep_lists():
    folder = private_network.scratch("unwritable")
    program = copy_program(folder / "program")
    environment(folder / "home")
    for name in ("program", "home"):
        subprocess.run(["mount", "--bind", folder / name, folder / name], check=True)
        subprocess.run(["mount", "-o", "remount,ro,bind", folder / name], check=True)
    with ScriptedServer(TWO_PAGES):
        status, said = run(program, "--folder", folder / "mirror")
    for name in ("program", "home"):
        subprocess.run(["umount", folder / name], check=True)
    both = (folder / "mirror" / HOST / "a.html").is_file()
    return (status == 0) == both and status in (0, 1), f"exit {status}, {'both pages' if both else 'not both'}: {said!r}"


@row("a damaged list of file types")
def damaged_types():
    folder = private_network.scratch("damaged")
    program = copy_program(folder / "program")
    (folder / "program/temp").mkdir()
    (folder / "program/temp/filetypes.txt").write_bytes(bytes(1000))
    with ScriptedServer(TWO_PAGES):
        status, said = run(program, "--folder", folder / "mirror")
    return status == 1, f"exit {status}: {said!r}"


@row("the output goes into a closed pipe")
def closed_pipe():
    answers = {b"/": page(links_to(*[b"page%d.html" % i for i in range(100)]))}
    answers |= {b"/page%d.html" % i: lambda connection, ending: ending.wait(0.1) or connection.sendall(page(b"x"))
                for i in range(100)}
    folder = private_network.scratch("pipe")
    program = copy_program(folder / "program")
    with ScriptedServer(answers):
        reader, writer = os.pipe()
        process = subprocess.Popen([program, "--site", SITE, "--folder", folder / "mirror"], stdout=writer,
                                   stderr=subprocess.STDOUT, env=environment(folder / "home"))
        os.close(writer)
        os.read(reader, 10)
        os.close(reader)
        status = ended_within(process, 30)
    left = [path for path in tree(folder / "mirror") if path.endswith(b".tmp")]
    return status is not None and status >= 0 and not left, f"exit {status}, {len(left)} placeholders left"


@row("the output goes into a pipe that nobody reads")
def unread_pipe():
    answers = {b"/": page(links_to(*[b"page%d.html" % i for i in range(100)]))}
    answers |= {b"/page%d.html" % i: lambda connection, ending: ending.wait(0.1) or connection.sendall(page(b"x"))
                for i in range(100)}
    folder = private_network.scratch("unread")
    program = copy_program(folder / "program")
    with ScriptedServer(answers) as server:
        reader, writer = os.pipe()
        os.set_blocking(writer, False)
        try:
            while True:
                os.write(writer, bytes(4096))
        except BlockingIOError:
            os.set_blocking(writer, True)
        process = subprocess.Popen([program, "--site", SITE, "--folder", folder / "mirror"], stdout=writer,
                                   stderr=subprocess.STDOUT, env=environment(folder / "home"))
        os.close(writer)
        status = ended_within(process, 30)
        os.close(reader)
    return status == 0 and len(server.requests) == 101, f"exit {status}, {len(server.requests)} of 101 pages asked for"


def ended_within(process, seconds):
    try:
        return process.wait(seconds)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
        return None


@row("QT_QPA_PLATFORM=xcb without a display")
def no_display():
    folder = private_network.scratch("xcb")
    with ScriptedServer(TWO_PAGES):
        status, said = run(copy_program(folder / "program"), "--folder", folder / "mirror", QT_QPA_PLATFORM="xcb")
    return status == 0 and (folder / "mirror" / HOST / "a.html").is_file(), f"exit {status}: {said[:60]!r}"


@row("--folder X/www.mirror")
def altered_folder_name():
    folder = private_network.scratch("www")
    with ScriptedServer(TWO_PAGES):
        status, said = run(copy_program(folder / "program"), "--folder", folder / "www.mirror")
    beside = sorted(path.name for path in folder.iterdir() if path.name not in ("program", "home", "www.mirror"))
    return status == 1 and not beside, f"exit {status}, beside it {beside}: {said[:80]!r}"


@row("--timeout 0.0001 and a silent page")
def tiny_timeout():
    folder = private_network.scratch("tiny")
    with ScriptedServer({b"/": page(links_to(b"silent.html")), b"/silent.html": silent}):
        status, said = run(copy_program(folder / "program"), "--folder", folder / "mirror", "--timeout", "0.0001")
    return status in (0, 2), f"exit {status}: {said[:80]!r}"


# --- Look-ups -------------------------------------------------------------------------------------

@contextlib.contextmanager
def silent_name_server():
    with open("/etc/resolv.conf", "w") as settings:
        settings.write("nameserver 127.0.0.1\n")
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as name_server:
        name_server.bind(("127.0.0.1", 53))
        yield


DEAD = [b"http://dead%d.example.test/x.html" % i for i in range(20)]


@row("20 names that the name server is silent about, beside 40 live ones")
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


@row("SIGTERM while the name server is silent")
def ended_during_look_ups():
    with silent_name_server(), ScriptedServer({b"/": page(links_to(*DEAD))}):
        crawl = WatchedCrawl("--connections", 24)
        time.sleep(2)
        crawl.process.terminate()
        asked = time.monotonic()
        status = crawl.wait(60)
        gone = time.monotonic() - asked
    return gone < 1, f"gone after {gone:.1f} s, exit {status}"


def main():
    wanted = [(name, function) for name, function in ROWS
              if not sys.argv[1:] or any(part in name for part in sys.argv[1:])]
    print("| what was done | well | what was seen |\n|---|---|---|", flush=True)
    failed = 0
    for name, function in wanted:
        well, seen = function()
        failed += not well
        print(f"| {name} | {'yes' if well else 'NO'} | {seen.replace(chr(10), ' ')} |", flush=True)
    sys.exit(failed > 0)


if __name__ == "__main__":
    private_network.enter()
    main()
