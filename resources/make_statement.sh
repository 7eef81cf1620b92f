#!/bin/sh
# make_statement.sh SOURCE TARGET LE|BE: writes a UTF-8 statement as UTF-16 of that byte order, with its mark
# and CR LF at the end of each line.
set -e
mkdir -p "$(dirname "$2")"
case $3 in
    LE) mark='\377\376' ;;
    BE) mark='\376\377' ;;
    *) echo "make_statement.sh: LE or BE, not $3" >&2; exit 2 ;;
esac
carriageReturn=$(printf '\r')
{ printf "$mark"; sed "s/\$/$carriageReturn/" "$1" | iconv -f UTF-8 -t "UTF-16$3"; } > "$2.new"
mv "$2.new" "$2"
