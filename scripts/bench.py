#!/usr/bin/env python3
"""Runs the benchmarks and prints two tables: calls and lines of files, each against its goal.

    scripts/bench.py DIRECTORY [--write FILE] [--repetitions N] [--min-time SECONDS] [--all]
    scripts/bench.py DIRECTORY --memory

DIRECTORY is a build with the benchmarks and the command.

Each time of a call is the median of the repetitions, which run interleaved in random order, so that
what else the machine does falls on all of them alike. The lines are measured after them: processor
times over a million different values, medians of runs in turn. A goal that is missed stands in the
table as missed; it fails nothing, as times depend on the machine. With --write the tables replace
what is between the markers of FILE. With --all every benchmark is listed too.
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
SGTIN = ["hex-to-tag-uri", "tag-uri-to-hex", "hex-to-element-string", "element-string-to-hex"]
OTHER_NUMERIC = ["sscc-96", "sgln-96", "grai-96", "giai-96", "gsrn-96", "gsrnp-96", "gdti-96",
                 "gdti-113", "sgcn-96", "cpi-96", "itip-110", "gid-96"]
PRINT = ("one snprintf", "snprintf/tag-uri")

# What, its benchmark, measured against, that one's benchmark, the goal of the ratio (None: it is
# only shown). A benchmark with "*" for the scheme is that of the slowest other numeric scheme.
RATIOS = (
    [(f"SGTIN-96, {name}", f"sgtin-96/{name}", "the hand-tuned program", f"hand-tuned/{name}",
      goal) for name, goal in zip(SGTIN, (1.25, 0.7, 1.0, 0.6))]
    + [(f"SGTIN-96, {name}", f"sgtin-96/{name}", "the program of numbers", f"numbers/{name}",
        None) for name in SGTIN]
    + [(f"SGTIN-96, {name}", f"sgtin-96/{name}", "the straightforward program",
        f"straightforward/{name}", 1 / 10 if "tag-uri" in name else 1 / 6) for name in SGTIN]
    + [(f"the slowest other numeric scheme, {name}", f"*/{name}", "SGTIN-96", f"sgtin-96/{name}",
        1.3) for name in SGTIN]
    + [
        ("element string of five AIs to Digital Link", "five-ais/element-string-to-digital-link",
         *PRINT, 1.3),
        ("the same text to sgtin+ hex", "five-ais/element-string-to-sgtin+-hex", *PRINT, 2.0),
        ("that hex back to a Digital Link", "five-ais/sgtin+-hex-to-digital-link", *PRINT, 2.0),
        ("check of an element string of four AIs", "four-ais/check", *PRINT, None),
        ("TID with serial and all segments", "tid/decode", *PRINT, 0.6),
        ("sgtin-198 of 20 characters, hex-to-tag-uri", "sgtin-198-long/hex-to-tag-uri", *PRINT,
         None),
        ("sgtin-198 of 20 characters, tag-uri-to-hex", "sgtin-198-long/tag-uri-to-hex", *PRINT,
         None),
        ("AI value of 20 digits from hex", "ai-20-digits/from-hex", "one of 19 digits",
         "ai-19-digits/from-hex", 2.0),
        ("AI value of 90 digits to hex", "ai-90-digits/to-hex", *PRINT, 10.0),
        ("a column of a million SGTIN-96, hex to element string", "columns/hex-to-element-string",
         "a million plain calls", "columns/plain-calls", 1.3),
        ("two threads, time per call", "threads/hex-to-tag-uri/real_time/threads:2",
         "one thread", "threads/hex-to-tag-uri/real_time/threads:1", 1 / 1.95),
        ("the hand-tuned program on two threads", "threads/hand-tuned/real_time/threads:2",
         "one thread", "threads/hand-tuned/real_time/threads:1", None),
    ]
)

# A line costs reading, recognising and writing besides the calls that its fields need.
ONE_FIELD = (1.3, 40)
SEVERAL_FIELDS = (1.3, 0)
FIELDS = ["--fields", "scheme,filter,tag_uri,element_string,digital_link"]
FIELDS_CALLS = ["hex-to-tag-uri", "hex-to-element-string", "hex-to-digital-link"]
SCHEME = ["--scheme", "sgtin-96", "--filter", "3", "--gcp-length", "7", "--to", "hex"]

# What, the file of lines, arguments of rosetag, the calls, the factor of their time and what is
# added to it.
LINE_RUNS = [
    ("hex to tag_uri", "hex", ["decode", "--to", "tag_uri"], ["hex-to-tag-uri"], ONE_FIELD),
    ("hex to pure_identity", "hex", ["decode", "--to", "pure_identity"], ["hex-to-pure-identity"],
     ONE_FIELD),
    ("hex to element_string", "hex", ["decode", "--to", "element_string"],
     ["hex-to-element-string"], ONE_FIELD),
    ("hex to barcode_string", "hex", ["decode", "--to", "barcode_string"],
     ["hex-to-barcode-string"], ONE_FIELD),
    ("hex to digital_link", "hex", ["decode", "--to", "digital_link"], ["hex-to-digital-link"],
     ONE_FIELD),
    ("hex to gtin", "hex", ["decode", "--to", "gtin"], ["hex-to-ais"], ONE_FIELD),
    ("hex to ais", "hex", ["decode", "--to", "ais"], ["hex-to-ais"], ONE_FIELD),
    ("tag URI to hex", "tag_uri", ["decode", "--to", "hex"], ["tag-uri-to-hex"], ONE_FIELD),
    ("tag URI to element_string", "tag_uri", ["decode", "--to", "element_string"],
     ["tag-uri-to-element-string"], ONE_FIELD),
    ("pure identity to element_string", "pure_identity", ["decode", "--to", "element_string"],
     ["pure-identity-to-element-string"], ONE_FIELD),
    ("element string to digital_link", "element_string", ["decode", "--to", "digital_link"],
     ["element-string-to-digital-link"], ONE_FIELD),
    ("barcode string to ais", "barcode_string", ["decode", "--barcode", "--to", "ais"],
     ["barcode-string-to-ais"], ONE_FIELD),
    ("link to element_string", "digital_link", ["decode", "--to", "element_string"],
     ["digital-link-to-element-string"], ONE_FIELD),
    ("encode element strings", "element_string", ["encode", *SCHEME], ["element-string-to-hex"],
     ONE_FIELD),
    ("encode barcode strings", "barcode_string", ["encode", "--barcode", *SCHEME],
     ["barcode-string-to-hex"], ONE_FIELD),
    ("encode links", "digital_link", ["encode", *SCHEME], ["digital-link-to-hex"], ONE_FIELD),
    ("encode pure identities", "pure_identity",
     ["encode", "--scheme", "sgtin-96", "--filter", "3", "--to", "hex"], ["pure-identity-to-hex"],
     ONE_FIELD),
    ("hex to five --fields, three of them texts", "hex", ["decode", *FIELDS], FIELDS_CALLS,
     SEVERAL_FIELDS),
]
FIELDS_RUN = LINE_RUNS[-1][0]
COLUMN_RUN = ("the same of a --column of a CSV", "csv", ["decode", "--column", "epc", *FIELDS])
JSON_RUN = ("hex to --json", "hex", ["decode", "--json"])
COLUMN_EXTRA = 150
JSON_GOAL = 1200
START_GOAL_MS = 1.0

BEGIN = "<!-- table of ./dev bench -->"
END = "<!-- end of the table -->"


def medians(directory, arguments, only):
    command = [f"{directory}/bench/rosetag_bench", "--benchmark_format=json",
               "--benchmark_enable_random_interleaving=true",
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
    # Processor times, but for threads: what else runs takes none of it.
    return {run["run_name"]: run["real_time" if run["run_name"].startswith("threads/") else "cpu_time"]
            for run in runs if run.get("aggregate_name") == "median"}


def add_slowest(times):
    for name in SGTIN:
        times[f"*/{name}"] = max(times[f"{scheme}/{name}"] for scheme in OTHER_NUMERIC
                                 if f"{scheme}/{name}" in times)


def benchmarks_of(name):
    return [name.replace("*", scheme, 1) for scheme in OTHER_NUMERIC] if "*" in name else [name]


# ---- Lines of files ----

def random_tag_uri(choose):
    prefix = choose.randrange(10 ** 7)
    return (f"urn:epc:tag:sgtin-96:3.{prefix:07}.{choose.randrange(10 ** 6):06}."
            f"{1 + choose.randrange(10 ** 6)}")


def convert(command, arguments, source, target):
    with open(source, encoding="ascii") as lines, open(target, "w", encoding="ascii") as out:
        subprocess.run([command, *arguments, "--quiet"], stdin=lines, stdout=out, check=True)


def write_files(command, directory):
    """A million different values in each form, and a table of them."""
    choose = random.Random(20261122)
    names = ["hex", "tag_uri", "pure_identity", "element_string", "barcode_string", "digital_link"]
    files = {name: os.path.join(directory, name) for name in [*names, "csv", "back"]}
    with open(files["tag_uri"], "w", encoding="ascii") as file:
        file.writelines(random_tag_uri(choose) + "\n" for _ in range(LINES))
    convert(command, ["encode", "--to", "hex"], files["tag_uri"], files["hex"])
    for name in names[2:]:
        convert(command, ["decode", "--to", name], files["hex"], files[name])
    convert(command, ["decode", "--to", "tag_uri"], files["hex"], files["back"])
    with open(files["tag_uri"], "rb") as given, open(files["back"], "rb") as back:
        if given.read() != back.read():
            sys.exit("the command gives back other tag URIs than it was given")
    with open(files["hex"], encoding="ascii") as lines, \
            open(files["csv"], "w", encoding="ascii") as table:
        table.write("id,epc,place\n")
        table.writelines(f"{i},{line.rstrip()},shelf {i % 97}\n" for i, line in enumerate(lines))
    return files


def nanoseconds_of_line(command, source):
    with open(source, "rb") as lines:
        child = subprocess.Popen(command, stdin=lines, stdout=subprocess.DEVNULL)
        _, status, usage = os.wait4(child.pid, 0)
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode != 0:
        sys.exit("fails: " + " ".join(command))
    return (usage.ru_utime + usage.ru_stime) / LINES * 1e9


def milliseconds_of_start(command, runs=200):
    before = os.times()
    for _ in range(runs):
        subprocess.run([command, "3074257BF7194E4000001A85"], check=True,
                       stdout=subprocess.DEVNULL)
    after = os.times()
    spent = (after.children_user + after.children_system
             - before.children_user - before.children_system)
    return spent / runs * 1e3


def nanoseconds_of_calls(directory, files, repetition_times):
    """One time of each call over the lines of its file."""
    wanted = {}
    for _, source, _, calls, _ in LINE_RUNS:
        wanted.setdefault(source, set()).update(calls)
    for source, names in wanted.items():
        names = sorted(names)
        output = subprocess.run([f"{directory}/bench/rosetag_calls_over_lines", files[source],
                                 *names], check=True, stdout=subprocess.PIPE, text=True).stdout
        for name, time in zip(names, output.split()):
            repetition_times.setdefault(name, []).append(float(time))


def measure_lines(directory, repetitions):
    command = f"{directory}/command/rosetag"
    with tempfile.TemporaryDirectory() as folder:
        files = write_files(command, folder)
        runs = [(name, source, [command, *arguments, "--quiet"])
                for name, source, arguments, *_ in [*LINE_RUNS, COLUMN_RUN, JSON_RUN]]
        runs += [("cat", "hex", ["cat"]), ("wc -l", "hex", ["wc", "-l"]),
                 ("awk '{print $1}'", "hex", ["awk", "{print $1}"]),
                 ("bench/plain_filter.c", "hex", [f"{directory}/bench/rosetag_plain_filter"])]
        lines, calls = {}, {}
        for _ in range(repetitions):
            for name, source, arguments in runs:
                lines.setdefault(name, []).append(nanoseconds_of_line(arguments, files[source]))
            nanoseconds_of_calls(directory, files, calls)
        median = statistics.median
        return ({name: median(times) for name, times in lines.items()},
                {name: median(times) for name, times in calls.items()})


def line_table(lines, calls, start):
    table = ["", "| Lines | A line | Its calls | Goal | What the goal is | |",
             "|---|---:|---:|---:|---|---|"]
    missed = []

    def row(name, time, of_calls, goal, words, unit="ns", digits=0):
        shown = "" if of_calls is None else f"{of_calls:.0f} ns"
        if goal is None:
            verdict, goal_text = "", ""
        else:
            verdict = "holds" if time <= goal else "**missed**"
            goal_text = f"{goal:.{digits}f} {unit}"
            if time > goal:
                missed.append(name)
        table.append(f"| {name} | {time:.{digits}f} {unit} | {shown} | {goal_text} | {words} "
                     f"| {verdict} |")

    for name in ("cat", "wc -l", "awk '{print $1}'", "bench/plain_filter.c"):
        row(f"`{name}`" if name != "bench/plain_filter.c" else f"{name}, hex to tag URI",
            lines[name], calls["hex-to-tag-uri"] if "plain" in name else None, None, "")
    row("hex to tag_uri", lines["hex to tag_uri"], calls["hex-to-tag-uri"],
        lines["awk '{print $1}'"], "the time of awk")
    for name, _, _, of_run, (factor, extra) in LINE_RUNS:
        total = sum(calls[call] for call in of_run)
        words = f"{factor} times the call{'s' if len(of_run) > 1 else ''}"
        row(name, lines[name], total, factor * total + extra,
            words + (f" and {extra} ns" if extra else ""))
    row(COLUMN_RUN[0], lines[COLUMN_RUN[0]], None, lines[FIELDS_RUN] + COLUMN_EXTRA,
        f"the run before and {COLUMN_EXTRA} ns")
    row(JSON_RUN[0], lines[JSON_RUN[0]], None, JSON_GOAL, "")
    row("start of the command, and one value", start, None, START_GOAL_MS, "", "ms", 2)
    return table, missed


def peak_of_lines(command, lines):
    """The most memory, in KiB, that a run over that many lines has, asked for before its end: what
    the system tells of a finished child counts this interpreter in."""
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
    lines = ["| Work | Time | Against | Its time | Ratio | Goal | |",
             "|---|---:|---|---:|---:|---:|---|"]
    missed = []
    for work, name, against, base, goal in RATIOS:
        ratio = times[name] / times[base]
        verdict = "| |"
        if goal is not None:
            verdict = f"{goal:.3f} | {'holds' if ratio <= goal else '**missed**'} |"
            if ratio > goal:
                missed.append(work)
        lines.append(f"| {work} | {times[name]:.0f} ns | {against} | {times[base]:.0f} ns "
                     f"| {ratio:.3f} | {verdict}")
    return lines, missed


def time_table(times):
    names = [name for name in times if not name.startswith(("threads/", "*"))]
    return ["", "| Conversion | Time of a call |", "|---|---:|"] + [
        f"| {name} | {times[name]:.0f} ns |" for name in sorted(names)]


def load_sentence():
    return (f"Measured on {os.cpu_count()} processors at a load of "
            f"{os.getloadavg()[1]:.1f} (the average of five minutes at the end).")


def write_table(path, lines):
    with open(path, encoding="utf-8") as file:
        text = file.read()
    head, _, rest = text.partition(BEGIN)
    _, _, tail = rest.partition(END)
    with open(path, "w", encoding="utf-8") as file:
        file.write(head + BEGIN + "\n\n" + "\n".join(lines) + "\n\n" + END + tail)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("directory")
    parser.add_argument("--write")
    parser.add_argument("--repetitions", type=int, default=9)
    parser.add_argument("--line-repetitions", type=int, default=5)
    parser.add_argument("--min-time", type=float, default=0.05)
    parser.add_argument("--all", action="store_true")
    parser.add_argument("--memory", action="store_true")
    arguments = parser.parse_args()
    command = f"{arguments.directory}/command/rosetag"
    if arguments.memory:
        for millions in (1, 100):
            peak = peak_of_lines(command, millions * 1_000_000)
            print(f"{millions} million lines: {peak} KiB at most")
        return
    named = sorted({name for row in RATIOS for column in (row[1], row[3])
                    for name in benchmarks_of(column)})
    times = medians(arguments.directory, arguments, [] if arguments.all else named)
    add_slowest(times)
    lines, missed = ratio_table(times)
    of_lines, of_calls = measure_lines(arguments.directory, arguments.line_repetitions)
    table, missed_lines = line_table(of_lines, of_calls, milliseconds_of_start(command))
    lines += table + ["", load_sentence()]
    if arguments.all:
        lines += time_table(times)
    print("\n".join(lines))
    if arguments.write:
        write_table(arguments.write, lines)
    if missed or missed_lines:
        print("\nmissed: " + "; ".join(missed + missed_lines), file=sys.stderr)


if __name__ == "__main__":
    main()
