#!/usr/bin/python3
"""Reads what `kelp-bdf check` prints in all forms, and compares: the same findings, the same status.

Usage: read_back.py KELP-BDF SOURCE CORPUS
"""

import json
import re
import sys
import tempfile
import urllib.parse
import xml.etree.ElementTree

import inputs

PROGRAM, SOURCE, CORPUS = sys.argv[1:4]
COMMON = ("file", "line", "column", "severity", "code")


def from_record(record):
    place = record["range"] or {"start": {"line": 1, "column": 1}, "end": {}}
    return {"file": record["file"], "line": place["start"]["line"],
            "column": place["start"]["column"], "severity": record["severity"],
            "code": record["code"], "message": record["message"],
            "end": (place["end"].get("line"), place["end"].get("column")),
            "range": record["range"], "related": record["related"], "fixes": record["fixes"]}


def read_json(text):
    document = json.loads(text)
    findings = [from_record(record) for record in document["findings"]]
    counted = {level: sum(1 for finding in findings if finding["severity"] == level)
               for level in ("error", "warning", "note")}
    for level, number in counted.items():
        assert document["summary"][level + "s"] == number, (level, document["summary"])
    return findings


def read_jsonl(text):
    return [from_record(json.loads(line)) for line in text.splitlines()]


def from_region(region):
    begin = region["byteOffset"]
    return {"start": {"line": region["startLine"], "column": region["startColumn"], "byte": begin},
            "end": {"line": region["endLine"], "column": region["endColumn"],
                    "byte": begin + region["byteLength"]}}


def file_of(location):
    uri = location["artifactLocation"]["uri"]
    relative = location["artifactLocation"].get("uriBaseId") == "%SRCROOT%"
    assert relative != uri.startswith("file:///"), uri
    return urllib.parse.unquote(uri if relative else uri[len("file://"):])


def from_result(result):
    place = result["locations"][0]["physicalLocation"]
    region = from_region(place["region"]) if "region" in place else None
    start = region["start"] if region else {"line": 1, "column": 1}
    end = region["end"] if region else {}
    fixes = [{"title": fix["description"]["text"],
              "edits": [{"range": from_region(edit["deletedRegion"]),
                         "text": edit["insertedContent"]["text"]}
                        for change in fix["artifactChanges"] for edit in change["replacements"]]}
             for fix in result.get("fixes", [])]
    related = [{"message": other["message"]["text"],
                "range": from_region(other["physicalLocation"]["region"])}
               for other in result.get("relatedLocations", [])]
    return {"file": file_of(place), "line": start["line"], "column": start["column"],
            "severity": result["level"], "code": result["ruleId"],
            "message": result["message"]["text"], "end": (end.get("line"), end.get("column")),
            "range": region, "related": related, "fixes": fixes}


def read_sarif(text):
    document = json.loads(text)
    assert document["version"] == "2.1.0" and len(document["runs"]) == 1
    run = document["runs"][0]
    rules = {rule["id"] for rule in run["tool"]["driver"]["rules"]}
    assert rules == {result["ruleId"] for result in run["results"]}, "rules and results differ"
    prints = [(result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"],
               *result["partialFingerprints"].values()) for result in run["results"]]
    assert len(prints) == len(set(prints)), "two results have one fingerprint"
    return [from_result(result) for result in run["results"]]


def unescaped(text):
    return re.sub("%([0-9A-F]{2})", lambda found: chr(int(found[1], 16)), text)


def read_github(text):
    findings = []
    for line in text.splitlines():
        found = re.fullmatch(r"::(error|warning|notice) ([^:]*)::(.*)", line)
        assert found, line
        values = {key: unescaped(value)
                  for key, value in (pair.split("=", 1) for pair in found[2].split(","))}
        severity = "note" if found[1] == "notice" else found[1]
        findings.append({"file": values["file"], "line": int(values.get("line", 1)),
                         "column": int(values["col"]) if "col" in values else None,
                         "severity": severity, "code": values["title"],
                         "message": unescaped(found[3])})
        if "endColumn" in values:
            findings[-1]["end"] = (int(values["endLine"]), int(values["endColumn"]))
    return findings


CONCISE = re.compile(r"(.*?):(\d+):(\d+): (error|warning|note): (.*) \[([^\[]*)\]")


def from_line(line):
    found = CONCISE.fullmatch(line)
    assert found, line
    return {"file": found[1], "line": int(found[2]), "column": int(found[3]), "severity": found[4],
            "code": found[6], "message": found[5]}


def read_concise(text):
    return [from_line(line) for line in text.splitlines()]


def read_human(text):
    findings = []
    head = re.compile(r"^(error|warning|note)\[([^\]]*)\]: (.*)\n *--> (.*?)(?::(\d+):(\d+))?$",
                      re.MULTILINE)
    for found in head.finditer(text):
        findings.append({"file": found[4], "line": int(found[5] or 1), "column": int(found[6] or 1),
                         "severity": found[1], "code": found[2], "message": found[3]})
    return findings


def read_junit(text):
    findings = []
    for suite in xml.etree.ElementTree.fromstring(text).iter("testsuite"):
        cases = suite.findall("testcase")
        failures = suite.findall("testcase/failure")
        errors = suite.findall("testcase/error")
        assert [int(suite.get(name)) for name in ("tests", "failures", "errors")] == \
            [len(cases), len(failures), len(errors)], suite.attrib
        for case in cases:
            failure, passed = case.find("failure"), case.find("system-out")
            if failure is None and passed is None:
                continue
            finding = from_line((passed if failure is None else failure).text)
            finding["fails"] = failure is not None
            assert finding["file"] == case.get("file") == suite.get("name")
            assert finding["line"] == int(case.get("line"))
            findings.append(finding)
    return findings


READERS = {"json": read_json, "jsonl": read_jsonl, "sarif": read_sarif, "github": read_github,
           "concise": read_concise, "human": read_human, "junit": read_junit}


def shown(text):
    """Whether a text is shown in every form as it is: no control characters, and not very long."""
    return len(text) < 100 and all(byte.isprintable() and byte != "\ufffd" for byte in text)


def compare(form, known, found):
    assert len(known) == len(found), f"{form}: {len(found)} findings, not {len(known)}"
    for left, right in zip(known, found):
        for name in COMMON:
            is_told = right[name] is not None and (name != "file" or shown(left[name]))
            assert not is_told or left[name] == right[name], (form, name, left, right)
        if form in ("jsonl", "sarif") or shown(left["message"]):
            assert left["message"] == right["message"], (form, left, right)
        assert "end" not in right or left["end"] == right["end"], (form, left, right)
    if form in ("jsonl", "sarif"):
        compare_parts(form, known, found)


def compare_parts(form, known, found):
    for left, right in zip(known, found):
        assert left["range"] == right["range"] and left["related"] == right["related"], (form, left)
        edits = [[fix["title"], fix["edits"]] for fix in left["fixes"]]
        assert edits == [[fix["title"], fix["edits"]] for fix in right["fixes"]], (form, left)


def check(folder, names, *options):
    known, status = None, None
    for form, read in READERS.items():
        got, text = inputs.run(PROGRAM, folder, "check", "--format", form, *options, "--", *names)
        found = read(text.decode())
        known, status = found if known is None else known, got if status is None else status
        assert got == status, f"{form}: status {got}, not {status}"
        compare(form, known, found)
        if form == "junit":
            strict = "--strict" in options
            for finding in found:
                fails = finding["severity"] == "error" or \
                    (strict and finding["severity"] == "warning")
                assert finding["fails"] == fails, finding
    return status, known


def main():
    with tempfile.TemporaryDirectory() as folder:
        names = inputs.write(folder)
        status, findings = check(folder, names)
        assert status == 1 and len(findings) > len(names), (status, len(findings))
        assert {finding["file"] for finding in findings} == set(names) - {"good.inp"}
        assert check(folder, ["good.inp"]) == (0, [])
        assert check(folder, ["good.inp"], "--strict") == (0, [])
        assert check(folder, ["alike.inp"])[0] == 0
        assert check(folder, ["alike.inp"], "--strict")[0] == 1
        assert check(folder, ["missing.inp", *names, "missing too.inp"])[0] == 2
        assert len(check(folder, names, "--allow=bdf.*")[1]) < len(findings)
        _, more = check(folder, inputs.published(SOURCE, CORPUS))
        print(f"{len(findings)} and {len(more)} findings are the same in {len(READERS)} forms")


main()
