#!/usr/bin/env bash
# Installs what the build and the tests need, from Debian's packages, when it
# is missing. Safe to run again.
set -euo pipefail

need=()
command -v cmake >/dev/null 2>&1 || need+=(cmake)
command -v g++ >/dev/null 2>&1 || need+=(g++)
command -v make >/dev/null 2>&1 || need+=(make)
command -v python3 >/dev/null 2>&1 || need+=(python3)
[ -f /usr/include/gtest/gtest.h ] || need+=(libgtest-dev)
command -v javac >/dev/null 2>&1 || need+=(default-jdk-headless)
command -v nm >/dev/null 2>&1 || need+=(binutils)
[ -d /usr/src/googletest ] || [ -f /usr/lib/x86_64-linux-gnu/libgtest.a ] || need+=(googletest)

if [ ${#need[@]} -gt 0 ]; then
  echo "Installing: ${need[*]}"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${need[@]}"
fi
