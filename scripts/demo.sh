#!/usr/bin/env bash
# The demo host on the bundled sample database. With no display it renders to a PNG and says
# where; extra arguments go to the demo (for example --screenshot FILE).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" release tabulon_demo
exec "$root/build/release/apps/demo/tabulon_demo" "$@"
