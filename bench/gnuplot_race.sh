# Sourced by the compare_gnuplot.sh scripts: whole process against whole process. Each script sets
# `cli` and `runs`, fills the arrays `ours` and `theirs` with the two commands (writing into
# "$work", gnuplot with "$terminal") and calls `race LABEL`, which prints the mean wall time of
# each over `runs` runs, the peak resident memory of one run of each and the ratio of the times.
command -v gnuplot >/dev/null || {
    echo "gnuplot is missing: apt-get install gnuplot-nox; comparison skipped" >&2
    exit 0
}
[ -x /usr/bin/time ] || { echo "/usr/bin/time is missing: apt-get install time" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

terminal=pngcairo
gnuplot -e 'set terminal' 2>&1 | grep -q pngcairo || terminal=png

now() { date +%s.%N; }

# mean_seconds COMMAND...: runs COMMAND `runs` times and prints the mean wall time.
mean_seconds() {
    local start end
    start=$(now)
    for ((i = 0; i < runs; i++)); do "$@" >/dev/null 2>&1; done
    end=$(now)
    echo "($end - $start) / $runs" | bc -l
}

peak_kib() { /usr/bin/time -v "$@" 2>&1 >/dev/null | awk -F': ' '/Maximum resident/ {print $2}'; }

race() {
    # One run of each first, so that neither pays for a cold file cache in the timing.
    "${ours[@]}" >/dev/null 2>&1 && "${theirs[@]}" >/dev/null 2>&1
    local t_ours t_theirs
    t_ours=$(mean_seconds "${ours[@]}")
    t_theirs=$(mean_seconds "${theirs[@]}")
    printf '%-26s curvemill-cli %7.3f s %7s KiB | gnuplot (%s) %7.3f s %7s KiB | ratio %.3f\n' \
        "$1" "$t_ours" "$(peak_kib "${ours[@]}")" "$terminal" "$t_theirs" \
        "$(peak_kib "${theirs[@]}")" "$(echo "$t_ours / $t_theirs" | bc -l)"
}
