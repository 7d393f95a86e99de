#!/usr/bin/env bash
# Runs a Windows program under Wine with a screen and a window manager, which nobody sees:
#   scripts/wine-screen.sh [--bare] PREFIX PROGRAM [ARGUMENT...]
# The screen ends with the program, and Wine's services with the screen. --bare is without the window
# manager: Wine gives the focus and moves the windows itself, by a loop as Windows has it.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
bare=
if [ "$1" = --bare ]; then
  bare=yes
  shift
fi
prefix=$1
mkdir -p "$prefix"
exec 9>"$prefix/screen.lock"
flock 9

number=$(mktemp)
Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 3>"$number" 9>&- &
screen=$!
manager=
finish() {
  WINEPREFIX=$prefix/prefix wineserver --kill 9>&- || true
  [ -z "$manager" ] || kill "$manager" 2>/dev/null || true
  kill "$screen" 2>/dev/null || true
  rm -f "$number"
}
trap finish EXIT
until [ -s "$number" ]; do
  kill -0 "$screen" 2>/dev/null || { echo "no screen" >&2; exit 1; }
  sleep 0.05
done
export VORLENT_WINE_SCREEN=:$(cat "$number")
if [ -z "$bare" ]; then
  DISPLAY=$VORLENT_WINE_SCREEN openbox 9>&- 2>/dev/null &
  manager=$!
fi
"$here/wine.sh" "$@" 9>&-
