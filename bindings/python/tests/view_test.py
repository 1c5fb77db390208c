#!/usr/bin/env python3
"""python -m vostel view opens a file in the viewer, or says why it does not."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest


class View(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.picture = self.folder / "图像 1.png"
        self.picture.write_bytes(b"")

    def view(self, *arguments, path=""):
        return subprocess.run([sys.executable, "-m", "vostel", *map(str, arguments)], text=True, capture_output=True,
                              env={**os.environ, "PATH": f"{path}"}, timeout=60)

    def test_the_viewer_gets_the_file_and_gives_its_exit_code(self):
        viewer = self.folder / "vostel-viewer"
        viewer.write_text('#!/bin/sh\necho "$@"\nexit 3\n')
        viewer.chmod(0o755)
        run = self.view("view", self.picture, path=self.folder)
        self.assertEqual((run.returncode, run.stdout), (3, f"{self.picture}\n"))

    def test_a_file_that_is_not_there_is_named(self):
        run = self.view("view", self.folder / "none.png")
        self.assertEqual(run.returncode, 1)
        self.assertIn("none.png", run.stderr)

    def test_wrong_use_ends_with_two(self):
        for arguments in ((), ("view",), ("look", self.picture), ("view", self.picture, "more")):
            self.assertEqual(self.view(*arguments).returncode, 2)

    def test_without_a_viewer_it_says_so(self):
        from unittest import mock
        from vostel import __main__ as program
        with mock.patch.object(program, "find_viewer", return_value=None):
            self.assertEqual(program.main(["view", str(self.picture)]), 1)


if __name__ == "__main__":
    unittest.main()
