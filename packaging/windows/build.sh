#!/usr/bin/env bash
# Builds the Windows installer and a zip file of the same programs from this checkout:
#   build/windows/vorlent-<version>-setup.exe and build/windows/vorlent-<version>-portable.zip
# Where VORLENT_SIGN is set, that command signs each program and the installers; the file's name is put
# behind it.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh

install_build_packages
install_windows_packages
packaging/windows/configure.sh -B build/windows -DVORLENT_TESTS=OFF >/dev/null
cmake --build build/windows

cd build/windows
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' CMakeCache.txt)
folder=Vorlent-$version
rm -rf "$folder"
cmake --install . --prefix "$folder" --strip >/dev/null
if [ -n "${VORLENT_SIGN:-}" ]; then
  for program in "$folder"/*.exe; do $VORLENT_SIGN "$program"; done
fi
cmake -E tar cf "vorlent-$version-portable.zip" --format=zip "$folder"
../../packaging/windows/makeInstaller.sh "$folder" "$version" "vorlent-$version-setup.exe"
ls -l "$PWD/vorlent-$version-portable.zip" "$PWD/vorlent-$version-setup.exe"
