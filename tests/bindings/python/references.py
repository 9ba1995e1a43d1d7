"""Repeats the examples of the package and its guide, and tells of references that are left each time.

Needs an interpreter that counts them (Debian's python3-dbg); run by scripts/check-references.
"""

import contextlib
import doctest
import gc
import importlib
import io
import sys

FLAGS = doctest.ELLIPSIS | doctest.NORMALIZE_WHITESPACE
MODULES = ("kelp_bdf._block", "kelp_bdf._input", "kelp_bdf._many", "kelp_bdf._molecule",
           "kelp_bdf._records", "kelp_bdf._schema", "kelp_bdf")
WARM_UP, ROUNDS = 3, 3


def examples_of(guides):
    """Returns a list of a name and a function for each text with examples."""
    finder, parser = doctest.DocTestFinder(exclude_empty=True), doctest.DocTestParser()
    found = []
    for name in MODULES:
        found += [test for test in finder.find(importlib.import_module(name)) if test.examples]
    for guide in guides:
        with open(guide, encoding="utf-8") as file:
            found.append(parser.get_doctest(file.read(), {}, guide, guide, 0))
    return found


def run(test):
    """Runs examples once, in names of their own, and forgets them."""
    again = doctest.DocTest(test.examples, dict(test.globs), test.name, test.filename, test.lineno,
                            test.docstring)
    with contextlib.redirect_stdout(io.StringIO()) as told:
        failed, _ = doctest.DocTestRunner(verbose=False, optionflags=FLAGS).run(again)
    if failed:
        sys.exit(told.getvalue())


def growth(test):
    """Returns what each round leaves at least: references, and blocks of memory."""
    references, blocks = [], []
    for _ in range(WARM_UP + ROUNDS + 1):
        run(test)
        gc.collect()
        references.append(sys.gettotalrefcount())
        blocks.append(sys.getallocatedblocks())
    return tuple(min(after - before for before, after in zip(counts[WARM_UP:], counts[WARM_UP + 1:]))
                 for counts in (references, blocks))


def leaking():
    """Keeps something each time: what this script must notice."""
    leaking.kept = [*getattr(leaking, "kept", []), object()]


def example(text):
    return doctest.DocTestParser().get_doctest(text, {"leaking": leaking}, text, "", 0)


def main():
    # What is counted with keeps some itself.
    base = growth(example(">>> pass\n"))
    if any(grown <= least for grown, least in zip(growth(example(">>> leaking()\n")), base)):
        sys.exit("references that are left are not noticed")
    leaks, tests = 0, examples_of(sys.argv[1:])
    for test in tests:
        references, blocks = (grown - least for grown, least in zip(growth(test), base))
        # numpy is not compiled for this interpreter: what it takes and gives is not counted right.
        takes_arrays = "olecule" in "".join(item.source for item in test.examples)
        if blocks > 0 or (references > 0 and not takes_arrays):
            print(f"{test.name}: each round leaves {references} references, {blocks} blocks of memory")
            leaks += 1
    print(f"{len(tests)} texts with examples, each run {WARM_UP + ROUNDS + 1} times: {leaks} leak")
    sys.exit(1 if leaks else 0)


main()
