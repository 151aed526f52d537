// Analysis routes that are not built yet. Each answers "nothing found" in
// the form its caller expects, so that the cascade runs whole and every
// token still ends with its fall-back candidate. Replace each definition
// here by the real route in its own file.
#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"

namespace Quorel {

// Noun division not built yet: workText is the divided text (the surface as
// cut by the caller); the driver's mode leaves the whole text as one
// unknown piece, open, when the eojul has no candidate yet (result 0);
// otherwise no pattern (-1).
int MAnalyzer::AnalyzeNoun(Eojul& e, int mode, int /*level*/) {
  workText = e.GetString();
  if (mode != 87 || e.GetListSize() > 0) return -1;
  e.BeginCandidate();
  e.AddMorpheme(workText.CStr(), Pos::NNR);
  nounStage = 1;
  return 0;
}

// Commit of the pending analyses not built yet: none committed.
int MAnalyzer::CommitPending(Eojul& /*e*/) { return 0; }

// Remainder route not built yet: no candidate.
int MAnalyzer::AnalyzeRemainder(Eojul& /*e*/) { return 0; }


}  // namespace Quorel
