"""Modules, nested blocks and the header, as mappings."""

from __future__ import annotations

from typing import TYPE_CHECKING, Dict, Iterator, List, Mapping

from ._values import Value

if TYPE_CHECKING:
    from ._input import Input


class Block(Mapping[str, Value]):
    """A module, a nested block or the header: its entries by their names.

    A block stands for a part of an input and keeps nothing: it tells what the input holds now.
    Names may be aliases, in any case. What is no name of Python's is asked for with brackets.

    >>> import kelp_bdf
    >>> scf = kelp_bdf.read("examples/water-mixed.inp").scf
    >>> scf.maxiter, scf["vshift"]
    (60, 0.3)
    >>> list(scf)
    ['vshift', 'maxiter']
    >>> "charge" in scf, scf.get("charge")
    (False, None)
    """

    _input: "Input"
    _path: str

    def __init__(self, owner: "Input", path: str) -> None:
        object.__setattr__(self, "_input", owner)
        object.__setattr__(self, "_path", path)

    def __getitem__(self, name: str) -> Value:
        return self._input[f"{self._path}.{name}"]

    def __setitem__(self, name: str, value: Value) -> None:
        self._input[f"{self._path}.{name}"] = value

    def __delitem__(self, name: str) -> None:
        del self._input[f"{self._path}.{name}"]

    def __getattr__(self, name: str) -> Value:
        if name.startswith("_"):
            raise AttributeError(name)
        try:
            return self[name]
        except KeyError as error:
            raise AttributeError(error.args[0]) from None

    def __setattr__(self, name: str, value: Value) -> None:
        self[name] = value

    def __delattr__(self, name: str) -> None:
        try:
            del self[name]
        except KeyError as error:
            raise AttributeError(error.args[0]) from None

    def __contains__(self, name: object) -> bool:
        return f"{self._path}.{name}" in self._input

    def __iter__(self) -> Iterator[str]:
        seen: Dict[str, None] = {}
        for name in self._names():
            seen.setdefault(name)
        return iter(seen)

    def __len__(self) -> int:
        return len(set(self._names()))

    def _names(self) -> List[str]:
        core = self._input._core
        return core.easy_keys() if self._path == "easy" else core.entry_names(self._path)

    def __dir__(self) -> List[str]:
        return [*super().__dir__(), *(name for name in self if name.isidentifier())]

    def __eq__(self, other: object) -> bool:
        if isinstance(other, Mapping):
            return dict(self.items()) == dict(other.items())
        return NotImplemented

    def __repr__(self) -> str:
        entries = ", ".join(f"{name}: {value!r}" for name, value in self.items())
        return f"<{self._path} {{{entries}}}>"
