"""Web servers for the tests: nginx for real sites, and one whose answers a test scripts."""

import contextlib
import socket
import socketserver
import struct
import subprocess
import threading

from harness.program import wait_until

NGINX = "/usr/sbin/nginx"
NGINX_CONFIGURATION = """\
user root;
daemon off;
master_process off;
pid {folder}/nginx.pid;
error_log {folder}/error.log;
events {{ worker_connections 256; }}
http {{
    include /etc/nginx/mime.types;
    access_log {folder}/access.log;
    client_body_temp_path {folder}/body;
    proxy_temp_path {folder}/proxy;
    fastcgi_temp_path {folder}/fastcgi;
    uwsgi_temp_path {folder}/uwsgi;
    scgi_temp_path {folder}/scgi;
    {limits}
    {sites}
}}
"""


@contextlib.contextmanager
def nginx(folder, sites, limits=""):
    """Serves each of `sites` (host name -> folder) on port 80 while the block runs."""
    servers = "".join(f"server {{ listen 80; server_name {name}; root {root}; }}\n"
                      for name, root in sites.items())
    configuration = folder / "nginx.conf"
    configuration.write_text(NGINX_CONFIGURATION.format(folder=folder, sites=servers, limits=limits))
    server = subprocess.Popen([NGINX, "-p", folder, "-c", configuration, "-e", folder / "error.log"])
    try:
        wait_until(answers_on_port_80, what="nginx")
        yield
    finally:
        server.terminate()
        server.wait()


def answers_on_port_80():
    try:
        socket.create_connection(("127.0.0.1", 80), timeout=1).close()
        return True
    except OSError:
        return False


def receive(host, path):
    """The whole answer to one plain request, including the header."""
    with socket.create_connection((host, 80), timeout=20) as connection:
        connection.sendall(b"GET " + path + b" HTTP/1.0\r\nHost: " + host + b"\r\n\r\n")
        with connection.makefile("rb") as answer:
            return answer.read()


def page(body, kind="text/html"):
    """A well-formed answer."""
    body = body if isinstance(body, bytes) else body.encode()
    return f"HTTP/1.0 200 OK\r\nContent-Type: {kind}\r\nContent-Length: {len(body)}\r\n\r\n".encode() + body


def links_to(*targets):
    return b"<html>" + b"".join(b"<a href='%s'>x</a>\n" % target for target in targets) + b"</html>"


def site_of(answers):
    """The answers, plus a start page that links to all of them."""
    return {b"/": page(links_to(*[path[1:] for path in answers])), **answers}


def silent(_, ending):
    """Never answers."""
    ending.wait()


def closes(connection, _):
    """Closes the connection without an answer."""
    connection.close()


def resets(connection, ending):
    """Resets the connection once what was sent before has arrived."""
    ending.wait(0.2)
    connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    connection.close()


NOT_FOUND = b"HTTP/1.0 404 Not Found\r\nContent-Length: 8\r\n\r\nnot here"


class ScriptedServer(socketserver.ThreadingTCPServer):
    """Answers each path as `answers` says: with bytes, or by calling a function with the connection and an
    event that is set when the server ends. Other paths get "404".

    `requests` contains every request as received, in order, and `extra` what clients sent after theirs.
    """

    allow_reuse_address = True
    daemon_threads = True
    request_queue_size = 128

    def __init__(self, answers):
        super().__init__(("127.0.0.1", 80), ScriptedHandler)
        self.answers = answers
        self.requests, self.extra = [], []
        self.ending = threading.Event()

    def __enter__(self):
        threading.Thread(target=self.serve_forever, kwargs={"poll_interval": 0.05}, daemon=True).start()
        return self

    def __exit__(self, *_):
        self.ending.set()
        self.shutdown()
        self.server_close()

    def handle_error(self, request, client_address):
        """Ignores clients that hang up."""

    def answer_to(self, request):
        return self.answers.get(path_of(request), NOT_FOUND)

    def paths(self):
        return [path_of(request) for request in self.requests]


class ScriptedHandler(socketserver.BaseRequestHandler):
    def handle(self):
        request = self.read_request()
        if not request:
            return
        self.server.requests.append(request)
        answer = self.server.answer_to(request)
        if callable(answer):
            answer(self.request, self.server.ending)
        else:
            self.request.sendall(answer)
        self.request.shutdown(socket.SHUT_WR)
        self.server.extra.append(self.request.recv(65536))

    def read_request(self):
        self.request.settimeout(30)
        request = b""
        while b"\r\n\r\n" not in request:
            data = self.request.recv(65536)
            if not data:
                break
            request += data
        return request


def path_of(request):
    return request.removeprefix(b"GET ").partition(b" HTTP/1.0\r\n")[0]
