#!/usr/bin/env bash
# Checks that a change to the library leaves every answer as it was: builds
# qrl at git revision REV and from the working tree (both Release), runs
# both over the sentences of ../shared/corpus with one knowledge directory,
# and compares the outputs byte for byte: JSON lines without and with the
# tagger (modes 0 and 1), the full form and the index words. The text and
# outputs live in a temporary directory that is removed afterwards.
# Usage: scripts/same_output.sh REV [KNOWLEDGE_DIR]
#   (default knowledge: build/knowledge; BUILD=dir sets the working tree's
#   build dir, default build-same)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
rev=${1:?usage: scripts/same_output.sh REV [KNOWLEDGE_DIR]}
knowledge=$(realpath "${2:-$root/build/knowledge}")
build=${BUILD:-$root/build-same}
corpus=$root/../shared/corpus

if [ ! -d "$knowledge" ]; then
  echo "same_output: no knowledge directory at $knowledge" >&2
  exit 2
fi
if ! compgen -G "$corpus/*/*.conllu" >/dev/null; then
  echo "same_output: no corpus under $corpus; nothing compared"
  exit 0
fi
scratch=$(mktemp -d /tmp/qrl-same-XXXXXX)
trap 'rm -rf "$scratch"' EXIT

build_qrl() {  # source dir, build dir
  cmake -S "$1" -B "$2" -DCMAKE_BUILD_TYPE=Release -DQRLSL_BUILD_TESTS=OFF \
    >/dev/null
  cmake --build "$2" -j"$(nproc)" --target qrl >/dev/null
}

mkdir -p "$scratch/before-src"
git archive "$rev" | tar -x -C "$scratch/before-src"
build_qrl "$scratch/before-src" "$scratch/before-build"
build_qrl "$root" "$build"

grep -h '^# text = ' "$corpus"/*/*.conllu | sed 's/^# text = //' >"$scratch/text"
echo "text: $(wc -c <"$scratch/text") bytes, $(wc -l <"$scratch/text") lines"

run_all() {  # qrl binary, output dir
  mkdir -p "$2"
  local k=(-k "$knowledge")
  "$1" "${k[@]}" -f json <"$scratch/text" >"$2/json" 2>/dev/null
  "$1" "${k[@]}" -f json -t 0 <"$scratch/text" >"$2/json-t0" 2>/dev/null
  "$1" "${k[@]}" -f json -t 1 <"$scratch/text" >"$2/json-t1" 2>/dev/null
  "$1" "${k[@]}" -f full <"$scratch/text" >"$2/full" 2>/dev/null
  "$1" "${k[@]}" -f index <"$scratch/text" >"$2/index" 2>/dev/null
}
run_all "$scratch/before-build/qrl" "$scratch/before"
run_all "$build/qrl" "$scratch/after"

status=0
for out in json json-t0 json-t1 full index; do
  if cmp -s "$scratch/before/$out" "$scratch/after/$out"; then
    echo "same:    $out ($(wc -c <"$scratch/after/$out") bytes)"
  else
    echo "DIFFERS: $out"
    diff "$scratch/before/$out" "$scratch/after/$out" | head -5
    status=1
  fi
done
exit $status
