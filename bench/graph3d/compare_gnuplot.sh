#!/usr/bin/env bash
# Whole process against whole process: curvemill-cli surface and gnuplot (pm3d) draw the same
# 501 x 501 surface into a 1920x1080 PNG. Prints the mean wall time over RUNS runs of each, their
# ratio, and the peak resident memory of one run of each (from /usr/bin/time -v).
# usage: bench/graph3d/compare_gnuplot.sh [path/to/curvemill-cli] [RUNS]
set -euo pipefail
cli=${1:-build/cli/curvemill-cli}
runs=${2:-5}
command -v gnuplot >/dev/null || { echo "gnuplot is missing: apt-get install gnuplot-nox" >&2; exit 1; }
[ -x /usr/bin/time ] || { echo "/usr/bin/time is missing: apt-get install time" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

terminal=pngcairo
gnuplot -e 'set terminal' 2>&1 | grep -q pngcairo || terminal=png

now() { date +%s.%N; }

mean_seconds() {
    local start end
    start=$(now)
    for ((i = 0; i < runs; i++)); do "$@" >/dev/null 2>&1; done
    end=$(now)
    echo "($end - $start) / $runs" | bc -l
}

peak_kib() { /usr/bin/time -v "$@" 2>&1 >/dev/null | awk -F': ' '/Maximum resident/ {print $2}'; }

compare() {
    local formula=$1 low=$2 high=$3 gformula=$4
    local ours=("$cli" surface "$formula" --x-begin "$low" --x-end "$high" --y-begin "$low"
                --y-end "$high" --nx 500 --ny 500 --size 1920x1080 -o "$work/ours.png")
    local theirs=(gnuplot -e "set terminal $terminal size 1920,1080; set output '$work/theirs.png';
                  set pm3d; set isosamples 501,501; set samples 501,501;
                  splot [$low:$high] [$low:$high] $gformula with pm3d notitle")
    "${ours[@]}" >/dev/null 2>&1 && "${theirs[@]}" >/dev/null 2>&1
    local t_ours t_theirs
    t_ours=$(mean_seconds "${ours[@]}")
    t_theirs=$(mean_seconds "${theirs[@]}")
    printf '%-14s curvemill-cli %7.3f s  %7s KiB | gnuplot (%s) %7.3f s  %7s KiB | ratio %.2f\n' \
        "$formula" "$t_ours" "$(peak_kib "${ours[@]}")" "$terminal" "$t_theirs" \
        "$(peak_kib "${theirs[@]}")" "$(echo "$t_ours / $t_theirs" | bc -l)"
}

compare 'sin(x)*cos(y)' -3 3 'sin(x)*cos(y)'
compare 'x^2+y^2' -1 1 'x**2+y**2'
