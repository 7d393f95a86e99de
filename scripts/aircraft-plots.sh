#!/usr/bin/env bash
# Flies the tests of the built-in aircraft, which check every figure, and draws docs/aircraft/*.svg
# from what they wrote.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
install_build_packages
install_test_packages
install_plot_packages
cmake --preset release -DVORLENT_TESTS=ON >/dev/null
cmake --build build/release --target test_simulator_dynamics
data=$(mktemp -d)
trap 'rm -r "$data"' EXIT
VORLENT_FLIGHT_DATA=$data build/release/bin/test_simulator_dynamics --gtest_brief=1 | grep -v FIGURE
mkdir -p docs/aircraft
gnuplot -e "data='$data'" scripts/aircraft-plots.gp
echo "Drawn: docs/aircraft"
