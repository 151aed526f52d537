// Building the knowledge from a small source directory: the records each
// loader makes, the merge rules, and the messages of bad lines.
#include <gtest/gtest.h>

#include <string>

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "knowledge/knowledge_helpers.h"

namespace Quorel {
namespace {

using testing_knowledge::Cp949;
using testing_knowledge::TempDir;
using testing_knowledge::Utf8;

class SourceLoadTest : public ::testing::Test {
 protected:
  void SetUp() override {
    testing_knowledge::WriteSmallKnowledge(dir);
    ::testing::internal::CaptureStderr();
    result = dict.LoadKnowledge(dir.Path().c_str(), false, false);
    messages = Utf8(::testing::internal::GetCapturedStderr());
  }

  const MainTrieInfo& Main(const char* utf8) {
    SearchInfo si;
    EXPECT_EQ(1, dict.SearchMain(Cp949(utf8).c_str(), si)) << utf8;
    return dict.mainInfos[IndexOf(dict.mainTrie, utf8)];
  }
  const JosaEomiTrieInfo& Je(const char* utf8) {
    return dict.jeInfos[IndexOf(dict.jeTrie, utf8)];
  }
  std::string JeText(int32_t index) {
    return Utf8(dict.jePool.text.At(static_cast<int32_t>(
        dict.jePool.offset[index])));
  }
  static int32_t IndexOf(const QR_DaTrie& trie, const char* utf8) {
    TrieNode node;
    for (unsigned char c : Cp949(utf8)) {
      if (!trie.Walk(c, node)) return 0;
    }
    return node.value ? QR_DaTrie::GetValue(node) : 0;
  }

  TempDir dir;
  Dictionary dict{false};
  int result = 0;
  std::string messages;
};

TEST_F(SourceLoadTest, ReportsEveryBadLineInFileOrder) {
  EXPECT_EQ(1, result);
  EXPECT_EQ(
      "Error in E_ file..\n"
      "Error in 자\t자/EF Line...\n"
      "Error in 지\t지/EC 1 0 0 Line...\n"
      "Error in 면\t면EC 1 Line...\n"
      "Error in 도\t도/JX 1#도 Line...\n"
      "NNB file is corrupted..\n"
      "빈단위\n"
      "NNP file is corrupted..\n"
      "빈칸\n"
      "NU file is corrupted..\n"
      "빈수 \n",
      messages);
}

TEST_F(SourceLoadTest, JosaEomiRecordsAndPoolEntries) {
  ASSERT_EQ(16u, dict.jeInfos.size());  // blank + 15 keys
  EXPECT_EQ(0u, dict.jeInfos[0].bits);
  EXPECT_EQ(-1, dict.jeInfos[0].josaInfo);
  ASSERT_EQ(18, dict.jePool.count);  // 15 readings + 3 jamo endings

  const JosaEomiTrieInfo& da = Je("다");
  EXPECT_EQ(Pos::EM, da.bits);
  EXPECT_EQ(0, da.eomiInfo0);
  EXPECT_EQ("다", JeText(0));
  EXPECT_EQ(1, dict.jePool.attach[0]);

  // Two eomi readings: both referenced by type, but the key's bits are the
  // last reading's alone; the josa file adds its reading on top.
  const JosaEomiTrieInfo& neun = Je("는");
  EXPECT_EQ(1, neun.eomiInfo5);
  EXPECT_EQ(2, neun.eomiInfo0);
  EXPECT_EQ(11, neun.josaInfo);
  EXPECT_EQ(Pos::EM | Pos::JX, neun.bits);
  EXPECT_EQ(Pos::ETM, dict.jePool.bits[1]);
  EXPECT_EQ(5, dict.jePool.type[1]);

  // Same type twice: both entries exist, the last is referenced.
  EXPECT_EQ(4, Je("고").eomiInfo0);
  EXPECT_EQ("고", JeText(3));
  EXPECT_EQ(2, dict.jePool.attach[4]);

  // Unknown type: the entry is added, no field references it.
  const JosaEomiTrieInfo& ra = Je("라");
  EXPECT_EQ(Pos::EM, ra.bits);
  EXPECT_EQ(-1, ra.eomiInfo0);
  EXPECT_EQ(7, dict.jePool.type[7]);

  // A key whose only reading was bad is still a key, with nothing in it.
  const JosaEomiTrieInfo& ja = Je("자");
  EXPECT_EQ(0u, ja.bits);
  EXPECT_EQ(-1, ja.eomiInfo0);

  // A later line replaces all eomi readings of the key (17 falls back to -1).
  const JosaEomiTrieInfo& ge = Je("게");
  EXPECT_EQ(-1, ge.eomiInfo17);
  EXPECT_EQ(9, ge.eomiInfo19);
  EXPECT_EQ(19, dict.jePool.type[9]);
  EXPECT_EQ(3, dict.jePool.attach[9]);
}

TEST_F(SourceLoadTest, JosaLineJoinsTagsIntoOneEntry) {
  const JosaEomiTrieInfo& ga = Je("가");
  EXPECT_EQ(10, ga.josaInfo);
  EXPECT_EQ("가", JeText(10));  // the last reading's form
  EXPECT_EQ(2, dict.jePool.attach[10]);
  // The type field of a josa is taken without a test of its value.
  EXPECT_EQ(5, dict.jePool.type[Je("에서").josaInfo]);
  EXPECT_EQ(Pos::JKG, dict.jePool.bits[Je("의").josaInfo]);
  // The last reading was bad: no entry, but the earlier tags count.
  const JosaEomiTrieInfo& Do = Je("도");
  EXPECT_EQ(-1, Do.josaInfo);
  EXPECT_EQ(Pos::JX, Do.bits);
}

TEST_F(SourceLoadTest, CommentsAndLinesWithoutTabAreNoKeys) {
  EXPECT_EQ(0, IndexOf(dict.jeTrie, "탭없는줄"));
  EXPECT_EQ(0, IndexOf(dict.jeTrie, "/다"));
  EXPECT_EQ(0, IndexOf(dict.jeTrie, " 다"));
  EXPECT_EQ(0, IndexOf(dict.mainTrie, "공백"));
  EXPECT_EQ(0, IndexOf(dict.mainTrie, "빗금"));
  EXPECT_EQ(0, IndexOf(dict.mainTrie, "/빗금"));
  EXPECT_EQ(0, IndexOf(dict.mainTrie, "빈칸"));
  EXPECT_EQ(0, IndexOf(dict.mainTrie, "빈단위"));
  EXPECT_EQ(0, IndexOf(dict.mainTrie, "빈수"));
  EXPECT_EQ(0, IndexOf(dict.mainTrie, "무시"));
}

TEST_F(SourceLoadTest, JamoEndingsFollowTheSourceEntries) {
  ASSERT_EQ(3u, dict.jamoEomiInfos.size());
  EXPECT_EQ(15, dict.jamoEomiInfos[0].eomiInfo5);
  EXPECT_EQ(16, dict.jamoEomiInfos[1].eomiInfo9);
  EXPECT_EQ(17, dict.jamoEomiInfos[2].eomiInfo17);
  EXPECT_EQ(0u, dict.jamoEomiInfos[0].bits);
  EXPECT_EQ(-1, dict.jamoEomiInfos[0].eomiInfo9);
  EXPECT_EQ("ㄴ", JeText(15));
  EXPECT_EQ("ㄹ", JeText(16));
  EXPECT_EQ("ㅁ", JeText(17));
  EXPECT_EQ(0x400800u, dict.jePool.bits[16]);
  EXPECT_EQ(0x401000u, dict.jePool.bits[17]);
  EXPECT_EQ(3, dict.jePool.attach[17]);
  EXPECT_EQ(17, dict.jePool.type[17]);
}

TEST_F(SourceLoadTest, MainWordsMergeAcrossFiles) {
  ASSERT_EQ(19u, dict.mainInfos.size());
  EXPECT_EQ(0u, dict.mainInfos[0].bits);
  EXPECT_EQ(-1, dict.mainInfos[0].nnpInfo);

  const MainTrieInfo& seoul = Main("서울");
  EXPECT_EQ(Pos::NNG | Pos::NNP, seoul.bits);
  ASSERT_GE(seoul.nnpInfo, 0);
  EXPECT_EQ("서울", Utf8(dict.mainPool.At(seoul.nnpInfo)));
  EXPECT_EQ("대한 민국", Utf8(dict.mainPool.At(Main("대한민국").nnpInfo)));

  // The later extra text wins; the older stays in the pool.
  const MainTrieInfo& gae = Main("개");
  EXPECT_EQ(Pos::NNB, gae.bits);
  EXPECT_EQ(std::string("2"), dict.mainPool.At(gae.nnbInfo));
  EXPECT_EQ(std::string("1"), dict.mainPool.At(0));
  EXPECT_EQ(std::string("1"), dict.mainPool.At(Main("하나").nuInfo));
  EXPECT_EQ(Pos::NU, Main("하나").bits);

  EXPECT_EQ(1u, Main("사과").marks);
  EXPECT_EQ(1u, Main("바나나").marks);
  EXPECT_EQ(0u, Main("학교").marks);
  EXPECT_EQ(-1, Main("학교").nnbInfo);
  EXPECT_EQ(Pos::NNG, Main("김치").bits);
  EXPECT_EQ(Pos::NP, Main("그것").bits);
  EXPECT_EQ(Pos::NNI, Main("세계").bits);
  EXPECT_EQ(Pos::VV, Main("먹").bits);
  EXPECT_EQ(Pos::VA, Main("예쁘").bits);
  EXPECT_EQ(Pos::MA, Main("아주").bits);
  EXPECT_EQ(Pos::MM, Main("새").bits);
  EXPECT_EQ(Pos::IC, Main("아").bits);
  EXPECT_EQ(Pos::VX, Main("보").bits);
}

TEST_F(SourceLoadTest, FrequencyFilesKeepOnlyLinesOfAHundredOrMore) {
  int32_t freq = -1;
  EXPECT_EQ(1, dict.GetDivFreq(Cp949("학교생활").c_str(), freq));
  EXPECT_EQ(150, freq);
  EXPECT_EQ(1, dict.GetDivFreq(Cp949("김치찌개").c_str(), freq));
  EXPECT_EQ(100, freq);
  EXPECT_EQ(0, dict.GetDivFreq(Cp949("사과나무").c_str(), freq));
  EXPECT_EQ(0, freq);
  EXPECT_EQ(2, dict.sizeDivInfo);

  PosInfoRec rec;
  EXPECT_EQ(1, dict.GetPosFreq(Cp949("학교").c_str(), rec));
  EXPECT_EQ(50u, rec.counts[0]);
  EXPECT_EQ(30u, rec.counts[1]);
  EXPECT_EQ(20u, rec.counts[2]);
  EXPECT_EQ(1, dict.GetPosFreq(Cp949("생활").c_str(), rec));
  EXPECT_EQ(300u, rec.counts[2]);
  EXPECT_EQ(0, dict.GetPosFreq(Cp949("가").c_str(), rec));  // key too short
  EXPECT_EQ(0u, rec.counts[0]);
  EXPECT_EQ(0, dict.GetPosFreq(Cp949("모자람").c_str(), rec));
  EXPECT_EQ(2, dict.sizePosInfo);
}

TEST_F(SourceLoadTest, ListsAreTrimmedAndCounted) {
  EXPECT_EQ(1, dict.IsXP(Cp949("제").c_str()));
  EXPECT_EQ(1, dict.IsXP(Cp949("신").c_str()));
  EXPECT_EQ(0, dict.IsXP(Cp949("제외").c_str()));  // a leading blank: comment
  EXPECT_EQ(0, dict.IsXP(Cp949("주석").c_str()));
  EXPECT_EQ(2, dict.sizeXPList);
  EXPECT_EQ(1, dict.IsXSN(Cp949("님").c_str()));
  EXPECT_EQ(0, dict.IsXSN(Cp949("님들").c_str()));
  EXPECT_EQ(1, dict.IsXSNXSN(Cp949("들님").c_str()));
  EXPECT_EQ(1, dict.IsCONJ(StringEx(Cp949("그리고").c_str())));
  EXPECT_EQ(0, dict.IsCONJ(Cp949("그리").c_str()));
  EXPECT_EQ(2, dict.sizeXSNList);
  EXPECT_EQ(1, dict.sizeCONJList);
}

TEST(SourceLoad, EmptyDirectoryKnowsOnlyJamoEndingsAndSuffixLists) {
  TempDir dir;
  Dictionary dict(false);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(1, dict.LoadKnowledge(dir.Path().c_str(), false, true));
  EXPECT_EQ("", ::testing::internal::GetCapturedStderr());
  EXPECT_EQ(1u, dict.mainInfos.size());
  EXPECT_EQ(1u, dict.jeInfos.size());
  EXPECT_EQ(3, dict.jePool.count);
  EXPECT_EQ(3u, dict.jamoEomiInfos.size());
  EXPECT_EQ(nullptr, dict.divInfo);
  EXPECT_EQ(nullptr, dict.xpTrie.bc);  // an unreadable list makes no trie
  SearchJEInfo sjei;
  EXPECT_EQ(0, dict.SearchJE(Cp949("ㄴ").c_str(), sjei));
  EXPECT_EQ(0, dict.IsXSN(Cp949("들").c_str()));
  EXPECT_NE(nullptr, dict.epList.Find(Cp949("먹었").c_str()));
}

TEST(SourceLoad, UserNounsNeedALoadedMainDictionary) {
  TempDir dir;
  dir.Write("users.txt", "abc\t3\n; 주석\nxy\t2\n");
  Dictionary dict(false);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(1, dict.LoadUserNoun(dir.Path().c_str(), "users.txt", false));
  EXPECT_EQ("Error in reading NNU dic..\nError in reading NNU dic..\n",
            ::testing::internal::GetCapturedStderr());
  EXPECT_TRUE(dict.mainInfos.empty());
}

TEST(SourceLoad, MissingCompiledFileGivesMinusOne) {
  TempDir dir;
  Dictionary dict(false);
  EXPECT_EQ(-1, dict.LoadKnowledge(dir.Path().c_str(), true, true));
}

TEST(SourceLoad, ConstructorProbesByteOrderAndStoresWeights) {
  Dictionary dict(false);
  EXPECT_EQ(0x01020304, dict.endianProbe);
  EXPECT_EQ(1, dict.littleEndian);  // this build runs little-endian only
  dict.SetTaggerWeights(550.96, 370.28, 54.11, 8.8, 50.0);
  EXPECT_EQ(550.96, dict.weight1);
  EXPECT_EQ(370.28, dict.weight2);
  EXPECT_EQ(54.11, dict.weight3);
  EXPECT_EQ(8.8, dict.weight4);
  EXPECT_EQ(50.0, dict.weight5);
}

}  // namespace
}  // namespace Quorel
