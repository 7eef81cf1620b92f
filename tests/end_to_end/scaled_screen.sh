#!/bin/bash
# On a screen of 144 pixels an inch a run has the resolution, and its texts the heights, that they have at 96.
# Runs the tests of both again in a copy of the prefix, whose screen has that resolution.
set -euo pipefail
build=$1
scaled=$WINEPREFIX-144

# The heights that the labels have in this prefix, one a line.
measure() {
    (cd "$build/bin" && wine windows_gallery.exe --gtest_filter='WrappedLabelTest.*' 2>/dev/null) | tr -d '\r' >"$1"
    grep -q '^\[  PASSED  \] 1 test' "$1" || { cat "$1"; exit 1; }
    sed -i -n '/^measured: /p' "$1"
}

folder=$(mktemp -d)
trap 'rm -rf "$folder" "$scaled"' EXIT
measure "$folder/96"

rm -rf "$scaled"
cp -a "$WINEPREFIX" "$scaled"
export WINEPREFIX=$scaled PAVANE_SCREEN_RESOLUTION=144
trap 'wineserver -k || true; wineserver -w || true; rm -rf "$folder" "$scaled"' EXIT
for key in 'HKCU\Control Panel\Desktop' 'HKEY_CURRENT_CONFIG\Software\Fonts'; do
    wine reg add "$key" /v LogPixels /t REG_DWORD /d 144 /f >/dev/null 2>&1 </dev/null
done
wineserver -k
wineserver -w || true

for tests in 'windows_toolkit Resolution*.*' 'windows_frame RunOfAHost.*'; do
    (cd "$build/bin" && timeout 60 wine "${tests% *}.exe" --gtest_filter="${tests#* }" >"$folder/log" 2>/dev/null) ||
        { cat "$folder/log"; exit 1; }
    grep -E '^\[  PASSED  \] [1-9]' "$folder/log" # a filter that matches nothing passes too
done
measure "$folder/144"
[ -s "$folder/96" ]
diff "$folder/96" "$folder/144"
echo "ok: $(wc -l <"$folder/96") labels are as high at 144 pixels an inch as at 96"
