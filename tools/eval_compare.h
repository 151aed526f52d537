// The folding of the spellings of one ending that vowel harmony makes, which
// qrl_eval applies to gold and system morphemes alike before it compares
// them. Header-only, so that the evaluation tool and its tests share it.
#ifndef QRLSL_TOOLS_EVAL_COMPARE_H_
#define QRLSL_TOOLS_EVAL_COMPARE_H_

#include <string>
#include <utility>
#include <vector>

namespace Quorel {
namespace evaluation {

// Folds the two spellings of an ending into one: an ending (coarse EM or
// EP) that begins with 어 or 었 is compared as 아, 았, and one that begins
// with 여 or 였 behind a morpheme in 하 likewise (하여, 하였: the ending of
// 해, 했). Treebanks and analyzers spell the ending of 해, 통해, 나왔다
// differently while meaning the one morpheme.
// `Morpheme` is any record with a UTF-8 `form` and a coarse `tag` string.
template <typename Morpheme>
void FoldAllomorphs(std::vector<Morpheme>& morphemes) {
  static const std::pair<const char*, const char*> kAlways[] = {{"어", "아"}, {"었", "았"}};
  static const std::pair<const char*, const char*> kAfterHa[] = {{"여", "아"}, {"였", "았"}};
  static const std::string kHa = "하";
  const size_t syllable = kHa.size();  // a Hangul syllable in UTF-8
  for (size_t i = 0; i < morphemes.size(); ++i) {
    Morpheme& m = morphemes[i];
    if (m.tag != "EM" && m.tag != "EP") continue;
    const std::string& before = i > 0 ? morphemes[i - 1].form : std::string();
    bool afterHa = before.size() >= syllable &&
                   before.compare(before.size() - syllable, syllable, kHa) == 0;
    for (const auto& rule : kAlways) {
      if (m.form.compare(0, syllable, rule.first) == 0) m.form.replace(0, syllable, rule.second);
    }
    for (const auto& rule : kAfterHa) {
      if (afterHa && m.form.compare(0, syllable, rule.first) == 0) {
        m.form.replace(0, syllable, rule.second);
      }
    }
  }
}

}  // namespace evaluation
}  // namespace Quorel

#endif  // QRLSL_TOOLS_EVAL_COMPARE_H_
