"""Many inputs: variants of one, and checks of all."""

from __future__ import annotations

import collections
import os
from concurrent.futures import Future, ThreadPoolExecutor
from dataclasses import dataclass
from typing import Any, Deque, Dict, Iterable, Iterator, List, Mapping, Optional, Tuple

from . import _core
from ._input import Input, PathLike, read
from ._records import Finding
from ._schema import Schema
from ._values import Value, lines_of


def sweep(given: Input, axes: Mapping[str, Iterable[Value]], *,
          name: str) -> Iterator[Tuple[str, Input]]:
    """Makes an input for each combination of values, the last path changing fastest.

    `name` is a pattern for the names of their files: `{dft}` is the value at `scf.dft`, and so is
    `{scf.dft}`; `{#}` is a number. The names are handed out with the inputs; nothing is written. Two
    combinations that would have one name are a ValueError, before any input is made, and so are
    names that lead out of the folder; a value that the vocabulary does not take is an EditError. The
    command `kelp-bdf sweep` does the same with files.

    >>> import kelp_bdf
    >>> water = kelp_bdf.read("examples/water-easy.inp")
    >>> axes = {"easy.functional": ["pbe0", "b3lyp"], "easy.basis": ["def2-svp", "def2-tzvp"]}
    >>> for name, variant in kelp_bdf.sweep(water, axes, name="{functional}-{basis}.inp"):
    ...     print(name, variant.text.splitlines()[1].split()[0])
    pbe0-def2-svp.inp pbe0/def2-SVP
    pbe0-def2-tzvp.inp pbe0/def2-tzvp
    b3lyp-def2-svp.inp B3LYP/def2-SVP
    b3lyp-def2-tzvp.inp B3LYP/def2-tzvp
    """
    lists = {path: list(values) for path, values in axes.items()}
    lines = [(path, [lines_of(value) for value in values]) for path, values in lists.items()]
    return _variants(given, lists, _core.plan_sweep(lines, name, given.schema._core))


def _variants(given: Input, lists: Mapping[str, List[Value]],
              plan: List[Tuple[str, List[int]]]) -> Iterator[Tuple[str, Input]]:
    for name, chosen in plan:
        variant = given.copy()
        variant.edit({path: values[index] for (path, values), index in zip(lists.items(), chosen)})
        variant.path = name
        yield name, variant


@dataclass(frozen=True)
class Checked:
    """What a check of one file came to: its findings, or why it could not be read."""

    path: str
    findings: Tuple[Finding, ...] = ()
    error: Optional[str] = None

    @property
    def is_fine(self) -> bool:
        """Whether the file was read and has no error."""
        return self.error is None and not any(finding.is_error for finding in self.findings)


def _checked(path: str, schema: Optional[Schema], options: Dict[str, Any]) -> Checked:
    try:
        return Checked(path, tuple(read(path, schema=schema).check(**options)))
    except OSError as error:
        return Checked(path, error=str(error))


def check_many(paths: Iterable[PathLike], *, jobs: Optional[int] = None,
               schema: Optional[Schema] = None, **options: Any) -> Iterator[Checked]:
    """Checks files and hands the outcomes out one by one, in the order of the paths.

    Each path is handed out once, whether it can be read or not. As many threads as there are
    processors work on them, or `jobs`; the paths are taken as they are needed, so that there may be
    more of them than fit into memory. Options are those of `Input.check`.

    >>> import kelp_bdf
    >>> files = ["examples/water-easy.inp", "examples/faulty.inp", "examples/none.inp"]
    >>> for checked in kelp_bdf.check_many(files):
    ...     print(checked.path, checked.is_fine, len(checked.findings))
    examples/water-easy.inp True 0
    examples/faulty.inp False 5
    examples/none.inp False 0
    """
    number = jobs or os.cpu_count() or 1
    with ThreadPoolExecutor(number) as pool:
        waiting: Deque["Future[Checked]"] = collections.deque()
        for path in paths:
            waiting.append(pool.submit(_checked, os.fspath(path), schema, options))
            if len(waiting) >= 16 * number:
                yield waiting.popleft().result()
        while waiting:
            yield waiting.popleft().result()
