#!/usr/bin/env bash
# Holds the includes of src/ against the table of folders in docs/architecture.md, and tells the file
# and line of each that does not fit: scripts/includes.sh [ROOT]
#
# A row is "| `src/name` | what it holds | `folder`, `folder` |", the ground first. The last cell has
# the folders of src/ that may be included besides the own one; or `nothing`, or `all`, which are the
# rows above. A sub-folder without a row has the rule of its parent. No arrow runs down the table, so
# there is no circle.
set -euo pipefail
cd "${1:-$(dirname "$0")/..}"

# The includes in quotes, as "file:line:header".
includes() {
  find src -name '*.h' -o -name '*.cpp' | sort | xargs -d '\n' -r \
    grep -HnoE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"[^"]+"' |
    sed -E 's/:[[:space:]]*#[^"]*"([^"]+)"$/:\1/' || true
}

listed=$(mktemp)
trap 'rm "$listed"' EXIT
includes >"$listed"

awk -F: -v headers="$(find src -name '*.h')" '
  function fault(where, what) { print where ": " what; bad = 1 }
  function folderOf(file) { sub(/\/[^\/]*$/, "", file); return file }
  # The row that a folder of src/ falls under, empty without one.
  function rowOf(folder) {
    while (!(folder in order)) if (!sub(/\/[^\/]*$/, "", folder)) return ""
    return folder
  }
  function readRow(line, number,   cell, name, parts, n, i) {
    split(line, cell, "|")
    name = cell[2]; gsub(/[` ]/, "", name)
    order[name] = ++rows
    n = split(cell[4], parts, ",")
    for (i = 1; i <= n; ++i) {
      gsub(/[` ]/, "", parts[i])
      if (parts[i] == "all") all[name] = 1
      else if (parts[i] == "nothing") continue
      else if (!(("src/" parts[i]) in order))
        fault(FILENAME ":" number, "\"" parts[i] "\" is no folder of a row above")
      else may[name, "src/" parts[i]] = 1
    }
  }
  BEGIN { n = split(headers, names, "\n"); for (i = 1; i <= n; ++i) exists[names[i]] = 1 }
  FILENAME == "docs/architecture.md" { if (/^\| `src\//) readRow($0, FNR); next }
  {
    where = $1 ":" $2
    from = rowOf(folderOf($1))
    header = (("src/" $3) in exists) ? "src/" $3 : folderOf($1) "/" $3
    if (!(header in exists)) { fault(where, "no header \"" $3 "\" in src"); next }
    to = rowOf(folderOf(header))
    if (from == "" || to == "") fault(where, "no row for " (from == "" ? folderOf($1) : folderOf(header)))
    else if (to == from) next
    else if (order[to] > order[from]) fault(where, from " includes \"" $3 "\" of " to ", a row below it")
    else if (!((from, to) in may || from in all)) fault(where, from " may not include \"" $3 "\" of " to)
  }
  END {
    if (!rows) fault("docs/architecture.md:1", "no table of folders")
    exit bad
  }' docs/architecture.md "$listed"
