// The tagger's entry: binding, the choice of mode, and the hand-over of the
// tagged sentence with its morpheme offsets.
#include "tagger/tagger.h"

#include <iostream>
#include <utility>

#include "tagger/post_passes.h"

namespace Quorel {

void Tagger::Bind(const Dictionary* knowledge, std::ostream* stream) {
  dictionary = knowledge;
  statTagger.dictionary = knowledge;
  log = stream;
}

std::ostream& Tagger::Log() { return log != nullptr ? *log : std::cerr; }

int Tagger::Run(int mode) {
  if (mode == 0) {
    CascadeTag();
    return 1;
  }
  if (mode != 1) {
    Log() << "Wrong tagging mode. Select tagging mode 0 or 1." << '\n';
    return -1;
  }
  RuleTag();
  ruledPointers.clear();
  for (Eojul& e : results) ruledPointers.push_back(&e);
  statTagger.input = &ruledPointers;
  statTagger.cascadeChoices = nullptr;
  if (cascadeForUnknownWords) {
    // The rules of mode 0 over what the rule pass left, on a copy: the
    // pointers above stay on the rule pass's results.
    ruled.clear();
    for (const Eojul& e : results) ruled.emplace_back(e);
    ruledPointers.clear();
    for (Eojul& e : ruled) ruledPointers.push_back(&e);
    input = &ruledPointers;
    CascadeTag();
    cascadeChoices = placedChoices;
    statTagger.cascadeChoices = &cascadeChoices;
  }
  statTagger.StatTag();
  std::swap(results, statTagger.results);
  resultCount = statTagger.resultCount;
  return 1;
}

void Tagger::Tagging(std::vector<Eojul>& sentence, int mode) {
  sentencePointers.clear();
  for (Eojul& e : sentence) sentencePointers.push_back(&e);
  input = &sentencePointers;
  if (Run(mode) < 0) return;
  sentence.swap(results);
  for (Eojul& e : sentence) PassOffsets(e);
}

}  // namespace Quorel
