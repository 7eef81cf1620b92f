#!/usr/bin/env python3
"""Compares the words for each status in docs/statuses.md, include/pavane.h and the sample host's status line.

Fails on a status that one of them lacks, on words that differ, on another order, and on a status of src/frame/status.h
that has no words at all."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs/statuses.md"
HEADER = ROOT / "include/pavane.h"
HOST = ROOT / "examples/host/status_words.c"
LIBRARY = ROOT / "src/frame/status.h"

PAGE_ROW = re.compile(r"^\| (0x[0-9A-F]{4}) \| `(PAVANE_\w+)` \| (.+?) \| .+ \|$", re.M)
PAGE_CAUSE = re.compile(r"^\| `([^`]+)` \| (.+?) \|$", re.M)
DEFINITION = re.compile(r"^#define (PAVANE_(?!OPTION_)\w+) (0x[0-9A-F]{4})\b(?: */\* (.+?) \*/)?$", re.M)
HOST_ROW = re.compile(r'\{(PAVANE_\w+),\s*"([^"]+)"\}')
HOST_CAUSE = re.compile(r'LogMentions\(lines, "([^"]+)"\)\) \{\s*return "([^"]+)";')
LIBRARY_ROW = re.compile(r"^inline constexpr Status (kStatus\w+) = (0x[0-9A-F]+|0);", re.M)


def read_page(text):
    """The table of the page: [(constant, number, words), ...]."""
    return [(name, int(number, 16), words) for number, name, words in PAGE_ROW.findall(text)]


def read_header(text):
    return [(name, int(number, 16), words) for name, number, words in DEFINITION.findall(text)]


def problems_of(page, header, host, library):
    rows = read_page(page)
    if not rows:
        yield "statuses.md: no table"
    definitions = read_header(header)
    if rows != definitions:
        for row in sorted(set(rows) ^ set(definitions), key=lambda row: row[1]):
            yield f"{'statuses.md' if row in rows else 'pavane.h'} alone has {row[0]} 0x{row[1]:04X}: {row[2]}"
        if set(rows) == set(definitions):
            yield "pavane.h has another order than statuses.md"
    words = [(name, words) for name, _, words in rows]
    said = HOST_ROW.findall(host)
    if words != said:
        for name, text in sorted(set(words) ^ set(said)):
            yield f"{'statuses.md' if (name, text) in words else 'the sample host'} alone has {name}: {text}"
        if set(words) == set(said):
            yield "the sample host has another order than statuses.md"
    if dict(PAGE_CAUSE.findall(page)) != dict(HOST_CAUSE.findall(host)):
        yield "statuses.md and the sample host differ in the causes that they read from the log"
    numbers = {number for _, number, _ in rows}
    for name, number in LIBRARY_ROW.findall(library):
        if int(number, 16) not in numbers:
            yield f"{name} has no words in statuses.md"


def main():
    problems = list(problems_of(*(path.read_text(encoding="utf-8") for path in (PAGE, HEADER, HOST, LIBRARY))))
    for problem in problems:
        print(problem)
    print(f"{len(read_page(PAGE.read_text(encoding='utf-8')))} statuses compared, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
