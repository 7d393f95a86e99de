# The plot of a flight with FlightGear: gnuplot scripts/flightgear.gp with
#   -e "flight='FLIGHT.csv'; picture='PLOT.svg'; speed=95; begin=12"
# The columns are those of scripts/flightgear.awk; the plot begins at that second of FlightGear.
set datafile separator comma
set grid linecolor '#dddddd'
set border linecolor '#555555'
set key above horizontal
set style line 1 linecolor '#1f77b4' linewidth 1.5
set style line 2 linecolor '#d62728' linewidth 1.2
set style line 3 linecolor '#7f7f7f' linewidth 1 dashtype 2
set terminal svg size 1000,1100 font 'sans-serif,11' background '#ffffff'
set output picture
set lmargin 9
set rmargin 9
set ytics nomirror
set y2tics
since(t) = t - begin
set xrange [0:*]
set multiplot layout 5, 1
set ylabel "altitude, ft"
unset y2tics
plot flight every 2 using (since($1)):2 with lines linestyle 1 title "altitude", \
  "" every 2 using (since($1)):10 with lines linestyle 3 title "panel"
set ylabel "magnetic heading, deg"
set y2tics
set y2label "bank, deg"
plot flight every 2 using (since($1)):3 with lines linestyle 1 title "heading", \
  "" every 2 using (since($1)):11 with lines linestyle 3 title "panel", \
  "" every 2 using (since($1)):4 axes x1y2 with lines linestyle 2 title "bank (right)"
set ylabel "pitch, deg"
set y2label "elevator trim, percent"
plot flight every 2 using (since($1)):5 with lines linestyle 1 title "pitch", \
  "" every 2 using (since($1)):(100 * $7) axes x1y2 with lines linestyle 2 title "trim, nose down (right)"
set ylabel "speed, kt"
set y2label "throttle, percent"
plot flight every 2 using (since($1)):6 with lines linestyle 1 title "indicated airspeed", \
  speed with lines linestyle 3 title "panel", \
  "" every 2 using (since($1)):(100 * $9) axes x1y2 with lines linestyle 2 title "throttle (right)"
set ylabel "aileron trim, percent"
unset y2tics
unset y2label
set xlabel "seconds of FlightGear"
plot flight every 2 using (since($1)):(100 * $8) with lines linestyle 1 notitle
unset multiplot
