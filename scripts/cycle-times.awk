# A table of what flights of one kind miss at most, with a cycle of 400 ms and one of 440 ms:
#   awk -F, -f scripts/cycle-times.awk FIGURES-400 FIGURES-440
# Each file has rows of flight, figure, unit, value and goal; a kind is a flight's name up to its first
# dash.
FNR == 1 { ++file }
{
  kind = $1; sub(/-.*/, "", kind)
  key = kind SUBSEP $2
  if (!(key in unit)) { unit[key] = $3; order[++keys] = key }
  if (!((file, key) in most) || $4 + 0 > most[file, key]) most[file, key] = $4 + 0
  if ($4 + 0 > $5 + 0) ++missed[file, key]
}
END {
  print ""
  print "| Flights | Figure | at most, 400 ms | 440 ms | missed, 400 ms | 440 ms |"
  print "|---|---|---|---|---|---|"
  for (i = 1; i <= keys; ++i) {
    key = order[i]
    split(key, part, SUBSEP)
    for (f = 1; f <= 2; ++f) total[f] += missed[f, key]
    printf "| %s | %s, %s | %.3g | %.3g | %d | %d |\n", part[1], part[2], unit[key],
      most[1, key], most[2, key], missed[1, key], missed[2, key]
  }
  printf "| *all* | | | | %d | %d |\n\n", total[1], total[2]
}
