"""Holds the JSON Schema of the command's output against what the command writes: each object is as
its command's definition says, and each key and word of the schema is written by some command here.

usage: check_schema.py ROSETAG SCHEMA CHECK_WRONG_TSV
"""
import json
import os
import subprocess
import sys
import tempfile
import unittest

import jsonschema

ROSETAG, SCHEMA, WRONG = map(os.path.abspath, sys.argv[1:4])
EPC = "3074257BF7194E4000001A85"
TID = "E28011303C00123456789ABC1C6304061908041E0D1000040020"
PREFIXES = ('<GCPPrefixFormatList date="2026-01-01T00:00:00"><entry prefix="020" gcpLength="0"/>'
            '</GCPPrefixFormatList>')
DESIGNERS = json.dumps({"version": "1", "registeredMaskDesigners": [
    {"mdid": "000000011", "manufacturer": "Example Chips",
     "chips": [{"tmnBinary": "010000010010", "modelName": "X1"}]}]})

# The definition, the arguments, and lines of input where there are no values.
RUNS = [
    ("decode", ["decode", EPC, f"3000{EPC}", f"{EPC}01", f"{EPC}0000", EPC[:-1], "42", "", " 42",
                "urn:epc:tag:sgtin-96:3.0614141.812345.6789",
                "urn:epc:id:sgtin:0614141.812345.6789",
                "https://a.b/414/9521321000001/gtin/9506000134352/lot/A?x=1",
                "/01/09506000134352?3301=1;15=1", "]C110A^21B", "9506000134352", "E2003412",
                "FA90614141E23ABC21625D83103000BD17305D00", "3002300000000000000000000000"], ""),
    ("decode", ["decode", "--strict", "(01)9506000134352(17)251301"], ""),
    ("decode", ["decode", "--gcp-list", "prefixes.xml", "(01)00200000000004(21)1"], ""),
    ("decode", ["decode"], f"{EPC}\n\n42\n(10)A\n"),
    ("encode", ["encode", "--scheme", "sgtin-96", "--gcp-length", "7",
                " (01)80614141123458(21)6789(17)251301", "(01)80614141123458(21)A", "(", EPC], ""),
    ("encode", ["encode", "--scheme", "sgtin-96", "--gcp-length", "7"], "(01)80614141123458(21)6\n"),
    ("explain", ["explain", EPC, f"3000{EPC}", "E2003412", "30FF", "(10)A", "hello",
                 "FA90614141E23ABC21625D83103000BD17305D00"], ""),
    ("check", ["check", "--gcp-list", "prefixes.xml", "(01)00200000000004", EPC], ""),
    ("ai", ["ai", "encode", "21", "ABCG", " A ", "A$B"], ""),
    ("ai", ["ai", "encode", "99999", "1"], ""),
    ("ai", ["ai", "decode", "2164001086", "1421", "6G"], ""),
    ("ai", ["ai", "encode", "21"], "A\n"),
    ("tid", ["tid", TID, " E2003412", "30", ""], ""),
    ("tid", ["tid", "--designer-list", "designers.json", "E2003412"], ""),
    ("explain", ["explain"], "42\n"),
    ("tid", ["tid"], "E2003412\n"),
    ("check", ["check", f" {EPC}"], ""),
    ("schemes", ["schemes"], ""),
]


def wrong_texts():
    """The lines of texts, and of those that are barcode strings, that between them break each rule."""
    with open(WRONG, encoding="utf-8", newline="\n") as file:
        texts = [row.split("\t")[0] for row in file.read().split("\n")
                 if row and not row.startswith("#")]
    return ("\n".join(text for text in texts if not text.startswith("!")) + "\n",
            "\n".join(text[1:] for text in texts if text.startswith("!")) + "\n")


def run(arguments, lines, folder):
    """The objects that a command writes."""
    result = subprocess.run([ROSETAG, *arguments, "--json"], input=lines, cwd=folder,
                            capture_output=True, text=True, check=False, timeout=60)
    return [json.loads(line) for line in result.stdout.splitlines()]


class Schema(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with open(SCHEMA, encoding="utf-8") as file:
            cls.schema = json.load(file)
        jsonschema.Draft202012Validator.check_schema(cls.schema)
        cls.validator = jsonschema.Draft202012Validator(cls.schema)

    def part(self, schema):
        return self.validator.evolve(schema=schema)

    def resolve(self, reference):
        self.assertTrue(reference.startswith("#/$defs/"), reference)
        return reference.split("/")[2]

    def words_of(self, schema, place):
        """The places of all keys and words that a schema allows, but for what it refers to."""
        for key, member in schema.get("properties", {}).items():
            yield f"{place}.{key}"
            yield from self.words_of(member, f"{place}.{key}")
        for word in schema.get("enum", []):
            yield f"{place}={word}"
        for inner in ("then", "else", "items"):
            if inner in schema:
                yield from self.words_of(schema[inner], place)

    def seen_in(self, schema, place, instance):
        """Those of them that an instance has."""
        if "$ref" in schema:
            name = self.resolve(schema["$ref"])
            yield from self.seen_in(self.schema["$defs"][name], name, instance)
        if "if" in schema:
            branch = "then" if self.part(schema["if"]).is_valid(instance) else "else"
            yield from self.seen_in(schema.get(branch, {}), place, instance)
        if "enum" in schema:
            yield f"{place}={instance}"
        for key, member in schema.get("properties", {}).items():
            if key in instance:
                yield f"{place}.{key}"
                yield from self.seen_in(member, f"{place}.{key}", instance[key])
        if "items" in schema:
            for item in instance:
                yield from self.seen_in(schema["items"], place, item)

    def test_output_and_schema_agree(self):
        texts, barcodes = wrong_texts()
        runs = RUNS + [("check", ["check"], texts), ("check", ["check", "--barcode"], barcodes)]
        seen = set()
        with tempfile.TemporaryDirectory() as folder:
            for name, text in (("prefixes.xml", PREFIXES), ("designers.json", DESIGNERS)):
                with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
                    file.write(text)
            for definition, arguments, lines in runs:
                outputs = run(arguments, lines, folder)
                self.assertTrue(outputs, arguments)
                for output in outputs:
                    with self.subTest(arguments=arguments[:2], output=output):
                        self.part(self.schema["$defs"][definition]).validate(output)
                        self.assertTrue(self.validator.is_valid(output))
                    seen.update(self.seen_in(self.schema["$defs"][definition], definition, output))
        allowed = {word for name, schema in self.schema["$defs"].items()
                   for word in self.words_of(schema, name)}
        self.assertEqual(sorted(allowed - seen), [])

    # A key that the schema does not know is noticed.
    def test_schema_is_closed(self):
        with tempfile.TemporaryDirectory() as folder:
            for definition, arguments, lines in RUNS[:1] + RUNS[6:]:
                if "prefixes.xml" in arguments or "designers.json" in arguments:
                    continue
                for output in run(arguments, lines, folder):
                    with self.subTest(output=output):
                        self.assertFalse(self.part(self.schema["$defs"][definition]).is_valid(
                            {**output, "extra": 1}))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
