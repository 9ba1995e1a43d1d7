# shellcheck shell=bash
# What the scripts share. Sourced, not run; sets `root` to the top of the checkout.

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

# The one list of Debian packages: to build the command, to test it, and for the slower checks.
# shellcheck disable=SC2034
build_packages=(g++ cmake ninja-build libyaml-cpp-dev libcli11-dev libfmt-dev nlohmann-json3-dev
    libtomlplusplus-dev)
# shellcheck disable=SC2034
test_packages=(libgtest-dev libgmock-dev librapidcheck-dev python3 python3-yaml
    python3-jsonschema pkg-config pybind11-dev python3-dev python3-numpy python3-pytest python3-ase)
# shellcheck disable=SC2034
check_packages=(git clang libclang-rt-14-dev clang-format clang-tidy-16 shellcheck doxygen
    dpkg-dev file gfortran mypy python3-setuptools python3-wheel python3-pip python3-venv parallel
    patchelf)

# Editors, under whose clients the language server is tested; without them those tests skip.
# shellcheck disable=SC2034
editor_packages=(neovim emacs-nox elpa-eglot)

# To make packages: what tells which libraries a program loads, and the packagers.
# shellcheck disable=SC2034
package_packages=(dpkg-dev file rpm gzip python3)

# For the pages of the guide and the reference.
# shellcheck disable=SC2034
guide_packages=(git mkdocs doxygen)

say() {
    printf '%s\n' "$*" >&2
}

# Prints the comment that a script begins with, when that is all that was asked for.
help_if_asked() {
    case ${1-} in
    -h | --help)
        sed -n '2,/^set/s/^# \{0,1\}//p' "$0"
        exit 0
        ;;
    esac
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

# Tells whether somebody is there to be asked for a password.
can_ask() {
    [[ -t 0 && -t 2 ]]
}

# Runs a command as root, directly or through sudo, which asks for a password where somebody is there.
as_root() {
    if [[ $(id -u) -eq 0 ]]; then
        "$@"
    elif can_ask; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

can_be_root() {
    [[ $(id -u) -eq 0 ]] || sudo -n true 2>/dev/null || { can_ask && sudo -v; }
}

# logged LOG COMMAND...: runs a command with all its output in a file; shows the end of it when the
# command fails.
logged() {
    local log=$1
    shift
    mkdir -p "$(dirname -- "$log")"
    "$@" >"$log" 2>&1 </dev/null && return
    # A compiler's errors may be far from the end.
    grep -aE '(^FAILED|error)' -- "$log" | head -n 20 >&2 || true
    tail -n 20 -- "$log" >&2
    say "all output is in $log"
    return 1
}

# Installs what is missing of the named packages; without a call to apt when nothing is.
need_packages() {
    local missing
    command -v dpkg-query >/dev/null ||
        die "this is no Debian system; install the equivalents of: $*"
    mapfile -t missing < <(missing_packages "$@")
    [[ ${#missing[@]} -gt 0 ]] || return 0
    can_be_root || die "packages are missing and neither root nor sudo can install them; as root run:
  apt-get update && apt-get install --no-install-recommends ${missing[*]}"
    say "Installing: ${missing[*]}"
    logged "$root/build/apt-update.log" \
        as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q ||
        die "the package lists could not be refreshed"
    logged "$root/build/apt-install.log" \
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q \
        --no-install-recommends "${missing[@]}" ||
        die "these packages could not be installed: ${missing[*]}"
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
        say "Configuring build/$preset"
        (cd -- "$root" && logged "$folder/configure.log" cmake --preset "$preset") ||
            die "cannot configure build/$preset"
    fi
}

# Brings the named targets of a preset up to date; says nothing when they are.
build() {
    local folder=$root/build/$1 begin=$SECONDS
    local -a targets=("${@:2}")
    configure "$1"
    if [[ $(ninja -C "$folder" -n "${targets[@]}" 2>&1) != *"no work to do."* ]]; then
        say "Building build/$1, which takes some minutes the first time; the output goes to" \
            "build/$1/build.log"
        logged "$folder/build.log" ninja -C "$folder" -j "$(nproc)" "${targets[@]}" ||
            die "cannot build build/$1"
        say "Built build/$1 in $((SECONDS - begin)) s"
    fi
}
