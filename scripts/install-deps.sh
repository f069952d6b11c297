#!/usr/bin/env bash
# Installs everything the build, the tests and the benchmarks need on Debian 12 (as root).
# TERVAN_AVCODEC_EXTRA=0 keeps the plain libavcodec (no AMR-NB encoder); the build works with either.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config gettext
  libavcodec-dev libavutil-dev
  libboost-dev libboost-locale-dev libboost-stacktrace-dev libboost-program-options-dev
  nlohmann-json3-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  clang-format clang-tidy
)
if [ "${TERVAN_AVCODEC_EXTRA:-1}" = 1 ]; then
  packages+=(libavcodec-extra)
fi

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
