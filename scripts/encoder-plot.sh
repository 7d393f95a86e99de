#!/usr/bin/env bash
# Draws docs/controllers/acceleration.svg: the steps of an edge by acceleratedStep of
# src/sticks/encoders.h, for an encoder on two lines (1 extra). An edge is seen at a poll, so the time
# between two is a whole number of poll periods and their length drops out.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
install_plot_packages
mkdir -p docs/controllers
gnuplot <<'PLOT'
set terminal svg size 900,480 font 'sans-serif,12' background '#ffffff'
set output 'docs/controllers/acceleration.svg'
set grid linecolor '#dddddd'
set border linecolor '#555555'
set key top right reverse Left
set xlabel 'poll periods from one edge to the next (to the right the knob is turned more slowly)'
set ylabel 'steps of the edge'
set xrange [0.5:12.5]
set yrange [0:55]
set xtics 1
pause_polls = 10
extra = 1
steps(polls, a) = polls > pause_polls ? 1 : (a * pause_polls) / polls + extra  # of whole numbers
array Polls[12]
plot for [a = 5:0:-1] Polls using ($1):(steps(int($1), a)) with linespoints pointtype 7 pointsize 0.5 linewidth 1.5 \
  title sprintf('acceleration %d', a)
PLOT
echo "Drawn: docs/controllers"
