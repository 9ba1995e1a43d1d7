"""Packs what the component `python` of an installation holds; scripts/wheel calls it."""

import pathlib
import re

from setuptools import setup
from setuptools.dist import Distribution


class WithModule(Distribution):
    """A package for one platform: its module was compiled."""

    def has_ext_modules(self):
        return True


package = pathlib.Path(__file__).parent / "kelp_bdf"
library = next(package.glob("lib*/**/libkelp_bdf_inp.so.*.*.*"), None)
version = re.sub(r"^.*\.so\.", "", library.name) if library else "0"

setup(
    name="kelp-bdf",
    version=version,
    description="Reads, checks, edits and writes input files of the BDF quantum-chemistry program",
    license="Apache-2.0",
    license_files=["LICENSE", "THIRD-PARTY.txt"],
    packages=["kelp_bdf"],
    package_data={"kelp_bdf": ["*.so", "lib*/**", "*.pyi", "py.typed", "bin/*", "share/kelp/schemas/input/*",
                               "share/licenses/*"]},
    python_requires=">=3.9",
    install_requires=["numpy"],
    extras_require={"ase": ["ase"]},
    entry_points={"console_scripts": ["kelp-bdf = kelp_bdf.__main__:main"]},
    distclass=WithModule,
    zip_safe=False,
)
