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

source "$source/tests/consume.sh"

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
# Who says nothing gets static libraries, as CMake has it.
shared=$(grep -o '^BUILD_SHARED_LIBS:BOOL=ON' "$build/CMakeCache.txt" || true)
consume subproject -Dym_sdp_source="$source" ${shared:+"-D$shared"}
consume_by_pkg_config "$dir/moved"

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
