"""Prints a table of what calls cost: bench.py ROWS < TIMES

TIMES has lines of a name, a tab and milliseconds, several for each name.
"""

import statistics
import sys
from collections import defaultdict

# The library's calls that a function is compared with: those that its answer needs.
LOOPS = {
    "epc_tag_uri": "tag_uri",
    "epc_element_string": "element_string",
    "epc_digital_link": "digital_link",
    "epc_scheme": "pure_identity",
    "epc_gtin": "ais",
    "epc_serial": "ais",
    "epc_ai": "ais",
    # There is none that only tells whether a value can be decoded; this is the quickest.
    "epc_status": "pure_identity",
    "epc_check": "pure_identity",
    "epc_hex": "pure_identity",
    "epc_decode": "forms",
}

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
        loop = each[LOOPS[function]]
        print(f"| `{name}` | {cost:.0f} ns | {loop:.0f} ns | {cost / loop:.2f} |")
