#!/usr/bin/env bash
# Draws a flight along a route: the way flown over the way planned, and the vertical profile.
#   scripts/route-picture.sh PLAN TRACE PICTURE
# PLAN is what vorlent-plan --print shows, TRACE what vorlent-sim --trace writes, PICTURE an .svg.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
. "$here/packages.sh"
[ $# -eq 3 ] || { sed -n '2,4s/^# \{0,1\}//p' "$0" >&2; exit 2; }
install_plot_packages
planned=$(mktemp)
trap 'rm "$planned"' EXIT
# The table begins below the row of units; its columns are point, latitude, longitude, course, leg,
# way and the altitude at which the point is passed.
awk 'BEGIN { OFS = ","; print "name", "latitude_deg", "longitude_deg", "way_nm", "altitude_ft" }
     table { print $1, $2, $3, $6, $7 }
     $1 == "deg" { table = 1 }' "$1" >"$planned"
gnuplot -e "planned='$planned'; flown='$2'; picture='$3'" "$here/route-picture.gp"
echo "Drawn: $3"
