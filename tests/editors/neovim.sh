#!/usr/bin/env bash
# Runs the language server under Neovim's own client.
#
# Usage: neovim.sh KELP-BDF SOURCE-FOLDER CORPUS-FOLDER
set -euo pipefail

if ! command -v nvim >/dev/null; then
    echo "neovim: skipped, there is no nvim"
    exit 0
fi
here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf -- "$scratch"' EXIT
cd -- "$scratch"
export HOME=$scratch XDG_STATE_HOME=$scratch/state XDG_DATA_HOME=$scratch/data
export KELP_BDF=$1 KELP_SOURCE=$2 KELP_CORPUS=$3 KELP_DRIVER=$here/neovim.lua
unset KELP_BDF_INP_SCHEMA_YAML
export LC_ALL=C.UTF-8
# Without a terminal an error would be waited upon, and would not be told by the exit status.
timeout 300 nvim --headless --clean -n -c 'lua
    local ok, problem = pcall(dofile, vim.env.KELP_DRIVER)
    if not ok then
      io.stderr:write(problem .. "\n")
      vim.cmd("cquit 1")
    end' -c 'qa!' 2>&1
