#!/usr/bin/env bash
# Rebuilds the learned knowledge in knowledge-src/learned from the UD Korean
# treebanks in ../shared/corpus (GSD dev with Sejong tags, Kaist dev with
# KAIST tags): word lists, stored divisions and divided suffixes of words
# seen in two sentences or more, the compound-noun frequencies and the
# tagger's frequency model (tools/learn_knowledge.py; knowledge-src/README.md
# tells how counts are scaled). Commit the result; the knowledge build reads
# it. Exits 1 when a treebank is missing.
# Usage: scripts/learn_knowledge.sh [build-dir]   (default: build-learn)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=${1:-$root/build-learn}
corpus=$root/../shared/corpus
treebanks=("$corpus/ud-korean-gsd/ko_gsd-ud-dev.conllu"
           "$corpus/ud-korean-kaist/ko_kaist-ud-dev.conllu")
for treebank in "${treebanks[@]}"; do
  [ -f "$treebank" ] || { echo "learn_knowledge: no treebank at $treebank" >&2; exit 1; }
done
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DQRLSL_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target qrl_train >/dev/null
rm -rf knowledge-src/learned
python3 tools/learn_knowledge.py --trainer "$build/qrl_train" \
  --out knowledge-src/learned "${treebanks[@]}"
