#!/usr/bin/env bash
# Runs every fuzz harness from its corpus for some seconds each: scripts/fuzz.sh SECONDS
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
for harness in build/fuzz/bin/fuzz_*; do
  name=$(basename "$harness" | sed 's/^fuzz_//')
  fresh=$(mktemp -d)
  echo "$name"
  "$harness" -max_total_time="$1" -verbosity=0 -print_final_stats=0 \
    -artifact_prefix="build/fuzz/$name-" "$fresh" "tests/fuzz/corpus/$name"
  rm -r "$fresh"
done
