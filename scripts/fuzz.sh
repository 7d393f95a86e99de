#!/usr/bin/env bash
# Runs every fuzz harness from its corpus for some seconds each, as many side by side as there are
# processors: scripts/fuzz.sh SECONDS [SEED]
#
# The same seed tries the same inputs in the same order, so that a run can be repeated; 0 takes a
# new seed, for a hunt.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset asan >/dev/null
cmake --build --preset asan

# hunt SECONDS SEED HARNESS: what it says comes in one piece.
hunt() {
  local name fresh said status=0
  name=$(basename "$3" | sed 's/^fuzz_//')
  fresh=$(mktemp -d)
  said=$("$3" -max_total_time="$1" -seed="$2" -verbosity=0 -print_final_stats=0 \
    -artifact_prefix="build/asan/$name-" "$fresh" "tests/fuzz/corpus/$name" 2>&1) || status=1
  rm -r "$fresh"
  printf '%s\n' "$name${said:+$'\n'$said}"
  return "$status"
}
export -f hunt
printf '%s\0' build/asan/bin/fuzz_* |
  xargs -0 -n 1 -P "$(nproc)" bash -c 'hunt "$@"' hunt "$1" "${2:-0}"
