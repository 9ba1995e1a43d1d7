#!/usr/bin/env python3
"""Holds calls between the rooms of the library to the arrows of its picture.

Includes alone do not tell: a function can be called through a header of a room further down. What an
object file needs and another one defines is a call from the one's room to the other's.

Usage: calls.py includes_test.cpp NM OBJECT...
"""

import collections
import re
import subprocess
import sys


def rooms_of(source):
    """Reads the table of rooms that the test of includes holds: what lies right below each."""
    text = open(source, encoding="utf-8").read()
    begin = text.index("& rooms() {")
    table = text[begin : text.index("return all;", begin)]
    rows = re.findall(r'\{"(\w+)",\s*\{([^}]*)\},\s*\{([^}]*)\}\}', table)
    return {name: re.findall(r'"(\w+)"', below) for name, _, below in rows}


def everything_below(rooms, name):
    found = {name}
    for below in rooms[name]:
        found |= everything_below(rooms, below)
    return found


def symbols(nm, objects, option):
    """Returns for each symbol the objects that have it."""
    output = subprocess.run([nm, "-A", option, *objects], check=True, capture_output=True, text=True)
    found = collections.defaultdict(set)
    for line in output.stdout.splitlines():
        path, rest = line.split(":", 1)
        kind, symbol = rest.split()[-2:]
        # Inline functions and tables of types are in every object that uses them.
        if kind in "TDBRU" and "kelp" in symbol:
            found[symbol].add(path)
    return found


def main():
    source, nm, *objects = sys.argv[1:]
    rooms = rooms_of(source)
    if len(rooms) < 10:
        sys.exit("the table of rooms cannot be read")
    objects = [path for path in objects if path.endswith((".o", ".obj"))]
    room_of = {path: re.search(r"\.dir/(?:\./)?(?:(\w+)/)?\w+\.cpp", path).group(1) for path in objects}
    defined = symbols(nm, objects, "--defined-only")
    problems = set()
    calls = 0
    for symbol, users in symbols(nm, objects, "--undefined-only").items():
        for owner in {room_of[path] for path in defined.get(symbol, ())}:
            for user in {room_of[path] for path in users}:
                calls += 1
                if user in rooms and owner in rooms and owner not in everything_below(rooms, user):
                    problems.add(f"{user} calls {owner}: {symbol}")
    if calls < 100:
        sys.exit(f"only {calls} calls between objects were found; is this a build with objects?")
    if problems:
        sys.exit("\n".join(sorted(problems)))
    print(f"{calls} calls between objects point downwards")


main()
