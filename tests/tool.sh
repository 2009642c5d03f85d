#!/usr/bin/env bash
# tool.sh YMSDP: runs the tool as a user does.
# shellcheck disable=SC2016 # the commands of the rows are evaluated later
set -uo pipefail

YMSDP=$1
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
cd "$dir" || exit
unset NO_COLOR
failures=0

ymsdp() {
    "$YMSDP" "$@"
}

# row STATUS COMMAND OUT [ERR]: the status of a command, and patterns that its two outputs match as a whole, "" if none
# is given. CR is left out of what is compared.
row() {
    local status=$1 command=$2 out=$3 err=${4-} got
    eval "$command" >out.raw 2>err
    got=$?
    tr -d '\r\000' <out.raw >out
    # shellcheck disable=SC2053 # patterns
    if [ $got -ne "$status" ] || [[ $(<out) != $out ]] || [[ $(<err) != $err ]]; then
        echo "$command: status $got instead of $status, or another output; standard output:"
        head -c 2000 out
        echo "standard error:"
        head -c 2000 err
        failures=$((failures + 1))
    fi
}

nl=$'\n'
good=$'v=0\no=a 1 2 IN IP4 192.0.2.7\ns=-\nt=0 0'
media=$'m=audio 9 RTP/AVP 0\na=rtpmap:0 PCMU/8000'
printf '%s\n' "$good" "$media" >good.sdp
printf '%s\n' "$good" "$media" "a=sendrecv" "m=text 9 RTP/AVP 98" >changed.sdp
printf 'INVITE sip:b@example.com SIP/2.0\r\nVia: x\r\n\r\n%s\r\n' "$(<changed.sdp)" >invite.txt
printf 'SIP/2.0 200 OK\r\n\r\n' >empty.txt
printf 'v=0\no=a 1 2 IN IP4 192.0.2.1\ns=\033[31mred\302\233\303\251\0end\na=\377\n' >hostile.sdp
printf 'v=0\nhello\n' >line.sdp
printf 'v=0\n\ns=-\n' >blank.sdp
printf 'v=0\no=a b\ns=-\n' >origin.sdp
printf 's=x\nfoo\033[2J\n' >$'bad\033name.sdp'
printf '\357\273\277v=0\n\n o=a 1 2 IN IP4 192.0.2.1\ns= \nx=1\ntruly\nt=0 0\t\n\n' >dirty.sdp
: >nothing.sdp
{
    echo "$good"
    for ((i = 0; i < 5000; i++)); do echo "a=x-number:$i"; done
} >big.sdp

# Files, arguments, output
row 0 'ymsdp rewrite <good.sdp' "$good$nl$media"
row 0 'ymsdp rewrite - <good.sdp' "$good$nl$media"
row 0 'ymsdp rewrite good.sdp | od -c | head -1' '*v   =   0  \\r  \\n*'
row 0 'ymsdp rewrite --lf good.sdp | cmp - good.sdp' ""
row 2 'ymsdp show none.sdp' "" "ymsdp: none.sdp: No such file*"
row 2 'ymsdp show none.sdp good.sdp' "session of 6*" "ymsdp: none.sdp: *"
row 0 'ymsdp show good.sdp - <changed.sdp' "==> good.sdp <==*of 6*==> <stdin> <==*of 8*"
row 2 'ymsdp rewrite .' "" "ymsdp: .: *"
row 2 'ymsdp rewrite good.sdp >/dev/full' "" "ymsdp: standard output: No space*"
row 2 'ymsdp show good.sdp >/dev/full' "" "ymsdp: standard output: No space*"
row 2 'ymsdp --help >/dev/full' "" "*"
row 0 'ymsdp show --lines big.sdp | head -1' "session"
row 0 'ymsdp edit -e s=x big.sdp | head -1' "v=0"
row 2 'ymsdp' "" "?*"
row 2 'ymsdp twist good.sdp' "" "?*"
row 2 'ymsdp show --fast good.sdp' "" "?*"
row 2 'ymsdp rewrite good.sdp changed.sdp' "" "?*"
row 2 'ymsdp check --severity=all good.sdp' "" "?*"
row 0 'ymsdp --help' "*show*check*rewrite*edit*codecs*clean*hide*"
row 0 'ymsdp --version' "ymsdp 2.0"
row 0 'ymsdp show invite.txt' "session of 8*"
row 1 'ymsdp check invite.txt' "invite.txt:11:1: warning: unknown-media-type: *"
row 2 'ymsdp show empty.txt' "" "ymsdp: empty.txt: a message without*"

# Bytes and colours
row 0 'ymsdp show hostile.sdp' '*\\x1b\[31mred\\xc2\\x9bé\\x00end*'
row 2 $'ymsdp rewrite bad\033name.sdp' "" 'ymsdp: bad\\x1bname.sdp:2: "foo\\x1b\[2J": *'
row 0 'ymsdp show --json hostile.sdp good.sdp | LC_ALL=C grep -c "[^ -~]"; ymsdp show --json hostile.sdp' \
    '0*"s=\\u001b\[31mred\\u009b\\u00e9\\u0000end"*"a=\\ufffd"*'
row 0 'ymsdp show --color=always good.sdp' $'\033\\[1msession\033*'
row 0 'NO_COLOR=1 ymsdp show --color=always good.sdp' $'\033\\[1msession\033*'
row 0 'ymsdp show good.sdp' "session*PCMU/8000*"
if command -v script >/dev/null; then
    export TERM=xterm
    row 0 'script -qec "$YMSDP show good.sdp" /dev/null </dev/null' $'\033\\[1msession\033*'
    row 0 'NO_COLOR=1 script -qec "$YMSDP show good.sdp" /dev/null </dev/null' "session*"
    row 0 'script -qec "$YMSDP --color=never show good.sdp" /dev/null </dev/null' "session*"
    row 0 'script -qec "$YMSDP rewrite hostile.sdp" /dev/null </dev/null' '*s=\\x1b\[31mred*'
fi
if command -v python3 >/dev/null; then
    for command in show check "check --severity=note"; do
        row 0 "{ ymsdp $command --json *.sdp || true; } 2>/dev/null | python3 -m json.tool >/dev/null" ""
    done
fi

# show and check
row 0 'ymsdp show changed.sdp' "*m0 audio 9 RTP/AVP sendrecv*    0   PCMU/8000*m1 text 9*    98  [?]"
row 0 'ymsdp show --lines changed.sdp' "session$nl     1  v=0*m0$nl     5  m=audio*m1$nl     8  m=text*"
row 0 'ymsdp show nothing.sdp' "session of 0 lines"
row 2 'ymsdp show line.sdp' "session of 2 lines" 'ymsdp: line.sdp:2: "hello": *'
row 0 'ymsdp check good.sdp' "good.sdp: 0 errors, 0 warnings, 0 notes"
row 1 'ymsdp check changed.sdp' "*:8:1: warning: *${nl}changed.sdp: 0 errors, 1 warning, 1 note; --severity=note *"
row 0 'ymsdp check --severity=error changed.sdp' "*1 warning, 1 note; --severity=note *"
row 1 'ymsdp check --severity=note changed.sdp' "*:7:1: note: default-direction: *: \"a=sendrecv\"*, 1 note"
row 1 'ymsdp check --hints blank.sdp' "*blank.sdp:2:1: error: blank-line: *    hint: take the line out*"
row 1 'ymsdp check --json changed.sdp' '*"line": 8,*"code": "unknown-media-type"*'

# rewrite
row 0 'ymsdp rewrite changed.sdp' "$good$nl$media"
row 2 'ymsdp rewrite origin.sdp' "" 'ymsdp: origin.sdp:2: "o=a b": *'
row 2 'ymsdp rewrite blank.sdp' "" 'ymsdp: blank.sdp:2: *'

# edit
edits() {
    local status=$1 command="ymsdp edit" out=$2 err=$3
    for e in "${@:4}"; do command+=" -e '$e'"; done
    row "$status" "$command changed.sdp" "$out" "$err"
}
edits 0 "*s=new$nl*" "" s=new
edits 0 "*t=0 0${nl}a=x:1:2$nl*" "" a:x=1:2
edits 0 "*s=-${nl}b=AS:5${nl}t=*" "" b:AS=5
edits 0 "*m=audio 9 RTP/AVP 0${nl}c=IN IP4 192.0.2.9$nl*" "" "m0.c=IN IP4 192.0.2.9"
edits 0 "*a=rtpmap:0 X/1${nl}a=sendrecv$nl*" "" m0.a:rtpmap:0=X/1
edits 0 "*a=sendrecv${nl}a=rtpmap:8 PCMA/8000$nl*" "" "+m0.a=rtpmap:8 PCMA/8000"
edits 0 "*a=rtpmap*${nl}a=sendonly${nl}m=*" "" -m0.a:sendrecv m0.a:sendonly
edits 0 "*a=ptime:9${nl}m=text*98${nl}a=ptime:9" "" "m*.a:ptime=9"
edits 0 "*t=0 0${nl}m=text 9 RTP/AVP 98${nl}m=audio 1 X 2${nl}i=end" "" -m0 "+m=audio 1 X 2" m1.i=end
edits 1 "*t=0 0${nl}m=text*" '*edit "-m1": there is no*' -m0 -m1
edits 1 "*m=audio*" '*no such line*' -m0.a:rtp
for bad in x=1 m=audio 0 m0 m0.t=1 -s=1 s m.a:x s:x=1 m0x=1 m99999999999999999999.c=x $'s=1\ra=x'; do
    edits 2 "" "ymsdp: edit *" "$bad"
done
row 2 'ymsdp edit -e s=x line.sdp' "" "ymsdp: line.sdp:2: *"

# codecs
printf '%s\nm=%s\n' "$good" "audio 9 RTP/AVP 0 63 111 8" >codecs.sdp
printf 'a=%s\n' "rtpmap:111 opus/48000/2" "rtcp-fb:111 nack" "rtpmap:63 RED/48000/2" "fmtp:63 111/111" >>codecs.sdp
printf '%s\n' "m=video 9 RTP/AVP 97 98 96" a=rtpmap:9{6\ VP8,7\ rtx,8\ H264}/90000 "a=fmtp:97 x=1; apt=96" >>codecs.sdp
row 0 'ymsdp codecs --keep OPUS,vp8 codecs.sdp' "*AVP 111${nl}a=rtpmap:111*${nl}a=rtcp-fb*
m=video 9 RTP/AVP 97 96${nl}a=rtpmap:96*${nl}a=rtpmap:97*${nl}a=fmtp:97*"
row 0 'ymsdp codecs --drop opus/48000,96 codecs.sdp' "*AVP 0 8${nl}m=video 9 RTP/AVP 98${nl}a=rtpmap:98*/90000"
row 0 'ymsdp codecs --first PCMA --first VP8 codecs.sdp' "*AVP 8 0 63 111$nl*AVP 96 97 98$nl*"
row 1 'ymsdp codecs --drop opu codecs.sdp' "$(<codecs.sdp)" "*no section has such a format"
row 1 'ymsdp codecs --drop vp8,h264 codecs.sdp' "$(<codecs.sdp)" "*m1 would have no format*"
row 2 'ymsdp codecs codecs.sdp' "" "*is missing"

# clean and hide
row 0 'ymsdp clean dirty.sdp | ymsdp show --lines' $'*\n     2  o=a *\n     3  s=-\n     4  t=0 0' "*order mark
*:5: took out \"x=1\"$nl*:6: took out \"truly\"$nl*in line 2$nl*in 2 lines: 3, 7$nl*in line 4"
row 0 'ymsdp clean dirty.sdp 2>/dev/null | ymsdp clean' "v=0*"
printf '%s\n' v=0 "o=alice 1 2 IN IP4 10.1.2.3" "s=secret" "u=http://alice@example.com:80/lobby" "e=alice" "p=123456" \
    "c=IN IP6 2001:db8:9::9" "k=clear:secret" "t=0 0" "a=x-alice lobby" "a=x-room:lobby" "a=tool:t 1" \
    "m=audio 9 RTP/AVP 0" "a=candidate:secret 1 udp 1 198.51.100.99 9 typ srflx raddr 10.1.2.3 rport 9 ufrag Pwd" \
    "a=ice-pwd:Pwd" "a=fingerprint:sha-256 AB:CD" "a=crypto:1 S inline:kEy==|2^20" "a=ssrc:7 cname:alice@10.1.2.3" \
    "a=msid:- track" "a=rtcp:9 IN IP4 198.51.100.99" "a=control:rtsp://[2001:db8:9::9]:554/lobby" lobby >whose.sdp
row 0 'ymsdp hide whose.sdp' "v=0
o=user1 1 2 IN IP4 10.0.0.1
s=text1
u=http://user1@host1.example:80/text2
e=user1@mail.example
p=+00000000001
c=IN IP6 2001:db8::1
k=clear:000001
t=0 0
a=text3
a=x-room:text4
a=tool:t 1
m=audio 9 RTP/AVP 0
a=candidate:000001 1 udp 1 192.0.2.2 9 typ srflx raddr 10.0.0.1 rport 9 ufrag 002
a=ice-pwd:002
a=fingerprint:sha-256 00:03
a=crypto:1 S inline:004==|2^20
a=ssrc:7 cname:00000000000005
a=msid:- 00006
a=rtcp:9 IN IP4 192.0.2.2
a=control:rtsp://\\[2001:db8::1]:554/text2
text4"
[ "$failures" -eq 0 ]
