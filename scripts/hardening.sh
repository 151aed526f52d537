#!/usr/bin/env bash
# The hardening runs (scripts/test.sh runs all three after the plain suites):
#   asan  every suite, the corpus runs included, under AddressSanitizer and
#         UndefinedBehaviorSanitizer (build-asan; the Java suites load the
#         sanitizer's runtime through LD_PRELOAD)
#   tsan  the shared-knowledge thread test under ThreadSanitizer (build-tsan)
#   fuzz  a short fixed-length run of each libFuzzer target (build-fuzz, with
#         clang); skipped with a message when clang or its fuzzer runtime is
#         missing
# Usage: scripts/hardening.sh [asan] [tsan] [fuzz]   (default: all three)
# Any sanitizer report fails the run. See docs/hardening.md.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
jobs=$(nproc)
steps=("$@")
[ ${#steps[@]} -gt 0 ] || steps=(asan tsan fuzz)

export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:check_initialization_order=1:strict_init_order=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
export TSAN_OPTIONS=${TSAN_OPTIONS:-halt_on_error=1:second_deadlock_stack=1}

run_asan() {
  local build=$root/build-asan
  echo "== AddressSanitizer + UndefinedBehaviorSanitizer ($build)"
  cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DQRLSL_BUILD_TESTS=ON \
    -DQRLSL_SANITIZE="address;undefined" >/dev/null
  cmake --build "$build" -j"$jobs"
  ctest --test-dir "$build" --output-on-failure -j"$jobs"
}

run_tsan() {
  local build=$root/build-tsan
  echo "== ThreadSanitizer ($build)"
  cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DQRLSL_BUILD_TESTS=ON \
    -DQRLSL_SANITIZE=thread >/dev/null
  cmake --build "$build" -j"$jobs" --target threads_tests
  ctest --test-dir "$build" --output-on-failure -R '^SharedKnowledgeThreads\.'
}

run_fuzz() {
  local build=$root/build-fuzz
  local runtime
  if ! command -v clang++ >/dev/null 2>&1; then
    echo "== fuzz: skipped, clang++ is not installed (scripts/install-deps.sh --tests tries to install it)"
    return 0
  fi
  runtime=$(clang++ -print-file-name=libclang_rt.fuzzer-x86_64.a)
  if [ ! -f "$runtime" ]; then
    echo "== fuzz: skipped, clang's libFuzzer runtime is not installed (libclang-rt-dev)"
    return 0
  fi
  echo "== libFuzzer targets ($build)"
  CC=clang CXX=clang++ cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DQRLSL_BUILD_TESTS=OFF -DQRLSL_SANITIZE=ON -DQRLSL_BUILD_FUZZERS=ON >/dev/null
  cmake --build "$build" -j"$jobs"
  ctest --test-dir "$build" --output-on-failure -j"$jobs" -R '^fuzz_'
}

for step in "${steps[@]}"; do
  case $step in
    asan) run_asan ;;
    tsan) run_tsan ;;
    fuzz) run_fuzz ;;
    *) echo "hardening: unknown step $step (asan, tsan, fuzz)" >&2; exit 2 ;;
  esac
done
