// The post passes as the run pipelines call them.
#include <gtest/gtest.h>

#include "driver_helpers.h"

namespace Quorel {
namespace testing_driver {
namespace {

std::map<std::string, std::string> NumberUnitKnowledge() {
  std::map<std::string, std::string> files = SmallKnowledge();
  files["preanal.sys.dic"] = "3개\t3/SN+개/NNB\n";
  return files;
}

TEST(PipelinePassesTest, NumberUnitPassOffersTheJoinedForm) {
  DriverFixture fixture(NumberUnitKnowledge());
  Eojul& plain = fixture.Run("3개");
  EXPECT_EQ(Candidates(plain), (std::vector<std::string>{"3/SN+개/NNB"}));
  fixture.analyzer.SetOption(11, 1);
  Eojul& joined = fixture.Run("3개");
  EXPECT_EQ(Candidates(joined),
            (std::vector<std::string>{"3/SN+개/NNB", "3개/NNG"}));
  EXPECT_GT(joined.GetScore(1), joined.GetScore(0));
}

TEST(PipelinePassesTest, OffsetPassRunsOnBothRoutes) {
  DriverFixture fixture(NumberUnitKnowledge());
  fixture.analyzer.SetOption(16, 1);
  Eojul& e = fixture.Run("3개");
  ASSERT_EQ(e.GetCount(0), 2);
  EXPECT_EQ(e.GetStartOffset(0, 0), 0);
  EXPECT_EQ(e.GetEndOffset(0, 0), 1);
  EXPECT_EQ(e.GetStartOffset(0, 1), 1);
  EXPECT_EQ(e.GetEndOffset(0, 1), 3);
  fixture.analyzer.SetOption(14, 1);  // the two-stage route
  Eojul& again = fixture.Run("3개");
  EXPECT_EQ(again.GetEndOffset(0, 1), 3);
}

TEST(PipelinePassesTest, CompoundRunPassOnTheTwoStageRoute) {
  DriverFixture fixture(NumberUnitKnowledge());
  fixture.analyzer.SetOption(15, 1);
  Eojul& e = fixture.Run("3개");
  // SN and NNB are both joinable: one compound noun.
  EXPECT_EQ(Candidates(e), (std::vector<std::string>{"3개/NNC"}));
}

}  // namespace
}  // namespace testing_driver
}  // namespace Quorel

namespace Quorel {
namespace testing_driver {
namespace {

TEST(PipelineTaggingTest, TaggingLeavesOneCandidatePerEojul) {
  DriverFixture fixture(SmallKnowledge());
  MAnalyzer& analyzer = fixture.analyzer;
  analyzer.SetExOption(1);
  std::string text = Cp949("나는 학교에서 먹는다. 3개");
  analyzer.RunWithString(text.c_str());
  int count = analyzer.GetEojulCountInSentence();
  ASSERT_GT(count, 3);
  bool several = false;
  for (int i = 0; i < count; ++i) {
    several = several || analyzer.GetEojulInSentence(i)->GetListSize() > 1;
  }
  EXPECT_TRUE(several) << "the sentence should offer a choice to the tagger";
  for (int mode : {0, 1}) {
    analyzer.RunWithString(text.c_str());
    analyzer.Tagging(mode);
    ASSERT_EQ(analyzer.GetEojulCountInSentence(), count) << mode;
    for (int i = 0; i < count; ++i) {
      QR_Eojul* e = analyzer.GetEojulInSentence(i);
      EXPECT_EQ(e->GetListSize(), 1) << mode << " " << i;
      EXPECT_GE(e->GetStartOffset(0, 0), 0) << "offsets follow tagging";
    }
  }
}

TEST(PipelineTaggingTest, WrongModeChangesNothing) {
  DriverFixture fixture(SmallKnowledge());
  MAnalyzer& analyzer = fixture.analyzer;
  analyzer.SetExOption(1);
  analyzer.RunWithString(Cp949("나는 학교에서").c_str());
  int before = analyzer.GetEojulInSentence(0)->GetListSize();
  ::testing::internal::CaptureStderr();
  analyzer.Tagging(2);
  std::string message = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(message.find("Wrong tagging mode. Select tagging mode 0 or 1."),
            std::string::npos);
  EXPECT_EQ(analyzer.GetEojulInSentence(0)->GetListSize(), before);
}

}  // namespace
}  // namespace testing_driver
}  // namespace Quorel
