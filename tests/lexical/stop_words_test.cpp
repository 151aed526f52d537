#include "lexical/stop_words.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "lexical/lexical_helpers.h"
#include "qrlsl/qr_stopword.h"

namespace Quorel {
namespace {

using lexical_test::K;
using lexical_test::ScratchDir;

class StopWordsTest : public ::testing::Test {
 protected:
  // Writes `content` as stop.txt and loads it; returns Load's result.
  int LoadList(const std::string& content) {
    dir.Write("stop.txt", content);
    return stopWords.Load(dir.Path().c_str(), "stop.txt");
  }

  ScratchDir dir;
  StopWordContainer stopWords;
};

TEST_F(StopWordsTest, ListedWordsAreStopWordsAndOnlyWhole) {
  ASSERT_EQ(1, LoadList(K("그리고\n") + K("하지만\n") + "the\n"));
  EXPECT_TRUE(stopWords.IsStopWord(K("그리고").c_str()));
  EXPECT_TRUE(stopWords.IsStopWord(K("하지만").c_str()));
  EXPECT_TRUE(stopWords.IsStopWord("the"));
  // Proper prefixes and extensions of a listed word are not listed.
  EXPECT_FALSE(stopWords.IsStopWord(K("그리").c_str()));
  EXPECT_FALSE(stopWords.IsStopWord("th"));
  EXPECT_FALSE(stopWords.IsStopWord("then"));
  EXPECT_FALSE(stopWords.IsStopWord(K("그리고는").c_str()));
  EXPECT_FALSE(stopWords.IsStopWord(K("사과").c_str()));
}

TEST_F(StopWordsTest, EmptyAndNullAreNotStopWords) {
  ASSERT_EQ(1, LoadList("a\n"));
  EXPECT_FALSE(stopWords.IsStopWord(""));
  EXPECT_FALSE(stopWords.IsStopWord(nullptr));
}

TEST_F(StopWordsTest, TrailingWhiteSpaceIsCutInnerBlanksKept) {
  ASSERT_EQ(1, LoadList(K("또한") + "  \t\n" + "two words \r\n" + "crlf\r\n"));
  EXPECT_TRUE(stopWords.IsStopWord(K("또한").c_str()));
  EXPECT_FALSE(stopWords.IsStopWord((K("또한") + " ").c_str()));
  EXPECT_TRUE(stopWords.IsStopWord("two words"));
  EXPECT_FALSE(stopWords.IsStopWord("two"));
  EXPECT_TRUE(stopWords.IsStopWord("crlf"));
}

TEST_F(StopWordsTest, CommentAndIndentedLinesAreSkipped) {
  ASSERT_EQ(1, LoadList(";semi\n/slash\n space\n\ttab\n\n\r\nkept\nlast"));
  for (const char* word : {";semi", "semi", "/slash", "slash", " space",
                           "space", "\ttab", "tab"}) {
    EXPECT_FALSE(stopWords.IsStopWord(word)) << word;
  }
  EXPECT_TRUE(stopWords.IsStopWord("kept"));
  EXPECT_TRUE(stopWords.IsStopWord("last"));  // no line feed at the end
}

TEST_F(StopWordsTest, RepeatedWordDoesNoHarm) {
  ASSERT_EQ(1, LoadList("and\nor\nand\n"));
  EXPECT_TRUE(stopWords.IsStopWord("and"));
  EXPECT_TRUE(stopWords.IsStopWord("or"));
}

TEST_F(StopWordsTest, PathIsJoinedWithOrWithoutSlash) {
  dir.Write("stop.txt", "word\n");
  EXPECT_EQ(1, stopWords.Load(dir.Path().c_str(), "stop.txt"));
  EXPECT_TRUE(stopWords.IsStopWord("word"));
  StopWordContainer other;
  EXPECT_EQ(1, other.Load((dir.Path() + "/").c_str(), "stop.txt"));
  EXPECT_TRUE(other.IsStopWord("word"));
}

TEST_F(StopWordsTest, MissingFileGivesZero) {
  EXPECT_EQ(0, stopWords.Load(dir.Path().c_str(), "absent.txt"));
  EXPECT_FALSE(stopWords.IsStopWord("word"));
}

TEST_F(StopWordsTest, SecondLoadReplacesTheSet) {
  ASSERT_EQ(1, LoadList("old\nshared\n"));
  dir.Write("new.txt", "new\nshared\n");
  ASSERT_EQ(1, stopWords.Load(dir.Path().c_str(), "new.txt"));
  EXPECT_FALSE(stopWords.IsStopWord("old"));
  EXPECT_TRUE(stopWords.IsStopWord("new"));
  EXPECT_TRUE(stopWords.IsStopWord("shared"));
  // A file that can't be opened leaves the set as it was.
  EXPECT_EQ(0, stopWords.Load(dir.Path().c_str(), "absent.txt"));
  EXPECT_TRUE(stopWords.IsStopWord("new"));
}

TEST(StopWordFactoryTest, WorksThroughTheAbstractClass) {
  ScratchDir dir;
  dir.Write("stop.txt", K("것") + "\n");
  std::unique_ptr<QR_StopWordContainer> stopWords(CreateStopWordContainer());
  ASSERT_NE(nullptr, stopWords);
  EXPECT_FALSE(stopWords->IsStopWord(K("것").c_str()));  // nothing loaded yet
  ASSERT_EQ(1, stopWords->Load(dir.Path().c_str(), "stop.txt"));
  EXPECT_TRUE(stopWords->IsStopWord(K("것").c_str()));
}

}  // namespace
}  // namespace Quorel
