#!/usr/bin/env bash
# Draws the spectra of the shipped sounds: docs/sounds.svg.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
install_plot_packages

spectra=$(mktemp -d)
trap 'rm -rf "$spectra"' EXIT
scripts/sounds.py --spectra "$spectra"
gnuplot <<GNUPLOT
set terminal svg size 900,600 font "sans,12" noenhanced
set output "docs/sounds.svg"
set multiplot layout 2,2
set logscale x
set xrange [20:10000]
set yrange [-90:-15]
set grid
set xlabel "Hz"
set ylabel "dB below full scale"
unset key
do for [name in "rumble.wav bump.wav tyres.wav start.wav"] {
  set title name
  plot "$spectra/".name.".txt" with lines lw 1.5 lc rgb "#1f4e79"
}
GNUPLOT
