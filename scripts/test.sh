#!/usr/bin/env bash
# Builds the library and every test suite, then runs them all; then the
# hardening runs of scripts/hardening.sh: the suites again under
# AddressSanitizer and UndefinedBehaviorSanitizer, the thread test under
# ThreadSanitizer, and a short run of each fuzz target.
# Usage: scripts/test.sh [build-dir]   (default: build-test)
# QRLSL_HARDENING=0 leaves the hardening runs out.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=${1:-$root/build-test}

scripts/install-deps.sh --tests
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DQRLSL_BUILD_TESTS=ON >/dev/null
cmake --build "$build" -j"$(nproc)"
ctest --test-dir "$build" --output-on-failure -j"$(nproc)"
# The Python tools that build and learn the knowledge.
python3 -m pytest -q tests/python

# Quality on real text, held out: the GSD dev treebank must stay above the
# floor the team raises as the knowledge and the routes improve (skipped
# without it).
QRLSL_EVAL_FLOOR=${QRLSL_EVAL_FLOOR:-0.90} scripts/eval.sh "$root/build-eval"

if [ "${QRLSL_HARDENING:-1}" != 0 ]; then
  scripts/hardening.sh
fi
