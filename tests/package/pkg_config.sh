#!/bin/sh
# pkg_config.sh COMPILER SOURCE SCRATCH PREFIX: builds a program with what pkg-config says, runs it.
set -eu
compiler=$1 source=$2 scratch=$3 prefix=$4

PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name kelp_bdf_inp.pc)")
export PKG_CONFIG_PATH
pkg-config --print-errors --exists 'kelp_bdf_inp >= 0.1'

# Blanks in a path come escaped for the shell.
schema=$(pkg-config --variable=schema kelp_bdf_inp)
eval "test -f $schema"
flags=$(pkg-config --cflags --libs kelp_bdf_inp)
eval "'$compiler' -std=c++20 '$source' -o '$scratch/with_pkg_config' $flags"
LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH") "$scratch/with_pkg_config" "$prefix"
