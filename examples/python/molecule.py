#!/usr/bin/env python3
"""Prints the molecule of each input as XYZ, with its formula and charge for a comment."""

import sys

import kelp_bdf

for file in sys.argv[1:]:
    molecule = kelp_bdf.read(file).molecule
    comment = molecule.formula
    if molecule.charge is not None:
        comment += f", charge {molecule.charge}"
    print(molecule.to_xyz(comment), end="")
