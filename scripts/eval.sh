#!/usr/bin/env bash
# Measures the analyzer on the UD Korean treebanks in ../shared/corpus, held
# out: each treebank is cut into five folds, and each fold is measured with
# knowledge learned from the other four and the other treebank
# (tools/kfold_eval.py), never with the shipped knowledge, which has learned
# from all of them. Prints per fold and as the mean per treebank, in tagging
# modes 0 and 1: morpheme F1 over (form, coarse tag), segmentation F1 and
# eojul accuracy, then the most frequent error kinds. The comparison runs
# as a user of the qrl command analyses prose: options 12 and 13 on (Latin
# words keep their case, "." and "," inside a number belong to it) and
# options 20 to 22 on (an unknown word gives up its josa; mode 1 breaks
# ties by score and leaves unknown words to the rules); endings folded
# (knowledge-src/README.md). Fails only when a build fails or when
# QRLSL_EVAL_FLOOR (a morpheme F1, e.g. 0.90) is set and the better mode's
# mean on GSD dev falls below it. Skips cleanly when the corpus is absent.
# Usage: scripts/eval.sh [build-dir]   (default: build-eval)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=${1:-$root/build-eval}
corpus=$root/../shared/corpus
gsd=$corpus/ud-korean-gsd/ko_gsd-ud-dev.conllu
kaist=$corpus/ud-korean-kaist/ko_kaist-ud-dev.conllu

if [ ! -f "$gsd" ]; then
  echo "eval: no treebank at $gsd; nothing measured"
  exit 0
fi
treebanks=("$gsd")
[ -f "$kaist" ] && treebanks+=("$kaist")
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DQRLSL_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target qrl_compile qrl_eval qrl_train >/dev/null
floor=()
[ -n "${QRLSL_EVAL_FLOOR:-}" ] && floor=(--floor "$QRLSL_EVAL_FLOOR")
python3 tools/kfold_eval.py --build "$build" ${floor[@]+"${floor[@]}"} "${treebanks[@]}"
