#include "lexical/scramble.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "lexical/lexical_helpers.h"
#include "lexical/synonyms.h"

namespace Quorel {
namespace {

using lexical_test::K;
using lexical_test::Render;
using lexical_test::ScratchDir;

TEST(ScrambleRecordTest, LayoutOfOneRecord) {
  std::string record;
  ASSERT_TRUE(ScrambleLine("ab", 2, record));
  // "07290\n" in hexadecimal: (4 + 77) * 90 = 7290; then 'a' ^ 0x5A = 0x3B
  // and 'b' ^ 0x5A = 0x38.
  EXPECT_EQ("30373239300A3B38", record);

  record.clear();
  ASSERT_TRUE(ScrambleLine("\xBB\xE7", 2, record));
  EXPECT_EQ("30373239300AE1BD", record);  // upper-case digits
}

TEST(ScrambleRecordTest, LongestLineStillFitsTheLengthField) {
  std::string record;
  const std::string longest(kMaxScrambledLine, 'x');
  ASSERT_TRUE(ScrambleLine(longest.data(), longest.size(), record));
  EXPECT_EQ(kLengthFieldSize + 2 * longest.size(), record.size());
  record.clear();
  EXPECT_FALSE(ScrambleLine(longest.data(), longest.size() + 1, record));
  EXPECT_TRUE(record.empty());
}

TEST(ScrambleRecordTest, ReadsBackWhatWasWritten) {
  ScratchDir dir;
  std::string records;
  const std::string first = K("사과 애플");
  const std::string longest(kMaxScrambledLine, 'y');
  ScrambleLine(first.data(), first.size(), records);
  records += "30303030300A";  // number 0: passed over
  ScrambleLine(longest.data(), longest.size(), records);
  ScrambleLine("cut", 3, records);
  records.resize(records.size() - 1);  // the last record is cut off
  const std::string path = dir.Write("r.bin", records);

  FILE* file = std::fopen(path.c_str(), "rb");
  ASSERT_NE(nullptr, file);
  std::string line;
  EXPECT_EQ(1, ReadScrambledRecord(file, line));
  EXPECT_EQ(first, line);
  EXPECT_EQ(0, ReadScrambledRecord(file, line));
  EXPECT_EQ(1, ReadScrambledRecord(file, line));
  EXPECT_EQ(longest, line);
  EXPECT_EQ(-1, ReadScrambledRecord(file, line));
  std::fclose(file);
}

const char kGroups[] =
    "; 주석\n"
    "사과 애플 <능금 >사과나무\n"
    "배 |배나무 과일\r\n"
    "과일 열매 과일\n"
    "\n"
    "New_York 뉴욕  \n"
    "홀로";

TEST(ScrambleFileTest, ScrambledFileAnswersLikeTheText) {
  ScratchDir dir;
  dir.Write("syn.txt", K(kGroups));
  SynonymContainer text;
  ASSERT_EQ(1, text.Load(dir.Path().c_str(), "syn.txt", false));
  ASSERT_EQ(0, text.ScrambleFile(dir.File("syn.txt").c_str()));
  ASSERT_TRUE(dir.Exists("syn.bin"));
  EXPECT_EQ(std::string::npos, dir.Read("syn.bin").find(K("사과")));

  SynonymContainer scrambled;
  ASSERT_EQ(1, scrambled.Load(dir.Path().c_str(), "syn.bin", true));
  for (const char* word : {"사과", "애플", "능금", "사과나무", "배", "배나무",
                           "과일", "열매", "New_York", "뉴욕", "홀로", "주석",
                           "<능금", "New York", "없다"}) {
    EXPECT_EQ(Render(text, K(word)), Render(scrambled, K(word))) << word;
  }
  EXPECT_EQ(K("1:2|배/3 배00 배나무00 과일00|과일/3 과일00 열매00 과일00"),
            Render(scrambled, K("과일")));
}

TEST(ScrambleFileTest, OnlyDataLinesAreWritten) {
  ScratchDir dir;
  dir.Write("s.txt", "; note\nab\n/ note\n\n cd\n");
  SynonymContainer synonyms;
  ASSERT_EQ(0, synonyms.ScrambleFile(dir.File("s.txt").c_str()));
  EXPECT_EQ("30373239300A3B38", dir.Read("s.bin"));
}

TEST(ScrambleFileTest, ZeroNumberRecordIsPassedOver) {
  ScratchDir dir;
  dir.Write("s.txt", "a b\n");
  SynonymContainer synonyms;
  ASSERT_EQ(0, synonyms.ScrambleFile(dir.File("s.txt").c_str()));
  dir.Write("z.bin", "30303030300A" + dir.Read("s.bin"));
  ASSERT_EQ(1, synonyms.Load(dir.Path().c_str(), "z.bin", true));
  EXPECT_EQ("1:1|a/2 a00 b00", Render(synonyms, "b"));
}

TEST(ScrambleFileTest, CutOffFileKeepsItsWholeRecords) {
  ScratchDir dir;
  dir.Write("s.txt", "a b\nc d\n");
  SynonymContainer synonyms;
  ASSERT_EQ(0, synonyms.ScrambleFile(dir.File("s.txt").c_str()));
  std::string bytes = dir.Read("s.bin");
  bytes.resize(bytes.size() - 2);
  dir.Write("s.bin", bytes);
  ASSERT_EQ(1, synonyms.Load(dir.Path().c_str(), "s.bin", true));
  EXPECT_EQ("1:1|a/2 a00 b00", Render(synonyms, "a"));
  EXPECT_EQ("0:0", Render(synonyms, "c"));
}

TEST(ScrambleFileTest, TargetNameTakesTheStemAtTheLastDot) {
  ScratchDir dir;
  std::filesystem::create_directory(dir.File("d.x"));
  dir.Write("d.x/plain", "a b\n");
  dir.Write("d.x/two.dots.txt", "a b\n");
  SynonymContainer synonyms;
  EXPECT_EQ(0, synonyms.ScrambleFile(dir.File("d.x/plain").c_str()));
  EXPECT_TRUE(dir.Exists("d.x/plain.bin"));
  EXPECT_EQ(0, synonyms.ScrambleFile(dir.File("d.x/two.dots.txt").c_str()));
  EXPECT_TRUE(dir.Exists("d.x/two.dots.bin"));
}

TEST(ScrambleFileTest, UnusableInputGivesMinusOne) {
  ScratchDir dir;
  SynonymContainer synonyms;
  EXPECT_EQ(-1, synonyms.ScrambleFile(dir.File("absent.txt").c_str()));
  EXPECT_FALSE(dir.Exists("absent.bin"));
  EXPECT_EQ(-1, synonyms.ScrambleFile(nullptr));
  // A source that already has the target's name is left alone.
  dir.Write("s.bin", "a b\n");
  EXPECT_EQ(-1, synonyms.ScrambleFile(dir.File("s.bin").c_str()));
  EXPECT_EQ("a b\n", dir.Read("s.bin"));
}

TEST(ScrambleFileTest, MissingScrambledFileGivesZero) {
  ScratchDir dir;
  SynonymContainer synonyms;
  EXPECT_EQ(0, synonyms.Load(dir.Path().c_str(), "absent.bin", true));
}

}  // namespace
}  // namespace Quorel
