#!/usr/bin/env bash
# Shows the Windows programs under Wine on an X server without a screen and takes a picture of it:
#   scripts/wine-picture.sh [PICTURE]       (docs/windows-wine.png)
# Needs what cmake --preset mingw has built, xvfb, openbox, xdotool and imagemagick.
set -euo pipefail
cd "$(dirname "$0")/.."
picture=${1:-docs/windows-wine.png}
programs=build/mingw/bin
work=$(mktemp -d)
started=()
finish() {
  [ ${#started[@]} -eq 0 ] || kill "${started[@]}" 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT

# await LIMIT_S COMMAND...: until the command succeeds
await() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    [ $SECONDS -lt $end ] || { echo "gave up waiting for: $*" >&2; return 1; }
    sleep 0.2
  done
}
says() { grep -q "$1" "$2"; }

Xvfb -displayfd 3 -screen 0 1280x900x24 3>"$work/number" &
started+=($!)
await 10 test -s "$work/number"
export VORLENT_WINE_SCREEN=:$(cat "$work/number")
DISPLAY=$VORLENT_WINE_SCREEN openbox &
started+=($!)

cp -r data/. "$programs"/*.exe "$work"
mkdir -p "$work/Network/127.0.0.1/Vorlent"
printf 'LocalIp=127.0.0.1\r\n' >>"$work/Vorlent.ini"
prefix=$PWD/build/mingw/wine-screen
run() { scripts/wine.sh "$prefix" "$work/$1.exe" "${@:2}"; }
# Wine has none of Windows' fonts.
for font in "MS Shell Dlg" "MS Shell Dlg 2" "Segoe UI" Tahoma; do
  scripts/wine.sh "$prefix" reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$font" \
    /d "DejaVu Sans" /f >/dev/null
done
run vorlent-sim >"$work/sim.txt" 2>&1 &
started+=($!)
await 60 says ready "$work/sim.txt"
run vorlent 2>/dev/null &
started+=($!)
await 60 grep -qs OK "$work/log.txt"
(sleep 2; printf 'P 163 1\nP 165 1\nA 81 9000\nP 183 1\nP 172 1\nP 167 1\n'; sleep 30) |
  run vorlent-display 127.0.0.1 5000 --name display >"$work/display.txt" 2>&1 &
started+=($!)
await 30 says "MCP_SPD" "$work/display.txt"
DISPLAY=$VORLENT_WINE_SCREEN xdotool search --name "Vorlent .* on: FSX" windowactivate --sync
DISPLAY=$VORLENT_WINE_SCREEN import -frame -window "$(DISPLAY=$VORLENT_WINE_SCREEN \
  xdotool search --name 'Vorlent .* on: FSX' | tail -1)" "$picture"
echo "$picture"
