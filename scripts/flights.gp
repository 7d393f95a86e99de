# Plots of the autopilot's flights: gnuplot -e "data='FOLDER'" scripts/flights.gp
# FOLDER has the tables that the tests write.
set datafile separator comma
set grid linecolor '#dddddd'
set border linecolor '#555555'
set key noautotitle
set style line 1 linecolor '#1f77b4' linewidth 1.2
set style line 2 linecolor '#d62728' linewidth 1.2
set style line 3 linecolor '#7f7f7f' linewidth 1 dashtype 2
set terminal svg size 1000,1000 font 'sans-serif,11' background '#ffffff'
table(name) = sprintf("%s/%s.csv", data, name)
# A row every two seconds, from the engagement on: the tables have ten a second.
step = 20
begin = 140

array Where[4] = ["5000", "15000", "35000", "flaps"]
array WhereTitle[4] = ["5000 ft, 250 kt", "15000 ft, 280 kt", "35000 ft, Mach 0.78", \
  "5000 ft, 190 kt, flaps 5"]
array Plant[2] = ["737", "twin"]
array PlantTitle[2] = ["737-700", "heavy-twin"]

array Kind[8] = ["hold", "rough", "turn", "speed", "climb", "descent", "vs-up", "vs-down"]
array Title[8] = ["Level flight", "Level flight in moderate turbulence", \
  "Turns: 90 degrees right, 20 left", "20 knots less, then as before", "Level change up", \
  "Level change down", "1000 feet a minute up", "1000 feet a minute down"]

# What is drawn: 1 altitude error, 2 heading error, 3 speed error, 4 N1, 5 climb.
array Label[5] = ["altitude error, ft", "heading error, deg", "speed error, kt", "N1, percent", \
  "climb, ft/min"]
array Left[8] = [1, 1, 2, 3, 1, 1, 5, 5]
array Right[8] = [4, 3, 1, 4, 3, 3, 3, 3]
off(a, b) = column(a) - column(b)
turned(a, b) = off(a, b) - 360 * floor((off(a, b) + 180) / 360)
drawn(n) = n == 1 ? off("altitude_ft", "targetAltitude_ft") : \
  n == 2 ? turned("heading_deg", "targetHeading_deg") : \
  n == 3 ? off("speed_kt", "targetSpeed_kt") : n == 4 ? column("n1_pct") : column("climb_fpm")

do for [k = 1:8] {
  # Of three flights at V/S the last one.
  moment = Kind[k] eq "vs-up" || Kind[k] eq "vs-down" ? "-2" : ""
  do for [p = 1:2] {
    set output sprintf("docs/flights/%s-%s.svg", Kind[k], Plant[p])
    set multiplot layout 4, 2 title sprintf("%s, %s (blue: light, red: heavy)", Title[k], PlantTitle[p])
    do for [w = 1:4] {
      name = sprintf("%s-%s-%s", Kind[k], Plant[p], Where[w])
      set title WhereTitle[w] offset 0,-0.8
      set xlabel (w == 4 ? "time, s" : "")
      do for [side = 1:2] {
        n = side == 1 ? Left[k] : Right[k]
        set ylabel Label[n]
        plot table(name."-light".moment) every step::begin using "time_s":(drawn(n)) with lines \
            linestyle 1, \
          table(name."-heavy".moment) every step::begin using "time_s":(drawn(n)) with lines \
            linestyle 2
      }
    }
    unset multiplot
  }
}

set terminal svg size 1000,560 font 'sans-serif,11' background '#ffffff'
array Beam[2] = ["loc", "vor"]
array BeamTitle[2] = ["Localizer, 190 kt, flaps 5", "VOR, 15000 ft, 280 kt"]
array BeamAt[2] = ["flaps", "15000"]
do for [b = 1:2] {
  set output sprintf("docs/flights/%s.svg", Beam[b])
  set multiplot layout 2, 2 title BeamTitle[b] . \
    " (blue: from the right, light, red: from the left, heavy)"
  do for [p = 1:2] {
    right = sprintf("%s-right-%s-%s", Beam[b], Plant[p], BeamAt[b])
    left = sprintf("%s-left-%s-%s", Beam[b], Plant[p], BeamAt[b])
    set title PlantTitle[p] offset 0,-0.8
    set xlabel (p == 2 ? "time, s" : "")
    set ylabel "needle, 127 is full"
    plot table(right."-light") every step::begin using "time_s":"needle" with lines linestyle 1, \
      table(left."-heavy") every step::begin using "time_s":"needle" with lines linestyle 2
    set ylabel "bank, deg"
    plot table(right."-light") every step::begin using "time_s":"bank_deg" with lines linestyle 1, \
      table(left."-heavy") every step::begin using "time_s":"bank_deg" with lines linestyle 2
  }
  unset multiplot
}

set output "docs/flights/engage.svg"
set terminal svg size 1000,420 font 'sans-serif,11' background '#ffffff'
set title "Largest load into a mode, from every other one (blue: 737-700, red: heavy-twin)"
set xlabel ""; set ylabel "load beyond that of the turn, g"
set yrange [0:*]; set xrange [0.5:6.5]
set xtics ("altitude hold" 1, "V/S up" 2, "V/S down" 3, "level change up" 4, \
  "level change down" 5, "CWS" 6)
number(what) = what eq "load into altitude hold" ? 1 : what eq "load into V/S up" ? 2 : \
  what eq "load into V/S down" ? 3 : what eq "load into level change up" ? 4 : \
  what eq "load into level change down" ? 5 : what eq "load into CWS" ? 6 : NaN
plot table("figures") using (strstrt(strcol(1), "engage-737") ? number(strcol(2)) - 0.1 : NaN):4 \
    with points pointtype 7 pointsize 0.6 linecolor '#1f77b4', \
  '' using (strstrt(strcol(1), "engage-twin") ? number(strcol(2)) + 0.1 : NaN):4 \
    with points pointtype 7 pointsize 0.6 linecolor '#d62728', \
  0.2 with lines linestyle 3

# Where the aircraft went on each side of legs and corners.
set terminal svg size 800,700 font 'sans-serif,11' background '#ffffff'
set autoscale; unset xtics; set xtics 0.4; set key outside right
set xlabel "longitude, degrees east"; set ylabel "latitude, degrees north"
set output "docs/flights/legs.svg"
set title "Legs of eight courses from 52 degrees north, 5 degrees east"
set size ratio 1.0 / cos(52 * pi / 180)
plot for [course in "north northeast east southeast south southwest west northwest"] \
  table("leg-".course."-left") every step using "longitude_deg":"latitude_deg" with lines \
  title course
set terminal svg size 1000,560 font 'sans-serif,11' background '#ffffff'
set output "docs/flights/corners.svg"
set size noratio
set title "Turns, half on each side of east"
plot for [turn in "10 30 60 90 120"] table("corner-".turn."-right") every step using \
  "longitude_deg":"latitude_deg" with lines title turn." degrees right", \
  for [turn in "10 30 60 90 120"] table("corner-".turn."-left") every step using \
  "longitude_deg":"latitude_deg" with lines dashtype 2 title turn." degrees left"
set xtics autofreq; set key noautotitle

# Nautical miles flown or planned so far, from row to row.
far = 0; lastNorth = NaN; lastEast = NaN
onward(north, east) = (step_nm = lastNorth == lastNorth ? \
  60 * sqrt((north - lastNorth)**2 + ((east - lastEast) * cos(north * pi / 180))**2) : 0, \
  lastNorth = north, lastEast = east, far = far + step_nm)
anew(n) = (far = 0, lastNorth = NaN, lastEast = NaN, n)

set terminal svg size 1000,900 font 'sans-serif,11' background '#ffffff'
gate(name) = table("gate-".name."-light")
set output "docs/flights/gate.svg"
set multiplot layout 2, 1 title "From runway to runway (blue: 737-700, red: heavy-twin, dots: the plan)"
set title "Route" offset 0,-0.8
set xlabel "longitude, degrees east"; set ylabel "latitude, degrees north"
set size ratio 1.0 / cos(52.5 * pi / 180) * 1.4 / 3.6
plot gate("737") every step using "longitude_deg":"latitude_deg" with lines linestyle 1 linewidth 3, \
  gate("twin") every step using "longitude_deg":"latitude_deg" with lines linestyle 2, \
  table("gate-737-light-plan") using "longitude_deg":"latitude_deg" with points pointtype 7 \
    pointsize 0.4 linecolor '#555555', \
  table("gate-737-light-plan") using "longitude_deg":"latitude_deg":(stringcolumn("name")) \
    with labels offset 0,0.7
set size noratio
set title "Profile" offset 0,-0.8
set xlabel "distance, NM"; set ylabel "altitude, ft"
started = anew(0)
plot gate("737") every step using (onward(column("latitude_deg"), column("longitude_deg"))):"altitude_ft" \
    with lines linestyle 1, \
  started = anew(0), gate("twin") every step using \
    (onward(column("latitude_deg"), column("longitude_deg"))):"altitude_ft" with lines linestyle 2, \
  started = anew(0), table("gate-737-light-plan") using \
    (onward(column("latitude_deg"), column("longitude_deg"))):"altitude_ft" with linespoints \
    linestyle 3 pointtype 7 pointsize 0.4
unset multiplot
