"""Tests of the whole program: its address, its calls, its faults and its end."""

import contextlib
import http.client
import pathlib
import re
import signal
import socket
import ssl
import subprocess
import sys
import tempfile
import threading
import time
import unittest

import envelope
import markup
from faults import FAULTS, HUGE_BODY, SECONDS_OF_DELAY

PROGRAM = pathlib.Path(__file__).resolve().parents[1] / "service.py"
REACHED = envelope.write_answer(0, "<reached/>")


def call_text(method="testConnection", payload=None):
    payload = payload or markup.write("connectionTest", {"locale": "en_US"})
    return ("<methodCall><methodName>" + method + "</methodName><params><param><name>request</name><value><utf8_string>"
            + payload.encode().hex().upper() + "</utf8_string></value></param></params></methodCall>").encode()


class Service:
    """The program while a test runs."""

    def __init__(self, *arguments):
        self.process = subprocess.Popen([sys.executable, PROGRAM, *map(str, arguments)], text=True,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.url = self.process.stdout.readline().strip()
        self.port = int(self.url.rstrip("/").rpartition(":")[2])
        self.log = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.end()

    def end(self, number=signal.SIGTERM):
        """Ends the program and returns its exit code."""
        self.process.send_signal(number)
        rest, self.log = self.process.communicate(timeout=10)
        assert rest == "", rest
        return self.process.returncode

    def send(self, request, shut=False):
        """All bytes of the answer to these bytes."""
        with socket.create_connection(("127.0.0.1", self.port), timeout=20) as connection:
            connection.sendall(request)
            if shut:
                connection.shutdown(socket.SHUT_WR)
            received = []
            while part := connection.recv(1 << 16):
                received.append(part)
            return b"".join(received)

    def post(self, path="/", body=None):
        body = call_text() if body is None else body
        return self.send(f"POST {path} HTTP/1.1\r\nHost: ops\r\nContent-Length: {len(body)}\r\n\r\n".encode() + body)


def split(answer):
    head, _, body = answer.partition(b"\r\n\r\n")
    return head.decode(), body


class Calls(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = Service()
        cls.addClassCleanup(cls.service.__exit__)

    def test_prints_its_address_on_the_loopback_interface(self):
        self.assertRegex(self.service.url, r"\Ahttp://127\.0\.0\.1:[0-9]+/\Z")

    def test_answers_calls(self):
        head, body = split(self.service.post())
        self.assertTrue(head.startswith("HTTP/1.1 200 OK\r\n"))
        self.assertIn(f"Content-Length: {len(body)}", head)
        self.assertEqual(body, REACHED)

    def test_denies_details(self):
        _, body = split(self.service.post(body=call_text("registerProduct", "<registration/>")))
        self.assertEqual(body, envelope.write_answer(envelope.STATUS_DENIED))

    def test_refuses_what_is_no_call(self):
        for body in (b"", b"garbage", call_text("noSuchMethod"), call_text(payload="<other/>")):
            with self.subTest(body=body[:20]):
                head, answer = split(self.service.post(body=body))
                self.assertTrue(head.startswith("HTTP/1.1 400 "))
                self.assertEqual(answer, b"")

    def test_refuses_bodies_without_a_usable_length(self):
        for header in ("", "Content-Length: -1\r\n", "Content-Length: x\r\n", "Content-Length: \u00b2\r\n",
                       f"Content-Length: {envelope.MAX_CALL_BYTES + 1}\r\n", "Content-Length: 9999999999\r\n"):
            with self.subTest(header=header):
                request = f"POST / HTTP/1.1\r\nHost: ops\r\n{header}\r\n".encode()
                self.assertTrue(self.service.send(request).startswith(b"HTTP/1.1 400 "))

    def test_refuses_a_body_that_ends_early(self):
        request = b"POST / HTTP/1.1\r\nContent-Length: 5000\r\n\r\n" + call_text()
        self.assertTrue(self.service.send(request, shut=True).startswith(b"HTTP/1.1 400 "))

    def test_knows_one_path_and_one_verb(self):
        self.assertTrue(self.service.post("/other").startswith(b"HTTP/1.1 404 "))
        self.assertTrue(self.service.send(b"GET / HTTP/1.1\r\n\r\n").startswith(b"HTTP/1.1 405 "))

    def test_takes_a_whole_address_as_a_path(self):
        for address in ("http://ops/", "https://localhost:1/", "http://ops"):
            self.assertEqual(split(self.service.post(address))[1], REACHED)
        self.assertIn(b"34049", self.service.post("http://ops/fail/denied"))
        for address in ("http://ops/other", "http://[", "ops", "*"):
            self.assertTrue(self.service.post(address).startswith(b"HTTP/1.1 404 "))

    def test_a_silent_connection_holds_up_nobody(self):
        with socket.create_connection(("127.0.0.1", self.service.port)):
            self.assertEqual(split(self.service.post())[1], REACHED)


class Faults(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = Service()
        cls.addClassCleanup(cls.service.__exit__)

    def fails(self, fault):
        """Head and body of an answer that fails in this way. The next call is answered."""
        self.assertIn(fault, FAULTS)
        answer = split(self.service.post("/fail/" + fault))
        self.assertEqual(split(self.service.post())[1], REACHED)
        return answer

    def test_ends_in_the_head(self):
        head, body = self.fails("cut_in_head")
        self.assertTrue(head)
        self.assertFalse("HTTP/1.1 200 OK\r\n".startswith(head + "\r\n"))
        self.assertLess(len(head), len("HTTP/1.1 200 OK"))
        self.assertEqual(body, b"")

    def test_ends_in_the_body(self):
        head, body = self.fails("cut_in_body")
        self.assertIn(f"Content-Length: {len(REACHED)}", head)
        self.assertTrue(body and len(body) < len(REACHED) and REACHED.startswith(body))

    def test_resets_in_the_body(self):
        with self.assertRaises(ConnectionResetError):
            self.service.post("/fail/reset_in_body")

    def test_keeps_silent_until_the_client_closes(self):
        for fault, says in (("silent", b""), ("stalls_in_body", b"HTTP/1.1 200 OK")):
            with self.subTest(fault=fault):
                with socket.create_connection(("127.0.0.1", self.service.port)) as connection:
                    body = call_text()
                    connection.sendall(f"POST /fail/{fault} HTTP/1.1\r\nContent-Length: {len(body)}\r\n\r\n".encode() + body)
                    connection.settimeout(0.5)
                    received = b""
                    with self.assertRaises(TimeoutError):
                        while part := connection.recv(4096):
                            received += part
                    self.assertTrue(received.startswith(says))
                    self.assertEqual(bool(received), bool(says))

    def test_answers_slowly(self):
        start = time.monotonic()
        self.assertEqual(self.fails("drip")[1], REACHED)
        self.assertGreater(time.monotonic() - start, 1)
        start = time.monotonic()
        self.assertEqual(self.fails("delay")[1], REACHED)
        self.assertGreater(time.monotonic() - start, SECONDS_OF_DELAY - 0.5)

    def test_answers_in_chunks(self):
        connection = http.client.HTTPConnection("127.0.0.1", self.service.port, timeout=10)
        connection.request("POST", "/fail/chunked", call_text())
        answer = connection.getresponse()
        self.assertEqual(answer.getheader("Transfer-Encoding"), "chunked")
        self.assertEqual(answer.read(), REACHED)
        connection.close()

    def test_answers_too_little_and_too_much(self):
        self.assertEqual(self.fails("empty")[1], b"")
        self.assertEqual(len(self.fails("huge")[1]), HUGE_BODY)

    def test_answers_with_pages(self):
        for fault, status in (("not_found", "404"), ("server_error", "500"), ("proxy_log_in", "407"), ("sign_in", "200")):
            with self.subTest(fault=fault):
                head, body = self.fails(fault)
                self.assertTrue(head.startswith(f"HTTP/1.1 {status} "))
                self.assertIn(b"<html>", body)

    def test_answers_that_are_no_answers(self):
        self.assertFalse(self.fails("no_http")[0].startswith("HTTP"))
        for fault, expected in (("malformed", "not well-formed|mismatched"), ("deep", "too many")):
            with self.assertRaisesRegex(Exception, expected):
                markup.read(self.fails(fault)[1])
        self.assertEqual(markup.read(self.fails("wrong_root")[1]).tag, "fault")
        digits = re.search(rb"<utf8_string>([0-9A-F]*)</utf8_string>", self.fails("odd_digits")[1]).group(1)
        self.assertEqual(digits, b"<reached/>".hex().upper().encode()[:-1])
        self.assertIn(b"<surprise>".hex().upper().encode(), self.fails("wrong_payload")[1])

    def test_answers_with_a_status(self):
        for fault, status in (("denied", 34049), ("unavailable", 34050), ("unknown_status", 99585)):
            with self.subTest(fault=fault):
                self.assertIn(f"<integer>{status}</integer>".encode(), self.fails(fault)[1])

    def test_redirects(self):
        for fault, status in (("redirect_302", "302"), ("redirect_307", "307")):
            with self.subTest(fault=fault):
                head, _ = self.fails(fault)
                self.assertTrue(head.startswith(f"HTTP/1.1 {status} "))
                self.assertIn("\r\nLocation: /\r\n", head + "\r\n")

    def test_an_unknown_fault_is_an_error(self):
        self.assertTrue(self.service.post("/fail/nothing").startswith(b"HTTP/1.1 500 "))

    def test_a_fault_needs_a_call(self):
        self.assertTrue(self.service.post("/fail/denied", b"garbage").startswith(b"HTTP/1.1 400 "))


class Program(unittest.TestCase):
    def test_ends_on_a_signal_even_while_it_keeps_silent(self):
        for number in (signal.SIGTERM, signal.SIGINT):
            with Service("--fail", "silent") as service:
                ended = []
                caller = threading.Thread(target=lambda: ended.append(service.post()))
                caller.start()
                time.sleep(0.2)
                start = time.monotonic()
                self.assertEqual(service.end(number), 0)
                self.assertLess(time.monotonic() - start, 5)
                caller.join(10)
                self.assertEqual(ended, [b""])

    def test_reads_the_control_file_at_each_call(self):
        with tempfile.TemporaryDirectory() as folder:
            control = pathlib.Path(folder) / "control"
            with Service("--control", control) as service:
                self.assertIn(REACHED, service.post())
                control.write_text("unavailable\n")
                self.assertIn(b"34050", service.post())
                self.assertIn(b"34049", service.post("/fail/denied"))
                control.write_bytes(b"\xff")
                self.assertTrue(service.post().startswith(b"HTTP/1.1 500 "))
                control.write_text("")
                self.assertIn(REACHED, service.post())

    def test_logs_what_it_understood(self):
        with Service() as service:
            service.post()
            service.post("/fail/denied")
            service.post("/fail/x%0Ay\u00e9")
            service.send(b"POST / HTTP/1.1\r\nProxy-Authorization: Basic c2VjcmV0\r\nContent-Length: 7\r\n\r\n<se&cr>")
            service.end()
            lines = service.log.splitlines()
        self.assertTrue(all(line.startswith("service: ") and line.isascii() for line in lines), lines)
        self.assertEqual(lines[0], 'service: connection test: {"locale": "en_US"}')
        self.assertIn("service: fails as told: denied", lines)
        self.assertNotIn("c2VjcmV0", service.log)

    def test_speaks_https_with_a_given_certificate(self):
        with tempfile.TemporaryDirectory() as folder:
            certificate, key = f"{folder}/certificate", f"{folder}/key"
            subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "1", "-subj", "/CN=localhost",
                            "-addext", "subjectAltName=DNS:localhost", "-keyout", key, "-out", certificate],
                           check=True, capture_output=True)
            with Service("--certificate", certificate, "--key", key) as service:
                self.assertRegex(service.url, r"\Ahttps://localhost:[0-9]+/\Z")
                with contextlib.suppress(ConnectionResetError):
                    service.send(b"this is no handshake\r\n\r\n")
                connection = http.client.HTTPSConnection("localhost", service.port, timeout=10,
                                                         context=ssl.create_default_context(cafile=certificate))
                connection.request("POST", "/", call_text())
                self.assertEqual(connection.getresponse().read(), REACHED)
                connection.close()

    def test_refuses_wrong_options(self):
        for options in (["--fail", "nothing"], ["--certificate", "x"], ["--port", "x"], ["more"]):
            with self.subTest(options=options):
                ended = subprocess.run([sys.executable, PROGRAM, *options], capture_output=True, timeout=10)
                self.assertEqual(ended.returncode, 2)
                self.assertEqual(ended.stdout, b"")


if __name__ == "__main__":
    unittest.main()
