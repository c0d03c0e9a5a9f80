"""Runs what the documents show and compares what it prints with what they say.

usage: check_documents.py SOURCE_DIR BUILD_DIR

A block marked `console` holds commands after "$ " (further lines of a command after "> ") and what
they print; a line "..." stands for any lines. A block marked `c` or `cpp` that has a main is a
program; the block marked `text` after it is what it prints. Blocks without a mark, or marked `sh`,
are not run.
"""

import glob
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE, BUILD = sys.argv[1:3]
DOCUMENTS = sorted(glob.glob(os.path.join(SOURCE, "*.md"))
                   + glob.glob(os.path.join(SOURCE, "docs/**/*.md"), recursive=True))
FENCE = re.compile(r"^( *)```([a-z]*)\n(.*?)^\1```$", flags=re.DOTALL | re.MULTILINE)
COMPILERS = {"c": ("cc", "-std=c99", ".c"), "cpp": ("c++", "-std=c++20", ".cpp")}
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]
# A document shows the command as it is run in the sources.
DEV = '#!/bin/sh\n[ "$1" = run ] || exit 2\nshift\nexec rosetag "$@"\n'
MARK = "-- next command --"


def blocks_of(document):
    with open(document, encoding="utf-8") as file:
        text = file.read()
    for match in FENCE.finditer(text):
        line = text.count("\n", 0, match.start()) + 1
        indent = match[1]
        yield line, match[2], [row.removeprefix(indent) for row in match[3].splitlines()]


# The commands of a console block, each with the lines that it is to print.
def commands_of(rows):
    commands = []
    for row in rows:
        if row.startswith("$ "):
            commands.append((row[2:], []))
        elif row.startswith("> ") and commands and not commands[-1][1]:
            commands[-1] = (commands[-1][0] + "\n" + row[2:], [])
        else:
            commands[-1][1].append(row)
    return commands


def pattern_of(rows):
    return "".join(r"(?:.*\n)*" if row == "..." else re.escape(row.rstrip()) + r"[ \t]*\n"
                   for row in rows)


class Documents(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        directory = tempfile.TemporaryDirectory()
        cls.addClassCleanup(directory.cleanup)
        cls.work = os.path.join(directory.name, "work")
        prefix = os.path.join(directory.name, "prefix")
        subprocess.run(["cmake", "--install", BUILD, "--prefix", prefix], check=True,
                       stdout=subprocess.DEVNULL)
        pc_dir = os.path.dirname(glob.glob(f"{prefix}/**/rosetag.pc", recursive=True)[0])
        cls.environment = {**os.environ, "LC_ALL": "C.UTF-8", "PKG_CONFIG_PATH": pc_dir,
                           "PATH": f"{prefix}/bin:{os.environ['PATH']}",
                           "LD_LIBRARY_PATH": os.path.dirname(pc_dir)}

    # Of the library that the program includes.
    def flags_of(self, rows):
        package = "rosetag-toolkit" if "#include <rosetag/toolkit.hpp>" in rows else "rosetag"
        return subprocess.run(["pkg-config", "--cflags", "--libs", package], check=True,
                              env=self.environment, capture_output=True, text=True).stdout.split()

    def run_command(self, *command):
        return subprocess.run(command, env=self.environment, cwd=self.work, check=False, text=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=60)

    def prepare_work(self):
        shutil.rmtree(self.work, ignore_errors=True)
        os.mkdir(self.work)
        shutil.copytree(os.path.join(SOURCE, "examples"), os.path.join(self.work, "examples"))
        with open(os.path.join(self.work, "dev"), "w", encoding="ascii") as dev:
            dev.write(DEV)
        os.chmod(os.path.join(self.work, "dev"), 0o755)

    def expect_output(self, printed, rows):
        printed = re.sub(r"[ \t]+$", "", printed, flags=re.MULTILINE)
        if re.fullmatch(pattern_of(rows), printed + "\n" * (not printed.endswith("\n"))):
            return
        self.assertEqual(printed.rstrip("\n").split("\n"), rows)

    # One shell for the block, so that a command can look at the status of the one before.
    def run_console(self, rows):
        commands = commands_of(rows)
        script = "".join(f"eval {shlex.quote(command)}; status=$?; echo '{MARK}'; (exit $status)\n"
                         for command, _ in commands)
        results = self.run_command("bash", "-c", script).stdout.split(MARK + "\n")
        self.assertEqual(len(results), len(commands) + 1, results)
        for (command, expected), printed in zip(commands, results):
            with self.subTest(command=command):
                if expected or printed:
                    self.expect_output(printed, expected)
        return len(commands)

    def run_program(self, language, rows, expected):
        compiler, standard, suffix = COMPILERS[language]
        source = os.path.join(self.work, "program" + suffix)
        with open(source, "w", encoding="utf-8") as file:
            file.write("\n".join(rows) + "\n")
        result = self.run_command(compiler, standard, *WARNINGS, source, "-o", "program",
                                  *self.flags_of(rows))
        self.assertEqual(result.returncode, 0, result.stdout)
        result = self.run_command("./program")
        self.assertEqual(result.returncode, 0, result.stdout)
        self.expect_output(result.stdout, expected)

    def test_show_what_happens(self):
        run = 0
        for document in DOCUMENTS:
            self.prepare_work()
            blocks = [*blocks_of(document), (0, "", [])]
            for (line, mark, rows), (_, next_mark, next_rows) in zip(blocks, blocks[1:]):
                with self.subTest(place=f"{os.path.relpath(document, SOURCE)}:{line}"):
                    if mark == "console":
                        run += self.run_console(rows)
                    elif mark in COMPILERS and any(re.match(r"int main\b", row) for row in rows):
                        self.assertEqual(next_mark, "text", "what does the program print?")
                        self.run_program(mark, rows, next_rows)
                        run += 1
        print(f"{run} commands and programs ran", file=sys.stderr)
        self.assertGreater(run, 1)

    def test_link_to_what_exists(self):
        for document in DOCUMENTS:
            with open(document, encoding="utf-8") as file:
                links = re.findall(r"\]\(([^)#:]+)(?:#[^)]*)?\)", file.read())
            for link in links:
                with self.subTest(document=os.path.relpath(document, SOURCE), link=link):
                    self.assertTrue(os.path.exists(
                        os.path.join(os.path.dirname(document), link)))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
