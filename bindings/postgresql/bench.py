"""Prints a table of what calls cost: bench.py ROWS < TIMES

TIMES has lines of a name, a tab and milliseconds, several for each name.
"""

import statistics
import sys
from collections import defaultdict

# The library's call that a function is compared with: the text that the answer is taken from.
LOOPS = {"epc_tag_uri": "tag_uri", "epc_digital_link": "digital_link"}

times = defaultdict(list)
for line in sys.stdin:
    name, milliseconds = line.rstrip("\n").split("\t")
    times[name].append(float(milliseconds))
rows = int(sys.argv[1])
each = {name: statistics.median(values) * 1e6 / rows for name, values in times.items()}

print("| call | over the scan | the library's call | ratio |")
print("|---|---:|---:|---:|")
for name, nanoseconds in each.items():
    if "(" not in name:
        continue
    cost = nanoseconds - each["bits" if "(bits)" in name else "epc"]
    function = name.split("(")[0]
    if function == "upper":
        print(f"| `{name}` | {cost:.0f} ns | | |")
    else:
        loop = each[LOOPS.get(function, "element_string")]
        print(f"| `{name}` | {cost:.0f} ns | {loop:.0f} ns | {cost / loop:.2f} |")
