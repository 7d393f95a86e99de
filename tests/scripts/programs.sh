#!/usr/bin/env bash
# Every program of src/app stands wherever all of them do: in the table of docs/architecture.md and,
# by what its row says there, among the manuals and in what is built for Windows.
set -euo pipefail
cd "$(dirname "$0")/../.."
failed=0

# has FILE TEXT
has() { grep -qF -- "$2" "$1" || { echo "$1: no $2" >&2; failed=1; }; }

for file in src/app/vorlent*.cpp; do
  program=$(basename "$file" .cpp)
  has docs/architecture.md "| \`$program\` |"
  row=$(grep -F "| \`$program\` |" docs/architecture.md || :)
  if [[ $row != *"(#helpers)"* ]]; then  # only the server starts those
    has docs/install.md "\`$program\`"
    has "packaging/man/$program.1" ".SH NAME"
  fi
  if [[ $row != *"on Linux only"* ]]; then
    has cmake/WindowsProgram.cmake "set(DESCRIPTION_$program "
    has tests/windows/installer.sh " $program.exe"
  elif grep -qF "set(DESCRIPTION_$program " cmake/WindowsProgram.cmake; then
    echo "docs/architecture.md: $program is built for Windows, too" >&2
    failed=1
  fi
done
exit "$failed"
