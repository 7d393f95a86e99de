#!/usr/bin/env bash
# Runs every fuzz harness from its corpus for some seconds each: scripts/fuzz.sh SECONDS [SEED]
#
# The same seed tries the same inputs in the same order, so that a run can be repeated; 0 takes a
# new seed, for a hunt.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset asan >/dev/null
cmake --build --preset asan
for harness in build/asan/bin/fuzz_*; do
  name=$(basename "$harness" | sed 's/^fuzz_//')
  fresh=$(mktemp -d)
  echo "$name"
  "$harness" -max_total_time="$1" -seed="${2:-0}" -verbosity=0 -print_final_stats=0 \
    -artifact_prefix="build/asan/$name-" "$fresh" "tests/fuzz/corpus/$name"
  rm -r "$fresh"
done
