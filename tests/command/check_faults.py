"""Runs over lines while calls of the system fail: the output is complete, or a clean prefix of
whole lines; the exit status says which; the error file accounts for each line of the output that
failed; nothing hangs.

usage: check_faults.py ROSETAG FAULTS_LIBRARY
"""
import errno
import os
import re
import subprocess
import sys
import tempfile
import unittest

from terminal import open_terminal, shown_on

ROSETAG, LIBRARY = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
GOOD = b"3074257BF7194E4000001A85"
BAD = b"42"
URI = b"urn:epc:tag:sgtin-96:3.0614141.812345.6789"
LINES = 15_000
BLOCK = 64 << 10  # so much is read at a time
INPUT, ERRORS = 3, 4  # the descriptors of --input and --errors
ALWAYS = 10**9
MEMORY_FAULTS = 40

COMPLETE, PREFIX, EITHER = "complete", "prefix", "either"
# call, descriptor, first and last call, fault, what comes of the output
FAULTS = [
    ("write", 1, 1, ALWAYS, "short", COMPLETE),
    ("write", 1, 2, 5, errno.EINTR, COMPLETE),
    ("write", 1, 2, 5, errno.EAGAIN, COMPLETE),
    ("write", 1, 1, ALWAYS, errno.ENOSPC, PREFIX),
    ("write", 1, 2, ALWAYS, errno.ENOSPC, PREFIX),
    ("write", 1, 3, ALWAYS, errno.EIO, PREFIX),
    ("write", 1, 3, ALWAYS, "zero", PREFIX),
    ("close", 1, 1, 1, errno.EIO, COMPLETE),
    ("write", ERRORS, 1, ALWAYS, "short", COMPLETE),
    ("write", ERRORS, 1, 3, errno.EINTR, COMPLETE),
    ("write", ERRORS, 1, ALWAYS, errno.ENOSPC, EITHER),
    ("close", ERRORS, 1, 1, errno.EIO, COMPLETE),
    ("read", INPUT, 1, ALWAYS, "short", COMPLETE),
    ("read", INPUT, 2, 5, errno.EINTR, COMPLETE),
    ("read", INPUT, 2, 5, errno.EAGAIN, COMPLETE),
    ("read", INPUT, 3, ALWAYS, errno.EIO, PREFIX),
    ("read", INPUT, 1, ALWAYS, errno.EIO, PREFIX),
    ("close", INPUT, 1, 1, errno.EIO, COMPLETE),
    ("thread", 0, 1, ALWAYS, errno.EAGAIN, COMPLETE),
    ("thread", 0, 2, ALWAYS, errno.ENOMEM, COMPLETE),
]
TRANSIENT = ("short", errno.EINTR, errno.EAGAIN, errno.ENOMEM)


def environment(rules):
    text = " ".join(":".join(str(part) for part in rule) for rule in rules)
    return dict(os.environ, LD_PRELOAD=LIBRARY, ROSETAG_FAULTS=text)


def run(folder, rules, options, name="lines"):
    with open(os.path.join(folder, "out"), "wb") as out:
        child = subprocess.run([ROSETAG, "decode", "--input", name, *options], cwd=folder,
                               env=environment(rules),
                               stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.PIPE,
                               timeout=60, check=False)
    with open(os.path.join(folder, "out"), "rb") as out:
        return child.returncode, out.read(), child.stderr


class Faults(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        lines = [BAD if number % 100 == 99 else GOOD for number in range(LINES)]
        with open(os.path.join(cls.folder.name, "lines"), "wb") as file:
            file.write(b"\n".join(lines) + b"\n")
        cls.results = [b"" if line == BAD else URI for line in lines]
        cls.expected = b"".join(line + b"\n" for line in cls.results)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def error_numbers(self):
        with open(os.path.join(self.folder.name, "errors"), "rb") as file:
            text = file.read()
        self.assertTrue(text == b"" or text.endswith(b"\n"))
        return [int(line.split(b"\t")[0]) for line in text.splitlines()]

    def check(self, outcome, status, out, errors_are_whole):
        self.assertIn(status, (1, 3))
        if outcome == COMPLETE:
            self.assertEqual(out, self.expected)
        else:
            self.assertEqual(status, 3)
            self.assertTrue(self.expected.startswith(out))
            self.assertTrue(out == b"" or out.endswith(b"\n"))
            self.assertTrue(outcome == EITHER or len(out) < len(self.expected))
        if errors_are_whole:
            numbers = self.error_numbers()
            self.assertEqual(numbers, list(range(100, numbers[-1] + 1 if numbers else 0, 100)))
            failed = out.count(b"\n\n")
            self.assertGreaterEqual(len(numbers), failed)

    def test_faults_of_calls(self):
        for call, descriptor, first, last, fault, outcome in FAULTS:
            for jobs in ("1", "3"):
                for more in ([], ["--unbuffered"]):
                    with self.subTest(call=call, descriptor=descriptor, first=first, fault=fault,
                                      jobs=jobs, more=more):
                        # The first write, being short, ends within a line.
                        status, out, err = run(
                            self.folder.name,
                            [(call, descriptor, first, last, fault), ("write", 1, 1, 1, "short")],
                            ["--errors", "errors", "--quiet", "--jobs", jobs, *more])
                        self.check(outcome, status, out, outcome != EITHER)
                        is_lost = fault not in TRANSIENT and (call, descriptor) != ("close", INPUT)
                        if call == "thread":
                            started = b"only %d of 3 threads" % first if jobs == "3" else b""
                            self.assertIn(started, err)
                        self.assertEqual(status, 3 if is_lost and call != "thread" else 1, err)

    # Whatever allocation of a run fails, in whichever thread, the run ends and says so.
    def test_memory(self):
        failed = 0
        with open(os.path.join(self.folder.name, "long"), "wb") as file:
            file.write((GOOD + b"\n") * 30_000 + b"3" * 9_000_000 + b"\n" + (GOOD + b"\n") * 30_000)
        _, expected, _ = run(self.folder.name, [], ["--quiet"], "long")
        for number in range(1, MEMORY_FAULTS):
            for jobs in ("1", "3"):
                with self.subTest(number=number, jobs=jobs):
                    status, out, err = run(self.folder.name,
                                           [("malloc", 200_000, number, number, errno.ENOMEM)],
                                           ["--quiet", "--jobs", jobs], "long")
                    if status == 1:
                        self.assertEqual(out, expected)
                        continue
                    failed += 1
                    self.assertEqual(status, 3, err)
                    self.assertIn(b"bad_alloc", err)
                    self.assertTrue(expected.startswith(out) and (not out or out.endswith(b"\n")))
        self.assertGreater(failed, 10)

    # Every read takes longer than what lies between two lines of progress.
    def test_progress_tells_the_share_that_is_read(self):
        terminal, side = open_terminal()
        name = os.path.join(self.folder.name, "blocks")
        with open(name, "wb") as file:
            file.write((b"4" * 63 + b"\n") * (5 * BLOCK // 64))
        subprocess.run([ROSETAG, "decode", "--input", name], stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=side, timeout=60, check=False,
                       env=environment([("read", INPUT, 1, 5, "slow")]))
        shown = shown_on(terminal, side)
        self.assertEqual(re.findall(rb"([0-9,]+) lines,[^%]* ([0-9]+) % done", shown),
                         [(b"1,024", b"20"), (b"2,048", b"40"), (b"3,072", b"60"),
                          (b"4,096", b"80"), (b"5,120", b"100")])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
