"""Runs every example that the help of the command shows, and holds the man page and the completions
that the build wrote against its options.

usage: check_help.py ROSETAG PAGES_DIR
"""
import os
import re
import shutil
import subprocess
import sys
import unittest

ROSETAG, PAGES = os.path.abspath(sys.argv[1]), sys.argv[2]
COMMANDS = ["", "decode", "encode", "explain", "check", "ai", "ai encode", "ai decode", "tid", "schemes"]
ENVIRONMENT = dict(os.environ, PATH=os.path.dirname(ROSETAG) + os.pathsep + os.environ["PATH"])


def run(command):
    return subprocess.run(["bash", "-c", command], env=ENVIRONMENT, stdin=subprocess.DEVNULL,
                          capture_output=True, text=True, timeout=60, check=False)


def help_of(command):
    return run(f"rosetag {command} --help").stdout


class Help(unittest.TestCase):
    def test_examples_work(self):
        count = 0
        for command in COMMANDS:
            examples = re.findall(r"^  ((?:rosetag|echo|printf) .*)$", help_of(command), re.M)
            for example in examples:
                with self.subTest(example=example):
                    result = run(example)
                    self.assertEqual(result.returncode, 0, result.stderr)
                    self.assertNotEqual(result.stdout, "")
                count += 1
        self.assertGreater(count, 20)

    def test_options_are_told_everywhere(self):
        files = ["rosetag.1", "rosetag", "_rosetag", "rosetag.fish"]
        for name in files:
            with open(os.path.join(PAGES, name), encoding="utf-8") as file:
                text = file.read().replace("\\-", "-")
            for command in COMMANDS:
                for option in re.findall(r"^  (?:-\w,)?--([a-z-]+)", help_of(command), re.M):
                    with self.subTest(file=name, command=command, option=option):
                        told = re.search(rf"(?:--|-l ){option}(?![\w-])", text)
                        self.assertIsNotNone(told)

    # The help names the type of a value after its option.
    def test_options_take_a_value_or_none_everywhere(self):
        marks = {"rosetag.1": r"^\.BI .*--{}\" \"", "_rosetag": r"'--{}\[[^'\n]*\]:",
                 "rosetag.fish": r" -l {} -[rx] "}
        options = {}
        for command in COMMANDS:
            for option, value in re.findall(r"^  (?:-\w,)?--([a-z-]+)( [A-Z]\S*)?",
                                            help_of(command), re.M):
                options[option] = bool(value)
        self.assertGreater(len(options), 20)
        for name, mark in marks.items():
            with open(os.path.join(PAGES, name), encoding="utf-8") as file:
                text = file.read().replace("\\-", "-")
            for option, takes_value in options.items():
                with self.subTest(file=name, option=option):
                    told = re.search(mark.format(re.escape(option)), text, re.M)
                    self.assertEqual(told is not None, takes_value)

    # A completion offers a command's own options and nothing else.
    def test_bash_completes(self):
        script = os.path.join(PAGES, "rosetag")
        for words, offered in [("rosetag e", "encode explain"), ("rosetag ai ", "encode decode --help"),
                               ("rosetag decode --un", "--unbuffered"),
                               ("rosetag decode --json --un", "--unbuffered"),
                               ("rosetag encode --encoding hex-", "hex-upper hex-lower"),
                               ("rosetag encode --scheme dsg", "dsgtin+"),
                               ("rosetag tid --js", "--json"), ("rosetag schemes --col", ""),
                               ("rosetag decode --fields hex,b", "hex,binary hex,bits "
                                                                 "hex,barcode_string")]:
            with self.subTest(words=words):
                result = run(f"source {script}; COMP_LINE='{words}'; COMP_WORDBREAKS=' '; "
                             f"read -ra COMP_WORDS <<< \"$COMP_LINE\"; "
                             f"[[ $COMP_LINE = *' ' ]] && COMP_WORDS+=(''); "
                             f"COMP_CWORD=$((${{#COMP_WORDS[@]}} - 1)); _rosetag; "
                             f"echo \"${{COMPREPLY[@]}}\"")
                self.assertEqual(set(result.stdout.split()), set(offered.split()), result.stderr)

    def test_shells_read_their_completions(self):
        for shell, name in [("bash", "rosetag"), ("zsh", "_rosetag"), ("fish", "rosetag.fish")]:
            if shutil.which(shell):
                with self.subTest(shell=shell):
                    result = run(f"{shell} -n {PAGES}/{name}")
                    self.assertEqual((result.stderr, result.returncode), ("", 0))

    @unittest.skipUnless(shutil.which("groff"), "needs groff")
    def test_man_page_is_sound(self):
        result = run(f"groff -man -Tutf8 -ww -z {PAGES}/rosetag.1")
        self.assertEqual((result.stderr, result.returncode), ("", 0))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
