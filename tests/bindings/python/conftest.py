"""What the tests share. They run at the top of the checkout."""

import pathlib

import pytest

import kelp_bdf

EXAMPLES = pathlib.Path("examples")

WATER = """\
#! water.bdf
HF/3-21G charge=1 spinmulti=2

Geometry
 O   0.000000   0.000000   0.117300
 H   0.000000   0.757200  -0.469200
 H   0.000000  -0.757200  -0.469200
End Geometry

$scf
maxiter   # a comment
  60
$end

$tddft
iroot
  3
$end

$tddft
iroot
  5
$end
"""


@pytest.fixture
def water():
    return kelp_bdf.parse(WATER)


@pytest.fixture
def water_file(tmp_path):
    path = tmp_path / "water.inp"
    path.write_text(WATER, encoding="utf-8")
    return path
