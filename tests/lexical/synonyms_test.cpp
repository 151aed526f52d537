#include "lexical/synonyms.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "lexical/lexical_helpers.h"
#include "lexical/synonym.h"

namespace Quorel {
namespace {

using lexical_test::K;
using lexical_test::Render;
using lexical_test::ScratchDir;

const char kGroups[] =
    "; 주석\n"
    "사과 애플 <능금 >사과나무\n"
    "배 |배나무 과일\n"
    "과일 열매 과일\n"
    "/ 주석\n"
    " 앞에 빈칸\n"
    "\t탭\n"
    "New_York 뉴욕  \t\n"
    "홀로\n";

class SynonymsTest : public ::testing::Test {
 protected:
  // Writes `utf8` in CP949 as `name` and loads it as text.
  int LoadText(const std::string& utf8, const char* name = "syn.txt") {
    dir.Write(name, K(utf8));
    return synonyms.Load(dir.Path().c_str(), name, false);
  }
  std::string R(const std::string& utf8Word) {
    return Render(synonyms, K(utf8Word));
  }

  ScratchDir dir;
  SynonymContainer synonyms;
};

TEST_F(SynonymsTest, GroupsWithMarks) {
  ASSERT_EQ(1, LoadText(kGroups));
  for (const char* word : {"사과", "애플", "능금", "사과나무"}) {
    EXPECT_EQ(K("1:1|사과/4 사과00 애플00 능금10 사과나무01"), R(word)) << word;
  }
  // Marks are taken off before the word is stored; "|" leaves no flag.
  for (const char* word : {"<능금", ">사과나무", "|배나무"}) {
    EXPECT_EQ("0:0", R(word)) << word;
  }
  EXPECT_EQ(K("1:1|배/3 배00 배나무00 과일00"), R("배나무"));
}

TEST_F(SynonymsTest, WordInTwoGroupsIsAnOverlap) {
  ASSERT_EQ(1, LoadText(kGroups));
  // "과일" ends one group, heads the next and stands twice in that one:
  // two groups, both readable, the repeat adds no third.
  EXPECT_EQ(K("1:2|배/3 배00 배나무00 과일00|과일/3 과일00 열매00 과일00"),
            R("과일"));
  EXPECT_EQ(K("1:1|과일/3 과일00 열매00 과일00"), R("열매"));
  EXPECT_EQ(K("1:1|배/3 배00 배나무00 과일00"), R("배"));
}

TEST_F(SynonymsTest, WordTwiceInOneGroupMakesNoOverlap) {
  ASSERT_EQ(1, LoadText("하나 둘 하나\n"));
  EXPECT_EQ(K("1:1|하나/3 하나00 둘00 하나00"), R("하나"));
  // Once the word turns up in another group, both groups are listed.
  ASSERT_EQ(1, LoadText("하나 둘 하나\n셋 하나\n"));
  EXPECT_EQ(K("1:2|하나/3 하나00 둘00 하나00|셋/2 셋00 하나00"), R("하나"));
}

TEST_F(SynonymsTest, WordInThreeGroupsListsEachGroupOnce) {
  ASSERT_EQ(1, LoadText("a x\nb x x\nx c\n"));
  EXPECT_EQ("1:3|a/2 a00 x00|b/3 b00 x00 x00|x/2 x00 c00",
            Render(synonyms, "x"));
}

TEST_F(SynonymsTest, OneWordLineIsAGroupOfOne) {
  ASSERT_EQ(1, LoadText(kGroups));
  EXPECT_EQ(K("1:1|홀로/1 홀로00"), R("홀로"));
}

TEST_F(SynonymsTest, WordDelimiterBecomesABlank) {
  ASSERT_EQ(1, LoadText(kGroups));
  // The key keeps the delimiter as written; the text shows a blank.
  EXPECT_EQ(K("1:1|New York/2 New York00 뉴욕00"), R("New_York"));
  EXPECT_EQ(K("1:1|New York/2 New York00 뉴욕00"), R("뉴욕"));
  EXPECT_EQ("0:0", Render(synonyms, "New York"));
}

TEST_F(SynonymsTest, SkippedLinesMakeNoGroups) {
  ASSERT_EQ(1, LoadText(kGroups));
  for (const char* word : {"주석", "앞에", "빈칸", "탭", "; 주석", "/ 주석"}) {
    EXPECT_EQ("0:0", R(word)) << word;
  }
}

TEST_F(SynonymsTest, CustomDelimiterSetsAreNormalised) {
  synonyms.SetSynonymDelimiter(",;");
  synonyms.SetWordDelimiter("-_");
  ASSERT_EQ(1, LoadText("가,,나;다 , 라-마__바\n큰 집,작은 집\n"));
  // Runs of word delimiters become the first of the set.
  for (const char* word : {"가", "다", "라-마-바"}) {
    EXPECT_EQ(K("1:1|가/4 가00 나00 다00 라 마 바00"), R(word)) << word;
  }
  EXPECT_EQ("0:0", R("라-마__바"));
  EXPECT_EQ("0:0", R("라_마_바"));
  // A blank is no longer a delimiter, so it stays inside a word.
  EXPECT_EQ(K("1:1|큰 집/2 큰 집00 작은 집00"), R("작은 집"));
}

TEST_F(SynonymsTest, DelimiterNeverSplitsADoubleByteCharacter) {
  // 0x81 0x41 is one Hangul syllable whose trail byte is "A".
  synonyms.SetSynonymDelimiter("A");
  dir.Write("syn.txt", "\x81\x41z\x41y\n");
  ASSERT_EQ(1, synonyms.Load(dir.Path().c_str(), "syn.txt", false));
  EXPECT_EQ("1:1|\x81\x41z/2 \x81\x41z00 y00", Render(synonyms, "y"));
}

TEST_F(SynonymsTest, EqualDelimitersFailBeforeTheFileIsOpened) {
  synonyms.SetWordDelimiter(" ");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(-1, synonyms.Load(dir.Path().c_str(), "absent.txt", false));
  EXPECT_EQ(
      "Because delimeter among synonyms and delimiter among words are same, "
      "Can't not load synonym dictionary.\nPlease set delimiters "
      "differentlty.\n",
      ::testing::internal::GetCapturedStderr());
  synonyms.SetWordDelimiter("_");
  EXPECT_EQ(0, synonyms.Load(dir.Path().c_str(), "absent.txt", false));
}

TEST_F(SynonymsTest, NullOrEmptyDelimiterChangesNothing) {
  synonyms.SetSynonymDelimiter(nullptr);
  synonyms.SetWordDelimiter("");
  ASSERT_EQ(1, LoadText("a b_c\n"));
  EXPECT_EQ("1:1|a/2 a00 b c00", Render(synonyms, "b_c"));
}

TEST_F(SynonymsTest, PathIsJoinedWithOrWithoutSlash) {
  dir.Write("syn.txt", "a b\n");
  EXPECT_EQ(1, synonyms.Load((dir.Path() + "/").c_str(), "syn.txt", false));
  EXPECT_EQ("1:1|a/2 a00 b00", Render(synonyms, "b"));
  EXPECT_EQ(0, synonyms.Load(dir.Path().c_str(), "absent.txt", false));
}

TEST_F(SynonymsTest, SecondLoadReplacesTheGroups) {
  ASSERT_EQ(1, LoadText("a b\nc d\n"));
  ASSERT_EQ(1, LoadText("e a\n", "other.txt"));
  EXPECT_EQ("1:1|e/2 e00 a00", Render(synonyms, "a"));
  EXPECT_EQ("0:0", Render(synonyms, "d"));
}

TEST_F(SynonymsTest, SearchStopsAtSemicolonAndNotesLongerWords) {
  ASSERT_EQ(1, LoadText(kGroups));
  Synonym result;
  EXPECT_EQ(1, synonyms.Search((K("사과") + ";xyz").c_str(), &result));
  EXPECT_STREQ(K("사과").c_str(), result.GetGroupHead(0));
  EXPECT_TRUE(result.HasLongerWords());  // "사과나무" goes on

  EXPECT_EQ(0, synonyms.Search(K("사과나").c_str(), &result));
  EXPECT_FALSE(result.IsFound());
  EXPECT_TRUE(result.HasLongerWords());

  EXPECT_EQ(1, synonyms.Search(K("홀로").c_str(), &result));
  EXPECT_FALSE(result.HasLongerWords());

  EXPECT_EQ(0, synonyms.Search(K("없다").c_str(), &result));
  EXPECT_FALSE(result.HasLongerWords());
}

TEST_F(SynonymsTest, NullEmptyAndUnloaded) {
  Synonym result;
  EXPECT_EQ(0, synonyms.Search("a", &result));  // nothing loaded
  ASSERT_EQ(1, LoadText(kGroups));
  EXPECT_EQ(0, synonyms.Search(K("사과").c_str(), nullptr));
  ASSERT_EQ(1, synonyms.Search(K("사과").c_str(), &result));
  // A new search forgets the old answer.
  EXPECT_EQ(0, synonyms.Search(nullptr, &result));
  EXPECT_FALSE(result.IsFound());
  EXPECT_EQ(0, result.GetCount());
  EXPECT_EQ(0, synonyms.Search("", &result));
  EXPECT_FALSE(result.IsFound());
}

TEST_F(SynonymsTest, ReadersAnswerOutOfRange) {
  ASSERT_EQ(1, LoadText(kGroups));
  Synonym result;
  ASSERT_EQ(1, synonyms.Search(K("사과").c_str(), &result));
  EXPECT_EQ(0, result.GetGroupSize(1));
  EXPECT_EQ(0, result.GetGroupSize(-1));
  EXPECT_EQ(nullptr, result.GetGroupHead(1));
  EXPECT_EQ(nullptr, result.GetWord(1, 0));
  EXPECT_EQ(nullptr, result.GetWord(0, -1));
  EXPECT_EQ(0, result.HasLessMark(1, 2));
  EXPECT_EQ(0, result.HasLessMark(0, 5));  // past the group size of 4
  EXPECT_EQ(0, result.HasGreaterMark(0, 5));
  EXPECT_EQ(1, result.HasLessMark(0, 2));

  // The last entry of the file has nothing after it.
  ASSERT_EQ(1, synonyms.Search(K("홀로").c_str(), &result));
  EXPECT_EQ(nullptr, result.GetWord(0, 1));
  EXPECT_EQ(0, result.HasLessMark(0, 1));

  ASSERT_EQ(0, synonyms.Search(K("없다").c_str(), &result));
  EXPECT_EQ(0, result.GetCount());
  EXPECT_EQ(0, result.GetGroupSize(0));
  EXPECT_EQ(nullptr, result.GetGroupHead(0));
  EXPECT_EQ(nullptr, result.GetWord(0, 0));
  EXPECT_EQ(0, result.HasLessMark(0, 0));
  EXPECT_EQ(0, result.HasGreaterMark(0, 0));
}

TEST(SynonymFactoryTest, WorksThroughTheAbstractClasses) {
  ScratchDir dir;
  dir.Write("syn.txt", K("집 가옥\n"));
  std::unique_ptr<QR_SynonymContainer> synonyms(CreateSynonymContainer());
  std::unique_ptr<QR_Synonym> result(CreateSynonym());
  ASSERT_NE(nullptr, synonyms);
  ASSERT_NE(nullptr, result);
  ASSERT_EQ(1, synonyms->Load(dir.Path().c_str(), "syn.txt", false));
  ASSERT_EQ(1, synonyms->Search(K("가옥").c_str(), result.get()));
  EXPECT_EQ(1, result->GetCount());
  EXPECT_STREQ(K("집").c_str(), result->GetGroupHead(0));
  EXPECT_STREQ(K("가옥").c_str(), result->GetWord(0, 1));
}

}  // namespace
}  // namespace Quorel
