"""Compiles the public headers alone, as each language and standard that they promise, with every
compiler that is installed and with all warnings as errors.

usage: check_header.py INCLUDE_DIR
"""

import shutil
import subprocess
import sys
import unittest

INCLUDE = sys.argv[1]
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wsign-conversion", "-Wshadow",
            "-Wcast-qual", "-Wundef", "-Werror"]

# header, language, standards, further warnings
ROWS = [
    ("rosetag.h", "c", ["c99", "c11", "c17"], ["-Wstrict-prototypes", "-Wmissing-prototypes"]),
    ("rosetag.h", "c++", ["c++17", "c++20"], ["-Wold-style-cast", "-Wzero-as-null-pointer-constant"]),
    ("rosetag.hpp", "c++", ["c++20"], ["-Wold-style-cast", "-Wzero-as-null-pointer-constant"]),
    ("rosetag.hpp", "c++", ["c++20"], ["-fno-exceptions", "-fno-rtti"]),
]
COMPILERS = {"c": ["gcc", "clang"], "c++": ["g++", "clang++"]}


def compile_text(compiler, language, flags, text):
    # Included by angle brackets through -I, so that a warning inside the header counts.
    return subprocess.run([compiler, "-x", language, "-fsyntax-only", "-I", INCLUDE, *flags,
                           *WARNINGS, "-"],
                          input=text, text=True, capture_output=True, check=False)


class Header(unittest.TestCase):
    def test_compiles_alone_and_twice(self):
        for header, language, standards, flags in ROWS:
            text = f"#include <rosetag/{header}>\n" * 2
            for compiler in filter(shutil.which, COMPILERS[language]):
                for standard in standards:
                    with self.subTest(header=header, compiler=compiler, standard=standard):
                        result = compile_text(compiler, language, [f"-std={standard}", *flags], text)
                        self.assertEqual(result.returncode, 0, result.stderr)

    def test_would_notice_a_warning(self):
        result = compile_text("gcc", "c", ["-std=c99"],
                              "#include <rosetag/rosetag.h>\nint f(long long a) { return a; }\n")
        self.assertNotEqual(result.returncode, 0)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
