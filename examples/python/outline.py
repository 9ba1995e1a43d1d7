#!/usr/bin/env python3
"""Prints what stands where in an input, as a tree beside an editor would show it."""

import sys

import kelp_bdf

for file in sys.argv[1:]:
    read = kelp_bdf.read(file)
    print(f"{file}: {read.mode} input")
    for item in read.outline():
        if item.kind == "geometry":
            print(f"{item.line}: {item.name}")
        elif item.kind == "module":
            print(f"{item.line}: ${item.name}")
            for entry in item.children:
                print(f"{entry.line}:   {entry.path}")
