# Sourced by the scripts that build a library for Windows from Debian's own source package and keep it
# in the user's cache.

windows_packaging=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
toolchain=$windows_packaging/../../cmake/mingw-w64.cmake

# cached_library SOURCE PACKAGE OPTION...: prints the folder that the library is in, under the version
# of the source, the options and the compiler. It is built with the options of CMake when it is not
# there yet. PACKAGE is one of Debian's that this source is installed as here.
cached_library() {
  local source=$1 package=$2 version key kept
  shift 2
  version=$(dpkg-query -W -f '${source:Version}' "$package")
  key=$({ echo "$version $*"; x86_64-w64-mingw32-g++-posix --version; cat "$toolchain"; } |
        sha256sum | cut -c 1-16)
  kept=${XDG_CACHE_HOME:-$HOME/.cache}/vorlent-windows/$source-$version-$key
  [ -e "$kept" ] || build_library "$source" "$version" "$kept" "$@" >&2
  echo "$kept"
}

build_library() (
  source=$1 version=$2 kept=$3
  shift 3
  work=$(mktemp -d)
  trap 'rm -r "$work"' EXIT
  cd "$work"
  fetch_source "$source" "$version"
  cmake -S "$source"-*/ -B build -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
        -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DCMAKE_INSTALL_PREFIX="/$source" "$@"
  cmake --build build
  rm -rf "$kept.new"
  cmake --install build --prefix "$kept.new"
  mv "$kept.new" "$kept"
)

fetch_source() { from_package_sources "$1=$2"; }

# apt-get source with the machine's own package sources, asked for sources.
from_package_sources() {
  local list apt
  mkdir -p sources lists/partial
  for list in /etc/apt/sources.list.d/*.sources; do
    [ ! -e "$list" ] || sed 's/^Types:.*/Types: deb-src/' "$list" >"sources/$(basename "$list")"
  done
  for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [ ! -e "$list" ] || sed -n 's/^deb /deb-src /p' "$list" >"sources/$(basename "$list" .list).list"
  done
  apt=(apt-get -q -o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$work/sources"
       -o "Dir::State::lists=$work/lists")
  "${apt[@]}" update
  "${apt[@]}" source "$@"
}
