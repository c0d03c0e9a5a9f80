"""Checks that all places that name the version name the same one.

usage: check_versions.py SOURCE_DIR BUILD_DIR LIBRARY
"""

import os
import re
import sys
import unittest

SOURCE, BUILD, LIBRARY = sys.argv[1:4]


def text_of(*path):
    with open(os.path.join(*path), encoding="utf-8") as file:
        return file.read()


def only_match(pattern, text):
    matches = re.findall(pattern, text, flags=re.MULTILINE)
    if len(matches) != 1:
        raise AssertionError(f"{pattern!r} matches {len(matches)} times")
    return matches[0]


class Versions(unittest.TestCase):
    def test_agree(self):
        header = text_of(SOURCE, "include/rosetag/rosetag.h")
        version = ".".join(only_match(rf"^#define ROSETAG_VERSION_{part} (\d+)$", header)
                           for part in ("MAJOR", "MINOR", "PATCH"))
        told = {
            "header, as text": only_match(r'^#define ROSETAG_VERSION "(.*)"$', header),
            "CMake": only_match(r"^CMAKE_PROJECT_VERSION:STATIC=(.*)$",
                                text_of(BUILD, "CMakeCache.txt")),
            "CMake package": only_match(r'^set\(PACKAGE_VERSION "(.*)"\)$',
                                        text_of(BUILD, "rosetag-config-version.cmake")),
            "pkg-config": only_match(r"^Version: (.*)$", text_of(BUILD, "rosetag.pc")),
            "name of the library": only_match(r"librosetag\.so\.(.*)$",
                                              os.path.basename(os.path.realpath(LIBRARY))),
            "newest entry of Debian's changelog": re.match(
                r"rosetag \((.*)\)", text_of(SOURCE, "debian/changelog"))[1],
            "vcpkg": only_match(r'^  "version": "(.*)",$',
                                text_of(SOURCE, "packaging/vcpkg/ports/rosetag/vcpkg.json")),
            "newest entry of the changelog": re.findall(r"^## \[(\d.*)\]",
                                                        text_of(SOURCE, "CHANGELOG.md"),
                                                        flags=re.MULTILINE)[0],
        }
        self.assertEqual(told, dict.fromkeys(told, version))

    # A release that leaves the SQL as it is needs no new script.
    def test_agree_with_that_of_the_extension(self):
        extension = only_match(r"^default_version = '(.*)'$",
                               text_of(SOURCE, "bindings/postgresql/rosetag.control"))
        version = only_match(r'^#define ROSETAG_VERSION "(.*)"$',
                             text_of(SOURCE, "include/rosetag/rosetag.h"))
        self.assertEqual(version.rsplit(".", 1)[0], extension)
        self.assertTrue(os.path.exists(os.path.join(
            SOURCE, f"bindings/postgresql/rosetag--{extension}.sql")))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
