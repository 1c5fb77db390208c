#!/usr/bin/env python3
"""The steps of ./check, and what its options add."""

import re
import shutil
import unittest

from setup_case import ROOT, SetupCase


class Check(SetupCase):
    def setUp(self):
        super().setUp()
        self.tree = self.home / "a tree"
        (self.tree / "tools").mkdir(parents=True)
        shutil.copy(ROOT / "check", self.tree)
        shutil.copy(ROOT / "tools/setup.sh", self.tree / "tools")
        (self.tree / "tests/tools").mkdir(parents=True)
        for name in ("run-under-wine", "check-style"):
            self.program(name, "")
            (self.tree / "tests/tools" / name).symlink_to(self.bin / name)
        self.program("cmake", "")
        self.program("ctest", "")

    def check(self, *arguments, **environment):
        return self.run_script(str(self.tree / "check"), *arguments, **environment)

    def listed(self):
        return (self.tree / "build/check/CTestTestfile.cmake").read_text(encoding="utf-8")

    def test_every_preset_is_built_before_the_one_run_of_the_tests(self):
        status, output = self.check()
        self.assertEqual(status, 0, output)
        built = re.findall(r"^cmake --build .*?/build/(\w+) ", self.calls.read_text(), re.MULTILINE)
        self.assertEqual(built[:4], ["debug", "tsan", "release", "windows"])
        self.assertTrue(self.called()[-1].startswith(f"ctest --test-dir {self.tree}/build/check"))
        for preset in ("debug", "release", "windows"):
            self.assertIn(f'subdirs("{self.tree}/build/{preset}")', self.listed())
        self.assertIn('add_test("scenes/ComparePlatforms"', self.listed())

    def test_tests_that_fail_fail_the_check(self):
        self.program("ctest", "exit 8")
        self.assertEqual(self.check()[0], 8)

    def test_a_build_that_fails_ends_the_check_with_its_output(self):
        self.program("cmake", '[[ $1 != --build ]] || { echo "error: no such name"; exit 1; }')
        status, output = self.check()
        self.assertEqual(status, 1)
        self.assertIn("error: no such name", output)
        self.assertNotRegex(self.calls.read_text(), r"(?m)^ctest")

    def test_minimal_systems_are_for_the_long_check(self):
        self.check()
        self.assertNotIn("bare/", self.listed())
        self.assertNotIn("mmdebstrap", self.calls.read_text())
        self.calls.write_text("")
        self.check("--long")
        self.assertIn('add_test("bare/demo"', self.listed())
        self.assertIn('add_test("bare/check"', self.listed())
        self.assertIn('add_test("bare/debian"', self.listed())
        self.assertIn("mmdebstrap", self.calls.read_text())

    def test_no_display_and_no_language_of_the_user_reaches_the_tests(self):
        self.program("ctest", 'echo "${DISPLAY-none} ${WAYLAND_DISPLAY-none} $LC_ALL $TZ"')
        output = self.check(DISPLAY=":0", WAYLAND_DISPLAY="w", LC_ALL="zh_CN.UTF-8")[1]
        self.assertIn("none none C.UTF-8 UTC\n", output)

    def test_help_is_printed_and_nothing_done(self):
        status, output = self.check("--help")
        self.assertEqual(status, 0)
        self.assertIn("--long", output)
        self.assertEqual(self.called(), [])

    def test_an_unknown_option_is_refused(self):
        self.assertEqual(self.check("--lnog")[0], 2)
        self.assertEqual(self.called(), [])


if __name__ == "__main__":
    unittest.main()
