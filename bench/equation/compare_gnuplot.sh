#!/usr/bin/env bash
# Whole process against whole process: curvemill-cli equation and gnuplot draw the same implicit
# curve F(x, y) = 0 on a 500 x 500 grid into a PNG of the same size (gnuplot as the zero contour
# of the surface, seen from above). Prints the mean wall time over RUNS runs of each, their
# ratio, and the peak resident memory of one run of each (from /usr/bin/time -v).
# usage: bench/equation/compare_gnuplot.sh [path/to/curvemill-cli] [RUNS]
set -euo pipefail
cli=${1:-build/cli/curvemill-cli}
runs=${2:-10}
command -v gnuplot >/dev/null || { echo "gnuplot is missing: apt-get install gnuplot-nox; comparison skipped" >&2; exit 0; }
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
    local formula=$1 half=$2 gformula=$3
    local ours=("$cli" equation "$formula" --x-begin "-$half" --x-end "$half" --y-begin "-$half"
                --y-end "$half" --nx 500 --ny 500 --size 1024x768 -o "$work/ours.png")
    local theirs=(gnuplot -e "set terminal $terminal size 1024,768; set output '$work/theirs.png';
                  set contour base; set cntrparam levels discrete 0; set isosamples 500,500;
                  unset surface; set view map; unset key;
                  splot [-$half:$half][-$half:$half] $gformula")
    "${ours[@]}" >/dev/null 2>&1 && "${theirs[@]}" >/dev/null 2>&1
    local t_ours t_theirs
    t_ours=$(mean_seconds "${ours[@]}")
    t_theirs=$(mean_seconds "${theirs[@]}")
    printf '%-18s [-%s,%s]^2  curvemill-cli %6.3f s %7s KiB | gnuplot (%s) %6.3f s %7s KiB | ratio %.3f\n' \
        "$formula" "$half" "$half" "$t_ours" "$(peak_kib "${ours[@]}")" "$terminal" "$t_theirs" \
        "$(peak_kib "${theirs[@]}")" "$(echo "$t_ours / $t_theirs" | bc -l)"
}

compare 'x^2+y^2-1' 2 'x**2+y**2-1'
compare 'sin(x)*cos(y)-0.2' 2 'sin(x)*cos(y)-0.2'
compare 'sin(x)*cos(y)-0.2' 10 'sin(x)*cos(y)-0.2'
