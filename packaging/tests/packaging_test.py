#!/usr/bin/env python3
"""packaging_test.py BUILD: the port of vcpkg and the recipe of Conan, as far as they can be run without those."""

import importlib.util
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import types
import unittest
from unittest import mock

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(sys.argv.pop() if len(sys.argv) > 1 else ROOT / "build/release")
PORT = ROOT / "packaging/vcpkg/vostelobj"
VERSION = re.search(r'VOSTEL_VERSION "(.*?)"', (ROOT / "include/vostel/version.h").read_text()).group(1)


class Vcpkg(unittest.TestCase):
    port = json.loads((PORT / "vcpkg.json").read_text(encoding="utf-8"))

    def test_the_manifest_has_the_form_that_vcpkg_wants(self):
        self.assertEqual(self.port["version-semver"], VERSION)
        self.assertEqual(self.port["name"], PORT.name)
        self.assertLessEqual(set(self.port), {"name", "version-semver", "description", "license", "supports",
                                              "dependencies", "features"})
        for part in (self.port, *self.port["features"].values()):
            names = [each if isinstance(each, str) else each["name"] for each in part["dependencies"]]
            self.assertEqual(names, sorted(set(names)))
            for name in names:
                self.assertRegex(name, r"^[a-z0-9]+(-[a-z0-9]+)*$")
        # As "vcpkg format-manifest" writes it.
        self.assertEqual((PORT / "vcpkg.json").read_text(encoding="utf-8"), json.dumps(self.port, indent=2) + "\n")

    def test_the_portfile_configures_and_installs(self):
        for features in ("core", "core;widget"):
            with self.subTest(features), tempfile.TemporaryDirectory() as work:
                done = subprocess.run(["cmake", f"-DBUILD={BUILD}", f"-DWORK={work}", f"-DFEATURES={features}", "-P",
                                       ROOT / "packaging/tests/RunPortfile.cmake"], capture_output=True, text=True)
                if "Qt6" in done.stderr and "widget" in features:
                    self.skipTest("Qt is not installed")
                self.assertEqual(done.returncode, 0, done.stdout + done.stderr)


class Recorder:
    """Stands for a folder of settings of Conan's: remembers what is put there."""

    def __init__(self, *_):
        self.cache_variables, self.components, self.properties = {}, {}, {}
        self.requires = []

    def generate(self):
        Recorder.toolchains.append(self)

    def set_property(self, name, value):
        self.properties[name] = value


def conan():
    """Modules with the names that a recipe takes from Conan."""
    class ConanFile:
        required = ()

        def requires(self, reference):
            self.required += (reference,)

    contents = {"conan": {"ConanFile": ConanFile}, "conan.tools": {}, "conan.tools.build": {},
                "conan.tools.cmake": {"CMakeToolchain": Recorder, "CMakeDeps": Recorder},
                "conan.tools.files": {"load": lambda _, path: pathlib.Path(path).read_text(encoding="utf-8")},
                "conan.tools.gnu": {"PkgConfigDeps": Recorder}}
    modules = {}
    for name, names in contents.items():
        modules[name] = mock.MagicMock(spec=types.ModuleType(name))
        for member in ("check_min_cppstd", "can_run", "CMake", "cmake_layout", "copy", "rmdir"):
            setattr(modules[name], member, mock.MagicMock())
        for member, value in names.items():
            setattr(modules[name], member, value)
    return modules


class Conan(unittest.TestCase):
    def setUp(self):
        Recorder.toolchains = []
        path = ROOT / "packaging/conan/conanfile.py"
        with mock.patch.dict(sys.modules, conan()):
            spec = importlib.util.spec_from_file_location("conanfile", path)
            module = importlib.util.module_from_spec(spec)
            spec.loader.exec_module(module)
        self.recipe = module.VostelObj()
        self.recipe.recipe_folder = str(path.parent)
        self.recipe.settings = types.SimpleNamespace(os="Linux")
        self.recipe.options = types.SimpleNamespace(shared=True)
        include = types.SimpleNamespace(cpp_info=types.SimpleNamespace(includedirs=["/include"]))
        self.recipe.dependencies = {"boost": include, "nlohmann_json": include}

    def test_the_version_is_the_library_s(self):
        self.recipe.set_version()
        self.assertEqual(self.recipe.version, VERSION)

    def test_the_options_of_the_build_exist(self):
        self.recipe.generate()
        options = dict(line.split("=", 1) for line in (BUILD / "CMakeCache.txt").read_text().splitlines()
                       if re.match(r"\w+:\w+=", line))
        names = {name.partition(":")[0] for name in options}
        self.assertGreater(len(Recorder.toolchains[0].cache_variables), 5)
        self.assertEqual(set(Recorder.toolchains[0].cache_variables) - names, set())

    def test_it_requires_what_the_port_of_vcpkg_does(self):
        self.recipe.requirements()
        required = {reference.partition("/")[0].replace("_", "-") for reference in self.recipe.required}
        port = {each if isinstance(each, str) else each["name"] for each in Vcpkg.port["dependencies"]}
        same = {"boost": "boost-geometry", "libtiff": "tiff"}
        self.assertEqual({same.get(name, name) for name in required},
                         port - {"vcpkg-cmake", "vcpkg-cmake-config"})

    def test_hosts_link_the_libraries_that_are_built(self):
        self.recipe.cpp_info = Recorder()
        self.recipe.cpp_info.components = {"tessik": Recorder(), "vostelobj": Recorder()}
        self.recipe.package_info()
        for part in self.recipe.cpp_info.components.values():
            self.assertTrue(list(BUILD.rglob(f"lib{part.libs[0]}.so")), part.libs)

    def test_its_test_builds_with_what_is_installed(self):
        with tempfile.TemporaryDirectory() as work:
            for component in ("VostelObj_Runtime", "VostelObj_Development"):
                subprocess.run(["cmake", "--install", BUILD, "--prefix", f"{work}/prefix", "--component", component],
                               check=True, stdout=subprocess.DEVNULL)
            subprocess.run(["cmake", "-G", "Ninja", "-S", ROOT / "packaging/conan/test_package", "-B", f"{work}/build",
                            f"-DCMAKE_PREFIX_PATH={work}/prefix"], check=True, stdout=subprocess.DEVNULL)
            subprocess.run(["cmake", "--build", f"{work}/build"], check=True, stdout=subprocess.DEVNULL)
            printed = subprocess.run([os.path.join(work, "build/measure")], check=True, capture_output=True, text=True)
            self.assertEqual(printed.stdout, f"vostel {VERSION} measures 6 with the mean 3\n")


if __name__ == "__main__":
    unittest.main()
