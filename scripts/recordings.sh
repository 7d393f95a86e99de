#!/usr/bin/env bash
# Flies the flights of tests/recordings with the real programs and records them anew; it takes three
# minutes. Wanted after a change that is meant to write other things to the simulator, and after one
# to the timers, the sockets or the recording's format:
#   scripts/recordings.sh [PROGRAMS]     a folder of programs and end-to-end tests, build/release/bin
#                                        without it
set -euo pipefail
cd "$(dirname "$0")/.."
programs=$(realpath "${1:-build/release/bin}")
work=$(mktemp -d)
mkdir -p tests/recordings

# Of one flight: its own installation, bus and port, so that all fly at the same time.
started=()
end_all() {
  local i
  for ((i = ${#started[@]} - 1; i >= 0; i--)); do kill "${started[i]}" 2>/dev/null || true; done
}

# wait_for FILE LINE: until LINE stands in FILE.
wait_for() {
  local tenths
  for ((tenths = 0; tenths < 300; tenths++)); do
    grep -qx -- "$2" "$1" 2>/dev/null && return 0
    sleep 0.1
  done
  echo "no line \"$2\" in $1:" >&2
  cat "$1" >&2
  return 1
}

# prepare NAME PORT [KEY=VALUE...]: its folder, which becomes the working one.
prepare() {
  local name=$1 port=$2 program key
  shift 2
  mkdir -p "$work/$name/bus" "$work/$name/programs"
  cd "$work/$name/programs"
  for program in vorlentd vorlent-sim vorlent-display vorlent-stick vorlent-recorder vorlent-share \
    vorlent-mdb vorlent-zip; do cp "$programs/$program" .; done
  cp -r "$OLDPWD/data/." .
  for key in "Port=$port" "Clients=1" "$@"; do
    sed -i "s/^${key%%=*}=.*/$key/" Vorlent.ini
  done
  sed -i 's/^;\(Recorder\)=.*/\1=Recordings/; s/^;\(LocalIp\)=.*/\1=127.0.0.1/
          s/^;\(ClientNetworks\)=.*/\1=127.0.0.0\/8/' Vorlent.ini
  export VORLENT_BUS=$work/$name/bus
  trap end_all EXIT
}

simulator() {
  ./vorlent-sim "$@" >../sim.txt 2>&1 &
  started+=($!)
  wait_for ../sim.txt ready
}

# The operator's hand is file descriptor 4.
server() {
  mkfifo ../console
  exec 4<>../console
  ./vorlentd <../console >../server.txt 2>&1 &
  server=$!
  started+=("$server")
  wait_for ../server.txt '1| OK'
}

# display PORT SECONDS: its lines come from standard input.
display() { ./vorlent-display --name display --seconds "$2" 127.0.0.1 "$1" >../display.txt 2>&1; }

# after SECONDS LINE: a hand that waits.
after() {
  sleep "$1"
  echo "$2"
}

# keep NAME: ends the server in order and takes its recording.
keep() {
  echo exit >&4
  wait "$server"
  started=("${started[@]/$server/}")
  install -m 644 Recordings/*.sqlite "$OLDPWD/tests/recordings/$1.sqlite"
  rm -rf "$work/$1"
}

# From 5000 to 6500 feet with a turn to the north, slower then.
climb() {
  prepare climb 20500
  simulator --start level --wind 270/15 --turbulence light
  server
  {
    after 2 'A 81 5000'
    after 0.2 'A 84 250'
    after 0.2 'A 82 240'
    after 0.2 'P 163 1'
    after 0.2 'P 165 1'
    after 0.2 'P 183 1'
    after 0.2 'P 172 1'
    after 0.2 'P 174 1'
    after 8 'A 81 6500'
    after 0.5 'P 167 1'
    after 4 'A 82 360'
    after 35 'A 84 230'
  } | display 20500 110
  keep climb
}

# From three thousand feet above the runway down its ILS, with gear and flaps.
approach() {
  prepare approach 20510
  simulator --start final --wind 240/15
  server
  {
    after 2 'A 74 110.3'
    after 0.2 'A 80 238'
    after 0.2 'A 81 3000'
    after 0.2 'A 84 160'
    after 0.2 'A 82 238'
    after 0.2 'P 163 1'
    after 0.2 'P 165 1'
    after 0.2 'P 183 1'
    after 0.2 'P 172 1'
    after 0.2 'P 174 1'
    after 10 'P 171 1'
    after 30 'P 63 1'
    after 1 'A 84 145'
    after 5 'P 54 1'
    after 5 'P 54 1'
  } | display 20510 120
  keep approach
}

# By hand: a yoke that rolls, pitches and presses its buttons.
stick() {
  prepare stick 20520 JoysticksOn=1
  ./vorlent-stick --name yoke x=32768 y=32768 await wait 3000 sweep x 39000 800 sweep x 26536 1600 \
    sweep x 32768 800 wait 2000 sweep y 34500 1000 sweep y 31036 2000 sweep y 32768 1000 tap 2 \
    wait 1000 tap 3 wait 1000 tap 4 wait 1000 sweep x 26536 800 sweep x 39000 1600 \
    sweep x 32768 800 wait 15000 tap 1 wait 60000 >../stick.txt 2>&1 &
  started+=($!)
  wait_for ../stick.txt ready
  simulator --start level
  server
  display 20520 50 </dev/null
  keep stick
}

# In the windows, by mouse and keys: the panel, a new aircraft, an export into a file that is chosen.
# The test that works them keeps what was recorded.
hands() {
  KEEP_RECORDING=$PWD/tests/recordings/hands.sqlite \
    "$programs/test_endtoend" --gtest_filter=RecordedHands.AreFlownAgain
  chmod 644 tests/recordings/hands.sqlite
}

flights=()
for flight in climb approach stick hands; do
  ($flight) &
  flights+=($!)
done
status=0
for flight in "${flights[@]}"; do wait "$flight" || status=1; done
rm -rf "$work"
ls -l tests/recordings
exit "$status"
