// The folding of the spellings of one ending, which qrl_eval applies to
// gold and system morphemes alike before it compares them: treebanks and
// analyzers write one ending in different shapes. Header-only, so that the
// evaluation tool and its tests share it.
#ifndef QRLSL_TOOLS_EVAL_COMPARE_H_
#define QRLSL_TOOLS_EVAL_COMPARE_H_

#include <string>
#include <utility>
#include <vector>

namespace Quorel {
namespace evaluation {

// Vowel harmony: an ending (coarse EM or EP) that begins with 어 or 었 is
// compared as 아, 았, and one that begins with 여 or 였 behind a morpheme
// in 하 likewise (하여, 하였: the ending of 해, 했). The ending of 해, 통해,
// 나왔다 is one morpheme, spelled 아 or 어.
constexpr unsigned kFoldHarmony = 1;
// The linking vowel: an ending (EM, EP, ETM, ETN) that begins with 으 before
// another syllable is compared without it (으면 as 면, 으시 as 시), and one
// that begins with 은, 을, 음, 습 as ㄴ, ㄹ, ㅁ, ㅂ and its rest (은 as ㄴ,
// 을까 as ㄹ까, 습니다 as ㅂ니다): the forms after a closed and an open stem.
constexpr unsigned kFoldLinkingVowel = 2;
constexpr unsigned kFoldAll = kFoldHarmony | kFoldLinkingVowel;

namespace detail {

inline bool StartsWith(const std::string& text, const char* prefix) {
  return text.compare(0, std::char_traits<char>::length(prefix), prefix) == 0;
}

inline bool EndsWith(const std::string& text, const std::string& suffix) {
  return text.size() >= suffix.size() &&
         text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

// Replaces the first syllable of `form` (3 bytes of UTF-8) when it is one
// of the rules' left sides.
template <size_t N>
void ReplaceFirst(std::string& form, const std::pair<const char*, const char*> (&rules)[N]) {
  for (const auto& rule : rules) {
    if (StartsWith(form, rule.first)) {
      form.replace(0, std::char_traits<char>::length(rule.first), rule.second);
      return;
    }
  }
}

}  // namespace detail

// Folds the endings of `morphemes` by the bits of `folds`. `Morpheme` is any
// record with a UTF-8 `form` and a coarse `tag` string.
template <typename Morpheme>
void FoldAllomorphs(std::vector<Morpheme>& morphemes, unsigned folds = kFoldAll) {
  static const std::pair<const char*, const char*> kHarmony[] = {{"어", "아"}, {"었", "았"}};
  static const std::pair<const char*, const char*> kAfterHa[] = {{"여", "아"}, {"였", "았"}};
  static const std::pair<const char*, const char*> kLinking[] = {
      {"은", "ㄴ"}, {"을", "ㄹ"}, {"음", "ㅁ"}, {"습", "ㅂ"}};
  static const std::string kHa = "하";
  const size_t syllable = kHa.size();  // a Hangul syllable in UTF-8
  for (size_t i = 0; i < morphemes.size(); ++i) {
    Morpheme& m = morphemes[i];
    bool ending = m.tag == "EM" || m.tag == "EP";
    if ((folds & kFoldHarmony) != 0 && ending) {
      detail::ReplaceFirst(m.form, kHarmony);
      if (i > 0 && detail::EndsWith(morphemes[i - 1].form, kHa)) {
        detail::ReplaceFirst(m.form, kAfterHa);
      }
    }
    if ((folds & kFoldLinkingVowel) != 0 && (ending || m.tag == "ETM" || m.tag == "ETN")) {
      if (detail::StartsWith(m.form, "으") && m.form.size() > syllable) {
        m.form.erase(0, syllable);
      }
      detail::ReplaceFirst(m.form, kLinking);
    }
  }
}

}  // namespace evaluation
}  // namespace Quorel

#endif  // QRLSL_TOOLS_EVAL_COMPARE_H_
