#!/usr/bin/env bash
# Runs the language server under the client of Emacs, eglot.
#
# Usage: emacs.sh KELP-BDF SOURCE-FOLDER
set -euo pipefail

if ! command -v emacs >/dev/null; then
    echo "emacs: skipped, there is no emacs"
    exit 0
fi
here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf -- "$scratch"' EXIT
cd -- "$scratch"
export HOME=$scratch KELP_BDF=$1 KELP_SOURCE=$2 LC_ALL=C.UTF-8
unset KELP_BDF_INP_SCHEMA_YAML
# As it starts for people, so that Debian's packages are found; no file of theirs is read.
timeout 120 emacs --batch --no-init-file --load "$here/emacs.el" 2>&1
