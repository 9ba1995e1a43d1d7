#!/usr/bin/env bash
# zip.sh CONSUMER: makes the ZIP package, unpacks it into a folder with blanks and Chinese letters in
# its name, builds a program against it and runs that and the command from other folders.
set -euo pipefail

consumer=$1
prefix="$KELP_SCRATCH/用于 BDF 的 tools"
work="$KELP_SCRATCH/work 文件夹"
export KELP_WINEPATH="Z:${prefix//\//\\}\\bin"
unset KELP_BDF_INP_SCHEMA_YAML

die() {
    echo "$*" >&2
    exit 1
}

run() {
    "$KELP_SOURCE/scripts/windows-emulator" "$@" </dev/null
}

make_package() {
    rm -rf -- "$KELP_SCRATCH"
    mkdir -p -- "$KELP_SCRATCH/zip" "$work"
    cpack -G ZIP --config "$KELP_BUILD/CPackConfig.cmake" \
        -D CPACK_PACKAGE_DIRECTORY="$KELP_SCRATCH/zip" >/dev/null
    (cd -- "$KELP_SCRATCH/zip" && cmake -E tar xf ./*.zip)
    mv -- "$KELP_SCRATCH"/zip/kelp-bdf-inp-*/ "$prefix"
}

expect_contents() {
    local file
    for file in bin/{kelp_bdf_inp.dll,kelp-bdf.exe} \
        bin/{libstdc++-6,libgcc_s_seh-1,libwinpthread-1}.dll lib/libkelp_bdf_inp.dll.a \
        include/kelp/input/bdf.hpp include/kelp/input/bdf/schema.hpp \
        lib/cmake/kelp_bdf_inp/kelp_bdf_inp-config.cmake \
        share/kelp/schemas/input/{bdf,bdf-knowledge}.yaml \
        share/doc/kelp_bdf_inp/{LICENSE,THIRD-PARTY.txt,README.md,docs/windows.md}; do
        [[ -f $prefix/$file ]] || die "the package lacks $file"
    done
    python3 "$KELP_SOURCE/tests/docs/links.py" "$prefix" || die "links of the package lead nowhere"
    # Paths of the build would be of no use to anybody, and tell where it was made.
    if grep -rlF -- "$KELP_SOURCE" "$prefix"; then
        die "the files above name the folder of the build"
    fi
}

# The licences of all that is in the package, and of the runtime that lies in it.
expect_notices() {
    local notices="$prefix/share/doc/kelp_bdf_inp/THIRD-PARTY.txt" holder
    for holder in "Jesse Beder" "University of Cincinnati" "Victor Zverovich" "Niels Lohmann" \
        "Mark Gillard" "Free Software Foundation" "mingw-w64 project" "GNU GENERAL PUBLIC LICENSE"; do
        grep -qF -- "$holder" "$notices" || die "the notices do not name: $holder"
    done
    ! grep -F 'No text was found' "$notices" || die "a licence is missing in the notices"
}

# What is there for debugging is most of the compiler's runtime, and of no use to those who run it.
expect_nothing_for_debugging() {
    local file
    for file in "$prefix"/bin/*; do
        ! "$OBJDUMP" -h "$file" | grep -F .debug_info || die "$file holds symbols for debugging"
    done
}

build_consumer() {
    cmake -G Ninja -S "$consumer" -B "$KELP_SCRATCH/consumer" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$KELP_SOURCE/cmake/mingw-w64.cmake" \
        -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
    cmake --build "$KELP_SCRATCH/consumer"
}

# It reads, edits and writes in the current folder, with names that no code page holds.
run_consumer() {
    cat >"$work/Wasser 水.inp" <<'END'
$compass
basis
  cc-pvdz
$end
$scf
rhf
charge
  0
$end
END
    (cd -- "$work" && run "$KELP_SCRATCH/consumer/consumer.exe")
    diff - "$work/结果.inp" <<'END'
$compass
  basis
    cc-pvdz
$end
$scf
  rhf
  charge
    1
  spinmulti
    2
$end
END
    [[ $(ls -A -- "$work") == $'Wasser 水.inp\n结果.inp' ]] || die "files were left: $(ls -A "$work")"
}

run_command() {
    cat >"$work/氦.inp" <<'END'
$compass
basis
  cc-pvdz
geometry
  He 0 0 0
end geometry
$end
$xuanyuan
$end
$scf
rhf
$end
END
    (cd -- "$work" && run "$prefix/bin/kelp-bdf.exe" check "氦.inp") ||
        die "kelp-bdf finds faults in a correct input"
    (cd / && ! run "$prefix/bin/kelp-bdf.exe" check "Z:$work/no such 文.inp" 2>/dev/null) ||
        die "kelp-bdf passes a file that is not there"
}

make_package
expect_contents
expect_notices
expect_nothing_for_debugging
build_consumer
run_consumer
run_command
