#!/usr/bin/env bash
# Builds Vorlent and flies: the built-in aircraft in level flight, server and a display in this terminal.
#   ./run.sh              until Ctrl-C
#   ./run.sh --seconds N  for N seconds
#   ./run.sh --flight landing
#                         engine starts, a hop and a landing, with their sounds: docs/sound.md
#   ./run.sh --route FILE [--runway PLACE]
#                         from the runway along a route file, which ends at PLACE: vorlent-plan --help
#   ./run.sh --route FILE --runway PLACE --ils MHZ --pilot [--speed FACTOR]
#                         the whole flight by itself, with what the pilot does in place of the display,
#                         to 50 feet above the other runway; FACTOR seconds of flight in one, 1 to 4
set -euo pipefail
called_from=$PWD
cd "$(dirname "$0")"
. scripts/packages.sh

seconds=0
route=
runway=()
flight=
ils=()
pilot=
speed=1
while [ $# -gt 0 ]; do
  case $1 in
    --seconds)
      seconds=${2:-}
      [[ $seconds =~ ^[0-9]+$ ]] || { echo "--seconds takes a whole number" >&2; exit 2; }
      shift 2
      ;;
    --flight)
      [ -f "data/Flights/${2:-}.txt" ] || { echo "--flight takes a name in data/Flights" >&2; exit 2; }
      flight=$2
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
    --ils)
      [ -n "${2:-}" ] || { echo "--ils takes a frequency" >&2; exit 2; }
      ils=("--ils=$2")
      shift 2
      ;;
    --pilot) pilot=1; shift ;;
    --speed)
      [[ ${2:-} =~ ^[1-4]$ ]] || { echo "--speed takes 1, 2, 3 or 4" >&2; exit 2; }
      speed=$2
      shift 2
      ;;
    --help) sed -n '2,11s/^# \{0,1\}//p' "$0"; exit 0 ;;
    *) echo "unknown option '$1', see ./run.sh --help" >&2; exit 2 ;;
  esac
done

[ -n "$pilot" ] || [ "$speed" -eq 1 ] || { echo "--speed is for a flight with --pilot" >&2; exit 2; }
[ -z "$pilot" ] || [ -n "$route" ] || { echo "--pilot takes a route: --route FILE" >&2; exit 2; }

install_build_packages
cmake --preset release -DVORLENT_TESTS=OFF -DVORLENT_BENCH=OFF >/dev/null
cmake --build --preset release

programs=$PWD/build/release/bin
output=$PWD/build/run
mkdir -p "$output"
if [ "$speed" -gt 1 ]; then
  # An installation of its own, whose poll and cycle keep up with the flight.
  rm -rf "$output/programs"
  mkdir "$output/programs"
  for part in vorlent vorlentd vorlent-sim vorlent-plan vorlent-share vorlent-mdb; do
    cp "$programs/$part" "$output/programs/"
  done
  cp -r data/. "$output/programs/"
  programs=$output/programs
  # The poll takes 10 ms more than it is asked for.
  sed -i -E "s/^Polling=[0-9]*/Polling=$((60 / speed - 10))/; s/^;?CycleTime=[0-9]*/CycleTime=$((400 / speed))/" \
    "$programs/Vorlent.ini"
fi
server=vorlentd
[ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || server=vorlent

# Each in a session of its own, so that Ctrl-C reaches this script alone and they end in order.
started=()
# start NAME OPTION...; its standard input is $input.
input=/dev/null
start() {
  setsid "$programs/$1" "${@:2}" <"$input" >"$output/$1.txt" 2>&1 &
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

# Only what is confirmed in a session is heard, and only by a client that comes behind it.
confirm_sounds() {
  if [ "$server" = vorlentd ]; then
    local command
    for command in 'press frmMainClient.Settings(1)' 'press frmMainClient.cmdSound' \
      'set frmSound.chkRum 1' 'set frmSound.chkBump 1' 'set frmSound.chkTyres 1' \
      'set frmSound.chkStart 1' 'press frmSound.cmdOK'; do
      printf '%s\n' "$command" >&4
    done
    wait_for vorlentd "${started[1]}" "$output/vorlentd.txt" 'hide frmSound'
  else
    echo 'In the window: menu Settings, "Enable acft sound"; button "Sound...", check all four, OK.'
    read -r -p 'Then press Enter here. '
  fi
}

planned=("$route" ${runway[@]+"${runway[@]}"} ${ils[@]+"${ils[@]}"})
start_state=(--start level)
if [ -n "$route" ]; then
  "$programs/vorlent-plan" "${planned[@]}" --print | tee "$output/plan.txt"
  start_state=(--start runway)
fi
[ -z "$flight" ] || start_state=(--script "$programs/Flights/$flight.txt")

# Without a loudspeaker the sounds go to the device that plays nothing.
sound_device=$("$programs/vorlent-sound" --usable 2>/dev/null)
sed -i -E "s/^IDSoundDevice=1(\r?)\$/IDSoundDevice=${sound_device:-1}\1/" "$programs/Vorlent.ini"
[ -z "$pilot" ] || start_state+=(--trace "$output/flight.csv" --speed "$speed")

: >"$programs/log.txt"
start vorlent-sim "${start_state[@]}"
wait_for vorlent-sim "${started[0]}" "$output/vorlent-sim.txt" ready
if [ -n "$flight" ] && [ "$server" = vorlentd ]; then
  input=$output/console
  rm -f "$input"
  mkfifo "$input"
  exec 4<>"$input"
fi
start "$server"
input=/dev/null
wait_for "$server" "${started[1]}" "$programs/log.txt" $'OK\r'
[ -z "$flight" ] || confirm_sounds

# The shipped network has the flight plan and the tuning of the autopilot under this machine's name.
grep -qi '^ *ShareRoot *= *[^ ]' "$programs/Vorlent.ini" ||
  echo "note: no ShareRoot in $programs/Vorlent.ini, the autopilot stays without tuning" >&2
leader=("${planned[@]}" --share "$programs/Network/display/Tarnwick" --name display)
if [ -n "$pilot" ]; then
  foreground=("$programs/vorlent-plan" "${leader[@]}" --pilot --speed "$speed")
else
  [ -z "$route" ] || start vorlent-plan "${leader[@]}"
  foreground=("$programs/vorlent-display" --name display)
  [ "$seconds" -eq 0 ] || foreground+=(--seconds "$seconds")
fi
# A background job would lose the terminal's keyboard without a descriptor of its own.
exec 3<&0
"${foreground[@]}" <&3 &
started+=($!)
status=0
wait "${started[-1]}" || status=$?
# Above 128 it was a signal that came: the way to end it.
[ "$status" -gt 128 ] && exit 0
[ -z "$pilot" ] || [ "$status" -ne 0 ] ||
  scripts/route-picture.sh "$output/plan.txt" "$output/flight.csv" "$output/flight.svg"
exit "$status"
