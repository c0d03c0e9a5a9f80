#!/usr/bin/env python3
"""Makes one C program of all examples in the public header, so that they cannot rot.

    header_examples.py include/rosetag/rosetag.h examples.c

An example is the indented block after a line that begins with "Example". Its lines are C. What
they state becomes a check:

    epc_hexToEpcUri("30", sizeof uri, uri);              the call gives EPC_OK
    epc_hexToEpcUri("3", 0, uri); // gives EPC_ERR_...   the call gives this status
    // uri is "urn:epc:id:"                              a text that is equal
    // count is 2                                        a number that is equal

The program prints what does not hold and ends with status 1. Every function of the header needs an
example, unless its comment begins with "Like" and names one that has.
"""
import itertools
import re
import sys

PROGRAM_HEAD = """\
#include "rosetag/rosetag.h"

#include <stdio.h>
#include <string.h>

static int failures;
static int checks;

static void checkStatus(int line, EpcStatus expected, EpcStatus actual) {
    ++checks;
    if (actual != expected) {
        ++failures;
        printf("rosetag.h:%d: gives %s, not %s\\n", line, epc_statusName(actual),
               epc_statusName(expected));
    }
}

static void checkText(int line, const char* expected, const char* actual) {
    ++checks;
    if (strcmp(actual, expected) != 0) {
        ++failures;
        printf("rosetag.h:%d: is \\"%s\\", not \\"%s\\"\\n", line, actual, expected);
    }
}

static void checkNumber(int line, long long expected, long long actual) {
    ++checks;
    if (actual != expected) {
        ++failures;
        printf("rosetag.h:%d: is %lld, not %lld\\n", line, actual, expected);
    }
}
"""

COMMENT = re.compile(r"^/\*\*\n(?P<body>(?: \*.*\n)*?) \*/\n(?P<declaration>[^;{]*)", re.MULTILINE)
FUNCTION = re.compile(r"\b((?:epc|tid)_\w+)\(")
EXPORT = re.compile(r"^(?:ROSETAG_EXPORT|static inline) .*?\b((?:epc|tid)_\w+)\(", re.MULTILINE)
LIKE = re.compile(r" \* Like ((?:epc|tid)_\w+),")
CALL = re.compile(r"(?P<call>(?:epc|tid)_\w+\(.*\));(?:\s*// gives (?P<status>\w+))?", re.DOTALL)
CLAIM = re.compile(r"// (?P<expression>.+?) is (?P<value>.+)")
TRAILING_COMMENT = re.compile(r"\s*//[^\"]*$")


def check(kind, line, expected, actual):
    return f"    check{kind}({line}, {expected}, {actual});"


def translate_statement(line, statement):
    """One statement or claim of an example as C; line is that of the header."""
    if call := CALL.fullmatch(statement):
        return check("Status", line, call["status"] or "EPC_OK", call["call"])
    if claim := CLAIM.fullmatch(statement):
        kind = "Text" if claim["value"].startswith('"') else "Number"
        return check(kind, line, claim["value"], claim["expression"])
    if statement.startswith("//"):
        sys.exit(f"rosetag.h:{line}: a comment that states nothing: {statement}")
    return f"    {statement}"


def translate_example(function, first_line, lines):
    code = []
    statement = ""
    for line, text in enumerate(lines, first_line):
        statement = f"{statement}\n{text}" if statement else text
        if statement.startswith("//") or TRAILING_COMMENT.sub("", text).endswith(";"):
            code.append(translate_statement(line, statement))
            statement = ""
    if statement or not any("check" in line for line in code):
        sys.exit(f"rosetag.h:{first_line}: an example without an end or without a check")
    return "\n".join([f"static void {function}_example(void) {{", *code, "}\n"])


def example_of(body, first_line):
    """The first line of the example in a comment, and its lines; nothing if there is none."""
    lines = [line[3:] for line in body.splitlines()]
    head = next((i for i, line in enumerate(lines) if line.startswith("Example")), None)
    if head is None:
        return None
    block = itertools.takewhile(lambda line: line.startswith("    "), lines[head + 2:])
    return first_line + head + 3, [line[4:] for line in block]


def read_header(text):
    """The examples by function, and by the functions without one those that they are like."""
    examples = {}
    likes = {}
    for comment in COMMENT.finditer(text):
        function = FUNCTION.search(comment["declaration"])
        if function is None:
            continue
        line = text.count("\n", 0, comment.start()) + 1
        if example := example_of(comment["body"], line):
            examples[function[1]] = example
        else:
            like = LIKE.match(comment["body"])
            likes[function[1]] = like[1] if like else None
    return examples, likes


def main(header, program):
    with open(header, encoding="ascii") as file:
        text = file.read()
    examples, likes = read_header(text)
    for function in EXPORT.findall(text):
        if function not in examples and likes.get(function) not in examples:
            sys.exit(f"{function} has no example and is like no function that has one")
    code = [translate_example(function, *example) for function, example in examples.items()]
    calls = [f"    {function}_example();" for function in examples]
    summary = (f'    printf("{len(examples)} examples, %d checks, %d failures\\n",'
               " checks, failures);")
    with open(program, "w", encoding="ascii") as file:
        file.write("\n".join([PROGRAM_HEAD, *code, "int main(void) {", *calls, summary,
                              "    return failures != 0;", "}\n"]))


if __name__ == "__main__":
    main(*sys.argv[1:])
