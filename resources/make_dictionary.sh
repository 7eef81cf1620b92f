#!/bin/sh
# make_dictionary.sh SOURCE TARGET: writes a UTF-8 dictionary source as little-endian UTF-16 with its mark.
set -e
mkdir -p "$(dirname "$2")"
{ printf '\377\376'; iconv -f UTF-8 -t UTF-16LE "$1"; } > "$2.new"
mv "$2.new" "$2"
