#!/usr/bin/env bash
# Runs a command on a loudspeaker that is recorded: loudspeaker.sh DELAY COMMAND [ARGUMENT...]
# A PulseAudio server of its own has one device, which goes nowhere. What it is given is in the file that
# VORLENT_LOUDSPEAKER names while the command runs: 44100 Hz, 16 bits, left and right in turn.
# The server plays DELAY milliseconds behind the command. Wine's driver hands over by a clock of its
# own, and is late now and then on a busy machine: what comes within the delay leaves no gap.
set -euo pipefail
delay=$1
shift
folder=$(mktemp -d)
export PULSE_SERVER=unix:$folder/native VORLENT_LOUDSPEAKER=$folder/heard

server=
recorder=
finish() {
  local process
  for process in $recorder $server; do
    kill "$process" 2>/dev/null && wait "$process" || true
  done
  rm -r "$folder"
}
trap finish EXIT

HOME=$folder XDG_RUNTIME_DIR=$folder pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no \
  --load="module-null-sink sink_name=cockpit format=s16le channels=2 rate=44100" \
  --load="module-native-protocol-unix auth-anonymous=1 socket=$folder/native" 2>"$folder/said" &
server=$!
until pactl info >/dev/null 2>&1; do
  [ $SECONDS -lt 20 ] && kill -0 "$server" || {
    cat "$folder/said" >&2
    exit 1
  }
done
parec --device=cockpit.monitor --rate=44100 --format=s16le --channels=2 --latency-msec=10 \
  >"$VORLENT_LOUDSPEAKER" &
recorder=$!

PULSE_LATENCY_MSEC=$delay "$@"
