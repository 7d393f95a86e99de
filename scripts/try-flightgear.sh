#!/usr/bin/env bash
# Flies FlightGear by Vorlent's autopilot: a heading and an altitude, with the server, the bridge and
# FlightGear itself, without a screen. Installs FlightGear from Debian (1.8 GB). Needs the build of
# ./run.sh. Leaves what FlightGear wrote of the flight, and its figures, in build/flightgear.
#   scripts/try-flightgear.sh [c172p|ufo]
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

aircraft=${1:-c172p}
programs=$PWD/build/release/bin
output=$PWD/build/flightgear/$aircraft
protocol=/usr/share/games/flightgear/Protocol
limit_s=240
case $aircraft in
  c172p) altitude_ft=4000 target_ft=4500 heading=90 target=135 speed_kt=95 roll=0.3 pitch=60 sink=177 ;;
  ufo) altitude_ft=4000 target_ft=4500 heading=90 target=135 speed_kt=250 roll=0.36 pitch=11 sink=240 ;;
  *) echo "c172p or ufo, not $aircraft" >&2; exit 2 ;;
esac

install_packages "FlightGear, 1.8 GB" flightgear
install_packages "an X server without a screen" xvfb xauth
install_plot_packages

mkdir -p "$output/bus" "$output/home"
as_root=()
[ -w "$protocol" ] || as_root=(sudo)
"${as_root[@]}" "$programs/vorlent-bridge" --write-protocol "$protocol"

# What FlightGear itself writes down of the flight, twice a second: nothing of it comes from the bridge.
logged=(/sim/time/elapsed-sec /position/altitude-ft /orientation/heading-magnetic-deg
  /orientation/roll-deg /orientation/pitch-deg /velocities/airspeed-kt
  /velocities/vertical-speed-fps /controls/flight/elevator-trim /controls/flight/aileron-trim
  /controls/flight/aileron '/controls/engines/engine[0]/throttle')
{
  printf '<?xml version="1.0"?>\n<PropertyList><generic><output>\n'
  printf '<line_separator>newline</line_separator><var_separator>,</var_separator>\n'
  for property in "${logged[@]}"; do
    printf '<chunk><type>double</type><format>%%.5f</format><node>%s</node></chunk>\n' "$property"
  done
  printf '</output></generic></PropertyList>\n'
} >"$output/vorlent-log.xml"
"${as_root[@]}" cp "$output/vorlent-log.xml" "$protocol/"

# The cockpit: a copy of the shipped program folder with the tuning of this aircraft.
cockpit=$output/cockpit
rm -rf "$cockpit"
mkdir -p "$cockpit"
cp -r data/. "$cockpit"
cp "$programs/"{vorlentd,vorlent-bridge,vorlent-display,vorlent-share,vorlent-mdb} "$cockpit"
fms=$cockpit/Network/display/Tarnwick/FMS
printf '[Flight]\r\nAircraft=%s\r\n' "$aircraft" >"$fms/plan.cfg"
mkdir -p "$fms/Acft/$aircraft"
sed -e "s/^RollControlFactor=.*/RollControlFactor=$roll/" \
  -e "s/^PitchControlfactor=.*/PitchControlfactor=$pitch/" \
  -e "s/^PitchSensitivity=.*/PitchSensitivity=$sink/" \
  "$fms/Acft/737-700/737-700.acf" >"$fms/Acft/$aircraft/$aircraft.acf"
sed -i -e 's/^Port=.*/Port=5610/' -e 's/^;LocalIp=.*/LocalIp=127.0.0.1/' "$cockpit/Vorlent.ini"

started=()
end_all() {
  local i
  for ((i = ${#started[@]} - 1; i >= 0; i--)); do
    kill -TERM "${started[i]}" 2>/dev/null || true
  done
}
trap end_all EXIT

# start NAME COMMAND...: what it says goes to NAME.txt
start() {
  "${@:2}" </dev/null >"$output/$1.txt" 2>&1 &
  started+=($!)
}

export VORLENT_BUS=$output/bus
rm -f "$output/flight.csv"
start bridge "$cockpit/vorlent-bridge" --flightgear
Xvfb :73 -screen 0 640x480x24 >"$output/xvfb.txt" 2>&1 &
started+=($!)
masks=()
for mask in aircraft clouds models terrain; do
  masks+=("--prop:bool:/sim/rendering/draw-mask/$mask=false")
done
start fgfs env DISPLAY=:73 HOME="$output/home" DBUS_FATAL_WARNINGS=0 LIBGL_ALWAYS_SOFTWARE=1 \
  nice -n 5 /usr/games/fgfs --aircraft="$aircraft" --lat=37.6 --lon=-122.4 \
  --altitude="$altitude_ft" --heading="$heading" --vc="$speed_kt" --timeofday=noon \
  --geometry=320x240 --disable-sound --disable-terrasync --disable-real-weather-fetch \
  --disable-ai-models --disable-ai-traffic --disable-random-objects --disable-splash-screen \
  "${masks[@]}" --prop:/sim/frame-rate-throttle-hz=30 \
  --generic=socket,out,40,127.0.0.1,5500,udp,vorlent-out \
  --generic=socket,in,40,127.0.0.1,5501,udp,vorlent-in \
  --telnet=socket,bi,40,127.0.0.1,5502,tcp \
  --generic=file,out,2,"$output/flight.csv",vorlent-log

echo "waiting for FlightGear, which builds a cache at its first start"
for ((second = 0; second < 3600; second++)); do
  grep -qs "data come in" "$output/bridge.txt" && break
  kill -0 "${started[2]}" 2>/dev/null || { tail -20 "$output/fgfs.txt" >&2; exit 1; }
  sleep 1
done
grep -q "data come in" "$output/bridge.txt" || { echo "no data of FlightGear" >&2; exit 1; }

start server "$cockpit/vorlentd"
for ((second = 0; second < 60; second++)); do
  grep -q OK "$cockpit/log.txt" 2>/dev/null && break
  sleep 1
done

# The autopilot: altitude hold here, then a heading and a climb by vertical speed.
{
  sleep 3
  printf 'A 81 %s\nA 82 %s\nA 84 %s\n' "$altitude_ft" "$heading" "$speed_kt"
  printf 'P 163 1\nP 183 1\nP 172 1\nP 174 1\n'
  sleep 20
  printf 'A 82 %s\nA 81 %s\nP 175 1\nA 85 400\n' "$target" "$target_ft"
  sleep "$limit_s"
} | timeout $((limit_s + 30)) "$cockpit/vorlent-display" 127.0.0.1 5610 --name display \
  --seconds "$limit_s" >"$output/display.txt" 2>&1 || true

awk -F, -v target="$target" -v height="$target_ft" '
  { t[NR] = $1; h[NR] = $2; c[NR] = $3 }
  END {
    for (i = NR; i > 0 && t[NR] - t[i] < 60; --i) {
      dh = h[i] - height; dc = c[i] - target
      if (dc > 180) dc -= 360
      if (dc < -180) dc += 360
      sh += dh * dh; sc += dc * dc; ++n
      if (dh < 0) dh = -dh
      if (dc < 0) dc = -dc
      if (dh > mh) mh = dh
      if (dc > mc) mc = dc
    }
    printf "last minute, %d rows: altitude off by %.0f ft rms, %.0f at most; heading by %.1f degrees rms, %.1f at most\n",
      n, sqrt(sh / n), mh, sqrt(sc / n), mc
  }' "$output/flight.csv" | tee "$output/figures.txt"

gnuplot <<PLOT
set terminal svg size 900,700 background "white"
set output "$output/flight.svg"
set datafile separator ","
set multiplot layout 3,1
set key left
set ylabel "altitude, ft"
plot "$output/flight.csv" using 1:2 with lines title "altitude", $target_ft title "target"
set ylabel "degrees"
plot "$output/flight.csv" using 1:3 with lines title "magnetic heading", $target title "target", \
  "" using 1:4 with lines title "bank"
set ylabel "knots"
set xlabel "seconds of FlightGear"
plot "$output/flight.csv" using 1:6 with lines title "airspeed"
PLOT
echo "$output/flight.svg"
