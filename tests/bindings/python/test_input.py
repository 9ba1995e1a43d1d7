"""Reading inputs and asking them."""

import copy
import pickle

import pytest

import kelp_bdf
from conftest import WATER


def test_values_have_the_types_of_the_schema(water):
    assert water.scf.maxiter == 60 and isinstance(water.scf.maxiter, int)
    assert water.easy.charge == 1
    vshift = kelp_bdf.parse("$scf\nvshift\n 1.5D-1\nuhf\n$end\n").scf
    assert vshift.vshift == 0.15
    assert vshift.uhf is True


def test_modules_of_one_name_are_told_by_number(water):
    assert water["tddft", 1]["iroot"] == 3
    assert water["tddft", 2]["iroot"] == 5
    assert water["tddft#2"].iroot == water["tddft#2.iroot"] == 5
    assert len(water) == 3
    assert water.module_names() == ["scf", "tddft", "tddft"]
    assert [module["iroot"] for module in water if "iroot" in module] == [3, 5]


def test_names_may_be_aliases_in_any_case(water):
    assert water["SCF.MaxIter"] == 60
    assert "Scf" in water and "scf.MAXITER" in water
    assert "mp2" not in water and "scf.charge" not in water and 7 not in water


def test_what_is_not_there_is_a_key_or_attribute_error_with_a_hint(water):
    with pytest.raises(KeyError, match="nothing at 'scf.chrage'; did you mean 'charge'"):
        water["scf.chrage"]
    with pytest.raises(AttributeError, match="nothing at 'scf.chrage'"):
        water.scf.chrage
    with pytest.raises(AttributeError, match="nothing at 'mp2'"):
        water.mp2
    with pytest.raises(KeyError):
        water["tddft", 3]
    with pytest.raises(ValueError):
        water["scf.."]
    assert water.scf.get("charge") is None


def test_blocks_are_mappings(water):
    assert dict(water.scf) == {"maxiter": 60}
    assert list(water.easy) == ["charge", "spinmulti"]
    assert water.scf == {"maxiter": 60}
    assert len(water.scf) == 1
    assert "maxiter" in dir(water.scf) and "scf" in dir(water)


def test_no_name_of_the_vocabulary_is_hidden_by_a_member():
    schema = kelp_bdf.Schema.default()
    hidden = set(schema.modules()) & set(dir(kelp_bdf.Input))
    assert hidden == set()
    members = {name for name in dir(kelp_bdf.Block) if not name.startswith("_")}
    for module in schema.modules():
        assert not set(schema.entries(module)) & members, module


def test_texts_that_are_no_utf8_come_back_as_they_were():
    data = b"# \xff\xfe\xc3\xa4\r\n$scf\r\ncharge\r\n 1\r\n$end\r\n"
    given = kelp_bdf.parse(data)
    assert given.data == data
    assert kelp_bdf.parse(given.text).data == data
    given.scf.charge = 2
    assert given.data == data.replace(b" 1", b" 2")


def test_ranges_are_those_of_the_text():
    text = "# äöü \U0001f600\n$scf\nchrage\n 1\n$end\n"
    given = kelp_bdf.parse(text)
    finding = [f for f in given.check() if f.code == "bdf.unknown_entry"][0]
    assert given.text[slice(*finding.range)] == "chrage"
    item = given.outline()[0]
    assert given.text[slice(*item.range)] == "$scf\nchrage\n 1\n$end\n"
    assert given.path_at(text.index("$scf")) == "scf"


def test_files_that_are_missing_are_errors_of_pythons_own(tmp_path):
    with pytest.raises(FileNotFoundError) as caught:
        kelp_bdf.read(tmp_path / "none.inp")
    assert caught.value.filename.endswith("none.inp")


def test_inputs_are_copied_and_pickled(water_file):
    water = kelp_bdf.read(water_file)
    for other in (copy.copy(water), copy.deepcopy(water), pickle.loads(pickle.dumps(water))):
        assert other == water and other.path == water.path
        other.scf.maxiter = 7
        assert water.scf.maxiter == 60 and other != water
        other.write()
        water_file.write_bytes(water.data)


def test_inputs_keep_a_schema_of_their_own_when_they_are_pickled():
    schema = kelp_bdf.Schema.parse(
        "schema_version: 1\nmodules:\n  only:\n    entries:\n      one: {kind: flag}\n")
    given = pickle.loads(pickle.dumps(kelp_bdf.parse("$only\none\n$end\n", schema=schema)))
    assert given.check(unknown="error", advice=False) == []
    assert given.schema.modules() == ["only"]
    with pytest.raises(ValueError):
        kelp_bdf.Schema.parse("modules: [")


def test_a_chemist_understands_the_repr(water):
    assert repr(water).endswith(
        "bytes: H2O, charge 1, multiplicity 2, uhf/3-21g; SCF, TDDFT>")
    assert repr(kelp_bdf.parse("")) == "<Input of 0 bytes: easy input>"
    assert repr(water.scf) == "<scf {maxiter: 60}>"


def test_threads_read_at_once():
    import threading

    text = WATER + "# a comment\n" * 20000
    failed = []

    def work():
        try:
            for _ in range(3):
                assert kelp_bdf.parse(text).scf.maxiter == 60
        except Exception as error:  # pylint: disable=broad-except
            failed.append(error)

    threads = [threading.Thread(target=work) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert failed == []
