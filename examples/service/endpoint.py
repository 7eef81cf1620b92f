"""The HTTP side: takes calls on the loopback interface, answers them, and fails where it is told to."""

import contextlib
import os
import select
import socket
import ssl
import struct
import threading
import urllib.parse
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

import envelope
import methods
from faults import FAULTS, http_answer
from refusals import Denied, NotACall

SECONDS_FOR_A_CALL = 30
FAULT_PATH = "/fail/"


class Conversation:
    """One connection whose call was read. Sending to a client that is gone does nothing."""

    def __init__(self, connection, stopping):
        self._connection = connection
        self._stopping = stopping

    def send(self, data):
        try:
            self._connection.sendall(data)
        except OSError:
            pass

    def wait(self, seconds):
        """Returns false if the service ends meanwhile."""
        return not self._stopping.wait(seconds)

    def wait_for_close(self):
        """Until the client closes or the service ends."""
        try:
            while not self._stopping.is_set():
                readable, _, _ = select.select([self._connection], [], [], 0.05)
                if readable and not self._connection.recv(4096):
                    return
        except OSError:
            return

    def reset(self):
        """Ends the connection by a reset, after the client had time to read what was sent."""
        self.wait(0.05)
        self._connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        os.close(self._connection.detach())  # the server would close it politely


def _path_of(target):
    """The path of a request. A client behind a proxy may name the whole address."""
    if target.startswith("/"):
        return target
    with contextlib.suppress(ValueError):
        return urllib.parse.urlsplit(target).path or "/"
    return target


class _Handler(BaseHTTPRequestHandler):
    timeout = SECONDS_FOR_A_CALL

    def do_POST(self):
        self.close_connection = True
        path = _path_of(self.path)
        fault = self.server.choose_fault(path)
        if fault is None and path != "/":
            self._send(http_answer(b"", "404 Not Found"))
        elif fault is not None and fault not in FAULTS:
            self.server.log(f"there is no fault {fault!r}")
            self._send(http_answer(b"", "500 Internal Server Error"))
        else:
            self._handle_call(fault)

    def do_GET(self):
        self.close_connection = True
        self._send(http_answer(b"Calls are posted.\n", "405 Method Not Allowed", "text/plain", "Allow: POST\r\n"))

    def _handle_call(self, fault):
        try:
            answer = self._answer(self._read_body())
        except NotACall as reason:
            self.server.log(f"not a call: {reason}")
            self._send(http_answer(b"", "400 Bad Request"))
            return
        if fault is None:
            self._send(http_answer(answer))
        else:
            self.server.log(f"fails as told: {fault}")
            FAULTS[fault](self._conversation(), answer)

    def _read_body(self):
        text = self.headers.get("Content-Length", "")
        if not text.isascii() or not text.isdigit() or len(text) > 9 or int(text) > envelope.MAX_CALL_BYTES:
            raise NotACall("no usable Content-Length")
        try:
            body = self.rfile.read(int(text))
        except OSError:
            body = b""
        if len(body) != int(text):
            raise NotACall("the body is not whole")
        return body

    def _answer(self, body):
        try:
            payload = methods.answer(envelope.read_call(body), self.server.log)
            return envelope.write_answer(envelope.STATUS_SUCCESS, payload)
        except Denied as reason:
            self.server.log(f"denied: {reason}")
            return envelope.write_answer(envelope.STATUS_DENIED)

    def _conversation(self):
        return Conversation(self.connection, self.server.stopping)

    def _send(self, data):
        self._conversation().send(data)

    def log_message(self, *_):
        """The service logs what it understood, and nothing else of a request."""


class Endpoint(ThreadingHTTPServer):
    """A service on a port of the loopback interface; port 0 is any free one.

    choose_fault(path) names the fault of a call, or is None. log(text) takes one line. Both are called on any thread.
    tls: an ssl.SSLContext, or None for HTTP."""

    daemon_threads = True

    def __init__(self, port, choose_fault, log, tls=None):
        super().__init__(("127.0.0.1", port), _Handler)
        self.choose_fault = choose_fault
        self.log = log
        self.stopping = threading.Event()
        self._tls = tls

    def url(self):
        # Names in certificates are names, not addresses.
        return f"https://localhost:{self.server_port}/" if self._tls else f"http://127.0.0.1:{self.server_port}/"

    def finish_request(self, request, client_address):
        """On the thread of the connection, so that a handshake that stalls holds up nobody."""
        if self._tls is None:
            super().finish_request(request, client_address)
            return
        request.settimeout(SECONDS_FOR_A_CALL)
        try:
            with self._tls.wrap_socket(request, server_side=True) as secured:
                super().finish_request(secured, client_address)
        except OSError as error:
            self.log(f"no secure connection: {error}")

    def handle_error(self, request, client_address):
        self.log("a connection ended early")

    def stop(self):
        """Ends every conversation and then the service."""
        self.stopping.set()
        self.shutdown()
        self.server_close()


def fault_of_path(path):
    """The name in /fail/NAME, else None."""
    return path.removeprefix(FAULT_PATH) if path.startswith(FAULT_PATH) else None


def server_context(certificate, key):
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(certificate, key)
    return context
