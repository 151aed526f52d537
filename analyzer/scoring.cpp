// The analyzer's side of the scoring: its status fields go in, the carried
// scoreFlow comes back, and FlowUse notes whether the token read the flow
// the token before left, or replaced it.
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
  if (!flowUse.set) flowUse.read = true;
  ScoreState state = StateOf(foundMask, scoreFlow, compoundTried);
  const double score = ScoreCandidate(e, candidateIndex, state);
  scoreFlow = state.scoreFlow;
  flowUse.set = true;
  return score;
}

void MAnalyzer::ResetScoreFlow() {
  scoreFlow = 0;
  flowUse.set = true;
}

int MAnalyzer::ScoreAllCandidates(Eojul& e) {
  ScoreState state = StateOf(foundMask, scoreFlow, compoundTried);
  const int result = ScoreEojul(e, state);
  scoreFlow = state.scoreFlow;
  if (state.flowReset) flowUse.set = true;
  return result;
}

}  // namespace Quorel
