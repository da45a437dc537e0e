#!/usr/bin/env bash
# Whole process against whole process: curvemill-cli and gnuplot (set polar / set parametric) draw
# the same curve from the same number of samples of t into a 1920x1080 PNG. curvemill-cli starts
# from that many points and refines where the curve bends; gnuplot draws its samples as they are.
# Prints the mean wall time over RUNS runs of each, their ratio, and the peak resident memory of
# one run of each (from /usr/bin/time -v).
# usage: bench/parametric/compare_gnuplot.sh [path/to/curvemill-cli] [RUNS] [SAMPLES]
set -euo pipefail
cli=${1:-build/cli/curvemill-cli}
runs=${2:-5}
samples=${3:-100000}
source "$(dirname "$0")/../gnuplot_race.sh"

# polar R GNUPLOT_R: r = R over one turn of t.
polar() {
    ours=("$cli" polar "$1" --t-begin 0 --t-end 2*pi --points "$samples" --size 1920x1080
          -o "$work/ours.png")
    theirs=(gnuplot -e "set terminal $terminal size 1920,1080; set output '$work/theirs.png';
             set polar; set size ratio -1; set samples $samples;
             plot [0:2*pi] $2 notitle")
    race "r = $1"
}

# parametric X Y GNUPLOT_X GNUPLOT_Y: x = X, y = Y over one turn of t.
parametric() {
    ours=("$cli" parametric "$1" "$2" --t-begin 0 --t-end 2*pi --points "$samples" --size 1920x1080
          -o "$work/ours.png")
    theirs=(gnuplot -e "set terminal $terminal size 1920,1080; set output '$work/theirs.png';
             set parametric; set size ratio -1; set samples $samples;
             plot [0:2*pi] $3, $4 notitle")
    race "x = $1, y = $2"
}

polar 'sin(8*t)' 'sin(8*t)'
parametric 'sin(3*t)' 'sin(2*t)' 'sin(3*t)' 'sin(2*t)'
