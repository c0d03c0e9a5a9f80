import re
from pathlib import Path

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load


class Rosetag(ConanFile):
    """The library, its headers and the toolkit, from the sources that this recipe lies in."""
    name = "rosetag"
    description = "Translates identifiers between the forms used in GS1 and RFID data capture"
    license = "Apache-2.0"
    topics = ("gs1", "epc", "rfid", "barcode")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False]}
    default_options = {"shared": False}

    @property
    def _root(self):
        return Path(self.recipe_folder).parents[1]

    def set_version(self):
        header = load(self, self._root / "include/rosetag/rosetag.h")
        self.version = re.search(r'^#define ROSETAG_VERSION "(.*)"$', header, re.MULTILINE)[1]

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "LICENSE", "cmake/*", "include/*", "src/*", "toolkit/*"):
            copy(self, pattern, self._root, self.export_sources_folder)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["ROSETAG_BUILD_TESTS"] = False
        toolchain.cache_variables["ROSETAG_BUILD_TOOLS"] = False
        # What the machine happens to have does not decide what is packaged.
        toolchain.cache_variables["CMAKE_DISABLE_FIND_PACKAGE_pugixml"] = True
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", self.source_folder, Path(self.package_folder) / "licenses")

    def package_info(self):
        # The files that CMake and pkg-config read come from the project itself.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs = ["lib/cmake/rosetag"]
        self.cpp_info.libs = ["rosetag"]
