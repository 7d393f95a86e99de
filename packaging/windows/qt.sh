#!/usr/bin/env bash
# Builds Qt statically for Windows and prints the folder it is in; about 20 minutes on two processors
# when it is not in the cache yet.
set -euo pipefail
. "$(dirname "$0")/cache.sh"

cached_library qt6-base qt6-base-dev \
  -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF -DQT_QMAKE_TARGET_MKSPEC=win32-g++ \
  -DQT_HOST_PATH=/usr \
  -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake" \
  -DINPUT_opengl=no -DINPUT_openssl=no -DFEATURE_vulkan=OFF -DFEATURE_sql=OFF -DFEATURE_dbus=OFF \
  -DFEATURE_tabletevent=OFF -DFEATURE_icu=OFF -DFEATURE_glib=OFF -DFEATURE_zstd=OFF \
  -DFEATURE_brotli=OFF -DFEATURE_printsupport=OFF -DFEATURE_system_pcre2=OFF \
  -DFEATURE_system_freetype=OFF -DFEATURE_system_harfbuzz=OFF -DFEATURE_system_png=OFF \
  -DFEATURE_system_jpeg=OFF -DFEATURE_system_zlib=OFF -DFEATURE_system_doubleconversion=OFF
