#!/usr/bin/env python3
"""Names the variants of an input and tells how many findings each has: FILE PATTERN PATH=V,V..."""

import sys

import kelp_bdf

file, pattern, *axes = sys.argv[1:]
values = {path: texts.split(",") for path, _, texts in (axis.partition("=") for axis in axes)}
for name, variant in kelp_bdf.sweep(kelp_bdf.read(file), values, name=pattern):
    print(f"{name}: {len(variant.check())} findings")
