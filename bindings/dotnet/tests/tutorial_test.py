#!/usr/bin/env python3
"""The tutorial of the README is one program, which compiles and prints what it should; and the package's description
has the version and the files of the tree. Run with the programs of the build in the current folder."""

import os
import pathlib
import re
import subprocess
import unittest
import xml.etree.ElementTree

HERE = pathlib.Path(__file__).resolve().parents[1]
ROOT = HERE.parents[1]


class Tutorial(unittest.TestCase):
    def test_it_runs(self):
        blocks = re.findall(r"^```csharp\n(.*?)^```$", (HERE / "README.md").read_text(encoding="utf-8"),
                            re.DOTALL | re.MULTILINE)
        pathlib.Path("Tutorial.cs").write_text("".join(blocks), encoding="utf-8")
        subprocess.run([HERE / "build", ".", "Tutorial", "Tutorial.cs"], check=True)
        printed = subprocess.run(["mono", "Tutorial.exe", ROOT / "samples/coins.png"], check=True, text=True,
                                 stdout=subprocess.PIPE, env=os.environ | {"LC_ALL": "C.UTF-8"}).stdout
        lines = printed.splitlines()
        self.assertEqual(lines[0], "384 x 303, U8")
        self.assertRegex(lines[1], r"^coin: 27\.49 mm2, mean \d+\.\d$")    # pi * 3.5 * 2.5
        self.assertEqual(lines[2:], ["10.0 mm", "255 True", "16 bins, 101 samples", "3 objects",
                                     "2 changes, left edge again 20"])
        self.assertGreater(os.path.getsize("coins-measured.png"), 10000)
        self.assertGreater(os.path.getsize("coins.vostel.json"), 100)


class Package(unittest.TestCase):
    project = xml.etree.ElementTree.parse(HERE / "Vostel.csproj")

    def test_it_has_the_version_of_the_library(self):
        header = (ROOT / "include/vostel/version.h").read_text(encoding="utf-8")
        version = re.search(r'VOSTEL_VERSION "(.*?)"', header).group(1)
        self.assertEqual(self.project.findtext(".//Version"), version)
        self.assertEqual(self.project.findtext(".//TargetFramework"), "netstandard2.0")

    def test_its_files_are_there(self):
        named = [item.get("Include") for item in self.project.iter() if item.get("Include", "").count(".")]
        files = [name for name in named if name != "System.Memory" and not name.startswith("$(")]
        self.assertEqual(len(files), 4)
        for name in files:
            self.assertTrue(list(HERE.glob(name)) if "*" in name else (HERE / name).exists(), name)


if __name__ == "__main__":
    unittest.main()
