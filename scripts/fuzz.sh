#!/usr/bin/env bash
# Builds the libFuzzer targets with clang in build/fuzz and runs each in turn, printing its
# executions and result:
#   scripts/fuzz.sh [seconds per target, default 600] [max_len, default 4096] [targets...]
# e.g. scripts/fuzz.sh 60 1100000 fuzz_format  (a minute of inputs up to a megabyte).
# The seed corpus in fuzz/corpus/<target> is read, never written: new inputs go to
# build/fuzz/corpus/<target>, failing ones to build/fuzz/artifacts, logs to build/fuzz/logs.
# FUZZ_BUILD_DIR moves the build; FUZZ_JOBS sets the compile jobs (default 2).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-600}
max_len=${2:-4096}
shift $(( $# < 2 ? $# : 2 ))
targets=("$@")
if ((${#targets[@]} == 0)); then
  targets=(fuzz_numeric fuzz_date fuzz_format)
fi
dir=${FUZZ_BUILD_DIR:-$root/build/fuzz}

if [ ! -f "$dir/build.ninja" ]; then
  CC=clang CXX=clang++ cmake -S "$root" -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTABULON_FUZZ=ON
fi
cmake --build "$dir" --target "${targets[@]}" -- -j"${FUZZ_JOBS:-2}"

mkdir -p "$dir/artifacts" "$dir/logs"
failed=0
for target in "${targets[@]}"; do
  corpus="$dir/corpus/$target"
  log="$dir/logs/$target-$max_len.log"
  mkdir -p "$corpus"
  options=(-max_total_time="$seconds" -max_len="$max_len" -timeout=60 -rss_limit_mb=4096
           -print_final_stats=1 -artifact_prefix="$dir/artifacts/$target-")
  if [ "$target" = fuzz_format ]; then
    options+=(-dict="$root/fuzz/format.dict")
  fi
  echo "=== $target: $seconds s, inputs up to $max_len bytes (log $log)"
  set +e
  nice -n 10 "$dir/fuzz/$target" "${options[@]}" "$corpus" "$root/fuzz/corpus/$target" >"$log" 2>&1
  status=$?
  set -e
  executions=$(grep -o 'stat::number_of_executed_units: *[0-9]*' "$log" | grep -o '[0-9]*$' | tail -1 || true)
  if [ -z "$executions" ]; then  # no final statistics after a failure: the last progress line
    executions=$(grep -oE '^#[0-9]+' "$log" | tail -1 | tr -d '#' || true)
  fi
  if [ "$status" -eq 0 ]; then
    result="no failure"
  else
    result="FAILED (exit $status): $(grep -m1 -E 'ERROR: |SUMMARY: |fuzz_[a-z]+: ' "$log" || true)"
    failed=1
  fi
  echo "$target: ${executions:-?} executions in $seconds s, $result"
done
exit "$failed"
