#!/usr/bin/env python3
"""Prints what stands at each word that is looked for: FILE WORD..."""

import sys

import kelp_bdf

file, *words = sys.argv[1:]
read = kelp_bdf.read(file)
text = read.text
for word in words:
    at = text.index(word)
    line = text.count("\n", 0, at) + 1
    column = at - (text.rfind("\n", 0, at) + 1) + 1
    path = read.path_at(at)
    last = read.line_of(path)
    if not path.startswith("easy."):
        last += len(read.lines(path))
    print(f"{word}: line {line}, column {column}, {path}, lines {read.line_of(path)} to {last}")
