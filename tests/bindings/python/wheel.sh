#!/usr/bin/env bash
# wheel.sh SOURCE BUILD SCRATCH: makes a wheel of a build, installs it where nothing else is, and uses it
# there, without a network.
set -euo pipefail
source_folder=$1 build=$2 scratch=$3
unset PYTHONPATH KELP_BDF_INP_SCHEMA_YAML

rm -rf -- "$scratch"
mkdir -p -- "$scratch/elsewhere"
"$source_folder/scripts/wheel" --from "$build" "$scratch/wheels" >/dev/null
/usr/bin/python3 -m venv --system-site-packages "$scratch/venv"
"$scratch/venv/bin/pip" install -q --no-index --no-deps "$scratch"/wheels/kelp_bdf-*.whl
rm -rf -- "$scratch/wheels"
grep -rqF "Jesse Beder" "$scratch"/venv/lib/python*/site-packages/kelp_bdf-*.dist-info || {
    echo "the wheel has no notices of what it is made of" >&2
    exit 1
}

# Whatever it needs it brings along: the libraries of the system, but for those of C and C++, are hidden
# where we may do that, and are not loaded in any case.
cat >"$scratch/hidden" <<'HIDDEN'
#!/bin/sh
for library in /lib/*/libyaml-cpp.so.* /lib/*/libfmt.so.*; do
    [ ! -e "$library" ] || mount --bind /dev/null "$(readlink -f "$library")"
done
exec "$@"
HIDDEN
hidden=()
for how in "unshare -m" "unshare -rm"; do
    # shellcheck disable=SC2206
    if $how sh "$scratch/hidden" true 2>/dev/null; then
        hidden=($how sh "$scratch/hidden")
        break
    fi
done
[[ ${#hidden[@]} -gt 0 ]] || echo "the libraries of the system cannot be hidden here"

cd -- "$scratch/elsewhere"
cp -- "$source_folder/examples/faulty.inp" .
"${hidden[@]}" "$scratch/venv/bin/python" - "$scratch/venv" <<'PYTHON'
import pathlib
import sys

import kelp_bdf

assert pathlib.Path(kelp_bdf.__file__).is_relative_to(sys.argv[1]), kelp_bdf.__file__
assert len(kelp_bdf.read("faulty.inp").check()) == 5
loaded = {line.split()[-1] for line in open("/proc/self/maps") if "yaml-cpp" in line}
assert loaded and all(path.startswith(sys.argv[1]) for path in loaded), loaded
PYTHON
status=0
"${hidden[@]}" "$scratch/venv/bin/kelp-bdf" check --quiet faulty.inp || status=$?
[[ $status -eq 1 ]]
"$scratch/venv/bin/kelp-bdf" --version | grep -F -- "$scratch/venv"
if grep -rlF --exclude-dir=__pycache__ -- "$build" "$scratch/venv/lib"/python3*/site-packages/kelp_bdf; then
    echo "the folder of the build is named in what is installed" >&2
    exit 1
fi
