#!/bin/sh
# Draws the bitmaps of resources/PVResources from the SVG sources beside this script (rsvg-convert, ImageMagick).
# The bitmaps are kept in the tree, so only a change of artwork needs this.
set -e
cd "$(dirname "$0")"
target=../PVResources
mkdir -p "$target"
for source in *.svg; do
    bitmap="$target/${source%.svg}.png"
    rsvg-convert "$source" -o "$bitmap"
    case $source in
    # No alpha at all: these are painted as they are, 24 bits a pixel.
    background.svg | productlabel.svg) format=png24 matte="-background white -alpha remove -alpha off" ;;
    # Straight alpha; what cannot be seen is black, for painters that take the colors as premultiplied.
    *) format=png32 matte="-background none -alpha background" ;;
    esac
    # shellcheck disable=SC2086
    convert "$bitmap" $matte -strip -define png:exclude-chunks=date,time,gAMA,cHRM,bKGD "$format:$bitmap"
done
