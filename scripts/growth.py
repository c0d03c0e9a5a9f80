#!/usr/bin/env python3
"""Shows that no call takes more than linear time: PROGRAM calls every export with inputs of doubling
length, and from one length to the next the instructions may at most double, and a bit.

    scripts/growth.py PROGRAM

Needs valgrind. Unlike times, instructions are the same in every run of the same build.
"""

import os
import subprocess
import sys
import tempfile
from collections import defaultdict

FACTOR = 2.1
STEP = 500
# At least this many exports must read some input to its end, or the inputs would show nothing. The
# others refuse what is longer than any value.
GROWING = 35


def measure(program):
    """The counts by length, of each export and shape of input, and how many exports there are."""
    counts = defaultdict(dict)
    with tempfile.NamedTemporaryFile("r", encoding="utf-8") as out:
        run = subprocess.run(
            ["valgrind", "--tool=callgrind", "--combine-dumps=yes", "--dump-line=no",
             f"--callgrind-out-file={out.name}", program],
            check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
            env=os.environ | {"LD_BIND_NOW": "1"})
        label = None
        for line in out:
            if line.startswith("desc: Trigger: Client Request: "):
                label = line.rstrip("\n").rsplit(": ", 1)[1].split("\t")
            elif line.startswith("totals:") and label:
                export, shape, length = label
                counts[export, shape][int(length)] = int(line.split()[1])
                label = None
    return counts, int(run.stdout)


def main():
    counts, exports = measure(sys.argv[1])
    counted = {export for export, _ in counts}
    if len(counted) != exports:
        sys.exit(f"{len(counted)} of {exports} exports were counted")
    steepest = {}
    failures = 0
    for (export, shape), of_length in counts.items():
        lengths = sorted(of_length)
        for shorter, longer in zip(lengths, lengths[1:]):
            few, many = of_length[shorter], of_length[longer]
            if many > FACTOR * few + STEP:
                failures += 1
                print(f"{export}, {shape}: {few} instructions for {shorter}, {many} for {longer}")
        slope = (of_length[lengths[-1]] - of_length[lengths[0]]) / (lengths[-1] - lengths[0])
        steepest[export] = max(steepest.get(export, (0.0, "")), (slope, shape))
    for export, (slope, shape) in sorted(steepest.items(), key=lambda item: item[1], reverse=True):
        print(f"{export}: {slope:.1f} instructions a character ({shape})")
    growing = sum(slope >= 1 for slope, _ in steepest.values())
    print(f"{len(counts)} inputs, {failures} grow too fast; {growing} exports grow with their input")
    return 1 if failures or growing < GROWING else 0


if __name__ == "__main__":
    sys.exit(main())
