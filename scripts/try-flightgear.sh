#!/usr/bin/env bash
# Flies FlightGear by Vorlent's autopilot: two turns and a climb, with the server, the bridge and
# FlightGear itself, without a screen. Takes nine minutes and most of a core; at the first start
# FlightGear builds a cache for some minutes more. Installs FlightGear from Debian (1.8 GB). Needs the
# build of ./run.sh. Leaves what FlightGear wrote of the flight, its figures and its plot in
# build/flightgear/AIRCRAFT; docs/flightgear.md shows one of them.
#   scripts/try-flightgear.sh [c172p|ufo]
#   KEY=VALUE... scripts/try-flightgear.sh ...    with other values for keys of the tuning
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

aircraft=${1:-c172p}
programs=$PWD/build/release/bin
output=$PWD/build/flightgear/$aircraft
protocol=/usr/share/games/flightgear/Protocol
altitude_ft=4000
heading_deg=90
case $aircraft in
  c172p) speed_kt=95 climb_fpm=600 thrust='P 163 1\nP 165 1\n' own=() ;;
  # At the law's least lever of 20 percent the ufo flies 780 knots: its throttle stays where it is.
  ufo) speed_kt=250 climb_fpm=600 thrust= own=('--prop:/controls/engines/engine[0]/throttle=0.064') ;;
  *) echo "c172p or ufo, not $aircraft" >&2; exit 2 ;;
esac

install_packages "FlightGear, 1.8 GB" flightgear
install_packages "an X server without a screen" xvfb xauth
install_plot_packages

mkdir -p "$output/bus" "$output/home"
as_root=()
[ -w "$protocol" ] || as_root=(sudo)
"${as_root[@]}" "$programs/vorlent-bridge" --write-protocol "$protocol"

# What FlightGear itself writes down of the flight, twice a second: nothing of it comes from the bridge
# but the two values of the panel, which the server has set.
logged=(/sim/time/elapsed-sec /position/altitude-ft /orientation/heading-magnetic-deg
  /orientation/roll-deg /orientation/pitch-deg /velocities/airspeed-kt
  /controls/flight/elevator-trim /controls/flight/aileron-trim '/controls/engines/engine[0]/throttle'
  /autopilot/settings/target-altitude-ft /autopilot/settings/heading-bug-deg)
{
  printf '<?xml version="1.0"?>\n<PropertyList><generic><output>\n'
  printf '<line_separator>newline</line_separator><var_separator>,</var_separator>\n'
  for property in "${logged[@]}"; do
    printf '<chunk><type>double</type><format>%%.5f</format><node>%s</node></chunk>\n' "$property"
  done
  printf '</output></generic></PropertyList>\n'
} >"$output/vorlent-log.xml"
"${as_root[@]}" cp "$output/vorlent-log.xml" "$protocol/"

# The cockpit: a copy of the shipped program folder, whose plan names the aircraft.
cockpit=$output/cockpit
rm -rf "$cockpit"
mkdir -p "$cockpit"
cp -r data/. "$cockpit"
cp "$programs/"{vorlentd,vorlent-bridge,vorlent-display,vorlent-share,vorlent-mdb} "$cockpit"
fms=$cockpit/Network/display/Tarnwick/FMS
printf '[Flight]\r\nAircraft=%s\r\n' "$aircraft" >"$fms/plan.cfg"
tuning=$fms/Acft/$aircraft/$aircraft.acf
[ -e "$tuning" ] || { mkdir -p "${tuning%/*}"; cp "$fms/Acft/737-700/737-700.acf" "$tuning"; }
while IFS='=' read -r key _; do
  [ -z "${!key-}" ] || sed -i "s/^$key=.*/$key=${!key}/" "$tuning"
done < <(grep '^[A-Z].*=' "$tuning")
sed -i -e 's/^Port=.*/Port=5610/' -e 's/^;LocalIp=.*/LocalIp=127.0.0.1/' "$cockpit/Vorlent.ini"

started=()
end_all() {
  local i
  for ((i = ${#started[@]} - 1; i >= 0; i--)); do
    kill -TERM "${started[i]}" 2>/dev/null || true
  done
  wait "${started[@]}" 2>/dev/null || true  # FlightGear keeps its ports until its last thread ends
}
trap end_all EXIT

# start NAME COMMAND...: what it says goes to NAME.txt
start() {
  "${@:2}" </dev/null >"$output/$1.txt" 2>&1 &
  started+=($!)
}

export VORLENT_BUS=$output/bus
flight=$output/flight.csv
rm -f "$flight"
start bridge "$cockpit/vorlent-bridge" --flightgear
start xvfb Xvfb :73 -screen 0 640x480x24
masks=()
for mask in aircraft clouds models terrain; do
  masks+=("--prop:bool:/sim/rendering/draw-mask/$mask=false")
done
start fgfs env DISPLAY=:73 HOME="$output/home" DBUS_FATAL_WARNINGS=0 LIBGL_ALWAYS_SOFTWARE=1 \
  /usr/games/fgfs --aircraft="$aircraft" --lat=37.6 --lon=-122.4 \
  --altitude="$altitude_ft" --heading="$heading_deg" --vc="$speed_kt" --timeofday=noon \
  --geometry=320x240 --disable-sound --disable-terrasync --disable-real-weather-fetch \
  --disable-ai-models --disable-ai-traffic --disable-random-objects --disable-splash-screen \
  "${masks[@]}" "${own[@]}" --prop:/sim/frame-rate-throttle-hz=30 \
  --generic=socket,out,40,127.0.0.1,5500,udp,vorlent-out \
  --generic=socket,in,40,127.0.0.1,5501,udp,vorlent-in \
  --telnet=socket,bi,40,127.0.0.1,5502,tcp \
  --generic=file,out,2,"$flight",vorlent-log

echo "waiting for FlightGear"
for ((second = 0; second < 3600; second++)); do
  grep -qs "data come in" "$output/bridge.txt" && break
  kill -0 "${started[2]}" 2>/dev/null || { tail -20 "$output/fgfs.txt" >&2; exit 1; }
  sleep 1
done
grep -q "data come in" "$output/bridge.txt" || { echo "no data of FlightGear" >&2; exit 1; }
for ((second = 0; second < 60; second++)); do
  grep -q "the aircraft is $aircraft" "$output/bridge.txt" && break
  sleep 1
done
grep -q "the aircraft is $aircraft" "$output/bridge.txt" ||
  { echo "FlightGear does not say what it flies: does another one have its ports?" >&2; exit 1; }

start server "$cockpit/vorlentd"
for ((second = 0; second < 60; second++)); do
  grep -qs OK "$cockpit/log.txt" && break
  sleep 1
done

# The panel: heading and altitude are held, then two turns, then a climb. Altitude hold takes over the
# altitude's window when that of the vertical speed changes, and climbs no faster than that.
echo "the autopilot flies, for eight minutes"
panel() {
  # The c172p puts itself in order for five seconds, with flaps for a landing, and flies then as it is
  # trimmed until the flaps are up.
  sleep 8
  printf 'P 55 1\n'
  sleep 12
  printf 'A 81 %s\nA 82 %s\nA 84 %s\n' "$altitude_ft" "$heading_deg" "$speed_kt"
  printf "$thrust"
  printf 'P 183 1\nP 172 1\nP 174 1\n'
  printf 'A 85 %s\n' $((climb_fpm - 100))
  sleep 100
  printf 'A 82 %s\n' $((heading_deg + 90))
  sleep 90
  printf 'A 82 %s\n' $((heading_deg + 45))
  sleep 80
  printf 'A 81 %s\nA 85 %s\n' $((altitude_ft + 1000)) "$climb_fpm"
  sleep 200
}
# In the background, so that a script that is ended ends it.
"$cockpit/vorlent-display" 127.0.0.1 5610 --name display --seconds 482 \
  < <(panel) >"$output/display.txt" 2>&1 &
started+=($!)
wait $! || true

awk -v altitude="$altitude_ft" -v heading="$heading_deg" -v speed="$speed_kt" \
  -f scripts/flightgear.awk "$flight" | tee "$output/figures.txt"
begin=$(awk -F, -v altitude="$altitude_ft" '$10 > altitude - 1 { print $1; exit }' "$flight")
gnuplot -e "flight='$flight'; picture='$output/flight.svg'; speed=$speed_kt; begin=$begin" \
  scripts/flightgear.gp
echo "$output/flight.svg"
