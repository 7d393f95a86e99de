#!/usr/bin/env bash
# Builds the library that reads the planner's XML for Windows and prints the folder it is in.
set -euo pipefail
. "$(dirname "$0")/cache.sh"

cached_library pugixml libpugixml-dev
