"""Packs the library out of the checkout that this recipe lies in: conan create packaging/conan --build=missing."""

import os
import re

from conan import ConanFile
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load, rmdir
from conan.tools.gnu import PkgConfigDeps


class VostelObj(ConanFile):
    name = "vostelobj"
    description = "Image canvases with objects to draw and to measure, and image routines"
    license = "MIT"
    topics = ("image", "measurement", "region", "mask", "canvas")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "fPIC": [True, False]}
    default_options = {"shared": True, "fPIC": True, "boost/*:header_only": True}
    implements = ["auto_shared_fpic"]

    @property
    def _checkout(self):
        return os.path.join(self.recipe_folder, "..", "..")

    def set_version(self):
        header = load(self, os.path.join(self._checkout, "include/vostel/version.h"))
        self.version = re.search(r'VOSTEL_VERSION "(.*?)"', header).group(1)

    def export_sources(self):
        for part in ("CMakeLists.txt", "LICENSE", "README.md", "CHANGELOG.md", "SECURITY.md", "cmake/*", "docs/*",
                     "include/*", "src/*"):
            copy(self, part, self._checkout, self.export_sources_folder)

    def validate(self):
        check_min_cppstd(self, 20)

    def requirements(self):
        self.requires("boost/[>=1.74 <2]")
        self.requires("nlohmann_json/[>=3.11 <4]")
        self.requires("zlib/[>=1.2 <2]")
        if self.settings.os != "Windows":
            self.requires("giflib/[>=5.2 <6]")
            self.requires("libjpeg-turbo/[>=2.1 <4]")
            self.requires("libpng/[>=1.6 <2]")
            self.requires("libtiff/[>=4.5 <5]")
            self.requires("libwebp/[>=1.2 <2]")
            self.requires("pango/[>=1.50 <2]")

    def build_requirements(self):
        self.tool_requires("cmake/[>=3.25]")
        if self.settings.os != "Windows":
            self.tool_requires("pkgconf/[>=2]")

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        for option in ("BUILD_TESTS", "BUILD_BENCH", "BUILD_DEMO", "BUILD_QT", "WARNINGS_AS_ERRORS"):
            toolchain.cache_variables[f"VOSTEL_{option}"] = False
        toolchain.cache_variables["VOSTEL_INSTALL"] = True
        for variable, package in (("BOOST_DIRECTORY", "boost"), ("NLOHMANN_DIRECTORY", "nlohmann_json")):
            toolchain.cache_variables[variable] = self.dependencies[package].cpp_info.includedirs[0]
        toolchain.generate()
        CMakeDeps(self).generate()
        PkgConfigDeps(self).generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))
        for folder in ("lib/cmake", "lib/pkgconfig", "share"):
            rmdir(self, os.path.join(self.package_folder, folder))

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "VostelObj")
        self.cpp_info.set_property("pkg_config_name", "vostelobj")
        tessik = self.cpp_info.components["tessik"]
        tessik.set_property("cmake_target_name", "VostelObj::Tessik")
        tessik.libs = ["Tessik"]
        library = self.cpp_info.components["vostelobj"]
        library.set_property("cmake_target_name", "VostelObj::VostelObj")
        library.libs = ["VostelObj"]
        library.requires = ["tessik", "boost::headers", "nlohmann_json::nlohmann_json", "zlib::zlib"]
        if self.settings.os != "Windows":
            library.requires += ["giflib::giflib", "libjpeg-turbo::jpeg", "libpng::libpng", "libtiff::tiff",
                                 "libwebp::webp", "pango::pangocairo"]
        if not self.options.shared:
            for part in (tessik, library):
                part.defines = ["VOSTEL_STATIC"]
            if self.settings.os == "Windows":
                library.system_libs = ["gdi32", "gdiplus", "comdlg32", "ole32", "shell32", "shlwapi", "user32",
                                       "windowscodecs"]
