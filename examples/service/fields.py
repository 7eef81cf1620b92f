"""The fields of a payload and their checks. Each check takes a text and raises Denied if the text is wrong."""

import re
from fractions import Fraction

import markup
from countries import COUNTRIES
from refusals import Denied, NotACall

_NUMBER = re.compile(r"-?(?!(?:[0-9]\.?){16})[0-9]+(?:\.[0-9]+)?|[0-9]{1,9}/[0-9]{1,9}")  # of up to 15 digits
_WHOLE = re.compile(r"[0-9]{1,9}")
_CONTROLS = re.compile(r"[\x00-\x1f\x7f-\x9f\u2028\u2029]")
_CONTROLS_BUT_BREAKS = re.compile(r"[\x00-\x08\x0b\x0c\x0e-\x1f\x7f-\x9f]")


def line(longest, required=False):
    """One line of text, with this many characters at most."""
    def check(text):
        if len(text) > longest:
            raise Denied("too long")
        if _CONTROLS.search(text):
            raise Denied("has control characters")
        if required and not text.strip():
            raise Denied("empty")
    return check


def lines(longest):
    def check(text):
        if len(text) > longest:
            raise Denied("too long")
        if _CONTROLS_BUT_BREAKS.search(text):
            raise Denied("has control characters")
    return check


def pattern(expression):
    compiled = re.compile(expression)

    def check(text):
        if not compiled.fullmatch(text):
            raise Denied("malformed")
    return check


def country(text):
    if text not in COUNTRIES:
        raise Denied("not a country")


def email(text):
    line(254)(text)
    local, at, domain = text.partition("@")
    labels = domain.split(".")
    if not local or not at or "@" in domain or len(labels) < 2 or not all(labels) or re.search(r"\s", text):
        raise Denied("not a mail address")


def number(least, most, whole=False, above=False):
    """A number in a range, or nothing. `above`: the least itself is out of range."""
    def check(text):
        if not text:
            return
        if not (_WHOLE if whole else _NUMBER).fullmatch(text):
            raise Denied("not a number")
        try:
            value = Fraction(text)
        except ZeroDivisionError:
            raise Denied("a division by zero") from None
        if not least <= value <= most or (above and value == least):
            raise Denied("out of range")
    return check


LOCALE = pattern(r"[a-z]{2}_[A-Z]{2}")
WORD = pattern(r"[a-z0-9_]{1,40}")


def read_fields(payload: bytes, root: str, checks: dict) -> dict[str, str]:
    """The fields of `checks` in that order, each checked; a missing one is empty. Raises NotACall if the payload is not a
    document of this root, and Denied if a field is wrong."""
    document = markup.read(payload)
    if document.tag != root:
        raise NotACall(f"the payload is not <{root}>")
    found = {}
    for element in document.only_children():
        if element.tag not in checks:
            continue
        if element.tag in found:
            raise NotACall(f"<{element.tag}> twice")
        found[element.tag] = element.only_text()
    for name, check in checks.items():
        try:
            check(found.setdefault(name, ""))
        except Denied as reason:
            raise Denied(f"{name}: {reason}") from None
    return {name: found[name] for name in checks}
