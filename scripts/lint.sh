#!/usr/bin/env bash
# clang-tidy over the sources of a configured build folder: scripts/lint.sh BUILD_FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
run-clang-tidy-14 -quiet -extra-arg=-Wno-unknown-warning-option -p "$1" -j "$(nproc)" "^$PWD/src/" 2>&1 |
  { grep -vE 'clang-tidy-14 |warnings? (generated|treated)|^Suppressed|^Use -header-filter' || true; }
