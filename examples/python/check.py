#!/usr/bin/env python3
"""Prints what is wrong with each input, a line for each finding."""

import sys

import kelp_bdf

for file in sys.argv[1:]:
    for finding in kelp_bdf.read(file).check():
        print(finding)
