#!/usr/bin/env python3
"""Prints what inputs compute, a line for each SCF and one for each task."""

import sys

import kelp_bdf

for file in sys.argv[1:]:
    calculation = kelp_bdf.read(file).calculation()
    for scf in calculation.scfs:
        parts = [f"{file}: {calculation.systems[scf.system].formula}"]
        if scf.charge is not None:
            parts.append(f"charge {scf.charge}")
        if scf.multiplicity is not None:
            parts.append(f"multiplicity {scf.multiplicity}")
        if scf.reference:
            parts.append(scf.reference)
        print(", ".join(parts))
    for task in calculation.tasks:
        print(f"  line {task.line}: {task.kind}")
