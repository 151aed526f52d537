// Option 20: an eojul that the cascade leaves as one unknown word gives up
// the josa at its end, and only then.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "analyzer/driver_helpers.h"

namespace Quorel {
namespace {

using testing_driver::Candidates;
using testing_driver::DriverFixture;
using testing_driver::SmallKnowledge;

struct Case {
  const char* eojul;
  const char* withOption;  // the one candidate with option 20 on
};

// In the small knowledge 가 follows only an open syllable.
const Case kCases[] = {
    {"쿠팡에서", "쿠팡/NNR+에서/J_"},          // the josa goes
    {"컨페더레이션에서", "컨페더레이션/NNR+에서/J_"},
    {"쿠팡가", "쿠팡가/NNR"},                  // 가 does not follow 팡
    {"코로나가", "코로나/NNR+가/J_"},
    {"팡에서", "팡에서/NNR"},                  // the stem keeps two syllables
    {"쿠팡", "쿠팡/NNR"},                      // no josa at all
    {"학교에서", "학교/NNG+에서/J_"},          // known words are not touched
};

TEST(UnknownEndingTest, TheJosaOfAnUnknownWordGoesOnlyWithTheOption) {
  DriverFixture fixture(SmallKnowledge());
  for (const Case& c : kCases) {
    fixture.analyzer.SetOption(20, 0);
    Eojul& plain = fixture.Run(c.eojul);
    const std::vector<std::string> off = Candidates(plain);
    fixture.analyzer.SetOption(20, 1);
    Eojul& e = fixture.Run(c.eojul);
    EXPECT_EQ(Candidates(e), std::vector<std::string>{c.withOption}) << c.eojul;
    EXPECT_STREQ(e.GetString(), testing_driver::Cp949(c.eojul).c_str()) << c.eojul;
    // Without the option the library answers as it always did: where the
    // option changes the answer, the eojul was one unknown word.
    if (off != std::vector<std::string>{c.withOption}) {
      EXPECT_EQ(off, std::vector<std::string>{std::string(c.eojul) + "/NNR"})
          << c.eojul;
    }
  }
}

std::map<std::string, std::string> WithSuffixes() {
  std::map<std::string, std::string> files = SmallKnowledge();
  files["xsn.dic"] = "들\n";
  files["js.dic"] += "의\t의/JKG 0\n";
  return files;
}

// The stem of an unknown word is read as known words when it is plainly
// made of them, and an unknown piece takes the known pieces behind it.
const Case kStems[] = {
    {"도서관사과에서", "도서관/NNG+사과/NNG+에서/J_"},  // two known nouns
    {"도서관들에서", "도서관/NNG+들/XSN+에서/J_"},      // a noun and a suffix
    {"쿠팡사과의", "쿠팡사과/NNR+의/J_"},              // unknown + known: one word
    {"학교쿠팡에서도", "학교쿠팡/NNR+에서도/J_"},      // a josa chain goes whole
    {"쿠팡에서의", "쿠팡/NNR+에서의/J_"},
};

TEST(UnknownEndingTest, TheStemIsReadAsTheKnownWordsItIsMadeOf) {
  DriverFixture fixture(WithSuffixes());
  fixture.analyzer.SetOption(20, 1);
  for (const Case& c : kStems) {
    EXPECT_EQ(Candidates(fixture.Run(c.eojul)), std::vector<std::string>{c.withOption})
        << c.eojul;
  }
}

TEST(UnknownEndingTest, TheOffsetAndScoreOfTheEojulStay) {
  DriverFixture fixture(SmallKnowledge());
  fixture.analyzer.SetOption(20, 0);
  Eojul& before = fixture.Run("쿠팡에서");
  const double score = before.GetScore(0);
  fixture.analyzer.SetOption(20, 1);
  Eojul& e = fixture.Run("쿠팡에서");
  EXPECT_DOUBLE_EQ(e.GetScore(0), score);
  EXPECT_EQ(e.GetCount(0), 2);
}

TEST(UnknownEndingTest, TheScannedTextGivesUpTheJosaToo) {
  DriverFixture fixture(SmallKnowledge());
  fixture.analyzer.SetOption(20, 1);
  fixture.analyzer.SetExOption(1);
  ASSERT_EQ(fixture.analyzer.RunWithString(
                testing_driver::Cp949("학교 쿠팡에서 쿠팡에서").c_str()), 1);
  ASSERT_EQ(fixture.analyzer.GetEojulCountInSentence(), 3);
  for (int i = 1; i < 3; ++i) {  // the second one comes from the token memo
    Eojul& e = *static_cast<Eojul*>(fixture.analyzer.GetEojulInSentence(i));
    EXPECT_EQ(Candidates(e), std::vector<std::string>{"쿠팡/NNR+에서/J_"}) << i;
    EXPECT_EQ(fixture.analyzer.GetEojulOffsetInSentence(i), i == 1 ? 5 : 14);
  }
}

}  // namespace
}  // namespace Quorel
