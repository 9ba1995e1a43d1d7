"""Values: what a user sees of the lines of an entry, and the lines that write it."""

from __future__ import annotations

from typing import Any, List, Optional

from ._records import EntryInfo

Value = Any  # a number, a text, a tuple of them, a list of lines, True, or a block


def _number(text: str, kind: str) -> Value:
    """A field as its type has it; the text itself where it does not."""
    try:
        if kind == "integer":
            return int(text)
        if kind in ("float", "number"):
            plain = text.lower().replace("d", "e")
            return int(plain) if kind == "number" and plain.lstrip("+-").isdigit() else float(plain)
    except ValueError:
        pass
    return text


def lines_of(value: Value) -> List[str]:
    """Returns the lines that write a value."""
    if value is True or value is None:
        return []
    if value is False:
        raise TypeError("False is no value; take a keyword out with del")
    if isinstance(value, str):
        return value.splitlines()
    if isinstance(value, float):
        return [repr(value)]
    if isinstance(value, tuple):
        return [" ".join(line for field in value for line in lines_of(field))]
    if isinstance(value, (list, set)) or hasattr(value, "__iter__"):
        return [line for item in value for line in lines_of(item)]
    return [str(value)]


def value_of(lines: List[str], info: Optional[EntryInfo]) -> Value:
    """Returns what lines say, as a type that the schema has for their entry."""
    if info is None:
        return lines if len(lines) > 1 else lines[0] if lines else True
    if info.kind == "flag" or not lines:
        return True
    if info.kind == "scalar":
        return _number(lines[0], info.type)
    if info.kind == "tuple":
        return tuple(_number(field, info.type) for field in lines[0].replace(",", " ").split())
    return lines
