#!/usr/bin/env python3
"""Prints the entries of a module that begin with what was typed: MODULE LETTERS"""

import sys

import kelp_bdf

module, letters = sys.argv[1:]
for entry in kelp_bdf.default_schema().entries(module, aliases=True):
    if entry.startswith(letters):
        print(entry)
