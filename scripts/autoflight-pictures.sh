#!/usr/bin/env bash
# Draws docs/cockpit/autoflight/*.svg, the closed loops of the autoflight, from docs/cockpit/autoflight/loops.gv.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
install_packages "the program that draws graphs" graphviz
loops=docs/cockpit/autoflight/loops.gv
for name in $(sed -n 's/^digraph \([A-Za-z0-9]*\) {$/\1/p' "$loops"); do
  sed -n "/^digraph $name {/,/^}/p" "$loops" |
    dot -Tsvg -Grankdir=LR -Gnodesep=0.4 -Nshape=box -Nfontname=Helvetica -Nfontsize=11 \
      -Efontname=Helvetica -Efontsize=10 -o "docs/cockpit/autoflight/$name.svg"
done
echo "Drawn: docs/cockpit/autoflight"
