#!/usr/bin/env python3
"""Reads the includes of src/ and fails on an edge between rooms that the house does not allow, on a circle between
file pairs, on a Windows header outside a platform folder, and on a test folder without a single test."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCE = ROOT / "src"
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^">]+)[">]', re.M)
WINDOWS_HEADERS = {"windows.h", "commctrl.h", "winhttp.h", "gdiplus.h", "shellapi.h", "shlwapi.h", "imm.h", "objbase.h"}
SYSTEM_SWITCH = re.compile(r"#\s*(?:if|ifdef|ifndef|elif).*\b_WIN(?:32|64)\b")

# What each part of the house may know besides itself.
MAY_KNOW = {
    "frame": set(),
    "exports": {"frame", "values", "workflow"},
    "values": set(),
    "dictionaries": {"values"},
    "view": {"values", "frame", "view_proxy"},
    "view_proxy": {"view"},
    "toolkit": {"view", "view_proxy", "dictionaries", "values", "frame"},
    "net": {"values", "frame"},
    "services": {"values", "frame"},
    "workflow": {"toolkit", "view", "view_proxy", "dictionaries", "values", "frame", "net", "services"},
}
# The view tree and its layout know these of the view language and nothing else.
VIEW_PROXY_MAY_INCLUDE = {"view/expression_scope", "view/generator", "view/scope_name"}


def pair_of(path):
    """A header and its implementation are one: `room/name`."""
    return str(pathlib.PurePosixPath(path).with_suffix(""))


def part_of(pair):
    folder, name = pair.split("/", 1)
    if folder == "toolkit" and re.match(r"(view_proxy|layout)", name):
        return "view_proxy"
    if folder == "frame" and re.match(r"(pavane_exports|launcher)", name):
        return "exports"
    return folder


def read_edges():
    edges, problems = {}, []
    for path in sorted(SOURCE.rglob("*")):
        if path.suffix not in {".h", ".cpp", ".c"}:
            continue
        name = path.relative_to(SOURCE).as_posix()
        in_platform = "/platform/win32/" in name
        text = path.read_text(encoding="utf-8")
        if not in_platform and SYSTEM_SWITCH.search(text):
            problems.append(f"{name}: a system switch outside a platform folder")
        targets = edges.setdefault(pair_of(name), set())
        for kind, target in INCLUDE.findall(text):
            if target.lower() in WINDOWS_HEADERS and not in_platform:
                problems.append(f"{name}: includes {target} outside platform/win32")
            if kind == '"' and (SOURCE / target).exists():
                targets.add(pair_of(target))
            elif kind == '"' and not (path.parent / target).exists():
                problems.append(f"{name}: includes {target}, which is nowhere below src/")
    return edges, problems


def forbidden_edges(edges):
    for pair, targets in edges.items():
        part = part_of(pair)
        for target in targets:
            other = part_of(target)
            if other != part and other not in MAY_KNOW.get(part, set()):
                yield f"{pair} includes {target}: {part} must not know {other}"
            if part == "view_proxy" and other == "view" and target not in VIEW_PROXY_MAY_INCLUDE:
                yield f"{pair} includes {target}: the view tree knows scopes and the generator only"


def circles(edges):
    state, stack, found = {}, [], []

    def visit(pair):
        state[pair] = "open"
        stack.append(pair)
        for target in sorted(edges.get(pair, ())):
            if target == pair:
                continue
            if state.get(target) == "open":
                found.append(" -> ".join(stack[stack.index(target):] + [target]))
            elif target not in state:
                visit(target)
        stack.pop()
        state[pair] = "done"

    for pair in sorted(edges):
        if pair not in state:
            visit(pair)
    return [f"circle: {circle}" for circle in found]


def empty_test_folders():
    for kind in ("unit", "platform", "windows"):
        for folder in sorted((ROOT / "tests" / kind).glob("*/")):
            tests = sum(len(re.findall(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST)\(", source.read_text("utf-8"), re.M))
                        for source in folder.rglob("*.cpp"))
            if tests == 0:
                yield f"{folder.relative_to(ROOT)}: a test folder without a test"


def main():
    edges, problems = read_edges()
    problems += forbidden_edges(edges)
    problems += circles(edges)
    problems += empty_test_folders()
    for problem in problems:
        print(problem)
    print(f"{len(edges)} file pairs read, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
