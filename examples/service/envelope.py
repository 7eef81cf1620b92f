"""The envelope of a call: a method with one payload, and the answer to it. See docs/call-format.md."""

import re
from dataclasses import dataclass

import markup
from refusals import NotACall

STATUS_SUCCESS = 0
STATUS_DENIED = 34049
STATUS_UNAVAILABLE = 34050

MAX_CALL_BYTES = 16 << 20
_DIGITS = re.compile(r"(?:[0-9A-F]{2})*")


@dataclass
class Call:
    method: str
    payload: bytes


def _children(element, *tags):
    """The children of an element that must have exactly these."""
    children = element.only_children()
    if [child.tag for child in children] != list(tags):
        raise NotACall(f"<{element.tag}> does not have exactly: {' '.join(tags)}")
    return children


def read_call(document: bytes) -> Call:
    """Raises NotACall unless the document is a call with exactly one parameter, `request`."""
    if len(document) > MAX_CALL_BYTES:
        raise NotACall("too long")
    root = markup.read(document)
    if root.tag != "methodCall":
        raise NotACall("the root is not <methodCall>")
    method, params = _children(root, "methodName", "params")
    (param,) = _children(params, "param")
    name, value = _children(param, "name", "value")
    if name.only_text() != "request":
        raise NotACall("the parameter is not 'request'")
    (text,) = _children(value, "utf8_string")
    digits = text.only_text()
    if not _DIGITS.fullmatch(digits):
        raise NotACall("the payload is not in pairs of the digits 0 to 9 and A to F")
    return Call(method.only_text(), bytes.fromhex(digits))


def write_answer(status: int, payload: str | None = None) -> bytes:
    """An answer with a status, and with a payload if there is one."""
    params = [_param("status", "integer", str(status))]
    if payload is not None:
        params.append(_param("response", "utf8_string", payload.encode().hex().upper()))
    return ('<?xml version="1.0"?>\n<methodResponse>\n    <params>\n' + "".join(params)
            + "    </params>\n</methodResponse>\n").encode()


def _param(name, kind, text):
    return (f"        <param>\n            <name>{name}</name>\n"
            f"            <value><{kind}>{text}</{kind}></value>\n        </param>\n")
