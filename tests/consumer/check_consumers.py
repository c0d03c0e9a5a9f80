"""Uses the library as others do: installed and found, as a part of another project, and without any
build system.

usage: check_consumers.py SOURCE_DIR BUILD_DIR CASE
"""

import glob
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE, BUILD, CASE = sys.argv[1:4]
HEX = "3074257BF7194E4000001A85"
TAG_URI = "urn:epc:tag:sgtin-96:3.0614141.812345.6789"
# The same item as a point of sale item, which is filter value 1.
LABEL_HEX = "3034257BF7194E4000001A85"
LABEL = ["]C10180614141123458216789", "7"]
TOOLKIT_PROGRAM = """\
#include <rosetag/toolkit.hpp>
#include <iostream>
int main(int, char** arguments) {
    std::cout << rosetag::translate(arguments[1]).tagUri << '\\n';
}
"""
LISTS_PROGRAM = """\
#include <rosetag/toolkit.hpp>
#include <iostream>
int main() {
    rosetag::GcpList list;
    std::cout << rosetag::readGcpList("<a><b></a>", list).message << '\\n';
}
"""
TOOLKIT_PROJECT = """\
cmake_minimum_required(VERSION 3.25)
project(consumer LANGUAGES CXX)
find_package(rosetag CONFIG REQUIRED COMPONENTS toolkit lists)
add_executable(whatever whatever.cpp)
target_link_libraries(whatever PRIVATE rosetag::toolkit)
add_executable(lists lists.cpp)
target_link_libraries(lists PRIVATE rosetag::lists)
"""
C_FLAGS = ["-std=c99", "-Wall", "-Wextra", "-Wpedantic", "-Werror"]
DECODE = os.path.join(SOURCE, "examples/decode.c")


class Consumers(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.work = directory.name
        self.prefix = self.path("prefix")
        # Nothing of the caller's may help a program to its library.
        self.environment = {key: value for key, value in os.environ.items()
                            if key not in ("LD_LIBRARY_PATH", "DESTDIR", "CFLAGS", "CXXFLAGS")}

    def path(self, *parts):
        return os.path.join(self.work, *parts)

    def run_command(self, *command):
        result = subprocess.run(command, env=self.environment, capture_output=True, text=True,
                                check=False)
        self.assertEqual(result.returncode, 0, " ".join(command) + "\n" + result.stdout
                         + result.stderr)
        return result.stdout.strip()

    def build(self, source, *options):
        build = self.path("build")
        self.run_command("cmake", "-G", "Ninja", "-S", source, "-B", build,
                         "-DCMAKE_BUILD_TYPE=Debug", *options)
        self.run_command("cmake", "--build", build, "-j2")
        return build

    # Installs, and moves what was installed to another place.
    def install(self, build):
        self.run_command("cmake", "--install", build, "--prefix", self.path("before"))
        shutil.move(self.path("before"), self.prefix)

    def library_dir(self):
        return os.path.dirname(os.path.dirname(
            glob.glob(os.path.join(self.prefix, "**/rosetag.pc"), recursive=True)[0]))

    def expect_no_cxx_runtime(self, program):
        needed = self.run_command("readelf", "-d", program)
        self.assertIn("libc.so", needed)
        self.assertNotIn("libstdc++", needed)

    def expect_decodes(self, program):
        self.assertEqual(self.run_command(program, HEX), TAG_URI)

    def flags_of(self, name):
        self.environment["PKG_CONFIG_PATH"] = os.path.join(self.library_dir(), "pkgconfig")
        return self.run_command("pkg-config", "--cflags", "--libs", name).split()

    def compile_with_pkg_config(self, source, program):
        self.run_command("cc", *C_FLAGS, source, "-o", program, *self.flags_of("rosetag"))
        self.expect_no_cxx_runtime(program)

    def expect_examples_work(self):
        build = self.build(os.path.join(SOURCE, "examples"), f"-DCMAKE_PREFIX_PATH={self.prefix}")
        self.expect_decodes(os.path.join(build, "decode"))
        self.assertEqual(self.run_command(os.path.join(build, "label"), *LABEL), LABEL_HEX)
        self.expect_no_cxx_runtime(os.path.join(build, "decode"))

    def test_find_package(self):
        self.install(BUILD)
        self.expect_examples_work()

    def test_pkg_config(self):
        self.install(BUILD)
        self.environment["LD_LIBRARY_PATH"] = self.library_dir()
        self.compile_with_pkg_config(DECODE, self.path("decode"))
        self.expect_decodes(self.path("decode"))

    # The toolkit both ways: by pkg-config, and as CMake's component.
    def test_toolkit(self):
        self.install(BUILD)
        with open(self.path("whatever.cpp"), "w", encoding="ascii") as file:
            file.write(TOOLKIT_PROGRAM)
        self.run_command("c++", "-std=c++20", self.path("whatever.cpp"), "-o", self.path("whatever"),
                         *self.flags_of("rosetag-toolkit"))
        self.expect_decodes(self.path("whatever"))
        with open(self.path("lists.cpp"), "w", encoding="ascii") as file:
            file.write(LISTS_PROGRAM)
        self.run_command("c++", "-std=c++20", self.path("lists.cpp"), "-o", self.path("lists"),
                         *self.flags_of("rosetag-lists"))
        self.assertIn("this is not XML", self.run_command(self.path("lists")))
        with open(self.path("CMakeLists.txt"), "w", encoding="ascii") as file:
            file.write(TOOLKIT_PROJECT)
        build = self.build(self.work, f"-DCMAKE_PREFIX_PATH={self.prefix}")
        self.expect_decodes(os.path.join(build, "whatever"))
        self.assertIn("this is not XML", self.run_command(os.path.join(build, "lists")))

    def test_installed_files(self):
        self.environment["DESTDIR"] = self.path("root")
        self.run_command("cmake", "--install", BUILD, "--prefix", "/opt/rosetag")
        prefix = self.path("root/opt/rosetag")
        self.assertEqual(self.run_command(os.path.join(prefix, "bin/rosetag"), "--version")
                         .split()[0], "rosetag")
        for directory, _, names in os.walk(prefix):
            for name in names:
                with open(os.path.join(directory, name), "rb") as file:
                    content = file.read()
                for place in (SOURCE, BUILD, self.work, "/opt/rosetag"):
                    self.assertNotIn(place.encode(), content, f"{name} names {place}")

    def test_static(self):
        self.install(self.build(SOURCE, "-DBUILD_SHARED_LIBS=OFF", "-DROSETAG_BUILD_TESTS=OFF",
                                "-DROSETAG_BUILD_TOOLS=OFF"))
        self.compile_with_pkg_config(DECODE, self.path("decode"))
        self.expect_decodes(self.path("decode"))
        self.expect_no_cxx_runtime(self.path("decode"))
        shutil.rmtree(self.path("build"))
        self.expect_examples_work()

    def test_subproject(self):
        build = self.build(os.path.join(SOURCE, "tests/consumer/subproject"),
                           f"-DROSETAG_SOURCE_DIR={SOURCE}")
        self.expect_decodes(os.path.join(build, "decode"))
        self.run_command("cmake", "--install", build, "--prefix", self.prefix)
        self.assertFalse(os.path.exists(self.prefix), "the subproject installs something")

    def test_one_compiler_call(self):
        sources = sorted(glob.glob(os.path.join(SOURCE, "src/*/*.cpp")))
        include = os.path.join(SOURCE, "include")
        self.run_command("c++", "-std=c++20", f"-I{include}", f"-I{SOURCE}/src", "-fPIC", "-shared",
                         *sources, "-o", self.path("librosetag.so"))
        self.run_command("cc", *C_FLAGS, f"-I{include}", DECODE, "-o", self.path("decode"),
                         f"-L{self.work}", "-lrosetag")
        self.environment["LD_LIBRARY_PATH"] = self.work
        self.expect_decodes(self.path("decode"))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], f"Consumers.test_{CASE}"])
