#!/bin/sh
# Draws brasslet.ico anew from brasslet.svg. Needs rsvg-convert and ImageMagick; run it after a change of the drawing.
set -eu
cd "$(dirname "$0")"
sizes="16 24 32 48 256"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
set --
for size in $sizes; do
    rsvg-convert --width "$size" --height "$size" brasslet.svg --output "$work/$size.png"
    set -- "$@" "$work/$size.png"
done
convert "$@" brasslet.ico
