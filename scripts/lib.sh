# shellcheck shell=bash
# What the scripts share. Sourced, not run; sets `root` to the top of the checkout.

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

# The one list of Debian packages: to build the command, to test it, and for the slower checks.
# shellcheck disable=SC2034
build_packages=(g++ cmake ninja-build libyaml-cpp-dev libcli11-dev libfmt-dev nlohmann-json3-dev
    libtomlplusplus-dev)
# shellcheck disable=SC2034
test_packages=(libgtest-dev libgmock-dev librapidcheck-dev python3 python3-yaml
    python3-jsonschema pkg-config)
# shellcheck disable=SC2034
check_packages=(git clang libclang-rt-14-dev clang-format clang-tidy-16 shellcheck doxygen
    libbenchmark-dev dpkg-dev file)

say() {
    printf '%s\n' "$*" >&2
}

die() {
    say "${0##*/}: $*"
    exit 2
}

# Prints those of the named packages that are not installed.
missing_packages() {
    local package installed
    # shellcheck disable=SC2016
    installed=$(dpkg-query -W -f '${Package}=${db:Status-Status}\n' "$@" 2>/dev/null) || true
    for package in "$@"; do
        grep -qxF -- "$package=installed" <<<"$installed" || printf '%s\n' "$package"
    done
}

# Runs a command as root, directly or through sudo without a question.
as_root() {
    if [[ $(id -u) -eq 0 ]]; then
        "$@"
    else
        sudo -n "$@"
    fi
}

can_be_root() {
    [[ $(id -u) -eq 0 ]] || sudo -n true 2>/dev/null
}

# Installs what is missing of the named packages; without a call to apt when nothing is.
need_packages() {
    local missing
    command -v dpkg-query >/dev/null ||
        die "this is no Debian system; install the equivalents of: $*"
    mapfile -t missing < <(missing_packages "$@")
    [[ ${#missing[@]} -gt 0 ]] || return 0
    can_be_root || die "packages are missing and neither root nor sudo can install them; install:
  apt-get install --no-install-recommends ${missing[*]}"
    say "Installing: ${missing[*]}"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q >&2 ||
        die "the package lists could not be refreshed"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends \
        "${missing[@]}" >&2 || die "these packages could not be installed: ${missing[*]}"
}

# Configures a preset unless it is. A folder that was moved along with its checkout is configured
# anew.
configure() {
    local preset=$1 folder=$root/build/$1
    if command -v ccache >/dev/null; then
        # It would pass over whatever is built with precompiled headers.
        local launcher="env;CCACHE_SLOPPINESS=pch_defines,time_macros;ccache"
        export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-$launcher}
    fi
    if ! grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$folder/CMakeCache.txt"; then
        rm -rf -- "$folder/CMakeCache.txt" "$folder/CMakeFiles"
    fi
    if [[ ! -f $folder/CMakeCache.txt || $root/CMakePresets.json -nt $folder/build.ninja ]]; then
        (cd -- "$root" && cmake --preset "$preset") >&2 || die "cannot configure build/$preset"
    fi
}

# Brings the named targets of a preset up to date; says nothing when they are.
build() {
    local folder=$root/build/$1
    local -a targets=("${@:2}")
    configure "$1"
    if [[ $(ninja -C "$folder" -n "${targets[@]}" 2>&1) != *"no work to do."* ]]; then
        ninja -C "$folder" -j "$(nproc)" "${targets[@]}" >&2 || die "cannot build build/$1"
    fi
}
