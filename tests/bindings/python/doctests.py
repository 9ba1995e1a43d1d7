"""Runs the examples of the package and of its guide, at the top of the checkout."""

import doctest
import importlib
import sys

FLAGS = doctest.ELLIPSIS | doctest.NORMALIZE_WHITESPACE


def main():
    failed = tried = 0
    for name in ("kelp_bdf", "kelp_bdf._block", "kelp_bdf._input", "kelp_bdf._many",
                 "kelp_bdf._molecule", "kelp_bdf._records", "kelp_bdf._schema"):
        result = doctest.testmod(importlib.import_module(name), optionflags=FLAGS)
        failed, tried = failed + result.failed, tried + result.attempted
    for guide in sys.argv[1:]:
        result = doctest.testfile(guide, module_relative=False, optionflags=FLAGS)
        failed, tried = failed + result.failed, tried + result.attempted
    if tried < 30:
        sys.exit(f"only {tried} examples were found")
    sys.exit(1 if failed else 0)


main()
