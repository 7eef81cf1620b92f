#!/bin/sh
# make_statement.sh SOURCE TARGET LE|BE left|right: writes a UTF-8 statement as UTF-16 of that byte order, with its
# mark and with CR LF at the end of each line. With "right" each paragraph begins with U+202B, so that one with Latin
# words in it keeps its order in a viewer that takes every text for left to right.
set -e
mkdir -p "$(dirname "$2")"
case $3 in
    LE) mark='\0377\0376' ;;
    BE) mark='\0376\0377' ;;
    *) echo "make_statement.sh: LE or BE, not $3" >&2; exit 2 ;;
esac
embedding=
[ "$4" != right ] || embedding=$(printf '\342\200\253')
carriageReturn=$(printf '\r')
{ printf '%b' "$mark"; sed "s/^./$embedding&/; s/\$/$carriageReturn/" "$1" | iconv -f UTF-8 -t "UTF-16$3"; } > "$2.new"
mv "$2.new" "$2"
