#!/usr/bin/env python3
"""The Chinese pages show the same code, commands, pictures and tables as the English ones."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGES = {"README.zh-CN.md": "README.md", "docs/zh/index.md": "docs/index.md",
         "docs/zh/formats.md": "docs/formats.md"}
# Where the English ones are that do not lie with the others.
ELSEWHERE = {"csharp.md": "bindings/dotnet/README.md"}
PAGES.update({page.relative_to(ROOT).as_posix(): f"docs/guides/{page.name}"
              for page in (ROOT / "docs/zh/guides").glob("*.md")})
PAGES.update({page.relative_to(ROOT).as_posix(): ELSEWHERE.get(page.name, f"docs/tutorials/{page.name}")
              for page in (ROOT / "docs/zh/tutorials").glob("*.md")})
BLOCK = re.compile(r"^```\w+\n.*?^```$", re.DOTALL | re.MULTILINE)


class Translations(unittest.TestCase):
    def each(self, look):
        """Compares what a function finds in both pages of each pair."""
        for chinese, english in PAGES.items():
            with self.subTest(page=chinese):
                found = [look((ROOT / page).read_text(encoding="utf-8")) for page in (chinese, english)]
                self.assertEqual(*found)

    def test_every_tutorial_is_there(self):
        self.assertEqual({page.name for page in (ROOT / "docs/tutorials").glob("*.md")} | set(ELSEWHERE),
                         {page.name for page in (ROOT / "docs/zh/tutorials").glob("*.md")})

    def test_blocks_of_code_and_what_they_print_are_the_same(self):
        self.each(BLOCK.findall)

    def test_code_in_the_text_is_the_same(self):
        self.each(lambda text: sorted(re.findall(r"`[^`\n]+`", BLOCK.sub("", text))))

    def test_headings_rows_and_points_are_as_many(self):
        self.each(lambda text: [len(re.findall(f"^{start}", BLOCK.sub("", text), re.MULTILINE))
                                for start in ("# ", "## ", r"\|", "- ", r"!\[")])

    def test_the_text_is_chinese(self):
        for chinese in PAGES:
            text = (ROOT / chinese).read_text(encoding="utf-8")
            self.assertGreater(len(re.findall("[\u4e00-\u9fff]", text)), 150, chinese)


if __name__ == "__main__":
    unittest.main()
