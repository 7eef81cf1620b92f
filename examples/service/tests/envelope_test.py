"""Tests of the envelope and the markup below it."""

import unittest

import envelope
import markup
from refusals import NotACall

CALL = """<?xml version="1.0"?>
<methodCall>
    <methodName>testConnection</methodName>
    <params>
        <param>
            <name>request</name>
            <value><utf8_string>3C612F3E</utf8_string></value>
        </param>
    </params>
</methodCall>
"""


class Envelope(unittest.TestCase):
    def refused(self, document):
        with self.assertRaises(NotACall):
            envelope.read_call(document if isinstance(document, bytes) else document.encode())

    def test_reads_method_and_payload(self):
        self.assertEqual(envelope.read_call(CALL.encode()), envelope.Call("testConnection", b"<a/>"))

    def test_refuses_every_call_that_is_not_whole(self):
        whole = CALL.rstrip()
        for length in range(len(whole)):
            self.refused(whole[:length])

    def test_refuses_another_shape(self):
        for old, new in (
                ("methodCall>", "methodResponse>"),
                ("<name>request</name>", "<name>response</name>"),
                ("<name>request</name>", ""),
                ("<name>request</name>", "<name>request</name><name>request</name>"),
                ("utf8_string>", "integer>"),
                ("<value>", "<value>text"),
                ("<methodName>", "<methodName><b/>"),
                ("<params>", "<params><param/>"),
                ("<methodCall>", '<methodCall version="1">'),
        ):
            with self.subTest(new=new):
                self.assertIn(old, CALL)
                self.refused(CALL.replace(old, new))

    def test_refuses_other_digits(self):
        for digits in ("3C612F3", "3c612f3e", "3C61 2F3E", "0x3C", "G0", "\u0663\u0664"):
            with self.subTest(digits=digits):
                self.refused(CALL.replace("3C612F3E", digits))

    def test_an_empty_payload_is_one(self):
        self.assertEqual(envelope.read_call(CALL.replace("3C612F3E", "").encode()).payload, b"")

    def test_refuses_a_call_that_is_too_long(self):
        self.refused(CALL.encode() + b" " * envelope.MAX_CALL_BYTES)

    def test_writes_status_and_payload(self):
        self.assertEqual(envelope.write_answer(0, "<reached/>").decode(), """<?xml version="1.0"?>
<methodResponse>
    <params>
        <param>
            <name>status</name>
            <value><integer>0</integer></value>
        </param>
        <param>
            <name>response</name>
            <value><utf8_string>3C726561636865642F3E</utf8_string></value>
        </param>
    </params>
</methodResponse>
""")

    def test_an_answer_without_a_payload_has_a_status_alone(self):
        answer = envelope.write_answer(envelope.STATUS_DENIED)
        self.assertIn(b"<integer>34049</integer>", answer)
        self.assertNotIn(b"response</name>", answer)


class Markup(unittest.TestCase):
    def refused(self, document):
        with self.assertRaises(NotACall):
            markup.read(document)

    def test_refuses_declarations_before_any_entity_is_expanded(self):
        entities = "".join(f'<!ENTITY e{i} "{f"&e{i - 1};" * 10}">' for i in range(1, 10))
        self.refused(f'<!DOCTYPE a [<!ENTITY e0 "ha">{entities}]><a>&e9;</a>'.encode())
        self.refused(b'<!DOCTYPE a SYSTEM "file:///etc/passwd"><a/>')
        self.refused(b"<!DOCTYPE a><a/>")
        self.refused(b"<a>&nothing;</a>")

    def test_refuses_deep_and_wide_documents(self):
        at_limit = b"<a>" * markup.MAX_DEPTH + b"</a>" * markup.MAX_DEPTH
        self.assertEqual(markup.read(at_limit).tag, "a")
        self.refused(b"<a>" + at_limit + b"</a>")
        self.refused(b"<a>" * 100_000)
        self.assertEqual(len(markup.read(b"<a>" + b"<b/>" * (markup.MAX_ELEMENTS - 1) + b"</a>").children),
                         markup.MAX_ELEMENTS - 1)
        self.refused(b"<a>" + b"<b/>" * markup.MAX_ELEMENTS + b"</a>")

    def test_refuses_what_is_not_utf8(self):
        self.assertEqual(markup.read("<a>ä</a>".encode()).text, "ä")
        self.refused(b"<a>\xe4</a>")
        self.refused(b'<?xml version="1.0" encoding="iso-8859-1"?><a>\xe4</a>')
        self.refused("<a>ä</a>".encode("utf-16"))

    def test_refuses_what_is_not_well_formed(self):
        for document in (b"", b"text", b"<a>", b"<a/><b/>", b"<a></b>", b"<a>&</a>", b"<a>\x00</a>", b"<a b=1/>"):
            with self.subTest(document=document):
                self.refused(document)

    def test_writes_what_it_reads(self):
        text = "<&> \"quoted\" 'too' \u65e5\u672c"
        self.assertEqual(markup.read(markup.write("a", {"b": text}).encode()).children[0].text, text)
        self.assertEqual(markup.write("a", {}), "<a/>")


if __name__ == "__main__":
    unittest.main()
