#!/usr/bin/env bash
# Installs what the build needs, from Debian's packages, when it is missing;
# with --tests also what the tests need (GoogleTest, pytest, clang's
# sanitizer and libFuzzer runtimes). Safe to run again.
# Usage: scripts/install-deps.sh [--tests]
set -euo pipefail
tests=0
[ "${1:-}" = "--tests" ] && tests=1

need=()
command -v cmake >/dev/null 2>&1 || need+=(cmake)
command -v g++ >/dev/null 2>&1 || need+=(g++)
command -v make >/dev/null 2>&1 || need+=(make)
command -v python3 >/dev/null 2>&1 || need+=(python3)
command -v javac >/dev/null 2>&1 || need+=(default-jdk-headless)
command -v nm >/dev/null 2>&1 || need+=(binutils)
if [ "$tests" = 1 ]; then
  [ -f /usr/include/gtest/gtest.h ] || need+=(libgtest-dev)
  [ -d /usr/src/googletest ] || [ -f /usr/lib/x86_64-linux-gnu/libgtest.a ] || need+=(googletest)
fi

if [ ${#need[@]} -gt 0 ]; then
  echo "Installing: ${need[*]}"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${need[@]}"
fi

# pytest runs the tests of the Python tools: from the package index for the
# python3 on the path, else Debian's package for the system's python3.
if [ "$tests" = 1 ] && ! python3 -m pytest --version >/dev/null 2>&1; then
  python3 -m pip install -q pytest >/dev/null 2>&1 || true
fi
if [ "$tests" = 1 ] && ! python3 -m pytest --version >/dev/null 2>&1; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq || true
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq python3-pytest
fi

# The Korean Hunspell dictionary feeds the knowledge base's open word
# classes. It is optional: without it the knowledge is built from the core
# vocabulary of knowledge-src/ alone, so a failure here stops nothing.
if [ ! -f /usr/share/hunspell/ko_KR.dic ]; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  if [ ${#need[@]} -eq 0 ]; then $SUDO apt-get update -qq || true; fi
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq hunspell-ko \
    || echo "hunspell-ko is not available: the knowledge gets the core vocabulary only"
fi

# clang with its sanitizer and libFuzzer runtimes builds the fuzz targets
# (scripts/hardening.sh). Optional as well: without them the fuzz runs are
# skipped with a message; the sanitizer builds use g++'s runtimes.
[ "$tests" = 1 ] || exit 0
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
fuzzer_runtime() {
  command -v clang++ >/dev/null 2>&1 &&
    [ -f "$(clang++ -print-file-name=libclang_rt.fuzzer-x86_64.a)" ]
}
if ! fuzzer_runtime; then
  $SUDO apt-get update -qq || true
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq clang libclang-rt-dev \
    || DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq clang-14 libclang-rt-14-dev \
    || true
  fuzzer_runtime || echo "clang's libFuzzer runtime is not available: the fuzz runs are skipped"
fi
