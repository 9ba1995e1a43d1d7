"""Variants of an input, and checks of many."""

import os
import subprocess

import pytest

import kelp_bdf
from conftest import WATER


def test_a_sweep_makes_all_combinations_and_changes_nothing_else(water):
    made = list(kelp_bdf.sweep(water, {"scf.maxiter": [10, 20], "tddft#2.iroot": [1, 2, 3]},
                               name="a-{maxiter}-{tddft#2.iroot}.inp"))
    assert [name for name, _ in made] == [
        "a-10-1.inp", "a-10-2.inp", "a-10-3.inp", "a-20-1.inp", "a-20-2.inp", "a-20-3.inp"]
    assert made[5][1].text == WATER.replace("  60\n", "  20\n").replace("  5\n", "  3\n")
    assert made[5][1].path == "a-20-3.inp"
    assert water.text == WATER


def test_names_of_a_sweep_are_made_of_values_as_they_are_written(water):
    def names(values, pattern):
        return [name for name, _ in kelp_bdf.sweep(water, {"scf.maxiter": values}, name=pattern)]

    assert names([10, "20"], "{#}-{scf.maxiter}.inp") == ["1-10.inp", "2-20.inp"]
    with pytest.raises(ValueError, match="below the folder"):
        names([10], "../{maxiter}.inp")


def test_a_sweep_makes_what_the_command_writes(water_file, tmp_path):
    command = os.environ.get("KELP_BDF_COMMAND")
    if not command:
        pytest.skip("there is no command")
    axes = {"easy.basis": ["6-31G(d,p)", "3-21G"], "scf.maxiter": ["10", "20"]}
    pattern = "{basis}/{#}-{maxiter}.inp"
    told = subprocess.run(
        [command, "sweep", water_file, *(f"{path}={','.join(values)}" for path, values in axes.items()),
         "--name", pattern, "-o", tmp_path / "out"], check=True, capture_output=True, text=True)
    made = dict(kelp_bdf.sweep(kelp_bdf.read(water_file), axes, name=pattern))
    assert told.stdout.splitlines() == [str(tmp_path / "out" / name) for name in made]
    for name, variant in made.items():
        assert (tmp_path / "out" / name).read_bytes() == variant.data


def test_a_sweep_is_refused_before_anything_is_made(water):
    with pytest.raises(ValueError, match="two variants would be named"):
        kelp_bdf.sweep(water, {"scf.maxiter": [10, 20]}, name="same.inp")
    with pytest.raises(ValueError, match="none of the paths"):
        kelp_bdf.sweep(water, {"scf.maxiter": [10]}, name="{basis}.inp")
    with pytest.raises(ValueError, match="several of the paths"):
        kelp_bdf.sweep(water, {"tddft.iroot": [1], "tddft#2.iroot": [2]}, name="{iroot}.inp")
    with pytest.raises(kelp_bdf.EditError):
        list(kelp_bdf.sweep(water, {"scf.maxiter": ["many"]}, name="{maxiter}.inp"))


def test_each_of_many_files_is_told_once_and_in_order(tmp_path):
    paths = []
    for i in range(300):
        path = tmp_path / f"{i}.inp"
        path.write_text(WATER.replace("  60", "  60" if i % 7 else "  many"), encoding="utf-8")
        paths.append(path)
    paths.insert(5, tmp_path / "none.inp")
    told = list(kelp_bdf.check_many(iter(paths), jobs=3))
    assert [checked.path for checked in told] == [str(path) for path in paths]
    assert [i for i, checked in enumerate(told) if checked.error] == [5]
    assert sum(not checked.is_fine for checked in told) == 1 + 43
    assert list(kelp_bdf.check_many([])) == []


def test_options_are_those_of_a_check(tmp_path):
    path = tmp_path / "a.inp"
    path.write_text("$scf\nchrage\n 1\n$end\n", encoding="utf-8")
    checked, = kelp_bdf.check_many([path], unknown="ignore", advice=False)
    assert "bdf.unknown_entry" not in {finding.code for finding in checked.findings}
