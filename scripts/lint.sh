#!/usr/bin/env bash
# clang-tidy over the sources of a configured build folder: scripts/lint.sh BUILD_FOLDER
#
# A source without a finding is kept in mind under the hash of all that clang-tidy reads for it: the
# source and every header to the byte, its compile command, .clang-tidy and clang-tidy's version. It is
# passed over until one of them changes. A source with a finding is never kept; a finding in a header
# belongs to each source that includes it.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
tidy="clang-tidy-14 -quiet -extra-arg=-Wno-unknown-warning-option"
clean=${XDG_CACHE_HOME:-$HOME/.cache}/vorlent-lint
mkdir -p "$clean"
find "$clean" -type f -mtime +30 -delete
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT

# The compile commands of src/, without the precompiled header, which scan-deps cannot read and in
# which an #include that is missing would not be missed; and what each source reads, as rules of make.
awk -v sources="\"file\": \"$PWD/src/" '
  BEGIN { printf "[" }
  /^{/ { entry = "" }
  { gsub(/ -Winvalid-pch| -Xclang -include-pch -Xclang [^ ]+| -Xclang -include -Xclang [^ ]+/, "") }
  { entry = entry $0 "\n" }
  /^}/ { sub(/,\n$/, "\n", entry); if (index(entry, sources)) { printf "%s%s", comma, entry; comma = "," } }
  END { print "]" }' "$build/compile_commands.json" >"$work/compile_commands.json"
clang-scan-deps-14 -compilation-database "$work/compile_commands.json" -j "$(nproc)" >"$work/rules"

# Source and header in a row, tab between them; the source is what its rule names first.
awk '
  { gsub(/\\ /, "\001"); ends = !/\\$/; sub(/\\$/, ""); rule = rule " " $0 }
  ends {
    n = split(rule, word, " ")
    for (i = 2; i <= n; ++i) { line = word[2] "\t" word[i]; gsub("\001", " ", line); print line }
    rule = ""
  }' "$work/rules" >"$work/reads"
cut -f 2 "$work/reads" | sort -u | xargs -d '\n' sha256sum >"$work/hashes"

# A file for each source with all that counts, the folder of this clone left out; its hash is the key.
{ $tidy --version; find .clang-tidy src -name .clang-tidy -exec sha256sum {} +; echo "$tidy"; } >"$work/all"
mkdir "$work/sources"
awk -F'\t' -v folder="$work/sources/" -v here="$PWD/" '
  function named(text,   at) {
    while (at = index(text, here)) text = substr(text, 1, at - 1) substr(text, at + length(here))
    return text
  }
  function keyFile(source) { source = named(source); gsub("/", "+", source); return folder source }
  FILENAME ~ /all$/ { all = all $0 "\n"; next }
  FILENAME ~ /hashes$/ { hash[substr($0, 67)] = substr($0, 1, 64); next }
  FILENAME ~ /reads$/ { read[$1] = read[$1] hash[$2] " " named($2) "\n"; next }
  /"command": / { command = named($0) }
  /"file": / {
    split($0, part, "\"")
    if (!(part[4] in read)) { print "nothing is known of what " part[4] " reads" >"/dev/stderr"; exit 1 }
    printf "%s%s\n%s", all, command, read[part[4]] >keyFile(part[4])
    close(keyFile(part[4]))
  }' "$work/all" "$work/hashes" "$work/reads" "$work/compile_commands.json"

# check KEY SOURCE
check() {
  local said
  if said=$($tidy -p "$work" "$2" 2>&1) && ! grep -qE '(warning|error):' <<<"$said"; then
    touch "$clean/$1"
  else
    printf '%s\n' "$said"
    return 1
  fi
}
export -f check
export tidy clean work

total=0
while read -r key file; do
  total=$((total + 1))
  source=${file##*/}
  [ -e "$clean/$key" ] && touch "$clean/$key" || printf '%s\n%s\n' "$key" "${source//+//}"
done < <(cd "$work/sources" && sha256sum -- *) >"$work/due"
echo "$total sources, $(($(wc -l <"$work/due") / 2)) of them to read"
xargs -d '\n' -r -n 2 -P "$(nproc)" bash -c 'check "$@"' check <"$work/due"
