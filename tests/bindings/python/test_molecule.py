"""Molecules, arrays, ASE."""

import gc
import pickle
import sys

import numpy as np
import pytest

import kelp_bdf
from kelp_bdf import Molecule


def test_coordinates_are_an_array_that_outlives_its_owner(water):
    coordinates = water.molecule.coordinates
    del water
    gc.collect()
    assert coordinates.shape == (3, 3) and coordinates.dtype == np.float64
    assert coordinates[1, 1] == 0.7572
    assert not coordinates.flags.writeable
    molecule = Molecule(["He"], [[0, 0, 1]])
    assert molecule.coordinates is molecule.coordinates


def test_molecules_are_stated_anywhere(water):
    molecule = water.molecule
    assert molecule.labels == molecule.symbols == ("O", "H", "H")
    assert (molecule.charge, molecule.multiplicity, molecule.unit) == (1, 2, "angstrom")
    assert molecule.formula == "H2O" and len(molecule) == 3
    assert [label for label, _ in molecule] == ["O", "H", "H"]
    assert len(kelp_bdf.parse("$scf\n$end\n").molecule) == 0


def test_molecules_are_put_in(water):
    water.molecule = Molecule(["N", "N"], [[0, 0, 0], [0, 0, 1.1]], charge=0, multiplicity=1)
    assert water.molecule.formula == "N2"
    assert (water.charge, water.multiplicity) == (0, 1)
    assert np.array_equal(water.molecule.coordinates, [[0, 0, 0], [0, 0, 1.1]])


def test_what_is_no_molecule_is_refused():
    for labels, coordinates in ((["H"], [[0, 0]]), (["H"], [[0, 0, 0]] * 2),
                                (["H x"], [[0, 0, 0]]), (["H"], [[0, 0, float("nan")]])):
        with pytest.raises(ValueError):
            Molecule(labels, coordinates)
    with pytest.raises(ValueError, match="line 3"):
        Molecule.from_xyz("1\n\nHe 0 0\n")
    with pytest.raises(ValueError):
        Molecule(["H"], [[0, 0, 0]], unit="mile")
    assert len(Molecule([], [])) == 0


def test_xyz_comes_back(water):
    text = water.molecule.to_xyz("water")
    assert text.startswith("3\nwater\nO 0 0 0.1173\n")
    assert Molecule.from_xyz(text).labels == ("O", "H", "H")


def test_molecules_are_equal_and_pickled(water):
    other = pickle.loads(pickle.dumps(water.molecule))
    assert other == water.molecule
    assert other != Molecule(["He"], [[0, 0, 1]]) and other != 1


def test_ase_and_back(water):
    ase = pytest.importorskip("ase")
    atoms = water.molecule.to_ase()
    assert isinstance(atoms, ase.Atoms)
    assert atoms.get_chemical_formula() == "H2O" and atoms.info["charge"] == 1
    assert Molecule.from_ase(atoms) == water.molecule
    bohr = Molecule(["H"], [[0, 0, 1]], unit="bohr")
    assert bohr.to_ase().positions[0, 2] == pytest.approx(0.529177210903)


def test_nothing_is_kept_of_what_is_gone(water):
    def references():
        gc.collect()
        return sys.getrefcount(None), len(gc.get_objects())

    def work():
        for _ in range(50):
            water.check()
            water.outline()
            water.calculation()
            water.molecule.coordinates.sum()
            water.copy().scf.maxiter = 3
            with pytest.raises(kelp_bdf.EditError):
                water.scf.maxiter = "many"

    work()
    before = references()
    work()
    after = references()
    assert abs(after[0] - before[0]) < 50 and abs(after[1] - before[1]) < 50
