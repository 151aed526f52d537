// StatTagger: the second pass of tagging mode 1. For each eojul still open it
// weighs every (current, next) tag-list pair by the counts of the frequency
// files, given the previous eojul's chosen tag list, and places the best; a
// word known under one tag list decides alone when no pair is counted, and
// the cascade's tail decides when nothing is known.
#ifndef QRLSL_TAGGER_STAT_TAGGER_H_
#define QRLSL_TAGGER_STAT_TAGGER_H_

#include <string>
#include <vector>

#include "tagger/stat_model.h"
#include "tagger/tagger_pass.h"

namespace Quorel {

class Dictionary;

class StatTagger : public TaggerPass {
 public:
  // Tags `input` into `results`.
  void StatTag();

  const Dictionary* dictionary = nullptr;
  StatInfo sinfo;
  // Analyzer option 21: of candidates with the same tag list, which the
  // model can't tell apart (준다 as 주 + ㄴ다 and 줄 + ㄴ다), the one that
  // BestCandidate would take among them is placed (the higher score, of
  // equal scores the later one); off, the first one the model met.
  bool scoreBreaksTies = false;
  // Analyzer option 22: for each eojul of the input, the candidate that the
  // rules of mode 0 place; when set, an eojul whose word the frequency
  // model doesn't know under any of its tag lists takes it.
  const std::vector<int>* cascadeChoices = nullptr;

 private:
  // prevId and prevProb from the chosen previous eojul, or "FOS".
  void LeftContext(int i);
  // nextIds and nextWord from the next eojul's candidates, or "EOS".
  void RightContext(int i);
  // curIds, curFreq, curWord and the pair probabilities; 1 when a pair was
  // counted for some candidate.
  int CurrentWord();
  // count / total of the word key's block, 0 when unknown or not positive.
  double WordProbability(const char* surface, const std::string& tagList,
                         int32_t total);

  // The candidate BestCandidate would take among those with the tag list
  // of candidate `chosen`.
  int BestOfTagList(int chosen);

  std::string tagList;
  std::string otherTagList;
  std::string wordKey;
};

}  // namespace Quorel

#endif  // QRLSL_TAGGER_STAT_TAGGER_H_
