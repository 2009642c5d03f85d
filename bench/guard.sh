#!/usr/bin/env bash
# guard.sh memory       PROGRAM [--record]   allocations and peak bytes against the record
# guard.sh instructions PROGRAM [--record]   instructions against the record
# guard.sh growth       PROGRAM              hostile texts: four times the size, about four times the instructions
#
# Keeps the library from becoming slower unseen. No clock takes part, so that a busy machine changes nothing.
set -euo pipefail

kind=$1
program=$2
action=${3:-check}
record=$(dirname "$0")/guard.$kind.txt

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# text, operation, allocations, peak bytes
memory() {
    "$program" ordinary | awk '$2 == "parse-write" || $2 == "lines-parse-write"'
}

# text, operation, instructions. Callgrind writes a file for each, and numbers them.
instructions() {
    valgrind --quiet --tool=callgrind --collect-atstart=no --callgrind-out-file="$scratch/out" "$program" "$1"
    find "$scratch" -name 'out.*' | sort -V | xargs awk '
        /^desc: Trigger: Client Request:/ { name = $5 " " $6 }
        /^totals:/ && name { print name, $2; name = "" }'
}

# Reads the record and the figures, whose columns have the names behind the slack. A figure may rise by the slack; those
# that fell as much are only counted.
check() {
    local slack=$1
    shift
    awk -v slack="$slack" -v names="$*" '
        BEGIN { split(names, name, ",") }
        NR == FNR { for (i = 3; i <= NF; ++i) recorded[$1, $2, i] = $i; next }
        {
            for (i = 3; i <= NF; ++i) {
                was = recorded[$1, $2, i]
                if (!was) { print $1, $2 ": not in the record"; failed = 1 }
                else if ($i > was * (1 + slack)) {
                    printf "%s %s: %d %s, ", $1, $2, $i, name[i - 2]
                    printf "recorded as %d (%+.1f %%)\n", was, ($i / was - 1) * 100
                    failed = 1
                }
                else if ($i < was * (1 - slack)) ++fell
            }
        }
        END {
            if (fell) print fell " figures are lower than recorded: script/guard --record keeps that."
            exit failed
        }' "$record" "$scratch/figures"
}

# 4 for a linear reader, 16 for a quadratic one. The slack is for tables that double.
check_growth() {
    awk '
        !(($1, $2) in small) { small[$1, $2] = $3; next }
        $3 > small[$1, $2] * 4 * 1.25 {
            printf "%s %s: %.1f times the instructions for 4 times the size\n", $1, $2, $3 / small[$1, $2]
            failed = 1
        }
        END { exit failed }' "$scratch/figures"
}

case $kind in
memory) memory >"$scratch/figures" ;;
instructions) instructions ordinary >"$scratch/figures" ;;
growth) instructions hostile >"$scratch/figures" ;;
esac
[ -s "$scratch/figures" ]

if [ "$action" = --record ]; then
    cp "$scratch/figures" "$record"
    exit
fi
case $kind in
memory) check 0.05 allocations,bytes ;;
instructions) check 0.10 instructions ;;
growth) check_growth ;;
esac
