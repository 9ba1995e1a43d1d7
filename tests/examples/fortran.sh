#!/bin/sh
# fortran.sh COMPILER SOURCE LIBRARY_FOLDER SCRATCH EXPECTED: builds the example and compares what it
# prints.
set -eu
compiler=$1 source=$2 library=$3 scratch=$4 expected=$5

"$compiler" -std=f2018 -Wall -Werror -J "$scratch" -o "$scratch/kelp_example_fortran" "$source" \
    -L "$library" -lkelp_bdf_inp "-Wl,-rpath,$library"
"$scratch/kelp_example_fortran" examples/water-easy.inp | diff - "$expected"
