#!/usr/bin/env bash
# Builds the library and every test suite, then runs them all.
# Usage: scripts/test.sh [build-dir]   (default: build-test)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=${1:-$root/build-test}

scripts/install-deps.sh
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DQRLSL_BUILD_TESTS=ON >/dev/null
cmake --build "$build" -j"$(nproc)"
ctest --test-dir "$build" --output-on-failure -j"$(nproc)"
