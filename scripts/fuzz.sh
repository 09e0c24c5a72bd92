#!/usr/bin/env bash
# Builds the libFuzzer targets with clang in build/fuzz and runs each in turn, printing its
# executions and result:
#   scripts/fuzz.sh [seconds per target, default 600] [max_len, default 4096] [targets...]
# e.g. scripts/fuzz.sh 60 1100000 fuzz_format  (a minute of inputs up to a megabyte).
# The seed corpus in fuzz/corpus/<target> is read, never written: new inputs go to
# build/fuzz/corpus/<target> (build/fuzz/corpus-long/<target> for a max_len above 64 KB),
# failing ones to build/fuzz/artifacts, logs to build/fuzz/logs.
# FUZZ_BUILD_DIR moves the build; FUZZ_JOBS sets the compile jobs (default 2).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-600}
max_len=${2:-4096}
shift $(( $# < 2 ? $# : 2 ))
targets=("$@")
if ((${#targets[@]} == 0)); then
  targets=(fuzz_numeric fuzz_date fuzz_format fuzz_form_file fuzz_choice_file)
fi
dir=${FUZZ_BUILD_DIR:-$root/build/fuzz}
"$root/scripts/setup.sh" --fuzz

if [ ! -f "$dir/build.ninja" ]; then
  CC=clang CXX=clang++ cmake -S "$root" -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTABULON_FUZZ=ON
fi
cmake --build "$dir" --target "${targets[@]}" -- -j"${FUZZ_JOBS:-2}"

# A seed grown to `size` bytes: its first byte (the settings) and the rest doubled until it fills.
grow() {
  local seed=$1 out=$2 size=$3 body tmp
  body=$(mktemp)
  tmp=$(mktemp)
  tail -c +2 "$seed" >"$body"
  [ -s "$body" ] || printf 0 >"$body"
  while [ "$(stat -c %s "$body")" -lt "$size" ]; do
    cat "$body" "$body" >"$tmp"
    mv "$tmp" "$body"
  done
  { head -c 1 "$seed"; head -c $((size - 1)) "$body"; } >"$out"
  rm -f "$body" "$tmp"
}

mkdir -p "$dir/artifacts" "$dir/logs"
failed=0
for target in "${targets[@]}"; do
  # Long runs keep a corpus of their own: megabyte inputs would slow the short ones, and the
  # short ones' many inputs each take long at a megabyte.
  corpus="$dir/corpus/$target"
  ((max_len <= 65536)) || corpus="$dir/corpus-long/$target"
  log="$dir/logs/$target-$max_len.log"
  mkdir -p "$corpus"
  corpora=("$corpus" "$root/fuzz/corpus/$target")
  options=(-max_total_time="$seconds" -max_len="$max_len" -timeout=60 -rss_limit_mb=4096
           -print_final_stats=1 -artifact_prefix="$dir/artifacts/$target-")
  case "$target" in
    fuzz_format) options+=(-dict="$root/fuzz/format.dict") ;;
    fuzz_form_file) options+=(-dict="$root/fuzz/form_file.dict") ;;
  esac
  if ((max_len > 65536)); then
    # Long inputs from the start: the seeds grown to a megabyte, no slow growth of lengths, and
    # the targets' long-input mode, which grows every input to a megabyte (fuzz/fuzz_common.h).
    large="$dir/corpus-large/$target"
    mkdir -p "$large"
    for seed in "$root/fuzz/corpus/$target"/*; do
      grow "$seed" "$large/$(basename "$seed")" $((max_len < 1048576 ? max_len : 1048576))
    done
    corpora+=("$large")
    options+=(-len_control=0)
  fi
  echo "=== $target: $seconds s, inputs up to $max_len bytes (log $log)"
  set +e
  if ((max_len > 65536)); then
    TABULON_FUZZ_LARGE=1 nice -n 10 "$dir/fuzz/$target" "${options[@]}" "${corpora[@]}" >"$log" 2>&1
  else
    nice -n 10 "$dir/fuzz/$target" "${options[@]}" "${corpora[@]}" >"$log" 2>&1
  fi
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
