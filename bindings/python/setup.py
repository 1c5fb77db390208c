"""Builds the library with CMake and puts it into the package; pyproject.toml has the rest."""

import os
import re
import shutil
import subprocess
import sys
from pathlib import Path

from setuptools import Distribution, setup
from setuptools.command.build_py import build_py
from setuptools.command.sdist import sdist

try:
    from setuptools.command.bdist_wheel import bdist_wheel
except ImportError:    # before setuptools 70
    from wheel.bdist_wheel import bdist_wheel

HERE = Path(__file__).resolve().parent
# What the library is built of: in a checkout two folders up, in a source archive inside.
PARTS = ("CMakeLists.txt", "LICENSE", "cmake", "include", "src", "docs/Doxyfile.in")
SOURCES = HERE / "library" if (HERE / "library").is_dir() else HERE.parents[1]


def version():
    header = SOURCES / "include/vostel/version.h"
    if not header.is_file():
        sys.exit(f"{header} is missing: build in bindings/python of a checkout or of a source archive")
    return re.search(r'VOSTEL_VERSION "(.*?)"', header.read_text(encoding="utf-8")).group(1)


def built_library(folder):
    """A build of the library: the one that VOSTEL_BUILD names, else a new one in a folder."""
    if os.environ.get("VOSTEL_BUILD"):
        return Path(os.environ["VOSTEL_BUILD"])
    generator = ["-G", "Ninja"] if shutil.which("ninja") else []
    subprocess.run(["cmake", "-S", SOURCES, "-B", folder, *generator, "-DCMAKE_BUILD_TYPE=Release",
                    "-DCMAKE_UNITY_BUILD=ON", "-DVOSTEL_BUILD_TESTS=OFF", "-DVOSTEL_BUILD_DEMO=OFF",
                    "-DVOSTEL_BUILD_QT=OFF", "-DVOSTEL_WARNINGS_AS_ERRORS=OFF"], check=True)
    subprocess.run(["cmake", "--build", folder, "--config", "Release", "--parallel", str(os.cpu_count() or 1),
                    "--target", "VostelObj"], check=True)
    return folder


class BuildWithLibrary(build_py):
    def run(self):
        super().run()
        if getattr(self, "editable_mode", False):
            return    # takes a build of the checkout
        work = Path(self.get_finalized_command("build").build_temp).resolve()
        installed = work / "installed"
        shutil.rmtree(installed, ignore_errors=True)
        subprocess.run(["cmake", "--install", built_library(work / "library"), "--prefix", installed, "--config",
                        "Release", "--component", "VostelObj_Runtime"], check=True)
        target = Path(self.build_lib).resolve() / "vostel/lib"
        shutil.rmtree(target, ignore_errors=True)
        target.mkdir(parents=True)
        # By the names that they are loaded by; a wheel holds no links.
        names = ("VostelObj.dll", "Tessik.dll") if sys.platform == "win32" else ("libVostelObj.so.1", "libTessik.so.1")
        for name in names:
            found = next(installed.rglob(name), None)
            if found is None:
                sys.exit(f"{name} is not in {installed}")
            shutil.copyfile(found, target / name)
        shutil.copyfile(SOURCES / "LICENSE", target / "LICENSE")


class SourcesWithLibrary(sdist):
    def make_release_tree(self, base_dir, files):
        super().make_release_tree(base_dir, files)
        for part in PARTS:
            target = Path(base_dir, "library", part)
            target.parent.mkdir(parents=True, exist_ok=True)
            if (SOURCES / part).is_dir():
                shutil.copytree(SOURCES / part, target)
            else:
                shutil.copyfile(SOURCES / part, target)


class PlatformWheel(bdist_wheel):
    def get_tag(self):
        # Of the library's platform, but of any Python: ctypes knows no version of it.
        return "py3", "none", super().get_tag()[2]


class WithLibrary(Distribution):
    def has_ext_modules(self):
        return True


setup(version=version(), distclass=WithLibrary,
      cmdclass={"build_py": BuildWithLibrary, "sdist": SourcesWithLibrary, "bdist_wheel": PlatformWheel})
