"""Appends what DuckDB reads from an extension before it loads it.

usage: append_footer.py EXTENSION VERSION INCLUDE_DIR

The footer has eight fields of 32 bytes, the last ones first, and room for a signature. DuckDB
compares the version of its C interface, which the header that was compiled says, and the platform.

Source: DuckDB: C extension template, metadata of extensions.
"""

import platform
import re
import sys
from pathlib import Path

FIELD = 32
SIGNATURE = 256
MACHINES = {"x86_64": "amd64", "aarch64": "arm64"}


def interface_version(include_dir):
    header = (Path(include_dir) / "duckdb_extension.h").read_text()
    numbers = re.findall(r"define DUCKDB_EXTENSION_API_VERSION_(?:MAJOR|MINOR|PATCH) +(\d+)", header)
    return "v" + ".".join(numbers)


def main(extension, version, include_dir):
    machine = f"{platform.system().lower()}_{MACHINES[platform.machine()]}"
    fields = ["", "", "", "C_STRUCT", version, interface_version(include_dir), machine, "4"]
    with open(extension, "ab") as file:
        for field in fields:
            file.write(field.encode().ljust(FIELD, b"\0"))
        file.write(bytes(SIGNATURE))


main(*sys.argv[1:])
