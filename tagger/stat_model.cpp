// CandidateProbability: count of (previous, next) under the candidate's tag
// list over the tag list's total, scaled by the frequency band of that total
// and by the word probabilities of the previous, current and next eojul.
#include "tagger/stat_model.h"

#include "eojul/eojul.h"
#include "knowledge/dictionary.h"
#include "knowledge/tagger_files.h"

namespace Quorel {

namespace {

// The penalty of a side whose word probability is not known.
constexpr double kUnknownWord = 0.3;

double FrequencyFactor(const Dictionary& dictionary, int32_t total) {
  if (total >= 1000000) return dictionary.weight1;
  if (total >= 100000) return dictionary.weight2;
  if (total >= 10000) return dictionary.weight3;
  if (total >= 1000) return dictionary.weight4;
  return 1.0;
}

// The first positive probability recorded for `index`, or 0.
double FirstProbability(const std::vector<WordFreqInfo>& words, int index) {
  for (const WordFreqInfo& w : words) {
    if (w.candidate == index && w.probability > 0.0) return w.probability;
  }
  return 0.0;
}

}  // namespace

void StatInfo::Clear() {
  prevId = 0;
  curIds.clear();
  nextIds.clear();
  curFreq.clear();
  results.clear();
  best = 0;
  prevProb = 0.0;
  curWord.clear();
  nextWord.clear();
}

int CandidateProbability(const Dictionary& dictionary, StatInfo& sinfo,
                         int c) {
  // After a candidate without a tag list, c no longer matches the entries;
  // past their end nothing is known.
  if (c < 0 || static_cast<size_t>(c) >= sinfo.curIds.size()) return 0;
  int32_t index = -1;
  if (GetTagListIndex(dictionary, sinfo.curIds[c], index) == 0) return 0;
  const TagListInfoList& list = dictionary.tagListInfos[index];
  const double w5 = dictionary.weight5;
  int hit = 0;
  for (size_t j = 0; j < sinfo.nextIds.size(); ++j) {
    hit = 0;
    TagListInfo pair;
    pair.previous = sinfo.prevId;
    pair.next = sinfo.nextIds[j];
    auto found = list.counts.find(pair);
    if (found == list.counts.end() || found->second < 1) continue;
    double p = static_cast<double>(found->second) /
               static_cast<double>(sinfo.curFreq[c]);
    p *= FrequencyFactor(dictionary, sinfo.curFreq[c]);
    if (sinfo.prevProb > 0.0) p *= sinfo.prevProb * w5;
    double current = FirstProbability(sinfo.curWord, c);
    p *= current > 0.0 ? current * w5 : kUnknownWord;
    double next = FirstProbability(sinfo.nextWord, static_cast<int>(j));
    if (next > 0.0) p *= next * w5;
    p *= kUnknownWord;  // paid by the next side whether known or not
    TaglistFreqInfo entry;
    entry.current = static_cast<uint16_t>(c);
    entry.next = static_cast<uint16_t>(j);
    entry.probability = p;
    sinfo.results.push_back(entry);
    hit = 1;
    if (p > sinfo.results[sinfo.best].probability) {
      sinfo.best = static_cast<int32_t>(sinfo.results.size() - 1);
    }
  }
  return hit;
}

void TagListString(Eojul& e, int c, std::string& out) {
  out.clear();
  int count = e.GetCount(c);
  for (int m = 0; m < count; ++m) {
    if (m > 0) out += '+';
    out += e.GetStrPOS(c, m);
  }
}

}  // namespace Quorel
