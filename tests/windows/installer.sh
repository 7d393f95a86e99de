#!/usr/bin/env bash
# Installs, upgrades and uninstalls under Wine, in a system that is new:
#   tests/windows/installer.sh BUILD WORK
# BUILD is the build folder of the mingw preset, WORK a folder that is made anew.
set -euo pipefail
sources=$(cd "$(dirname "$0")/../.." && pwd)
build=$1
work=$2
export LC_ALL=C.UTF-8  # Wine reads our arguments and file names by it

# Of Wine nothing may run on: it would keep the folder in use.
end_session() { WINEPREFIX=$work/wine/prefix wineserver --kill 2>/dev/null || :; }
end_session
rm -rf "$work"
mkdir -p "$work"
trap end_session EXIT
windows() { "$sources/scripts/wine.sh" "$work/wine" "$@" </dev/null; }
fail() { echo "$1" >&2; exit 1; }
step() { printf '== %s\n' "$1"; }
# await LIMIT_S COMMAND...: until the command succeeds.
await() {
  local tenths
  for ((tenths = $1 * 10; tenths > 0; tenths--)); do
    "${@:2}" && return 0
    sleep 0.1
  done
  fail "in vain, for $1 s: ${*:2}"
}
has() { [ "$(cat "$1" 2>&1)" = "$2" ] || fail "$1 is: $(head -c 200 "$1" 2>&1)"; }
there() { [ -s "$1" ] || fail "$1 is not there"; }
gone() { [ ! -e "$1" ] || fail "$1 is still there"; }
is_gone() { [ ! -e "$1" ]; }

step "Two versions"
cmake --install "$build" --prefix "$work/shipped" --strip >/dev/null
make_installer() {
  "$sources/packaging/windows/makeInstaller.sh" "$work/shipped" "$1" "$work/$1.exe" -DQUICK
}
make_installer 1.0
echo new >"$work/shipped/New.txt"
echo changed >"$work/shipped/togsort.txt"
make_installer 1.1

c=$work/wine/prefix/drive_c
place='C:\Flüge und mehr\Vörlent'
folder="$c/Flüge und mehr/Vörlent"
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Vorlent'
# The switch has no quotes, whatever is in the path.
# shellcheck disable=SC2086
install_there() { windows "$work/1.0.exe" /S /D=$place; }

step "Installation"
install_there
for file in vorlent.exe vorlentd.exe vorlent-sim.exe vorlent-display.exe vorlent-web.exe \
            vorlent-plan.exe vorlent-check.exe vorlent-bridge.exe vorlent-keeper.exe \
            vorlent-replay.exe vorlent-recorder.exe vorlent-mdb.exe vorlent-zip.exe \
            uninstall.exe Vorlent.ini Docs/manual.htm Stations.txt Cockpits/737-700/Flaps.cfg; do
  there "$folder/$file"
done
menu=$(find "$c/users" -type d -path '*Start Menu/Programs/Vorlent')
for entry in Vorlent 'Vorlent (keeps running)' Simulator Manual Uninstall; do there "$menu/$entry.lnk"; done
# It prints in the code page of a console.
windows reg query "$uninstall_key" /v InstallLocation |
  LC_ALL=C grep -a 'C:.Fl.*ge und mehr.V.*rlent' >/dev/null ||
  fail "the system does not know where it is"

# Wine's system folder has what every Windows has; api-ms-win-... are other names of the same.
step "The programs need the system alone, and tell it how to run them"
for program in "$folder"/vorlent*.exe; do
  x86_64-w64-mingw32-objdump -p "$program" >"$work/parts.txt"
  for guard in HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT; do
    grep -q "$guard" "$work/parts.txt" || fail "$program lacks $guard"
  done
  for library in $(sed -n '/api-ms-win-/d; s/.*DLL Name: //p' "$work/parts.txt"); do
    there "$c/windows/system32/${library,,}"
  done
  for wish in Common-Controls asInvoker '>UTF-8<' 'longPathAware[^>]*>true<' PerMonitorV2; do
    grep -aq "$wish" "$program" || fail "$program does not ask for $wish"
  done
done

step "The programs start from there"
"$sources/scripts/wine.sh" "$work/wine" "$place\\vorlent-sim.exe" \
  >"$work/sim.txt" 2>"$work/sim-faults.txt" </dev/null &
simulator=$!
await 30 grep -qs ready "$work/sim.txt"
has "$work/sim-faults.txt" ""
windows "$place\\vorlent-check.exe" >"$work/check.txt" || fail "$(cat "$work/check.txt")"

step "What runs is not overwritten"
echo '[Mine]' >>"$folder/Vorlent.ini"
cp "$folder/Vorlent.ini" "$work/Vorlent.ini"
mkdir -p "$folder/Cockpits/Mine"
echo 1,2,5 >"$folder/Cockpits/Mine/Flaps.cfg"
echo "what happened" >"$folder/log.txt"
echo damaged >"$folder/vorlent-check.exe"
status=0
windows "$work/1.1.exe" /S || status=$?
[ "$status" = 2 ] || fail "the installer ended with $status beside a program that runs"
has "$folder/vorlent-check.exe" damaged
gone "$folder/New.txt"
kill "$simulator"
wait "$simulator" || :

step "Upgrade"
windows "$work/1.1.exe" /S
cmp "$folder/vorlent-check.exe" "$work/shipped/vorlent-check.exe"
has "$folder/New.txt" new
cmp "$folder/togsort.txt" "$build/bin/togsort.txt"
users_files_are_there() {
  cmp "$folder/Vorlent.ini" "$work/Vorlent.ini"
  has "$folder/Cockpits/Mine/Flaps.cfg" 1,2,5
  has "$folder/log.txt" "what happened"
}
users_files_are_there
windows reg query "$uninstall_key" /v DisplayVersion | grep -F 1.1 >/dev/null || fail "the system knows no 1.1"

step "Removal"
windows "$place\\uninstall.exe" /S
await 30 is_gone "$folder/uninstall.exe"
await 30 is_gone "$menu"
left=$(find "$folder" -name '*.exe' -o -name manual.htm)
[ -z "$left" ] || fail "left behind: $left"
users_files_are_there
there "$folder/Cockpits/737-700/Flaps.cfg"
! windows reg query "$uninstall_key" >/dev/null 2>&1 || fail "the system still knows it"

# Programs in the place of Windows' own, which would change the system, write each call down.
step "What needs an administrator"
cat >"$work/called.nsi" <<'END'
Target amd64-unicode
SilentInstall silent
OutFile "${MADE}"
Section
  FileOpen $0 C:\called.txt a
  FileSeek $0 0 END
  FileWriteUTF16LE $0 "$CMDLINE$\n"
SectionEnd
END
for program in netsh net; do
  makensis -V1 -DMADE="$c/windows/system32/$program.exe" "$work/called.nsi"
  windows reg add 'HKCU\Software\Wine\DllOverrides' /v "$program.exe" /d native /f >/dev/null
done
# shellcheck disable=SC2086
windows "$work/1.0.exe" /S /FIREWALL /SHARE /D=$place
rule='C:\windows\system32\netsh.exe advfirewall firewall add rule name="Vorlent" dir=in action=allow'
cat >"$work/wanted.txt" <<END
C:\\windows\\system32\\netsh.exe advfirewall firewall delete rule name="Vorlent"
$rule profile=private,domain program="$place\\vorlent.exe"
$rule profile=private,domain program="$place\\vorlentd.exe"
$rule profile=private,domain program="$place\\vorlent-web.exe"
C:\\windows\\system32\\net.exe share Vorlent="$place" /cache:no /users:8
END
iconv -f UTF-16LE -t UTF-8 "$c/called.txt" | sed 's/ *$//' | diff "$work/wanted.txt" - ||
  fail "that is not what an administrator was to do"
windows "$place\\uninstall.exe" /S
await 30 is_gone "$folder/uninstall.exe"

step "The folder without a word"
windows "$work/1.0.exe" /S
there "$(echo "$c"/users/*/AppData/Local/Programs/Vorlent/vorlent-sim.exe)"
