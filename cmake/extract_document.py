#!/usr/bin/env python3
"""extract_document.py DOCUMENT SOURCE TARGET: writes the files that a document describes below TARGET.

A line "`path`:" above a fenced block says that the block is that file. A line "In `path`, below `text`:" says that the
block follows the line of SOURCE/path with that text. Prints the paths; fails if a text is not in its file."""

import pathlib
import re
import sys

BLOCK = re.compile(r"^(?P<head>`[^`\n]+`:|In `[^`\n]+`, below `[^`\n]+`:)\n\n```[a-z]*\n(?P<body>.*?)^```$", re.M | re.S)


def insert_below(text, line, block, path):
    begin = text.find(line)
    if begin < 0:
        sys.exit(f"{path}: has no line with: {line}")
    end = text.index("\n", begin) + 1
    return text[:end] + block + text[end:]


def main():
    document, source, target = map(pathlib.Path, sys.argv[1:])
    files = {}
    for block in BLOCK.finditer(document.read_text(encoding="utf-8")):
        path, *below = re.findall(r"`([^`]+)`", block["head"])
        if below:
            text = files.get(path) or (source / path).read_text(encoding="utf-8")
            files[path] = insert_below(text, below[0], block["body"], path)
        else:
            files[path] = block["body"]
    for path, text in files.items():
        written = target / path
        written.parent.mkdir(parents=True, exist_ok=True)
        if not written.exists() or written.read_text(encoding="utf-8") != text:
            written.write_text(text, encoding="utf-8")
        print(path)


if __name__ == "__main__":
    main()
