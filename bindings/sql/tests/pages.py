"""Runs what a page shows: blocks marked sql, each with the text that it prints after it."""

import re
import shutil
import subprocess
import tempfile
from pathlib import Path

FENCE = re.compile(r"^```([a-z]+)\n(.*?)^```$", re.DOTALL | re.MULTILINE)


def blocks_of(page, section=None):
    """(language, text) of the blocks of a section with that heading, or of all of the page."""
    text = Path(page).read_text()
    if section:
        text = re.search(rf"^## {section}\n(.*?)(?=^## |\Z)", text, re.DOTALL | re.MULTILINE)[1]
    return [(match[1], match[2]) for match in FENCE.finditer(text)]


def check(test, root, page, section, extension, command, load):
    """Runs each block in a process of its own, on one database: command with the name of the
    database after it. load is the line that loads the extension, for all but the first."""
    reads = dict(blocks_of(Path(root) / "docs/sql.md", "The reads of the examples"))["csv"]
    blocks = blocks_of(Path(root) / page, section)
    ran = 0
    with tempfile.TemporaryDirectory() as folder:
        Path(folder, "reads.csv").write_text(reads)
        shutil.copy(extension, folder)
        for (language, sql), (_, shown) in zip(blocks, blocks[1:] + [("", "")]):
            if language != "sql":
                continue
            ran += 1
            before = [] if ran == 1 else ["-cmd", load]
            found = subprocess.run([*command, *before, "reads.db"], input=sql, text=True,
                                   capture_output=True, cwd=folder, check=False)
            with test.subTest(page, block=sql):
                test.assertEqual(shown.split(), (found.stdout + found.stderr).split(),
                                 found.stdout + found.stderr)
    return ran
