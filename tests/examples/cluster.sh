#!/usr/bin/env bash
# cluster.sh EXAMPLES KELP_BDF SCRATCH RECIPE...: a recipe finds in many inputs what one process finds.
set -euo pipefail
examples=$1 scratch=$3
export KELP_BDF=$2 BATCH=7
shift 3
rm -rf -- "$scratch"
mkdir -p -- "$scratch"
list=$scratch/inputs/list.txt
"$examples/cluster/make-inputs" "$scratch/inputs" 100

# tried STATUS COMMAND...: it exits with a status and finds what is expected.
tried() {
    local expected=$1 status=0
    shift
    "$@" >"$scratch/found" 2>"$scratch/errors" || status=$?
    [[ $status -eq $expected ]] || {
        cat "$scratch/errors"
        echo "exit status $status, not $expected"
        exit 1
    }
    diff <(sort "$scratch/expected") <(sort "$scratch/found")
}

"$KELP_BDF" check --jobs 1 --format concise --files-from "$list" >"$scratch/expected" || [[ $? -eq 1 ]]
[[ $(cut -d: -f1 "$scratch/expected" | sort -u | wc -l) -eq 10 ]]
tried 1 "$@" "$list"

# Without a mistake, and with a file that cannot be read.
sed -n '2,10p' "$list" >"$list.fine"
: >"$scratch/expected"
tried 0 "$@" "$list.fine"
echo "$scratch/inputs/none.inp" >>"$list.fine"
tried 2 "$@" "$list.fine"
