// Pre-analysed eojuls and user nouns added to a knowledge.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "knowledge/knowledge_helpers.h"

namespace Quorel {
namespace {

using testing_knowledge::Cp949;
using testing_knowledge::TempDir;
using testing_knowledge::Utf8;

// The offset stored for an eojul, or 0.
int32_t PreAnalOffset(const Dictionary& dict, const char* utf8) {
  TrieNode node;
  for (unsigned char c : Cp949(utf8)) {
    if (!dict.preAnalTrie.Walk(c, node)) return 0;
  }
  return node.value ? QR_DaTrie::GetValue(node) : 0;
}

// The record at `offset` as "a|m form/row form/row|m ...".
std::string DecodeRecord(const Dictionary& dict, int32_t offset) {
  const std::vector<unsigned char>& b = dict.preAnalBuffer;
  size_t p = static_cast<size_t>(offset);
  int alternatives = b.at(p++);
  std::string out = std::to_string(alternatives);
  for (int a = 0; a < alternatives; ++a) {
    int morphemes = b.at(p++);
    out += "|" + std::to_string(morphemes);
    for (int m = 0; m < morphemes && p < b.size(); ++m) {
      std::string form(reinterpret_cast<const char*>(&b.at(p)));
      p += form.size() + 1;
      out += " " + Utf8(form) + "/" +
             std::to_string(static_cast<signed char>(b.at(p++)));
    }
  }
  return out;
}

std::string Row(const char* tag) { return std::to_string(PosRowOf(tag)); }

class PreAnalysisTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir.Write("pre.txt",
              "; 주석\n"
              "  먹었다\t먹/VV+었/EP+다/EF  \n"
              "나는 나/NP+는/JX@나/VV+는/ETM\n"
              "먹었다\t먹/VA+었/EP+다/EF\n"
              "구분자없음\n"
              "빈대안\t가/NNG@\n"
              "슬래시없음\t가나다\n"
              "모름\t가/XYZ\n");
    dir.Write("again.txt", "먹었다\t먹/VV\n");
  }

  TempDir dir;
  Dictionary dict{false};
};

TEST_F(PreAnalysisTest, RecordsHoldCountsFormsAndTagRows) {
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(1, dict.LoadPreAnalysis(dir.Path().c_str(), "pre.txt", false));
  std::string messages = Utf8(::testing::internal::GetCapturedStderr());
  ASSERT_FALSE(dict.preAnalBuffer.empty());
  EXPECT_EQ(' ', dict.preAnalBuffer[0]);

  EXPECT_EQ(1, PreAnalOffset(dict, "먹었다"));
  EXPECT_EQ("1|3 먹/" + Row("VV") + " 었/" + Row("EP") + " 다/" + Row("EF"),
            DecodeRecord(dict, 1));
  EXPECT_EQ("2|2 나/" + Row("NP") + " 는/" + Row("JX") + "|2 나/" + Row("VV") +
                " 는/" + Row("ETM"),
            DecodeRecord(dict, PreAnalOffset(dict, "나는")));
  // An unknown tag is stored as row -1.
  EXPECT_EQ("1|1 가/-1", DecodeRecord(dict, PreAnalOffset(dict, "모름")));
  // An empty alternative is reported, and its morpheme count stays too large.
  EXPECT_EQ(0u, DecodeRecord(dict, PreAnalOffset(dict, "빈대안"))
                    .find("2|1 가/" + Row("NNG") + "|1 "));
  EXPECT_EQ(0, PreAnalOffset(dict, "구분자없음"));
  EXPECT_EQ(0, PreAnalOffset(dict, "슬래시없음"));

  EXPECT_EQ(
      "In PRE dic, Invalid delimiter.\t구분자없음 line is not loaded.\n"
      "In PRE dic, Invalid format.\t빈대안\t가/NNG@ line is not loaded.\n"
      "Error in 빈대안\t가/NNG@ Line...\n"
      "In PRE dic, Invalid format.\t슬래시없음\t가나다 line is not loaded.\n",
      messages);
}

TEST_F(PreAnalysisTest, OverwriteDecidesWhichRecordAKeyKeeps) {
  ::testing::internal::CaptureStderr();
  dict.LoadPreAnalysis(dir.Path().c_str(), "pre.txt", false);
  ::testing::internal::GetCapturedStderr();
  const size_t size = dict.preAnalBuffer.size();
  // Without overwrite the first record stays; the new bytes are still added.
  EXPECT_EQ(1, dict.LoadPreAnalysis((dir.Path() + "/").c_str(), "again.txt",
                                    false));
  EXPECT_EQ(1, PreAnalOffset(dict, "먹었다"));
  EXPECT_EQ(size + 1 + 1 + 3 + 1, dict.preAnalBuffer.size());
  EXPECT_EQ(1, dict.LoadPreAnalysis(dir.Path().c_str(), "again.txt", true));
  EXPECT_EQ(static_cast<int32_t>(dict.preAnalBuffer.size()) - 6,
            PreAnalOffset(dict, "먹었다"));
  EXPECT_EQ("1|1 먹/" + Row("VV"),
            DecodeRecord(dict, PreAnalOffset(dict, "먹었다")));
}

TEST_F(PreAnalysisTest, MissingFileReturnsZeroAfterMakingTheTrie) {
  EXPECT_EQ(0, dict.LoadPreAnalysis(dir.Path().c_str(), "absent.txt", true));
  EXPECT_NE(nullptr, dict.preAnalTrie.bc);
  EXPECT_EQ(1u, dict.preAnalBuffer.size());
}

TEST(UserNounPattern, UnitsMustMatchTheSumOfThePattern) {
  EXPECT_TRUE(Dictionary::CheckUserNoun("abc", "3"));
  EXPECT_TRUE(Dictionary::CheckUserNoun("abc", "0"));
  EXPECT_TRUE(Dictionary::CheckUserNoun("abc", "12"));
  EXPECT_TRUE(Dictionary::CheckUserNoun("abc", "A2"));
  EXPECT_FALSE(Dictionary::CheckUserNoun("abc", "4"));
  EXPECT_FALSE(Dictionary::CheckUserNoun("abc", "30"));  // "0" only alone
  EXPECT_FALSE(Dictionary::CheckUserNoun("abc", ""));
  EXPECT_FALSE(Dictionary::CheckUserNoun("abc", "1-2"));
  EXPECT_TRUE(Dictionary::CheckUserNoun("abcdefghij", "a"));
  EXPECT_TRUE(Dictionary::CheckUserNoun("abcdefghij", "ab@"));  // 21 / 2
  EXPECT_FALSE(Dictionary::CheckUserNoun("abcdefghijk", "ab@"));
  EXPECT_TRUE(Dictionary::CheckUserNoun("abcdefghijklmnopqrstuvwxyzabcdefghi",
                                        "z"));
  EXPECT_TRUE(Dictionary::CheckUserNoun(Cp949("가나다").c_str(), "3"));
  EXPECT_TRUE(Dictionary::CheckUserNoun(Cp949("ㄱ").c_str(), "1"));
  EXPECT_TRUE(Dictionary::CheckUserNoun("ab\tcd", "2"));  // TAB ends the word
}

TEST(UserNounPattern, SymbolRowsAndCutCharacters) {
  // A symbol pair whose second byte lies above 160 counts byte by byte.
  std::string star = Cp949("★");
  EXPECT_FALSE(Dictionary::CheckUserNoun(star.c_str(), "1"));  // cut lead
  EXPECT_TRUE(Dictionary::CheckUserNoun((star + "a").c_str(), "2"));
  EXPECT_TRUE(Dictionary::CheckUserNoun("\xA1", "1"));   // a lone symbol byte
  EXPECT_FALSE(Dictionary::CheckUserNoun("\xA4", "1"));  // a cut jamo lead
  std::string cut = Cp949("가").substr(0, 1);
  EXPECT_FALSE(Dictionary::CheckUserNoun(("a" + cut).c_str(), "2"));
}

class UserNounTest : public ::testing::Test {
 protected:
  void SetUp() override {
    testing_knowledge::WriteSmallKnowledge(dir);
    dir.Write("users.txt",
              "@사과\t2\n"
              "서울\t2\n"
              "학교\t2\n"
              "ABC\t3\n"
              "xyz\t5\n"
              "빈\n"
              "; 주석\t1\n");
    ::testing::internal::CaptureStderr();
    dict.LoadKnowledge(dir.Path().c_str(), false, true);
    ::testing::internal::GetCapturedStderr();
  }

  const MainTrieInfo& Record(const std::string& utf8) {
    SearchInfo si;
    EXPECT_EQ(1, dict.SearchMain(Cp949(utf8).c_str(), si)) << utf8;
    TrieNode node;
    for (unsigned char c : Cp949(utf8)) dict.mainTrie.Walk(c, node);
    return dict.mainInfos[node.value ? QR_DaTrie::GetValue(node) : 0];
  }

  TempDir dir;
  Dictionary dict{false};
};

TEST_F(UserNounTest, UserWordsTakeOverFromTheSystemsNouns) {
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(1, dict.LoadUserNoun(dir.Path().c_str(), "users.txt", false));
  EXPECT_EQ(
      "An usernoun entry with wrong information : xyz\t5\n"
      "An usernoun entry with wrong information : 빈\n",
      Utf8(::testing::internal::GetCapturedStderr()));

  // A marked common noun loses NNG and its mark, then takes the new mark.
  const MainTrieInfo& apple = Record("사과");
  EXPECT_EQ(Pos::NNU, apple.bits);
  EXPECT_EQ(1u, apple.marks);
  EXPECT_EQ(std::string("2"), dict.mainPool.At(apple.nnuInfo));
  // A proper noun goes first, which keeps the common noun's low bit.
  const MainTrieInfo& seoul = Record("서울");
  EXPECT_EQ(Pos::NNU | Pos::NNG, seoul.bits);
  EXPECT_EQ(-1, seoul.nnpInfo);
  const MainTrieInfo& school = Record("학교");
  EXPECT_EQ(Pos::NNU, school.bits);
  EXPECT_EQ(0u, school.marks);
  // Stored in lower case; the pattern goes to the analyzers as it is.
  SearchInfo si;
  EXPECT_EQ(1, dict.SearchMain("abc", si));
  EXPECT_EQ(Pos::NNU, si.info.bits);
  EXPECT_STREQ("3", si.nnuText);
  EXPECT_EQ(0, dict.SearchMain("ABC", si));
  EXPECT_EQ(0, dict.SearchMain("xyz", si));
  // The inserts dropped the read indexes; the load builds them again, and
  // the indexed walk finds the user's words.
  EXPECT_TRUE(dict.mainTrie.HasReadIndexes());
  EXPECT_EQ(1, dict.SearchMain(Cp949("학교").c_str(), si));
  EXPECT_EQ(Pos::NNU, si.info.bits);
}

TEST_F(UserNounTest, MissingFileReturnsZero) {
  EXPECT_EQ(0, dict.LoadUserNoun(dir.Path().c_str(), "absent.txt", true));
}

}  // namespace
}  // namespace Quorel
