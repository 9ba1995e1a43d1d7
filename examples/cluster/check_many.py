#!/usr/bin/env python3
"""Checks the inputs that a list names, a line each, with the threads of one process.

    check_many.py LIST
"""

import pathlib
import sys

import kelp_bdf

status = 0
paths = pathlib.Path(sys.argv[1]).read_text().splitlines()
for checked in kelp_bdf.check_many(paths):
    for finding in checked.findings:
        print(finding)
    if checked.error:
        print(checked.error, file=sys.stderr)
        status = 2
    elif not checked.is_fine:
        status = max(status, 1)
sys.exit(status)
