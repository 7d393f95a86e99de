#!/usr/bin/env bash
# Runs a Windows program under Wine in a prefix of its own: scripts/wine.sh PREFIX PROGRAM [ARGUMENT...]
# The prefix is made at the first use. Nothing is written to the home folder, and no display is
# needed: windows have the driver that draws nothing.
set -euo pipefail
prefix=$1
shift

mkdir -p "$prefix/home"
export WINEPREFIX=$prefix/prefix WINEARCH=win64 WINEDEBUG=-all HOME=$prefix/home
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=;winedbg.exe="  # no downloads, no menus; a crash ends
unset DISPLAY WAYLAND_DISPLAY XDG_CACHE_HOME XDG_CONFIG_HOME XDG_DATA_HOME

make_prefix() {
  wine wineboot --init
  wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f
  wineserver --kill  # the desktop of this session has no driver yet
  touch "$prefix/made"
}

(
  flock 9
  [ -e "$prefix/made" ] || make_prefix >"$prefix/made.log" 2>&1 9>&- || {
    cat "$prefix/made.log" >&2
    exit 1
  }
) 9>"$prefix/lock"
exec wine "$@"
