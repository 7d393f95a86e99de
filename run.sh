#!/usr/bin/env bash
# Builds Vorlent and flies: the built-in aircraft in level flight, server and a display in this terminal.
#   ./run.sh              until Ctrl-C
#   ./run.sh --seconds N  for N seconds
#   ./run.sh --route FILE [--runway PLACE]
#                         from the runway along a route file, which ends at PLACE: vorlent-plan --help
set -euo pipefail
called_from=$PWD
cd "$(dirname "$0")"
. scripts/packages.sh

seconds=0
route=
runway=()
while [ $# -gt 0 ]; do
  case $1 in
    --seconds)
      seconds=${2:-}
      [[ $seconds =~ ^[0-9]+$ ]] || { echo "--seconds takes a whole number" >&2; exit 2; }
      shift 2
      ;;
    --route)
      [ -n "${2:-}" ] || { echo "--route takes a file" >&2; exit 2; }
      route=$(cd "$called_from" && realpath -- "$2")
      shift 2
      ;;
    --runway)
      [ -n "${2:-}" ] || { echo "--runway takes a place" >&2; exit 2; }
      runway=("--runway=$2")
      shift 2
      ;;
    --help) sed -n '2,6s/^# \{0,1\}//p' "$0"; exit 0 ;;
    *) echo "unknown option '$1', see ./run.sh --help" >&2; exit 2 ;;
  esac
done

install_build_packages
cmake --preset release -DVORLENT_TESTS=OFF -DVORLENT_BENCH=OFF >/dev/null
cmake --build --preset release

programs=$PWD/build/release/bin
output=$PWD/build/run
mkdir -p "$output"
server=vorlentd
[ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || server=vorlent

# Each in a session of its own, so that Ctrl-C reaches this script alone and they end in order.
started=()
# start NAME OPTION...
start() {
  setsid "$programs/$1" "${@:2}" </dev/null >"$output/$1.txt" 2>&1 &
  started+=($!)
}

end_all() {
  local i
  for ((i = ${#started[@]} - 1; i >= 0; i--)); do
    kill -TERM "${started[i]}" 2>/dev/null || continue
    while kill -0 "${started[i]}" 2>/dev/null; do sleep 0.05; done
  done
}
trap end_all EXIT
# The wait for the display then comes back, and the script ends.
trap : INT TERM

# wait_for NAME PID FILE LINE: until LINE stands in FILE.
wait_for() {
  local tenths
  for ((tenths = 0; tenths < 300; tenths++)); do
    grep -qx -- "$4" "$3" 2>/dev/null && return 0
    kill -0 "$2" 2>/dev/null || break
    sleep 0.1
  done
  echo "$1 did not start. It said:" >&2
  cat "$output/$1.txt" >&2
  return 1
}

planned=("$route" ${runway[@]+"${runway[@]}"})
start_state=(--start level)
if [ -n "$route" ]; then
  "$programs/vorlent-plan" "${planned[@]}" --print
  start_state=(--start runway)
fi

: >"$programs/log.txt"
start vorlent-sim "${start_state[@]}"
wait_for vorlent-sim "${started[0]}" "$output/vorlent-sim.txt" ready
start "$server"
wait_for "$server" "${started[1]}" "$programs/log.txt" $'OK\r'

# The shipped network has the flight plan and the tuning of the autopilot under this machine's name.
grep -qi '^ *ShareRoot *= *[^ ]' "$programs/Vorlent.ini" ||
  echo "note: no ShareRoot in $programs/Vorlent.ini, the autopilot stays without tuning" >&2
[ -z "$route" ] ||
  start vorlent-plan "${planned[@]}" --share "$programs/Network/display/Tarnwick" --name display
display=("$programs/vorlent-display" --name display)
[ "$seconds" -eq 0 ] || display+=(--seconds "$seconds")
# A background job would lose the terminal's keyboard without a descriptor of its own.
exec 3<&0
"${display[@]}" <&3 &
started+=($!)
status=0
wait "${started[-1]}" || status=$?
# Above 128 it was a signal that came: the way to end it.
[ "$status" -gt 128 ] || exit "$status"
