#!/usr/bin/env bash
# Sets everything up and runs the main job: installs what is missing, builds
# the library and the command-line tool, and analyses a Korean sample text
# (or the text given on standard input when it is not a terminal).
# Usage: scripts/setup.sh [build-dir]   (default: build)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=${1:-$root/build}

scripts/install-deps.sh
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DQRLSL_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)"

echo "Built: $build/libqrlsl.so, $build/libqrlsl.a and $build/qrl"
if [ -t 0 ]; then
  printf '%s\n' "나는 학교에 갔다. 하늘이 맑다!" | "$build/qrl"
else
  "$build/qrl"
fi
