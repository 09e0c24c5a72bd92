#!/usr/bin/env bash
# Installs what the build, the tests and the demo need on Debian 12, once: a second run finds
# everything in place and does nothing. `setup.sh --fuzz` also installs clang and its libFuzzer
# runtime, which only scripts/fuzz.sh needs.
set -euo pipefail

packages=(
  g++ cmake ninja-build pkg-config
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  qt6-base-dev libgl-dev libqt6sql6-sqlite
  libsqlite3-dev sqlite3
  libpq-dev postgresql
  nlohmann-json3-dev
  fonts-liberation fontconfig
  locales
)
if [ "${1:-}" = --fuzz ]; then
  packages+=(clang libclang-rt-dev)
fi

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if ((${#missing[@]})); then
  echo "setup: installing ${missing[*]}"
  sudo_cmd=()
  [ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

# The tests read the number and date settings of real Italian and US locales, and write form
# files under a German one too (its decimal comma must not reach a file).
for loc in it_IT en_US de_DE; do
  if ! locale -a 2>/dev/null | grep -qi "^${loc}\.utf-\?8$"; then
    echo "setup: generating the ${loc}.UTF-8 locale"
    sudo_cmd=()
    [ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
    "${sudo_cmd[@]}" localedef -i "$loc" -f UTF-8 "$loc.UTF-8"
  fi
done
