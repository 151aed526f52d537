// The frequency files of the tagger: tag lists, word totals, count blocks
// and their lookups.
#include "knowledge/tagger_files.h"

#include <gtest/gtest.h>

#include <string>

#include "knowledge/dictionary.h"
#include "tagging/tagging_helpers.h"

namespace Quorel {
namespace {

using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;
using testing_tagger::Cp949;
using testing_tagger::SinfoDirectory;

const std::string kFault = "The format of this information is fault : ";

int32_t Count(const TagListInfoList& list, int previous, int next) {
  TagListInfo key;
  key.previous = static_cast<uint16_t>(previous);
  key.next = static_cast<uint16_t>(next);
  auto found = list.counts.find(key);
  return found == list.counts.end() ? -1 : found->second;
}

class TaggerFilesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    // Ids: FOS 0, EOS 1, NNG 2, VV+EM 3, NNG+JKS 4; " VV" is a comment.
    dir.Write("tag_list.txt",
              "FOS\nEOS\n; comment\nNNG\n\n VV\nVV+EM\nNNG+JKS \t\n");
  }
  std::string Load() {
    CaptureStderr();
    EXPECT_EQ(d.LoadTagLists(dir.Path()), 1);
    return GetCapturedStderr();
  }
  SinfoDirectory dir;
  Dictionary d{false};
};

TEST_F(TaggerFilesTest, TagListIdsAreLineNumbersOfKeptLines) {
  Load();
  EXPECT_EQ(GetTagListId(d, "FOS"), 0);
  EXPECT_EQ(GetTagListId(d, "EOS"), 1);
  EXPECT_EQ(GetTagListId(d, "NNG"), 2);
  EXPECT_EQ(GetTagListId(d, "VV+EM"), 3);
  EXPECT_EQ(GetTagListId(d, "NNG+JKS"), 4);  // trimmed
  EXPECT_EQ(GetTagListId(d, "VV"), -1);      // a comment line
  EXPECT_EQ(GetTagListId(d, "NN"), -1);
}

TEST_F(TaggerFilesTest, WordTotalsAndTheirMessages) {
  dir.Write("word_list.txt",
            "사과\t12\n 배\t3\nnotab\n\t5\n감\t \n귤\t1x\n배\t 7 \n");
  std::string err = Load();
  const std::string where =
      std::string(dir.Path()) + "/sinfo/word_list.txt - ";
  EXPECT_NE(err.find("[0]" + kFault + where + "notab\n"), std::string::npos);
  EXPECT_NE(err.find("[1]" + kFault + where + "\n"), std::string::npos);
  EXPECT_NE(err.find("[2]" + kFault + where + "\n"), std::string::npos);
  EXPECT_NE(err.find("[3]" + kFault + where + "1x\n"), std::string::npos);
  EXPECT_EQ(GetWordTotal(d, Cp949("사과").c_str()), 12);
  EXPECT_EQ(GetWordTotal(d, Cp949("배").c_str()), 7);
  EXPECT_EQ(GetWordTotal(d, Cp949("감").c_str()), 0);
  EXPECT_EQ(GetWordTotal(d, Cp949("사").c_str()), 0);
}

TEST_F(TaggerFilesTest, BlocksEmptyRepeatedAndBackwards) {
  dir.Write("taglist.klg",
            "NNG\t3\n"
            "FOS\tEOS\t5\n"
            "FOS\tNNG\t2\n"
            "FOS\tEOS\t9\n"
            "VV+EM\t0\n"
            "NNG+JKS\t1\n"
            "EOS\tFOS\t4\n");
  dir.Write("wordlist.klg",
            "; comment\n"
            "사과-NNG\t1\nFOS\tEOS\t3\n"
            "배-NNG\t0\n"
            "사과-NNG\t2\nFOS\tEOS\t1\nFOS\tNNG\t1\n");
  std::string err = Load();
  EXPECT_NE(err.find("\nTI loading\n[0] [3]\n"), std::string::npos) << err;
  EXPECT_NE(err.find("\nWI loading\n[0] [3]\n"), std::string::npos) << err;

  int32_t index = 7;
  ASSERT_EQ(GetTagListIndex(d, 2, index), 1);
  const TagListInfoList& nng = d.tagListInfos[index];
  // Read from the last line up: the pair's last count in the file stays.
  EXPECT_EQ(Count(nng, 0, 1), 9);
  EXPECT_EQ(Count(nng, 0, 2), 2);
  EXPECT_EQ(nng.total, 16);
  ASSERT_EQ(GetTagListIndex(d, 3, index), 1);
  EXPECT_TRUE(d.tagListInfos[index].counts.empty());
  EXPECT_EQ(d.tagListInfos[index].total, 0);
  EXPECT_EQ(GetTagListIndex(d, 1, index), 0);
  EXPECT_EQ(index, -1);

  ASSERT_EQ(d.wordListInfos.size(), 3u);
  ASSERT_EQ(GetWordIndex(d, Cp949("사과-NNG").c_str(), index), 1);
  EXPECT_EQ(index, 2);  // the later block
  EXPECT_EQ(d.wordListInfos[index].total, 2);
  EXPECT_EQ(d.wordListInfos[0].total, 3);
  ASSERT_EQ(GetWordIndex(d, Cp949("배-NNG").c_str(), index), 1);
  EXPECT_EQ(d.wordListInfos[index].total, 0);
  EXPECT_EQ(GetWordIndex(d, Cp949("배").c_str(), index), 0);
  EXPECT_EQ(index, -1);
}

TEST_F(TaggerFilesTest, MalformedBlockLinesAreSkippedNotRepeated) {
  dir.Write("taglist.klg",
            "NNG\t6\n"
            "FOS\tEOS\t1\n"
            " \t \n"
            "XX\tEOS\t1\n"
            "FOS\t\t1\n"
            "FOS\tYY\t1\n"
            "FOS\tNNG\t2\n"
            "VV+EM\t1\n"
            "FOS\tNNG\t\n"
            "ZZZ\t1\n"
            "FOS\tEOS\t1\n");
  std::string err = Load();
  // Lines are worked from the last up, trimmed; each fault once.
  const std::string expected = "[13]" + kFault + "YY\n" +  //
                               "[12]" + kFault + "FOS\t\t1\n" +
                               "[11]" + kFault + "XX\n" +  //
                               "[10]" + kFault + "\n";
  EXPECT_NE(err.find(expected), std::string::npos) << err;
  EXPECT_NE(err.find("[14]" + kFault + "\n"), std::string::npos);
  EXPECT_NE(err.find("[7]" + kFault + "ZZZ\n"), std::string::npos);
  int32_t index = -1;
  ASSERT_EQ(GetTagListIndex(d, 2, index), 1);
  EXPECT_EQ(d.tagListInfos[index].total, 3);
  EXPECT_EQ(Count(d.tagListInfos[index], 0, 1), 1);
  EXPECT_EQ(Count(d.tagListInfos[index], 0, 2), 2);
  ASSERT_EQ(GetTagListIndex(d, 3, index), 1);
  EXPECT_EQ(d.tagListInfos[index].total, 0);
  EXPECT_EQ(d.tagListInfos.size(), 2u);  // the ZZZ block has no tag list
}

TEST_F(TaggerFilesTest, ProgressMarkEveryThousandBlocks) {
  std::string blocks;
  for (int b = 0; b < 2001; ++b) blocks += "w" + std::to_string(b) + "\t0\n";
  dir.Write("wordlist.klg", blocks);
  std::string err = Load();
  EXPECT_NE(err.find("\nWI loading\n[0] [1000] [2000] [2001]\n"),
            std::string::npos);
  int32_t index = -1;
  ASSERT_EQ(GetWordIndex(d, "w1500", index), 1);
  EXPECT_EQ(index, 1500);
}

TEST(TaggerFilesNoFilesTest, NothingLoadedNothingFound) {
  Dictionary d(false);
  CaptureStderr();
  EXPECT_EQ(d.LoadTagLists("/nonexistent/qrl"), 1);
  EXPECT_EQ(ReadCountFile(d, "/nonexistent/", 3), -1);
  std::string err = GetCapturedStderr();
  EXPECT_NE(err.find("mode error\n"), std::string::npos);
  int32_t index = 5;
  EXPECT_EQ(GetTagListId(d, "FOS"), -1);
  EXPECT_EQ(GetWordTotal(d, "FOS"), 0);
  EXPECT_EQ(GetTagListIndex(d, 0, index), 0);
  EXPECT_EQ(index, -1);
  index = 5;
  EXPECT_EQ(GetWordIndex(d, "FOS", index), 0);
  EXPECT_EQ(index, -1);
}

}  // namespace
}  // namespace Quorel
