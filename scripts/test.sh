#!/usr/bin/env bash
# The whole test suite: installs what is missing, then builds and runs every test twice, in a
# normal build and under AddressSanitizer + UndefinedBehaviorSanitizer. Any failure or
# sanitizer finding fails the run.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"

export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:strict_string_checks=1:detect_stack_use_after_return=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
if [ -f "$root/tests/lsan.supp" ]; then
  export LSAN_OPTIONS="suppressions=$root/tests/lsan.supp:print_suppressions=0"
fi

# The PostgreSQL tests run against a throw-away server started here and stopped whatever the
# outcome; they read its address and password from TABULON_PG_URI and TABULON_PG_PASSWORD.
pgdir=$(mktemp -d "${TMPDIR:-/tmp}/tabulon_pg.XXXXXX")
trap '"$root/scripts/postgres.sh" stop "$pgdir"' EXIT
trap 'exit 130' INT TERM
"$root/scripts/postgres.sh" start "$pgdir"
# shellcheck source=/dev/null
. "$pgdir/env"

for config in release asan; do
  echo "=== $config build"
  start=$(date +%s)
  "$root/scripts/build.sh" "$config"
  echo "=== $config tests"
  ctest --test-dir "$root/build/$config" --output-on-failure --timeout 600
  echo "=== $config done in $(( $(date +%s) - start )) s"
done
