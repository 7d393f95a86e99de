#!/usr/bin/env bash
# scripts/manual.sh on made-up pages: links and pictures lead to where they should, and dead ones are
# told and make nothing.
set -euo pipefail
script=$(cd "$(dirname "$0")/../../scripts" && pwd)/manual.sh
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT
export VORLENT_DOCS=$work/docs
mkdir -p "$work/docs/sub/pictures"
failed=0

page() { printf '%s\n' "${@:2}" >"$work/docs/$1"; }
fail() { printf '%s\n' "$1" >&2; failed=1; }
has() { grep -qF -- "$2" "$work/manual.htm" || fail "$1: no $2 in $(cat "$work/manual.htm")"; }
hasnt() { ! grep -qF -- "$2" "$work/manual.htm" || fail "$1: $2 is there"; }

# refused WHAT LINE...: nothing is made, and these lines are told.
refused() {
  local what=$1 said wanted
  shift
  wanted=$(printf 'manual.sh: %s\n' "$@")
  rm -f "$work/manual.htm"
  if said=$("$script" "$work/manual.htm" a.md sub/b.md 2>&1); then fail "$what: passed"; fi
  [ "$said" = "$wanted" ] || fail "$what: said $said"
  [ ! -e "$work/manual.htm" ] || fail "$what: a manual was made"
}

printf 'P' >"$work/docs/sub/pictures/p.png"
clean() {
  page a.md '# First page' '' 'See [the other](sub/b.md), [its end](sub/b.md#the-end-really) and' \
    '[here](#a-part), [elsewhere](c.md), <https://example.org>.' '' '## A part' '' \
    '| one | two |' '|---|---|' '| 1 | 2 |' '' '```' '# no heading [x](y.md)' '```'
  page sub/b.md '# Second' '' '![a picture](pictures/p.png)' '' 'Back to [the first](../a.md#a-part).' \
    '' '## The end, really!'
}

clean
"$script" "$work/manual.htm" a.md sub/b.md
has "a link to a page" 'href="#sub-b"'
has "a link to a heading of another page" 'href="#sub-b-the-end-really"'
has "a link to a heading of the same page, and one from another" 'href="#a-a-part"'
has "a heading" '<a id="sub-b-the-end-really"></a>'
has "a link to a page that is not in it" ', elsewhere, '
has "a table" '<td>2</td>'
has "code" '# no heading [x](y.md)'
has "a picture" 'src="data:image/png;base64,UA=="'
has "the contents" '<nav>'
hasnt "the folder of the pages" 'docs/'

clean
page sub/b.md '# Second'
refused "a link to a heading that is not there" "no heading for the link to #sub-b-the-end-really"
clean
page sub/b.md '# Second' '' '## The end, really!' '' '![gone](pictures/gone.png)'
refused "a picture that is not there" "no picture sub/pictures/gone.png"

# What the windows refer to is in the manual as shipped.
unset VORLENT_DOCS
"$script" "$work/manual.htm"
for page in windows install controllers sound commands web keeper recorder; do
  has "the manual as shipped" "<a id=\"$page\"></a>"
done
has "the numbers of the sounds" 'href="#sound"'

exit $failed
