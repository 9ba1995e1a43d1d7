"""Inputs: reading, asking, changing, writing."""

from __future__ import annotations

import os
from pathlib import Path
from typing import (Any, Dict, Iterable, Iterator, List, Mapping, Optional,
                    Sequence, Tuple, Union)

from . import _core
from ._block import Block
from ._molecule import Molecule
from ._records import (Calculation, CharacterRanges, EditError, FileChangedError, Finding, Fix,
                       OutlineItem, calculation_from, findings_from, in_short, outline_from)
from ._schema import Schema, default_schema
from ._values import Value, lines_of, value_of

PathLike = Union[str, "os.PathLike[str]"]

_UNKNOWN = {"ignore": 0, "warn": 1, "error": 2}


class Input:
    """An input with its text.

    It is read with `kelp_bdf.read` or `kelp_bdf.parse`, asked by attributes and paths, and changed
    in the same way. A change touches only what it is about: comments, layout and line ends stay.

    >>> import kelp_bdf
    >>> water = kelp_bdf.read("examples/water-mixed.inp")
    >>> water
    <Input examples/water-mixed.inp: H2O, charge 0, multiplicity 1, pbe0/def2-tzvp; SCF, TDDFT>
    >>> water.scf.maxiter
    60
    >>> water["tddft", 1]["cthrd"]
    0.05
    >>> water.scf.maxiter = 200
    >>> water.text.splitlines()[13]
    '  200'

    One thread at a time may change an input; any number may ask it, and read others meanwhile.
    """

    _core: _core.Input
    _schema: Schema
    path: Optional[str]
    _read: Optional[bytes]

    def __init__(self, text: Union[str, bytes], *, schema: Optional[Schema] = None,
                 path: Optional[PathLike] = None) -> None:
        data = text if isinstance(text, bytes) else text.encode("utf-8", "surrogateescape")
        chosen = schema or default_schema()
        object.__setattr__(self, "_schema", chosen)
        object.__setattr__(self, "path", None if path is None else os.fspath(path))
        object.__setattr__(self, "_read", None)
        object.__setattr__(self, "_core", _core.Input(data, chosen._core))

    # ---- what it says

    @property
    def text(self) -> str:
        """The whole text. Bytes that are no UTF-8 are lone surrogates, as in names of files."""
        return self._core.data().decode("utf-8", "surrogateescape")

    @property
    def data(self) -> bytes:
        """The whole text as bytes."""
        return self._core.data()

    @property
    def schema(self) -> Schema:
        """The vocabulary that it was read with."""
        return self._schema

    @property
    def mode(self) -> str:
        """`easy`, `module` or `mixed`."""
        return self._core.mode()

    @property
    def easy(self) -> Block:
        """The keywords of the header.

        >>> import kelp_bdf
        >>> dict(kelp_bdf.read("examples/water-mixed.inp").easy)
        {'iroot': 4}
        """
        return Block(self, "easy")

    @property
    def molecule(self) -> Molecule:
        """The molecule, wherever it is stated. To assign one puts its atoms in the place of the
        others, and sets charge and multiplicity if it has them."""
        return Molecule._of(self._core.molecule())

    @property
    def charge(self) -> Optional[int]:
        """The total charge, wherever it is stated; None when it is not."""
        return self._core.molecule().charge()

    @property
    def multiplicity(self) -> Optional[int]:
        """The spin multiplicity 2S+1, wherever it is stated; None when it is not."""
        return self._core.molecule().multiplicity()

    def calculation(self) -> Calculation:
        """Tells what it computes."""
        return calculation_from(self._core.calculation())

    def outline(self) -> Tuple[OutlineItem, ...]:
        """Tells what stands where.

        >>> import kelp_bdf
        >>> for item in kelp_bdf.read("examples/water-mixed.inp").outline():
        ...     print(item.line, item.kind, item.name)
        2 word tddft/pbe0/def2-tzvp
        2 word iroot=4
        4 geometry H2O
        10 module scf
        19 module tddft
        """
        return outline_from(self._core.outline(), CharacterRanges(self._core.data()))

    def lines(self, path: str) -> List[str]:
        """Returns the lines of a value, as they are written; KeyError when there is none."""
        found = self._core.value(path)
        if found is None:
            raise KeyError(self._nothing_at(path))
        return found

    def line_of(self, path: str) -> int:
        """Returns the number of the line that something begins on; KeyError when it is not there."""
        line = self._core.line_of(path)
        if line == 0:
            raise KeyError(self._nothing_at(path))
        return line

    def path_at(self, index: int) -> str:
        """Returns the path of what stands at a character of the text; empty for what has none."""
        byte = len(self.text[:index].encode("utf-8", "surrogateescape"))
        return str(self._core.at_byte(byte)[0])

    # ---- by paths

    @staticmethod
    def _path_of(key: Union[str, Tuple[str, int]]) -> str:
        if isinstance(key, tuple):
            name, number = key
            return f"{name}#{number}"
        return key

    def __getitem__(self, key: Union[str, Tuple[str, int]]) -> Value:
        path = self._path_of(key)
        if path == "easy":
            return self.easy
        if "." not in path and path != "geometry":
            if self._core.line_of(path) == 0:
                raise KeyError(self._nothing_at(path))
            return Block(self, path)
        if self._core.kind_at(path) == "nested_block":
            return Block(self, path)
        lines = self.lines(path)
        return lines if path == "geometry" else value_of(lines, self._schema.info(path))


    def __setitem__(self, key: Union[str, Tuple[str, int]], value: Value) -> None:
        self.edit({self._path_of(key): value})

    def __delitem__(self, key: Union[str, Tuple[str, int]]) -> None:
        path = self._path_of(key)
        if path not in self:
            raise KeyError(self._nothing_at(path))
        self.edit(unset=[path])

    def __contains__(self, key: object) -> bool:
        if isinstance(key, tuple):
            return len(key) == 2 and f"{key[0]}#{key[1]}" in self
        if not isinstance(key, str):
            return False
        try:
            return self._core.line_of(key) > 0
        except ValueError:
            return False

    def _nothing_at(self, path: str) -> str:
        names = self._schema._core.hint(path)
        hint = f"; did you mean {' or '.join(repr(name) for name in names)}?" if names else ""
        place = f"{self.path}: " if self.path else ""
        return f"{place}nothing at '{path}'{hint}"

    def __getattr__(self, name: str) -> Block:
        if name.startswith("_"):
            raise AttributeError(name)
        try:
            block = self[name]
        except (KeyError, ValueError) as error:
            raise AttributeError(error.args[0]) from None
        assert isinstance(block, Block)
        return block

    def __setattr__(self, name: str, value: Any) -> None:
        if name == "charge":
            self.edit(charge=value)
        elif name == "multiplicity":
            self.edit(multiplicity=value)
        elif name == "molecule":
            self.edit(molecule=value)
        elif name == "path":
            object.__setattr__(self, "path", None if value is None else os.fspath(value))
        else:
            raise AttributeError(f"'{name}' cannot be assigned; name an entry of a module, or use "
                                 "brackets")

    def __iter__(self) -> Iterator[Block]:
        return iter([Block(self, path) for _, path in self._core.module_paths()])

    def __len__(self) -> int:
        return len(self._core.module_paths())

    def __dir__(self) -> List[str]:
        return [*super().__dir__(), *(name for name, _ in self._core.module_paths())]

    def module_names(self) -> List[str]:
        """Returns the names of its modules, in order; one that stands twice is there twice."""
        return [name for name, _ in self._core.module_paths()]

    # ---- what is wrong

    def check(self, *, unknown: str = "warn", advice: bool = True, allow: Iterable[str] = (),
              warn: Iterable[str] = (), deny: Iterable[str] = ()) -> List[Finding]:
        """Returns what `kelp-bdf check` finds, in the order of the text.

        Names that the schema does not know are found as `unknown` says: `ignore`, `warn` or
        `error`. Codes, or their beginnings with an asterisk, are left out, warnings or errors when
        `allow`, `warn` or `deny` names them; the last of these counts most.

        >>> import kelp_bdf
        >>> [f.code for f in kelp_bdf.read("examples/faulty.inp").check(allow=["bdf.unknown_*"])]
        ['bdf.invalid_module_value', 'bdf.invalid_module_value', 'bdf.unterminated_module']
        """
        if unknown not in _UNKNOWN:
            raise ValueError("unknown is 'ignore', 'warn' or 'error'")
        rules = [(pattern, action) for action, patterns in enumerate((allow, warn, deny))
                 for pattern in ([patterns] if isinstance(patterns, str) else patterns)]
        told = self._core.findings(_UNKNOWN[unknown], advice, rules, self.path)
        return findings_from(told, self._core.data(), self.path or "<input>")

    def apply(self, fix: Fix) -> None:
        """Applies a fix of a finding about the text as it is.

        >>> import kelp_bdf
        >>> broken = kelp_bdf.parse("$scf\\ncharge\\n 0\\n$edn\\n")
        >>> fixes = [fix for finding in broken.check() for fix in finding.fixes]
        >>> broken.apply(fixes[0])
        >>> print(broken.text, end="")
        $scf
        charge
         0
        $end
        """
        text = self.text

        def byte(index: int) -> int:
            return len(text[:index].encode("utf-8", "surrogateescape"))

        edits = [((byte(edit.range.begin), byte(edit.range.end)), edit.text) for edit in fix.edits]
        self._become(self._core.with_edits(edits))

    # ---- changes

    def edit(self, values: Optional[Mapping[str, Value]] = None, *, unset: Sequence[str] = (),
             charge: Optional[int] = None, multiplicity: Optional[int] = None,
             molecule: Optional[Molecule] = None, geometry: Optional[str] = None,
             script_name: Optional[str] = None, allow_unknown: bool = False,
             force: bool = False) -> List[str]:
        """Makes several changes as one, and returns what went along with them, a sentence each.

        `geometry` is the path of the geometry that the molecule is for where there are several.
        Names that the schema does not know are refused unless they are allowed, and so is a text
        that would have errors that the present one has not, unless it is forced.

        >>> import kelp_bdf
        >>> water = kelp_bdf.read("examples/water-mixed.inp")
        >>> water.edit({"scf.maxiter": 99, "easy.functional": "b3lyp"}, charge=-1, multiplicity=2)
        []
        >>> print(water.text.splitlines()[1])
        TDDFT/b3lyp/def2-TZVP iroot=4 charge=-1 spinmulti=2
        """
        if molecule is not None:
            charge = molecule.charge if charge is None else charge
            multiplicity = molecule.multiplicity if multiplicity is None else multiplicity
        assignments = [(path, lines_of(value)) for path, value in (values or {}).items()]
        data, losses, notes, error = self._core.edited(
            assignments, list(unset), charge, multiplicity, script_name,
            None if molecule is None else molecule._core, geometry, allow_unknown)
        if error:
            raise EditError(error, self.path)
        if losses and not force:
            findings = findings_from(losses, data, self.path or "<input>")
            raise EditError(findings[0].message, self.path, findings[0].line, tuple(findings))
        self._become(data)
        return notes

    def format(self) -> None:
        """Lays the text out; comments, digits and the order of lines stay."""
        data, _, _, error = self._core.formatted()
        if error:
            raise EditError(error, self.path)
        self._become(data)

    def rendered(self) -> str:
        """Returns the input in the one canonical layout, without all that it says to readers."""
        return self._core.rendered().decode("utf-8", "surrogateescape")

    def _become(self, data: bytes) -> None:
        object.__setattr__(self, "_core", _core.Input(data, self._schema._core))

    # ---- files and copies

    def write(self, path: Optional[PathLike] = None) -> None:
        """Writes the text to a file, as a whole or not at all.

        Without a path that is the file that it was read from, which must still be as it was:
        otherwise it is left alone, with `FileChangedError`.
        """
        if path is None and self.path is None:
            raise ValueError("the input was not read from a file; name one")
        target = os.fspath(self.path if path is None else path)  # type: ignore[arg-type]
        data = self._core.data()
        if path is None and self._read is not None:
            try:
                _core.replace_file(target, self._read, data)
            except BlockingIOError as error:
                raise FileChangedError(str(error)) from None
        else:
            _core.write_file(target, data)
        if path is None or self.path is None or target == self.path:
            object.__setattr__(self, "path", target)
            object.__setattr__(self, "_read", data)

    def copy(self) -> "Input":
        """Returns an input of its own with the same text.

        >>> import kelp_bdf
        >>> water = kelp_bdf.read("examples/water-mixed.inp")
        >>> other = water.copy()
        >>> other.charge = 1
        >>> water.charge, other.charge
        (None, 1)
        """
        made = Input.__new__(Input)
        for name in ("_schema", "path", "_read", "_core"):
            object.__setattr__(made, name, object.__getattribute__(self, name))
        return made

    __copy__ = copy

    def __deepcopy__(self, memo: Dict[int, Any]) -> "Input":
        return self.copy()

    def __reduce__(self) -> Any:
        schema = None if self._schema._source[0] == "default" else self._schema
        return _restored, (self._core.data(), schema, self.path, self._read)

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Input):
            return NotImplemented
        return self._core.data() == other._core.data()

    __hash__ = None  # type: ignore[assignment]

    def __str__(self) -> str:
        return self.text

    def __repr__(self) -> str:
        name = self.path or f"of {len(self.data)} bytes"
        return f"<Input {name}: {in_short(self.calculation(), self.mode)}>"

def _restored(data: bytes, schema: Optional[Schema], path: Optional[str],
              read_bytes: Optional[bytes]) -> Input:
    made = Input(data, schema=schema, path=path)
    object.__setattr__(made, "_read", read_bytes)
    return made


def parse(text: Union[str, bytes], *, schema: Optional[Schema] = None,
          path: Optional[PathLike] = None) -> Input:
    """Reads a text. Whatever is wrong with it is for `Input.check`.

    >>> parse("$scf\\ncharge\\n  1\\n$end\\n").scf.charge
    1
    """
    return Input(text, schema=schema, path=path)


def read(path: PathLike, *, schema: Optional[Schema] = None) -> Input:
    """Reads a file; OSError when that fails.

    >>> read("examples/water-easy.inp").molecule
    <Molecule H2O, 3 atoms, charge 0, multiplicity 1>
    """
    data = Path(path).read_bytes()
    made = Input(data, schema=schema, path=path)
    object.__setattr__(made, "_read", data)
    return made
