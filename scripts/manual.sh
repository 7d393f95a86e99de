#!/usr/bin/env bash
# Makes the manual, one file of HTML with its pictures in it, of the project's pages:
#   scripts/manual.sh FILE [PAGE...]
#
# PAGE is below docs, which are by default the pages for operators and builders. A link to a page
# that is none of them becomes plain text. A link to a heading that is not there, or a picture that
# is not there, is told, and nothing is made.
set -euo pipefail
manual=$(realpath -m "$1")
shift
cd "$(dirname "$0")/.."
[ $# -gt 0 ] || set -- windows.md install.md on-windows.md controllers.md sound.md commands.md \
  cockpit/autoflight.md vorlent-plan.md web.md shares.md display-protocol.md keeper.md recorder.md \
  peculiarities.md
cd "${VORLENT_DOCS:-docs}"

work=$(mktemp -d)
trap 'rm -r "$work"' EXIT

# Every heading gets an id, "page" or "page-heading", and every link leads to one. Headings go to
# the table of contents, pictures become <img> with @path@ for what is put in last.
awk -v pages="$*" -v contents="$work/contents.md" '
  function slug(title) {
    title = tolower(title)
    gsub(/[^a-z0-9 _-]/, "", title)
    gsub(/ /, "-", title)
    return title
  }
  function pageId(path) { gsub(/\.md$/, "", path); gsub(/\//, "-", path); return path }
  # The path from docs of what `target` is from the folder of the page.
  function resolved(target,   path) {
    path = folder target
    while (sub(/[^\/]+\/\.\.\//, "", path)) {}
    return path
  }
  function link(whole,   text, target, path, anchor) {
    text = whole; sub(/^!?\[/, "", text); sub(/\]\([^)]*\)$/, "", text)
    target = whole; sub(/^.*\]\(/, "", target); sub(/\)$/, "", target)
    if (target ~ /^[a-z]+:/) return whole
    if (whole ~ /^!/) return "<img alt=\"" text "\" src=\"@" resolved(target) "@\">"
    path = target; sub(/#.*/, "", path)
    anchor = index(target, "#") ? "-" substr(target, index(target, "#") + 1) : ""
    path = path == "" ? page : resolved(path)
    return path in listed ? "[" text "](#" pageId(path) anchor ")" : text
  }
  function linked(line,   out) {
    while (match(line, /!?\[[^]]*\]\([^)]*\)/)) {
      out = out substr(line, 1, RSTART - 1) link(substr(line, RSTART, RLENGTH))
      line = substr(line, RSTART + RLENGTH)
    }
    return out line
  }
  function heading(line,   depth, title, id) {
    match(line, /^#+/); depth = RLENGTH
    title = substr(line, depth + 2)
    id = pageId(page) (depth == 1 ? "" : "-" slug(title))
    if (depth <= 2) print (depth == 1 ? "- " : "  - ") "[" title "](#" id ")" > contents
    print "<a id=\"" id "\"></a>\n"
  }
  BEGIN { n = split(pages, names, " "); for (i = 1; i <= n; ++i) listed[names[i]] = 1 }
  FNR == 1 {
    page = FILENAME; sub(/^\.\//, "", page)
    folder = page; if (!sub(/[^\/]*$/, "", folder)) folder = ""
    fenced = 0; print "\n"
  }
  /^```/ { fenced = !fenced }
  !fenced && /^#+ / { heading($0) }
  { print fenced || /^    / ? $0 : linked($0) }
' "$@" >"$work/all.md"

html() { cmark-gfm --unsafe --extension table --extension autolink "$1"; }
{
  cat <<'HEAD'
<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Vorlent</title>
<style>
:root { color-scheme: light dark; }
body { font: 16px/1.5 sans-serif; max-width: 60em; margin: 2em auto; padding: 0 1em; }
header { font-size: 1.6em; font-weight: bold; }
h1 { margin-top: 3em; border-bottom: 1px solid #8888; }
table { border-collapse: collapse; display: block; overflow-x: auto; }
th, td { border: 1px solid #8888; padding: 0.2em 0.6em; text-align: left; vertical-align: top; }
pre { overflow-x: auto; padding: 0.6em; background: #8882; }
img { max-width: 100%; height: auto; background: white; }
</style>
</head>
<body>
HEAD
  echo '<header>Vorlent, manual for operators and builders</header>'
  echo '<nav>'
  html "$work/contents.md"
  echo '</nav>'
  html "$work/all.md"
  echo '</body>'
  echo '</html>'
} >"$work/manual.htm"

# Links and pictures without an end.
dead=0
grep -oE '<a id="[^"]*"' "$work/manual.htm" | sed 's/.*"\(.*\)"/\1/' | sort -u >"$work/ids"
grep -oE 'href="#[^"]*"' "$work/manual.htm" | sed 's/.*#\(.*\)"/\1/' | sort -u >"$work/links"
while read -r id; do
  echo "manual.sh: no heading for the link to #$id" >&2
  dead=1
done < <(comm -13 "$work/ids" "$work/links")
grep -oE 'src="@[^"]*@"' "$work/manual.htm" | sed 's/.*@\(.*\)@"/\1/' | sort -u >"$work/pictures"
while read -r picture; do
  [ -f "$picture" ] || { echo "manual.sh: no picture $picture" >&2; dead=1; }
done <"$work/pictures"
[ $dead -eq 0 ] || exit 1

mkdir -p "$(dirname "$manual")"
awk '
  function inlined(path,   type, data, command) {
    type = path ~ /\.svg$/ ? "image/svg+xml" : "image/png"
    command = "base64 -w0 \"" path "\""
    command | getline data
    close(command)
    return "data:" type ";base64," data
  }
  {
    while (match($0, /src="@[^"]*@"/)) {
      printf "%ssrc=\"%s\"", substr($0, 1, RSTART - 1), inlined(substr($0, RSTART + 6, RLENGTH - 8))
      $0 = substr($0, RSTART + RLENGTH)
    }
    print
  }' "$work/manual.htm" >"$work/whole.htm"
mv "$work/whole.htm" "$manual"
