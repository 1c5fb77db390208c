#!/usr/bin/env python3
"""The check of the floors finds what it is there to find, in small trees made for it."""

import pathlib
import tempfile
import unittest

import floors
from tree_case import TreeCase


class FloorsTest(TreeCase):
    def setUp(self):
        super().setUp()
        for floor in floors.FLOORS:
            self.write(f"src/{floor}/Own.h", "#pragma once\n")
        self.write("include/vostel/export.h", "#pragma once\n")

    def test_own_and_earlier_floors_are_fine(self):
        for floor in floors.FLOORS:
            self.write(f"src/{floor}/Own.cpp",
                       f'#include "{floor}/Own.h"\n#include "base/Own.h"\n#include <map>\n')
        self.assertEqual(floors.problems(self.root), [])

    def test_a_later_floor_is_found_with_its_line(self):
        self.write("src/overlay/Shape.cpp", '#include "overlay/Own.h"\n\n#  include "canvas/Own.h"\n')
        self.assertEqual(floors.problems(self.root), [
            'src/overlay/Shape.cpp:3: overlay includes "canvas/Own.h" of canvas, which comes after it'])

    def test_folders_inside_a_floor_belong_to_it_unless_they_are_floors(self):
        self.write("src/platform/win32/Window.h", '#include "foundation/Own.h"\n')
        self.write("src/canvas/view/View.h", '#include "canvas/Own.h"\n')
        self.assertEqual([line.split(" includes")[0] for line in floors.problems(self.root)],
                         ["src/canvas/view/View.h:1: canvas/view", "src/platform/win32/Window.h:1: platform"])

    def test_a_public_header_counts_with_the_floor_that_implements_it(self):
        self.write("include/vostel/Fills.h", '#include "vostel/export.h"\n')
        self.write("src/imaging/Fills.cpp", '#include "vostel/Fills.h"\n')
        self.write("src/canvas/Labels.cpp", '#include "canvas/Own.h"\n#include "vostel/Fills.h"\n')
        self.assertEqual(floors.problems(self.root), [])
        self.write("src/base/Early.cpp", '#include "base/Own.h"\n#include "vostel/Fills.h"\n')
        self.assertEqual(floors.problems(self.root), [
            'src/base/Early.cpp:2: base includes "vostel/Fills.h" of imaging, which comes after it'])

    def test_a_public_header_includes_no_later_floor_either(self):
        self.write("include/vostel/CanvasTypes.h", '#include "vostel/export.h"\n')
        self.write("include/vostel/Fills.h", '#include "vostel/CanvasTypes.h"\n')
        self.write("src/imaging/Fills.cpp", '#include "vostel/Fills.h"\n')
        self.assertEqual(len(floors.problems(self.root)), 1)

    def test_what_has_no_floor_is_found(self):
        self.write("src/attic/Old.h", "")
        self.write("include/vostel/Nobody.h", "")
        self.assertEqual(floors.problems(self.root), [
            "src/attic/Old.h:1: belongs to no floor of tests/tree/floors.py",
            "include/vostel/Nobody.h:1: belongs to no floor of tests/tree/floors.py"])

    def test_a_tree_without_sources_does_not_pass(self):
        with tempfile.TemporaryDirectory() as empty:
            self.assertEqual(len(floors.problems(pathlib.Path(empty))), 1)


if __name__ == "__main__":
    unittest.main()
