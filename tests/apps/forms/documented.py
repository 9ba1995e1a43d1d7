#!/usr/bin/python3
"""Runs what the pages of docs/ show of the command, and compares what it prints.

Usage: documented.py KELP-BDF SOURCE CORPUS

A block ```console has one command behind `$ `, and what that prints. The name kelp-bdf is the
program that was built; commands run in the checkout.
"""

import pathlib
import re
import subprocess
import sys

FOLDER, SOURCE = pathlib.Path(sys.argv[1]).parent, sys.argv[2]


def main():
    count = 0
    for page in sorted(pathlib.Path(SOURCE, "docs").glob("*.md")):
        text = page.read_text(encoding="utf-8")
        for command, shown in re.findall(r"^```console\n\$ ([^\n]*)\n(.*?)^```$", text,
                                         re.MULTILINE | re.DOTALL):
            done = subprocess.run(["sh", "-c", command], cwd=SOURCE, check=False,
                                  stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                  stderr=subprocess.STDOUT,
                                  env={"PATH": f"{FOLDER}:/usr/bin:/bin", "LC_ALL": "C.UTF-8"})
            printed = done.stdout.decode()
            if printed != shown:
                raise SystemExit(f"{page.name}: '{command}' prints\n{printed}\nand not\n{shown}")
            count += 1
    assert count >= 3, f"only {count} commands are shown"
    print(f"{count} commands print what the pages show")


main()
