#!/usr/bin/env bash
# configure.sh [OPTION...]: configures the Windows build with the static libraries that its programs
# need, which are built first where the cache has none. The options go to cmake.
set -euo pipefail
cd "$(dirname "$0")/../.."

qt=$(packaging/windows/qt.sh)
pugixml=$(packaging/windows/pugixml.sh)
libraries=$(packaging/windows/libraries.sh)
recording=$(packaging/windows/recordingLibraries.sh)
qrencode=$(packaging/windows/qrencode.sh)
cmake --preset mingw -DVORLENT_WINDOWS_QT="$qt" -DVORLENT_WINDOWS_PUGIXML="$pugixml" \
  -DVORLENT_WINDOWS_LIBRARIES="$libraries" -DVORLENT_WINDOWS_RECORDING="$recording" \
  -DVORLENT_WINDOWS_QRENCODE="$qrencode" "$@"
