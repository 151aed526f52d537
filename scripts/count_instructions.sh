#!/usr/bin/env bash
# Counts the instructions of one analysis pass over the corpus text with
# callgrind: the figure to follow from change to change, since unlike the
# wall clock it reads the same on a busy machine. The pass keeps the
# sentence for the host, as the benchmark does, and comes after a warm-up
# pass. qrl_bench is built link-time optimised with debug information and
# without profile guidance (RelWithDebInfo) in build-count; the callgrind
# file is kept there for callgrind_annotate. Run on demand, never by the
# test suite.
# With BRANCHES=1 callgrind also simulates a branch predictor and prints the
# conditional and indirect branches and their mispredictions: a simple
# predictor, far weaker than the processor's, but the lines it finds
# mispredicting most (callgrind_annotate --show=Bcm,Bc --sort=Bcm) are the
# data-dependent decisions, and those bound the analysis rate.
# Usage: scripts/count_instructions.sh [KNOWLEDGE_DIR]
#   (default knowledge: build/knowledge, which scripts/setup.sh builds)
#   (default build dir: build-count; set BUILD=dir to change it)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=${BUILD:-$root/build-count}
knowledge=${1:-$root/build/knowledge}
corpus=$root/../shared/corpus

if [ ! -f "$knowledge/qrl.klg" ]; then
  echo "count_instructions: no compiled knowledge at $knowledge; run scripts/setup.sh first" >&2
  exit 2
fi
if ! compgen -G "$corpus/*/*.conllu" >/dev/null; then
  echo "count_instructions: no corpus under $corpus; nothing counted"
  exit 0
fi
if ! command -v valgrind >/dev/null 2>&1; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  echo "Installing: valgrind"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq valgrind
fi

cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQRLSL_PGO= \
  -DQRLSL_BUILD_BENCHMARKS=ON -DQRLSL_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target qrl_bench >/dev/null
out=$build/callgrind.out
branches=()
[ "${BRANCHES:-0}" = 1 ] && branches=(--branch-sim=yes)
valgrind --tool=callgrind "${branches[@]}" --toggle-collect='CountedPass*' \
  --callgrind-out-file="$out" \
  "$build/bench/qrl_bench" --counted-pass --knowledge "$knowledge" \
  --corpus "$corpus" 2>&1 | grep -E "counted pass|I +refs|Branches|Mispred" |
  sed 's/^==[0-9]*== *//'
echo "profile: $out (callgrind_annotate $out)"
