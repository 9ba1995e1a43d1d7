#!/usr/bin/env python3
"""Prints an input with another charge and one value changed, and nothing else: FILE PATH=VALUE"""

import sys

import kelp_bdf

file, assignment = sys.argv[1:]
path, value = assignment.split("=", 1)
changed = kelp_bdf.read(file)
changed.edit({path: value}, charge=1)
print(changed, end="")
