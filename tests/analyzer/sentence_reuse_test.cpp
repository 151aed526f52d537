// The sentence refilled in place run after run: whatever the earlier runs
// left (longer, shorter, tagged sentences, overflowing eojuls), each run's
// sentence reads exactly as a fresh analyzer's.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "driver_helpers.h"
#include "eojul/tag_set.h"

namespace Quorel {
namespace testing_driver {
namespace {

// Count, then per element its surface, offset and candidates.
std::vector<std::string> SentenceOf(MAnalyzer& analyzer) {
  std::vector<std::string> out;
  out.push_back(std::to_string(analyzer.GetEojulCountInSentence()));
  for (int i = 0; i < analyzer.GetEojulCountInSentence(); ++i) {
    Eojul& e = *static_cast<Eojul*>(analyzer.GetEojulInSentence(static_cast<unsigned>(i)));
    std::string line = Utf8(e.GetString()) + "@" + std::to_string(e.GetOffset());
    for (const std::string& c : Candidates(e)) line += " " + c;
    out.push_back(line);
  }
  return out;
}

std::vector<std::string> FreshSentence(const std::string& utf8, int tagging) {
  DriverFixture fresh(SmallKnowledge());
  fresh.analyzer.SetExOption(1);
  const std::string text = Cp949(utf8);
  fresh.analyzer.RunWithString(text.c_str());
  if (tagging >= 0) fresh.analyzer.Tagging(tagging);
  return SentenceOf(fresh.analyzer);
}

TEST(SentenceReuseTest, EachRunReadsAsAFreshAnalyzer) {
  // A long token with many candidates overflows the inline storage.
  std::string many;
  for (int i = 0; i < 12; ++i) many += "학교";
  const std::string texts[] = {
      "나는 학교에서 먹는다 ! 학교 나는",
      "먹는다",
      many + " 나는 " + many + " 학교에서",
      "학교에서 나는",
      "나는 학교에서 먹는다 ! 학교 나는 학교에서 먹는다",
      "!",
  };
  DriverFixture fixture(SmallKnowledge());
  fixture.analyzer.SetExOption(1);
  for (int pass = 0; pass < 2; ++pass) {
    for (const std::string& utf8 : texts) {
      // Tagging on the second pass: the tagger hands back a sentence of
      // its own, which the next run refills.
      const int tagging = pass == 0 ? -1 : 0;
      const std::string text = Cp949(utf8);
      fixture.analyzer.RunWithString(text.c_str());
      if (tagging >= 0) fixture.analyzer.Tagging(tagging);
      EXPECT_EQ(FreshSentence(utf8, tagging), SentenceOf(fixture.analyzer)) << utf8;
    }
  }
}

TEST(SentenceReuseTest, NotKeepingTheSentenceEmptiesIt) {
  DriverFixture fixture(SmallKnowledge());
  fixture.analyzer.SetExOption(1);
  const std::string text = Cp949("나는 학교에서 먹는다");
  fixture.analyzer.RunWithString(text.c_str());
  ASSERT_EQ(3, fixture.analyzer.GetEojulCountInSentence());
  fixture.analyzer.SetExOption(0);
  fixture.analyzer.RunWithString(text.c_str());
  EXPECT_EQ(0, fixture.analyzer.GetEojulCountInSentence());
  EXPECT_EQ(nullptr, fixture.analyzer.GetEojulInSentence(0));
  // An empty text leaves the last sentence as it was.
  fixture.analyzer.SetExOption(1);
  fixture.analyzer.RunWithString(text.c_str());
  fixture.analyzer.RunWithString("");
  EXPECT_EQ(3, fixture.analyzer.GetEojulCountInSentence());
}

TEST(SentenceReuseTest, ElementsPastAShorterSentenceAreOutOfReach) {
  DriverFixture fixture(SmallKnowledge());
  fixture.analyzer.SetExOption(1);
  const std::string longer = Cp949("나는 학교에서 먹는다 학교");
  const std::string shorter = Cp949("먹는다");
  fixture.analyzer.RunWithString(longer.c_str());
  ASSERT_EQ(4, fixture.analyzer.GetEojulCountInSentence());
  fixture.analyzer.RunWithString(shorter.c_str());
  EXPECT_EQ(1, fixture.analyzer.GetEojulCountInSentence());
  EXPECT_NE(nullptr, fixture.analyzer.GetEojulInSentence(0));
  EXPECT_EQ(nullptr, fixture.analyzer.GetEojulInSentence(1));
  EXPECT_EQ(-1, fixture.analyzer.GetEojulOffsetInSentence(1));
  // The tagger sees the one eojul of this run, not the storage behind it.
  fixture.analyzer.Tagging(0);
  EXPECT_EQ(1, fixture.analyzer.GetEojulCountInSentence());
  EXPECT_EQ(FreshSentence("먹는다", 0), SentenceOf(fixture.analyzer));
}

// A kept eojul is analysed under the settings of the analyzer's current
// eojul, and then reads as the copy of its result: every candidate in view
// whatever the top list, the index mask and minima of the current eojul.
TEST(SentenceReuseTest, KeptEojulsReadAsCopiesOfTheCurrentOne) {
  DriverFixture all(SmallKnowledge());
  all.analyzer.SetExOption(1);
  all.analyzer.SetOption(0, 0);
  DriverFixture top(SmallKnowledge());
  top.analyzer.SetExOption(1);
  top.analyzer.SetOption(0, 1);
  const std::string text = Cp949("나는 학교에서");
  all.analyzer.RunWithString(text.c_str());
  top.analyzer.RunWithString(text.c_str());
  EXPECT_EQ(SentenceOf(all.analyzer), SentenceOf(top.analyzer));
  EXPECT_GT(top.analyzer.GetEojulInSentence(0)->GetListSize(), 1);

  // Option 13 joins the number and its point.
  top.analyzer.SetOption(13, 1);
  top.analyzer.RunWithString("3.14 x");
  ASSERT_EQ(2, top.analyzer.GetEojulCountInSentence());
  QR_Eojul* number = top.analyzer.GetEojulInSentence(0);
  EXPECT_EQ("3.14", std::string(number->GetLexicon(0, 0)));
  EXPECT_EQ(Pos::SN | 64, number->GetPOS(0, 0));

  // Foreign words of three bytes or more are index words.
  top.analyzer.SetOption(1, 3);
  top.analyzer.RunWithString("ab abc");
  ASSERT_EQ(2, top.analyzer.GetEojulCountInSentence());
  EXPECT_FALSE(top.analyzer.GetEojulInSentence(0)->IsIndexWord(0, 0));
  EXPECT_TRUE(top.analyzer.GetEojulInSentence(1)->IsIndexWord(0, 0));
}

TEST(SentenceReuseTest, TheCurrentEojulIsEmptyAfterARun) {
  DriverFixture fixture(SmallKnowledge());
  Eojul& current = fixture.Run("학교에서");
  ASSERT_GT(current.GetListSize(), 0);
  fixture.analyzer.SetExOption(1);
  const std::string text = Cp949("나는");
  fixture.analyzer.RunWithString(text.c_str());
  EXPECT_EQ(0, current.GetListSize());
  EXPECT_STREQ("", current.GetString());
}

}  // namespace
}  // namespace testing_driver
}  // namespace Quorel
