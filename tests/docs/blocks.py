"""Runs the blocks of Markdown pages as their readers would, each page in a folder of its own.

blocks.py COMMAND PREFIX SCRATCH PAGE...

COMMAND is kelp-bdf, PREFIX an installation, which pages call /where/you/like. What a block is for is
told by its language, or by a comment on the line above it:

    ```console                   lines that begin with '$ ' are run, the others are what they print
    ```sh                        is run, and must succeed
    ```toml  ```yaml             must be right
    <!-- file: NAME -->          the block is written to a file, for those below it
    <!-- file: NAME, then: COMMAND -->   likewise, and the command must succeed
    <!-- not run: REASON -->     the block is left alone

Any other block is an error. With KELP_UPDATE_GOLDEN=1 pages are given what is printed today.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tomllib

import yaml

BLOCK = re.compile(r"(?:^<!-- (?P<comment>[^\n]*) -->\n)?^```(?P<language>\w*)\n(?P<text>.*?)^```$",
                   re.DOTALL | re.MULTILINE)
EXAMPLE_PREFIX = "/where/you/like"


class Page:
    """A page, and the folder that its blocks share."""

    def __init__(self, path, setup, folder):
        self.path = path
        self.text = path.read_text(encoding="utf-8")
        self.setup = setup
        self.folder = folder
        self.faults = []
        self.number = 0

    def fail(self, block, fault):
        line = self.text[:block.start("text")].count("\n")
        self.faults.append(f"{self.path}:{line}: {fault}")

    def run(self, command):
        """The exit status, and all that is printed."""
        done = subprocess.run(["bash", "-c", command.replace(EXAMPLE_PREFIX, self.setup["PREFIX"])],
                              cwd=self.folder, env=self.setup, check=False, text=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT)
        return done.returncode, done.stdout.replace(self.setup["PREFIX"], EXAMPLE_PREFIX)

    def console(self, block):
        shown = block["text"]
        commands = re.findall(r"^\$ ((?:.*\\\n)*.*)\n", shown, re.MULTILINE)
        printed = "".join(f"$ {command}\n{self.run(command)[1]}" for command in commands)
        if not commands:
            self.fail(block, "no line begins with '$ '")
        elif printed != shown:
            self.fail(block, f"this is printed:\n{printed}")
        return printed

    def write(self, block, name, command):
        (self.folder / name).write_text(block["text"], encoding="utf-8")
        status, printed = self.run(command) if command else (0, "")
        if status != 0:
            self.fail(block, f"'{command}' ends with {status}:\n{printed}")

    def check(self, block):
        """Does what a block is for; returns the text that it should have."""
        self.number += 1
        text, comment = block["text"], block["comment"] or ""
        if written := re.fullmatch(r"file: ([^\s,]+)(?:, then: (.*))?", comment):
            self.write(block, *written.groups())
        elif comment.startswith("not run: "):
            return text
        elif block["language"] == "console":
            return self.console(block)
        elif block["language"] == "sh":
            status, printed = self.run("set -e\n" + text)
            if status != 0:
                self.fail(block, f"this ends with {status}:\n{printed}")
        elif block["language"] in ("toml", "yaml"):
            {"toml": tomllib.loads, "yaml": yaml.safe_load}[block["language"]](text)
        else:
            self.fail(block, "nothing is said of how this block is tested")
        return text

    def checked(self):
        """The page with what its commands print today."""
        begin, parts = 0, []
        for block in BLOCK.finditer(self.text):
            parts += [self.text[begin:block.start("text")], self.check(block)]
            begin = block.end("text")
        return "".join(parts) + self.text[begin:]


def folder_of(scratch, page, command):
    """A folder like the top of the checkout, where scripts/run runs the command that there is."""
    folder = scratch / re.sub(r"\W+", "-", str(page))
    (folder / "scripts").mkdir(parents=True)
    shutil.copytree("examples", folder / "examples")
    run = folder / "scripts" / "run"
    run.write_text(f'#!/bin/sh\nexec "{command}" "$@"\n')
    run.chmod(0o755)
    return folder


def main():
    command, prefix, scratch = (pathlib.Path(argument) for argument in sys.argv[1:4])
    shutil.rmtree(scratch, ignore_errors=True)
    scratch.mkdir(parents=True)
    # The folder of the installation has a blank in its name.
    (scratch / "prefix").symlink_to(prefix)
    setup = {"PATH": f"{command.parent}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8",
             "HOME": str(scratch), "PREFIX": str(scratch / "prefix"),
             "CXX": os.environ.get("CXX", "g++")}
    faults, blocks = [], 0
    for path in map(pathlib.Path, sys.argv[4:]):
        page = Page(path, setup, folder_of(scratch, path, command))
        text = page.checked()
        faults += page.faults
        blocks += page.number
        if os.environ.get("KELP_UPDATE_GOLDEN") and text != page.text:
            path.write_text(text, encoding="utf-8")
    for fault in faults:
        print(fault)
    print(f"{blocks} blocks")
    return 1 if faults or blocks == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
