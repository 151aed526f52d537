// The row machinery of the divider driven directly: duplicates, the choice
// of rows and ties, the special answers, the score of a hand-made row and
// the length table.
#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <string>

#include "noun_divider/divider_helpers.h"

namespace Quorel {
namespace {

using testing_divider::Cp949;
using testing_divider::Render;

struct Piece {
  char letter;
  int length;
};

// Puts a finished row with these pieces at index k and counts it as open.
void SetRow(NounDivider& d, int k, std::initializer_list<Piece> pieces,
            double score = 0.0, double weight = 0.0) {
  DivRow& r = d.rows[k];
  r = DivRow{};
  int j = 0;
  for (const Piece& p : pieces) r.elements[j++] = DivElement{p.length, 0, p.letter};
  r.elementCount = j;
  r.score = score;
  d.weightSum[k] = weight;
  if (d.rowCount < k + 1) d.rowCount = k + 1;
}

class RowsTest : public testing_divider::SmallKnowledgeTest {
 protected:
  void SetUp() override {
    SmallKnowledgeTest::SetUp();
    divider.Divide(Cp949("뷁뷁뷁뷁").c_str(), 0);  // a clean slate
    for (DivRow& r : divider.rows) r = DivRow{};
    for (int& s : divider.selected) s = -1;
    divider.rowCount = 0;
    divider.mode = 2;
  }
  // ChooseRows and FinishOutput as Divide runs them, with byte 0 = live.
  std::string Choose(int live) {
    divider.output[0] = static_cast<char>(live);
    const int32_t end = divider.ChooseRows();
    if (end >= 0) divider.FinishOutput(0, end);
    return Render(divider.output);
  }

};

TEST_F(RowsTest, EqualShapesKeepTheHigherWeightAndTheFirstOnATie) {
  SetRow(divider, 0, {{' ', 2}, {' ', 2}}, 0, 5.0);
  SetRow(divider, 1, {{'N', 2}, {'N', 2}}, 0, 5.0);  // a stored noun = a noun
  SetRow(divider, 2, {{' ', 1}, {' ', 3}}, 0, 1.0);
  divider.Deduplicate();
  EXPECT_FALSE(divider.IsDead(0));
  EXPECT_TRUE(divider.IsDead(1));
  EXPECT_FALSE(divider.IsDead(2));

  SetRow(divider, 0, {{' ', 2}, {'U', 2}}, 0, 1.0);
  SetRow(divider, 1, {{' ', 2}, {'U', 2}}, 0, 4.0);
  SetRow(divider, 2, {{' ', 2}, {'Y', 2}}, 0, 0.0);  // another letter
  divider.Deduplicate();
  EXPECT_TRUE(divider.IsDead(0));
  EXPECT_FALSE(divider.IsDead(1));
  EXPECT_FALSE(divider.IsDead(2));
}

TEST_F(RowsTest, TheFirstOfEqualScoresIsBestAndOnlyAGreaterOneReplacesIt) {
  SetRow(divider, 0, {{' ', 1}, {' ', 3}}, 0.5);
  SetRow(divider, 1, {{' ', 2}, {' ', 2}}, 0.5);
  EXPECT_EQ("2:1,3", Choose(2));
  EXPECT_EQ(0, divider.selected[0]);
  // The written best gets 1 / ((2 - 1) * 2).
  EXPECT_DOUBLE_EQ(1.0, divider.GetPatternScore(0));

  SetUp();
  SetRow(divider, 0, {{' ', 1}, {' ', 3}}, 0.5);
  SetRow(divider, 1, {{' ', 2}, {' ', 2}}, 0.6);
  EXPECT_EQ("2:2,2", Choose(2));
  EXPECT_EQ(1, divider.selected[0]);
}

TEST_F(RowsTest, RowsOfPointEightAreAllWrittenInOrderWithBonusForPlainOnes) {
  SetRow(divider, 0, {{' ', 2}, {'U', 2}}, 0.9);
  SetRow(divider, 1, {{' ', 2}, {' ', 1}, {' ', 1}}, 1.5);
  SetRow(divider, 2, {{' ', 4}}, 0.7);
  EXPECT_EQ("3:2,U2@2,1,1", Choose(3));
  EXPECT_DOUBLE_EQ(0.9, divider.GetPatternScore(0));    // has a "U"
  EXPECT_DOUBLE_EQ(1.75, divider.GetPatternScore(1));   // 1 / ((3-1)*2)
  EXPECT_EQ(0.0, divider.GetPatternScore(2));

  SetUp();
  divider.mode = 1;  // the best row alone
  SetRow(divider, 0, {{' ', 2}, {'U', 2}}, 0.9);
  SetRow(divider, 1, {{' ', 2}, {' ', 2}}, 1.5);
  EXPECT_EQ("2:2,2", Choose(2));
}

TEST_F(RowsTest, NegativeBestGivesPercentAndAWeakBestNoGroup) {
  SetRow(divider, 0, {{'U', 4}}, -0.01);
  EXPECT_EQ("%", Choose(1));
  EXPECT_STREQ("%", divider.output);

  SetUp();
  SetRow(divider, 0, {{'U', 4}}, 0.39);
  EXPECT_EQ("255:", Choose(1));
  EXPECT_EQ(-1, divider.selected[0]);
}

TEST_F(RowsTest, RepeatedGroupsAfterTheRewriteAreDroppedWithTheirRows) {
  // 2,U1,1 and U3,1 read alike once the unknown syllable joins its left.
  SetRow(divider, 0, {{' ', 2}, {'U', 1}, {' ', 1}}, 0.9);
  SetRow(divider, 1, {{'U', 3}, {' ', 1}}, 1.2);
  SetRow(divider, 2, {{' ', 2}, {' ', 2}}, 1.0);
  EXPECT_EQ("3:U3,1@2,2", Choose(3));
  EXPECT_EQ(0, divider.selected[0]);
  EXPECT_EQ(2, divider.selected[1]);
  EXPECT_EQ(-1, divider.selected[2]);
}

TEST_F(RowsTest, ScoreFoldsPrefixesSuffixesAndATrailingJosa) {
  // 국가 + 신(X) + 정책 + 들(Y) + 의(J): code 24, table 3.0; positions
  // 국가 first 1000 and 정책 last 2000 over 2 pieces; no joint is known.
  divider.word = Cp949("국가신정책들의").c_str();
  divider.wordLength = divider.word.Length();
  SetRow(divider, 0, {{' ', 2}, {'X', 1}, {' ', 2}, {'Y', 1}, {'J', 1}});
  EXPECT_DOUBLE_EQ((300.0 + 3000.0 / 2 / 500.0) / 1000.0, divider.Score(0));

  // One piece of 4 syllables or more: -1.0, whatever the table says.
  SetRow(divider, 0, {{' ', 3}, {'Y', 1}});
  EXPECT_DOUBLE_EQ(-100.0 / 1000.0, divider.Score(0));
  SetRow(divider, 0, {{'J', 1}});
  EXPECT_EQ(0.0, divider.Score(0));
}

TEST_F(RowsTest, LengthTableIsSortedAndAnswersByCode) {
  EXPECT_EQ(kLengthPatternCount, divider.patternCount);
  for (int i = 1; i < kLengthPatternCount; ++i) {
    EXPECT_LT(LengthPatterns[i - 1].code, LengthPatterns[i].code);
  }
  EXPECT_EQ(1.3, LengthPatternValue(3));
  EXPECT_EQ(5.0, LengthPatternValue(222));
  EXPECT_EQ(0.01, LengthPatternValue(231));
  EXPECT_EQ(-15.0, LengthPatternValue(113));
  EXPECT_EQ(-9.0, LengthPatternValue(1211));
  EXPECT_EQ(5.0, LengthPatternValue(22222));
  EXPECT_EQ(0.0, LengthPatternValue(9));
  EXPECT_EQ(0.0, LengthPatternValue(99999));
}

// The direct index of short codes against a plain scan of the table, over
// every code a row of up to five pieces can make and around each entry.
TEST(LengthTableTest, IndexedLookupAnswersAsAScanOfTheTable) {
  const auto scan = [](int32_t code) {
    for (const LengthPattern& p : LengthPatterns) {
      if (p.code == code) return p.value;
    }
    return 0.0;
  };
  for (int32_t code = -2; code <= 40000; ++code) {
    ASSERT_EQ(scan(code), LengthPatternValue(code)) << code;
  }
  for (const LengthPattern& p : LengthPatterns) {
    EXPECT_EQ(p.value, LengthPatternValue(p.code)) << p.code;
  }
}

// The table of adjacent pairs against the string search, for every two
// bytes (a NUL among them included).
TEST(JosaListTest, PairTableAnswersAsTheStringSearch) {
  int found = 0;
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; ++b) {
      const char two[2] = {static_cast<char>(a), static_cast<char>(b)};
      const bool table = NounDivider::InJosaList(two, 2);
      ASSERT_EQ(NounDivider::InJosaListText(two, 2), table) << a << " " << b;
      found += table ? 1 : 0;
    }
  }
  EXPECT_GE(found, 15);  // every josa syllable, and the pairs with ':'
}

// The eight-byte test of high bits against a byte-by-byte count, for every
// length up to 20 and an ASCII byte (or a trail byte in its range) at each
// place, alone and in pairs.
TEST(AsciiUnitsTest, ChunkedCountAnswersAsAByteCount) {
  const auto count = [](const std::string& w) {
    int32_t ascii = 0;
    for (unsigned char c : w) ascii += c >= 33 && c <= 126 ? 1 : 0;
    return ascii > 1 ? ascii - 1 : ascii;
  };
  for (int32_t length = 0; length <= 20; ++length) {
    const std::string hangul(static_cast<size_t>(length), '\xB0');
    EXPECT_EQ(0, AsciiUnits(hangul.c_str(), length));
    for (int32_t i = 0; i < length; ++i) {
      for (char c : {'A', 'z', ' ', '~', '\x7F', '\x41'}) {
        std::string w = hangul;
        w[static_cast<size_t>(i)] = c;
        EXPECT_EQ(count(w), AsciiUnits(w.c_str(), length)) << length << " " << i;
        for (int32_t k = i + 1; k < length; ++k) {
          std::string two = w;
          two[static_cast<size_t>(k)] = '5';
          EXPECT_EQ(count(two), AsciiUnits(two.c_str(), length));
        }
      }
    }
  }
}

TEST_F(RowsTest, ElementsOutsideTheRowKillItAndWeightsFollowTheLetter) {
  divider.rowCount = 1;
  divider.AddElement(0, 0, 6, ' ');
  EXPECT_EQ(10, divider.rows[0].elements[0].weight);
  divider.AddElement(0, 1, 8, ' ');
  EXPECT_EQ(28, divider.rows[0].elements[1].weight);
  divider.AddElement(0, 2, 6, 'I');
  EXPECT_EQ(8, divider.rows[0].elements[2].weight);
  divider.AddElement(0, 3, 4, 'N');
  EXPECT_EQ(8, divider.rows[0].elements[3].weight);
  divider.AddElement(0, 4, 8, 'N');
  EXPECT_EQ(32, divider.rows[0].elements[4].weight);
  divider.AddElement(0, 5, 2, 'U');
  EXPECT_EQ(-2, divider.rows[0].elements[5].weight);
  EXPECT_EQ(1, divider.rows[0].elements[5].length);
  EXPECT_FALSE(divider.IsDead(0));
  divider.AddElement(0, kDivElements, 2, 'U');
  EXPECT_TRUE(divider.IsDead(0));
}

}  // namespace
}  // namespace Quorel
