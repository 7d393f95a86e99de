#!/usr/bin/env bash
# Builds the Debian package from this checkout: build/deb/vorlent_<version>_<architecture>.deb
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

install_build_packages
install_packages "the tools that make a Debian package" dpkg-dev file gzip
CXXFLAGS="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)"
LDFLAGS=$(dpkg-buildflags --get LDFLAGS)
export CXXFLAGS LDFLAGS
cmake -S . -B build/deb -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DVORLENT_TESTS=OFF -DVORLENT_BENCH=OFF >/dev/null
cmake --build build/deb
cd build/deb
cpack -G DEB
