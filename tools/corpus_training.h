// Learning the statistical knowledge from a treebank with Sejong or KAIST tags, for
// qrl_train. Each sentence is analysed as the tagger will see it; an eojul
// of the scanner that covers whole treebank tokens takes the tag list of the
// first candidate that the evaluation would count as right, else the tag
// list of the corpus tags mapped onto this analyzer's names (a josa chain
// as one morpheme, as the analyzer writes it); an eojul that cuts a token
// takes its best candidate's. Compound nouns are runs of NNG, NNP and NNB in
// one token. Header only, since every tools/*.cpp is a program of its own.
#ifndef QRLSL_TOOLS_CORPUS_TRAINING_H_
#define QRLSL_TOOLS_CORPUS_TRAINING_H_

#include <cstring>
#include <string>
#include <vector>

#include "eojul/eojul.h"
#include "knowledge/corpus_statistics.h"
#include "knowledge/dictionary.h"
#include "tagger/stat_model.h"
#include "tools/eval_compare.h"
#include "tools/treebank.h"

namespace Quorel {
namespace treebank {

// How the eojuls of the training text got their tag lists.
struct TrainingTally {
  long sentences = 0;
  long aligned = 0;   // a candidate of the analyzer matched the corpus
  long mapped = 0;    // the corpus tags, mapped
  long analysed = 0;  // the best candidate: the eojul cuts a token
  long untagged = 0;  // no tag list at all
};

// The tag-list string of corpus morphemes (Sejong or KAIST tags) as GetStrPOS would
// give it; "" when a tag has no counterpart here.
inline std::string MappedTagList(const std::vector<Morpheme>& morphemes) {
  std::string list;
  bool inJosa = false;
  for (const Morpheme& m : morphemes) {
    std::string name = SystemTagOf(m.tag);
    if (name.empty()) return "";
    // KAIST tags a number in digits as a numeral.
    if (name == "NU" && WrittenInDigits(m.form)) name = "SN";
    const bool josa = CoarseSystem(name) == "J";
    // The analyzer returns a josa chain (에서+도) as one morpheme.
    if (josa && inJosa) continue;
    inJosa = josa;
    if (!list.empty()) list += '+';
    list += CanonicalTag(name);
  }
  return list;
}

// Adds the compound nouns of a token: each run of two or more nouns.
inline void AddCompounds(const Token& token, CorpusStatistics& stats) {
  std::vector<Morpheme> morphemes;
  if (!MorphemesOfToken(token, morphemes)) return;
  std::vector<std::string> run;
  for (size_t i = 0; i <= morphemes.size(); ++i) {
    std::string name = i < morphemes.size() ? SystemTagOf(morphemes[i].tag) : "";
    const bool noun = name == "NNG" || name == "NNP" || name == "NNB";
    if (noun) {
      run.push_back(ToCp949(morphemes[i].form));
      continue;
    }
    if (run.size() >= 2) stats.AddCompound(run);
    run.clear();
  }
}

// The tokens [first, last] that exactly cover the bytes [begin, end) of
// the text; false when the span cuts a token or holds none.
inline bool CoveringTokens(const SentenceText& text, size_t begin, size_t end,
                           size_t& first, size_t& last) {
  bool found = false;
  size_t expected = begin;
  for (size_t t = 0; t < text.tokenSpans.size(); ++t) {
    const auto& span = text.tokenSpans[t];
    if (span.first == kNoSpan || span.second <= begin || span.first >= end) {
      continue;
    }
    if (span.first != expected || span.second > end) return false;
    if (!found) first = t;
    found = true;
    last = t;
    expected = span.second;
  }
  return found && expected == end;
}

// The tag list of a scanner eojul that covers tokens [first, last].
inline std::string GoldTagList(const Dictionary& dic, Eojul& e,
                               const std::vector<Token>& tokens, size_t first,
                               size_t last, TrainingTally& tally) {
  std::vector<Morpheme> corpus, gold;
  for (size_t t = first; t <= last; ++t) {
    if (!MorphemesOfToken(tokens[t], corpus) || !GoldOfToken(tokens[t], gold)) {
      return "";
    }
  }
  evaluation::FoldAllomorphs(gold);
  std::string list;
  for (int c = 0; c < e.GetListSize(); ++c) {
    std::vector<Morpheme> system = CandidateMorphemes(dic, e, c);
    evaluation::FoldAllomorphs(system);
    if (system != gold) continue;
    TagListString(e, c, list);
    if (list.empty()) continue;
    ++tally.aligned;
    return list;
  }
  list = MappedTagList(corpus);
  if (!list.empty()) ++tally.mapped;
  return list;
}

// Analyses one sentence (no tagging) and adds it and its compounds.
inline void TrainSentence(const Dictionary& dic, QR_Analyzer& analyzer,
                          const std::vector<Token>& tokens,
                          CorpusStatistics& stats, TrainingTally& tally) {
  for (const Token& token : tokens) AddCompounds(token, stats);
  const SentenceText text = BuildText(tokens);
  if (text.text.empty()) return;
  ++tally.sentences;
  analyzer.RunWithString(text.text.c_str());
  std::vector<TaggedEojul> eojuls;
  const int count = analyzer.GetEojulCountInSentence();
  for (int i = 0; i < count; ++i) {
    Eojul& e = static_cast<Eojul&>(*analyzer.GetEojulInSentence(i));
    const size_t begin = static_cast<size_t>(analyzer.GetEojulOffsetInSentence(i));
    const size_t end = begin + std::strlen(e.GetString());
    TaggedEojul tagged;
    tagged.surface = e.GetString();
    size_t first = 0, last = 0;
    if (CoveringTokens(text, begin, end, first, last)) {
      tagged.tagList = GoldTagList(dic, e, tokens, first, last, tally);
    } else if (e.BestCandidate() >= 0 && e.BestCandidate() < e.GetListSize()) {
      TagListString(e, e.BestCandidate(), tagged.tagList);
      if (!tagged.tagList.empty()) ++tally.analysed;
    }
    if (tagged.tagList.empty()) ++tally.untagged;
    eojuls.push_back(tagged);
  }
  stats.AddSentence(eojuls);
}

}  // namespace treebank
}  // namespace Quorel

#endif  // QRLSL_TOOLS_CORPUS_TRAINING_H_
