# Figures of a flight, from what FlightGear wrote down of it:
#   awk -v altitude=4000 -v heading=90 -v speed=95 -f scripts/flightgear.awk FLIGHT.csv
# Columns: time, altitude, heading, bank, pitch, speed, elevator trim, aileron trim, throttle, and the
# panel's altitude and heading. The flight begins where the panel shows the altitude and the heading
# that are given, a part of it where one of them changes; a part's end is its last half minute.
BEGIN {
  FS = ","
  End_s = 30
  print "| Part | there after, s | beyond | altitude off, ft | heading off, deg | speed off, kt | pitch swing, deg | bank, deg |"
  print "|---|---|---|---|---|---|---|---|"
}

function size(x) { return x < 0 ? -x : x }
function larger(a, b) { return a > b ? a : b }
function turned(degrees) {
  while (degrees > 180) degrees -= 360
  while (degrees <= -180) degrees += 360
  return degrees
}

{
  shown = sprintf("%.0f %.0f", $10, $11)
  if (panel == "" && shown != altitude " " heading) next
  if (panel != "" && panel != shown) finish()
  if (panel != shown) begin()
  t[++rows] = $1; a[rows] = $2; h[rows] = $3; b[rows] = $4; p[rows] = $5; v[rows] = $6
}

END { finish() }

function begin() {
  first = panel == ""
  panel = shown
  climb = sprintf("%.0f", $10 - altitude) + 0
  turn = sprintf("%.0f", turned($11 - heading)) + 0
  altitude = sprintf("%.0f", $10)
  heading = sprintf("%.0f", $11)
  rows = 0
}

# What is left to the target, in the direction of the change; below 0 it is beyond.
function left(i) {
  if (climb != 0) return climb > 0 ? altitude - a[i] : a[i] - altitude
  return turn > 0 ? turned(heading - h[i]) : turned(h[i] - heading)
}

function finish(   i, near, reached, beyond, da, dh, dv, low, high, bank, name) {
  if (t[rows] - t[1] < 2 * End_s) return  # two targets were set one after the other
  near = climb != 0 ? 50 : 2
  beyond = 0
  low = 90
  high = -90
  for (i = 1; i <= rows; ++i) {
    if (!first && reached == "" && size(left(i)) <= near) reached = t[i] - t[1]
    if (reached != "") beyond = larger(beyond, -left(i))
    bank = larger(bank, size(b[i]))
    if (t[rows] - t[i] > End_s) continue
    da = larger(da, size(a[i] - altitude))
    dh = larger(dh, size(turned(h[i] - heading)))
    dv = larger(dv, size(v[i] - speed))
    if (p[i] < low) low = p[i]
    if (p[i] > high) high = p[i]
  }
  name = first ? sprintf("level at %d ft, heading %03d", altitude, heading) : \
    climb != 0 ? sprintf("climb by %d ft", climb) : sprintf("turn by %d degrees", turn)
  printf "| %s | %s | %s | %.0f | %.1f | %.1f | %.2f | %.0f |\n", name, \
    first ? "-" : reached == "" ? "never" : sprintf("%.0f", reached), \
    first ? "-" : sprintf(climb != 0 ? "%.0f ft" : "%.1f deg", beyond), da, dh, dv, \
    (high - low) / 2, bank
}
