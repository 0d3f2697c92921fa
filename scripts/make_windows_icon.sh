#!/usr/bin/env bash
# Draws resources/windows/parlex.ico (16 to 256 pixels) from the program's SVG icon.
# Needs ImageMagick; run it when the SVG changes and commit the result.
set -euo pipefail
cd "$(dirname "$0")/.."
svg=resources/icons/org.parlex.Parlex.svg
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
for size in 16 24 32 48 64 256; do
    convert -background none -density 1200 "$svg" -resize "${size}x${size}" "$tmp/$size.png"
done
convert "$tmp"/16.png "$tmp"/24.png "$tmp"/32.png "$tmp"/48.png "$tmp"/64.png "$tmp"/256.png \
    resources/windows/parlex.ico
echo resources/windows/parlex.ico
