# shellcheck shell=bash disable=SC2154
# How an application uses the library. To be sourced; `source`, `dir`, `compiler` and `flags` are the caller's.

# consume NAME CMAKE-ARGUMENT...: a consumer that is configured so builds and runs.
consume() {
    cmake -S "$source/tests/consumer" -B "$dir/$1" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
        -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_CXX_STANDARD=17 "${@:2}"
    cmake --build "$dir/$1"
    "$dir/$1/consumer"
}

# consume_by_pkg_config PREFIX: without CMake, with the copy that is installed there.
consume_by_pkg_config() {
    local libdir options=(--cflags --libs)
    command -v pkg-config >/dev/null || return 0
    libdir=$(dirname "$(find "$1" -name 'libym_sdp.*' -print -quit)")
    [ ! -e "$libdir/libym_sdp.a" ] || options+=(--static)
    # shellcheck disable=SC2046,SC2086 # words
    "$compiler" -std=c++17 $flags "$source/tests/consumer/main.cpp" -o "$dir/plain" \
        $(PKG_CONFIG_PATH=$libdir/pkgconfig pkg-config "${options[@]}" ym_sdpcheck)
    LD_LIBRARY_PATH=$libdir "$dir/plain"
}
