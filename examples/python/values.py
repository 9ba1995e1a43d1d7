#!/usr/bin/env python3
"""Prints the value at a path of an input, and the line that it begins on: PATH FILE"""

import sys

import kelp_bdf

path, file = sys.argv[1:]
read = kelp_bdf.read(file)
try:
    lines = read.lines(path)
except KeyError as error:
    sys.exit(error.args[0])
print(f"{path.lower()}, line {read.line_of(path)}")
for line in lines:
    print(f"  {line}")
