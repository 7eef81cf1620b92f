#!/usr/bin/env python3
"""Tests of check_rooms.py over small trees of its own."""

import unittest

import check_rooms

ROOMS = check_rooms.read_table("""
# low to high
low          : | user32
low/inner    : low
high         : low low/inner
""")


def problems(files):
    whole = {"low/a.h": "", "low/inner/b.h": "", "high/c.h": ""}
    whole.update(files)
    return list(check_rooms.problems_of(whole, ROOMS))


class CheckRooms(unittest.TestCase):
    def test_a_sound_tree_has_no_problem(self):
        self.assertEqual(problems({"high/d.cpp": '#include "low/a.h"\n#include "low/inner/b.h"\n#include <string>\n'}), [])

    def test_a_file_belongs_to_the_nearest_folder_with_a_row(self):
        self.assertEqual(check_rooms.room_of("low/inner/b.h", ROOMS), "low/inner")
        self.assertEqual(check_rooms.room_of("low/platform/win32/x.cpp", ROOMS), "low")

    def test_an_edge_that_the_table_lacks_fails(self):
        self.assertIn("low/x.cpp includes high/c.h: low must not know high", problems({"low/x.cpp": '#include "high/c.h"'}))

    def test_a_circle_of_files_fails(self):
        found = problems({"low/x.h": '#include "low/y.h"', "low/y.h": '#include "low/x.h"'})
        self.assertIn("circle of files: low/x -> low/y -> low/x", found)

    def test_a_circle_of_folders_fails_without_a_circle_of_files(self):
        found = problems({"low/x.h": '#include "low/inner/b.h"', "low/inner/z.h": '#include "low/a.h"'})
        self.assertTrue(any(line.startswith("circle of folders:") for line in found), found)

    def test_a_room_without_a_file_fails(self):
        rooms = {**ROOMS, "empty": set()}
        self.assertIn("rooms.txt: empty has no file", list(check_rooms.problems_of({"low/a.h": ""}, rooms)))

    def test_a_folder_outside_every_room_fails(self):
        self.assertIn("lost/a.h: belongs to no room", problems({"lost/a.h": ""}))

    def test_an_include_that_is_nowhere_fails(self):
        self.assertIn("low/x.cpp: includes low/gone.h, which is not in src/", problems({"low/x.cpp": '#include "low/gone.h"'}))

    def test_a_system_switch_is_for_platform_folders_and_the_compiler_header(self):
        for switch in ("_WIN32", "__MINGW32__", "_MSC_VER"):
            text = f"#if defined({switch})\n#endif\n"
            self.assertIn("low/x.h: a system switch outside platform/", problems({"low/x.h": text}))
            self.assertEqual(problems({"low/platform/win32/x.h": text}), [])
            self.assertEqual(problems({"compiler.h": text}), [])

    def test_a_system_header_is_for_platform_folders(self):
        self.assertIn("low/x.cpp: includes windows.h outside platform/", problems({"low/x.cpp": "#include <windows.h>"}))

    def test_the_table_takes_no_row_twice(self):
        with self.assertRaises(ValueError):
            check_rooms.read_table("a :\na :\n")


if __name__ == "__main__":
    unittest.main()
