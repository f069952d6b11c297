#!/usr/bin/env bash
# Builds everything and runs the whole test suite: the README's test command.
# TERVAN_PRESET selects a CMake preset (dev by default; asan for the sanitizer build).
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${TERVAN_PRESET:-dev}
cmake --preset "$preset"
cmake --build --preset "$preset"
ctest --preset "$preset"
