// The answer kept aside and taken back: after a shorter word was divided in
// between, the taken answer is byte for byte and score for score the one a
// fresh division of the word gives; it is used up, and matches only its own
// word and mode.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "noun_divider/divider_helpers.h"

namespace Quorel {
namespace {

using testing_divider::Cp949;

class KeptAnswerTest : public testing_divider::SmallKnowledgeTest {
 protected:
  void SetUp() override {
    SmallKnowledgeTest::SetUp();
    fresh.Bind(&knowledge->dictionary);
  }

  // The whole output array and every group score of d's last answer.
  struct Answer {
    std::vector<char> output;
    std::vector<double> scores;
  };
  static Answer Read(const NounDivider& d) {
    Answer a;
    a.output.assign(d.output, d.output + kDivOutputSize);
    for (int k = 0; k < kDivRows; ++k) a.scores.push_back(d.GetPatternScore(k));
    return a;
  }

  NounDivider fresh;
};

TEST_F(KeptAnswerTest, TakenAnswerEqualsAFreshDivision) {
  // Word, the shorter form divided in between, and the modes.
  struct Case {
    const char* word;
    const char* stem;
    int mode;
    int stemMode;
  };
  const Case kCases[] = {
      {"국가경제정책에", "국가경제정책", 2, 10},
      {"국가경제를", "국가경제", 2, 0},
      {"신한국인들", "신한국인", 2, 10},
      {"국가뷁정책", "국가뷁", 0, 0},
      {"뷁뷁뷁뷁", "뷁뷁", 2, 10},     // a "%" answer
      {"국가부터", "국가", 1, 0},
      {"경기관광공사", "경기", 3, 2},
  };
  int withGroups = 0;
  for (const Case& c : kCases) {
    const std::string word = Cp949(c.word);
    const std::string stem = Cp949(c.stem);
    divider.Divide(word.c_str(), c.mode);
    divider.KeepAnswer();
    divider.Divide(stem.c_str(), c.stemMode);
    ASSERT_TRUE(divider.TakeKeptAnswer(word.c_str(), c.mode)) << c.word;
    fresh.Divide(stem.c_str(), c.stemMode);  // the same leftovers behind
    fresh.Divide(word.c_str(), c.mode);
    const Answer taken = Read(divider);
    const Answer divided = Read(fresh);
    EXPECT_EQ(divided.output, taken.output) << c.word;
    EXPECT_EQ(divided.scores, taken.scores) << c.word;
    EXPECT_EQ(c.mode, divider.mode);
    EXPECT_TRUE(divider.word == word.c_str());
    if (divided.scores[0] != 0.0) ++withGroups;

    // Kept again from a taken answer, it comes back the same.
    divider.KeepAnswer();
    divider.Divide(stem.c_str(), c.stemMode);
    ASSERT_TRUE(divider.TakeKeptAnswer(word.c_str(), c.mode)) << c.word;
    EXPECT_EQ(divided.output, Read(divider).output) << c.word;
    EXPECT_EQ(divided.scores, Read(divider).scores) << c.word;
  }
  EXPECT_GT(withGroups, 2);  // scores of real rows were compared
}

TEST_F(KeptAnswerTest, OnlyItsWordAndModeTakeItAndOnlyOnce) {
  const std::string word = Cp949("국가경제를");
  const std::string stem = Cp949("국가경제");
  divider.Divide(word.c_str(), 2);
  divider.KeepAnswer();
  divider.Divide(stem.c_str(), 0);
  const std::string stemOutput = divider.output;
  EXPECT_FALSE(divider.TakeKeptAnswer(word.c_str(), 0));
  EXPECT_FALSE(divider.TakeKeptAnswer(stem.c_str(), 2));
  EXPECT_FALSE(divider.TakeKeptAnswer(nullptr, 2));
  EXPECT_EQ(stemOutput, divider.output);  // a refusal changes nothing
  EXPECT_TRUE(divider.TakeKeptAnswer(word.c_str(), 2));
  EXPECT_FALSE(divider.TakeKeptAnswer(word.c_str(), 2));

  divider.KeepAnswer();
  divider.DropKeptAnswer();
  EXPECT_FALSE(divider.TakeKeptAnswer(word.c_str(), 2));
}

TEST_F(KeptAnswerTest, ADivisionAfterATakenAnswerScoresByItsOwnRows) {
  const std::string word = Cp949("국가경제정책에");
  const std::string other = Cp949("경기관광공사");
  divider.Divide(word.c_str(), 2);
  divider.KeepAnswer();
  divider.Divide(Cp949("국가").c_str(), 0);
  ASSERT_TRUE(divider.TakeKeptAnswer(word.c_str(), 2));
  divider.Divide(other.c_str(), 2);
  fresh.Divide(other.c_str(), 2);
  EXPECT_EQ(Read(fresh).output, Read(divider).output);
  EXPECT_EQ(Read(fresh).scores, Read(divider).scores);
}

}  // namespace
}  // namespace Quorel
