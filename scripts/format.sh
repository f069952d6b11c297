#!/usr/bin/env bash
# clang-format over every C++ source with the repository's .clang-format; --check only
# reports the files that differ and fails.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t sources < <(git ls-files '*.cpp' '*.h')
if [[ ${1:-} == --check ]]; then
    clang-format --dry-run -Werror "${sources[@]}"
else
    clang-format -i "${sources[@]}"
fi
