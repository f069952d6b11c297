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
echo "$output" | head -n 3
echo "$output" | grep -q '^format (44 helpers)$'

PKG_CONFIG_PATH="$scratch/prefix/lib/pkgconfig" c++ -o "$scratch/pc-consumer" "$source/examples/consumer/main.cpp" \
  $(PKG_CONFIG_PATH="$scratch/prefix/lib/pkgconfig" pkg-config --cflags --libs tervan-datahelpers) \
  -Wl,-rpath,"$scratch/prefix/lib"
"$scratch/pc-consumer" | grep -q '^format (44 helpers)$'

# Only the public API leaves the libraries: no internal (anonymous-namespace) symbols.
if nm -D --defined-only "$scratch/prefix/lib/libtervan-datahelpers.so" | c++filt | grep -q 'anonymous namespace'; then
  echo "internal symbols are exported" >&2
  exit 1
fi
echo "consumer package test passed"
