"""Tests of the methods: what each understands, denies and answers."""

import unittest

import markup
import methods
from countries import COUNTRIES
from envelope import Call
from refusals import Denied, NotACall

PERSON = {"name": "Zoë Ångström", "organization": "", "email": "zoe@example.org", "country": "SE", "serial": "AB-12-cd",
          "news": "0", "locale": "de_DE", "product": "Sample"}
SHOT = {"subject": "Colors", "category": "picture", "frequency": "often", "comment": "two\nlines", "pixelWidth": "6000",
        "resolution": "300", "focalLength": "35", "aspectRatio": "3/2", "aperture": "2.8", "exposureTime": "1/250",
        "brightness": "-0.5", "log": "", "locale": "ja_JP", "product": ""}


class Method(unittest.TestCase):
    def setUp(self):
        self.lines = []

    def answer(self, method, root, fields):
        return self.answer_payload(method, markup.write(root, fields).encode())

    def answer_payload(self, method, payload):
        return methods.answer(Call(method, payload), self.lines.append)

    def denied(self, method, root, fields, names, texts):
        for name in names:
            for text in texts:
                with self.subTest(name=name, text=text[:20]):
                    with self.assertRaisesRegex(Denied, f"^{name}: "):
                        self.answer(method, root, {**fields, name: text})

    def taken(self, method, root, fields, names, texts):
        for name in names:
            for text in texts:
                with self.subTest(name=name, text=text[:20]):
                    self.answer(method, root, {**fields, name: text})


class Registration(Method):
    def number(self, **changes):
        answer = self.answer("registerProduct", "registration", {**PERSON, **changes})
        (number,) = markup.read(answer.encode()).children
        self.assertEqual(number.tag, "number")
        return number.text

    def denied_text(self, name, *texts):
        self.denied("registerProduct", "registration", PERSON, [name], texts)

    def taken_text(self, name, *texts):
        self.taken("registerProduct", "registration", PERSON, [name], texts)

    def test_answers_with_a_number_of_the_format(self):
        self.assertRegex(self.number(), r"\A[A-Za-z0-9-]{1,32}\Z")

    def test_the_number_depends_on_what_was_understood(self):
        number = self.number()
        self.assertEqual(number, self.number())
        for changes in ({"name": "Zoe Angstrom"}, {"organization": "Co"}, {"email": "a@example.org"},
                        {"country": "NO"}, {"serial": "AB-12-ce"}):
            with self.subTest(changes=changes):
                self.assertNotEqual(number, self.number(**changes))

    def test_the_number_is_the_same_however_the_details_were_typed(self):
        self.assertEqual(self.number(), self.number(name="  zoe\u0308  a\u030angstro\u0308m ", serial="ab-12-CD", news="1",
                                                    locale="fr_FR", product="Other"))

    def test_fields_do_not_run_into_each_other(self):
        self.assertNotEqual(self.number(name="a", organization="b c"), self.number(name="a b", organization="c"))

    def test_checks_each_field(self):
        self.denied_text("name", "", "  ", "x" * 101, "two\nlines", "tab\there", "\u2028")
        self.taken_text("name", "x", "x" * 100, "\U0001f600" * 100, "O'Neill & <Sons>")
        self.denied_text("organization", "x" * 101)
        self.denied_text("email", "", "a", "@b.c", "a@", "a@b", "a@b.", "a@.b", "a@b..c", "a@b@c.d", "a b@c.d",
                         "a@c.\u00a0d", "x" * 249 + "@b.org")
        self.taken_text("email", "a@b.c", "x" * 248 + "@b.org", "grüße@example.org")
        self.denied_text("country", "", "S", "se", "XX", "SWE", "SE ")
        self.taken_text("country", *COUNTRIES)
        self.denied_text("serial", "", "a b", "a_b", "ä", "x" * 41, "a\n")
        self.taken_text("serial", "a", "x" * 40, "-")
        self.denied_text("news", "", "2", "true", "01")
        self.denied_text("locale", "", "de", "de-DE", "DE_de", "de_DEU")
        self.denied_text("product", "x" * 129)

    def test_a_missing_field_is_an_empty_one(self):
        fields = {name: text for name, text in PERSON.items() if name not in ("organization", "product")}
        self.assertEqual(self.answer("registerProduct", "registration", {**PERSON, "product": ""}),
                         self.answer("registerProduct", "registration", fields))
        with self.assertRaisesRegex(Denied, "^email: "):
            self.answer("registerProduct", "registration", {"name": "x"})

    def test_ignores_unknown_fields_and_does_not_log_them(self):
        self.answer("registerProduct", "registration", {**PERSON, "password": "secret"})
        self.assertEqual(len(self.lines), 1)
        self.assertIn("zoe@example.org", self.lines[0])
        self.assertNotIn("secret", self.lines[0])

    def test_a_log_line_is_one_line_of_ascii(self):
        self.answer("registerProduct", "registration", PERSON)
        self.assertTrue(self.lines[0].isascii())
        self.assertEqual(len(self.lines[0].splitlines()), 1)

    def test_refuses_what_is_no_payload(self):
        for payload in ("", "<registration>", "<feedback/>", "<registration>text</registration>",
                        "<registration><name>a</name><name>b</name></registration>",
                        "<registration><name><b/></name></registration>", '<registration version="1"/>'):
            with self.subTest(payload=payload):
                with self.assertRaises(NotACall):
                    self.answer_payload("registerProduct", payload.encode())


class ConnectionTest(Method):
    def test_is_reached(self):
        self.assertEqual(self.answer("testConnection", "connectionTest", {"locale": "he_IL"}), "<reached/>")
        self.denied("testConnection", "connectionTest", {}, ["locale"], ["", "x"])

    def test_refuses_other_methods(self):
        with self.assertRaises(NotACall):
            self.answer("TestConnection", "connectionTest", {"locale": "he_IL"})


class Feedback(Method):
    def received(self, **changes):
        payload = markup.write("feedback", {**SHOT, **changes})
        fields, size = markup.read(self.answer_payload("sendFeedback", payload.encode()).encode()).children
        self.assertEqual((fields.tag, size.tag), ("fields", "bytes"))
        self.assertEqual(int(size.text), len(payload.encode()))
        return int(fields.text)

    def test_counts_the_fields_that_are_not_empty_and_the_bytes(self):
        self.assertEqual(self.received(), 12)
        self.assertEqual(self.received(log="äöü"), 13)
        self.assertEqual(self.received(aperture="", comment=""), 10)
        self.assertEqual(self.received(other="ignored"), 12)

    def denied_text(self, names, *texts):
        self.denied("sendFeedback", "feedback", SHOT, names, texts)

    def taken_text(self, names, *texts):
        self.taken("sendFeedback", "feedback", SHOT, names, texts)

    def test_checks_texts(self):
        self.denied_text(["subject"], "", " ", "x" * 201, "two\nlines")
        self.denied_text(["category", "frequency"], "", "A", "a b", "x" * 41)
        self.denied_text(["comment"], "x" * 16385, "\u0085")
        self.taken_text(["comment"], "", "x" * 16384, "a\tb\nc")
        self.denied_text(["log"], "x" * ((1 << 20) + 1))
        self.taken_text(["log"], "x" * (1 << 20))

    def test_checks_numbers(self):
        decimals = ["resolution", "focalLength", "aspectRatio", "aperture", "exposureTime"]
        self.denied_text(decimals, "0", "0.0", "0/5", "-1", "1/0", "1e3", "1,5", ".5", "5.", " 1", "+1", "nan", "inf",
                         "1/-2", "1.5/2", "\u0663", "9" * 16, "1." + "0" * 15, "0" * 15 + ".1", "1/" + "9" * 10)
        self.taken_text(decimals, "", "1", "0.1", "1." + "0" * 14, "100/999", "1000")
        self.taken_text(["aspectRatio", "aperture", "exposureTime"], "0.001", "1/8000")
        self.denied_text(["resolution", "focalLength"], "0.09999", "1/11")
        self.taken_text(["resolution", "focalLength"], "0.1", "1/10")
        self.denied_text(["aspectRatio", "aperture"], "1000.1", "1001")
        self.denied_text(["resolution", "focalLength"], "100000.01")
        self.taken_text(["resolution", "focalLength"], "100000")
        self.denied_text(["exposureTime"], "1000001")
        self.taken_text(["exposureTime"], "1000000")
        self.denied_text(["pixelWidth"], "0", "1.5", "6/2", "-1", "1000001")
        self.taken_text(["pixelWidth"], "", "1", "1000000")
        self.denied_text(["brightness"], "-1000.5", "1001", "--1")
        self.taken_text(["brightness"], "", "0", "-1000", "1000", "1/3")

    def test_logs_no_comment_and_no_log(self):
        self.received(comment="my comment", log="my log")
        self.assertNotIn("my ", self.lines[0])


if __name__ == "__main__":
    unittest.main()
