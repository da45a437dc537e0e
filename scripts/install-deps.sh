#!/usr/bin/env bash
# Installs what CurveMill needs to build, test and run on Debian 12, and nothing that is there already.
set -euo pipefail

packages=(
    build-essential cmake
    # libqt6svg6 holds the SVG icon engine the toolbar is drawn with; zlib compresses PNG files
    qt6-base-dev qt6-svg-dev libqt6svg6 libgl-dev zlib1g-dev
    qt6-tools-dev qt6-tools-dev-tools libqt6sql6-sqlite
    # the validators of the installed tree; `file` lets cpack find the .deb's dependencies
    desktop-file-utils appstream file
    libgtest-dev libgmock-dev libbenchmark-dev libmuparser-dev
    fonts-dejavu-core fonts-liberation fontconfig
)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
