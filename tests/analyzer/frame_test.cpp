// The analyzer frame: construction and ownership, options and the index
// mask, RunWithEojul on both routes, and the sentence readers.
#include "analyzer/m_analyzer.h"

#include <gtest/gtest.h>

#include <memory>

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {
namespace {

class FrameTest : public ::testing::Test {
 protected:
  FrameTest() : analyzer(&knowledge) {}
  Eojul& Current() { return *analyzer.CurrentEojul(); }

  Dictionary knowledge{false};
  MAnalyzer analyzer;
};

TEST_F(FrameTest, DefaultsAfterConstruction) {
  EXPECT_EQ(Current().indexMask, MAnalyzer::kDefaultIndexMask);
  for (int option = 0; option < MAnalyzer::kExtendedOptionCount; ++option) {
    EXPECT_EQ(analyzer.Option(option), 0) << option;
  }
  EXPECT_EQ(analyzer.GetEojulCountInSentence(), 0);
  EXPECT_EQ(analyzer.GetEojulInSentence(0), nullptr);
}

TEST_F(FrameTest, OptionsOutsideTheCatalogueChangeNothing) {
  analyzer.SetOption(MAnalyzer::kExtendedOptionCount, 1);
  analyzer.SetOption(-1, 1);
  EXPECT_EQ(Current().indexMask, MAnalyzer::kDefaultIndexMask);
  for (int option = 0; option < MAnalyzer::kOptionCount; ++option) {
    EXPECT_EQ(analyzer.Option(option), 0) << option;
  }
}

TEST_F(FrameTest, SecondStageOptionsRaiseTheCandidateCount) {
  analyzer.SetOption(14, 0);
  EXPECT_EQ(analyzer.Option(0), 2);
  analyzer.SetOption(0, 5);
  analyzer.SetOption(15, 1);
  EXPECT_EQ(analyzer.Option(0), 5);  // only when it was 0
}

TEST_F(FrameTest, MaskOptionsKeepTheNounFamily) {
  analyzer.SetOption(7, 1);
  EXPECT_EQ(Current().indexMask & Pos::NNR, Pos::NNR);
  analyzer.SetOption(7, 0);
  EXPECT_EQ(Current().indexMask & 0x10u, 0u);
  EXPECT_NE(Current().indexMask & Pos::N_, 0u);
  analyzer.SetOption(10, static_cast<int>(Pos::N_));
  EXPECT_NE(Current().indexMask & Pos::N_, 0u);  // can't be cleared
  analyzer.SetOption(10, 0x1);
  EXPECT_EQ(Current().indexMask & 0x1u, 0u);
  analyzer.SetOption(9, 0x1);
  EXPECT_EQ(Current().indexMask & 0x1u, 0x1u);
  analyzer.SetOption(3, 1);
  EXPECT_EQ(Current().indexMask & 0x30000180u, 0x30000180u);
  analyzer.SetOption(3, 0);
  EXPECT_EQ(Current().indexMask & 0x30000180u, 0u);
}

TEST_F(FrameTest, ForeignWordLengthOption) {
  Eojul& e = Current();
  e.SetText("t", 0);
  e.BeginCandidate();
  e.AddMorpheme("ab", Pos::FL);
  e.AddMorpheme("abc", Pos::FL);
  e.EndCandidate();
  EXPECT_FALSE(e.IsIndexWord(0, 1));
  analyzer.SetOption(1, 3);
  EXPECT_FALSE(e.IsIndexWord(0, 0));
  EXPECT_TRUE(e.IsIndexWord(0, 1));
  analyzer.SetOption(1, 0);
  EXPECT_FALSE(e.IsIndexWord(0, 1));
  EXPECT_EQ(e.minForeignLength, 0u);
}

TEST_F(FrameTest, CaseAndNumberOptionsReachTheEojul) {
  analyzer.SetOption(12, 1);
  analyzer.SetOption(13, 1);
  EXPECT_TRUE(Current().keepCase);
  EXPECT_TRUE(Current().numberPunctuation);
  analyzer.SetOption(12, 0);
  EXPECT_FALSE(Current().keepCase);
}

TEST_F(FrameTest, ExOptionKeepsTheLowByte) {
  EXPECT_EQ(analyzer.SetExOption(0x105), 5);
}

TEST_F(FrameTest, RunWithEojulGivesEachTokenACandidate) {
  Eojul& e = Current();
  e.SetText("!", EojulType::kSymbol);
  EXPECT_EQ(analyzer.RunWithEojul(), 1);
  ASSERT_EQ(e.GetListSize(), 1);
  EXPECT_STREQ(e.GetStrPOS(0, 0), "SC");
  EXPECT_STREQ(e.GetLexicon(0, 0), "!");

  std::string longToken(300, 'a');
  e.SetText(longToken.c_str(), EojulType::kTooLong | EojulType::kLatin);
  analyzer.RunWithEojul();
  ASSERT_EQ(e.GetListSize(), 1);
  EXPECT_STREQ(e.GetStrPOS(0, 0), "NNR");
}

TEST_F(FrameTest, TwoStageRouteCopiesTheResultBack) {
  analyzer.SetOption(15, 1);
  Eojul& e = Current();
  e.SetText("?", EojulType::kSymbol);
  e.indexMask = 0x77;
  EXPECT_EQ(analyzer.RunWithEojul(), 1);
  ASSERT_EQ(e.GetListSize(), 1);
  EXPECT_STREQ(e.GetStrPOS(0, 0), "SC");
  EXPECT_EQ(e.indexMask, 0x77u);  // CopyFrom leaves the mask
}

TEST(FrameOwnershipTest, NullEojulCannotRunUntilSet) {
  Dictionary knowledge(false);
  MAnalyzer analyzer(&knowledge, nullptr);
  EXPECT_EQ(analyzer.RunWithEojul(), 0);
  Eojul eojul;
  EXPECT_EQ(analyzer.SetEojul(&eojul), 1);
  EXPECT_EQ(eojul.indexMask, MAnalyzer::kDefaultIndexMask);
  eojul.SetText(".", EojulType::kSymbol);
  EXPECT_EQ(analyzer.RunWithEojul(), 1);
  EXPECT_EQ(eojul.GetListSize(), 1);
}

TEST(FrameOwnershipTest, SetEojulResetsOptions) {
  Dictionary knowledge(false);
  std::unique_ptr<QR_Analyzer> analyzer(CreateAnalyzer(&knowledge));
  analyzer->SetOption(0, 3);
  std::unique_ptr<QR_Eojul> eojul(CreateEojul());
  analyzer->SetEojul(eojul.get());
  EXPECT_EQ(static_cast<MAnalyzer*>(analyzer.get())->Option(0), 0);
}

TEST(FrameOwnershipTest, PathAnalyzerOwnsItsKnowledge) {
  // A directory without a compiled file: the load fails, the analyzer still
  // works and frees what it made (checked under the sanitizers).
  std::unique_ptr<QR_Analyzer> analyzer(CreateAnalyzer("/nonexistent-dir"));
  std::unique_ptr<QR_Eojul> eojul(CreateEojul());
  analyzer->SetEojul(eojul.get());
  eojul->SetString("!");
  EXPECT_EQ(analyzer->RunWithEojul(), 1);
  EXPECT_EQ(eojul->GetListSize(), 1);
}

}  // namespace
}  // namespace Quorel
