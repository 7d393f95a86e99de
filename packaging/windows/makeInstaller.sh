#!/usr/bin/env bash
# Makes an installer of a folder with programs, manual and shipped files:
#   packaging/windows/makeInstaller.sh FOLDER VERSION INSTALLER [MAKENSIS-OPTION...]
# VERSION is two numbers, as 0.1. Where VORLENT_SIGN is set, that command signs what comes behind it.
set -euo pipefail
folder=$(realpath "$1")
installer=$(realpath -m "$3")
version=$2
shift 3
cd "$(dirname "$0")"

licence=../../LICENSE
[ -e "$licence" ] || licence=../linux/copyright
[ -z "${VORLENT_SIGN:-}" ] || set -- "$@" "-DSIGN=$VORLENT_SIGN"
makensis -V2 -WX -DVERSION="$version" -DFOLDER="$folder" -DLICENCE="$licence" \
  -DINSTALLER="$installer" "$@" installer.nsi
