#!/usr/bin/env bash
# package.sh SOURCE BUILD COMPILER FLAGS: installs the build and uses it as an application does.
set -euo pipefail

source=$1
build=$2
compiler=$3
flags=$4
main=$source/tests/consumer/main.cpp
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT

# A consumer configured with these arguments builds and runs.
consume() {
    local name=$1
    shift
    cmake -S "$source/tests/consumer" -B "$dir/$name" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" \
        -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_CXX_STANDARD=17 "$@"
    cmake --build "$dir/$name"
    "$dir/$name/consumer"
}

# Staged as a packager does it, and then moved away from the prefix that it was configured for.
DESTDIR=$dir/stage cmake --install "$build" >/dev/null
prefix=$(dirname "$(find "$dir/stage" -type d -name include)")
mv "$prefix" "$dir/moved"
find "$dir/moved" -type f -o -type l | sort

if [ -e "$dir/moved/bin/ymsdp" ]; then
    "$dir/moved/bin/ymsdp" --version
fi
# The loader looks for the second library beside the first one, and not where they were built.
find "$dir/moved" -name 'lib*.so' -exec readelf -dW {} + | grep PATH | grep -vF "[\$ORIGIN]" && exit 1
consume installed -DCMAKE_PREFIX_PATH="$dir/moved"
consume subproject -Dym_sdp_source="$source"

# The headers keep to stricter rules than most applications, in whatever standard those are written, with exceptions or
# without; and each header may be the first one.
check() {
    # shellcheck disable=SC2086 # words
    "$compiler" $flags -fsyntax-only -I "$dir/moved/include" -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror "$@"
}
for standard in 17 20 2b; do
    check -std=c++$standard "$main"
    check -std=c++$standard -fno-exceptions "$main"
done
while read -r header; do
    check -std=c++17 -include "$header" -x c++ /dev/null
done < <(find "$dir/moved/include" -name '*.h')

if command -v pkg-config >/dev/null; then
    libdir=$(dirname "$(find "$dir/moved" -name 'libym_sdp.*' -not -name '*.pc' -print -quit)")
    export PKG_CONFIG_PATH=$libdir/pkgconfig
    # shellcheck disable=SC2046,SC2086 # words
    "$compiler" -std=c++17 $flags "$main" -o "$dir/plain" $(pkg-config --cflags --libs ym_sdp)
    LD_LIBRARY_PATH=$libdir "$dir/plain"
fi
