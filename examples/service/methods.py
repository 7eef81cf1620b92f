"""The three methods of the service: each reads a payload, and answers with what it understood."""

import hashlib
import json
import unicodedata
from fractions import Fraction

import markup
from envelope import Call
from fields import LOCALE, WORD, country, email, line, lines, number, pattern, read_fields
from refusals import NotACall

REGISTRATION = {
    "name": line(100, required=True),
    "organization": line(100),
    "email": email,
    "country": country,
    "serial": pattern(r"[A-Za-z0-9-]{1,40}"),
    "news": pattern(r"[01]"),
    "locale": LOCALE,
    "product": line(128),
}

CONNECTION_TEST = {"locale": LOCALE}

_TENTH = Fraction(1, 10)

FEEDBACK = {
    "subject": line(200, required=True),
    "category": WORD,
    "frequency": WORD,
    "comment": lines(16384),
    "pixelWidth": number(1, 1_000_000, whole=True),
    "resolution": number(_TENTH, 100_000),
    "focalLength": number(_TENTH, 100_000),
    "aspectRatio": number(0, 1000, above=True),
    "aperture": number(0, 1000, above=True),
    "exposureTime": number(0, 1_000_000, above=True),
    "brightness": number(-1000, 1000),
    "locale": LOCALE,
    "product": line(128),
    "log": lines(1 << 20),
}


def _normalized(text):
    return " ".join(unicodedata.normalize("NFKC", text).casefold().split())


def confirmation_number(fields):
    """The same for the same person, country and copy, however they were typed; another one otherwise."""
    identity = [_normalized(fields[name]) for name in ("name", "organization", "email", "country", "serial")]
    digest = hashlib.sha256(json.dumps(identity).encode()).hexdigest().upper()
    return f"{digest[:4]}-{digest[4:8]}-{digest[8:12]}"


def _register(payload, log):
    fields = read_fields(payload, "registration", REGISTRATION)
    confirmed = confirmation_number(fields)
    log(f"registered as {confirmed}: {json.dumps(fields)}")
    return markup.write("registered", {"number": confirmed})


def _test_connection(payload, log):
    fields = read_fields(payload, "connectionTest", CONNECTION_TEST)
    log(f"connection test: {json.dumps(fields)}")
    return markup.write("reached", {})


def _take_feedback(payload, log):
    fields = read_fields(payload, "feedback", FEEDBACK)
    filled = sum(1 for text in fields.values() if text)
    # The long texts may hold anything, so only their lengths are logged.
    shown = {name: len(text) if name in ("comment", "log") else text for name, text in fields.items()}
    log(f"feedback of {filled} fields: {json.dumps(shown)}")
    return markup.write("received", {"fields": str(filled), "bytes": str(len(payload))})


_METHODS = {"registerProduct": _register, "testConnection": _test_connection, "sendFeedback": _take_feedback}


def answer(call: Call, log) -> str:
    """The payload of the answer to a call. Raises NotACall or Denied."""
    if call.method not in _METHODS:
        raise NotACall("no such method")
    return _METHODS[call.method](call.payload, log)
