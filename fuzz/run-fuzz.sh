#!/usr/bin/env bash
# Builds a libFuzzer target with clang in its own build directory and runs it.
#
#   fuzz/run-fuzz.sh [TARGET] [SECONDS] [libFuzzer options...]   run (default: engine, 60 s)
#   fuzz/run-fuzz.sh --merge [TARGET]                            fold new inputs into the corpus
#
# New inputs collect in the build directory; --merge keeps only those that add coverage to the
# committed corpus fuzz/corpus/TARGET (edges only, no hit counts, to keep it small). Seeds written
# by hand carry a name of their own (not a 40-digit hash, as libFuzzer names its inputs) and are
# always kept whole, whatever the merge thinks of them. Findings
# are written to build-fuzz/artifacts/. A token dictionary fuzz/TARGET/TARGET.dict is used when
# present. FUZZ_BUILD_DIR chooses another build directory.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${FUZZ_BUILD_DIR:-$root/build-fuzz}"

merge=0
if [[ "${1:-}" == "--merge" ]]; then
    merge=1
    shift
fi
target="${1:-engine}"
seconds="${2:-60}"
shift $(($# > 2 ? 2 : $#))

# Entries files are longer than a formula: a smaller limit would cut the history seeds short.
case "$target" in
    history | parametric | document) max_len=4096 ;;
    *) max_len=99 ;;
esac

cmake -S "$root/fuzz" -B "$build" -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" --target "fuzz_$target" -j2

corpus="$root/fuzz/corpus/$target"
work="$build/work-$target"
mkdir -p "$corpus" "$work" "$build/artifacts"

if ((merge)); then
    merged="$build/merged-$target"
    rm -rf "$merged"
    mkdir -p "$merged"
    "$build/fuzz_$target" -merge=1 -use_counters=0 -max_len="$max_len" "$merged" "$corpus" "$work"
    find "$corpus" -maxdepth 1 -type f -regextype posix-extended -regex '.*/[0-9a-f]{40}' -delete
    # libFuzzer names an input by its SHA-1: a named seed it chose to keep is not kept twice.
    for seed in "$corpus"/*; do
        [[ -f "$seed" ]] || continue
        rm -f "$merged/$(sha1sum <"$seed" | cut -c1-40)"
    done
    cp -n "$merged"/* "$corpus"/
    echo "corpus $corpus now holds $(ls "$corpus" | wc -l) inputs"
    exit 0
fi

dict=()
if [[ -f "$root/fuzz/$target/$target.dict" ]]; then
    dict=(-dict="$root/fuzz/$target/$target.dict")
fi

exec "$build/fuzz_$target" "${dict[@]}" -max_len="$max_len" -max_total_time="$seconds" -print_final_stats=1 \
    -artifact_prefix="$build/artifacts/" "$@" "$work" "$corpus"
