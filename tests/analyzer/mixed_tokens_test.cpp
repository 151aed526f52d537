// Mixed tokens: digits, Latin letters, symbols and user nouns inside one
// token, the counters and josa of the Hangul runs beside them, and whole
// sentences with such tokens through the scanner.
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "analyzer/driver_helpers.h"
#include "common/test_support.h"
#include "eojul/tag_set.h"

namespace Quorel {
namespace {

using testing_driver::Candidates;
using testing_driver::Cp949;
using testing_driver::DriverFixture;
using testing_driver::Utf8;
using Texts = std::vector<std::string>;

std::map<std::string, std::string> MixedKnowledge() {
  return {
      {"nng.dic", "학교\n사과\n전자\n한국\n"},
      {"np.dic", "나\n"},
      // Bit 1 of the number: a counter after a written number.
      {"nnb.dic", "개\t1\n명\t1\n년\t1\n것\t0\n"},
      {"nu.dic", "천\t1\n"},
      {"vv.dic", "먹\n"},
      // 다 may follow the copula 이 (attach 1).
      {"em.dic", "다\t다/EF 1#ㄴ다/EF 0 5\n"},
      {"js.dic", "가\t가/JK 2\n이\t이/JK 1\n에서\t에서/JK 0\n에\t에/JK 0\n"
                 "를\t를/JK 2\n을\t을/JK 1\n"},
      {"xsn.dic", "씩\n"},
  };
}

// The user nouns, loaded from a file of their own after the knowledge.
const char kUserNouns[] =
    "lg전자\t4@22\n"  // whole, or two pieces
    "ibm\t0\n"
    "sk\t11\n"
    "k리그\tX2\n"     // a prefix piece and a noun
    "x가\t1Z\n"       // Z is no command
    "삼성\t2\n";      // plain Hangul: never a foreign hit

class MixedTest : public ::testing::Test {
 protected:
  MixedTest() : fixture(MixedKnowledge()) {}

  void LoadUserNouns() {
    userDir.Write("user.dic", kUserNouns);
    ASSERT_EQ(fixture.knowledge.LoadUserNoun(userDir.Path().c_str(),
                                             "user.dic", false),
              1);
  }

  Texts Run(const std::string& utf8) { return Candidates(fixture.Run(utf8)); }

  DriverFixture fixture;
  testsupport::TempDir userDir;
};

TEST_F(MixedTest, DigitsAloneAreOneNumber) {
  Eojul& e = fixture.Run("2024");
  EXPECT_EQ(Candidates(e), Texts{"2024/SN"});
  EXPECT_EQ(e.GetPOS(0, 0), Pos::SN);
  EXPECT_DOUBLE_EQ(e.GetScore(0), 1.0);
}

TEST_F(MixedTest, NumberPunctuationUnderOption13) {
  fixture.analyzer.SetOption(13, 1);
  Eojul& decimal = fixture.Run("3.14");
  EXPECT_EQ(Candidates(decimal), Texts{"3.14/SN"});
  EXPECT_EQ(decimal.GetPOS(0, 0), Pos::SN | 64);
  Eojul& thousands = fixture.Run("1,000,000");
  EXPECT_EQ(Candidates(thousands), Texts{"1,000,000/SN"});
  EXPECT_EQ(thousands.GetPOS(0, 0), Pos::SN | 0x8000);
  // Two points: each sees the other, so both are symbols.
  EXPECT_EQ(Run("3.14.15"), (Texts{"3/SN+./SC+14/SN+./SC+15/SN"}));
  // Four digits before a comma: no thousands group.
  EXPECT_EQ(Run("1,2345"), (Texts{"1/SN+,/SC+2345/SN"}));
  // A decimal point inside a token with another symbol joins its number.
  Eojul& percent = fixture.Run("3.5%");
  EXPECT_EQ(Candidates(percent), (Texts{"3.5/SN+%/SC"}));
  EXPECT_EQ(percent.GetPOS(0, 0), Pos::SN | 64);
}

TEST_F(MixedTest, WithoutOption13PointsAreSymbols) {
  Eojul& e = fixture.Run("3.14");
  EXPECT_EQ(Candidates(e), (Texts{"3/SN+./SC+14/SN"}));
  EXPECT_EQ(e.GetPOS(0, 0), Pos::SN);
}

TEST_F(MixedTest, LatinWordsAreForeign) {
  EXPECT_EQ(Run("abc"), Texts{"abc/FL"});
  EXPECT_EQ(Run("ABC"), Texts{"abc/FL"});  // folded by the scanner
  fixture.analyzer.SetOption(12, 1);
  EXPECT_EQ(Run("ABC"), Texts{"ABC/FL"});
}

TEST_F(MixedTest, LatinAndDigitsAlternate) {
  EXPECT_EQ(Run("abc123"), (Texts{"abc/FL+123/SN"}));
  EXPECT_EQ(Run("mp3"), (Texts{"mp/FL+3/SN"}));
  EXPECT_EQ(Run("3d"), (Texts{"3/SN+d/FL"}));
}

TEST_F(MixedTest, LatinWithJosa) {
  EXPECT_EQ(Run("IBM에서"), (Texts{"ibm/FL+에서/J_"}));
  EXPECT_EQ(Run("abc가"), (Texts{"abc/FL+가/J_"}));
  // A longer Hangul run is analysed as a word of its own.
  EXPECT_EQ(Run("IBM학교에서"), (Texts{"ibm/FL+학교/NNG+에서/J_"}));
}

TEST_F(MixedTest, CountersAfterNumbers) {
  EXPECT_EQ(Run("3개"), (Texts{"3/SN+개/NNB"}));
  EXPECT_EQ(Run("10명"), (Texts{"10/SN+명/NNB"}));
  EXPECT_EQ(Run("5천"), (Texts{"5/SN+천/NU"}));
  EXPECT_EQ(Run("10여"), (Texts{"10/SN+여/XSN"}));
}

TEST_F(MixedTest, CounterWithJosaOrSuffix) {
  EXPECT_EQ(Run("3개를"), (Texts{"3/SN+개/NNB+를/J_"}));
  EXPECT_EQ(Run("10명이"), (Texts{"10/SN+명/NNB+이/J_"}));
  EXPECT_EQ(Run("2024년에"), (Texts{"2024/SN+년/NNB+에/J_"}));
  EXPECT_EQ(Run("5개씩"), (Texts{"5/SN+개/NNB+씩/XSN"}));
  // A suffix between the counter and its josa.
  EXPECT_EQ(Run("5개씩을"), (Texts{"5/SN+개/NNB+씩/XSN+을/J_"}));
  // A noun after the number is no counter: the run is a word of its own.
  EXPECT_EQ(Run("3사과를"), (Texts{"3/SN+사과/NNG+를/J_"}));
}

TEST_F(MixedTest, CopulaAfterANumber) {
  // 이 with an eomi that may follow the copula.
  EXPECT_EQ(Run("3이다"), (Texts{"3/SN+이/VC+다/EM"}));
  // 인 alone: the copula with the bare eomi of its final.
  Eojul& e = fixture.Run("3인");
  ASSERT_EQ(e.GetListSize(), 1);
  ASSERT_EQ(e.GetCount(0), 3);
  EXPECT_EQ(Utf8(e.GetLexicon(0, 1)), "이");
  EXPECT_EQ(e.GetPOS(0, 1), Pos::VC);
  EXPECT_EQ(Utf8(e.GetLexicon(0, 2)), "ㄴ");
}

TEST_F(MixedTest, SymbolsInsideTokens) {
  EXPECT_EQ(Run("A/S"), (Texts{"a/FL+//SC+s/FL"}));
  EXPECT_EQ(Run("3-4"), (Texts{"3/SN+-/SC+4/SN"}));
  EXPECT_EQ(Run("C++"), (Texts{"c/FL+++/SC"}));  // one run of symbols
  EXPECT_EQ(Run("ab·cd"), (Texts{"ab/FL+·/SC+cd/FL"}));
  // Bare jamo form a run of their own.
  EXPECT_EQ(Run("abㅋㅋ"), (Texts{"ab/FL+ㅋㅋ/NNR"}));
}

TEST_F(MixedTest, HanjaIsReadAsHangul) {
  // The scanner reads 韓國 as 한국 before any route sees the token.
  Eojul& e = fixture.Run("韓國3");
  EXPECT_EQ(Utf8(e.GetString()), "한국3");
  EXPECT_EQ(Candidates(e), (Texts{"한국/NNG+3/SN"}));
}

TEST_F(MixedTest, ForeignOnlyUserNounSearch) {
  LoadUserNouns();
  StringEx text(Cp949("삼성lg전자").c_str());
  ASSERT_EQ(fixture.analyzer.FindUserNouns(text.CStr(), text.Length()), 1);
  const SearchInfo& hit = fixture.analyzer.UserNounHits()[0];
  EXPECT_EQ(hit.start, 4);  // after 삼성, which is plain Hangul
  EXPECT_EQ(hit.end, 10);
  EXPECT_STREQ(hit.nnuText, "4@22");
  // A hit never starts inside a Latin run.
  StringEx inside(Cp949("xlg전자").c_str());
  EXPECT_EQ(fixture.analyzer.FindUserNouns(inside.CStr(), inside.Length()), 0);
  // After a digit run it may.
  StringEx digits(Cp949("12lg전자").c_str());
  ASSERT_EQ(fixture.analyzer.FindUserNouns(digits.CStr(), digits.Length()), 1);
  EXPECT_EQ(fixture.analyzer.UserNounHits()[0].start, 2);
}

TEST_F(MixedTest, UserNounPatternGivesAlternatives) {
  LoadUserNouns();
  EXPECT_EQ(Run("LG전자"), (Texts{"lg전자/NNU", "lg/NNU+전자/NNU"}));
  // What follows is joined after each alternative.
  EXPECT_EQ(Run("LG전자가"),
            (Texts{"lg전자/NNU+가/J_", "lg/NNU+전자/NNU+가/J_"}));
  // After a number: the number before each alternative.
  EXPECT_EQ(Run("3LG전자"),
            (Texts{"3/SN+lg전자/NNU", "3/SN+lg/NNU+전자/NNU"}));
  // One user noun right after another.
  EXPECT_EQ(Run("LG전자IBM"),
            (Texts{"lg전자/NNU+ibm/NNU", "lg/NNU+전자/NNU+ibm/NNU"}));
}

TEST_F(MixedTest, LatinUserNouns) {
  LoadUserNouns();
  EXPECT_EQ(Run("IBM"), Texts{"ibm/NNU"});
  EXPECT_EQ(Run("IBM에서"), (Texts{"ibm/NNU+에서/J_"}));
  // A Latin entry with a pattern is cut by it.
  EXPECT_EQ(Run("SK"), (Texts{"s/NNU+k/NNU"}));
  // One more Latin letter: the noun would cut the run, so it is no hit.
  EXPECT_EQ(Run("skx"), Texts{"skx/FL"});
}

TEST_F(MixedTest, PatternCommandsGiveTheirClasses) {
  LoadUserNouns();
  Eojul& e = fixture.Run("K리그");
  EXPECT_EQ(Candidates(e), (Texts{"k/XP+리그/NNU"}));
}

TEST_F(MixedTest, WrongPatternCommandIsReported) {
  LoadUserNouns();
  std::ostringstream log;
  std::streambuf* saved = std::clog.rdbuf(log.rdbuf());
  Eojul& e = fixture.Run("x가");
  std::clog.rdbuf(saved);
  // What stood before the bad command stays.
  EXPECT_EQ(Candidates(e), Texts{"x/NNU"});
  EXPECT_NE(log.str().find("This is a wrong information of this entry in the "
                           "usernoun dictionary.\n"),
            std::string::npos);
  EXPECT_NE(log.str().find(Cp949("x가")), std::string::npos);
}

TEST_F(MixedTest, SentencesGiveEveryTokenACandidate) {
  LoadUserNouns();
  fixture.analyzer.SetExOption(ExOption::kKeepSentence);
  fixture.analyzer.SetOption(13, 1);
  const char* sentences[] = {
      "IBM에서 3개를 샀다.", "LG전자가 2024년에 10명을 뽑았다",
      "가격은 3.5% 올라 1,000,000원이 됐다", "K리그 A/S 센터 3-4층",
      "韓國3 abcㅋㅋ mp3를 x가"};
  for (const char* sentence : sentences) {
    const std::string cp949 = Cp949(sentence);
    std::ostringstream log;  // x가 reports its entry
    std::streambuf* saved = std::clog.rdbuf(log.rdbuf());
    const int ran = fixture.analyzer.RunWithString(cp949.c_str());
    std::clog.rdbuf(saved);
    ASSERT_EQ(ran, 1);
    const int count = fixture.analyzer.GetEojulCountInSentence();
    ASSERT_GE(count, 4) << sentence;
    for (int k = 0; k < count; ++k) {
      Eojul& e = *static_cast<Eojul*>(
          fixture.analyzer.GetEojulInSentence(static_cast<unsigned>(k)));
      ASSERT_GE(e.GetListSize(), 1) << Utf8(e.GetString());
      for (int c = 0; c < e.GetListSize(); ++c) {
        EXPECT_GE(e.GetCount(c), 1) << Utf8(e.GetString());
        EXPECT_GT(e.GetScore(c), 0.0) << Utf8(e.GetString());
      }
    }
  }
}

}  // namespace
}  // namespace Quorel
