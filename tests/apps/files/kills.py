#!/usr/bin/python3
"""Kills the command at random moments while it changes a file: the file holds its old or its new text
as a whole, nothing lies beside it, and both outcomes were seen.

Usage: kills.py KELP_BDF COUNT
"""

import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time

# Large enough for a kill to come amid the writing.
FILLING = "# a line of text that stays as it is\n" * 5_000


def text_with(charge):
    return f"{FILLING}$scf\ncharge\n {charge}\n$end\n"


def how_long(command, file):
    begin = time.monotonic()
    subprocess.run([command, "set", "-i", str(file), "scf.charge=1"], check=True)
    return time.monotonic() - begin


def main():
    command, count = sys.argv[1], int(sys.argv[2])
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "a.inp"
        file.write_text(text_with(0), encoding="utf-8")
        longest = 1.2 * how_long(command, file)
        charge = 1
        kept = changed = left = 0
        for i in range(count):
            wanted = i % 90 + 2
            process = subprocess.Popen([command, "set", "-i", str(file), f"scf.charge={wanted}"])
            time.sleep(random.uniform(0, longest))
            process.kill()
            process.wait()
            text = file.read_text(encoding="utf-8")
            if text == text_with(wanted):
                changed += wanted != charge
                charge = wanted
            elif text == text_with(charge):
                kept += 1
            else:
                sys.exit(f"after kill {i} the file holds neither text: {len(text)} bytes")
            # Between the moment when the new file gets a name and that when it replaces the old one
            # a kill leaves it behind; nothing can be done about that, and it is rare.
            for name in set(os.listdir(folder)) - {"a.inp"}:
                os.unlink(os.path.join(folder, name))
                left += 1
            if left > max(1, count // 50):
                sys.exit(f"after kill {i}, {left} files were left behind")
        print(f"{count} kills: {kept} before the change, {changed} behind it, {left} files left")
        return 0 if kept and changed else 1


if __name__ == "__main__":
    sys.exit(main())
