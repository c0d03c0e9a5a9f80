#!/usr/bin/env python3
"""Runs the benchmarks and prints one table: times, and the ratios that the project holds itself to.

    scripts/bench.py PROGRAM COMMAND [--write FILE] [--repetitions N] [--min-time SECONDS] [--all]
    scripts/bench.py PROGRAM COMMAND --memory

PROGRAM is the benchmarks, COMMAND is rosetag, of which the time for a line of a file is taken.

Each time of a call is the median of the repetitions, which run interleaved in random order, so that
what else the machine does falls on all of them alike. The line of a file is measured after them;
its ratio is one of processor times. With --write the table replaces what is
between the markers of FILE. With --all every benchmark is listed too.
With --memory nothing else is measured than the memory of a run over 1 and over 100 million lines.
"""

import argparse
import json
import os
import random
import statistics
import subprocess
import sys
import tempfile

LINES = 1_000_000
LINE = "line of a file, hex to tag URI"
PROCESSOR = " (processor time)"
SGTIN = ["hex-to-tag-uri", "tag-uri-to-hex", "hex-to-element-string", "element-string-to-hex"]

# What, its benchmark, measured against, that one's benchmark, largest ratio (None: it is only shown
# what the machine gives).
RATIOS = (
    [(f"SGTIN-96, {name}", f"sgtin-96/{name}", "the hand-tuned program", f"hand-tuned/{name}",
      limit) for name, limit in zip(SGTIN, (1.25, 1.7, 1.05, 1.2))]
    + [(f"SGTIN-96, {name}", f"sgtin-96/{name}", "the program of numbers", f"numbers/{name}",
        1.4) for name in SGTIN]
    + [(f"SGTIN-96, {name}", f"sgtin-96/{name}", "the straightforward program",
        f"straightforward/{name}", 1 / 10 if "tag-uri" in name else 1 / 6) for name in SGTIN]
    + [(f"{scheme}, {name}", f"{scheme}/{name}", "SGTIN-96", f"sgtin-96/{name}", 1.3)
       for scheme in ("sscc-96", "giai-96", "gdti-113", "cpi-96", "itip-110") for name in SGTIN]
    + [
        ("element string of five AIs to Digital Link", "five-ais/element-string-to-digital-link",
         "one snprintf", "snprintf/tag-uri", 2.5),
        ("the same text to sgtin+ hex", "five-ais/element-string-to-sgtin+-hex",
         "one snprintf", "snprintf/tag-uri", 3.0),
        ("that hex back to a Digital Link", "five-ais/sgtin+-hex-to-digital-link",
         "one snprintf", "snprintf/tag-uri", 3.0),
        ("check of an element string of four AIs", "four-ais/check",
         "one snprintf", "snprintf/tag-uri", 8.0),
        ("TID with serial and all segments", "tid/decode", "one snprintf", "snprintf/tag-uri", 0.6),
        ("sgtin-198 of 20 characters, hex-to-tag-uri", "sgtin-198-long/hex-to-tag-uri",
         "one snprintf", "snprintf/tag-uri", 1.2),
        ("sgtin-198 of 20 characters, tag-uri-to-hex", "sgtin-198-long/tag-uri-to-hex",
         "one snprintf", "snprintf/tag-uri", 1.2),
        ("AI value of 90 digits to hex", "ai-90-digits/to-hex",
         "one snprintf", "snprintf/tag-uri", 10.0),
        ("a column of a million SGTIN-96, hex to element string", "columns/hex-to-element-string",
         "a million plain calls", "columns/plain-calls", 1.3),
        ("two threads, time per call", "threads/hex-to-tag-uri/real_time/threads:2",
         "one thread", "threads/hex-to-tag-uri/real_time/threads:1", 1 / 1.95),
        ("the hand-tuned program on two threads", "threads/hand-tuned/real_time/threads:2",
         "one thread", "threads/hand-tuned/real_time/threads:1", None),
        ("rosetag decode, a line of a file", LINE,
         "the export's call", "sgtin-96/hex-to-tag-uri" + PROCESSOR, 2.0),
    ]
)

BEGIN = "<!-- table of ./dev bench -->"
END = "<!-- end of the table -->"


def medians(program, arguments, only):
    command = [program, "--benchmark_format=json", "--benchmark_enable_random_interleaving=true",
               f"--benchmark_repetitions={arguments.repetitions}",
               f"--benchmark_min_time={arguments.min_time}",
               "--benchmark_report_aggregates_only=true"]
    if only:
        command.append("--benchmark_filter=^(" + "|".join(n.replace("+", "\\+") for n in only) + ")$")
    output = subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout
    runs = json.loads(output)["benchmarks"]
    failed = [run["name"] for run in runs if run.get("error_occurred")]
    if failed:
        sys.exit("a call failed in: " + ", ".join(failed))
    of_calls = [run for run in runs if run.get("aggregate_name") == "median"]
    return ({run["run_name"]: run["real_time"] for run in of_calls}
            | {run["run_name"] + PROCESSOR: run["cpu_time"] for run in of_calls})


def random_tag_uri(choose):
    digits = choose.randint(6, 12)
    fields = [choose.randrange(8), f"{choose.randrange(10 ** digits):0{digits}}",
              f"{choose.randrange(10 ** (13 - digits)):0{13 - digits}}",
              1 + choose.randrange(10 ** 6)]
    return "urn:epc:tag:sgtin-96:" + ".".join(map(str, fields))


def processor_seconds(command):
    child = subprocess.Popen(command, stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(child.pid, 0)
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode != 0:
        sys.exit("fails: " + " ".join(command))
    return usage.ru_utime + usage.ru_stime


def nanoseconds_of_line(command, repetitions):
    """The processor time of one line, reading and writing included."""
    choose = random.Random(20261122)
    uris = "".join(random_tag_uri(choose) + "\n" for _ in range(LINES))
    with tempfile.NamedTemporaryFile("w") as file:
        subprocess.run([command, "encode", "--quiet", "--to", "hex"], input=uris, stdout=file,
                       check=True, text=True)
        decode = [command, "decode", "--quiet", "--to", "tag-uri", "--input", file.name]
        if subprocess.run(decode, check=True, stdout=subprocess.PIPE, text=True).stdout != uris:
            sys.exit("the command gives back other tag URIs than it was given")
        seconds = statistics.median(processor_seconds(decode) for _ in range(repetitions))
        return seconds / LINES * 1e9


def peak_of_lines(command, lines):
    """The most memory, in KiB, that a run over so many lines has, asked for before its end: what
    the system reports of a finished child counts this interpreter in."""
    child = subprocess.Popen([command, "decode", "--quiet", "--to", "tag-uri"],
                             stdin=subprocess.PIPE, stdout=subprocess.DEVNULL)
    block = b"3074257BF7194E4000001A85\n" * 10_000
    for _ in range(lines // 10_000):
        child.stdin.write(block)
    child.stdin.flush()
    with open(f"/proc/{child.pid}/status", encoding="ascii") as status:
        peak = next(int(line.split()[1]) for line in status if line.startswith("VmHWM:"))
    child.communicate()
    if child.returncode != 0:
        sys.exit("a run over lines fails")
    return peak


def ratio_table(times):
    lines = ["| Work | Time | Against | Its time | Ratio | At most | |",
             "|---|---:|---|---:|---:|---:|---|"]
    missed = 0
    for work, name, against, base, limit in RATIOS:
        ratio = times[name] / times[base]
        if limit is None:
            verdict = "| |"
        else:
            missed += ratio > limit
            verdict = f"{limit:.3f} | {'holds' if ratio <= limit else '**missed**'} |"
        lines.append(f"| {work} | {times[name]:.0f} ns | {against} | {times[base]:.0f} ns "
                     f"| {ratio:.3f} | {verdict}")
    return lines, missed


def time_table(times):
    names = [name for name in times if not name.startswith("threads/") and name != LINE
             and not name.endswith(PROCESSOR)]
    return ["", "| Conversion | Time of a call |", "|---|---:|"] + [
        f"| {name} | {times[name]:.0f} ns |" for name in sorted(names)]


def write_table(path, lines):
    with open(path, encoding="utf-8") as file:
        text = file.read()
    head, _, rest = text.partition(BEGIN)
    _, _, tail = rest.partition(END)
    with open(path, "w", encoding="utf-8") as file:
        file.write(head + BEGIN + "\n\n" + "\n".join(lines) + "\n\n" + END + tail)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("command")
    parser.add_argument("--write")
    parser.add_argument("--repetitions", type=int, default=9)
    parser.add_argument("--min-time", type=float, default=0.05)
    parser.add_argument("--all", action="store_true")
    parser.add_argument("--memory", action="store_true")
    arguments = parser.parse_args()
    if arguments.memory:
        for millions in (1, 100):
            peak = peak_of_lines(arguments.command, millions * 1_000_000)
            print(f"{millions} million lines: {peak} KiB at most")
        return
    named = {name.removesuffix(PROCESSOR) for row in RATIOS for name in (row[1], row[3])}
    times = medians(arguments.program, arguments, [] if arguments.all else sorted(named - {LINE}))
    times[LINE] = nanoseconds_of_line(arguments.command, arguments.repetitions)
    lines, missed = ratio_table(times)
    if arguments.all:
        lines += time_table(times)
    print("\n".join(lines))
    if arguments.write:
        write_table(arguments.write, lines)
    if missed:
        limited = sum(limit is not None for *_, limit in RATIOS)
        print(f"\n{missed} of {limited} ratios are above what they may be", file=sys.stderr)


if __name__ == "__main__":
    main()
