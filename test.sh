#!/usr/bin/env bash
# Builds the programs and the tests, and runs every test.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh

install_build_packages
install_test_packages
cmake --preset release -DVORLENT_TESTS=ON -DVORLENT_BENCH=OFF >/dev/null
cmake --build --preset release
# Three to a processor, since tests of real programs wait more than they compute.
ctest --preset release -j "$((3 * $(nproc)))" "$@"
