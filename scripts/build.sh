#!/usr/bin/env bash
# Configures (once) and builds one configuration with Ninja: build.sh release|asan [targets...]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
config=${1:?usage: build.sh release|asan [targets...]}
shift
dir="$root/build/$config"

case "$config" in
  release) flags=(-DCMAKE_BUILD_TYPE=RelWithDebInfo) ;;
  asan)    flags=(-DCMAKE_BUILD_TYPE=Debug -DTABULON_SANITIZE=ON) ;;
  *) echo "unknown configuration $config" >&2; exit 2 ;;
esac

if [ ! -f "$dir/build.ninja" ]; then
  cmake -S "$root" -B "$dir" -G Ninja "${flags[@]}"
fi
cmake --build "$dir" -- "$@"
