#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds, checks the sources by the quick rules and runs all tests.
# The last line is "N passed, N failed"; the exit code is 0 only when everything held.
set -euo pipefail
cd "$(dirname "$0")"

packaging/install-packages build screen test
cmake --preset dev
cmake --build --preset dev --parallel 2

outcome=0
tools/check || outcome=1

results="$PWD/build/dev/test-results.xml"
rm -f "$results"
ctest --preset dev --parallel 2 --output-junit "$results" || outcome=1
[ -s "$results" ] || { echo "No test ran." >&2; exit 1; }
count() {
    sed -n "/^[[:space:]]*$1=/{s/[^0-9]//gp;q}" "$results"
}
failed=$(count failures)
skipped=$(count skipped)
passed=$(($(count tests) - failed - skipped - $(count disabled)))
[ "$outcome" -eq 0 ] || echo "Something failed; see above."
[ "$passed" -gt 0 ] || outcome=1
echo "$passed passed, $failed failed$([ "$skipped" -eq 0 ] || echo ", $skipped skipped")"
exit "$outcome"
