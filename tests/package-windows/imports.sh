#!/usr/bin/env bash
# imports.sh FILE...: fails when a DLL or program needs a library that neither Windows nor the
# compiler brings. Among those that must not be needed is a DLL of yaml-cpp.
set -euo pipefail

allowed='^(ADVAPI32|KERNEL32|SHELL32|msvcrt|libgcc_s_seh-1|libstdc\+\+-6|libwinpthread-1)\.dll$'
status=0
for file in "$@"; do
    mapfile -t imports < <("$OBJDUMP" -p "$file" | sed -n 's/^[[:space:]]*DLL Name: //p')
    [[ ${#imports[@]} -gt 0 ]] || { echo "$file imports nothing at all" >&2; exit 1; }
    for library in "${imports[@]}"; do
        if [[ $file == *kelp-bdf.exe && $library == kelp_bdf_inp.dll ]]; then
            continue
        fi
        if ! [[ $library =~ $allowed ]]; then
            echo "$file needs $library" >&2
            status=1
        fi
    done
done
exit "$status"
