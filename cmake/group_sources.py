#!/usr/bin/env python3
"""group_sources.py COUNT FILE...: prints CMake commands that group source files, so that up to COUNT files can be compiled
as one: most of a compiler's time goes into the headers that they share.

The files of a group are in one folder and have the same using directives, and no two define the same private name."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
# The head of a definition that begins in the first column, up to its name; a member's name has a class before it.
DEFINITION = re.compile(r"^(?!namespace \w* *\{|using namespace|template|extern|static_assert|[A-Z_]+\()"
                        r"\w[^({=;\n]*?(::)?\b(\w+)(?:\s*[({=;\[]| :)", re.M)


def text_of(name):
    return (ROOT / name).read_text(encoding="utf-8")


def private_names(name):
    return {name for member, name in DEFINITION.findall(text_of(name)) if not member}


def groups_of(names, most, key_of):
    """Groups up to `most` files, named from the root, whose keys are the same: [(key, [file, ...])]."""
    groups = []
    for name in names:
        key = (key_of(name), re.findall("^using namespace .*", text_of(name), re.M))
        defined = private_names(name)
        for group in groups:
            if group["key"] == key and len(group["files"]) < most and not group["names"] & defined:
                group["files"].append(name)
                group["names"] |= defined
                break
        else:
            groups.append({"key": key, "files": [name], "names": defined})
    return [(group["key"][0], group["files"]) for group in groups]


def main():
    for number, (_, files) in enumerate(groups_of(sys.argv[2:], int(sys.argv[1]), lambda name: name.rpartition("/")[0])):
        paths = " ".join(f'"{ROOT / name}"' for name in files)
        print(f"set_source_files_properties({paths} PROPERTIES UNITY_GROUP group_{number})")


if __name__ == "__main__":
    main()
