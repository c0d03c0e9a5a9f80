"""What an extension needs from the system, and what it shows to the program that loads it."""

import re
import subprocess


def check(test, extension, entry):
    def lines(*command):
        return subprocess.run([*command, extension], check=True, text=True,
                              capture_output=True).stdout.splitlines()

    shown = [line.split()[-1] for line in lines("nm", "--dynamic", "--defined-only")]
    test.assertEqual([entry], shown)
    needed = re.findall(r"\(NEEDED\).*\[(.*?)\]", "\n".join(lines("readelf", "--dynamic")))
    test.assertEqual(set(), {re.sub(r"[-.].*", "", name) for name in needed} - {"libc", "libm", "ld"})
