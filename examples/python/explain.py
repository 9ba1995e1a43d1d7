#!/usr/bin/env python3
"""Tells what keywords and codes mean, as a window beside an input would."""

import sys

import kelp_bdf

schema = kelp_bdf.default_schema()
for name in sys.argv[1:]:
    meanings = schema.explain(name)
    for meaning in meanings:
        print(meaning)
    if not meanings:
        similar = " or ".join(f"'{other}'" for other in schema.similar(name))
        print(f"{name}: unknown; similar: {similar}")
