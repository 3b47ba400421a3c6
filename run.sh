#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what is missing, builds Kelvor and starts it. Where there is no display it runs on a virtual one
# instead, does the main job there and leaves a screenshot of it.
set -euo pipefail
cd "$(dirname "$0")"

groups=(build)
[ -n "${DISPLAY:-}" ] || groups+=(screen)
packaging/install-packages "${groups[@]}"
cmake --preset release -DKELVOR_TESTS=OFF -DKELVOR_BENCH=OFF
cmake --build --preset release --parallel "$(nproc)"

program="$PWD/build/release/program/kelvor"
if [ -n "${DISPLAY:-}" ]; then
    exec "$program"
fi
echo "There is no display here (DISPLAY is not set). Kelvor starts on a virtual one and does its main job there:"
echo "open a page, select a word, wrap it in tags, save."
exec tools/show_main_job "$program" "$PWD/build/screenshots/main-job.png"
