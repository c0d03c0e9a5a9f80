"""What programs show on a terminal."""

import os
import pty
import unittest


def open_terminal():
    """A pseudo-terminal, and the side of it that a program writes to."""
    try:
        return pty.openpty()
    except OSError as failure:
        raise unittest.SkipTest(f"there is no pseudo-terminal here: {failure}") from failure


def shown_on(terminal, side):
    """All that was written. Closes both, so that the program must have ended or have its own side."""
    os.close(side)
    shown = b""
    try:
        while chunk := os.read(terminal, 65536):
            shown += chunk
    except OSError:
        pass  # nothing is left on a terminal whose other side is closed
    os.close(terminal)
    return shown
