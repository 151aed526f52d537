// The divider fed the caller's search of the words at the start of the word
// answers exactly as the divider that searches them itself: same pattern,
// same rows, same group scores, in every mode.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "noun_divider/divider_helpers.h"

namespace Quorel {
namespace {

using testing_divider::Cp949;
using testing_divider::Render;

class StartHitsTest : public testing_divider::SmallKnowledgeTest {
 protected:
  // Everything a reader of the divider sees after one division.
  struct Answer {
    std::string pattern;
    int rowCount;
    std::vector<double> scores;
  };

  Answer Divide(NounDivider& d, const std::string& cp949, int mode,
                const std::vector<SearchInfo>* startHits) {
    Answer a;
    a.pattern = Render(d.Divide(cp949.c_str(), mode, startHits));
    a.rowCount = d.rowCount;
    for (int k = 0; k < kDivRows; ++k) a.scores.push_back(d.GetPatternScore(k));
    return a;
  }
};

TEST_F(StartHitsTest, GivenStartHitsChangeNoAnswer) {
  const char* const kWords[] = {
      "국가경제정책", "경기관광공사", "국가경제정책에", "국가경제를",
      "국가뷁뷁정책", "국가뷁정책",   "국가및경제",     "신국가",
      "책학교",       "대한민국",     "신한국인들",     "국가부터",
      "부터",         "뷁뷁뷁뷁",     "책",             "국가경제정책들"};
  const int kModes[] = {0, 1, 2, 3, 4, 10};
  NounDivider fed;
  fed.Bind(&knowledge->dictionary);
  int divided = 0;
  for (const char* utf8 : kWords) {
    const std::string word = Cp949(utf8);
    std::vector<SearchInfo> startHits;
    knowledge->dictionary.SearchAll(word.c_str(), startHits, 0, 0, 0, 1, 0, 0);
    for (int mode : kModes) {
      const Answer own = Divide(divider, word, mode, nullptr);
      const Answer given = Divide(fed, word, mode, &startHits);
      EXPECT_EQ(own.pattern, given.pattern) << utf8 << " mode " << mode;
      EXPECT_EQ(own.rowCount, given.rowCount) << utf8 << " mode " << mode;
      EXPECT_EQ(own.scores, given.scores) << utf8 << " mode " << mode;
      if (own.pattern.size() > 2) ++divided;
    }
  }
  EXPECT_GT(divided, 20);  // the words mostly divide, so rows were compared
}

TEST_F(StartHitsTest, HitsBeyondTheSearchLimitAreCutAlike) {
  // A long run of known nouns gives more hits than the divider keeps.
  std::string utf8;
  for (int i = 0; i < 50; ++i) utf8 += "국가경제";
  const std::string word = Cp949(utf8);
  std::vector<SearchInfo> startHits;
  knowledge->dictionary.SearchAll(word.c_str(), startHits, 0, 0, 0, 1, 0, 0);
  NounDivider fed;
  fed.Bind(&knowledge->dictionary);
  const Answer own = Divide(divider, word, 2, nullptr);
  const Answer given = Divide(fed, word, 2, &startHits);
  EXPECT_EQ(static_cast<size_t>(kMaxDivHits), divider.hits.size());
  EXPECT_EQ(own.pattern, given.pattern);
  EXPECT_EQ(own.scores, given.scores);
  ASSERT_EQ(divider.hits.size(), fed.hits.size());
  for (size_t i = 0; i < divider.hits.size(); ++i) {
    EXPECT_EQ(divider.hits[i].start, fed.hits[i].start) << i;
    EXPECT_EQ(divider.hits[i].end, fed.hits[i].end) << i;
  }
}

}  // namespace
}  // namespace Quorel
