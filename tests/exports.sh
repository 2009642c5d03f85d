#!/usr/bin/env bash
# exports.sh LIBYM_TOVIK LIBYM_SDP: what the built libraries offer to the dynamic linker.
set -uo pipefail

tovik=$1
sdp=$2
lists=$(dirname "$0")
failures=0

fail() {
    echo "$1"
    failures=$((failures + 1))
}

# Constructors and destructors have several symbols of one name.
exported() {
    nm -DC --defined-only "$1" | sed -E 's/^[0-9a-f]+ . //' | LC_ALL=C sort -u
}

dynamic() {
    readelf -dW "$1" | grep -F "$2" >/dev/null
}

# An object that is constructed at load time has a start-up function, which the symbol table of the file names.
has_static_constructor() {
    nm "$1" | grep -E '_GLOBAL__sub_I|_static_initialization_and_destruction'
}

# What a library calls for beyond memory, texts and the one warning. C++ and the compiler have names of their own, and
# std::list calls abort if lists are joined whose allocators differ.
foreign() {
    nm -D --undefined-only "$1" | sed -E 's/^.* //; s/@.*//' |
        grep -vE '^(abort|mem[a-z]+|strlen|stderr|fprintf|fputs|fputc|fwrite|ym_warning_print|_.*)$|^$' ||
        nm -DC --undefined-only "$1" | grep -E 'stream|filebuf|filesystem|thread|locale'
}

for library in "$tovik" "$sdp"; do
    name=$(basename "$library" | sed -E 's/^lib(.*)\.so.*/\1/')
    diff -u "$lists/exports-$name.txt" <(exported "$library") || fail "$name exports something else than is listed"
    dynamic "$library" "soname: [lib$name.so.1]" || fail "$name has another soname"
    nm "$library" | grep frame_dummy >/dev/null || fail "$name has no symbol table to look at"
    has_static_constructor "$library" && fail "$name has a static constructor"
    foreign "$library" && fail "$name calls for more than it is meant to"
done
dynamic "$sdp" "Shared library: [libym_tovik.so.1]" || fail "ym_sdp does not need ym_tovik"

[ "$failures" -eq 0 ]
