#!/usr/bin/env bash
# Draws vorlent.ico, the programs' icon, from the one that Linux shows. Needs librsvg2-bin and
# imagemagick.
set -euo pipefail
cd "$(dirname "$0")"
drawn=$(mktemp -d)
trap 'rm -r "$drawn"' EXIT
for size in 016 032 048 256; do
  rsvg-convert -w $((10#$size)) -h $((10#$size)) -o "$drawn/$size.png" ../linux/vorlent.svg
done
convert "$drawn"/*.png vorlent.ico
