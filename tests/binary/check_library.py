"""Checks the finished library as a file: what it offers, needs, holds and weighs.

usage: check_library.py LIBRARY ARCHIVE TOOLKIT HEADERS SYMBOLS SOVERSION COMMAND

LIBRARY is the shared library, ARCHIVE the static one, TOOLKIT the static library above it. SYMBOLS lists the exports, each with the
release that introduced it, in the format of Debian's symbols files. Its names are compared with the
header: an export that is removed must be removed here too, and raises SOVERSION.
"""

import re
import subprocess
import sys
import unittest

LIBRARY, ARCHIVE, TOOLKIT, HEADERS, SYMBOLS, SOVERSION, COMMAND = sys.argv[1:8]

# What the library may ask of the platform: nothing that allocates, throws, prints or depends on the
# locale or the environment.
ALLOWED_UNDEFINED = {
    # strings and memory of the C library, and what a hardened build calls in their place
    "memchr", "memcmp", "memcpy", "memmove", "memset", "strchr", "strlen", "strncmp",
    "__memcpy_chk", "__memmove_chk", "__memset_chk", "__stack_chk_fail",
    # what the linker puts into every shared library
    "__cxa_finalize", "__gmon_start__", "_ITM_deregisterTMCloneTable",
    "_ITM_registerTMCloneTable",
}
ALLOWED_NEEDED = re.compile(r"^(libc\.so\.\d+|ld-linux.*\.so\.\d+)$")
MAX_RELOCATIONS = 1000
MAX_BYTES = 600 * 1024


def lines_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines()


def declared_functions(name="rosetag.h", declaration=r"^ROSETAG_EXPORT\s+EpcStatus\s+(\w+)\("):
    with open(f"{HEADERS}/{name}", encoding="ascii") as header:
        text = re.sub(r"/\*.*?\*/", "", header.read(), flags=re.DOTALL)
    return re.findall(declaration, text, flags=re.MULTILINE)


def global_symbols(archive):
    """The names that an archive defines, without those of its own namespace."""
    symbols = [line.split()[1:] for line in lines_of("nm", "-g", "--defined-only", archive)
               if len(line.split()) == 3]
    # A template of the standard library over a type of the namespace is no one else's.
    others = {(kind, name) for kind, name in symbols if not re.match(r"_Z.*7rosetag", name)}
    return others, len(symbols)


def section_bytes(name):
    for line in lines_of("size", "-A", "-d", LIBRARY):
        if line.split()[:1] == [name]:
            return int(line.split()[1])
    return 0


class Library(unittest.TestCase):
    def test_exports_are_the_functions_of_the_header(self):
        declared = declared_functions()
        exported = [line.split()[-1] for line in lines_of("nm", "-D", "--defined-only", LIBRARY)]
        version = f"ROSETAG_{SOVERSION}"
        self.assertEqual(sorted(exported),
                         [version] + sorted(f"{name}@@{version}" for name in declared))

    def test_the_archive_defines_nothing_else_outside_its_namespace(self):
        exported = declared_functions()
        others, count = global_symbols(ARCHIVE)
        self.assertEqual(sorted(name for _, name in others), sorted(exported))
        self.assertGreater(count, len(exported), "the archive has internals")

    def test_the_toolkit_defines_nothing_else_outside_its_namespace(self):
        columns = declared_functions("columns.h", r"^int32_t (rosetag_columns\w+)\(")
        self.assertNotEqual(columns, [])
        others, _ = global_symbols(TOOLKIT)
        # Templates of the standard library, which every program that uses them defines alike.
        shared = {(kind, name) for kind, name in others
                  if kind in "VWu" and re.match(r"_Z+(NK?|TI|TS|TV|G\w)*St|DW\.ref\.", name)}
        self.assertEqual(sorted(name for _, name in others - shared),
                         sorted(declared_functions() + columns))

    def test_exports_what_releases_have_exported(self):
        with open(SYMBOLS, encoding="ascii") as file:
            head, _, *rows = file.read().splitlines()
        version = f"ROSETAG_{SOVERSION}"
        self.assertEqual(head, f"librosetag.so.{SOVERSION} librosetag{SOVERSION} #MINVER#")
        listed = [re.fullmatch(rf" (\w+)@{version} \d+\.\d+\.\d+", row)[1] for row in rows]
        self.assertEqual(listed, [version] + sorted(declared_functions()))

    def test_asks_the_platform_for_nothing_else(self):
        undefined = {line.split()[-1].split("@")[0]
                     for line in lines_of("nm", "-D", "--undefined-only", LIBRARY)}
        self.assertEqual(undefined - ALLOWED_UNDEFINED, set())

    def test_needs_the_c_library_alone(self):
        dynamic = "\n".join(lines_of("readelf", "-d", LIBRARY))
        needed = re.findall(r"\(NEEDED\).*\[(.*)\]", dynamic)
        self.assertEqual([name for name in needed if not ALLOWED_NEEDED.match(name)], [])
        self.assertEqual(re.findall(r"\(SONAME\).*\[(.*)\]", dynamic), [f"librosetag.so.{SOVERSION}"])
        self.assertNotRegex(dynamic, r"\((TEXTREL|RPATH|RUNPATH)\)")

    def test_holds_no_mutable_data(self):
        # A pointer and a flag come from the start-up files of the compiler.
        self.assertLessEqual(section_bytes(".data"), 8)
        self.assertLessEqual(section_bytes(".bss"), 8)

    def test_stays_small(self):
        relocations = [line for line in lines_of("readelf", "-rW", LIBRARY)
                       if re.match(r"^[0-9a-f]{8,} ", line)]
        self.assertGreater(len(relocations), 0)
        self.assertLess(len(relocations), MAX_RELOCATIONS)
        with open(LIBRARY, "rb") as library:
            self.assertLess(len(library.read()), MAX_BYTES)

    def test_is_hardened(self):
        for file in filter(None, (LIBRARY, COMMAND)):
            with self.subTest(file=file):
                self.assertRegex("\n".join(lines_of("readelf", "-d", file)), r"\bNOW\b")
                header = "\n".join(lines_of("readelf", "-hlW", file))
                self.assertRegex(header, r"Type: +DYN")
                self.assertIn("GNU_RELRO", header)
                self.assertIn("__stack_chk_fail", "\n".join(lines_of("nm", "-D", file)))
        if "X86-64" in "\n".join(lines_of("readelf", "-h", LIBRARY)):
            code = lines_of("objdump", "-d", "--disassemble=epc_hexToEpcUri", LIBRARY)
            self.assertIn("endbr64", next(line for line in code if re.match(r" +[0-9a-f]+:", line)))

    def test_stack_cannot_be_executed(self):
        stack = [line.split() for line in lines_of("readelf", "-lW", LIBRARY) if "GNU_STACK" in line]
        self.assertEqual([fields[6] for fields in stack], ["RW"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
