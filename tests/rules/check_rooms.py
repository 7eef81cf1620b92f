#!/usr/bin/env python3
"""Checks the source tree against src/rooms.txt, the table of rooms.

Fails on an include that the table does not allow, on a circle of files or of folders, on a room without a file, on a
system header or a system switch outside platform/, and on a test folder without a test."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCE = ROOT / "src"
TABLE = SOURCE / "rooms.txt"
SOURCE_KINDS = {".h", ".cpp", ".c"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^">]+)[">]', re.M)
WINDOWS_HEADERS = {"windows.h", "commctrl.h", "winhttp.h", "gdiplus.h", "shellapi.h", "shlwapi.h", "imm.h", "objbase.h",
                   "oleacc.h"}
SYSTEM_SWITCH = re.compile(r"\b(?:_WIN32|_WIN64|__MINGW\w*|_MSC_VER)\b")
# The one header that tells compilers apart. It is in no room, and every room may include it.
COMPILER_HEADER = "compiler.h"


def read_table(text):
    """The rooms of the table with what each may include: {folder: {folder, ...}}."""
    rooms = {}
    for line in text.splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        room, colon, rest = line.partition(":")
        if not colon or room.strip() in rooms:
            raise ValueError(f"rooms.txt: not a row: {line}")
        rooms[room.strip()] = set(rest.partition("|")[0].split())
    return rooms


def room_of(path, rooms):
    """The room of a file: the row of its folder, or of the nearest folder above that has one."""
    for folder in pathlib.PurePosixPath(path).parents:
        if str(folder) in rooms:
            return str(folder)
    return None


def pair_of(path):
    """A header and its implementation are one: `room/name`."""
    return str(pathlib.PurePosixPath(path).with_suffix(""))


def read_files(source):
    return {path.relative_to(source).as_posix(): path.read_text(encoding="utf-8")
            for path in sorted(source.rglob("*")) if path.suffix in SOURCE_KINDS}


def system_problems(files):
    for name, text in files.items():
        if "/platform/" in name:
            continue
        if name != COMPILER_HEADER and SYSTEM_SWITCH.search(text):
            yield f"{name}: a system switch outside platform/"
        for _, target in INCLUDE.findall(text):
            if target.lower() in WINDOWS_HEADERS:
                yield f"{name}: includes {target} outside platform/"


def own_includes(files):
    """The includes of own headers: {file: [file, ...]}."""
    return {name: [target for kind, target in INCLUDE.findall(text) if kind == '"' and target in files]
            for name, text in files.items()}


def lost_includes(files):
    for name, text in files.items():
        for kind, target in INCLUDE.findall(text):
            if kind == '"' and target not in files and target != "pavane.h":
                yield f"{name}: includes {target}, which is not in src/"


def forbidden_edges(includes, rooms):
    for name, targets in includes.items():
        room = room_of(name, rooms)
        if room is None and name != COMPILER_HEADER:
            yield f"{name}: belongs to no room"
            continue
        for target in targets:
            if target == COMPILER_HEADER:
                continue
            other = room_of(target, rooms)
            if other != room and other not in rooms[room]:
                yield f"{name} includes {target}: {room} must not know {other}"


def table_problems(files, rooms):
    lived_in = {room_of(name, rooms) for name in files}
    for room, known in rooms.items():
        if room not in lived_in:
            yield f"rooms.txt: {room} has no file"
        for other in sorted(known - rooms.keys()):
            yield f"rooms.txt: {room} knows {other}, which has no row"


def graph_of(includes, name_of):
    graph = {}
    for name, targets in includes.items():
        edges = graph.setdefault(name_of(name), set())
        edges |= {name_of(target) for target in targets} - {name_of(name)}
    return graph


def circles(graph, kind):
    """One line for each back edge of a depth-first walk."""
    state, stack = {}, []

    def visit(node):
        state[node] = "open"
        stack.append(node)
        for target in sorted(graph.get(node, ())):
            if state.get(target) == "open":
                yield f"circle of {kind}: " + " -> ".join(stack[stack.index(target):] + [target])
            elif target not in state:
                yield from visit(target)
        stack.pop()
        state[node] = "done"

    for node in sorted(graph):
        if node not in state:
            yield from visit(node)


def empty_test_folders():
    for kind in ("unit", "platform", "windows"):
        for folder in sorted((ROOT / "tests" / kind).glob("*/")):
            tests = sum(len(re.findall(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST)\(", source.read_text("utf-8"), re.M))
                        for source in folder.rglob("*.cpp"))
            if tests == 0:
                yield f"{folder.relative_to(ROOT)}: a test folder without a test"


def problems_of(files, rooms):
    includes = own_includes(files)
    yield from system_problems(files)
    yield from lost_includes(files)
    yield from table_problems(files, rooms)
    yield from forbidden_edges(includes, rooms)
    yield from circles(graph_of(includes, pair_of), "files")
    yield from circles(graph_of(includes, lambda name: room_of(name, rooms) or name), "folders")


def main():
    rooms = read_table(TABLE.read_text(encoding="utf-8"))
    files = read_files(SOURCE)
    problems = [*problems_of(files, rooms), *empty_test_folders()]
    for problem in problems:
        print(problem)
    print(f"{len(rooms)} rooms and {len(files)} files read, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
