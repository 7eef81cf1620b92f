#!/usr/bin/env python3
"""run_tidy.py BUILD FOLDER...: runs clang-tidy with the checked-in configuration over the C++ code of these folders;
BUILD holds a compilation database of the native build.

Most of clang-tidy's time goes into system headers, so the files of a folder are checked together as one translation
unit. A unit that does not compile is checked in halves."""

import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "cmake"))
import group_sources  # noqa: E402

# The static analyzer follows every path through the macros of the tests and the loops of the benchmarks, which takes
# eight times as long as all other checks and finds nothing there but these macros and loops. Speed and
# overflow mean nothing for the small texts and numbers there.
PLAIN_FOLDERS = ("tests", "bench")
LEFT_OUT = ",-clang-analyzer-*,-performance-*,-bugprone-implicit-widening-of-multiplication-result"
MOST = 40  # files in a unit
MINGW = "/usr/lib/gcc/x86_64-w64-mingw32"


def windows_flags():
    """Options with which clang reads the headers of MinGW's libraries."""
    version = sorted(pathlib.Path(MINGW).glob("*-posix"))[-1]
    headers = version / "include" / "c++"
    return ["--target=x86_64-w64-windows-gnu", "-nostdinc++",
            *(f"-isystem{path}" for path in (headers, headers / "x86_64-w64-mingw32", headers / "backward")),
            "-DUNICODE", "-D_UNICODE", "-DNOMINMAX", "-DWIN32_LEAN_AND_MEAN", "-D_WIN32_WINNT=0x0601"]


def own_files(folders):
    listed = subprocess.run(["git", "ls-files", *folders], cwd=ROOT, check=True, capture_output=True, text=True).stdout
    return [name for name in listed.split() if name.endswith(".cpp")]


def native_flags(build):
    """What the native build defines and includes: {file: [option, ...]}."""
    flags = {}
    for entry in json.loads((pathlib.Path(build) / "compile_commands.json").read_text()):
        name = os.path.relpath(entry["file"], ROOT)
        words = shlex.split(entry["command"])
        flags[name] = [word for word in words if re.match(r"-(?:I|D|isystem)", word) and "cmake_pch" not in word]
        flags[name] += [f"-isystem{path}" for word, path in zip(words, words[1:]) if word == "-isystem"]
    return flags


def flags_of(name, native):
    """None for a file that no build here compiles."""
    own = [f"-I{ROOT / folder}" for folder in ("src", "include", "tests", ".")]
    if name.startswith("bench/") and "/windows/" not in name:
        return own
    if "/win32/" in name or name.startswith(("tests/windows/", "bench/windows/")):
        return [*windows_flags(), *own, "-isystem/usr/src/googletest/googletest/include",
                "-isystem/usr/src/googletest/googlemock/include", '-DPAVANE_TEST_DATA="."',
                '-DPAVANE_COMPANIONS="."']
    return native.get(name)


def top_folder_of(name):
    """src/toolkit, tests/unit/toolkit"""
    folders = name.split("/")[:-1]
    return folders[:3] if folders[0] == "tests" else folders[:2]


def units_of(names, native):
    """What is checked together: [(flags, [file, ...])]."""
    flags = {name: flags_of(name, native) for name in names}
    for name in names:
        if flags[name] is None:
            print(f"{name}: not in the native build, left out")
    checked = [name for name in names if flags[name] is not None]
    groups = group_sources.groups_of(checked, MOST, lambda name: (top_folder_of(name), sorted(set(flags[name]))))
    groups.sort(key=lambda group: -len(group[1]))  # a large one at the end would keep one processor busy alone
    return [(flags, files) for (_, flags), files in groups]


def tidy(path, flags, folder):
    checks = "--checks=-bugprone-suspicious-include"  # a unit includes source files
    if folder in PLAIN_FOLDERS:
        checks += LEFT_OUT
    command = ["clang-tidy", "--quiet", f"--config-file={ROOT / '.clang-tidy'}", checks, str(path), "--", "-std=c++20",
               "-Wno-pragma-once-outside-header", *flags]
    ran = subprocess.run(command, capture_output=True, text=True)
    lines = [line for line in ran.stdout.splitlines() if line.strip()]
    return ran.returncode, lines


def check_unit(unit):
    flags, files = unit
    folder = files[0].split("/")[0]
    if len(files) == 1:
        code, lines = tidy(ROOT / files[0], flags, folder)
        return lines if code else []
    with tempfile.TemporaryDirectory() as place:
        together = pathlib.Path(place) / "unit.cpp"
        together.write_text("".join(f'#include "{ROOT / name}"\n' for name in files))
        code, lines = tidy(together, flags, folder)
    if code and any("clang-diagnostic-error" in line for line in lines):
        half = len(files) // 2
        return check_unit((flags, files[:half])) + check_unit((flags, files[half:]))
    return lines if code else []


def main():
    build, *folders = sys.argv[1:]
    units = units_of(own_files(folders), native_flags(build))
    problems = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for unit in concurrent.futures.as_completed([pool.submit(check_unit, unit) for unit in units]):
            lines = unit.result()
            problems += sum(": error:" in line or ": warning:" in line for line in lines)
            for line in lines:
                print(line)
    print(f"clang-tidy: {sum(len(files) for _, files in units)} files in {len(units)} units, {problems} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
