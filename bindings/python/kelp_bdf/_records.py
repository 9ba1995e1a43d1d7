"""The plain records that inputs are asked for."""

from __future__ import annotations

from dataclasses import dataclass
from typing import Any, List, NamedTuple, Optional, Tuple


class Range(NamedTuple):
    """Characters of an input's text, as a slice has them.

    >>> import kelp_bdf
    >>> text = "$scf\\nchrage\\n 1\\n$end\\n"
    >>> found = kelp_bdf.parse(text).check()[0].range
    >>> text[found.begin:found.end]
    'chrage'
    """

    begin: int
    end: int


class TextEdit(NamedTuple):
    """A change of a text: the characters of a range make way for others."""

    range: Range
    text: str


@dataclass(frozen=True)
class Fix:
    """A way to mend what a finding is about; `Input.apply` does it."""

    title: str
    is_safe: bool
    edits: Tuple[TextEdit, ...]


@dataclass(frozen=True)
class Related:
    """Another part of the text that matters for a finding."""

    range: Range
    line: int
    message: str


@dataclass(frozen=True)
class Finding:
    """Something that is wrong with an input.

    As text it is one line, like that of a compiler:

    >>> import kelp_bdf
    >>> finding = kelp_bdf.parse("$scf\\nchrage\\n 1\\n$end\\n").check()[0]
    >>> print(finding)
    <input>:2:1: warning: Unknown BDF module entry 'scf.chrage' was preserved raw. [bdf.unknown_entry]
    >>> finding.severity, finding.line, finding.suggestions
    ('warning', 2, ('charge',))
    """

    code: str
    severity: str
    message: str
    line: int
    column: int
    range: Optional[Range] = None
    label: str = ""
    path: str = ""
    arguments: Tuple[str, ...] = ()
    help: Tuple[str, ...] = ()
    suggestions: Tuple[str, ...] = ()
    related: Tuple[Related, ...] = ()
    fixes: Tuple[Fix, ...] = ()
    file: str = "<input>"

    def __str__(self) -> str:
        place = f"{self.file}:{self.line}:{self.column}"
        return f"{place}: {self.severity}: {self.message} [{self.code}]"

    @property
    def is_error(self) -> bool:
        """Whether the input will not run, or not as written."""
        return self.severity == "error"


@dataclass(frozen=True)
class OutlineItem:
    """A part of an input: a word of the header, the geometry, a module, an entry."""

    kind: str
    name: str
    path: str
    line: int
    known: bool
    range: Range
    values: Tuple[str, ...]
    children: Tuple["OutlineItem", ...]


@dataclass(frozen=True)
class System:
    """A molecule that an input computes. What is not certain is None, or empty."""

    formula: str
    atoms: Optional[int]
    basis_sets: Tuple[str, ...]
    line: int


@dataclass(frozen=True)
class Scf:
    """A self-consistent field of an input. What is not certain is None."""

    system: int
    charge: Optional[int]
    multiplicity: Optional[int]
    electrons: Optional[int]
    reference: Optional[str]
    functional: Optional[str]
    line: int


@dataclass(frozen=True)
class Task:
    """Something that an input computes."""

    kind: str
    system: int
    line: int


@dataclass(frozen=True)
class Calculation:
    """What an input computes. Nothing is guessed.

    >>> import kelp_bdf
    >>> water = kelp_bdf.read("examples/water-module.inp").calculation()
    >>> [task.kind for task in water.tasks]
    ['SCF', 'TDDFT']
    >>> water.scfs[0].electrons
    9
    """

    is_complete: bool
    method: Optional[str]
    systems: Tuple[System, ...]
    scfs: Tuple[Scf, ...]
    tasks: Tuple[Task, ...]


@dataclass(frozen=True)
class EntryInfo:
    """What a schema says of an entry, a nested entry or a keyword of the header."""

    name: str
    kind: str
    type: str
    default: Optional[str]
    allowed: Tuple[str, ...]
    minimum: Optional[float]
    maximum: Optional[float]
    repeatable: bool
    expected: str
    summary: str


class EditError(ValueError):
    """A change that is not made: it cannot be, or the new text would not say what was wanted.

    >>> import kelp_bdf
    >>> water = kelp_bdf.read("examples/water-mixed.inp")
    >>> try:
    ...     water.scf.maxiter = "many"
    ... except kelp_bdf.EditError as error:
    ...     print(error)
    ...     print(error.lineno, error.findings[0].code)
    examples/water-mixed.inp:14: BDF module entry 'scf.maxiter' has an invalid value 'many'.
    14 bdf.invalid_module_value
    """

    def __init__(self, message: str, filename: Optional[str] = None,
                 lineno: Optional[int] = None, findings: Tuple[Finding, ...] = ()) -> None:
        place = ":".join(str(part) for part in (filename, lineno) if part is not None)
        super().__init__(f"{place}: {message}" if place else message)
        self.filename = filename
        self.lineno = lineno
        self.findings = findings


class FileChangedError(OSError):
    """A file that was to be replaced holds another text than the one that was read."""


class CharacterRanges:
    """Turns ranges of bytes of a text into ranges of characters."""

    def __init__(self, data: bytes) -> None:
        self._data = None if data.isascii() else data

    def at(self, byte: int) -> int:
        if self._data is None:
            return byte
        return len(self._data[:byte].decode("utf-8", "surrogateescape"))

    def of(self, pair: Tuple[int, int]) -> Range:
        return Range(self.at(pair[0]), self.at(pair[1]))


def findings_from(tuples: List[Tuple[Any, ...]], data: bytes, file: str) -> List[Finding]:
    """Makes findings of what the core tells."""
    ranges = CharacterRanges(data)
    made = []
    for (code, severity, message, line, column, span, label, path, arguments, helps, suggestions,
         related, fixes) in tuples:
        made.append(Finding(
            code, severity, message, line, column,
            None if span is None else ranges.of(span), label, path, tuple(arguments),
            tuple(helps), tuple(suggestions),
            tuple(Related(ranges.of(pair), number, text) for pair, number, text in related),
            tuple(Fix(title, safe, tuple(TextEdit(ranges.of(pair), text) for pair, text in edits))
                  for title, safe, edits in fixes),
            file))
    return made


def outline_from(tuples: List[Tuple[Any, ...]], ranges: CharacterRanges) -> Tuple[OutlineItem, ...]:
    """Makes an outline of what the core tells."""
    return tuple(
        OutlineItem(kind, name, path, line, known, ranges.of(span), tuple(values),
                    outline_from(children, ranges))
        for kind, name, path, line, known, span, values, children in tuples)


def calculation_from(told: Tuple[Any, ...]) -> Calculation:
    """Makes a calculation of what the core tells."""
    is_complete, method, systems, scfs, tasks = told
    return Calculation(
        is_complete, method,
        tuple(System(formula, atoms, tuple(sets), line) for formula, atoms, sets, line in systems),
        tuple(Scf(*scf) for scf in scfs), tuple(Task(*task) for task in tasks))


def in_short(calculation: Calculation, mode: str) -> str:
    """Returns what is computed, for a line: formula, charge, level of theory, tasks."""
    parts = []
    formulas = list(dict.fromkeys(s.formula for s in calculation.systems if s.formula))
    if formulas:
        parts.append(" and ".join(formulas))
    if calculation.scfs:
        scf = calculation.scfs[0]
        if scf.charge is not None:
            parts.append(f"charge {scf.charge}")
        if scf.multiplicity is not None:
            parts.append(f"multiplicity {scf.multiplicity}")
        level = [scf.functional or scf.reference]
        level += calculation.systems[scf.system].basis_sets[:1]
        if any(level):
            parts.append("/".join(name for name in level if name))
    tasks = ", ".join(dict.fromkeys(task.kind for task in calculation.tasks))
    short = ", ".join(parts) or mode + " input"
    return f"{short}; {tasks}" if tasks else short
