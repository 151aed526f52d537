// The working record of the frequency pass (one per eojul, cleared each
// time) and the probability of one candidate against every next tag list.
#ifndef QRLSL_TAGGER_STAT_MODEL_H_
#define QRLSL_TAGGER_STAT_MODEL_H_

#include <cstdint>
#include <string>
#include <vector>

namespace Quorel {

class Dictionary;
class Eojul;

// A (current candidate, next tag list) pair and its probability.
struct TaglistFreqInfo {
  uint16_t current = 0;
  uint16_t next = 0;
  double probability = 0.0;
};

// The probability of a word under one candidate's tag list.
struct WordFreqInfo {
  uint16_t candidate = 0;
  double probability = 0.0;
};

struct StatInfo {
  uint16_t prevId = 0;             // tag list of the previous choice, or FOS
  std::vector<uint16_t> curIds;    // per current candidate with a tag list
  std::vector<uint16_t> nextIds;   // per next candidate with one, or EOS
  std::vector<int32_t> curFreq;    // total count of each curIds entry
  std::vector<TaglistFreqInfo> results;
  int32_t best = 0;                // index in results of the highest
  double prevProb = 0.0;           // previous word under its tag list
  std::vector<WordFreqInfo> curWord;
  std::vector<WordFreqInfo> nextWord;

  void Clear();
};

// The pairs of candidate c (indexing curIds and curFreq by c as it stands)
// with every next tag list, weighted by the knowledge's five weights, pushed
// on sinfo.results. 1 when the last next tag list had a count, else 0.
int CandidateProbability(const Dictionary& dictionary, StatInfo& sinfo,
                         int c);

// The tags of candidate c joined with "+"; empty without morphemes.
void TagListString(Eojul& e, int c, std::string& out);

}  // namespace Quorel

#endif  // QRLSL_TAGGER_STAT_MODEL_H_
