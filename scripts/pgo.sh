# Profile-guided release builds; sourced by setup.sh and bench.sh.
#
# pgo_text FILE    writes the training text to FILE, or fails when there is
#                  none: QRLSL_PGO_TEXT names a UTF-8 text; otherwise the
#                  sentences of the KAIST treebank under ../shared/corpus
#                  (the GSD sentences stay unseen). QRLSL_PGO=0 turns the
#                  cycle off.
# pgo_train BUILD KNOWLEDGE FILE
#                  runs the instrumented qrl of BUILD over FILE: analysis,
#                  and tagging in modes 0 and 1, so that the profile covers
#                  the paths a host takes.

pgo_text() {
  local out=$1 root
  root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
  [ "${QRLSL_PGO:-1}" != 0 ] || return 1
  if [ -n "${QRLSL_PGO_TEXT:-}" ]; then
    [ -s "$QRLSL_PGO_TEXT" ] || { echo "pgo: no text at $QRLSL_PGO_TEXT" >&2; return 1; }
    cp "$QRLSL_PGO_TEXT" "$out"
    return 0
  fi
  compgen -G "$root/../shared/corpus/ud-korean-kaist/*.conllu" >/dev/null || return 1
  grep -h '^# text = ' "$root"/../shared/corpus/ud-korean-kaist/*.conllu |
    sed 's/^# text = //' >"$out"
  [ -s "$out" ]
}

pgo_train() {
  local build=$1 knowledge=$2 text=$3
  "$build/qrl" -k "$knowledge" -f json -n 0 <"$text" >/dev/null
  "$build/qrl" -k "$knowledge" -f json -t 0 <"$text" >/dev/null
  "$build/qrl" -k "$knowledge" -f tsv -t 1 <"$text" >/dev/null
}
