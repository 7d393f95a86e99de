# Called by route-picture.sh with the tables `planned` and `flown` and the name of the `picture`.
set datafile separator comma
set terminal svg size 1000,900 font 'sans-serif,11' background '#ffffff'
set output picture
set grid linecolor '#dddddd'
set border linecolor '#555555'
set key outside top right horizontal
set style line 1 linecolor '#1f77b4' linewidth 2
set style line 2 linecolor '#7f7f7f' linewidth 1 dashtype 2

# Nautical miles from the first row on, row by row.
far = 0; lastNorth = NaN; lastEast = NaN
onward(north, east) = (step_nm = lastNorth == lastNorth ? \
  60 * sqrt((north - lastNorth)**2 + ((east - lastEast) * cos(north * pi / 180))**2) : 0, \
  lastNorth = north, lastEast = east, far = far + step_nm)
# A row every five seconds of the trace.
step = 50

set multiplot layout 2, 1
set title "Route" offset 0,-0.8
set offsets graph 0.03, graph 0.03, graph 0.1, graph 0.05
set xlabel "longitude, degrees east"; set ylabel "latitude, degrees north"
plot planned using "longitude_deg":"latitude_deg" with linespoints linestyle 2 pointtype 7 \
    pointsize 0.4 title "planned", \
  planned using "longitude_deg":"latitude_deg":(stringcolumn("name")) with labels offset 0,0.7 notitle, \
  flown every step using "longitude_deg":"latitude_deg" with lines linestyle 1 title "flown"
set title "Profile" offset 0,-0.8
set offsets 0, 0, graph 0.05, 0
set xlabel "way, NM"; set ylabel "altitude, ft"
plot planned using "way_nm":"altitude_ft" with linespoints linestyle 2 pointtype 7 pointsize 0.4 \
    title "planned", \
  flown every step using (onward(column("latitude_deg"), column("longitude_deg"))):"altitude_ft" \
    with lines linestyle 1 title "flown"
unset multiplot
