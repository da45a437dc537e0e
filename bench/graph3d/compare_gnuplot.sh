#!/usr/bin/env bash
# Whole process against whole process: curvemill-cli surface and gnuplot (pm3d) draw the same
# 501 x 501 surface into a 1920x1080 PNG. Prints the mean wall time over RUNS runs of each, their
# ratio, and the peak resident memory of one run of each (from /usr/bin/time -v).
# usage: bench/graph3d/compare_gnuplot.sh [path/to/curvemill-cli] [RUNS]
set -euo pipefail
cli=${1:-build/cli/curvemill-cli}
runs=${2:-5}
source "$(dirname "$0")/../gnuplot_race.sh"

compare() {
    local formula=$1 low=$2 high=$3 gformula=$4
    ours=("$cli" surface "$formula" --x-begin "$low" --x-end "$high" --y-begin "$low"
           --y-end "$high" --nx 500 --ny 500 --size 1920x1080 -o "$work/ours.png")
    theirs=(gnuplot -e "set terminal $terminal size 1920,1080; set output '$work/theirs.png';
             set pm3d; set isosamples 501,501; set samples 501,501;
             splot [$low:$high] [$low:$high] $gformula with pm3d notitle")
    race "$formula"
}

compare 'sin(x)*cos(y)' -3 3 'sin(x)*cos(y)'
compare 'x^2+y^2' -1 1 'x**2+y**2'
