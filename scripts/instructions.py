#!/usr/bin/env python3
"""Counts the instructions of some conversions and holds them against a file of the repository.

    scripts/instructions.py PROGRAM FILE            fails where a count has grown by more than 3%
    scripts/instructions.py PROGRAM FILE --write    writes the counts of today into FILE

Needs valgrind. Unlike times, instructions are the same in every run of the same build.
"""

import subprocess
import sys
import tempfile

TIMES = (100, 300)
GROWTH = 1.03


def total(program, name, times):
    with tempfile.NamedTemporaryFile() as out:
        run = subprocess.run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={out.name}",
                              program, name, str(times)],
                             check=True, stderr=subprocess.PIPE, text=True)
    line = next(line for line in run.stderr.splitlines() if "Collected" in line)
    return int(line.rsplit(":", 1)[1])


def count(program, name):
    few, many = (total(program, name, times) for times in TIMES)
    return (many - few) // (TIMES[1] - TIMES[0])


def main():
    program, path = sys.argv[1:3]
    names = subprocess.run([program], check=True, stdout=subprocess.PIPE, text=True).stdout.split()
    counts = {name: count(program, name) for name in names}
    if "--write" in sys.argv:
        with open(path, "w", encoding="utf-8") as file:
            file.write("# Instructions of one call, release build with g++ 12 on x86-64, counted by\n"
                       "# scripts/instructions.py. Written by: ./dev instructions\n")
            file.writelines(f"{name}\t{value}\n" for name, value in counts.items())
        return 0
    with open(path, encoding="utf-8") as file:
        rows = [line.split("\t") for line in file if not line.startswith("#")]
    allowed = {name: int(value) for name, value in rows}
    if allowed.keys() != counts.keys():
        print(f"{path} does not list the conversions of {program}", file=sys.stderr)
        return 1
    grown = 0
    for name, value in counts.items():
        bad = value > allowed[name] * GROWTH
        grown += bad
        print(f"{name}: {value} instructions, {allowed[name]} in {path}{'  GROWN' if bad else ''}")
    return 1 if grown else 0


if __name__ == "__main__":
    sys.exit(main())
