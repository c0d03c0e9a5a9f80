#!/usr/bin/env python3
"""Changes the sources by one token, and sees whether the tests notice: mutate.py [N] [SEED] [PATH...]

Draws N (100) changes with the random SEED (1) from the files at the PATHs (src): a comparison turned,
a constant off by one, a status swapped, + for -, && for ||, true for false; first the kind of the
change, then its place. Each is built alone, in a copy of the tree under build/mutate, and run against
the tests: those of library and toolkit for changes of the library, otherwise those of toolkit and
command. Changes that no test notices are printed with their place: either the tests have a hole
there, or the change makes no difference.
"""

import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
TREE = ROOT / "build" / "mutate" / "tree"
BUILD = ROOT / "build" / "mutate" / "build"
KEPT = ROOT / "build" / "mutate" / "kept"
NOT_COPIED = shutil.ignore_patterns("build", ".git", "node_modules", "__pycache__")
# What is built and run for changes of the library, and for those of what lies above it.
OF_LIBRARY = ["unit_tests", "contract_tests", "toolkit_tests"]
OF_FACES = ["toolkit_tests", "rosetag_command", "rosetag_pages_written", "command_faults"]
PROGRAMS = {"unit_tests": "tests/unit_tests", "contract_tests": "tests/contract_tests",
            "toolkit_tests": "tests/toolkit/toolkit_tests"}
LARGEST_FILE = 1 << 30  # some changes write without end

TURNED = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
EXCHANGED = {"+": "-", "-": "+", "+=": "-=", "-=": "+=", "&&": "||", "||": "&&"}
FLIPPED = {"true": "false", "false": "true"}

# Operators of two operands are recognised by the layout of the sources: spaces surround them.
KINDS = {
    "comparison": re.compile(r"(?<= )(<=|>=|<|>|==|!=)(?= )"),
    "operator": re.compile(r"(?<= )(\+=|-=|\+|-|&&|\|\|)(?= )"),
    "constant": re.compile(r"(?<![\w.'])(0x[0-9A-Fa-f]+|[0-9]+)(?=[uUlL]*\b)(?!\.)"),
    "status": re.compile(r"\bEPC_(?:OK|ERR_[A-Z_]+)\b"),
    "flag": re.compile(r"\b(true|false)\b"),
}
WEIGHTS = [4, 4, 4, 4, 1]  # there are few flags
STATUSES = ["EPC_OK"] + re.findall(
    r"^    (EPC_ERR_[A-Z_]+) = ", (ROOT / "include/rosetag/rosetag.h").read_text(), re.M)


def code_only(text):
    """The text with all that is not code blanked: comments, texts, directives, assertions."""
    no_code = r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'' \
        r"|^#[^\n]*(?:\\\n[^\n]*)*"
    blank = lambda match: re.sub(r"[^\n]", " ", match.group())
    code = re.sub(no_code, blank, text, flags=re.S | re.M)
    while (start := code.find("static_assert(")) >= 0:
        end, depth = code.index("(", start) + 1, 1
        while depth > 0:
            depth += {"(": 1, ")": -1}.get(code[end], 0)
            end += 1
        code = code[:start] + re.sub(r"[^\n]", " ", code[start:end]) + code[end:]
    return code


def sources(names):
    for name in names:
        path = ROOT / name
        yield from sorted(path.rglob("*.[ch]*")) if path.is_dir() else [path]


def places(names):
    """All places of each kind: (file, offset, token)."""
    found = {kind: [] for kind in KINDS}
    for path in sources(names):
        code = code_only(path.read_text())
        for kind, pattern in KINDS.items():
            for match in pattern.finditer(code):
                found[kind].append((path, match.start(), match.group()))
    return found


def changed(kind, token, choose):
    if kind == "comparison":
        return TURNED[token]
    if kind == "operator":
        return EXCHANGED[token]
    if kind == "flag":
        return FLIPPED[token]
    if kind == "constant":
        return str(max(0, int(token, 0) + choose.choice([-1, 1]))) if token != "0" else "1"
    return choose.choice([status for status in STATUSES if status != token])


def limit_files():
    resource.setrlimit(resource.RLIMIT_FSIZE, (LARGEST_FILE, LARGEST_FILE))


def run(command, seconds=None):
    """The exit status and the output; a run that takes too long has failed."""
    process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                               errors="replace", start_new_session=True, preexec_fn=limit_files)
    try:
        output, _ = process.communicate(timeout=seconds)
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.communicate()
        return 1, "takes too long"
    return process.returncode, output


def build(targets):
    return run(["cmake", "--build", str(BUILD), "--target", *targets, "--", "-j2"])


def first_failure(targets, seconds):
    """What the tests say of the tree as it is built; nothing if they all pass."""
    for program in (target for target in targets if target in PROGRAMS):
        status, output = run([str(BUILD / PROGRAMS[program]), "--gtest_fail_fast",
                              "--gtest_brief=1"], seconds)
        if status != 0:
            failed = re.search(r"\[  FAILED  \] ([\w/.]+)", output)
            return f"{program} {failed.group(1) if failed else 'stops or hangs'}"
    if "rosetag_command" in targets:
        status, output = run(["ctest", "--test-dir", str(BUILD), "-R", r"^command\.", "-j2",
                              "--stop-on-failure"], seconds)
        if status != 0:
            failed = re.search(r"- (command\.[\w.]+) \(", output)
            return failed.group(1) if failed else "the command hangs"
    return None


def prepare(targets):
    """Builds the copy as it is. The seconds that the tests of a change may take."""
    shutil.rmtree(BUILD.parent, ignore_errors=True)
    shutil.copytree(ROOT, TREE, ignore=NOT_COPIED)
    status, output = run(["cmake", "-G", "Ninja", "-S", str(TREE), "-B", str(BUILD),
                          "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS=-w -O0",
                          "-DCMAKE_CXX_FLAGS_DEBUG="])
    if status == 0:
        status, output = build(targets)
    if status != 0:
        sys.exit(output + "\nThe tree does not build as it is.")
    begin = time.monotonic()
    failure = first_failure(targets, 600)
    if failure:
        sys.exit(f"The tests fail without any change: {failure}")
    shutil.copytree(BUILD, KEPT)
    return 20 + 5 * (time.monotonic() - begin)


def files_of_build():
    return {path: path.stat().st_mtime_ns for path in BUILD.rglob("*") if path.is_file()}


def restore_build():
    """Puts back what the last change has built, so that only the next change is built again."""
    for path, changed_at in files_of_build().items():
        kept = KEPT / path.relative_to(BUILD)
        if not kept.exists():
            path.unlink()
        elif changed_at != kept.stat().st_mtime_ns:
            shutil.copy2(kept, path)


def try_change(targets, path, offset, token, replacement, seconds):
    """Caught by what, or None if nothing noticed; False if it does not build."""
    target = TREE / path.relative_to(ROOT)
    text = path.read_text()
    target.write_text(text[:offset] + replacement + text[offset + len(token):])
    try:
        status, output = build(targets)
        if status == 0:
            return first_failure(targets, seconds)
        return "the compiler" if "static assertion failed" in output else False
    finally:
        shutil.copy2(path, target)
        restore_build()


def main():
    wanted = int(sys.argv[1]) if len(sys.argv) > 1 else 100
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else 1
    names = sys.argv[3:] or ["src"]
    choose = random.Random(seed)
    by_kind = places(names)
    is_library = all((ROOT / name).is_relative_to(ROOT / "src") for name in names)
    targets = OF_LIBRARY if is_library else OF_FACES
    seconds = prepare(targets)
    survivors, tried, seen = [], 0, set()
    while tried < wanted and len(seen) < sum(map(len, by_kind.values())):
        kind = choose.choices(list(KINDS), weights=WEIGHTS)[0]
        path, offset, token = choose.choice(by_kind[kind])
        replacement = changed(kind, token, choose)
        if (path, offset) in seen:
            continue
        seen.add((path, offset))
        caught = try_change(targets, path, offset, token, replacement, seconds)
        if caught is False:
            continue  # the change does not build
        tried += 1
        line = path.read_text().count("\n", 0, offset) + 1
        what = f"{path.relative_to(ROOT)}:{line}: {token} -> {replacement}"
        print(f"{tried:4} {what}: {caught or 'SURVIVES'}", flush=True)
        if not caught:
            survivors.append((what, path.read_text().splitlines()[line - 1].strip()))
    print(f"\n{tried - len(survivors)} of {tried} changes were noticed (seed {seed}).")
    for what, source in survivors:
        print(f"survives: {what}\n          {source}")


if not all(argument.isdigit() for argument in sys.argv[1:3]) or \
        not all((ROOT / name).exists() for name in sys.argv[3:]):
    sys.exit(__doc__)
main()
