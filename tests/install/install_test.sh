#!/usr/bin/env bash
# Installs the build into a temporary prefix, checks the tree a desktop and Debian expect, runs the
# desktop-entry and AppStream validators, and starts the installed launcher offscreen to see it
# make the program's folder with the starter history and run the program there.
#   install_test.sh BUILD_FOLDER
set -u
build=$1
work=$(mktemp -d)
pid=""
cleanup() {
    [ -n "$pid" ] && kill "$pid" 2>/dev/null && wait "$pid" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT
failed=0
problem() {
    echo "FAIL: $*"
    failed=1
}

prefix=$work/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null || { echo "FAIL: cmake --install"; exit 1; }

for file in bin/curvemill bin/curvemill-cli libexec/curvemill/curvemill; do
    [ -f "$prefix/$file" ] && [ -x "$prefix/$file" ] || problem "$file is not an installed program"
done
for file in share/curvemill/CurveMillHelp.qch share/curvemill/Graph.dat \
    share/applications/org.curvemill.CurveMill.desktop \
    share/metainfo/org.curvemill.CurveMill.metainfo.xml \
    share/mime/packages/org.curvemill.CurveMill.xml \
    share/icons/hicolor/scalable/apps/curvemill.svg; do
    [ -s "$prefix/$file" ] || problem "$file is missing or empty"
done
# Each PNG icon is a PNG of the size its folder names (width and height in the IHDR chunk).
for size in 16 22 24 32 48 64 128 256; do
    png=$prefix/share/icons/hicolor/${size}x${size}/apps/curvemill.png
    expected=$(printf '%08x%08x' "$size" "$size")
    actual=$(od -An -tx1 -j16 -N8 "$png" 2>/dev/null | tr -d ' \n')
    [ "$actual" = "$expected" ] || problem "$png is not a $size pixel PNG"
done
for page in curvemill curvemill-cli; do
    zcat "$prefix/share/man/man1/$page.1.gz" 2>/dev/null | grep -q '^\.TH' ||
        problem "man page $page.1.gz is not a compressed man page"
done

if command -v desktop-file-validate >/dev/null; then
    desktop-file-validate "$prefix/share/applications/org.curvemill.CurveMill.desktop" ||
        problem "desktop-file-validate refused the desktop entry"
else
    echo "SKIPPED: desktop-file-validate is not installed (Debian package desktop-file-utils)"
fi
if command -v appstreamcli >/dev/null; then
    appstreamcli validate --no-net "$prefix/share/metainfo/org.curvemill.CurveMill.metainfo.xml" ||
        problem "appstreamcli refused the metainfo file"
else
    echo "SKIPPED: appstreamcli is not installed (Debian package appstream)"
fi

# The documents' type: the database built from the installed package gives *.curvemill to it, and
# the desktop entry opens that type with the file.
if command -v update-mime-database >/dev/null; then
    update-mime-database "$prefix/share/mime" >/dev/null 2>&1 ||
        problem "update-mime-database refused the installed mime package"
    grep -q '^50:application/x-curvemill:\*\.curvemill$' "$prefix/share/mime/globs2" 2>/dev/null ||
        problem "the mime database gives *.curvemill no application/x-curvemill"
else
    echo "SKIPPED: update-mime-database is not installed (Debian package shared-mime-info)"
fi
grep -q '^MimeType=application/x-curvemill;$' "$prefix/share/applications/org.curvemill.CurveMill.desktop" &&
    grep -q '^Exec=curvemill %f$' "$prefix/share/applications/org.curvemill.CurveMill.desktop" ||
    problem "the desktop entry does not open graph documents"

[ "$("$prefix/bin/curvemill-cli" eval 'x^2' 3)" = 9 ] || problem "installed curvemill-cli does not evaluate"

# Starts the launcher with the given XDG_DATA_HOME; passes when the program runs in `folder`, which
# holds the starter history.
launch() {
    local data_home=$1 folder=$2
    (cd "$work" && XDG_DATA_HOME=$data_home HOME=$work/home QT_QPA_PLATFORM=offscreen \
        exec "$prefix/bin/curvemill") >"$work/launch.log" 2>&1 &
    pid=$!
    for _ in $(seq 1 100); do
        [ "$(readlink "/proc/$pid/cwd" 2>/dev/null)" = "$folder" ] && [ -f "$folder/Graph.dat" ] && break
        sleep 0.1
    done
    [ "$(readlink "/proc/$pid/cwd" 2>/dev/null)" = "$folder" ] ||
        problem "the program does not run in $folder ($(cat "$work/launch.log"))"
    cmp -s "$folder/Graph.dat" "$prefix/share/curvemill/Graph.dat" ||
        problem "$folder/Graph.dat is not the starter history"
    sleep 1
    kill -0 "$pid" 2>/dev/null || problem "the program ended at start ($(cat "$work/launch.log"))"
    kill "$pid" 2>/dev/null
    wait "$pid" 2>/dev/null
    pid=""
}
mkdir -p "$work/home"
launch "$work/data" "$work/data/curvemill"
# A file named from where the user stands reaches the program by its whole path.
touch "$work/g.curvemill"
(cd "$work" && XDG_DATA_HOME=$work/data HOME=$work/home QT_QPA_PLATFORM=offscreen \
    exec "$prefix/bin/curvemill" g.curvemill) >"$work/launch.log" 2>&1 &
pid=$!
sleep 1
tr '\0' '\n' <"/proc/$pid/cmdline" 2>/dev/null | grep -qx "$work/g.curvemill" ||
    problem "the launcher does not hand on a relative file by its whole path"
kill "$pid" 2>/dev/null
wait "$pid" 2>/dev/null
pid=""
# A relative XDG_DATA_HOME does not count: the default under HOME is used.
launch "relative/data" "$work/home/.local/share/curvemill"

[ "$failed" = 0 ] && echo "installation checked"
exit "$failed"
