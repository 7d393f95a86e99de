#!/bin/sh
# Runs a service as systemd does that starts it again whatever its status, by the settings of the unit file $1, until
# SIGTERM. Of systemd's rules it knows no more than the unit uses.
set -e
unit=$1
setting() { sed -n "s/^$1=//p" "$unit"; }
[ "$(setting Restart)" = on-failure ] && [ "$(setting RestartForceExitStatus)" = 0 ]
[ "$(setting StartLimitIntervalSec)" = 0 ]
program=$(setting ExecStart)
pause=$(setting RestartSec)
trap 'trap - TERM; kill "$!" 2>/dev/null; wait; exit 0' TERM
while :; do
  "$program" </dev/null &
  wait "$!" && status=0 || status=$?
  echo "ended with $status"
  sleep "$pause" &
  wait "$!" || :
done
