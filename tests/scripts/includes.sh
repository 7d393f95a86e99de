#!/usr/bin/env bash
# scripts/includes.sh on made-up trees: each offence is told with its place, and a clean tree passes.
set -euo pipefail
script=$(cd "$(dirname "$0")/../../scripts" && pwd)/includes.sh
tree=$(mktemp -d)
trap 'rm -r "$tree"' EXIT
mkdir -p "$tree/docs" "$tree"/src/{ground,ports/adapter,logic,app}
failed=0

file() { printf '%s\n' "${@:2}" >"$tree/$1"; }

# expect WHAT LINE...: the script says these lines, and fails if there are any.
expect() {
  local what=$1 wanted said status=0
  shift
  wanted=$(printf '%s\n' "$@")
  said=$("$script" "$tree" 2>&1) || status=$?
  if [ "$said" != "$wanted" ] || [ "$status" -ne $(($# > 0)) ]; then
    printf '%s: status %d and\n%s\nin place of\n%s\n' "$what" "$status" "$said" "$wanted" >&2
    failed=1
  fi
}

clean_tree() {
  file docs/architecture.md '| Folder | What it holds | May include |' '|---|---|---|' \
    '| `src/ground` | numbers | nothing |' \
    '| `src/ports` | ports | `ground` |' \
    '| `src/ports/adapter` | an adapter | `ground`, `ports` |' \
    '| `src/logic` | rules | `ground`, `ports` |' \
    '| `src/app` | wiring | `all` |'
  file src/ground/a.h '#include <vector>'
  file src/ports/b.h '#include "ground/a.h"'
  file src/ports/adapter/d.h '#include "d2.h"' '#include "ports/b.h"'
  file src/ports/adapter/d2.h ''
  file src/logic/c.h '#include "ground/a.h"' '' '  #  include "ports/b.h"'
  file src/app/main.cpp '#include "logic/c.h"' '#include "ports/adapter/d.h"'
}

clean_tree
expect "a clean tree"

file src/logic/c.h '' '#include "ports/adapter/d.h"'
expect "a folder that is not in the row" \
  'src/logic/c.h:2: src/logic may not include "ports/adapter/d.h" of src/ports/adapter'

clean_tree
file src/ground/a.h '#include "logic/c.h"'
expect "a circle" \
  'src/ground/a.h:1: src/ground includes "logic/c.h" of src/logic, a row below it'

clean_tree
sed -i 's/| numbers | nothing |/| numbers | `logic` |/' "$tree/docs/architecture.md"
expect "an arrow down the table" 'docs/architecture.md:3: "logic" is no folder of a row above'

clean_tree
mkdir "$tree/src/new"
file src/new/e.cpp '#include "ground/a.h"'
expect "a folder without a row" 'src/new/e.cpp:1: no row for src/new'
rm -r "$tree/src/new"

clean_tree
file src/app/main.cpp '#include "logic/gone.h"'
expect "a header that is not there" 'src/app/main.cpp:1: no header "logic/gone.h" in src'

clean_tree
file docs/architecture.md '# Architecture'
file src/app/main.cpp ''
rm "$tree"/src/{ground,ports,logic}/*.h "$tree"/src/ports/adapter/*
expect "no table" 'docs/architecture.md:1: no table of folders'

exit "$failed"
