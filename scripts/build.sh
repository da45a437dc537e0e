#!/usr/bin/env bash
# Configures and builds CurveMill into build/ (Release).
set -euo pipefail
cd "$(dirname "$0")/.."
launcher=()
if command -v ccache >/dev/null; then
    launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
cmake -S . -B build "${launcher[@]}" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build -j"$(nproc)"
