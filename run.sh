#!/usr/bin/env bash
# Builds Vorlent and flies: the built-in aircraft in level flight, server and a display in this terminal.
#   ./run.sh              until Ctrl-C
#   ./run.sh --seconds N  for N seconds
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh

seconds=0
while [ $# -gt 0 ]; do
  case $1 in
    --seconds)
      seconds=${2:-}
      [[ $seconds =~ ^[0-9]+$ ]] || { echo "--seconds takes a whole number" >&2; exit 2; }
      shift 2
      ;;
    --help) sed -n '2,4s/^# \{0,1\}//p' "$0"; exit 0 ;;
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
start() {
  setsid "$programs/$1" </dev/null >"$output/$1.txt" 2>&1 &
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

: >"$programs/log.txt"
start vorlent-sim
wait_for vorlent-sim "${started[0]}" "$output/vorlent-sim.txt" ready
start "$server"
wait_for "$server" "${started[1]}" "$programs/log.txt" $'OK\r'

# The shipped network has the flight plan and the tuning of the autopilot under this machine's name.
grep -qi '^ *ShareRoot *= *[^ ]' "$programs/Vorlent.ini" ||
  echo "note: no ShareRoot in $programs/Vorlent.ini, the autopilot stays without tuning" >&2
display=("$programs/vorlent-display" --name display)
[ "$seconds" -eq 0 ] || display+=(--seconds "$seconds")
# A background job would lose the terminal's keyboard without a descriptor of its own.
exec 3<&0
"${display[@]}" <&3 &
started+=($!)
status=0
wait "${started[2]}" || status=$?
# Above 128 it was a signal that came: the way to end it.
[ "$status" -gt 128 ] || exit "$status"
