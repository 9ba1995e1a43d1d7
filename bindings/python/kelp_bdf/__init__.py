"""Reads, checks, edits and writes input files of the BDF quantum-chemistry program.

>>> import kelp_bdf
>>> water = kelp_bdf.read("examples/water-mixed.inp")
>>> water.scf.maxiter = 200
>>> [finding.code for finding in water.check()]
[]
"""

from ._core import version as __version__
from ._block import Block
from ._input import Input, parse, read
from ._many import Checked, check_many, sweep
from ._molecule import Molecule
from ._records import (Calculation, EditError, EntryInfo, FileChangedError, Finding, Fix,
                       OutlineItem, Range, Related, Scf, System, Task, TextEdit)
from ._schema import Schema, default_schema

__all__ = [
    "Block", "Calculation", "Checked", "EditError", "EntryInfo", "FileChangedError", "Finding", "Fix",
    "Input", "Molecule", "OutlineItem", "Range", "Related", "Schema", "Scf", "System", "Task",
    "TextEdit", "__version__", "check_many", "default_schema", "parse", "read",
    "sweep",
]
