// Tagger: chooses one candidate for every eojul of an analysed sentence by
// looking at its neighbours. Mode 0 runs a fixed cascade of linguistic
// rules; mode 1 applies the knowledge's eojul and group rules (RuleTag), then
// the frequency model (StatTagger) on what they left open. Belongs to one
// analyzer; the Dictionary is only read.
#ifndef QRLSL_TAGGER_TAGGER_H_
#define QRLSL_TAGGER_TAGGER_H_

#include <ostream>
#include <vector>

#include "eojul/eojul.h"
#include "tagger/stat_tagger.h"
#include "tagger/tagger_pass.h"

namespace Quorel {

class Dictionary;

class Tagger : public TaggerPass {
 public:
  Tagger() {}
  Tagger(const Tagger&) = delete;
  Tagger& operator=(const Tagger&) = delete;

  // The knowledge (REQUIRED for mode 1; mode 0 reads none) and the stream
  // for the tagger's messages (null: standard error).
  void Bind(const Dictionary* knowledge, std::ostream* log);

  // Replaces `sentence` by its tagged form, one candidate per eojul, and
  // records every morpheme's offsets. A mode other than 0 or 1 writes
  // "Wrong tagging mode. Select tagging mode 0 or 1." and changes nothing.
  void Tagging(std::vector<Eojul>& sentence, int mode);
  // Tags `input` into `results`. 1, or -1 for a wrong mode.
  int Run(int mode);

  // Mode 0: the rule cascade over input.
  void CascadeTag();
  // Mode 1, first pass: forced candidates of closing-quote eojuls, eojul
  // rules, group rules; what they leave open is placed with all candidates.
  // Returns the last eojul's decision value.
  int RuleTag();

  StatTagger statTagger;
  const Dictionary* dictionary = nullptr;
  // Analyzer option 22: mode 1 leaves an eojul whose word the frequency
  // model doesn't know to the rules of mode 0.
  bool cascadeForUnknownWords = false;

 private:
  std::ostream& Log();
  // Rules 1 to 12 for candidate c of the current eojul at index i.
  void CascadeRules(int c, int i);
  // Rule 7, for a candidate that starts with a bound noun.
  void BoundNounRule(int c, int i);
  // Adds the whole-josa and copula candidates of a closing-quote eojul.
  void AddForcedCandidates(Eojul& e);
  // The group rules over candidate c of the current eojul at index i: the
  // decision value (1 placed, 0 none, -1 malformed focus pattern).
  int MatchGroupRules(int c, int i);

  std::ostream* log = nullptr;
  std::vector<Eojul*> sentencePointers;
  std::vector<Eojul*> ruledPointers;
  std::vector<Eojul> ruled;       // the rule pass's results, for option 22
  std::vector<int> cascadeChoices;
};

}  // namespace Quorel

#endif  // QRLSL_TAGGER_TAGGER_H_
