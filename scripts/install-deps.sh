#!/usr/bin/env bash
# Installs everything the build, the tests and the benchmarks need on Debian 12 (as root).
# TERVAN_AVCODEC_EXTRA=0 keeps the plain libavcodec (no AMR-NB encoder); the build works with either.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config gettext locales
  libavcodec-dev libavutil-dev
  libboost-dev libboost-stacktrace-dev libboost-program-options-dev
  nlohmann-json3-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  clang-format clang-tidy valgrind
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

# Texts are translated into a language only when the system has a locale for it; the
# tests translate into German and French.
locales=(de_DE.UTF-8 fr_FR.UTF-8)
touch /etc/locale.gen
available=$(locale -a)
generate=0
for locale in "${locales[@]}"; do
  if ! grep -qx "$locale UTF-8" /etc/locale.gen; then
    if grep -qx "# *$locale UTF-8" /etc/locale.gen; then
      sed -i "s/^# *$locale UTF-8\$/$locale UTF-8/" /etc/locale.gen
    else
      echo "$locale UTF-8" >>/etc/locale.gen
    fi
  fi
  grep -qix "${locale%.UTF-8}.utf8" <<<"$available" || generate=1
done
if [ "$generate" = 1 ]; then
  locale-gen
fi
