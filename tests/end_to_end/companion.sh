#!/bin/bash
# A library of services beside the library or in the working directory is loaded and logs, and the bitmaps of its folder
# win. A missing one changes no run, and a corrupt one ends none.
. "$(dirname "$0")/support/drive.sh"

companions=$build/companions
folder=$(mktemp -d)
trap 'finish; rm -rf "$folder"' EXIT
record=$folder/record
COMPANION_RECORD=$(winepath -w "$record" 2>/dev/null)
export COMPANION_RECORD

mkdir "$folder/installed" "$folder/current" "$folder/pictures"
cp -r "$bin"/{pavane.dll,pavane-host.exe,PVResources} "$folder/installed"
hostFolder=$folder/current
hostProgram=$folder/installed/pavane-host.exe

# walk NAME: runs Welcome to its end, with the pictures of its pages in pictures/NAME.
walk() {
    rm -f "$record"
    mkdir "$folder/pictures/$1"
    start_host --workflow 1 --auto-walk --screenshot-dir "$(winepath -w "$folder/pictures/$1" 2>/dev/null)"
    host_ends 0 "status 0x0000: Done."
}
# The share of the first page of the run NAME that is pure red, in percent.
redness() { convert "$folder/pictures/$1/pane-1.png" -fill black +opaque '#FF0000' -fill white -opaque '#FF0000' -format '%[fx:int(mean*100)]' info:; }
has_recorded() {
    [ "$(tr -d '\r' <"$record")" = "ServiceLoader 5 [] using logging service now" ] || fail "recorded: $(cat "$record")"
    echo "ok: the logging service has the first message"
}

walk missing
[ ! -e "$record" ] || fail "a library of services that is not there has logged"
[ "$(redness missing)" = 0 ] || fail "the page is red without a reason"

cp "$companions/good/svhservices.dll" "$folder/installed"
walk beside
has_recorded
cmp "$folder"/pictures/{missing,beside}/pane-1.png || fail "a library of services beside the library changes the pictures"
rm "$folder/installed/svhservices.dll"

cp "$companions/good/svhservices.dll" "$folder/current"
cp -r "$folder/installed/PVResources" "$folder/current"
convert -size 560x420 xc:'#FF0000' PNG24:"$folder/current/PVResources/background.png"
walk current
has_recorded
[ "$(redness current)" -gt 20 ] || fail "only $(redness current) percent of the page are the bitmap of the working directory"
echo "ok: the bitmap below the working directory wins"

# A drive of the network is not searched.
hostFolder=$WINEPREFIX/drive_n
trap 'finish; rm -rf "$folder"; rm -f "$WINEPREFIX/drive_n/svhservices.dll"' EXIT
cp "$folder/current/svhservices.dll" "$hostFolder"
walk network
[ ! -e "$record" ] || fail "a library of services on the network was loaded"
hostFolder=$folder/current

echo "This is no library." >"$folder/current/svhservices.dll"
walk corrupt
[ ! -e "$record" ] || fail "a corrupt library of services has logged"
