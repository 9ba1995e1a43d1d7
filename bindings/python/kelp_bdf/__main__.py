"""The command kelp-bdf, as the wheel brings it along: `python -m kelp_bdf check FILE`."""

import os
import pathlib
import sys


def main() -> None:
    """Becomes the command, with the arguments of this process."""
    command = pathlib.Path(__file__).parent / "bin" / "kelp-bdf"
    if not command.exists():
        sys.exit("kelp_bdf: this installation has no command kelp-bdf")
    os.execv(command, [str(command), *sys.argv[1:]])


if __name__ == "__main__":
    main()
