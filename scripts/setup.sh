#!/usr/bin/env bash
# Sets everything up and runs the main job, a line per step (the full output
# goes to <build>/setup.log): installs what is missing, builds
# the library and the command-line tool, builds the knowledge base
# (<build>/knowledge/ from knowledge-src/ and the Korean Hunspell dictionary,
# with its compiled qrl.klg, which qrl finds beside its executable), and
# analyses a Korean sample text. With --train, the statistical knowledge
# (compound-noun frequencies and the frequency model of tagging mode 1) is
# learnt from a CoNLL-U treebank with Sejong tags; without it the knowledge
# has none, and mode 1 decides by its rules alone. The build is profile-guided
# when a training text is found (scripts/pgo.sh; QRLSL_PGO=0 turns it off).
# Usage: scripts/setup.sh [--train FILE.conllu]... [build-dir]   (default: build)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=$root/build
train=()
while [ $# -gt 0 ]; do
  case "$1" in
    --train)
      [ $# -ge 2 ] || { echo "setup: --train needs a file" >&2; exit 2; }
      [ -f "$2" ] || { echo "setup: no treebank at $2" >&2; exit 2; }
      train+=(--train "$(cd "$(dirname "$2")" && pwd)/$(basename "$2")")
      shift 2 ;;
    *) build=$1; shift ;;
  esac
done

# One line per step; the full output of every step goes to the log.
mkdir -p "$build"
log=$build/setup.log
: >"$log"
step() {  # step TITLE COMMAND...
  local title=$1
  shift
  printf '%s... ' "$title" >&2
  if "$@" >>"$log" 2>&1; then
    echo "done" >&2
  else
    echo "failed; the full log is $log" >&2
    tail -n 20 "$log" >&2
    exit 1
  fi
}
echo "Setting up qrlsl (full log: $log)" >&2
step "dependencies" scripts/install-deps.sh
# Link-time optimised, and profile-guided when there is a training text
# (scripts/pgo.sh): the instrumented build compiles the knowledge and
# analyses the text, and the final build is optimised by what it saw.
. "$root/scripts/pgo.sh"
configure() {
  cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DQRLSL_BUILD_TESTS=OFF "$@"
}
text=$(mktemp /tmp/qrl-pgo-XXXXXX)
trap 'rm -f "$text"' EXIT
pgo=0
if pgo_text "$text"; then
  pgo=1
  rm -rf "$build/pgo-profile"
  build_step() {
    configure -DQRLSL_PGO=generate -DQRLSL_PGO_DIR="$build/pgo-profile" &&
      cmake --build "$build" -j"$(nproc)"
  }
else
  build_step() { configure -DQRLSL_PGO= && cmake --build "$build" -j"$(nproc)"; }
fi
step "build" build_step
step "knowledge" python3 tools/build_knowledge.py --out "$build/knowledge" \
  --compiler "$build/qrl_compile" ${train[@]+"${train[@]}"}
if [ "$pgo" = 1 ]; then
  optimise_step() {
    pgo_train "$build" "$build/knowledge" "$text" &&
      configure -DQRLSL_PGO=use && cmake --build "$build" -j"$(nproc)"
  }
  step "profile-guided build ($(wc -l <"$text") lines of text)" optimise_step
fi

echo "Built: $build/libqrlsl.so, $build/libqrlsl.a, $build/qrl and $build/knowledge/qrl.klg" >&2
echo "sample:" >&2
printf '%s\n' "나는 학교에 갔다. 하늘이 맑다!" | "$build/qrl"
echo "Analyse your own text: $build/qrl < text.txt   (options: $build/qrl --help)" >&2
