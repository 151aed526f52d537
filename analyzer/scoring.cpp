// The analyzer's side of the scoring: its status fields go in, the carried
// scoreFlow comes back.
#include "analyzer/m_analyzer.h"
#include "tagger/score.h"

namespace Quorel {

namespace {

ScoreState StateOf(uint32_t foundMask, int32_t scoreFlow, bool compoundTried) {
  ScoreState state;
  state.foundMask = foundMask;
  state.scoreFlow = scoreFlow;
  state.compoundTried = compoundTried;
  return state;
}

}  // namespace

double MAnalyzer::Score(int candidateIndex, Eojul& e) {
  ScoreState state = StateOf(foundMask, scoreFlow, compoundTried);
  const double score = ScoreCandidate(e, candidateIndex, state);
  scoreFlow = state.scoreFlow;
  return score;
}

int MAnalyzer::ScoreAllCandidates(Eojul& e) {
  ScoreState state = StateOf(foundMask, scoreFlow, compoundTried);
  const int result = ScoreEojul(e, state);
  scoreFlow = state.scoreFlow;
  return result;
}

}  // namespace Quorel
