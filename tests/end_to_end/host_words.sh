#!/bin/bash
# The sample host offers the workflows that exist, and shows why a workflow failed: a fault in a view is told from a
# file that is missing.
. "$(dirname "$0")/support/drive.sh"

start_host --print-menu
host_ends 0 "&Welcome"
[ "$(tr -d '\r' <"$output" | tr '\n' ' ')" = "&Welcome &Registration &Privacy &Connection &Feedback E&xit " ] || fail "the menu is: $(cat "$output")"

installed=$(mktemp -d)
trap 'finish; rm -rf "$installed"' EXIT
cp -r "$bin"/{pavane.dll,pavane-host.exe,PVResources} "$installed"
hostFolder=$installed
view=$installed/PVResources/welcome.exv

printf 'dialog(name: 1) {\n  button(width: unheardOf);\n}\n' >"$view"
start_host --workflow 1
host_ends 1 "status 0x8209: A view of the workflow cannot be read."
host_said "the description stops at line 2, column"
host_said ": unheardOf"
host_said "View cannot be read(File: "
host_said "welcome.exv"

rm "$view"
start_host --workflow 1
host_ends 1 "status 0x8209: A file of the workflow is missing. Is PVResources beside the library?"
host_said "Missing Resource(Type: "
