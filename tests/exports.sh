#!/usr/bin/env bash
# exports.sh LIBYM_TOVIK LIBYM_SDP: what the built libraries offer to the dynamic linker, and what they ask of it.
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

# The libraries that are needed beside those of the compiler: its C and C++ libraries, and those of its sanitizers.
needed() {
    readelf -dW "$1" | sed -nE 's/.*\(NEEDED\).*\[(.*)\]/\1/p' |
        grep -vE '^(libstdc\+\+|libgcc_s|libm|libc|ld-linux.*|lib(a|t|ub)san)\.so\.[0-9]+$'
}

# What the loader is told, one line for each entry of the dynamic section and for each segment.
headers() {
    readelf -dlW "$1"
}

# An object that is constructed at load time has a start-up function, which the symbol table of the file names.
has_static_constructor() {
    nm "$1" | grep -E '_GLOBAL__sub_I|_static_initialization_and_destruction'
}

# What a library calls for beyond memory, texts and the one warning. C++ and the compiler have names of their own,
# std::list calls abort if lists are joined whose allocators differ, and clang calls bcmp and ceil for others.
foreign() {
    nm -D --undefined-only "$1" | sed -E 's/^.* //; s/@.*//' |
        grep -vE '^(abort|bcmp|ceilf?|mem[a-z]+|strlen|stderr|fprintf|fputs|fputc|fwrite|ym_warning_print|_.*)$|^$' ||
        nm -DC --undefined-only "$1" | grep -E 'stream|filebuf|filesystem|thread|locale'
}

# has LIBRARY PATTERN WHAT, lacks LIBRARY PATTERN WHAT
has() {
    headers "$1" | grep -E "$2" >/dev/null || fail "$1 has no $3"
}
lacks() {
    headers "$1" | grep -E "$2" && fail "$1 has $3"
}

for library in "$tovik" "$sdp"; do
    name=$(basename "$library" | sed -E 's/^lib(.*)\.so.*/\1/')
    diff -u "$lists/exports-$name.txt" <(exported "$library") || fail "$name exports something else than is listed"
    nm "$library" | grep frame_dummy >/dev/null || fail "$name has no symbol table to look at"
    has_static_constructor "$library" && fail "$name has a static constructor"
    foreign "$library" && fail "$name calls for more than it is meant to"

    has "$library" "SONAME.*\[lib$name\.so\.1\]" "soname lib$name.so.1"
    has "$library" '^ *GNU_STACK .* RW +0x' "stack without code"
    lacks "$library" ' RWE +0x' "a segment of code that can be written"
    lacks "$library" 'TEXTREL' "code that the loader has to change"
    has "$library" '^ *GNU_RELRO ' "part that is read-only once it is loaded"
    has "$library" 'BIND_NOW' "order to look its symbols up at once, for that part to be all of its table"
done
[ "$(needed "$tovik")" = "" ] || fail "ym_tovik needs $(needed "$tovik")"
[ "$(needed "$sdp")" = libym_tovik.so.1 ] || fail "ym_sdp needs $(needed "$sdp")"

[ "$failures" -eq 0 ]
