"""Follows the links of all Markdown pages of some files and folders, to files and to headings.

links.py FILE_OR_FOLDER...

Status 1: links lead nowhere, and are printed.
"""

import pathlib
import re
import sys

LINK = re.compile(r"\[(?:[^\]\n]|\[[^\]]*\])*\]\(([^)\s]+)\)")
FENCED = re.compile(r"^( *)(`{3,})[^`\n]*\n.*?^\1\2[ \t]*$", re.DOTALL | re.MULTILINE)


def pages_of(arguments):
    for argument in map(pathlib.Path, arguments):
        yield from [argument] if argument.is_file() else sorted(argument.rglob("*.md"))


def anchors_of(page):
    """The names that a forge gives to the headings of a page."""
    text = FENCED.sub("", page.read_text(encoding="utf-8"))
    titles = re.findall(r"^#+ +(.*?) *$", text, re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-") for title in titles}


def fault_of(page, target):
    """What is wrong with a link, or nothing."""
    if re.match(r"[a-z]+:", target):
        return None
    path, _, anchor = target.partition("#")
    there = (page.parent / path) if path else page
    if not there.exists():
        return "leads nowhere"
    if anchor and there.suffix == ".md" and anchor not in anchors_of(there):
        return "names no heading"
    return None


def main():
    pages = list(pages_of(sys.argv[1:]))
    links = [(page, target) for page in pages
             for target in LINK.findall(FENCED.sub("", page.read_text(encoding="utf-8")))]
    faults = [(page, target, fault) for page, target in links if (fault := fault_of(page, target))]
    for page, target, fault in faults:
        print(f"{page}: the link to {target} {fault}")
    if not pages or not links:
        sys.exit("there are no pages with links")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
