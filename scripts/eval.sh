#!/usr/bin/env bash
# Measures the analyzer on the UD Korean treebanks in ../shared/corpus:
# morpheme precision, recall and F1 over (form, coarse tag), segmentation F1,
# eojul accuracy and the most frequent error kinds. Builds the tools and the
# knowledge base first. Prints the figures; it fails only when the build
# fails or when QRLSL_EVAL_FLOOR (a morpheme F1, e.g. 0.50) is set and the
# GSD dev figure falls below it. Skips cleanly when the corpus is absent.
# Usage: scripts/eval.sh [build-dir]   (default: build-eval)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=${1:-$root/build-eval}
corpus=$root/../shared/corpus
gsd=$corpus/ud-korean-gsd/ko_gsd-ud-dev.conllu

if [ ! -f "$gsd" ]; then
  echo "eval: no treebank at $gsd; nothing measured"
  exit 0
fi
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DQRLSL_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target qrl_compile qrl_eval >/dev/null
python3 tools/build_knowledge.py --out "$build/knowledge" --compiler "$build/qrl_compile" >/dev/null

# The headline: options 12 and 13 on, as a user analysing prose would set
# them (Latin words keep their case; a "." or "," inside a number is part of
# it), and the spellings of one ending folded (knowledge-src/README.md);
# then the same without each choice, and without all of them.
eval_tool() { "$build/qrl_eval" -k "$build/knowledge" -o 12=1 -o 13=1 "$@"; }
variants() {
  for variant in "-f harmony" "-f linking" "-f none" "-o 12=0" "-o 13=0" \
                 "-o 12=0 -o 13=0 -f none"; do
    # shellcheck disable=SC2086
    printf '  %-25s %s\n' "$variant:" "$(eval_tool $variant -s "$1")"
  done
}
echo "== GSD dev"
# Printed through our own standard error: tee on /dev/stderr would reopen a
# log file that it is redirected to and cut what came before.
report=$(eval_tool -e 15 "$gsd")
printf '%s\n' "$report" >&2
summary=$(printf '%s\n' "$report" | sed -n 1p)
echo "variants of the comparison:"
variants "$gsd"
kaist=$corpus/ud-korean-kaist/ko_kaist-ud-dev.conllu
if [ -f "$kaist" ]; then
  echo "== KAIST dev"
  eval_tool -s "$kaist"
  variants "$kaist"
fi
if [ -n "${QRLSL_EVAL_FLOOR:-}" ]; then
  f1=$(printf '%s\n' "$summary" | sed -n 's/^morpheme_f1=\([0-9.]*\).*/\1/p')
  if ! python3 -c "import sys; sys.exit(0 if float('$f1') >= float('$QRLSL_EVAL_FLOOR') else 1)"; then
    echo "eval: morpheme F1 $f1 is below the floor $QRLSL_EVAL_FLOOR"
    exit 1
  fi
fi
