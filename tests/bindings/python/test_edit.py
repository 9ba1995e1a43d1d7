"""Changes, and files."""

import pytest

import kelp_bdf
from conftest import WATER


def test_an_attribute_changes_its_own_line_and_nothing_else(water):
    water.scf.maxiter = 200
    assert water.text == WATER.replace("  60\n", "  200\n")
    water.scf.maxiter = 60
    assert water.text == WATER


def test_brackets_and_paths_change_values(water):
    water["tddft", 2]["iroot"] = 8
    water["scf.vshift"] = 0.25
    water["easy.basis"] = "def2-svp"
    assert water["tddft#2.iroot"] == 8 and water["tddft", 1].iroot == 3
    assert water.scf.vshift == 0.25
    assert "HF/def2-svp" in water.text


def test_flags_are_set_and_taken_out(water):
    water.scf.uhf = True
    assert water.scf.uhf is True
    del water.scf.uhf
    assert water.text == WATER
    with pytest.raises(TypeError):
        water.scf.uhf = False
    with pytest.raises(AttributeError):
        del water.scf.uhf
    with pytest.raises(KeyError):
        del water["scf.uhf"]


def test_several_lines_are_lists(water):
    water["xuanyuan.rsomega"] = "0.3"
    del water["xuanyuan"]
    assert "xuanyuan" not in water


def test_charge_and_multiplicity_are_set_where_they_are_stated(water):
    water.charge = -1
    water.multiplicity = 4
    assert (water.charge, water.multiplicity) == (-1, 4)
    assert water.text == WATER.replace("charge=1 spinmulti=2", "charge=-1 spinmulti=4")


def test_what_cannot_be_made_is_refused_and_changes_nothing(water):
    with pytest.raises(kelp_bdf.EditError) as caught:
        water.scf.maxiter = "many"
    assert caught.value.lineno == 12 and isinstance(caught.value, ValueError)
    assert caught.value.findings[0].code == "bdf.invalid_module_value"
    with pytest.raises(kelp_bdf.EditError):
        water.scf.nonsense = 1
    with pytest.raises(AttributeError):
        water.scf = 3
    assert water.text == WATER
    water.edit({"scf.nonsense": 1}, allow_unknown=True)
    assert "nonsense\n" in water.text
    water.edit({"scf.maxiter": "many"}, force=True)
    assert water.scf.maxiter == "many"


def test_several_changes_are_one(water):
    notes = water.edit({"scf.maxiter": 9}, unset=["tddft#2"], charge=0, multiplicity=1,
                       script_name="other.bdf")
    assert notes == []
    assert water.text.startswith("#! other.bdf\n") and water.module_names() == ["scf", "tddft"]


def test_inputs_are_laid_out_and_rendered():
    given = kelp_bdf.parse("$scf\n   MAXITER\n60\n$end\n")
    given.format()
    assert given.text == "$scf\n  maxiter\n    60\n$end\n"
    assert "$scf" in given.rendered()


def test_files_are_written_and_not_over_the_changes_of_others(water_file):
    water = kelp_bdf.read(water_file)
    water.scf.maxiter = 99
    water.write()
    assert water_file.read_text(encoding="utf-8") == water.text
    water.scf.maxiter = 98
    water.write()
    water_file.write_text("changed", encoding="utf-8")
    water.scf.maxiter = 97
    with pytest.raises(kelp_bdf.FileChangedError) as caught:
        water.write()
    assert isinstance(caught.value, OSError)
    assert water_file.read_text(encoding="utf-8") == "changed"
    water.write(water_file)
    assert kelp_bdf.read(water_file).scf.maxiter == 97


def test_files_that_cannot_be_written_are_errors_of_pythons_own(water, tmp_path):
    with pytest.raises(OSError, match="none"):
        water.write(tmp_path / "none" / "a.inp")
    with pytest.raises(ValueError):
        water.write()
