#!/usr/bin/python3
"""Tries the schema of docs/schema.md and the input beside it, and holds the page's tables against the
keys that `kelp-bdf schema lint` knows.

Usage: schema_page.py KELP-BDF SOURCE CORPUS
"""

import json
import pathlib
import re
import sys
import tempfile

import inputs

PROGRAM, SOURCE = sys.argv[1:3]
PAGE = pathlib.Path(SOURCE, "docs", "schema.md").read_text(encoding="utf-8")


def block(language):
    return re.search(rf"^```{language}\n(.*?)^```$", PAGE, re.MULTILINE | re.DOTALL)[1]


def findings(folder, *arguments):
    return json.loads(inputs.run(PROGRAM, folder, *arguments, "--format=json")[1])["findings"]


def words_of_schemas():
    text = pathlib.Path(SOURCE, "src/schema/document_keys.hpp").read_text(encoding="utf-8")
    lists = re.findall(r"array<std::string_view, \d+> \w+_(?:keys|names)\s*=\s*\{(.*?)\};", text,
                       re.DOTALL)
    kinds = re.findall(r'\{"(\w+)", EntryValueKind::', text)
    return {word for found in lists for word in re.findall(r'"(\w+)"', found)} | set(kinds)


def main():
    with tempfile.TemporaryDirectory() as folder:
        pathlib.Path(folder, "my.yaml").write_text(block("yaml"), encoding="utf-8")
        pathlib.Path(folder, "my.inp").write_text(block("text"), encoding="utf-8")
        assert findings(folder, "schema", "lint", "--strict", "my.yaml") == []
        found = findings(folder, "check", "--schema", "my.yaml", "my.inp")
        assert [one for one in found if one["severity"] == "error"] == [], found
        assert [one for one in found if one["code"].startswith("bdf.")] == [], found
        wrong = block("text").replace("3.5", "0").replace("1 0.5", "x 0.5").replace("rhf", "uhf")
        pathlib.Path(folder, "my.inp").write_text(wrong, encoding="utf-8")
        found = findings(folder, "check", "--schema", "my.yaml", "--allow=sequence.*", "my.inp")
        assert {one["path"] for one in found if one["code"].startswith("bdf.")} == {
            "scf.level", "waves.points", "waves.box.side"}, found
    told = set(re.findall(r"`(\w+)[`:]", PAGE)) | set(re.findall(r"{(\w+): NAME, (\w+): VALUE}", PAGE)[0])
    types = {"integer_array", "float_array", "number_array", "string_array"}
    missing = words_of_schemas() - told - types - {"prefixes"}
    assert not missing, f"the page does not name {sorted(missing)}"


main()
