// The shortcuts that spare a measure or a parse: Divide of a word whose
// length the caller gives answers byte for byte and score for score as Divide
// that measures it, and the bound-noun attribute read without the C library
// equals atoi on every form a record may hold.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "noun_divider/divider_helpers.h"

namespace Quorel {
namespace {

using testing_divider::Cp949;

class KnownLengthTest : public testing_divider::SmallKnowledgeTest {
 protected:
  void SetUp() override {
    SmallKnowledgeTest::SetUp();
    measured.Bind(&knowledge->dictionary);
  }

  // The whole output array and every group score of d's last answer.
  static std::vector<double> Read(const NounDivider& d, std::string& output) {
    output.assign(d.output, d.output + kDivOutputSize);
    std::vector<double> scores;
    for (int k = 0; k < kDivRows; ++k) scores.push_back(d.GetPatternScore(k));
    return scores;
  }

  NounDivider measured;
};

TEST_F(KnownLengthTest, GivenLengthAnswersAsTheMeasuredWord) {
  const char* const kWords[] = {
      "부터", "개씩", "그들", "책들", "뷁뷁", "뷁어", "신국가", "책학교",
      "국가부터", "대한민국", "뷁뷁뷁뷁", "국가경제를", "국가및경제",
      "국가뷁정책", "한국어사전", "신한국인들", "경기관광공사",
      "국가경제정책", "국가뷁뷁정책", "국가경제정책에"};
  const int kModes[] = {0, 1, 2, 3, 4, 10};
  int divided = 0;
  for (const char* utf8 : kWords) {
    const std::string word = Cp949(utf8);
    const int32_t length = static_cast<int32_t>(word.size());
    for (int mode : kModes) {
      // Both dividers see the same sequence of words, so their leftovers of
      // earlier words agree as well.
      measured.Divide(word.c_str(), mode);
      divider.Divide(word.c_str(), length, mode);
      std::string a, b;
      const std::vector<double> scoresA = Read(measured, a);
      const std::vector<double> scoresB = Read(divider, b);
      EXPECT_EQ(a, b) << utf8 << " mode " << mode;
      EXPECT_EQ(scoresA, scoresB) << utf8 << " mode " << mode;
      divided += a[0] != '$';
    }
  }
  EXPECT_GT(divided, 60);  // the comparison covered real divisions
}

TEST_F(KnownLengthTest, NullAndEmptyWordGiveDollarWithAnyLength) {
  EXPECT_STREQ("$", divider.Divide(nullptr, 0, 0));
  EXPECT_STREQ("$", divider.Divide("", 0, 2));
}

TEST(BoundNounAttributeTest, EqualsAtoiOnEveryForm) {
  const char* const kTexts[] = {"0",   "1",  "2",   "7",  "9",   "12", "6x",
                                "3 ",  " 4", "-2",  "+5", "x",   "",   "05",
                                "9a1", "10", "007", "4\t", "123456"};
  for (const char* text : kTexts) {
    SearchInfo si{};
    si.nnbText = text;
    EXPECT_EQ(std::atoi(text), NnbAttribute(si)) << '"' << text << '"';
  }
  SearchInfo none{};
  EXPECT_EQ(0, NnbAttribute(none));
}

}  // namespace
}  // namespace Quorel
