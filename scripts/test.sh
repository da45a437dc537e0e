#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test; CTest's summary ends the output.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh
ctest --test-dir build --output-on-failure -j"$(nproc)"
