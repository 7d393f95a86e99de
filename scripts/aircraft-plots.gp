# Plots of the built-in aircraft: gnuplot -e "data='FOLDER'" scripts/aircraft-plots.gp
# FOLDER has the tables that the tests write.
set datafile separator comma
set grid linecolor '#dddddd'
set border linecolor '#555555'
set key noautotitle outside top center horizontal
set style line 1 linecolor '#1f77b4' linewidth 1.5
set style line 2 linecolor '#d62728' linewidth 1.5
set style line 3 linecolor '#2ca02c' linewidth 1.5
set style line 4 linecolor '#9467bd' linewidth 1.5
set style line 5 linecolor '#ff7f0e' linewidth 1.5
set style line 6 linecolor '#7f7f7f' linewidth 1.5
table(name) = sprintf("%s/%s.csv", data, name)
picture(name) = sprintf("docs/aircraft/%s.svg", name)
set macros
canvas = "set terminal svg size 900,780 font 'sans-serif,12' background '#ffffff'"
small = "set terminal svg size 900,420 font 'sans-serif,12' background '#ffffff'"
sides = "set lmargin 11; set rmargin 11"

# A flight of the scripted pilot: height and speed, rates, attitude and power.
array Names[5] = ["take-off", "climb", "cruise", "descent", "landing"]
array Titles[5] = ["Take-off and initial climb, 63 t", \
  "Climb, 63 t: 250 kt to 10000 ft, 294 kt, Mach 0.78", "Cruise, 59.6 t: ten minutes at Mach 0.78", \
  "Descent, 55.3 t: Mach 0.78, 284 kt, 240 kt below 10000 ft", \
  "Approach, landing and braking, 55.3 t"]
array Every[5] = [2, 30, 20, 30, 5]
@canvas
do for [i = 1:5] {
  file = table(Names[i])
  step = Every[i]
  set output picture(Names[i])
  set multiplot layout 3, 1 title Titles[i]
  @sides
  set ytics nomirror; set y2tics
  steady = Names[i] eq "cruise"  # what does not change needs a range to be seen in
  set ylabel "altitude, ft"; set y2label "calibrated speed, kt"
  set xlabel ""
  if (steady) { set yrange [34900:35100]; set y2range [255:275] }
  plot file every step using "time_s":"altitude_ft" with lines linestyle 1 title "altitude", \
    '' every step using "time_s":"speed_kt" axes x1y2 with lines linestyle 2 title "speed"
  set ylabel "climb, ft/min"; set y2label "Mach"
  if (steady) { set yrange [-100:100]; set y2range [0.76:0.80] }
  plot file every step using "time_s":"climb_fpm" with lines linestyle 3 title "climb", \
    '' every step using "time_s":"mach" axes x1y2 with lines linestyle 5 title "Mach"
  set ylabel "pitch, degrees"; set y2label "N1, percent"; set xlabel "time, s"
  if (steady) { set yrange [0:5]; set y2range [80:100] }
  plot file every step using "time_s":"pitch_deg" with lines linestyle 4 title "pitch", \
    '' every step using "time_s":"n1_pct" axes x1y2 with lines linestyle 6 title "N1"
  unset multiplot
  set autoscale y; set autoscale y2
}
unset y2tics; unset y2label; set ytics mirror
unset lmargin; unset rmargin

# Modes: what they do after a nudge.
set output picture("stability")
set multiplot layout 3, 2 title "Stability of the 737-700: cruise (left), approach (right)"
array Conditions[2] = ["Cruise", "Approach"]
do for [i = 1:2] {
  set xlabel "time, s"; set ylabel "angle of attack, degrees"
  plot table("short-period-".Conditions[i]) using "time_s":"attack_deg" with lines linestyle 1 \
    title "short period"
}
do for [i = 1:2] {
  set ylabel "altitude, ft"
  plot table("phugoid-".Conditions[i]) every 10 using "time_s":"altitude_ft" with lines \
    linestyle 3 title "phugoid"
}
do for [i = 1:2] {
  set ylabel "yaw rate, degrees/s"
  plot table("dutch-roll-undamped-".Conditions[i]) using "time_s":"yawRate_deg_s" with lines \
    linestyle 6 title "Dutch roll without damper", \
    table("dutch-roll-".Conditions[i]) using "time_s":"yawRate_deg_s" with lines linestyle 2 \
    title "with"
}
unset multiplot

set output picture("hands-off")
set multiplot layout 2, 1 title "Hands off for a minute: change of altitude, ft"
set xlabel "time, s"; set ylabel "ft"; set key outside right center vertical
states = "Level Cruise Final"
loads = "Light Ordinary Heavy"
array Plants[2] = ["", "HeavyTwin"]
array Heights[3] = [5000, 35000, 3065.6]
do for [p = 1:2] {
  set title (p == 1 ? "737-700" : "heavy-twin")
  plot [0:60][-12:12] for [s = 1:3] for [l = 1:3] \
    table("hands-off-".Plants[p].word(states, s).word(loads, l)) every 5 \
    using (column("time_s")):(column("altitude_ft") - Heights[s]) with lines linestyle s \
    dashtype l title word(states, s)." ".word(loads, l)
}
unset multiplot
unset title
set key outside top center horizontal

@small
set output picture("engine")
set multiplot layout 1, 2 title "Engine: flight idle to full lever on the approach; full lever to ground idle"
set xlabel "time, s"; set ylabel "N1, percent"
plot [0:11][20:105] table("spool-up") every 6 using "time_s":"n1_pct" with lines linestyle 1 \
  title "737-700, to 95 % of thrust", table("spool-up-heavy-twin") every 6 using "time_s":"n1_pct" \
  with lines linestyle 2 title "heavy-twin"
plot [0:15][20:105] table("spool-down") every 6 using "time_s":"n1_pct" with lines linestyle 1 \
  title "737-700"
unset multiplot

set output picture("stall")
set title "Stall at 58967 kg; the bar is 0.9 to 1.1 of the published speed"
set xlabel "flaps, degrees"; set ylabel "calibrated speed, kt"
plot [-1:42][90:140] table("stall") using "flaps_deg":"published_kt":(column("published_kt") * 0.9):\
  (column("published_kt") * 1.1) with yerrorbars linestyle 6 pointtype 7 title "published", \
  '' using "flaps_deg":"stall_kt" with points linestyle 2 pointtype 2 title "flown"

set output picture("polar")
set title "Drag polar at Mach 0.25, gear up, by flap angle"
set xlabel "drag"; set ylabel "lift"
set key inside bottom right vertical
array Flaps[6] = [0, 1, 5, 15, 30, 40]
plot [0:0.35][-0.2:2.8] for [i = 1:6] table("polar") \
  using (column("flaps_deg") == Flaps[i] ? column("drag") : NaN):(column("lift")) with lines \
  linestyle i title sprintf("%d", Flaps[i]), \
  '+' using (0.022 + 0.043 * ($0 / 70) ** 2):($0 / 70) with points pointtype 6 pointsize 0.4 \
  linecolor '#000000' title "0.022 + 0.043 C_L^2 (OpenAP, flaps up)"

@canvas
set key outside top center horizontal
set output picture("turbulence")
set multiplot layout 3, 1 title "Turbulence, hands off at 5000 ft and 250 kt, seed 1"
levels = "light moderate severe"
unset title
set xlabel ""
set ylabel "load, g"
plot [0:60] for [i = 3:1:-1] table("turbulence-".word(levels, i)) using "time_s":"load" with lines \
  linestyle i title word(levels, i)
set ylabel "speed, kt"
plot [0:60] for [i = 3:1:-1] table("turbulence-".word(levels, i)) using "time_s":"speed_kt" \
  with lines linestyle i title word(levels, i)
set ylabel "bank, degrees"; set xlabel "time, s"
plot [0:60] for [i = 3:1:-1] table("turbulence-".word(levels, i)) using "time_s":"bank_deg" \
  with lines linestyle i title word(levels, i)
unset multiplot
