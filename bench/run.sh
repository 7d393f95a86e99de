#!/usr/bin/env bash
# Builds the release preset and measures it: one table, each figure beside its floor and its goal.
# Takes about five minutes; on a machine that does other work at the time the figures are worse.
#   bench/run.sh            in build/release
#   bench/run.sh FOLDER     in another build folder
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
install_build_packages
install_test_packages

build=${1:-build/release}
cmake --preset release -B "$build" -DVORLENT_TESTS=ON -DVORLENT_BENCH=ON >/dev/null
cmake --build "$build" --target bench

rows=$(mktemp)
trap 'rm -f "$rows"' EXIT

# measure NAME: runs the program, shows what it says and keeps its rows.
measure() {
  local said
  printf '\n== %s\n' "$1"
  said=$("$build/bin/bench_$1")
  printf '%s\n' "$said"
  grep '^|' <<<"$said" >>"$rows"
}

# The poll's own program tells its figures as counters.
measure_record() {
  printf '\n== record\n'
  "$build/bin/bench_record" --benchmark_filter=Ratio --benchmark_format=csv 2>/dev/null |
    awk -F, '
      NR == 1 { for (i = 1; i <= NF; i++) { gsub(/"/, "", $i); column[$i] = i } }
      /^"?Ratio/ {
        whose = $1 ~ /XPlane/ ? " of X-Plane" : ""
        printf "| one poll" whose " without transport: decode and record, %d numbers | %.1f µs | %.1f µs, %.2f x | ≤ 2 x |\n",
          $column["numbers"], $column["floor_ns"] / 1000, $column["poll_ns"] / 1000, $column["ratio"]
        if (whose == "") printf "| one autoflight cycle without transport, beside that poll | %.1f µs | %.2f µs, %.2f x | ≤ 0.25 x |\n",
          $column["poll_ns"] / 1000, $column["cycle_ns"] / 1000, $column["cycle_ratio"]
        found = 1
      }
      END { exit !found }' | tee -a "$rows"
}

measure_record
measure sounds
measure roundtrip
measure displays
measure latency
measure server
measure recorder
measure sticks
measure hardware
measure flood
measure bridge
printf '\n== web\n'
node bench/web/cost.js "$build/bin" data | tee -a "$rows"

printf '\n%s, %s cores, load %s\n\n' "$(uname -srm)" "$(nproc)" "$(cut -d' ' -f1 /proc/loadavg)"
printf '| What | Floor | Measured | Goal |\n|---|---|---|---|\n'
cat "$rows"
