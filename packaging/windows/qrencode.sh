#!/usr/bin/env bash
# Builds the library that draws QR codes for Windows and prints the folder it is in.
set -euo pipefail
. "$(dirname "$0")/cache.sh"

# Debian's own part of this source is how it is packaged, and not every mirror has it.
fetch_source() {
  from_package_sources --tar-only "$1=$2"
  tar xf "$1"_*.orig.tar.*
}

cached_library qrencode libqrencode-dev -DWITH_TOOLS=NO -DWITHOUT_PNG=YES
