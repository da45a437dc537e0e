#!/usr/bin/env bash
# Builds everything with AddressSanitizer and UndefinedBehaviorSanitizer into build-asan/, apart
# from the normal build, and runs the whole test suite there. Any report fails its test.
#
#   bash scripts/sanitize.sh                 build and run every test
#   bash scripts/sanitize.sh -R cli          extra arguments go to ctest
#   JOBS=1 bash scripts/sanitize.sh          fewer parallel jobs (default: all cores)
#
# The benchmarks are left out: they measure speed, which the sanitizers distort.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh

jobs="${JOBS:-$(nproc)}"
# -O1 keeps the run bearable and the stacks readable; no recovery, so UBSan fails the test too.
# The null check is left out: the failure-reporting tests store through a null pointer on purpose
# to raise a real SIGSEGV, and any unintended null access still faults and fails its test.
flags="-O1 -g -fno-omit-frame-pointer -fsanitize=address,undefined -fno-sanitize=null"
flags+=" -fno-sanitize-recover=all"
launcher=()
if command -v ccache >/dev/null; then
    launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
cmake -S . -B build-asan "${launcher[@]}" -DCMAKE_BUILD_TYPE=Debug -DCURVEMILL_BUILD_BENCH=OFF \
    -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" \
    -DCMAKE_SHARED_LINKER_FLAGS="-fsanitize=address,undefined" >/dev/null
cmake --build build-asan -j"$jobs"

# Not findings: the fault handler's alternate signal stack, kept for the life of the process on
# purpose, and fontconfig's own caches, which Qt's font set-up leaves to the end of the process.
suppressions="$PWD/build-asan/leak-suppressions.txt"
printf '%s\n' "leak:curvemill::installFaultTranslation" "leak:libfontconfig.so" >"$suppressions"
export LSAN_OPTIONS="${LSAN_OPTIONS:-suppressions=$suppressions}"
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:strict_init_order=1:detect_stack_use_after_return=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"
ctest --test-dir build-asan --output-on-failure -j"$jobs" "$@"
