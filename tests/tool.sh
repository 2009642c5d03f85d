#!/usr/bin/env bash
# tool.sh YMSDP: runs the tool as a user does.
set -uo pipefail

ymsdp=$1
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
cd "$dir"
failures=0

# expect NAME STATUS OUT ERR COMMAND...: the status of a command, and patterns that its two outputs match as a whole.
expect() {
    local name=$1 status=$2 out=$3 err=$4 got
    shift 4
    "$@" >"$dir/out" 2>"$dir/err"
    got=$?
    # shellcheck disable=SC2053 # patterns
    if [ $got -ne "$status" ] || [[ $(<out) != $out ]] || [[ $(<err) != $err ]]; then
        echo "$name: status $got instead of $status, or another output; standard output:"
        head -c 2000 out
        echo "standard error:"
        head -c 2000 err
        failures=$((failures + 1))
    fi
}

# Runs a command with the named file as its standard input.
from() {
    local file=$1
    shift
    "$@" <"$file"
}

to_full_device() {
    "$@" >/dev/full
}

good=$'v=0\r\no=a 1 2 IN IP4 192.0.2.1\r\ns=-\r\nt=0 0\r\n'
media=$'m=audio 9 RTP/AVP 0\r\na=rtpmap:0 PCMU/8000\r\n'
whole=$good${media%$'\n'} # as $(<file) gives it
printf '%s' "$good$media" >good.sdp
printf '%s' "$good${media}a=sendrecv"$'\r\n' >changed.sdp
printf 'v=0\no=a 1 2 IN IP4 192.0.2.1\ns=\033[31mred\302\233\303\251\0end\n' >hostile.sdp
printf 'v=0\nhello\n' >line.sdp
printf 'v=0\n\ns=-\n' >empty-line.sdp
printf 'v=0\no=a b\ns=-\n' >origin.sdp
printf 's=x\nfoo\033[2J\n' >$'bad\033name.sdp'
: >empty.sdp

expect "rewrite gives the text" 0 "$whole" "" "$ymsdp" rewrite good.sdp
expect "rewrite drops lines" 0 "$whole" "" "$ymsdp" rewrite changed.sdp
expect "standard input, no file" 0 "$whole" "" from good.sdp "$ymsdp" rewrite
expect "standard input, -" 0 "$whole" "" from good.sdp "$ymsdp" rewrite -
expect "show" 0 "*session*a=rtpmap:0 PCMU/8000*payload 0*PCMU/8000*nothing" "" "$ymsdp" show good.sdp
expect "show names lost lines" 0 "*gone*7*a=sendrecv" "" "$ymsdp" show changed.sdp
expect "show escapes" 0 '*s=\\x1b\[31mred\\xc2\\x9bé\\x00end*' "" "$ymsdp" show hostile.sdp
expect "an empty text" 0 "*session*" "" "$ymsdp" show empty.sdp
expect "a bad line" 1 "" 'ymsdp: line.sdp:2: "hello" *' "$ymsdp" rewrite line.sdp
expect "a bad line, shown" 1 "" 'ymsdp: line.sdp:2: "hello" *' "$ymsdp" show line.sdp
expect "a bad line, standard input" 1 "" 'ymsdp: standard input:2: *' from line.sdp "$ymsdp" rewrite
expect "an empty line" 1 "" 'ymsdp: empty-line.sdp:2: an empty line *' "$ymsdp" rewrite empty-line.sdp
expect "a bad origin" 1 "" 'ymsdp: origin.sdp:2: "o=a b" *' "$ymsdp" rewrite origin.sdp
expect "a bad origin, shown" 1 "Lines*o=a b*" 'ymsdp: origin.sdp:2: *' "$ymsdp" show origin.sdp
expect "messages are escaped" 1 "" 'ymsdp: bad\\x1bname.sdp:2: "foo\\x1b\[2J" *' "$ymsdp" rewrite $'bad\033name.sdp'
expect "no such file" 2 "" "ymsdp: none.sdp: No such file*" "$ymsdp" show none.sdp
expect "a directory" 2 "" "ymsdp: .: *" "$ymsdp" rewrite .
expect "no place to write" 2 "" "ymsdp: standard output: No space*" to_full_device "$ymsdp" rewrite good.sdp
expect "no place to show" 2 "" "ymsdp: standard output: No space*" to_full_device "$ymsdp" show good.sdp
expect "no place for help" 2 "" "*" to_full_device "$ymsdp" --help
expect "no command" 2 "" "?*" "$ymsdp"
expect "an unknown command" 2 "" "?*" "$ymsdp" twist good.sdp
expect "an unknown option" 2 "" "?*" "$ymsdp" show --fast good.sdp
expect "two files" 2 "" "?*" "$ymsdp" show good.sdp changed.sdp
expect "help" 0 "*show*rewrite*" "" "$ymsdp" --help
expect "version" 0 "ymsdp 2.0" "" "$ymsdp" --version

# A NUL byte in the middle of a line ends its value, not the text.
printf 'v=0\ns=a\0b\nt=1 2\n' >nul.sdp
expect "text behind a NUL" 0 $'*\ns=a\r\nt=1 2\r' "" "$ymsdp" rewrite nul.sdp

[ "$failures" -eq 0 ]
