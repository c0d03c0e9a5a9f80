"""Compiles the public headers alone, as each language and standard that they promise, with every
compiler that is installed and with all warnings as errors.

usage: check_header.py INCLUDE_DIR
"""

import re
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
    ("rosetag.h", "c++", ["c++17", "c++20", "c++2b"], ["-Wold-style-cast", "-Wzero-as-null-pointer-constant"]),
    ("rosetag.hpp", "c++", ["c++20", "c++2b"], ["-Wold-style-cast", "-Wzero-as-null-pointer-constant"]),
    ("rosetag.hpp", "c++", ["c++20"], ["-fno-exceptions", "-fno-rtti"]),
]
COMMENT = re.compile(r"^/\*\*\n((?: \*.*\n)+?) \*/\n"
                     r"(?:ROSETAG_EXPORT|static inline) .*?\b((?:epc|tid)_\w+)\(", re.MULTILINE)
FUNCTION = re.compile(r"^(?:ROSETAG_EXPORT|static inline) .*\(", re.MULTILINE)
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

    def test_asks_for_cpp20(self):
        for compiler in filter(shutil.which, COMPILERS["c++"]):
            with self.subTest(compiler=compiler):
                result = compile_text(compiler, "c++", ["-std=c++17"],
                                      "#include <rosetag/rosetag.hpp>\n")
                errors = [line for line in result.stderr.splitlines() if " error: " in line]
                self.assertEqual(len(errors), 1, result.stderr)
                self.assertIn("needs C++20", errors[0])

    # A reader who goes from top to bottom meets nothing that is explained further down, and who
    # follows a "Like" has arrived.
    def test_refers_to_what_stands_above(self):
        with open(f"{INCLUDE}/rosetag/rosetag.h", encoding="ascii") as file:
            text = file.read()
        comments = COMMENT.findall(text)
        self.assertEqual(len(comments), len(FUNCTION.findall(text)))
        above = {}
        for comment, function in comments:
            prose = comment.split(" * Example")[0]
            for other in re.findall(r"\b(?:epc|tid)_\w+", prose):
                self.assertIn(other, above, f"{function} refers to {other}")
            like = re.match(r" \* Like (\w+),", prose)
            self.assertFalse(like and above[like[1]], f"{function}: its like is like another")
            above[function] = bool(like)

    def test_would_notice_a_warning(self):
        result = compile_text("gcc", "c", ["-std=c99"],
                              "#include <rosetag/rosetag.h>\nint f(long long a) { return a; }\n")
        self.assertNotEqual(result.returncode, 0)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
