# Sourced by the scripts at the root and here: installs Debian packages that are missing, and configures presets.

build_packages=(g++ cmake ninja-build ccache nlohmann-json3-dev libcli11-dev
    qt6-base-dev qt6-tools-dev libqt6opengl6-dev fonts-dejavu-core)
test_packages=(libgtest-dev libgmock-dev pkgconf
    python3 python3-pytest python3-jsonschema python3-build python3-setuptools python3-wheel python3-venv mypy)
clang_packages=(clang libclang-rt-dev)
benchmark_packages=(libbenchmark-dev libpugixml-dev)

# need_packages NAME...   At once, without a call to apt, when all are there.
need_packages() {
    local missing=()
    if ! command -v dpkg-query >/dev/null; then
        echo "Not a Debian system: make sure that these are installed: $*" >&2
        return 0
    fi
    for package in "$@"; do
        [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || missing+=("$package")
    done
    [[ ${#missing[@]} -eq 0 ]] && return 0

    local as_root=()
    [[ $(id -u) -eq 0 ]] || as_root=(sudo)
    local install=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends)
    echo "Installing ${missing[*]}"
    # The package lists may be missing or out of date; they are fetched only then.
    "${install[@]}" "${missing[@]}" >/dev/null 2>&1 && return 0
    "${as_root[@]}" apt-get update -qq
    "${install[@]}" "${missing[@]}" >/dev/null
}

# need_preset PRESET   Installs what the preset needs, and configures it when that is still to be done.
need_preset() {
    local packages=("${build_packages[@]}")
    case $1 in
    release) ;;
    fuzz) packages+=("${clang_packages[@]}") ;;
    clang) packages+=("${test_packages[@]}" "${clang_packages[@]}") ;;
    *) packages+=("${test_packages[@]}") ;;
    esac
    need_packages "${packages[@]}"
    [[ build/$1/build.ninja -nt CMakePresets.json ]] || cmake --preset "$1" >/dev/null
}
