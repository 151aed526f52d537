// The frequency pass of tagging mode 1.
#include "tagger/stat_tagger.h"

#include "knowledge/dictionary.h"
#include "knowledge/tagger_files.h"

namespace Quorel {

namespace {

// The tag-list ids that stand for the sentence's edges.
const char kFirstOfSentence[] = "FOS";
const char kEndOfSentence[] = "EOS";

}  // namespace

void StatTagger::StatTag() {
  ClearResults();
  const int last = Last();
  for (int i = 0; i <= last; ++i) {
    if (!Open(i)) continue;
    sinfo.Clear();
    LeftContext(i);
    RightContext(i);
    int found = CurrentWord();
    if (cascadeChoices != nullptr && sinfo.curWord.empty() &&
        static_cast<size_t>(i) < cascadeChoices->size()) {
      Select((*cascadeChoices)[i]);
      continue;
    }
    if (found == 0) {
      // The word alone decides, its probability taken as it is.
      for (const WordFreqInfo& w : sinfo.curWord) {
        if (w.probability <= 0.0) continue;
        TaglistFreqInfo entry;
        entry.current = w.candidate;
        entry.probability = w.probability;
        sinfo.results.push_back(entry);
        if (w.probability > sinfo.results[sinfo.best].probability) {
          sinfo.best = static_cast<int32_t>(sinfo.results.size() - 1);
        }
        found = 1;
      }
    }
    if (found == 1) {
      const int chosen = sinfo.results[sinfo.best].current;
      Select(scoreBreaksTies ? BestOfTagList(chosen) : chosen);
      continue;
    }
    TailMemory memory;
    for (int c = 0; c < current->GetListSize(); ++c) TailStep(c, memory);
    FinalChoice(memory);
  }
}

int StatTagger::BestOfTagList(int chosen) {
  TagListString(*current, chosen, tagList);
  int best = chosen;
  for (int c = 0; c < current->GetListSize(); ++c) {
    const double score = current->GetScore(c), bestScore = current->GetScore(best);
    // As BestCandidate chooses: of equal scores the later one.
    if (c == chosen || score < bestScore || (score == bestScore && c < best)) continue;
    TagListString(*current, c, otherTagList);
    if (otherTagList == tagList) best = c;
  }
  return best;
}

void StatTagger::LeftContext(int i) {
  if (i == 0) {
    sinfo.prevId =
        static_cast<uint16_t>(GetTagListId(*dictionary, kFirstOfSentence));
    return;
  }
  previous = &results.back();
  const char* word = previous->GetString();
  int32_t total = GetWordTotal(*dictionary, word);
  TagListString(*previous, 0, tagList);
  if (tagList.empty()) return;
  sinfo.prevId = static_cast<uint16_t>(GetTagListId(*dictionary, tagList.c_str()));
  sinfo.prevProb = WordProbability(word, tagList, total);
}

void StatTagger::RightContext(int i) {
  if (i == Last()) {
    sinfo.nextIds.push_back(
        static_cast<uint16_t>(GetTagListId(*dictionary, kEndOfSentence)));
    return;
  }
  next = (*input)[i + 1];
  const char* word = next->GetString();
  int32_t total = GetWordTotal(*dictionary, word);
  for (int k = 0; k < next->GetListSize(); ++k) {
    TagListString(*next, k, tagList);
    if (tagList.empty()) continue;
    sinfo.nextIds.push_back(
        static_cast<uint16_t>(GetTagListId(*dictionary, tagList.c_str())));
    double p = WordProbability(word, tagList, total);
    if (p > 0.0) sinfo.nextWord.push_back({static_cast<uint16_t>(k), p});
  }
}

int StatTagger::CurrentWord() {
  Eojul& e = *current;
  const char* word = e.GetString();
  int32_t total = GetWordTotal(*dictionary, word);
  int found = 0;
  for (int c = 0; c < e.GetListSize(); ++c) {
    TagListString(e, c, tagList);
    if (tagList.empty()) continue;
    int32_t id = GetTagListId(*dictionary, tagList.c_str());
    sinfo.curIds.push_back(static_cast<uint16_t>(id));
    int32_t index = -1;
    GetTagListIndex(*dictionary, static_cast<uint16_t>(id), index);
    sinfo.curFreq.push_back(index >= 0 ? dictionary->tagListInfos[index].total
                                       : 0);
    double p = WordProbability(word, tagList, total);
    if (p > 0.0) sinfo.curWord.push_back({static_cast<uint16_t>(c), p});
    found |= CandidateProbability(*dictionary, sinfo, c);
  }
  return found;
}

double StatTagger::WordProbability(const char* surface,
                                   const std::string& list, int32_t total) {
  wordKey = surface;
  wordKey += '-';
  wordKey += list;
  int32_t index = -1;
  if (GetWordIndex(*dictionary, wordKey.c_str(), index) == 0) return 0.0;
  int32_t count = dictionary->wordListInfos[index].total;
  // A word without a total in word_list.txt has no probability either.
  if (count <= 0 || total <= 0) return 0.0;
  return static_cast<double>(count) / static_cast<double>(total);
}

}  // namespace Quorel
