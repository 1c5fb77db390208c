#!/usr/bin/env python3
"""What the pages show of Python runs."""

import contextlib
import io
import os
import pathlib
import re
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[3]


class Pages(unittest.TestCase):
    def blocks(self, page):
        found = re.findall(r"^```python\n(.*?)^```$", (ROOT / page).read_text(encoding="utf-8"),
                           re.DOTALL | re.MULTILINE)
        self.assertTrue(found, f"{page} shows no Python")
        return found

    def run_page(self, page):
        """Runs its blocks after each other beside the samples; returns what they print."""
        before = os.getcwd()
        printed = io.StringIO()
        with tempfile.TemporaryDirectory() as folder:
            os.symlink(ROOT / "samples", os.path.join(folder, "samples"))
            os.chdir(folder)
            try:
                names = {}
                with contextlib.redirect_stdout(printed):
                    for block in self.blocks(page):
                        exec(compile(block, page, "exec"), names)
            finally:
                os.chdir(before)
        return printed.getvalue()

    def test_the_readme(self):
        self.assertIn("(303, 384)\ncoin 18.98", self.run_page("README.md"))

    def test_the_page_of_python(self):
        self.assertRegex(self.run_page("docs/python.md"), r"^\d+\.\d+ 2760\.0\n")


class Members(unittest.TestCase):
    def test_the_page_of_python_names_every_member_and_no_other(self):
        import vostel

        text = (ROOT / "docs/python.md").read_text(encoding="utf-8")
        told = set(re.findall(r"\b\w+\b", " ".join(re.findall("`([^`]*)`", text))))
        fields = set(vostel.Measures._fields) | {"centroid"}
        for kind in (vostel.Canvas, vostel.Object):
            public = {name for name in dir(kind) if not name.startswith("_")}
            self.assertEqual(public - told - fields, set())
        routines = {name for name in vostel.__all__ if name[0].islower()}
        self.assertEqual(routines - told, set())
        members = text.partition("## Members")[2].partition("\n## ")[0]
        table = " ".join(line for line in members.splitlines() if re.match(r"\| (?!Of |-)", line))
        names = set(re.findall(r"`(?:Canvas\.)?([a-z_]+)[`(]", table))
        self.assertEqual({name for name in names if not hasattr(vostel.Canvas, name) and
                          not hasattr(vostel.Object, name) and not name.startswith("keep_")} - {"color", "width"}, set())


if __name__ == "__main__":
    unittest.main()
