"""Reads and writes small markup documents.

The reader accepts only what the call format needs: UTF-8, elements, text. A document type declaration is refused, so
there are no entities to expand; depth and number of elements are limited."""

from dataclasses import dataclass, field
from xml.parsers import expat
from xml.sax.saxutils import escape

from refusals import NotACall

MAX_DEPTH = 16
MAX_ELEMENTS = 1000


@dataclass
class Element:
    tag: str
    children: list["Element"] = field(default_factory=list)
    parts: list[str] = field(default_factory=list)

    @property
    def text(self):
        return "".join(self.parts)

    def only_children(self):
        """The children of an element that has no text of its own."""
        if self.text.strip():
            raise NotACall(f"text in <{self.tag}>")
        return self.children

    def only_text(self):
        """The text of an element that has no children."""
        if self.children:
            raise NotACall(f"elements in <{self.tag}>")
        return self.text


class _Builder:
    def __init__(self):
        self.top = Element("")
        self.open = [self.top]
        self.count = 0

    def start(self, tag, attributes):
        self.count += 1
        if attributes:
            raise NotACall("an attribute")
        if self.count > MAX_ELEMENTS or len(self.open) > MAX_DEPTH:
            raise NotACall("too many elements")
        element = Element(tag)
        self.open[-1].children.append(element)
        self.open.append(element)

    def end(self, _tag):
        self.open.pop()

    def add_text(self, text):
        self.open[-1].parts.append(text)

    def refuse_declaration(self, *_):
        raise NotACall("a document type declaration")


def read(document: bytes) -> Element:
    """The root element of a document. Raises NotACall."""
    builder = _Builder()
    parser = expat.ParserCreate("utf-8")  # even if the document names another encoding
    parser.buffer_text = True
    parser.StartElementHandler = builder.start
    parser.EndElementHandler = builder.end
    parser.StartDoctypeDeclHandler = builder.refuse_declaration
    parser.CharacterDataHandler = builder.add_text
    try:
        document.decode("utf-8")
        parser.Parse(document, True)
    except (expat.ExpatError, UnicodeDecodeError) as error:
        raise NotACall(f"not well-formed: {error}") from None
    return builder.top.children[0]


def write(tag: str, fields: dict[str, str]) -> str:
    """A document with one element for each field."""
    if not fields:
        return f"<{tag}/>"
    return f"<{tag}>" + "".join(f"<{name}>{escape(text)}</{name}>" for name, text in fields.items()) + f"</{tag}>"
