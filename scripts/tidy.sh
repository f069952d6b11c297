#!/usr/bin/env bash
# clang-tidy over the library's and the tool's sources, with the checks of .clang-tidy.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/dev}
mapfile -t sources < <(git ls-files 'src/*.cpp' 'tools/*.cpp')
printf "%s\n" "${sources[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p "$build" --quiet
