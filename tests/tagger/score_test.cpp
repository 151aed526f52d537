// Candidate scoring: the length terms, the factors on the running sum, the
// carried scoreFlow, the negation of a negative sum, and the whole-eojul
// rules (sole candidate, stored scores, the 0.87 factor, ties).
#include "tagger/score.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "eojul/tag_set.h"

namespace Quorel {
namespace {

// CP949 lexicons; a syllable is two bytes.
const char* const kGa = "\xB0\xA1";                   // 가
const char* const kGongbu = "\xB0\xF8\xBA\xCE";       // 공부
const char* const kHa = "\xC7\xCF";                   // 하
const char* const kDae = "\xB4\xEB";                  // 대
const char* const kHamyeo = "\xC7\xCF\xB8\xE7";       // 하며
const char* const kDoseogwan = "\xB5\xB5\xBC\xAD\xB0\xFC";  // 도서관
const char* const kI = "\xC0\xCC";                    // 이
const char* const kDa = "\xB4\xD9";                   // 다
const char* const kEot = "\xBE\xFA";                  // 었
const char* const kEo = "\xBE\xEE";                   // 어
const char* const kBo = "\xBA\xB8";                   // 보

using Morphemes = std::initializer_list<std::pair<const char*, uint32_t>>;

void AddCandidate(Eojul& e, Morphemes morphemes) {
  e.BeginCandidate();
  for (const auto& m : morphemes) e.AddMorpheme(m.first, m.second);
  e.EndCandidate();
}

// The score of one candidate on `surface` with a fresh flow.
double ScoreOf(const char* surface, Morphemes morphemes,
               uint32_t foundMask = 0) {
  Eojul e;
  e.SetText(surface, EojulType::kDoubleByte);
  AddCandidate(e, morphemes);
  ScoreState state;
  state.foundMask = foundMask;
  return ScoreCandidate(e, 0, state);
}

TEST(ScoreTest, NounLengthTermsAndTheSurfacePenalty) {
  EXPECT_NEAR(ScoreOf(kGa, {{kGa, Pos::NNG}}), 0.6976, 1e-12);
  EXPECT_DOUBLE_EQ(ScoreOf(kGa, {{kGa, Pos::NNG}}),
                   (0.5 + 0.6 * (2 * 0.31)) * 0.8);
  // The 0.1 is paid on a 6-byte surface, whatever the morpheme's length.
  EXPECT_NEAR(ScoreOf(kDoseogwan, {{kDoseogwan, Pos::NNG}}), 1.516, 1e-12);
  EXPECT_NEAR(ScoreOf("\xB5\xB5\xBC\xAD\xB0\xFC\xC0\xCC",
                      {{kDoseogwan, Pos::NNG}}),
              1.616, 1e-12);
}

TEST(ScoreTest, ProperNounAndUnknownWord) {
  // NNP has no length term: only the one-morpheme bonus.
  EXPECT_DOUBLE_EQ(ScoreOf(kDoseogwan, {{kDoseogwan, Pos::NNP}}), 0.5);
  EXPECT_DOUBLE_EQ(ScoreOf(kGa, {{kGa, Pos::NNP}, {kI, Pos::J_}}), 0.15);
  // NNR earns no one-morpheme bonus, UW nothing at all.
  EXPECT_DOUBLE_EQ(ScoreOf(kGa, {{kGa, Pos::NNR}}), 0.0);
  EXPECT_DOUBLE_EQ(ScoreOf(kGa, {{kGa, Pos::UW}, {kDa, Pos::UW}}), 0.0);
}

TEST(ScoreTest, NounAndJosaFactorScalesTheSumPerNoun) {
  const char* surface = "\xC7\xD0\xB1\xB3\xB0\xA1";  // 학교가, 6 bytes
  EXPECT_NEAR(ScoreOf(surface, {{kGongbu, Pos::NNG}, {kGa, Pos::J_}},
                      0x40800000),
              (0.6 * (4 * 0.31) - 0.1) * 1.35 + 0.15, 1e-12);
  EXPECT_NEAR(ScoreOf(surface, {{kGongbu, Pos::NNG}, {kGa, Pos::J_}}),
              0.6 * (4 * 0.31) - 0.1 + 0.15, 1e-12);
  // Two nouns: the factor applies after each of them.
  EXPECT_NEAR(ScoreOf("\xB0\xA1\xB0\xA1\xB0\xA1\xB0\xA1",
                      {{kGa, Pos::NNG}, {kGa, Pos::NNG}}, 0x40800000),
              ((0.372 * 0.8) * 1.35 + 0.372) * 0.8 * 1.35, 1e-12);
}

TEST(ScoreTest, BoundNounAfterANumber) {
  EXPECT_NEAR(ScoreOf("3\xB0\xB3", {{"3", Pos::SN}, {"\xB0\xB3", Pos::NNB}}),
              0.3 * (2 * 0.31) + 0.7, 1e-12);
}

TEST(ScoreTest, JosaAndEomiLengthBonus) {
  EXPECT_NEAR(ScoreOf(kGa, {{kGa, Pos::J_}}), 0.15, 1e-12);
  EXPECT_NEAR(ScoreOf(kGa, {{kGongbu, Pos::J_}}), 0.3, 1e-12);
  EXPECT_NEAR(ScoreOf(kGa, {{kDoseogwan, Pos::J_}}), 0.25 * (6 * 0.31),
              1e-12);
  EXPECT_NEAR(ScoreOf(kGa, {{kHamyeo, Pos::J_}}), 0.3, 1e-12);
  EXPECT_NEAR(ScoreOf(kGa, {{kGa, Pos::NNG}, {kHamyeo, Pos::J_}}),
              (0.6 * (2 * 0.31)) * 0.8 * 0.57 + 0.3, 1e-12);
  EXPECT_NEAR(ScoreOf(kGa, {{kDa, Pos::EM}}), 0.1, 1e-12);
}

TEST(ScoreTest, NegativeSumComesBackPositive) {
  // EP passes as an eomi (0.1) and pays 0.37 on top: -0.27 becomes 0.27.
  EXPECT_NEAR(ScoreOf(kEot, {{kEot, Pos::EP}}), 0.27, 1e-12);
  // 대 as a suffix leaves the flow at 4, which halves a short eomi.
  EXPECT_NEAR(ScoreOf(kDae, {{kDae, Pos::XSD}, {kDa, Pos::EM}}),
              (0.47 - 0.18 + 0.1) * 0.5, 1e-12);
  EXPECT_NEAR(ScoreOf(kDae, {{kDae, Pos::XSD}, {kEot, Pos::EP}}),
              -((0.47 - 0.18 + 0.1) * 0.5 - 0.37), 1e-12);
}

TEST(ScoreTest, SuffixHaAfterANoun) {
  const char* surface = "\xB0\xF8\xBA\xCE\xC7\xCF\xB4\xD9";  // 공부하다
  EXPECT_NEAR(ScoreOf(surface, {{kGongbu, Pos::NNG}, {kHa, Pos::XSD}}),
              0.6 * (4 * 0.31) + 0.67 + 0.18, 1e-12);
  // A 2-byte noun before the suffix: the sum is scaled by 0.7 there.
  EXPECT_NEAR(ScoreOf(surface, {{kGa, Pos::NNB}, {kHa, Pos::XSD}}),
              (0.3 * (2 * 0.31) + 0.67 + 0.18) * 0.7 * 0.6, 1e-12);
}

TEST(ScoreTest, EomiBetweenSuffixAndAuxiliaryPaysOnce) {
  const char* surface = "\xB0\xF8\xBA\xCE\xC7\xD8\xBA\xB8\xB4\xD9";
  EXPECT_NEAR(ScoreOf(surface, {{kGongbu, Pos::NNG},
                                {kHa, Pos::XSD},
                                {kEo, Pos::EM},
                                {kBo, Pos::VX}}),
              (0.744 + 0.67 + 0.18) * 0.9 + 0.2 * (2 * 0.248), 1e-12);
  // Without the suffix before it the eomi pays 0.9 and earns its bonus.
  EXPECT_NEAR(ScoreOf(surface, {{kGa, Pos::VV}, {kEo, Pos::EM},
                                {kBo, Pos::VX}}),
              (0.5 * (2 * 0.248)) * 0.9 + 0.1 + 0.2 * (2 * 0.248), 1e-12);
}

TEST(ScoreTest, CopulaAfterALongNoun) {
  const char* surface = "\xB5\xB5\xBC\xAD\xB0\xFC\xC0\xCC\xB4\xD9";
  EXPECT_NEAR(ScoreOf(surface, {{kDoseogwan, Pos::NNG},
                                {kI, Pos::VC},
                                {kDa, Pos::EM}}),
              0.6 * (6 * 0.31) + 0.3 + 0.1, 1e-12);
  EXPECT_NEAR(ScoreOf(surface, {{kGa, Pos::NNG}, {kI, Pos::VC}}),
              0.6 * (2 * 0.31) * 0.8, 1e-12);
}

class ScoreEojulTest : public ::testing::Test {
 protected:
  ScoreEojulTest() {
    e.SetText("\xB0\xF8\xBA\xCE\xC7\xCF\xB4\xD9", EojulType::kDoubleByte);
  }
  Eojul e;
  ScoreState state;
};

TEST_F(ScoreEojulTest, NoCandidate) { EXPECT_EQ(ScoreEojul(e, state), 0); }

TEST_F(ScoreEojulTest, SoleCandidateScoresOne) {
  AddCandidate(e, {{kGa, Pos::UW}});
  EXPECT_EQ(ScoreEojul(e, state), 1);
  EXPECT_DOUBLE_EQ(e.GetScore(0), 1.0);
}

TEST_F(ScoreEojulTest, SoleStoredScoreIsKeptOnlyAfterACompoundTry) {
  AddCandidate(e, {{kGa, Pos::NNG}});
  e.SetScoreAt(0, 3.5);
  ScoreEojul(e, state);
  EXPECT_DOUBLE_EQ(e.GetScore(0), 1.0);
  e.SetScoreAt(0, 3.5);
  state.compoundTried = true;
  ScoreEojul(e, state);
  EXPECT_DOUBLE_EQ(e.GetScore(0), 3.5);
}

TEST_F(ScoreEojulTest, FlowCarriesFromCandidateToCandidate) {
  AddCandidate(e, {{kGa, Pos::VV}});
  AddCandidate(e, {{kGongbu, Pos::NNG}, {kHa, Pos::XSD}});
  AddCandidate(e, {{kGa, Pos::VV}});
  state.scoreFlow = 4;  // reset once at the head
  ScoreEojul(e, state);
  EXPECT_NEAR(e.GetScore(0), 0.5 * (2 * 0.248), 1e-12);
  // The verb left the flow at 1: the suffix only pays its 0.95.
  EXPECT_NEAR(e.GetScore(1), 0.744 * 0.95, 1e-12);
  EXPECT_EQ(state.scoreFlow, 1);

  Eojul other;
  other.SetText(e.GetString(), EojulType::kDoubleByte);
  AddCandidate(other, {{kGongbu, Pos::NNG}, {kHa, Pos::XSD}});
  AddCandidate(other, {{kGa, Pos::VV}});
  ScoreEojul(other, state);
  EXPECT_NEAR(other.GetScore(0), 0.744 + 0.67 + 0.18, 1e-12);
  // The suffix 하 left 3: the verb after it earns 1.0 more.
  EXPECT_NEAR(other.GetScore(1), 0.5 * (2 * 0.248) + 1.0, 1e-12);
}

TEST_F(ScoreEojulTest, CompoundTryScalesNewScoresAndKeepsStoredOnes) {
  AddCandidate(e, {{kGa, Pos::NNG}});
  AddCandidate(e, {{kGa, Pos::UW}});
  AddCandidate(e, {{kGa, Pos::NNB}});
  e.SetScoreAt(2, 2.25);
  state.compoundTried = true;
  ScoreEojul(e, state);
  EXPECT_NEAR(e.GetScore(0), (0.5 + 0.372) * 0.8 * 0.87, 1e-12);
  EXPECT_DOUBLE_EQ(e.GetScore(1), 0.0);  // unscored, and stays so
  EXPECT_DOUBLE_EQ(e.GetScore(2), 2.25);
}

TEST_F(ScoreEojulTest, TiesGoToTheLaterCandidate) {
  const char* hakgyo = "\xC7\xD0\xB1\xB3";  // 학교, as long as 공부
  AddCandidate(e, {{kGongbu, Pos::NNG}});
  AddCandidate(e, {{hakgyo, Pos::NNG}});
  AddCandidate(e, {{kGa, Pos::NP}});
  ScoreEojul(e, state);
  ASSERT_DOUBLE_EQ(e.GetScore(0), e.GetScore(1));
  EXPECT_EQ(e.BestCandidate(), 1);
  EXPECT_EQ(e.SelectTop(1), 1);
  EXPECT_STREQ(e.GetLexicon(0, 0), hakgyo);
  EXPECT_EQ(e.SelectTop(2), 2);
  EXPECT_STREQ(e.GetLexicon(0, 0), hakgyo);
  EXPECT_STREQ(e.GetLexicon(1, 0), kGongbu);
}

}  // namespace
}  // namespace Quorel
