#!/usr/bin/env bash
# Installs the built project into a scratch prefix, builds examples/consumer against
# the installed CMake package and runs it; also compiles it through pkg-config.
set -euo pipefail
build=$1
source=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake --install "$build" --prefix "$scratch/prefix" >/dev/null
cmake -S "$source/examples/consumer" -B "$scratch/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$scratch/prefix" >/dev/null
cmake --build "$scratch/consumer" >/dev/null
output=$("$scratch/consumer/list-helpers")
head -n 3 <<<"$output"
# Whole outputs are captured first: grep -q leaving a pipe early would fail it under pipefail.
grep -q '^format (44 helpers)$' <<<"$output"

# The flags leave the language standard to the host, which here takes a later one.
export PKG_CONFIG_PATH="$scratch/prefix/lib/pkgconfig"
cflags=$(pkg-config --cflags tervan-datahelpers)
if grep -q -- '-std=' <<<"$cflags"; then
  echo "pkg-config flags pin a language standard: $cflags" >&2
  exit 1
fi
c++ -std=c++20 -o "$scratch/pc-consumer" "$source/examples/consumer/main.cpp" $cflags \
  $(pkg-config --libs tervan-datahelpers) -Wl,-rpath,"$scratch/prefix/lib"
output=$("$scratch/pc-consumer")
grep -q '^format (44 helpers)$' <<<"$output"

# Only the public API leaves the libraries: no internal (anonymous-namespace) symbols.
symbols=$(nm -D --defined-only "$scratch/prefix/lib/libtervan-datahelpers.so" | c++filt)
if grep -q 'anonymous namespace' <<<"$symbols"; then
  echo "internal symbols are exported" >&2
  exit 1
fi
echo "consumer package test passed"
