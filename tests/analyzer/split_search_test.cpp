// The josa and eomi search over small CP949 knowledge: split points, the
// JX chain, the josa and eomi routes, the stored stems and the readings.
#include <gtest/gtest.h>

#include <cstring>

#include "analyzer/driver_helpers.h"
#include "eojul/tag_set.h"

namespace Quorel {
namespace {

using testing_driver::Candidates;
using testing_driver::Cp949;
using testing_driver::DriverFixture;
using testing_driver::SmallKnowledge;
using testing_driver::Utf8;

constexpr unsigned kHangul = EojulType::kDoubleByte;
using SplitList = std::vector<std::pair<int, int>>;

// Split points of `utf8` as (start of the ending, reserved) pairs.
SplitList SplitsOf(DriverFixture& fixture, const std::string& utf8,
                 bool rePass) {
  Eojul& e = *fixture.analyzer.CurrentEojul();
  e.SetText(Cp949(utf8).c_str(), kHangul);
  fixture.analyzer.SearchSplits(e, rePass);
  SplitList all;
  for (const SearchJEInfo& s : fixture.analyzer.JeCandidates()) {
    all.emplace_back(s.length, s.reserved);
  }
  return all;
}

class SplitSearchTest : public ::testing::Test {
 protected:
  SplitSearchTest() : fixture(SmallKnowledge()) {}

  SplitList Splits(const std::string& utf8, bool rePass) {
    return SplitsOf(fixture, utf8, rePass);
  }

  DriverFixture fixture;
};

TEST_F(SplitSearchTest, SplitPointsStartAfterTheFirstSyllable) {
  EXPECT_TRUE(Splits("가", false).empty());
  EXPECT_EQ(Splits("학교가", false), (SplitList{{4, 0}}));
  EXPECT_EQ(Splits("먹는다", false), (SplitList{{2, 0}, {4, 0}}));
}

TEST_F(SplitSearchTest, JxChainIsOneSplitWithItsFirstKeyEnd) {
  // 에서 + 도 from byte 4: reserved marks the end of 에서; 도 alone too.
  EXPECT_EQ(Splits("학교에서도", false), (SplitList{{4, 8}, {8, 0}}));
  // A re-analysis pass takes no chain.
  EXPECT_EQ(Splits("학교에서도", true), (SplitList{{8, 0}}));
}

TEST_F(SplitSearchTest, DoubledJosaIsNoFirstKey) {
  EXPECT_EQ(Splits("학교도도", false), (SplitList{{6, 0}}));
}

// Keys whose marks refuse a split: an ETN key, an eomi marked 0x400 before
// a JX, and an eomi marked 0x800 on a re-analysis pass.
TEST(SplitMarksTest, MarkedKeysRefuseSplits) {
  DriverFixture fixture({
      {"em.dic", "기\t기/ETN 0\n고\t고/EC 400\n지\t지/EC 0\n니\t니/EF 800\n"},
      {"js.dic", "도\t도/JX 0\n"},
  });
  auto splits = [&fixture](const char* utf8, bool rePass) {
    return SplitsOf(fixture, utf8, rePass);
  };
  EXPECT_EQ(splits("먹지도", false), (SplitList{{2, 4}, {4, 0}}));
  EXPECT_EQ(splits("먹고도", false), (SplitList{{4, 0}}));
  EXPECT_EQ(splits("먹기도", false), (SplitList{{4, 0}}));
  EXPECT_EQ(splits("먹니", false), (SplitList{{2, 0}}));
  EXPECT_TRUE(splits("먹니", true).empty());
}

TEST_F(SplitSearchTest, NounWithJosa) {
  Eojul& e = fixture.Run("학교가");
  EXPECT_EQ(Candidates(e), (std::vector<std::string>{"학교/NNG+가/J_"}));
  EXPECT_EQ(e.GetPOS(0, 1), Pos::J_);
  EXPECT_DOUBLE_EQ(e.GetScore(0), 1.0);  // a sole candidate
  EXPECT_EQ(fixture.analyzer.FoundMask() & 0x40800000u, 0x40800000u);
}

TEST_F(SplitSearchTest, JxChainStaysGluedBehindTheFirstReading) {
  Eojul& e = fixture.Run("학교에서도");
  EXPECT_EQ(Candidates(e), (std::vector<std::string>{"학교/NNG+에서도/J_"}));
}

TEST_F(SplitSearchTest, JosaAfterAClosedStemIsRefused) {
  // 를 follows an open stem; 이 does not, so the noun route never runs and
  // the token falls back to the unknown word.
  Eojul& e = fixture.Run("사과를");
  EXPECT_EQ(Candidates(e), (std::vector<std::string>{"사과/NNG+를/J_"}));
  Eojul& refused = fixture.Run("학교이");
  EXPECT_EQ(Candidates(refused), (std::vector<std::string>{"학교이/NNR"}));
}

TEST_F(SplitSearchTest, NounStemEmitsEachClassOfTheWord) {
  Eojul& e = fixture.Run("나는");
  EXPECT_EQ(Candidates(e),
            (std::vector<std::string>{"나/NNG+는/J_", "나/NP+는/J_"}));
  // Both are scored: a noun and a josa were met, so each noun pays 1.35.
  EXPECT_NEAR(e.GetScore(0), (0.6 * (2 * 0.31)) * 0.8 * 1.35 + 0.15, 1e-12);
  EXPECT_NEAR(e.GetScore(1), 0.4 * (2 * 0.31) * 1.35 + 0.15, 1e-12);
}

TEST_F(SplitSearchTest, PredicateWithAPlainEomi) {
  Eojul& e = fixture.Run("먹다");
  ASSERT_EQ(e.GetListSize(), 1);
  EXPECT_EQ(Utf8(e.GetLexicon(0, 0)), "먹");
  EXPECT_EQ(e.GetPOS(0, 0), Pos::VV);
  EXPECT_EQ(Utf8(e.GetLexicon(0, 1)), "다");
  EXPECT_EQ(e.GetPOS(0, 1), Pos::EM);
  EXPECT_NE(fixture.analyzer.FoundMask() & Pos::V_, 0u);

  Eojul& longer = fixture.Run("먹는다");
  EXPECT_EQ(Candidates(longer), (std::vector<std::string>{"먹/VV+는다/EM"}));
}

TEST_F(SplitSearchTest, FusedReadingGivesTheFinalBackToTheEnding) {
  Eojul& e = fixture.Run("간다");
  EXPECT_EQ(Candidates(e), (std::vector<std::string>{"가/VV+ㄴ다/EM"}));
}

TEST_F(SplitSearchTest, NominalisedPredicateBeforeAJosa) {
  // 먹기 is no noun: 기 is read as the ETN of 먹, and no stem is stored.
  Eojul& e = fixture.Run("먹기가");
  EXPECT_EQ(Candidates(e),
            (std::vector<std::string>{"먹/VV+기/ETN+가/J_"}));
  EXPECT_EQ(fixture.analyzer.PendingNounEnding(), 0);
  EXPECT_EQ(fixture.analyzer.NounStage(), 2);
  // 이 may not follow the open 기: no noun route, no stored stem, and the
  // josa below refuses the nominalised reading as well.
  Eojul& refused = fixture.Run("먹기이");
  EXPECT_EQ(Candidates(refused), (std::vector<std::string>{"먹기이/NNR"}));
  EXPECT_EQ(fixture.analyzer.PendingNounEnding(), 0);
}

TEST_F(SplitSearchTest, UnexplainedStemBeforeAJosaIsStored) {
  int result = -1;
  fixture.Analyze("먹어가", kHangul, &result);
  EXPECT_EQ(result, 0);
  ASSERT_EQ(fixture.analyzer.PendingNounEnding(), 1);
  const StemEnd& stem = fixture.analyzer.Pool().stemEnds[0];
  EXPECT_EQ(stem.length, 4);
  ASSERT_NE(stem.reading.text, nullptr);
  EXPECT_EQ(Utf8(stem.reading.text), "가");
}

TEST_F(SplitSearchTest, OpenAFinalSyllableTriesTheAuxiliarySplit) {
  // 가 is an auxiliary after 먹어: the left part waits for re-analysis.
  fixture.Analyze("먹어가", kHangul);
  ASSERT_EQ(fixture.analyzer.AuxTailCount(), 1);
  Eojul& tail = const_cast<Eojul&>(fixture.analyzer.Pool().auxTails[0]);
  EXPECT_EQ(Utf8(tail.GetString()), "먹어");
  EXPECT_EQ(Candidates(tail), (std::vector<std::string>{"가/VX+어/EM"}));
  // The next token starts with empty tables.
  fixture.Analyze("학교가", kHangul);
  EXPECT_EQ(fixture.analyzer.AuxTailCount(), 0);
  EXPECT_EQ(fixture.analyzer.PendingNounEnding(), 0);
}

TEST_F(SplitSearchTest, LevelZeroHoldsTheGluedEnding) {
  Eojul& e = *fixture.analyzer.CurrentEojul();
  e.SetText(Cp949("학교에서도").c_str(), kHangul);
  fixture.analyzer.AnalyzeEojul(e);
  // The last split analysed was 도 after 학교에서, which found nothing: its
  // josa bits are gone from the level, the rest of the mask stays.
  const LevelRec& level = fixture.analyzer.LevelAt(0);
  EXPECT_EQ(Utf8(level.stem.CStr()), "학교에서");
  EXPECT_EQ(Utf8(level.ending.CStr()), "도");
  EXPECT_EQ(level.endingBits, 0u);
}

TEST_F(SplitSearchTest, BareEomiReadings) {
  EXPECT_EQ(Utf8(fixture.analyzer.BareEomi(5).text), "ㄴ");
  EXPECT_EQ(Utf8(fixture.analyzer.BareEomi(9).text), "ㄹ");
  EXPECT_EQ(Utf8(fixture.analyzer.BareEomi(17).text), "ㅁ");
  EXPECT_EQ(fixture.analyzer.BareEomi(19).text, nullptr);
  EXPECT_EQ(fixture.analyzer.BareEomi(1).text, nullptr);
}

TEST_F(SplitSearchTest, CheckJoinRefusesEuAfterAnOpenStem) {
  EXPECT_FALSE(MAnalyzer::CheckJoin(Cp949("가").c_str(), Cp949("으면").c_str()));
  EXPECT_FALSE(MAnalyzer::CheckJoin(Cp949("가").c_str(), Cp949("은").c_str()));
  EXPECT_TRUE(MAnalyzer::CheckJoin(Cp949("먹").c_str(), Cp949("으면").c_str()));
  EXPECT_TRUE(MAnalyzer::CheckJoin(Cp949("가").c_str(), Cp949("면").c_str()));
  EXPECT_FALSE(MAnalyzer::CheckJoin("", Cp949("다").c_str()));
  EXPECT_FALSE(MAnalyzer::CheckJoin(Cp949("가").c_str(), "x"));
}

// The stem form answers as the measuring one on every pair.
TEST_F(SplitSearchTest, CheckJoinOfAStemAnswersAsTheMeasuredText) {
  for (const char* stem : {"가", "먹", "", "가먹", "먹가"}) {
    for (const char* ending : {"으면", "은", "면", "다", "x", ""}) {
      const std::string s = Cp949(stem);
      const std::string t = Cp949(ending);
      EXPECT_EQ(MAnalyzer::CheckJoin(StringEx(s.c_str()), t.c_str()),
                MAnalyzer::CheckJoin(s.c_str(), t.c_str()))
          << stem << " + " << ending;
    }
  }
}

}  // namespace
}  // namespace Quorel
