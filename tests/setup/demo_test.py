#!/usr/bin/env python3
"""The order of ./demo on an empty machine, and what it makes of the names it is given."""

import json
import shutil
import subprocess
import tempfile
import unittest

from setup_case import ROOT, SetupCase


class Demo(SetupCase):
    def setUp(self):
        super().setUp()
        self.tree = self.home / "a tree"
        (self.tree / "tools").mkdir(parents=True)
        (self.tree / "samples").mkdir()
        (self.tree / "build/demo/bin").mkdir(parents=True)
        shutil.copy(ROOT / "demo", self.tree)
        shutil.copy(ROOT / "tools/setup.sh", self.tree / "tools")
        self.picture = self.tree / "samples/coins.png"
        self.picture.touch()
        self.program("cmake", "")
        for name in ("vostel-demo", "vostel-viewer", "vostel-viewer-tour"):
            self.program(name, "")
            (self.tree / "build/demo/bin" / name).symlink_to(self.bin / name)

    def demo(self, *arguments, **environment):
        return self.run_script(str(self.tree / "demo"), *arguments, **environment)

    def steps(self):
        """The calls in order, each by what matters of it."""
        steps = []
        for call in self.called():
            words = call.replace(str(self.tree), "TREE").split(" ")
            if words[0] == "apt-get":
                words = ["install"] + [word for word in words if word in ("cmake", "qt6-base-dev")]
            elif words[0] == "cmake":
                words = (["build"] if words[1] == "--build" else ["configure"]) + [
                    word for word in words if word.startswith(("VOSTEL_BUILD_QT", "vostel-"))]
            steps.append(" ".join(words))
        return steps

    def test_frames_come_before_the_packages_of_the_viewer(self):
        status, output = self.demo()
        self.assertEqual(status, 0, output)
        self.assertEqual(self.steps(), [
            "install cmake",
            "configure VOSTEL_BUILD_QT=OFF",
            "build vostel-demo",
            "vostel-demo TREE/samples/coins.png TREE/demo-output",
            "install qt6-base-dev",
            "configure VOSTEL_BUILD_QT=ON",
            "build vostel-viewer-tour",
            "vostel-viewer-tour TREE/demo-output/viewer TREE/samples/coins.png"])

    def test_a_second_run_installs_nothing_and_keeps_its_settings(self):
        self.demo()
        self.calls.write_text("")
        status, output = self.demo()
        self.assertEqual(status, 0, output)
        self.assertEqual(self.steps()[:2], ["configure VOSTEL_BUILD_QT=ON", "build vostel-demo"])
        self.assertEqual([step for step in self.steps() if step.startswith("install")], [])

    def test_a_display_gets_the_viewer_itself(self):
        self.demo(DISPLAY=":7")
        self.assertEqual(self.steps()[-2:], ["build vostel-viewer", "vostel-viewer TREE/samples/coins.png"])

    def test_names_with_spaces_and_chinese_reach_the_programs_whole(self):
        folder = self.home / "我的 图像"
        folder.mkdir()
        picture = folder / "硬币 一.png"
        picture.touch()
        for locale in ("C.UTF-8", "C"):
            self.calls.write_text("")
            status, output = self.demo(str(picture), LC_ALL=locale)
            self.assertEqual(status, 0, output)
            self.assertIn(f"vostel-demo {picture} TREE/demo-output", self.steps())

    def test_programs_read_names_as_utf_8(self):
        self.program("vostel-demo", 'echo "set is $LC_ALL"')
        self.assertIn("set is C.UTF-8", self.demo(LC_ALL="C")[1])

    def test_a_picture_that_is_not_there_is_reported_before_any_step(self):
        status, output = self.demo("no such.png")
        self.assertEqual(status, 1)
        self.assertRegex(output, r"\Acannot read .*/no such\.png\n\Z")
        self.assertEqual(self.called(), [])

    def test_a_user_who_cannot_install_reads_every_package_at_once(self):
        self.user(1000)
        self.remove("sudo")
        status, output = self.demo()
        self.assertEqual(status, 1)
        self.assertRegex(output, r"\Apackages are missing; install them as root: apt-get install "
                                 r"cmake .*fonts-noto-cjk .*qt6-base-dev.*\n\Z")
        self.assertEqual(self.steps(), [])

    def test_help_is_printed_and_nothing_done(self):
        status, output = self.demo("--help")
        self.assertEqual(status, 0)
        self.assertTrue(output.startswith("demo [PICTURE]: "))
        self.assertEqual(self.called(), [])


class Configuration(unittest.TestCase):
    def test_the_first_build_asks_for_neither_doctest_nor_qt(self):
        presets = json.loads((ROOT / "CMakePresets.json").read_text(encoding="utf-8"))
        self.assertIn("demo", [preset["name"] for preset in presets["configurePresets"]])
        with tempfile.TemporaryDirectory() as build:
            subprocess.run(["cmake", "-S", ROOT, "-B", build, "--preset", "demo", "-D", "VOSTEL_BUILD_QT=OFF"],
                           cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
            with open(build + "/CMakeCache.txt", encoding="utf-8") as cache:
                looked_for = [line.split("=")[0] for line in cache if not line.startswith(("#", "//"))]
        self.assertIn("VOSTEL_BUILD_TESTS:BOOL", looked_for)
        self.assertEqual([name for name in looked_for if "DOCTEST" in name or name.startswith("Qt6")], [])


if __name__ == "__main__":
    unittest.main()
