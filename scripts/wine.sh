#!/usr/bin/env bash
# Runs a Windows program under Wine: scripts/wine.sh PREFIX PROGRAM [ARGUMENT...]
# PREFIX is the full path of a folder, which is made at the first use. Nothing is written to the home
# folder, and no display is needed: windows have the driver that draws nothing. VORLENT_WINE_SCREEN names
# an X display to draw them on; a prefix is made with one or without, for good.
set -euo pipefail
prefix=$1
shift

mkdir -p "$prefix/home"
export WINEPREFIX=$prefix/prefix WINEARCH=win64 WINEDEBUG=-all HOME=$prefix/home
# No downloads, no menu entries, and a crash ends the program.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=;winedbg.exe="
unset DISPLAY WAYLAND_DISPLAY XDG_CACHE_HOME XDG_CONFIG_HOME XDG_DATA_HOME
driver=null
if [ -n "${VORLENT_WINE_SCREEN:-}" ]; then
  export DISPLAY=$VORLENT_WINE_SCREEN
  driver=x11
fi

make_prefix() {
  wine wineboot --init &&
    wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d $driver /f || return
  wineserver --kill  # the desktop of this session has no driver yet
  touch "$prefix/made"
}

# The first program of a session starts the system's services, which would hold that program's output
# open for as long as they run.
start_session() { wine cmd /c exit </dev/null >/dev/null 2>&1; }

(
  flock 9
  [ -e "$prefix/made" ] || make_prefix >"$prefix/made.log" 2>&1 9>&- || {
    cat "$prefix/made.log" >&2
    exit 1
  }
  start_session 9>&-
) 9>"$prefix/lock"
exec wine "$@"
