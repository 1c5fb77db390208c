#!/usr/bin/env python3
"""The check of what writes files finds what it is there to find, in small trees made for it."""

import unittest

import writes
from tree_case import TreeCase


class WritesTest(TreeCase):
    def setUp(self):
        super().setUp()
        for name in writes.WRITERS:
            self.write(f"src/{name}", 'std::FILE* file = std::fopen(path, "wb");\n')

    def found(self, text):
        self.write("src/canvas/Save.cpp", text)
        return writes.problems(self.root)

    def test_reading_and_the_calls_that_replace_are_fine(self):
        for text in ('OpenFile(path, "rb");', 'std::ifstream file(path);', "FileReplacement file(path);",
                     "SavePicture(picture, path);", '// OpenFile(path, "wb") is not used', "Save(name);"):
            self.assertEqual(self.found(text + "\n"), [], text)

    def test_each_way_to_write_is_found_with_its_line(self):
        for text in ('OpenFile(path, "wb");', 'OpenUtf8File(path, "a");', 'fopen(path, "r+b");',
                     'fopen_s(&file, path, "w");', "std::ofstream file(path);", "std::fstream file(path);",
                     "stream.open(path, std::ios_base::out);", "picture.Save(path);", "picture->Save(path);",
                     "open(path, O_WRONLY | O_CREAT, 0666);", "std::rename(a, b);", "CopyFileW(a, b, TRUE);",
                     "std::filesystem::copy_file(a, b);"):
            self.assertEqual(self.found("\n" + text + "\n"), ["src/canvas/Save.cpp:2: writes a file by itself"], text)

    def test_a_named_source_that_writes_nothing_is_found(self):
        self.write("src/fileio/ParameterFiles.cpp", "")
        self.assertEqual(writes.problems(self.root), ["src/fileio/ParameterFiles.cpp: writes no file any more"])

    def test_a_tree_without_sources_is_no_tree(self):
        self.assertEqual(len(writes.problems(self.root / "none")), 1)


if __name__ == "__main__":
    unittest.main()
