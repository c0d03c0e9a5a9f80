"""Runs the command lines of files of cases and compares what they write, byte for byte, with what
stands there.

A case is a line that begins with "$ " and is given to the shell, then the lines that it writes to
standard output, those that it writes to standard error with "! " in front, and "? N" for an exit
status other than 0. Empty lines at the end of a case do not count: an empty line of output there is
written as a lone \\n. An output without an end of its last line has \\c there. Lines that begin
with "#" between cases are comments.

usage: run_cases.py [--update] ROSETAG FILE...

--update writes what the command does now into the cases that differ, for a look at the changes.
"""
import os
import subprocess
import sys
import tempfile


def read_cases(path):
    with open(path, encoding="utf-8") as file:
        lines = enumerate(file.read().split("\n"), 1)
    cases = []
    case = None
    for number, line in lines:
        if line.startswith("$ "):
            case = {"place": f"{path}:{number}", "command": line[2:], "out": [], "err": [],
                    "status": 0}
            cases.append(case)
        elif line.startswith("#"):
            case = None
        elif case is not None and line.startswith("! "):
            case["err"].append(line[2:])
        elif case is not None and line.startswith("? "):
            case["status"] = int(line[2:])
        elif case is not None:
            case["out"].append(line)
    return cases


def joined(lines):
    while lines and lines[-1] == "":
        lines = lines[:-1]
    text = "".join(("" if line == "\\n" else line) + "\n" for line in lines)
    return text.removesuffix("\\c\n").encode()


def execute(case, rosetag, folder):
    environment = dict(os.environ, LC_ALL="C",
                       PATH=os.path.dirname(rosetag) + os.pathsep + os.environ["PATH"])
    result = subprocess.run(["bash", "-c", case["command"]], cwd=folder, env=environment,
                            stdin=subprocess.DEVNULL, capture_output=True, timeout=60, check=False)
    return {"standard output": result.stdout, "standard error": result.stderr,
            "exit status": result.returncode}


def run(case, rosetag, folder):
    expected = {"standard output": joined(case["out"]), "standard error": joined(case["err"]),
                "exit status": case["status"]}
    actual = execute(case, rosetag, folder)
    if expected != actual:
        case["actual"] = actual
    return [f"{case['place']}: $ {case['command']}\n  {name}\n--- expected\n{shown(expected[name])}\n"
            f"--- actual\n{shown(actual[name])}\n"
            for name in expected if expected[name] != actual[name]]


def written(output):
    """The lines of a case that stand for an output: joined() backwards."""
    text = output.decode()
    if not text:
        return []
    lines = (text + "\\c\n" if not text.endswith("\n") else text).split("\n")[:-1]
    end = len(lines)
    while end > 0 and lines[end - 1] == "":
        end -= 1
    return lines[:end] + ["\\n"] * (len(lines) - end)


def update(path, cases):
    with open(path, encoding="utf-8") as file:
        lines = file.read().split("\n")
    for case in reversed([case for case in cases if "actual" in case]):
        actual = case["actual"]
        begin = int(case["place"].rpartition(":")[2])
        end = begin
        while end < len(lines) and not lines[end].startswith(("$ ", "#")):
            end += 1
        status = actual["exit status"]
        lines[begin:end] = (written(actual["standard output"])
                            + ["! " + line for line in written(actual["standard error"])]
                            + [f"? {status}"] * (status != 0) + [""])
    with open(path, "w", encoding="utf-8") as file:
        file.write("\n".join(lines).rstrip("\n") + "\n")


def shown(what):
    return what.decode("utf-8", "backslashreplace") if isinstance(what, bytes) else what


def main():
    arguments = sys.argv[1:]
    updates = arguments[0] == "--update"
    rosetag, *paths = arguments[updates:]
    failures = []
    count = 0
    for path in paths:
        in_file = 0
        cases = read_cases(path)
        with tempfile.TemporaryDirectory() as folder:
            for case in cases:
                failures += run(case, os.path.abspath(rosetag), folder)
                in_file += 1
        if updates:
            update(path, cases)
        if in_file == 0:
            failures.append(f"{path} holds no case")
        count += in_file
    print("\n".join(failures))
    print(f"{count} cases, {len(failures)} differences")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
