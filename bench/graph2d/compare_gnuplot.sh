#!/usr/bin/env bash
# Whole process against whole process: curvemill-cli plot and gnuplot draw the same function with
# 400000 samples into a 1920x1080 PNG. Prints the mean wall time over RUNS runs of each, their
# ratio, and the peak resident memory of one run of each (from /usr/bin/time -v).
# usage: bench/graph2d/compare_gnuplot.sh [path/to/curvemill-cli] [RUNS]
set -euo pipefail
cli=${1:-build/cli/curvemill-cli}
runs=${2:-10}
source "$(dirname "$0")/../gnuplot_race.sh"

compare() {
    local formula=$1 begin=$2 end=$3 gformula=$4
    ours=("$cli" plot "$formula" --x-begin "$begin" --x-end "$end" --points 400000
           --size 1920x1080 -o "$work/ours.png")
    theirs=(gnuplot -e "set terminal $terminal size 1920,1080; set output '$work/theirs.png';
             set samples 400000; set yrange [*:*]; plot [$begin:$end] $gformula notitle")
    race "$formula"
}

compare 'sin(x)/x*80' -10 10 'sin(x)/x*80'
compare 'tan(x)' -20 20 'tan(x)'
