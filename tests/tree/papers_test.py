#!/usr/bin/env python3
"""The check of the pages finds what it is there to find, in small trees made for it."""

import pathlib
import tempfile
import unittest

import papers
from tree_case import TreeCase


class PapersTest(TreeCase):
    def setUp(self):
        super().setUp()
        self.write("src/canvas/View.h", "class View { void Zoom(); };\n")
        self.write("docs/other.md", "# A Heading, with `code`\n")

    def found(self, text, page="docs/page.md"):
        self.write(page, text)
        return papers.problems(self.root)

    def test_what_exists_is_fine(self):
        self.assertEqual(self.found("# Page\n[a](other.md) [b](#page) [c](other.md#a-heading-with-code)\n"
                                    "`src/canvas/` `canvas/View.h` `View.h` `View.{h}` `src/*/View.h`\n"
                                    "[d](https://example.org/x) `build/release` `a=b/c` `/usr/x.h`\n"), [])

    def test_files_that_a_page_has_its_reader_write_are_fine(self):
        self.assertEqual(self.found("`tool.c`:\n```c\n```\n```sh\ncc tool.c -o tool\n./tool\n```\n`tool.h`\n"),
                         ["docs/page.md:8: no path tool.h"])

    def test_links_to_nothing_are_found(self):
        self.assertEqual(self.found("fine\n![x](gone.png) [y](other.md#gone)\n[z]: gone.md\n"), [
            "docs/page.md:2: no file gone.png",
            "docs/page.md:2: no heading other.md#gone",
            "docs/page.md:3: no file gone.md"])

    def test_paths_to_nothing_are_found(self):
        self.assertEqual(self.found("`src/View.h`, `canvas/Gone.h`\n`Gone.cpp` `./gone`\n"
                                    "```\ncat src/gone\n```\n"), [
            "docs/page.md:1: no path src/View.h",
            "docs/page.md:1: no path canvas/Gone.h",
            "docs/page.md:2: no path Gone.cpp",
            "docs/page.md:2: no path gone",
            "docs/page.md:4: no path src/gone"])

    def test_names_of_the_architecture_page_are_those_of_the_code(self):
        self.assertEqual(self.found("`View::Zoom()` `View::Pan` plain\n", "docs/architecture.md"), [
            "docs/architecture.md:1: no name View::Pan in src or include"])

    def test_a_tree_without_pages_does_not_pass(self):
        with tempfile.TemporaryDirectory() as empty:
            self.assertEqual(len(papers.problems(pathlib.Path(empty))), 1)


if __name__ == "__main__":
    unittest.main()
