#!/usr/bin/env bash
# What conda runs to build the package: in the sources, with PREFIX and CMAKE_ARGS in the environment.
set -euo pipefail

# CMAKE_ARGS is a list of words.
# shellcheck disable=SC2086
cmake -G Ninja -S . -B build-conda ${CMAKE_ARGS-} \
    -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$PREFIX" \
    -DCMAKE_INSTALL_LIBDIR=lib \
    -DBUILD_TESTING=OFF
cmake --build build-conda --parallel "${CPU_COUNT-2}"
cmake --install build-conda
