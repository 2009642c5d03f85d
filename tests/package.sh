#!/usr/bin/env bash
# package.sh SOURCE BUILD COMPILER FLAGS: installs the build and uses it as an application does.
set -euo pipefail

source=$1
build=$2
compiler=$3
flags=$4
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
consume installed -DCMAKE_PREFIX_PATH="$dir/moved"
# Who says nothing gets static libraries, as CMake has it.
shared=$(grep -o '^BUILD_SHARED_LIBS:BOOL=ON' "$build/CMakeCache.txt" || true)
consume subproject -Dym_sdp_source="$source" ${shared:+"-D$shared"}
consume_by_pkg_config "$dir/moved"
