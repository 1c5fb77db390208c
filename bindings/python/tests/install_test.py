#!/usr/bin/env python3
"""The package installs by pip from a checkout and from its source archive, and brings its library along."""

import importlib.util
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tarfile
import tempfile
import unittest
import zipfile

HERE = pathlib.Path(__file__).resolve().parents[1]
ROOT = HERE.parents[1]

USE = """
import numpy, vostel
canvas = vostel.Canvas(100, 80)
canvas.show(numpy.full((8, 9), 5, numpy.uint8))
print(vostel.version, canvas.add_rectangle(1, 1, 4, 4).mean, vostel.__file__)
print(sorted({line.split()[-1] for line in open("/proc/self/maps") if "libVostelObj" in line or "libTessik" in line}))
"""


class Install(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        # A checkout in which building leaves its traces.
        self.package = self.folder / "checkout/bindings/python"
        shutil.copytree(HERE, self.package, ignore=shutil.ignore_patterns("build", "*.egg-info", "__pycache__"))
        for part in ("CMakeLists.txt", "LICENSE", "cmake", "docs", "include", "pyproject.toml", "src"):
            (self.folder / "checkout" / part).symlink_to(ROOT / part)

    def python(self, *arguments, **variables):
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("VOSTEL_LIBRARY", "PYTHONPATH")}
        run = subprocess.run([sys.executable, *map(str, arguments)], text=True, capture_output=True,
                             cwd=variables.pop("cwd", self.folder), env={**environment, **variables})
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        return run.stdout

    def install(self, source):
        target = self.folder / "installed"
        self.python("-m", "pip", "install", "--quiet", "--no-build-isolation", "--no-deps", "--no-index",
                    "--disable-pip-version-check", "--root-user-action", "ignore", "--target", target, source)
        return target

    def check_use(self, target):
        told = self.python("-c", USE, PYTHONPATH=str(target)).splitlines()
        version, mean, file = told[0].split(" ", 2)
        self.assertEqual((mean, file), ("5.0", str(target / "vostel/__init__.py")))
        self.assertIn(f'"{version}"', (ROOT / "include/vostel/version.h").read_text())
        library = target / "vostel/lib"
        self.assertEqual(told[1], str([str(library / "libTessik.so.1"), str(library / "libVostelObj.so.1")]))
        self.assertTrue((target / "vostel/py.typed").exists())
        self.assertTrue((library / "LICENSE").exists())

    def test_from_the_folder_of_the_package(self):
        self.check_use(self.install(self.package))

    def test_from_the_top_of_a_checkout(self):
        self.check_use(self.install(self.folder / "checkout"))

    def test_from_its_source_archive(self):
        self.python("setup.py", "--quiet", "sdist", cwd=self.package)
        archive, = (self.package / "dist").glob("*.tar.gz")
        with tarfile.open(archive) as files:
            files.extractall(self.folder / "unpacked")
        source, = (self.folder / "unpacked").iterdir()
        self.assertTrue((source / "library/src/CMakeLists.txt").exists())
        subprocess.run(["cmake", "-S", source / "library", "-B", self.folder / "configured", "-G", "Ninja",
                        "-DVOSTEL_BUILD_TESTS=OFF", "-DVOSTEL_BUILD_DEMO=OFF", "-DVOSTEL_BUILD_QT=OFF"],
                       check=True, stdout=subprocess.DEVNULL)
        shutil.rmtree(self.folder / "checkout")
        self.check_use(self.install(source))

    def test_a_wheel_is_of_any_python_and_one_platform(self):
        self.python("-m", "pip", "wheel", "--quiet", "--no-build-isolation", "--no-deps", "--no-index",
                    "--disable-pip-version-check", "--wheel-dir", self.folder, self.package)
        wheel, = self.folder.glob("*.whl")
        self.assertRegex(wheel.name, r"^vostel-[\d.]+-py3-none-linux_\w+\.whl$")
        with zipfile.ZipFile(wheel) as files:
            metadata = next(name for name in files.namelist() if name.endswith("/METADATA"))
            self.assertEqual(re.findall(r"^Requires-Dist: ([^;()\n]*?)[ (]*>=1.19\)?$", files.read(metadata).decode(),
                                        re.MULTILINE), ["numpy"])
            self.assertEqual([name for name in files.namelist() if "test" in name or ".so" in name],
                             ["vostel/lib/libTessik.so.1", "vostel/lib/libVostelObj.so.1"])

    def test_the_page_names_what_the_library_links(self):
        linked = subprocess.run(["readelf", "--dynamic", "--wide", os.environ["VOSTEL_LIBRARY"]], check=True,
                                capture_output=True, text=True).stdout
        needed = set(re.findall(r"NEEDED.*\[(lib[\w.+-]+?)[-.][\d.]*so", linked))
        page = (ROOT / "docs/python.md").read_text(encoding="utf-8")
        told = set(re.findall(r"`(lib[\w+]+)", page.partition("## Wheels")[2].partition("\n## ")[0]))
        self.assertLessEqual({re.sub(r"-[\d.]+$", "", name) for name in needed}, told)


if __name__ == "__main__":
    for module in ("pip", "setuptools", "wheel"):
        if importlib.util.find_spec(module) is None:
            print(f"{module} is not installed")
            sys.exit(77)
    unittest.main()
