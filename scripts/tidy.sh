#!/usr/bin/env bash
# clang-tidy over the library's and the tool's sources, with the checks of .clang-tidy.
# Its count of the diagnostics it suppressed ("N warnings generated.") is left out.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/dev}
mapfile -t sources < <(git ls-files 'src/*.cpp' 'tools/*.cpp')
counts=$(mktemp)
trap 'rm -f "$counts"' EXIT
status=0
printf "%s\n" "${sources[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p "$build" --quiet 2>"$counts" || status=$?
grep -v -E '^[0-9]+ warnings? generated\.$' "$counts" >&2 || true
exit "$status"
