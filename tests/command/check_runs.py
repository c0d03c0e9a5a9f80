"""Long runs: their memory, the borders of the blocks that they are read in, and a terminal.

usage: check_runs.py ROSETAG
"""
import os
import pwd
import resource
import subprocess
import sys
import tempfile
import time
import unittest

from terminal import open_terminal, shown_on

ROSETAG = os.path.abspath(sys.argv[1])
LINE = b"3074257BF7194E4000001A85\n"
URI = b"urn:epc:tag:sgtin-96:3.0614141.812345.6789\n"

BLOCK = 64 << 10  # so much is read at a time


def peak_of_run(lines, options, line=LINE, exit_status=0):
    """The most memory, in KiB, that a run over so many lines has."""
    child = subprocess.Popen([ROSETAG, "decode", "--quiet", *options], stdin=subprocess.PIPE,
                             stdout=subprocess.DEVNULL)
    for _ in range(max(lines // 1000, 1)):
        child.stdin.write(line * min(lines, 1000))
    child.stdin.flush()
    # What the system reports at the end of a child counts this interpreter in.
    with open(f"/proc/{child.pid}/status", encoding="ascii") as status:
        peak = next(int(line.split()[1]) for line in status if line.startswith("VmHWM:"))
    child.communicate()
    assert child.returncode == exit_status
    return peak


def leave_no_thread():
    """A user who may have no further process or thread: root always may."""
    if os.geteuid() == 0:
        os.setgroups([])
        os.setuid(pwd.getpwnam("nobody").pw_uid)
    resource.setrlimit(resource.RLIMIT_NPROC, (1, 1))


def leave_no_stack():
    """Memory enough for the run, but not for the stack of a further thread."""
    resource.setrlimit(resource.RLIMIT_STACK, (1 << 30, 1 << 30))
    resource.setrlimit(resource.RLIMIT_AS, (1 << 29, 1 << 29))


class Runs(unittest.TestCase):
    # The limits of the system itself; what each call does when it fails is looked at with faults
    # that are put in.
    def test_threads_that_cannot_be_started(self):
        for limit in (leave_no_thread, leave_no_stack):
            with self.subTest(limit=limit.__name__):
                try:
                    subprocess.run([ROSETAG, "--version"], preexec_fn=limit, check=True,
                                   stdout=subprocess.DEVNULL)
                except (OSError, KeyError, subprocess.SubprocessError) as failure:
                    self.skipTest(f"nobody cannot run the command here: {failure}")
                child = subprocess.run([ROSETAG, "decode", "--quiet", "--jobs", "3"],
                                       input=LINE * 20_000, capture_output=True, timeout=60,
                                       preexec_fn=limit, check=False)
                self.assertIn(b"only 1 of 3 threads could be started: ", child.stderr)
                self.assertEqual((child.returncode, child.stdout), (0, URI * 20_000))

    def test_memory_does_not_grow_with_the_lines(self):
        for options in ([], ["--jobs", "2"], ["--json"]):
            with self.subTest(options=options):
                few, many = (peak_of_run(lines, options) for lines in (50_000, 300_000))
                self.assertLess(many, few + 2000)

    def test_memory_does_not_grow_with_long_lines_times_jobs(self):
        line = b"3" * (15 << 20) + b"\n"
        one, four = (peak_of_run(8, ["--jobs", jobs], line, 1) for jobs in ("1", "4"))
        self.assertLess(four, one + 32_000)

    # A line lies across the end of a block at each of its characters, and ends at it.
    def test_borders_of_blocks(self):
        text = b"(8004)0614141" + b"A" * 23 + b"(21)XY(3103)000189(17)240229(10)" + b"L" * 20
        with tempfile.TemporaryDirectory() as folder:
            for offset in range(-3, len(text) + 4):
                name = os.path.join(folder, "lines")
                junk = BLOCK - offset - 1
                with open(name, "wb") as file:
                    file.write(b"3" * junk + b"\n" + text + b"\n\n" + (text + b"\n") * 300 + b"\n")
                expected = b"\tEPC_ERR_TOO_LONG\n" + text + b"\n\n" + (text + b"\n") * 300 + b"\n"
                with self.subTest(offset=offset):
                    out = subprocess.run([ROSETAG, "decode", "--to", "element-string", "--quiet",
                                          "--input", name, "--jobs", "12"[offset % 2]],
                                         stdout=subprocess.PIPE, check=False).stdout
                    self.assertEqual(out, expected)

    def run_on_terminal(self, *options):
        """Standard output, and what a terminal at standard error shows."""
        terminal, side = open_terminal()
        child = subprocess.Popen([ROSETAG, "decode", *options], stdin=subprocess.PIPE,
                                 stdout=subprocess.PIPE, stderr=side)
        for _ in range(3):
            child.stdin.write(LINE)
            child.stdin.flush()
            time.sleep(0.3)
        out, _ = child.communicate(b"42\n")
        return out, shown_on(terminal, side)

    def test_progress_is_shown_beside_the_output(self):
        out, shown = self.run_on_terminal()
        self.assertEqual(out, URI * 3 + b"\tEPC_ERR_UNKNOWN_HEADER\n")
        self.assertRegex(shown, rb"\r\x1b\[K[23] lines, 0 failed, [0-9,]+ lines/s")
        # The line is taken off before the summary.
        self.assertRegex(shown, rb"\r\x1b\[Krosetag: 4 lines, 3 converted, 1 failed")
        self.assertEqual(self.run_on_terminal("--quiet"), (out, b""))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
