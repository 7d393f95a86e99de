#!/usr/bin/env bash
# Runs the page's tests in a browser: run.sh PROGRAMS DATA WORK [PICTURES]. The two packages they need
# are fetched into the folder WORK once, in the versions that package-lock.json names; no browser comes
# with them.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
export PROGRAMS=$(realpath "$1") DATA=$(realpath "$2") PICTURES=${4:+$(realpath "$4")}
mkdir -p "$3"
cd "$3"
cp "$here"/*.js .
if ! cmp -s "$here/package-lock.json" installed-lock.json; then
  cp "$here"/package*.json .
  npm ci --no-audit --no-fund --ignore-scripts --loglevel=error
  cp package-lock.json installed-lock.json
fi
exec node --test cockpit.test.js
