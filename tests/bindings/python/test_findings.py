"""What is wrong with inputs, and what they compute."""

import pathlib
import subprocess
import os

import pytest

import kelp_bdf
from conftest import EXAMPLES


def test_findings_are_those_of_the_command():
    command = os.environ.get("KELP_BDF_COMMAND")
    if not command:
        pytest.skip("there is no command")
    for path in sorted(EXAMPLES.glob("*.inp")):
        told = subprocess.run([command, "check", "--format", "concise", path], check=False,
                              capture_output=True, text=True).stdout.splitlines()
        assert [str(finding) for finding in kelp_bdf.read(path).check()] == told


def test_findings_tell_all():
    finding = kelp_bdf.parse("$scf\ncharge\n 1\ncharge\n 2\n$end\n").check()[0]
    assert (finding.code, finding.severity, finding.line, finding.column) == (
        "bdf.duplicate_entry", "warning", 4, 1) or finding.is_error
    assert finding.related[0].line == 2
    assert finding.path == "scf.charge"
    with pytest.raises(AttributeError):
        finding.code = "other"
    assert hash(finding) == hash(finding)


def test_options_count():
    given = kelp_bdf.read(EXAMPLES / "faulty.inp")
    assert {f.severity for f in given.check(deny="*")} == {"error"}
    assert given.check(allow=["*"]) == []
    assert [f.code for f in given.check(allow="*", warn="bdf.unknown_entry")] == [
        "bdf.unknown_entry"]
    assert "bdf.unknown_entry" not in [f.code for f in given.check(unknown="ignore")]
    with pytest.raises(ValueError):
        given.check(unknown="perhaps")


def test_fixes_are_applied():
    given = kelp_bdf.parse("# ä\n$scf\ncharge\n 0\n$edn\n")
    fix = [fix for finding in given.check() for fix in finding.fixes][0]
    assert fix.is_safe
    given.apply(fix)
    assert given.text == "# ä\n$scf\ncharge\n 0\n$end\n"


def test_files_beside_an_input_count(tmp_path):
    """Advice on files that are read is about the folder of the file, as that of the command is."""
    path = tmp_path / "a.inp"
    path.write_text(pathlib.Path("examples/water-easy.inp").read_text(encoding="utf-8"),
                    encoding="utf-8")
    assert kelp_bdf.read(path).check() == kelp_bdf.read(path).check()


def test_calculations_tell_what_is_computed(water):
    told = water.calculation()
    assert told.is_complete
    assert told.systems[0].formula == "H2O" and told.systems[0].basis_sets == ("3-21g",)
    assert told.scfs[0].charge == 1 and told.scfs[0].electrons == 9
    assert [task.kind for task in told.tasks] == ["SCF", "TDDFT", "TDDFT"]


def test_outlines_tell_what_stands_where(water):
    items = water.outline()
    assert [item.kind for item in items] == ["word"] * 3 + ["geometry"] + ["module"] * 3
    assert items[-1].path == "tddft#2" and items[-1].children[0].values == ("5",)
    assert water.line_of("tddft#2.iroot") == items[-1].children[0].line
    assert water.lines("geometry")[0].split()[0] == "O"


def test_schemas_tell_what_they_know():
    schema = kelp_bdf.Schema.default()
    assert schema.info("scf.nonsense") is None
    assert schema.info("scf.maxiter").kind == "scalar"
    assert "scf.charge" in schema.explain("scf.charge")[0]
    assert schema.explain("scf.charge", "zh") != schema.explain("scf.charge")
    assert schema.easy_keywords() and schema.methods() and schema.functionals()
    assert schema.basis_sets() and schema.nested_entries("scf", "secondorderconfig")
