#!/usr/bin/env bash
# How fast the game's windows are and what they cost, beside a bare window of the same toolkit.
#   tools/measure.sh [ROUNDS]
# Wants a machine that has nothing else to do.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
source tools/packages.sh
source tools/build.sh

install_missing play bench
mkdir -p build
configure release -DFALANGES_BENCH=ON
build release programs bare_window
exec /usr/bin/python3 bench/window/measure.py build/release "$@"
