#!/usr/bin/env bash
# Builds the libraries of the recordings' files for Windows from Debian's own source packages, statically,
# and prints the folder they are in: SQLite and zstd. The result stays in the user's cache, under the
# sources' versions and the script that makes it.
set -euo pipefail
. "$(dirname "$0")/cache.sh"
compiler=x86_64-w64-mingw32-gcc-posix
sqlite=$(dpkg-query -W -f '${source:Version}' libsqlite3-dev)
zstd=$(dpkg-query -W -f '${source:Version}' libzstd-dev)

# Its own make joins the sources into one file here; the rest of it is for Linux.
build_sqlite() {
  cd sqlite3-*/
  ./configure --disable-tcl --disable-readline
  make sqlite3.c
  $compiler -O2 -DSQLITE_THREADSAFE=0 -DSQLITE_OMIT_LOAD_EXTENSION -c sqlite3.c -o sqlite3.o
  x86_64-w64-mingw32-ar rcs "$work/made/lib/libsqlite3.a" sqlite3.o
  cp sqlite3.h "$work/made/include"
  cd "$work"
}

build_zstd() {
  cmake -S libzstd-*/build/cmake -B zstd -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
    -DCMAKE_BUILD_TYPE=Release -DZSTD_BUILD_PROGRAMS=OFF -DZSTD_BUILD_TESTS=OFF \
    -DZSTD_BUILD_SHARED=OFF -DZSTD_MULTITHREAD_SUPPORT=OFF
  cmake --build zstd --target libzstd_static
  cp zstd/lib/libzstd.a made/lib
  cp libzstd-*/lib/zstd.h made/include
}

key=$({
  echo "$sqlite $zstd"
  $compiler --version
  declare -f build_sqlite build_zstd
  cat "$toolchain"
} | sha256sum | cut -c 1-16)
kept=${XDG_CACHE_HOME:-$HOME/.cache}/vorlent-windows/recording-$key
if [ -e "$kept" ]; then
  echo "$kept"
  exit
fi

work=$(mktemp -d)
trap 'rm -r "$work"' EXIT
cd "$work"
{
  mkdir -p made/include made/lib
  fetch_source sqlite3 "$sqlite"
  fetch_source libzstd "$zstd"
  build_sqlite
  build_zstd
  mkdir -p "$(dirname "$kept")"
  mv made "$kept.new"
  mv "$kept.new" "$kept"
} >&2
echo "$kept"
