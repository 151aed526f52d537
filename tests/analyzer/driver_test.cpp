// The eojul cascade: the early routes (overlong, pre-analysis, symbols,
// cut double-byte text), the sub-token re-entry, and the fall-back.
#include <gtest/gtest.h>

#include <string>

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

std::map<std::string, std::string> WithPreAnalysis() {
  std::map<std::string, std::string> files = SmallKnowledge();
  files["preanal.sys.dic"] =
      "갔다\t가/VV+았/EP+다/EF@갈/VV+았/EP+다/EF@가/NNG+ㅆ다/UW\n"
      "나는\t나/NP+는/JX\n";
  return files;
}

TEST(DriverTest, PreAnalysisCandidatesScoreDownFromTheirCount) {
  DriverFixture fixture(WithPreAnalysis());
  Eojul& e = fixture.Run("갔다");
  EXPECT_EQ(Candidates(e), (std::vector<std::string>{
                               "가/VV+았/EP+다/EM", "갈/VV+았/EP+다/EM",
                               "가/NNG+ㅆ다/UW"}));
  // Scoring leaves the stored scores alone.
  EXPECT_DOUBLE_EQ(e.GetScore(0), 3.0);
  EXPECT_DOUBLE_EQ(e.GetScore(1), 2.0);
  EXPECT_DOUBLE_EQ(e.GetScore(2), 1.0);
}

TEST(DriverTest, PreAnalysisWinsOverTheDictionaryRoutes) {
  DriverFixture fixture(WithPreAnalysis());
  Eojul& e = fixture.Run("나는");
  EXPECT_EQ(Candidates(e), (std::vector<std::string>{"나/NP+는/J_"}));
  EXPECT_DOUBLE_EQ(e.GetScore(0), 1.0);
}

TEST(DriverTest, RawOutputIgnoresThePreAnalysis) {
  DriverFixture fixture(WithPreAnalysis());
  fixture.analyzer.SetRawOutput();
  Eojul& e = fixture.Run("나는");
  EXPECT_EQ(Candidates(e),
            (std::vector<std::string>{"나/NNG+는/J_", "나/NP+는/J_"}));
}

TEST(DriverTest, SubTokenSkipsThePreAnalysisAndTheFallback) {
  DriverFixture fixture(WithPreAnalysis());
  // A re-analysis runs no josa route, and the pre-analysed entry is not
  // read: nothing stands, and there is no fall-back either.
  int result = -1;
  Eojul& e = fixture.Analyze("나는", EojulType::kSubToken | kHangul, &result);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(e.GetListSize(), 0);
  Eojul& verb = fixture.Analyze("먹다", EojulType::kSubToken | kHangul, &result);
  EXPECT_EQ(result, 1);
  EXPECT_EQ(Candidates(verb), (std::vector<std::string>{"먹/VV+다/EM"}));
  Eojul& unknown =
      fixture.Analyze("가나다", EojulType::kSubToken | kHangul, &result);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(unknown.GetListSize(), 0);
}

TEST(DriverTest, SymbolTokensAreSC) {
  DriverFixture fixture(SmallKnowledge());
  int result = -1;
  Eojul& e = fixture.Analyze("!", EojulType::kSymbol, &result);
  EXPECT_EQ(result, 1);
  EXPECT_EQ(Candidates(e), (std::vector<std::string>{"!/SC"}));
  Eojul& inner = fixture.Analyze("…", EojulType::kInnerSymbol, &result);
  EXPECT_EQ(result, 1);
  EXPECT_EQ(Candidates(inner), (std::vector<std::string>{"…/SC"}));
  // Hangul with symbols has bit 4 too and goes on to the dictionary routes.
  Eojul& mixed = fixture.Analyze("학교가", kHangul | EojulType::kSymbol, &result);
  EXPECT_EQ(Candidates(mixed), (std::vector<std::string>{"학교/NNG+가/J_"}));
}

TEST(DriverTest, OverlongTokenGetsOnlyItsSurface) {
  DriverFixture fixture(WithPreAnalysis());
  std::string longToken;
  for (int i = 0; i < 130; ++i) longToken += "나";
  int result = -1;
  Eojul& e = fixture.Analyze(longToken, EojulType::kTooLong | kHangul, &result);
  EXPECT_EQ(result, 1);
  ASSERT_EQ(e.GetListSize(), 1);
  EXPECT_EQ(e.GetPOS(0, 0), Pos::NNR);
  EXPECT_EQ(Utf8(e.GetLexicon(0, 0)), longToken);
  // Even a pre-analysed surface is not looked up.
  Eojul& pre = fixture.Analyze("갔다", EojulType::kTooLong, &result);
  EXPECT_EQ(Candidates(pre), (std::vector<std::string>{"갔다/NNR"}));
}

TEST(DriverTest, HalfCharacterTokenIsAnUnregisteredNoun) {
  DriverFixture fixture(SmallKnowledge());
  int result = -1;
  std::string cut = Cp949("학교");
  cut.pop_back();
  Eojul& e = *fixture.analyzer.CurrentEojul();
  e.SetText(cut.c_str(), kHangul | EojulType::kHalfChar);
  result = fixture.analyzer.AnalyzeEojul(e);
  EXPECT_EQ(result, 0);
  ASSERT_EQ(e.GetListSize(), 1);
  EXPECT_EQ(e.GetPOS(0, 0), Pos::NNR);
  EXPECT_STREQ(e.GetLexicon(0, 0), cut.c_str());
}

TEST(DriverTest, UnexplainedTokenFallsBackToItsSurface) {
  DriverFixture fixture(SmallKnowledge());
  int result = -1;
  Eojul& e = fixture.Analyze("뷁뷁", kHangul, &result);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Candidates(e), (std::vector<std::string>{"뷁뷁/NNR"}));
}

TEST(DriverTest, FlushScoresEachTokenOfALine) {
  DriverFixture fixture(SmallKnowledge());
  fixture.analyzer.SetExOption(ExOption::kKeepSentence);
  fixture.analyzer.RunWithString(Cp949("나는 학교에서도 먹다").c_str());
  ASSERT_EQ(fixture.analyzer.GetEojulCountInSentence(), 3);
  QR_Eojul* first = fixture.analyzer.GetEojulInSentence(0);
  ASSERT_EQ(first->GetListSize(), 2);
  EXPECT_GT(first->GetScore(0), first->GetScore(1));
  EXPECT_DOUBLE_EQ(fixture.analyzer.GetEojulInSentence(1)->GetScore(0), 1.0);
}

}  // namespace
}  // namespace Quorel
