#!/usr/bin/env bash
# Builds everything and runs the whole test suite: the README's test command.
# TERVAN_PRESET selects a CMake preset (dev by default; asan or tsan for the sanitizer builds).
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${TERVAN_PRESET:-dev}
cmake --preset "$preset"
cmake --build --preset "$preset"
runner=()
# GCC 12's ThreadSanitizer cannot map its shadow memory where kernels that randomise
# mmap with more bits put a process; without address randomisation it always can.
if [ "$preset" = tsan ] && setarch "$(uname -m)" -R true 2>/dev/null; then
  runner=(setarch "$(uname -m)" -R)
fi
"${runner[@]}" ctest --preset "$preset"
