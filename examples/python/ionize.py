#!/usr/bin/env python3
"""Makes an input that of a cation with more SCF iterations, and prints it in the canonical layout."""

import sys

import kelp_bdf

for file in sys.argv[1:]:
    cation = kelp_bdf.read(file)
    cation.edit({"scf.maxiter": 200, "scf.charge": 1, "scf.spinmulti": 2}, charge=1,
                multiplicity=2)
    print(cation.rendered(), end="")
