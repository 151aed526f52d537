// Divide end to end on a small knowledge directory: the special answers,
// compounds, unknown pieces, josa tails and the pattern string's forms.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "noun_divider/divider_helpers.h"

namespace Quorel {
namespace {

using testing_divider::Cp949;
using testing_divider::LiveRows;
using testing_divider::Render;
using testing_divider::RowShape;

class DivideTest : public testing_divider::SmallKnowledgeTest {
 protected:

  std::string Divide(const std::string& utf8, int mode) {
    text = Cp949(utf8);
    return Render(divider.Divide(text.c_str(), mode));
  }

  std::string text;
};

TEST_F(DivideTest, ButeoAndKkajiAloneAreAJosa) {
  EXPECT_EQ("1:J2", Divide("부터", 0));
  EXPECT_EQ("1:J2", Divide("까지", 2));
  EXPECT_EQ(0.0, divider.GetPatternScore(0));
}

TEST_F(DivideTest, EmptyWordAndUnboundDividerGiveDollar) {
  EXPECT_EQ("$", Divide("", 0));
  NounDivider unbound;
  EXPECT_STREQ("$", unbound.Divide(text.c_str(), 0));
}

TEST_F(DivideTest, TwoSyllablesThatAreNoNounGetTheirSpecialPatterns) {
  EXPECT_EQ("1:P1,Y1", Divide("그들", 0));  // pronoun with plural suffix
  EXPECT_EQ("1:1,Y1", Divide("책들", 0));   // noun with suffix
  EXPECT_EQ("1:B1,Y1", Divide("개씩", 0));  // odd bound noun with 씩
  EXPECT_EQ("$", Divide("뷁뷁", 0));        // nothing known
}

TEST_F(DivideTest, WordWithoutHitsIsOneUnknownRowScoredNegative) {
  EXPECT_EQ("%", Divide("뷁뷁뷁뷁", 0));
  ASSERT_EQ(1u, LiveRows(divider).size());
  EXPECT_EQ("U4", RowShape(divider, 0));
  // 1 piece of 4 syllables: base -1.0, and the unknown's weight -2.
  EXPECT_DOUBLE_EQ(-0.1, divider.Score(0));
  EXPECT_DOUBLE_EQ(-0.3, divider.rows[0].score);
}

TEST_F(DivideTest, ThreeNounCompoundScoresByTableJointsAndPositions) {
  EXPECT_EQ("1:2,2,2", Divide("국가경제정책", 2));
  ASSERT_EQ(std::vector<int>{0}, LiveRows(divider));
  // Table 222 -> 5.0; joints 가경 500 and 제정 300 over 2; positions 국가
  // first 1000, 경제 middle 500, 정책 last 2000 over 3 pieces.
  const double score = (500.0 + 400 / 1000.0 + (3500.0 / 3) / 500.0) / 1000.0;
  EXPECT_DOUBLE_EQ(score, divider.Score(0));
  // Weights 3 + 6 + 6, and the bonus of a plain row of three pieces.
  EXPECT_DOUBLE_EQ(score + 1.5 + 0.25, divider.GetPatternScore(0));
  EXPECT_EQ(0.0, divider.GetPatternScore(1));
}

TEST_F(DivideTest, OverlappingHitsGiveEachDivisionInRowOrderAndModeOneTheBest) {
  EXPECT_EQ("3:2,2,2@2,4", Divide("경기관광공사", 2));
  EXPECT_LT(divider.GetPatternScore(0), divider.GetPatternScore(1));
  // The third row, the word as one unknown piece, scored below 0.
  ASSERT_EQ(3u, LiveRows(divider).size());
  EXPECT_EQ("U6", RowShape(divider, 2));
  EXPECT_LT(divider.rows[2].score, 0.0);

  EXPECT_EQ("3:2,4", Divide("경기관광공사", 1));
  EXPECT_EQ(divider.rows[1].score, divider.GetPatternScore(0));
  EXPECT_EQ(0.0, divider.GetPatternScore(1));
}

TEST_F(DivideTest, GwaOrUiBehindTwoTwoTwoTakesFourFifthsOfTheTableValue) {
  const double rest = (400 / 1000.0 + (3500.0 / 3) / 500.0) / 1000.0;
  for (const char* word : {"국가경제정책의", "국가경제정책과"}) {
    EXPECT_EQ("1:2,2,2,J1", Divide(word, 2)) << word;
    EXPECT_DOUBLE_EQ(400.0 / 1000.0 + rest, divider.Score(0)) << word;
  }
  EXPECT_EQ("1:2,2,2,J1", Divide("국가경제정책에", 2));
  EXPECT_DOUBLE_EQ(500.0 / 1000.0 + rest, divider.Score(0));
  EXPECT_EQ(Cp949("에"), divider.josaText.CStr());
}

TEST_F(DivideTest, JosaTailNeedsAnEndingModeAndAnAttachingSyllable) {
  EXPECT_EQ("1:2,2,J1", Divide("국가경제를", 2));
  EXPECT_EQ(Cp949("를"), divider.josaText.CStr());
  // 을 wants a final before it; 제 has none, so the syllable stays unknown
  // and, one syllable long, joins the piece before it.
  EXPECT_EQ("1:2,U3", Divide("국가경제을", 2));
  EXPECT_EQ("1:2,U3", Divide("국가경제를", 0));
}

TEST_F(DivideTest, ButeoBehindANounIsAJosaOutsideTheEndingModes) {
  EXPECT_EQ("1:2,J2", Divide("국가부터", 0));
  // In the ending modes it is an unknown piece, too weak to be written.
  EXPECT_EQ("255:", Divide("국가부터", 2));
  EXPECT_EQ("U2", RowShape(divider, 0).substr(2));
}

TEST_F(DivideTest, UnknownPiecesStayUnknownAndOneSyllableJoinsItsLeftPiece) {
  EXPECT_EQ("1:2,U2,2", Divide("국가뷁뷁정책", 0));
  EXPECT_EQ("1:U3,2", Divide("국가뷁정책", 0));
  EXPECT_EQ("2,U1,2", RowShape(divider, 0));
}

TEST_F(DivideTest, OneSyllableConjunctionAndPrefixGetTheirLetters) {
  // 및 between two nouns is found in the conjunction list.
  EXPECT_EQ("1:2,C1,2", Divide("국가및경제", 0));
  // 신 before the only hit is a prefix: weight 1, less 3 as no hit starts
  // at 0, and 국가 7 + 3 for the one hit after byte 0; code 3 -> 1.3, and
  // 국가 as the first piece 1000 / 500.
  EXPECT_EQ("1:X1,2", Divide("신국가", 0));
  EXPECT_DOUBLE_EQ(8.0, divider.weightSum[0]);
  EXPECT_DOUBLE_EQ((130.0 + 2.0) / 1000.0 + 0.8, divider.GetPatternScore(0));
}

TEST_F(DivideTest, ThreeSyllableWordsCarryDigitLengthsInTheEndingModes) {
  EXPECT_EQ("1:1,2", Divide("책학교", 0));
  Divide("책학교", 2);
  EXPECT_STREQ("112$", divider.output);
}

TEST_F(DivideTest, StoredProperNounDivisionIsCopiedInModeThree) {
  EXPECT_EQ("2:2,2@4", Divide("대한민국", 3));
  EXPECT_EQ(0.0, divider.GetPatternScore(0));
  EXPECT_EQ("1:X1,3,Y1", Divide("신한국인들", 3));
  // Other modes walk the word; the stored division's two alternatives are
  // two rows, each with a tenth of the hit's bytes added to its score.
  EXPECT_EQ("2:2,2@4", Divide("대한민국", 0));
  ASSERT_EQ(2u, LiveRows(divider).size());
  EXPECT_EQ(0.8 + divider.Score(1) + divider.weightSum[1] / 10.0,
            divider.rows[1].score);
  EXPECT_EQ(1, divider.splitFlag);
}

TEST_F(DivideTest, UserNounDivisionInModeFourAndZeroForUndivided) {
  testing_divider::TempDir dir;
  dir.Write("user.dic", "한국어사전\t32\n뷁어\t0\n");
  ASSERT_EQ(1, knowledge->dictionary.LoadUserNoun(dir.Path().c_str(),
                                                   "user.dic", false));
  EXPECT_EQ("1:N3,N2", Divide("한국어사전", 4));
  EXPECT_EQ("$", Divide("뷁어", 4));
  EXPECT_EQ("1:N3,N2", Divide("한국어사전", 0));
}

TEST_F(DivideTest, OutputIsBoundedForLongWords) {
  std::string word;
  for (int i = 0; i < 60; ++i) word += i % 3 == 0 ? "국가" : "경제";
  const std::string shape = Divide(word, 2);
  EXPECT_NE("<open>", shape);
  EXPECT_LE(divider.rowCount, kDivRows);
  EXPECT_LE(static_cast<int>(divider.hits.size()), kMaxDivHits);
}

TEST_F(DivideTest, ArbitraryBytesNeverLeaveTheBounds) {
  // Pieces of known words, josa, suffixes, ASCII and stray bytes, joined at
  // random (fixed seed): every answer is closed and every score finite.
  const std::vector<std::string> parts = {
      Cp949("국가"), Cp949("경제"), Cp949("정책"), Cp949("관광공사"),
      Cp949("신"),   Cp949("들"),   Cp949("의"),   Cp949("부터"),
      Cp949("및"),   Cp949("개"),   Cp949("뷁"),   "A",
      "7",           "\xB0",        "\xC8\xFE",    "@$"};
  std::mt19937 random(7);
  for (int round = 0; round < 3000; ++round) {
    std::string word;
    const int count = 1 + static_cast<int>(random() % 12);
    for (int i = 0; i < count; ++i) word += parts[random() % parts.size()];
    for (int mode : {0, 1, 2, 3, 4, 10}) {
      const std::string shape = Render(divider.Divide(word.c_str(), mode));
      ASSERT_NE("<open>", shape);
      ASSERT_LE(std::strlen(divider.output), kDivOutputSize - 1u);
      for (int k = 0; k < kDivRows; ++k) {
        ASSERT_TRUE(std::isfinite(divider.GetPatternScore(k)));
      }
    }
  }
}

}  // namespace
}  // namespace Quorel
