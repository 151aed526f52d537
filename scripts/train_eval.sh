#!/usr/bin/env bash
# Measures what the learnt statistics bring to tagging. Splits the GSD dev
# treebank of ../shared/corpus by sentence into two halves (in a temporary
# directory, removed at the end: nothing derived from the corpus is kept),
# builds the knowledge base once without statistics and once trained on the
# first half, and evaluates on the second half: mode 0, mode 1 without
# statistics, mode 1 with them; the trained mode 1 on the first half itself
# is shown for comparison. Prints morpheme F1 and eojul accuracy of each and
# whether mode 1 with statistics beats mode 0. Skips cleanly when the corpus
# is absent; fails only when a build fails. --no-hunspell builds both
# knowledge bases from the core vocabulary of knowledge-src/ alone.
# Usage: scripts/train_eval.sh [--no-hunspell] [build-dir]   (default: build-train)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=$root/build-train
vocabulary=()
for arg in "$@"; do
  case "$arg" in
    --no-hunspell) vocabulary=(--no-hunspell) ;;
    *) build=$arg ;;
  esac
done
gsd=$root/../shared/corpus/ud-korean-gsd/ko_gsd-ud-dev.conllu

if [ ! -f "$gsd" ]; then
  echo "train_eval: no treebank at $gsd; nothing measured"
  exit 0
fi
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" -j"$(nproc)" --target qrl_compile qrl_eval qrl_train >/dev/null

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
python3 - "$gsd" "$work/first.conllu" "$work/second.conllu" <<'PY'
import sys
text = open(sys.argv[1], encoding='utf-8').read()
sentences = [s for s in text.split('\n\n') if s.strip()]
half = len(sentences) // 2
for path, part in ((sys.argv[2], sentences[:half]), (sys.argv[3], sentences[half:])):
    with open(path, 'w', encoding='utf-8') as f:
        f.write('\n\n'.join(s.strip('\n') for s in part) + '\n\n')
print('train_eval: %d sentences, %d to train on, %d to evaluate on'
      % (len(sentences), half, len(sentences) - half))
PY

build_kb() {  # build_kb OUT [--train FILE]
  local out=$1
  shift
  python3 tools/build_knowledge.py --out "$out" --compiler "$build/qrl_compile" \
    --trainer "$build/qrl_train" ${vocabulary[@]+"${vocabulary[@]}"} "$@" 2>&1 | grep '^qrl_train' || true
  [ -f "$out/qrl.klg" ] || { echo "train_eval: the knowledge build failed"; exit 1; }
}
build_kb "$work/plain"
build_kb "$work/trained" --train "$work/first.conllu"

measure() {  # measure LABEL KNOWLEDGE MODE FILE
  local line f1 acc
  line=$("$build/qrl_eval" -k "$2" -t "$3" -s "$4" 2>/dev/null | sed -n 1p)
  f1=$(printf '%s\n' "$line" | sed -n 's/^morpheme_f1=\([0-9.]*\).*/\1/p')
  acc=$(printf '%s\n' "$line" | sed -n 's/.*eojul_accuracy=\([0-9.]*\).*/\1/p')
  printf '%-44s morpheme_f1=%s eojul_accuracy=%s\n' "$1" "$f1" "$acc" >&2
  printf '%s %s\n' "$f1" "$acc"
}
echo "== held-out second half"
read -r f1_0 acc_0 < <(measure "mode 0" "$work/plain" 0 "$work/second.conllu")
measure "mode 1 without statistics" "$work/plain" 1 "$work/second.conllu" >/dev/null
read -r f1_1 acc_1 < <(measure "mode 1 with statistics" "$work/trained" 1 "$work/second.conllu")
echo "== first half (the training data itself)"
measure "mode 1 with statistics" "$work/trained" 1 "$work/first.conllu" >/dev/null

if python3 -c "import sys; sys.exit(0 if float('$f1_1') > float('$f1_0') and float('$acc_1') > float('$acc_0') else 1)"; then
  echo "train_eval: mode 1 with statistics beats mode 0 on the held-out half"
else
  echo "train_eval: mode 1 with statistics does NOT beat mode 0 on the held-out half"
fi
