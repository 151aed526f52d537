// The qrl sub-commands beside analysis, run as a separate process: compile a
// tiny source directory and analyse with the result, scramble a synonym
// file and look words up in it, and look words up in a stop-word list.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cli/run_helpers.h"

namespace clitest {
namespace {

namespace fs = std::filesystem;

class KnowledgeCommandsTest : public testing::Test {
 protected:
  // A source directory in the knowledge format (CP949): a few nouns and
  // the system's pre-analysis list, which the compiled file takes in.
  std::string WriteSources(const std::string& name) {
    dir.Write(name + "/nng.dic", ToCp949("학교\n하늘\n"));
    dir.Write(name + "/preanal.sys.dic", ToCp949("먹다\t먹/VV+다/EP\n"
                                                 "서울\t서울/NNP@서/NNG+울/NNG\n"));
    return dir.Path() + "/" + name;
  }

  ScratchDir dir;
};

TEST_F(KnowledgeCommandsTest, CompiledKnowledgeIsUsedForAnalysis) {
  std::string sources = WriteSources("src");
  std::string out = dir.Path() + "/out";
  RunResult compile = RunQrl({"compile", sources, out}, "", dir.Path());
  ASSERT_EQ(0, compile.status) << compile.err;
  ASSERT_TRUE(fs::is_regular_file(out + "/qrl.klg"));
  EXPECT_GT(fs::file_size(out + "/qrl.klg"), 67u);  // more than the header

  RunResult run = RunQrl({"-k", out, "-f", "tsv", "-n", "0"}, "서울 먹다\n", dir.Path());
  EXPECT_EQ(0, run.status) << run.err;
  EXPECT_EQ("서울\t서울/NNP\t서/NNG+울/NNG\n먹다\t먹/VV+다/EP\n", run.out);
}

TEST_F(KnowledgeCommandsTest, CompileDefaultsToTheSourceDirectory) {
  std::string sources = WriteSources("knowledge");
  RunResult compile = RunQrl({"compile", "knowledge"}, "", dir.Path());
  ASSERT_EQ(0, compile.status) << compile.err;
  ASSERT_TRUE(fs::is_regular_file(sources + "/qrl.klg"));

  // Found as knowledge/qrl.klg under the current directory, unasked.
  RunResult run = RunQrl({"-f", "tsv"}, "먹다\n", dir.Path());
  EXPECT_EQ(0, run.status) << run.err;
  EXPECT_EQ("먹다\t먹/VV+다/EP\n", run.out);
  EXPECT_EQ(std::string::npos, run.err.find("no knowledge"));
}

TEST_F(KnowledgeCommandsTest, CompileOfAMissingDirectoryFails) {
  RunResult run = RunQrl({"compile", dir.Path() + "/nothing"}, "", dir.Path());
  EXPECT_EQ(1, run.status);
  EXPECT_NE(std::string::npos, run.err.find("nothing"));
  EXPECT_FALSE(fs::exists(dir.Path() + "/nothing"));
}

// Synonym groups, UTF-8: 학원 stands in two groups, 창공 carries a mark,
// and a blank is written with the word delimiter "_".
const char kSynonyms[] =
    "학교 학원 서당\n"
    "학원 교습소\n"
    "하늘 <창공\n"
    "; a comment\n"
    "큰_길 대로\n";

TEST_F(KnowledgeCommandsTest, ScrambledSynonymsAnswerLikeTheText) {
  std::string text = dir.Write("syn.txt", kSynonyms);
  RunResult scramble = RunQrl({"scramble", text}, "", dir.Path());
  ASSERT_EQ(0, scramble.status) << scramble.err;
  std::string scrambled = ReadFile(dir.Path() + "/syn.bin");
  ASSERT_FALSE(scrambled.empty());
  EXPECT_EQ(std::string::npos, scrambled.find_first_not_of("0123456789ABCDEF"));

  const std::vector<std::string> words = {"학원", "창공", "대로", "바다"};
  const std::string expected =
      "학원\t학교\t학원\t서당\n"
      "학원\t학원\t교습소\n"
      "창공\t하늘\t<창공\n"
      "대로\t큰 길\t대로\n"
      "바다\n";
  for (const std::string& file : {dir.Path() + "/syn.bin", text}) {
    std::vector<std::string> args = {"synonym", file};
    args.insert(args.end(), words.begin(), words.end());
    RunResult run = RunQrl(args, "", dir.Path());
    EXPECT_EQ(0, run.status) << file << run.err;
    EXPECT_EQ(expected, run.out) << file;
  }
}

TEST_F(KnowledgeCommandsTest, SynonymAndScrambleReportUnusableFiles) {
  RunResult run = RunQrl({"synonym", dir.Path() + "/none.txt", "학교"}, "", dir.Path());
  EXPECT_EQ(1, run.status);
  EXPECT_NE(std::string::npos, run.err.find("none.txt"));
  EXPECT_EQ("", run.out);

  run = RunQrl({"scramble", dir.Path() + "/none.txt"}, "", dir.Path());
  EXPECT_EQ(1, run.status);
  EXPECT_FALSE(fs::exists(dir.Path() + "/none.bin"));
}

TEST_F(KnowledgeCommandsTest, StopWordsAnswerPerWord) {
  const std::string list = "은\n는\n그리고  \n; 학교\n 하늘\n";
  for (const std::string& file :
       {dir.Write("stop.txt", list), dir.Write("stop949.txt", ToCp949(list))}) {
    RunResult run = RunQrl({"stopword", file, "그리고", "학교", "는", "하늘", "그"},
                           "", dir.Path());
    EXPECT_EQ(0, run.status) << run.err;
    EXPECT_EQ("그리고\t1\n학교\t0\n는\t1\n하늘\t0\n그\t0\n", run.out) << file;
  }
  RunResult missing = RunQrl({"stopword", dir.Path() + "/none.txt", "는"}, "", dir.Path());
  EXPECT_EQ(1, missing.status);
  EXPECT_NE(std::string::npos, missing.err.find("none.txt"));
}

}  // namespace
}  // namespace clitest
