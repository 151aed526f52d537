// Test support for the tagger suites (header only, shared by the rule and
// tagging suites): hand-built eojuls and sentences, tagging with a look at
// the choices, and a scratch knowledge directory for the sinfo files.
#ifndef QRLSL_TESTS_TAGGING_TAGGING_HELPERS_H_
#define QRLSL_TESTS_TAGGING_TAGGING_HELPERS_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "common/test_support.h"
#include "eojul/eojul.h"
#include "eojul/tag_set.h"
#include "tagger/tagger.h"

namespace Quorel {
namespace testing_tagger {

using testsupport::Cp949;

inline std::string Utf8(const char* cp949) {
  return testsupport::Utf8(cp949 != nullptr ? cp949 : "");
}

// One morpheme of a hand-built candidate: UTF-8 form and POS mask.
struct M {
  const char* form;
  uint32_t pos;
};

// Starts an eojul with a Hangul surface (type bit 0x04 unless given).
inline void Start(Eojul& e, const std::string& utf8, unsigned type = 0x04) {
  e.SetText(Cp949(utf8).c_str(), type);
}

inline void AddCandidate(Eojul& e, std::initializer_list<M> morphemes,
                         double score) {
  e.BeginCandidate();
  for (const M& m : morphemes) e.AddMorpheme(Cp949(m.form).c_str(), m.pos);
  e.SetCandidateScore(score);
  e.EndCandidate();
}

// Candidate c as "form/TAG+form/TAG" in UTF-8.
inline std::string Show(Eojul& e, int c) {
  std::string shown;
  for (int m = 0; m < e.GetCount(c); ++m) {
    if (m > 0) shown += "+";
    shown += Utf8(e.GetLexicon(c, m)) + "/" + e.GetStrPOS(c, m);
  }
  return shown;
}

// Tags the sentence in `mode` with a bound tagger and shows each eojul's
// chosen candidate; an eojul left with other than one candidate fails.
inline std::vector<std::string> TagAndShow(Tagger& tagger,
                                           std::vector<Eojul>& sentence,
                                           int mode) {
  tagger.Tagging(sentence, mode);
  std::vector<std::string> chosen;
  for (Eojul& e : sentence) {
    EXPECT_EQ(e.GetListSize(), 1) << e.GetString();
    chosen.push_back(Show(e, 0));
  }
  return chosen;
}

// A sentence built eojul by eojul: Add starts an eojul, Candidate fills it.
class SentenceBuilder {
 public:
  SentenceBuilder& Add(const std::string& utf8, unsigned type = 0x04) {
    Eojul e;
    Start(e, utf8, type);
    e.SetOffset(offset);
    offset += static_cast<int>(utf8.size());
    sentence.push_back(e);
    return *this;
  }
  SentenceBuilder& Candidate(std::initializer_list<M> morphemes,
                             double score) {
    AddCandidate(sentence.back(), morphemes, score);
    return *this;
  }
  std::vector<Eojul> sentence;

 private:
  int offset = 0;
};

// A knowledge path whose "sinfo" files (and others beside them) are
// written in CP949 from UTF-8.
class SinfoDirectory {
 public:
  // path/sinfo/name.
  void Write(const std::string& name, const std::string& utf8) {
    temp.Write("sinfo/" + name, utf8);
  }
  // path/name.
  void WriteBeside(const std::string& name, const std::string& utf8) {
    temp.Write(name, utf8);
  }
  const char* Path() const { return temp.Path().c_str(); }

 private:
  testsupport::TempDir temp;
};

}  // namespace testing_tagger
}  // namespace Quorel

#endif  // QRLSL_TESTS_TAGGING_TAGGING_HELPERS_H_
