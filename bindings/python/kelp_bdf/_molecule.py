"""Molecules, with numpy, and to and from ASE."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Iterator, Optional, Sequence, Tuple

import numpy as np

from . import _core

if TYPE_CHECKING:
    import numpy.typing as npt

BOHR = 0.529177210903  # angstrom


class Molecule:
    """Atoms with their coordinates, and what is stated of charge and multiplicity.

    It never changes: the array of the coordinates cannot be written to.

    >>> from kelp_bdf import Molecule
    >>> hydrogen = Molecule(["H", "H"], [[0, 0, 0], [0, 0, 0.74]], charge=1, multiplicity=2)
    >>> hydrogen
    <Molecule H2, 2 atoms, charge 1, multiplicity 2>
    >>> hydrogen.coordinates[1]
    array([0.  , 0.  , 0.74])
    """

    def __init__(self, labels: Sequence[str], coordinates: "npt.ArrayLike", *,
                 unit: str = "angstrom", charge: Optional[int] = None,
                 multiplicity: Optional[int] = None) -> None:
        array = np.asarray(coordinates, dtype=np.float64)
        if array.size == 0:
            array = array.reshape(0, 3)
        self._take(_core.Molecule(list(labels), array, unit), charge, multiplicity)

    def _take(self, core: _core.Molecule, charge: Optional[int],
              multiplicity: Optional[int]) -> None:
        self._core = core
        self._charge = charge
        self._multiplicity = multiplicity
        self._coordinates = core.coordinates()
        self._coordinates.setflags(write=False)

    @classmethod
    def _of(cls, core: _core.Molecule) -> "Molecule":
        made = cls.__new__(cls)
        made._take(core, core.charge(), core.multiplicity())
        return made

    @classmethod
    def from_xyz(cls, text: str) -> "Molecule":
        """Reads an XYZ text; ValueError with the line when it is none.

        >>> Molecule.from_xyz("1\\nhelium\\nHe 0 0 0\\n").formula
        'He'
        """
        return cls._of(_core.Molecule.from_xyz(text))

    @classmethod
    def from_ase(cls, atoms: Any) -> "Molecule":
        """Takes atoms of ASE over, with the charge and spin that `atoms.info` holds, if any.

        >>> from ase.build import molecule
        >>> Molecule.from_ase(molecule("CH4")).formula
        'CH4'
        """
        return cls(list(atoms.get_chemical_symbols()), atoms.get_positions(),
                   charge=atoms.info.get("charge"), multiplicity=atoms.info.get("multiplicity"))

    def to_ase(self) -> Any:
        """Returns the atoms for ASE, in angstrom; charge and multiplicity are in `info`.

        >>> import kelp_bdf
        >>> atoms = kelp_bdf.read("examples/water-module.inp").molecule.to_ase()
        >>> atoms.get_chemical_formula(), atoms.info
        ('H2O', {'charge': 1, 'multiplicity': 2})
        """
        from ase import Atoms  # type: ignore[import]

        stated = {"charge": self.charge, "multiplicity": self.multiplicity}
        scale = BOHR if self.unit == "bohr" else 1.0
        return Atoms(symbols=[symbol or "X" for symbol in self.symbols],
                     positions=self.coordinates * scale,
                     info={name: value for name, value in stated.items() if value is not None})

    def to_xyz(self, comment: str = "") -> str:
        """Returns an XYZ text, in angstrom."""
        return self._core.xyz(comment)

    @property
    def labels(self) -> Tuple[str, ...]:
        """The labels of the atoms, as written: `H`, `C12`."""
        return tuple(self._core.labels())

    @property
    def symbols(self) -> Tuple[str, ...]:
        """The symbols of the elements; empty where a label begins with none."""
        return tuple(self._core.symbols())

    @property
    def coordinates(self) -> "npt.NDArray[np.float64]":
        """Three numbers for each atom, in `unit`; always the same array."""
        return self._coordinates

    @property
    def unit(self) -> str:
        """What the coordinates count: `angstrom` or `bohr`."""
        return self._core.unit()

    @property
    def charge(self) -> Optional[int]:
        """The total charge; None when it is not stated."""
        return self._charge

    @property
    def multiplicity(self) -> Optional[int]:
        """The spin multiplicity 2S+1; None when it is not stated."""
        return self._multiplicity

    @property
    def formula(self) -> str:
        """The formula in Hill's order."""
        return self._core.formula()

    def __len__(self) -> int:
        return len(self._coordinates)

    def __iter__(self) -> Iterator[Tuple[str, "npt.NDArray[np.float64]"]]:
        return iter(zip(self.labels, self._coordinates))

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Molecule):
            return NotImplemented
        return (self.labels == other.labels and self.unit == other.unit
                and self.charge == other.charge and self.multiplicity == other.multiplicity
                and np.array_equal(self._coordinates, other._coordinates))

    __hash__ = None  # type: ignore[assignment]

    def __repr__(self) -> str:
        parts = [self.formula or "without atoms", f"{len(self)} atoms"]
        if self.charge is not None:
            parts.append(f"charge {self.charge}")
        if self.multiplicity is not None:
            parts.append(f"multiplicity {self.multiplicity}")
        return f"<Molecule {', '.join(parts)}>"

    def __reduce__(self) -> Any:
        return (_molecule, (self.labels, np.array(self._coordinates), self.unit, self.charge,
                            self.multiplicity))


def _molecule(labels: Sequence[str], coordinates: "npt.ArrayLike", unit: str,
              charge: Optional[int], multiplicity: Optional[int]) -> Molecule:
    return Molecule(labels, coordinates, unit=unit, charge=charge, multiplicity=multiplicity)
