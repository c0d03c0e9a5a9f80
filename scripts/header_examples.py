#!/usr/bin/env python3
"""Makes one program of all examples in a public header, so that they cannot rot.

    header_examples.py include/rosetag/rosetag.h examples.c

An example is the indented block after a line that begins with "Example", or the first one of the
comment that describes the file. What it states becomes a check:

    epc_hexToEpcUri("30", sizeof uri, uri);              the call gives EPC_OK
    epc_hexToEpcUri("3", 0, uri); // gives EPC_ERR_...   the call gives this status
    // uri is "urn:epc:id:"                              a text that is equal
    // count is 2                                        any other value that is equal

The program prints what does not hold and ends with status 1. A function of the library needs an
example, unless its comment begins with "Like" and names one that has. So does a function of the
toolkit whose result has JSON.
"""
import itertools
import os
import re
import sys

# The checks of a program in C, and in C++.
C_CHECKS = {
    "Status": """\
static void checkStatus(int line, EpcStatus expected, EpcStatus actual) {
    ++checks;
    if (actual != expected) {
        ++failures;
        printf("line %d: gives %s, not %s\\n", line, epc_statusName(actual),
               epc_statusName(expected));
    }
}
""",
    "Text": """\
static void checkText(int line, const char* expected, const char* actual) {
    ++checks;
    if (strcmp(actual, expected) != 0) {
        ++failures;
        printf("line %d: is \\"%s\\", not \\"%s\\"\\n", line, actual, expected);
    }
}
""",
    "Value": """\
static void checkValue(int line, long long expected, long long actual) {
    ++checks;
    if (actual != expected) {
        ++failures;
        printf("line %d: is %lld, not %lld\\n", line, actual, expected);
    }
}
""",
}
CPP_CHECKS = {
    "Text": """\
static void checkText(int line, std::string_view expected, std::string_view actual) {
    ++checks;
    if (actual != expected) {
        ++failures;
        std::cout << "line " << line << ": is \\"" << actual << "\\", not \\"" << expected << "\\"\\n";
    }
}
""",
    "Value": """\
template <typename Expected, typename Actual>
static void checkValue(int line, Expected expected, Actual actual) {
    ++checks;
    if (actual != static_cast<Actual>(expected)) {
        ++failures;
        std::cout << "line " << line << ": is " << static_cast<long long>(actual) << ", not "
                  << static_cast<long long>(expected) << "\\n";
    }
}
""",
}

# What the example of columns.h takes for granted: a column of two texts.
COLUMN_OF_TEXTS = """\
static const char valuesText[] = "3074257BF7194E4000001A85" "30";
static const int32_t valuesOffsets[] = {0, 24, 26};
static const void* valuesBuffers[] = {NULL, valuesOffsets, valuesText};
static struct ArrowSchema valuesType = {"u", "", NULL, 2, 0, NULL, NULL, NULL, NULL};
static struct ArrowArray values = {2, 0, 0, 3, 0, valuesBuffers, NULL, NULL, NULL, NULL};
"""

COMMENT = re.compile(r"^/\*\*\n(?P<body>(?: \*.*\n)*?) \*/\n(?P<declaration>[^;{]*)", re.MULTILINE)
FUNCTION = re.compile(r"\b(\w+)\(")
EXPORT = re.compile(r"^(?:ROSETAG_EXPORT|static inline) .*?\b((?:epc|tid)_\w+)\(", re.MULTILINE)
LIKE = re.compile(r" \* Like ((?:epc|tid)_\w+),")
CALL = re.compile(r"(?P<call>(?:epc|tid)_\w+\(.*\));(?:\s*// gives (?P<status>\w+))?", re.DOTALL)
CLAIM = re.compile(r"// (?P<expression>.+?) is (?P<value>.+)")
CHECK = re.compile(r"\bcheck(Status|Text|Value)\(")
TRAILING_COMMENT = re.compile(r"\s*//[^\"]*$")


def check(kind, line, expected, actual):
    return f"    check{kind}({line}, {expected}, {actual});"


def translate_statement(line, statement):
    """One statement or claim of an example as code; line is that of the header."""
    if call := CALL.fullmatch(statement):
        return check("Status", line, call["status"] or "EPC_OK", call["call"])
    if claim := CLAIM.fullmatch(statement):
        kind = "Text" if claim["value"].startswith('"') else "Value"
        return check(kind, line, claim["value"], claim["expression"])
    if statement.startswith("//"):
        sys.exit(f"line {line}: a comment that states nothing: {statement}")
    return f"    {statement}"


def translate_example(number, first_line, lines):
    code = []
    statement = ""
    for line, text in enumerate(lines, first_line):
        statement = f"{statement}\n{text}" if statement else text
        if statement.startswith("//") or TRAILING_COMMENT.sub("", text).endswith(";"):
            code.append(translate_statement(line, statement))
            statement = ""
    if statement or not any(CHECK.search(line) for line in code):
        sys.exit(f"line {first_line}: an example without an end or without a check")
    return "\n".join([f"static void example{number}(void) {{", *code, "}\n"])


def example_of(body, first_line):
    """The first line of the example in a comment, and its lines; nothing if there is none."""
    lines = [line[3:] for line in body.splitlines()]
    if "@file" in lines[0]:
        head = next((i - 2 for i, line in enumerate(lines) if line.startswith("    ")), None)
    else:
        head = next((i for i, line in enumerate(lines) if line.startswith("Example")), None)
    if head is None:
        return None
    block = itertools.takewhile(lambda line: line.startswith("    "), lines[head + 2:])
    return first_line + head + 3, [line[4:] for line in block]


def examples_of_library(text):
    """The examples by function. Every function has one, or is like one that has."""
    examples = {}
    likes = {}
    for comment in COMMENT.finditer(text):
        function = FUNCTION.search(comment["declaration"])
        if function is None or "@file" in comment["body"]:
            continue
        line = text.count("\n", 0, comment.start()) + 1
        if example := example_of(comment["body"], line):
            examples[function[1]] = example
        else:
            like = LIKE.match(comment["body"])
            likes[function[1]] = like[1] if like else None
    for function in EXPORT.findall(text):
        if function not in examples and likes.get(function) not in examples:
            sys.exit(f"{function} has no example and is like no function that has one")
    return list(examples.values())


def examples_of_toolkit(text):
    """All examples. The file has one, and every function whose result has JSON."""
    examples = []
    for comment in COMMENT.finditer(text):
        line = text.count("\n", 0, comment.start()) + 1
        example = example_of(comment["body"], line)
        if example is not None:
            examples.append(example)
        elif "@file" in comment["body"] or " * JSON:" in comment["body"]:
            sys.exit(f"line {line}: there is no example")
    return examples


def program_of(header, is_cpp, examples):
    code = [translate_example(*example) for example in
            ((i, *example) for i, example in enumerate(examples))]
    kinds = set(CHECK.findall("\n".join(code)))
    checks = [text for kind, text in (CPP_CHECKS if is_cpp else C_CHECKS).items() if kind in kinds]
    includes = "#include <iostream>\n" if is_cpp else "#include <stdio.h>\n#include <string.h>\n"
    summary = (f'    std::cout << "\\n{len(examples)} examples, " << checks << " checks, " << '
               'failures << " failures\\n";' if is_cpp else
               f'    printf("{len(examples)} examples, %d checks, %d failures\\n", '
               "checks, failures);")
    return "\n".join([
        f'#include "rosetag/{os.path.basename(header)}"\n', includes,
        "static int failures;\nstatic int checks;\n", *checks,
        *([COLUMN_OF_TEXTS] if header.endswith("columns.h") else []), *code,
        "int main(void) {", *(f"    example{i}();" for i in range(len(examples))), summary,
        "    return failures != 0;", "}\n"])


def main(header, program):
    with open(header, encoding="ascii") as file:
        text = file.read()
    is_library = header.endswith("rosetag.h")
    examples = examples_of_library(text) if is_library else examples_of_toolkit(text)
    with open(program, "w", encoding="ascii") as file:
        file.write(program_of(header, header.endswith(".hpp"), examples))


if __name__ == "__main__":
    main(*sys.argv[1:])
