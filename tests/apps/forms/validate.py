#!/usr/bin/python3
"""Holds what `kelp-bdf` prints as JSON against the JSON Schemas that it prints.

Usage: validate.py KELP-BDF SOURCE CORPUS

Readers must pass over members that they do not know, and so does a schema; here each member must be
described. With KELP_SARIF_SCHEMA, the file of the schema that is published for SARIF 2.1.0, what is
printed as SARIF is held against that, too. Skipped (77) without python3-jsonschema.
"""

import json
import os
import sys
import tempfile

import inputs

try:
    import jsonschema
except ImportError:
    print("skipped: no python3-jsonschema")
    sys.exit(77)

PROGRAM, SOURCE, CORPUS = sys.argv[1:4]


def closed(schema):
    """A schema that takes no members but those that it describes."""
    if isinstance(schema, list):
        return [closed(item) for item in schema]
    if not isinstance(schema, dict):
        return schema
    made = {name: closed(value) for name, value in schema.items()}
    if isinstance(schema.get("properties"), dict) and schema.get("type") == "object":
        made["additionalProperties"] = False
    return made


def schema_called(name):
    schema = json.loads(inputs.run(PROGRAM, SOURCE, "schema", name)[1])
    with open(os.path.join(SOURCE, "schemas", "output", f"{name}.schema.json"),
              encoding="utf-8") as file:
        assert json.load(file) == schema, f"{name}: the file and what is printed differ"
    jsonschema.Draft202012Validator.check_schema(schema)
    return jsonschema.Draft202012Validator(closed(schema))


def hold(validator, document, what):
    for error in validator.iter_errors(document):
        raise SystemExit(f"{what}: {list(error.absolute_path)}: {error.message[:500]}")


def must_refuse(validator, document, what):
    assert next(validator.iter_errors(document), None), f"{what} is accepted"


def printed(folder, *arguments):
    return inputs.run(PROGRAM, folder, *arguments)[1].decode()


def validate_findings(folder, names):
    validator = schema_called("findings")
    document = json.loads(printed(folder, "check", "--format=json", "missing.inp", *names))
    assert document["findings"] and document["failures"]
    hold(validator, document, "check --format json")
    records = printed(folder, "check", "--format=jsonl", *names).splitlines()
    for record in map(json.loads, records):
        hold(validator, record, "check --format jsonl")
        must_refuse(validator, {**record, "severity": "grave"}, "another severity")
        must_refuse(validator, {key: value for key, value in record.items() if key != "version"},
                    "a record without its version")
    must_refuse(validator, {**document, "findings": None}, "a document without findings")
    return len(records)


def validate_outlines(folder, names):
    validator = schema_called("outline")
    document = json.loads(printed(folder, "show", "--json", "--lang=en", *names))
    hold(validator, document, "show --json")
    must_refuse(validator, {**document, "version": 0}, "version 0")
    return len(document["inputs"])


def validate_values(folder, names):
    validator = schema_called("values")
    for path in ("scf.charge", "geometry", "easy.charge", "compass.geometry"):
        document = json.loads(printed(folder, "get", "--json", path, *names))
        hold(validator, document, f"get --json {path}")
        assert len(document["inputs"]) == len(names)


def validate_differences(folder, names):
    validator = schema_called("differences")
    count = 0
    for before, after in zip(names, names[1:]):
        document = json.loads(printed(folder, "diff", "--json", "--", before, after))
        hold(validator, document, f"diff --json {before} {after}")
        count += len(document["differences"])
    assert count > len(names), count


def validate_sarif(folder, names):
    file = os.environ.get("KELP_SARIF_SCHEMA")
    if not file:
        print("SARIF is not held against its schema: KELP_SARIF_SCHEMA names none")
        return
    with open(file, encoding="utf-8") as text:
        schema = json.load(text)
    validator = jsonschema.validators.validator_for(schema)(schema)
    for extra in ([], ["missing.inp"]):
        text = printed(folder, "check", "--format=sarif", *extra, *names)
        hold(validator, json.loads(text), "check --format sarif")
    print("SARIF keeps to its schema")


def main():
    with tempfile.TemporaryDirectory() as folder:
        names = inputs.write(folder) + inputs.published(SOURCE, CORPUS)
        records = validate_findings(folder, names)
        shown = validate_outlines(folder, names)
        validate_values(folder, names)
        validate_differences(folder, inputs.write(folder) + inputs.published(SOURCE, ""))
        validate_sarif(folder, names)
        print(f"{records} findings and {shown} inputs keep to their schemas")


main()
