// RunFile and RunWithString with an output path: lines read from a file,
// tokens printed on the output stream, tagging per line in tagging mode.
#include <gtest/gtest.h>

#include <string>

#include "common/test_support.h"
#include "driver_helpers.h"

namespace Quorel {
namespace testing_driver {
namespace {

using testsupport::TempDir;

TEST(RunFileTest, PrintsEveryTokenOfEveryLine) {
  DriverFixture fixture(SmallKnowledge());
  TempDir dir;
  std::string input = dir.Write("in.txt", "학교에서\n\n먹는다 !\n");
  fixture.analyzer.SetExOption(2);
  EXPECT_EQ(fixture.analyzer.RunFile(input.c_str(), dir.File("out.txt").c_str()), 1);
  std::string out = Utf8(dir.Read("out.txt"));
  EXPECT_NE(out.find("[학교에서]"), std::string::npos) << out;
  EXPECT_NE(out.find("[먹는다]"), std::string::npos) << out;
  EXPECT_NE(out.find("[!]\nOffset : 7\n"), std::string::npos) << out;
  EXPECT_EQ(fixture.analyzer.GetEojulCountInSentence(), 0);  // bit 1 is off
}

TEST(RunFileTest, RawOutputPrintsTheCompactForm) {
  DriverFixture fixture(SmallKnowledge());
  TempDir dir;
  std::string input = dir.Write("in.txt", "학교에서\n");
  fixture.analyzer.SetExOption(2);
  fixture.analyzer.SetRawOutput();
  fixture.analyzer.RunFile(input.c_str(), dir.File("out.txt").c_str());
  std::string out = Utf8(dir.Read("out.txt"));
  EXPECT_EQ(out.rfind("학교에서\tOffset : 0\n", 0), 0u) << out;
}

TEST(RunFileTest, TaggingModeTagsEachLineAndKeepsTheLast) {
  DriverFixture fixture(SmallKnowledge());
  TempDir dir;
  std::string input = dir.Write("in.txt", "나는 학교에서\n나는 먹는다\n");
  fixture.analyzer.SetExOption(1 | 2 | 4);
  fixture.analyzer.RunFile(input.c_str(), dir.File("out.txt").c_str());
  ASSERT_EQ(fixture.analyzer.GetEojulCountInSentence(), 2);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(fixture.analyzer.GetEojulInSentence(i)->GetListSize(), 1);
  }
  std::string out = Utf8(dir.Read("out.txt"));
  EXPECT_NE(out.find("[먹는다]"), std::string::npos) << out;
}

TEST(RunFileTest, RunWithStringToAnOutputFile) {
  TempDir dir;
  {
    DriverFixture fixture(SmallKnowledge());
    fixture.analyzer.SetExOption(3);
    std::string text = Cp949("학교에서 먹는다");
    EXPECT_EQ(fixture.analyzer.RunWithString(text.c_str(),
                                             dir.File("o.txt").c_str()),
              1);
    EXPECT_EQ(fixture.analyzer.GetEojulCountInSentence(), 2);
  }  // the analyzer closes its output stream when it ends
  EXPECT_NE(Utf8(dir.Read("o.txt")).find("[먹는다]"), std::string::npos);
}

}  // namespace
}  // namespace testing_driver
}  // namespace Quorel
