#!/usr/bin/env bash
# Installs what is missing, builds, and starts CurveMill in run/, where its history file lives.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh
mkdir -p run
if [ -f resources/Graph.dat ] && [ ! -e run/Graph.dat ] && [ ! -e run/Graph.txt ] && [ ! -e run/Graph0.dat ]; then
    cp resources/Graph.dat run/Graph.dat
fi
cd run
exec ../build/shell/curvemill "$@"
