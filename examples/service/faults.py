"""The ways in which the service can be told to fail. Each gets the conversation with the client, after its whole call
was read, and the answer that the service would have given."""

import re

import envelope

HUGE_BODY = 20 << 20
DRIPS = 20
SECONDS_BETWEEN_DRIPS = 0.1
SECONDS_OF_DELAY = 3

_HEAD = b"HTTP/1.1 200 OK\r\nContent-Type: text/xml; charset=utf-8\r\nConnection: close\r\n"


def http_answer(body, status="200 OK", kind="text/xml; charset=utf-8", more=""):
    head = f"HTTP/1.1 {status}\r\nContent-Type: {kind}\r\nContent-Length: {len(body)}\r\nConnection: close\r\n{more}\r\n"
    return head.encode() + body


def _page(title):
    return f"<!DOCTYPE html>\n<html><head><title>{title}</title></head><body><h1>{title}</h1></body></html>\n".encode()


def _sends(whole_answer):
    """A fault that is one whole answer of HTTP."""
    return lambda conversation, answer: conversation.send(whole_answer)


def _answers(text):
    return _sends(http_answer(text.encode()))


def _redirects(status):
    return _sends(http_answer(b"", status, more="Location: /\r\n"))


def _silent(conversation, answer):
    conversation.wait_for_close()


def _cut_in_head(conversation, answer):
    conversation.send(_HEAD[:12])


def _cut_in_body(conversation, answer):
    whole = http_answer(answer)
    conversation.send(whole[:len(whole) - len(answer) // 2])


def _reset_in_body(conversation, answer):
    _cut_in_body(conversation, answer)
    conversation.reset()


def _stalls_in_body(conversation, answer):
    _cut_in_body(conversation, answer)
    conversation.wait_for_close()


def _drip(conversation, answer):
    conversation.send(_HEAD + f"Content-Length: {len(answer)}\r\n\r\n".encode())
    step = len(answer) // DRIPS + 1
    for start in range(0, len(answer), step):
        conversation.send(answer[start:start + step])
        conversation.wait(SECONDS_BETWEEN_DRIPS)


def _chunked(conversation, answer):
    conversation.send(_HEAD + b"Transfer-Encoding: chunked\r\n\r\n")
    for part in (answer[:100], answer[100:]):
        conversation.send(f"{len(part):x}\r\n".encode() + part + b"\r\n")
    conversation.send(b"0\r\n\r\n")


def _huge(conversation, answer):
    conversation.send(_HEAD + f"Content-Length: {HUGE_BODY}\r\n\r\n".encode())
    for _ in range(HUGE_BODY >> 16):
        conversation.send(b"x" * (1 << 16))


def _delay(conversation, answer):
    if conversation.wait(SECONDS_OF_DELAY):
        conversation.send(http_answer(answer))


def _odd_digits(conversation, answer):
    # The payload loses its last digit. An answer without a payload stays as it is.
    conversation.send(http_answer(re.sub(rb"[0-9A-F]</utf8_string>", b"</utf8_string>", answer)))


FAULTS = {
    "silent": _silent,
    "cut_in_head": _cut_in_head,
    "cut_in_body": _cut_in_body,
    "reset_in_body": _reset_in_body,
    "stalls_in_body": _stalls_in_body,
    "drip": _drip,
    "chunked": _chunked,
    "delay": _delay,
    "no_http": _sends(b"220 this is not HTTP\r\n\r\n"),
    "empty": _answers(""),
    "huge": _huge,
    "not_found": _sends(http_answer(_page("Not found"), "404 Not Found", "text/html")),
    "server_error": _sends(http_answer(_page("Out of order"), "500 Internal Server Error", "text/html")),
    "proxy_log_in": _sends(http_answer(_page("Log in"), "407 Proxy Authentication Required", "text/html",
                                       'Proxy-Authenticate: Basic realm="proxy"\r\n')),
    "sign_in": _sends(http_answer(_page("Sign in to this network"), kind="text/html")),
    "malformed": _answers('<?xml version="1.0"?><methodResponse><params><param></methodResponse>'),
    "wrong_root": _answers('<?xml version="1.0"?><fault/>'),
    "deep": _answers("<methodResponse>" * 100_000 + "</methodResponse>" * 100_000),
    "odd_digits": _odd_digits,
    "wrong_payload": _sends(http_answer(envelope.write_answer(0, "<surprise><number>1</number></surprise>"))),
    "unknown_status": _sends(http_answer(envelope.write_answer(99585, "<reached/>"))),
    "denied": _sends(http_answer(envelope.write_answer(envelope.STATUS_DENIED))),
    "unavailable": _sends(http_answer(envelope.write_answer(envelope.STATUS_UNAVAILABLE))),
    "redirect_302": _redirects("302 Found"),
    "redirect_307": _redirects("307 Temporary Redirect"),
}
