# What the scripts share. To be sourced; leaves the shell in the project's directory.

cd "$(dirname "${BASH_SOURCE[0]}")/.."

to_build=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev)
to_test=("${to_build[@]}" googletest libgtest-dev pkg-config)
to_bench=(g++ cmake ninja-build libbenchmark-dev pkg-config valgrind)

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# Installs those of the named Debian packages that are missing, after saying so.
need() {
    local package missing=()
    if ! command -v apt-get >/dev/null; then
        echo "No apt-get here: what these Debian packages hold has to be there already: $*"
        return
    fi
    for package; do
        is_installed "$package" || missing+=("$package")
    done
    if [ ${#missing[@]} -gt 0 ]; then
        echo "Installing the missing packages: ${missing[*]}"
        as_root apt-get update -q
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
    fi
}

# Builds what measures the library, into build/bench. The standard output is left to the figures.
build_bench() {
    cmake --preset release -B build/bench -DYM_SDP_BUILD_BENCH=ON -DYM_SDP_BUILD_TOOL=OFF -DBUILD_TESTING=OFF >&2
    cmake --build build/bench >&2
}
