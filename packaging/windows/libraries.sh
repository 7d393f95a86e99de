#!/usr/bin/env bash
# Builds the libraries of the Windows helpers from Debian's own source packages, statically, and prints
# the folder they are in: libmdb, which reads Access databases, and libarchive, which reads zip files.
# The result stays in the user's cache, under the sources' versions and the scripts that make it.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
. "$here/cache.sh"
compiler=x86_64-w64-mingw32-gcc-posix

# Not every mirror has the sources of this Debian's mdbtools; the next version is on the same shelf.
mdbtools=mdbtools_1.0.1.orig.tar.gz
mdbtools_sum=750cbf793bf5b7e296fdc359124393a0aef89ee663b7741ba4b1ca2ce30b3b37
libarchive=$(dpkg-query -W -f '${source:Version}' libarchive-dev)
fetch_sources() {
  fetch_source libarchive "$libarchive"
  local shelf
  shelf=$(apt-get -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$work/sources" \
                  -o Dir::State::lists="$work/lists" source --print-uris mdbtools |
          sed -n "s|^'\(.*\)/[^/]*\.dsc'.*|\1|p" | head -1)
  /usr/lib/apt/apt-helper download-file "$shelf/$mdbtools" mdbtools.tar.gz "SHA256:$mdbtools_sum"
  tar xf mdbtools.tar.gz
}

# Its configure would ask for tools and libraries that nothing here needs: without glib and iconv the
# library is these files. Without iconv a text beyond ASCII comes out wrong; performance data are
# numbers, and the names of their fields are ASCII.
build_libmdb() {
  mkdir -p libmdb made/include made/lib
  cd mdbtools-*/
  sed -e 's/@HAVE_ICONV_H@/0/; s/@HAVE_XLOCALE_H@/0/' -e 's/@LOCALE_T@/_locale_t/' \
      -e 's/@GLIB_INCLUDE_HEADER@/mdbfakeglib.h/' include/mdbtools.h.in >include/mdbtools.h
  sed -e 's/@PACKAGE@/mdbtools/; s/@VERSION@/1.0.1/' include/mdbver.h.in >include/mdbver.h
  local source
  for source in src/libmdb/*.c "$here/fmemopen.c"; do
    $compiler -O2 -std=gnu11 -D__USE_MINGW_ANSI_STDIO=1 -DHAVE_FMEMOPEN -DTLS=__thread \
      -include "$here/fmemopen.h" -Iinclude -c "$source" -o "$work/libmdb/$(basename "$source" .c).o"
  done
  cp include/mdbtools.h include/mdbfakeglib.h include/mdbver.h "$work/made/include"
  cd "$work"
  x86_64-w64-mingw32-ar rcs made/lib/libmdb.a libmdb/*.o
}

# What a zip file needs, and nothing else.
build_libarchive() {
  # shellcheck disable=SC2046
  local off=(ACL BZip2 CAT CNG CPIO EXPAT ICONV LIBB2 LIBXML2 LZ4 LZMA LZO MBEDTLS NETTLE OPENSSL
             PCREPOSIX TAR TEST XATTR ZSTD)
  cmake -S libarchive-*/ -B libarchive -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
    -DCMAKE_BUILD_TYPE=Release -DENABLE_WERROR=OFF -DCMAKE_C_FLAGS=-UZLIB_DLL \
    -DZLIB_LIBRARY=/usr/x86_64-w64-mingw32/lib/libz.a $(printf -- '-DENABLE_%s=OFF ' "${off[@]}")
  cmake --build libarchive --target archive_static
  cp libarchive-*/libarchive/archive.h libarchive-*/libarchive/archive_entry.h made/include
  cp libarchive/libarchive/libarchive_static.a made/lib/libarchive.a
}

key=$({
  echo "$mdbtools $libarchive"
  $compiler --version
  declare -f build_libmdb build_libarchive
  cat "$toolchain" "$here/fmemopen.h" "$here/fmemopen.c"
} | sha256sum | cut -c 1-16)
kept=${XDG_CACHE_HOME:-$HOME/.cache}/vorlent-windows/$key
if [ -e "$kept/made" ]; then
  echo "$kept"
  exit
fi

work=$(mktemp -d)
trap 'rm -r "$work"' EXIT
cd "$work"
{
  fetch_sources
  build_libmdb
  build_libarchive
  cp /usr/x86_64-w64-mingw32/lib/libz.a made/lib
  touch made/made
  rm -rf "$kept"
  mkdir -p "$(dirname "$kept")"
  mv made "$kept"
} >&2
echo "$kept"
