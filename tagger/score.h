// Candidate scoring: a hand-tuned sum over the morphemes of a candidate.
// Long nouns and predicates earn much, short function morphemes little, and
// a few sequence rules punish splits that tend to be wrong. The analyzer
// keeps the state (foundMask, scoreFlow, compoundTried) and passes it in.
#ifndef QRLSL_TAGGER_SCORE_H_
#define QRLSL_TAGGER_SCORE_H_

#include <cstdint>

#include "eojul/eojul.h"

namespace Quorel {

// What the scoring reads and carries across calls for one eojul.
struct ScoreState {
  // OR of the tag classes the analysis of the eojul met; read only.
  uint32_t foundMask = 0;
  // Last predicate class scored: 0 none, 1 verb, 2 adjective, 3 suffix 하
  // without VX met, 4 any other suffix. Carried from call to call.
  int32_t scoreFlow = 0;
  // Candidates were built from a division pattern or a mixed token.
  bool compoundTried = false;
  // Set by ScoreEojul when it reset scoreFlow before reading it.
  bool flowReset = false;
};

// Score of candidate `candidate` (0-based, through the eojul's view) of
// `eojul`; never negative. Updates state.scoreFlow.
double ScoreCandidate(Eojul& eojul, int candidate, ScoreState& state);

// Stores a score for every candidate that has none (0.0 or below). A sole
// candidate gets 1.0, or keeps its positive score when compoundTried is
// set. scoreFlow is reset (flowReset) when there are two candidates or
// more, and left as it came otherwise. Returns 0 for an eojul without
// candidates, else 1.
int ScoreEojul(Eojul& eojul, ScoreState& state);

}  // namespace Quorel

#endif  // QRLSL_TAGGER_SCORE_H_
