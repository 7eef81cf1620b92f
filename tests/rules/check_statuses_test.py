#!/usr/bin/env python3
"""Tests of check_statuses.py over small texts of its own."""

import unittest

import check_statuses

PAGE = """| status | constant | words | when |
|---|---|---|---|
| 0x0000 | `PAVANE_SUCCESS` | Done. | Always. |
| 0x8101 | `PAVANE_LOST` | It is lost. | Never; see `docs`. |
| 0x8102 to 0x81FF | | It is lost. | Reserved. |

| the log says | words |
|---|---|
| `Missing` | A file is missing. |
"""
HEADER = """#define PAVANE_SUCCESS 0x0000 /* Done. */
#define PAVANE_LOST 0x8101    /* It is lost. */
#define PAVANE_IS_LOST(status) ((status) == 0x8101)
#define PAVANE_OPTION_QUIET 0x0001
"""
HOST = """    {PAVANE_SUCCESS, "Done."},
    {PAVANE_LOST,
     "It is lost."},
    if (LogMentions(lines, "Missing")) {
        return "A file is missing.";
    }
"""
LIBRARY = """inline constexpr Status kStatusSuccess = 0;
inline constexpr Status kStatusLost = 0x8101; // it is lost
"""


def problems(page=PAGE, header=HEADER, host=HOST, library=LIBRARY):
    return list(check_statuses.problems_of(page, header, host, library))


class CheckStatuses(unittest.TestCase):
    def test_texts_that_agree_have_no_problem(self):
        self.assertEqual(problems(), [])

    def test_other_words_fail_wherever_they_are(self):
        for texts in ({"page": PAGE.replace("It is lost. | Never", "It is gone. | Never")},
                      {"header": HEADER.replace("It is lost", "It is gone")},
                      {"host": HOST.replace("It is lost", "It is gone")},
                      {"host": HOST.replace("A file is", "Two files are")}):
            self.assertTrue(problems(**texts), texts)

    def test_a_missing_status_fails_wherever_it_is(self):
        for texts in ({"page": PAGE.replace("| 0x8101", "0x8101")}, {"header": HEADER.replace("#define PAVANE_LOST", "")},
                      {"host": HOST.replace("PAVANE_LOST", "OTHER")}, {"page": ""}):
            self.assertTrue(problems(**texts), texts)

    def test_a_definition_without_words_fails(self):
        self.assertTrue(problems(header=HEADER.replace("    /* It is lost. */", "")))

    def test_another_number_fails(self):
        self.assertTrue(problems(header=HEADER.replace("0x8101  ", "0x8103  ")))

    def test_another_order_fails(self):
        lines = HEADER.splitlines()
        swapped = "\n".join([lines[1], lines[0], *lines[2:]]) + "\n"
        self.assertIn("pavane.h has another order than statuses.md", problems(header=swapped))

    def test_a_status_of_the_library_without_words_fails(self):
        more = LIBRARY + "inline constexpr Status kStatusNew = 0x8299; // new\n"
        self.assertIn("kStatusNew has no words in statuses.md", problems(library=more))


if __name__ == "__main__":
    unittest.main()
