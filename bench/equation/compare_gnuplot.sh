#!/usr/bin/env bash
# Whole process against whole process: curvemill-cli equation and gnuplot draw the same implicit
# curve F(x, y) = 0 on a 500 x 500 grid into a PNG of the same size (gnuplot as the zero contour
# of the surface, seen from above). Prints the mean wall time over RUNS runs of each, their
# ratio, and the peak resident memory of one run of each (from /usr/bin/time -v).
# usage: bench/equation/compare_gnuplot.sh [path/to/curvemill-cli] [RUNS]
set -euo pipefail
cli=${1:-build/cli/curvemill-cli}
runs=${2:-10}
source "$(dirname "$0")/../gnuplot_race.sh"

compare() {
    local formula=$1 half=$2 gformula=$3
    ours=("$cli" equation "$formula" --x-begin "-$half" --x-end "$half" --y-begin "-$half"
           --y-end "$half" --nx 500 --ny 500 --size 1024x768 -o "$work/ours.png")
    theirs=(gnuplot -e "set terminal $terminal size 1024,768; set output '$work/theirs.png';
             set contour base; set cntrparam levels discrete 0; set isosamples 500,500;
             unset surface; set view map; unset key;
             splot [-$half:$half][-$half:$half] $gformula")
    race "$formula [-$half,$half]^2"
}

compare 'x^2+y^2-1' 2 'x**2+y**2-1'
compare 'sin(x)*cos(y)-0.2' 2 'sin(x)*cos(y)-0.2'
compare 'sin(x)*cos(y)-0.2' 10 'sin(x)*cos(y)-0.2'
