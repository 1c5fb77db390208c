#!/usr/bin/env python3
"""What debian/ says agrees with the tree: version, packages of the build, and who gets which installed file."""

import fnmatch
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
DEBIAN = ROOT / "debian"
BUILD = pathlib.Path(sys.argv.pop() if len(sys.argv) > 1 else ROOT / "build/release")


def text(path):
    return (ROOT / path).read_text(encoding="utf-8")


def names(field):
    """Packages of a field of debian/control, without versions."""
    return {re.match(r"[\w.+-]+", entry.strip()).group(0) for entry in field.split(",") if entry.strip()[0] != "$"}


def paragraphs():
    for paragraph in text("debian/control").strip().split("\n\n"):
        yield dict(re.findall(r"^([\w-]+): (.*(?:\n .*)*)", paragraph, re.MULTILINE))


class Debian(unittest.TestCase):
    def test_it_has_the_version_of_the_library(self):
        version = re.search(r'VOSTEL_VERSION "(.*?)"', text("include/vostel/version.h")).group(1)
        self.assertRegex(text("debian/changelog"), rf"\Avostelobj \({re.escape(version)}[~)]")
        self.assertIn(f'"VostelObj {version}"', text("debian/vostel-viewer.1"))

    def test_the_build_depends_on_what_the_scripts_install(self):
        source = next(paragraphs())
        needed = names(source["Build-Depends"])
        lists = dict(re.findall(r"^packages_(\w+)=\((.*?)\)", text("tools/setup.sh"), re.MULTILINE | re.DOTALL))
        expected = set(f"{lists['build']} {lists['viewer']}".split()) - {"g++", "qt6-translations-l10n"}
        self.assertEqual(needed - {"debhelper-compat", "dh-sequence-python3", "python3", "python3-numpy"}, expected)

    def test_a_library_s_package_has_its_soname_and_its_version_nodes(self):
        packages = [paragraph["Package"] for paragraph in paragraphs() if "Package" in paragraph]
        for library in ("libVostelObj", "libTessik"):
            package = f"{library.lower()}1"
            self.assertIn(package, packages)
            self.assertTrue(text(f"debian/{package}.symbols").startswith(f"{library}.so.1 {package} "))
            map_file = next(BUILD.rglob(f"{library[3:]}.map")).read_text(encoding="utf-8")
            nodes = re.findall(r"^([A-Z]+_1\.\d)", map_file, re.MULTILINE)
            self.assertEqual(re.findall(r"symver\)(\S+)", text(f"debian/{package}.symbols")), nodes)

    def test_every_installed_file_goes_to_one_package(self):
        patterns = []
        for file in sorted(DEBIAN.glob("*.install")):
            for line in file.read_text(encoding="utf-8").splitlines():
                source = line.split()[0]
                if source.startswith("usr/"):
                    patterns.append(source.replace("usr/lib/*/", "usr/lib/"))
                else:
                    self.assertTrue((ROOT / source).exists(), source)
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["cmake", "--install", BUILD, "--prefix", f"{folder}/usr"], check=True,
                           stdout=subprocess.DEVNULL)
            installed = [re.sub(r"^usr/lib/\w+-linux-gnu\w*/", "usr/lib/",
                                os.path.relpath(os.path.join(where, file), folder))
                         for where, _, files in os.walk(folder) for file in files]
        self.assertGreater(len(installed), 50)
        used = set()
        for file in installed:
            owners = [pattern for pattern in patterns
                      if fnmatch.fnmatch(file, pattern) or file.startswith(pattern + "/")]
            self.assertEqual(len(owners), 1, f"{file} is taken by {owners}")
            used.update(owners)
        self.assertEqual(used, set(patterns))

    def test_scripts_can_be_run(self):
        for script in ("rules", "tests/measure"):
            self.assertTrue(os.access(DEBIAN / script, os.X_OK), script)


if __name__ == "__main__":
    unittest.main()
