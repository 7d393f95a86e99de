#!/usr/bin/env bash
# Flies the flights of the autopilot, which check every figure, and flies them again with another cycle,
# draws docs/flights/*.svg and fills the
# tables of docs/flights.md.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
install_build_packages
install_test_packages
install_plot_packages
cmake --preset release -DVORLENT_TESTS=ON >/dev/null
cmake --build build/release --target test_flights
data=$(mktemp -d)
trap 'rm -r "$data"' EXIT
export VORLENT_ALL_FLIGHTS=1
VORLENT_FLIGHT_DATA=$data build/release/bin/test_flights --gtest_brief=1
mkdir "$data/440"
# With the other cycle the bounds of what is known to be missed do not hold.
VORLENT_CYCLE_TIME=440 VORLENT_FLIGHT_DATA=$data/440 build/release/bin/test_flights --gtest_brief=1 \
  --gtest_filter='*ServerFlies*' >/dev/null || true
awk -F, -f scripts/cycle-times.awk "$data/figures.csv" "$data/440/figures.csv" >"$data/cycle-times.md"

mkdir -p docs/flights
gnuplot -e "data='$data'" scripts/flights.gp

# Between the lines "<!-- figures PREFIX... -->" and "<!-- end -->" stands a table of the flights whose
# names begin so: a row a flight, a column a figure, what misses its goal in bold.
awk -F, -v figures="$data/figures.csv" -v cycleTimes="$data/cycle-times.md" '
  function begins(name, prefixes,   parts, n, i) {
    n = split(prefixes, parts, " ")
    for (i = 1; i <= n; ++i) if (index(name, parts[i]) == 1) return 1
    return 0
  }
  function table(prefixes,   i, j, header, rule, goals, row, key) {
    header = "| Flight |"; rule = "|---|"; goals = "| *goal* |"
    delete seen; columns = 0
    for (i = 1; i <= rows; ++i)
      if (begins(flight[i], prefixes) && !(what[i] in seen)) {
        seen[what[i]] = 1; column[++columns] = what[i]
        header = header " " what[i] ", " unit[i] " |"; rule = rule "---|"
        goals = goals " *" goal[i] "* |"
      }
    print ""; print header; print rule; print goals
    for (i = 1; i <= rows; ++i) {
      if (!begins(flight[i], prefixes) || (i > 1 && flight[i] == flight[i - 1])) continue
      row = "| " flight[i] " |"
      for (j = 1; j <= columns; ++j) {
        key = flight[i] SUBSEP column[j]
        if (!(key in value)) row = row " |"
        else if (value[key] > limit[key]) row = row sprintf(" **%.3g** |", value[key])
        else row = row sprintf(" %.3g |", value[key])
      }
      print row
    }
    print ""
  }
  BEGIN {
    while ((getline line < figures) > 0) {
      split(line, f, ",")
      ++rows; flight[rows] = f[1]; what[rows] = f[2]; unit[rows] = f[3]; goal[rows] = f[5]
      value[f[1], f[2]] = f[4] + 0; limit[f[1], f[2]] = f[5] + 0
    }
  }
  /^<!-- figures / { print; prefixes = $0; gsub(/^<!-- figures | -->$/, "", prefixes)
                     table(prefixes); within = 1; next }
  /^<!-- cycle times -->/ { print; while ((getline line < cycleTimes) > 0) print line; within = 1; next }
  /^<!-- end -->/ { within = 0 }
  !within { print }
' docs/flights.md >"$data/flights.md"
cp "$data/flights.md" docs/flights.md
echo "Drawn: docs/flights; filled: docs/flights.md"
