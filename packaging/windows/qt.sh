#!/usr/bin/env bash
# Builds Qt statically for Windows from Debian's own source package and prints the folder it is in.
# The result stays in the user's cache, under the source's version and the options; about 20 minutes
# on two processors when it is not there yet.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
toolchain=$here/../../cmake/mingw-w64.cmake

options="
  -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF
  -DQT_QMAKE_TARGET_MKSPEC=win32-g++
  -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake
  -DINPUT_opengl=no -DINPUT_openssl=no -DFEATURE_vulkan=OFF -DFEATURE_sql=OFF -DFEATURE_dbus=OFF
  -DFEATURE_tabletevent=OFF -DFEATURE_icu=OFF -DFEATURE_glib=OFF -DFEATURE_zstd=OFF
  -DFEATURE_brotli=OFF -DFEATURE_printsupport=OFF -DFEATURE_system_pcre2=OFF
  -DFEATURE_system_freetype=OFF -DFEATURE_system_harfbuzz=OFF -DFEATURE_system_png=OFF
  -DFEATURE_system_jpeg=OFF -DFEATURE_system_zlib=OFF -DFEATURE_system_doubleconversion=OFF"

version=$(dpkg-query -W -f '${source:Version}' qt6-base-dev)
key=$({ echo "$version $options"; x86_64-w64-mingw32-g++-posix --version; cat "$toolchain"; } |
      sha256sum | cut -c 1-16)
kept=${XDG_CACHE_HOME:-$HOME/.cache}/vorlent-qt/$version-$key
if [ -e "$kept/lib/cmake/Qt6/Qt6Config.cmake" ]; then
  echo "$kept"
  exit
fi

work=$(mktemp -d)
trap 'rm -r "$work"' EXIT
cd "$work"
mkdir -p sources lists/partial
# The machine's own package sources, asked for sources.
for list in /etc/apt/sources.list.d/*.sources; do
  sed 's/^Types:.*/Types: deb-src/' "$list" >"sources/$(basename "$list")"
done
for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
  [ ! -e "$list" ] || sed -n 's/^deb /deb-src /p' "$list" >"sources/$(basename "$list" .list).list"
done
apt="apt-get -q -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts=$work/sources"
apt="$apt -o Dir::State::lists=$work/lists"
{
  $apt update
  $apt source "qt6-base=$version"
  # shellcheck disable=SC2086
  cmake -S qt6-base-*/ -B build -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" $options \
        -DCMAKE_INSTALL_PREFIX="$kept.new"
  cmake --build build
  rm -rf "$kept.new"
  cmake --install build
  mv "$kept.new" "$kept"
} >&2
echo "$kept"
