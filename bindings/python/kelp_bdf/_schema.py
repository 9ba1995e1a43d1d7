"""Vocabularies."""

from __future__ import annotations

import os
from pathlib import Path
from typing import Any, List, Optional, Tuple, Union

from . import _core
from ._records import EntryInfo


class Schema:
    """A vocabulary: which names there are, and what they mean. It never changes.

    >>> from kelp_bdf import Schema
    >>> schema = Schema.default()
    >>> "scf" in schema.modules()
    True
    >>> schema.info("scf.maxiter").type
    'integer'
    """

    def __init__(self, core: _core.Schema, source: Tuple[str, str]) -> None:
        self._core = core
        self._source = source

    @classmethod
    def default(cls) -> "Schema":
        """Returns the schema that comes with the library."""
        return cls(_core.Schema.default(), ("default", ""))

    @classmethod
    def parse(cls, yaml: str) -> "Schema":
        """Makes a schema of a YAML text; ValueError when it is none."""
        try:
            return cls(_core.Schema.parse(yaml), ("parse", yaml))
        except RuntimeError as error:
            raise ValueError(str(error)) from None

    @classmethod
    def read(cls, path: Union[str, "os.PathLike[str]"]) -> "Schema":
        """Reads a schema from a YAML file."""
        return cls.parse(Path(path).read_text(encoding="utf-8", errors="surrogateescape"))

    def modules(self, *, aliases: bool = False) -> List[str]:
        """Returns the names of all modules, canonical ones or all."""
        return self._core.names("modules", "", "", aliases)

    def entries(self, module: str, *, aliases: bool = False) -> List[str]:
        """Returns the names of a module's entries, canonical ones or all; none for an unknown one.

        >>> Schema.default().entries("scf")[:2]
        ['acidhradius', 'acidhradiusforcavenergy']
        """
        return self._core.names("entries", module, "", aliases)

    def nested_entries(self, module: str, entry: str, *, aliases: bool = False) -> List[str]:
        """Returns the names of the entries of a nested block."""
        return self._core.names("nested_entries", module, entry, aliases)

    def easy_keywords(self) -> List[str]:
        """Returns the keywords of the header."""
        return self._core.names("easy_keywords", "", "")

    def methods(self) -> List[str]:
        """Returns the names of the methods."""
        return self._core.names("methods", "", "")

    def functionals(self) -> List[str]:
        """Returns the names of the functionals."""
        return self._core.names("functionals", "", "")

    def basis_sets(self) -> List[str]:
        """Returns the names of the basis sets that are listed."""
        return self._core.names("basis_sets", "", "")

    def info(self, path: str) -> Optional[EntryInfo]:
        """Returns what there is to know of an entry; None for an unknown one.

        >>> Schema.default().info("easy.charge").expected
        'an integer'
        """
        told = self._core.info(path)
        if told is None:
            return None
        name, kind, type_, default, allowed, least, most, repeatable, expected, summary = told
        return EntryInfo(name, kind, type_, default, tuple(allowed), least, most, repeatable,
                         expected, summary)

    def explain(self, name: str, language: str = "en") -> List[str]:
        """Returns what there is to say about a code, a path or a name; `zh` is Chinese."""
        return self._core.explain(name, language)

    def similar(self, name: str) -> List[str]:
        """Returns the names that one may have been meant to be.

        >>> Schema.default().similar("scf.chrage")
        ['scf.charge']
        """
        return self._core.similar(name)

    @property
    def bdf_version(self) -> str:
        """The release of BDF that the vocabulary is that of."""
        return self._core.bdf_version()

    def __repr__(self) -> str:
        return f"<Schema of BDF {self.bdf_version}: {len(self.modules())} modules>"

    def __reduce__(self) -> Any:
        kind, text = self._source
        return (Schema.default, ()) if kind == "default" else (Schema.parse, (text,))


_default_schema: Optional[Schema] = None


def default_schema() -> Schema:
    """Returns the schema that inputs are read with unless another one is named."""
    global _default_schema
    if _default_schema is None:
        _default_schema = Schema.default()
    return _default_schema
