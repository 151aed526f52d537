#!/usr/bin/env bash
# Builds the benchmarks (Release) and prints their figures: start-up, single
# and multi-threaded throughput beside the scanner's floor, memory and heap
# allocations per eojul. The corpus figures need ../shared/corpus and are
# skipped when it is absent. Never part of the test suite.
# Usage: scripts/bench.sh [KNOWLEDGE_DIR [qrl_bench options...]]
#   (default knowledge: build/knowledge, which scripts/setup.sh builds)
#   (default build dir: build-bench; set BUILD=dir to change it)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=${BUILD:-$root/build-bench}

# The benchmark builds as setup.sh builds the release: link-time optimised,
# and profile-guided when there is a training text and a knowledge base to
# train with (see scripts/pgo.sh; QRLSL_PGO=0 measures without).
. "$root/scripts/pgo.sh"
configure() {
  cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release \
    -DQRLSL_BUILD_BENCHMARKS=ON -DQRLSL_BUILD_TESTS=OFF "$@" >/dev/null
}
# The knowledge measured (and trained with): the one setup.sh builds, unless
# a directory is named.
knowledge=${1:-$root/build/knowledge}
[ $# -gt 0 ] && shift
if [ ! -f "$knowledge/qrl.klg" ] && ! compgen -G "$knowledge/*.dic" >/dev/null; then
  echo "bench: no knowledge at $knowledge; run scripts/setup.sh first, or name a knowledge directory" >&2
  exit 2
fi
trainWith=$knowledge
text=$(mktemp /tmp/qrl-pgo-XXXXXX)
trap 'rm -f "$text"' EXIT
if [ -f "$trainWith/qrl.klg" ] && pgo_text "$text"; then
  rm -rf "$build/pgo-profile"
  configure -DQRLSL_PGO=generate -DQRLSL_PGO_DIR="$build/pgo-profile"
  cmake --build "$build" -j"$(nproc)" --target qrl
  pgo_train "$build" "$trainWith" "$text"
  configure -DQRLSL_PGO=use
  echo "profile-guided build, trained on $(wc -l <"$text") lines"
else
  configure -DQRLSL_PGO=
  echo "no profile-guided build: no training text or no compiled knowledge at $trainWith"
fi
cmake --build "$build" -j"$(nproc)" --target qrl_bench

args=(--knowledge "$knowledge")
corpus=$root/../shared/corpus
if [ -d "$corpus" ]; then
  args+=(--corpus "$corpus")
else
  echo "No corpus at $corpus: only the start-up and memory figures follow."
  args+=(--corpus "$build/no-corpus")
fi
"$build/bench/qrl_bench" "${args[@]}" "$@"
