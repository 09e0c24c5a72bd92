#!/usr/bin/env bash
# The designer host on the bundled sample's form file, or on the form file given (a file that
# does not exist yet is a new form, saved there). With no display it renders to a PNG and says
# where; extra arguments go to the designer (for example --query TEXT or --screenshot FILE).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" release tabulon_designer
exec "$root/build/release/apps/designer/tabulon_designer" "$@"
