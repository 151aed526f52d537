// The index-word extractor: pieces of stored proper-noun divisions with
// their prefixes and suffixes, the bounded list, and the two logged reports.
#include <gtest/gtest.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "noun_divider/divider_helpers.h"

namespace Quorel {
namespace {

using testing_divider::Cp949;
using testing_divider::Utf8;

// The logger writes to ./logs/ when it exists; the suite makes it for the
// time of a test and reads back what was appended to today's file.
class LogCapture {
 public:
  LogCapture() {
    made = std::filesystem::create_directory("logs");
    char date[32];
    const std::time_t now = std::time(nullptr);
    std::strftime(date, sizeof(date), "%m_%d_%y", std::localtime(&now));
    file = std::string("logs/") + date + ".log";
    std::error_code ignored;
    const auto size = std::filesystem::file_size(file, ignored);
    start = ignored ? 0 : size;
  }
  ~LogCapture() {
    std::error_code ignored;
    if (made) std::filesystem::remove_all("logs", ignored);
  }
  // The appended lines, without their time stamps, in UTF-8.
  std::vector<std::string> Lines() const {
    std::ifstream in(file, std::ios::binary);
    in.seekg(static_cast<std::streamoff>(start));
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(in, line)) {
      const size_t cut = line.find("] ");
      if (line.rfind("[", 0) == 0 && cut != std::string::npos) {
        line = line.substr(cut + 2);
      }
      lines.push_back(Utf8(line));
    }
    return lines;
  }

 private:
  bool made = false;
  std::string file;
  std::uintmax_t start = 0;
};

class IndexWordsTest : public testing_divider::SmallKnowledgeTest {
 protected:

  int Extract(const std::string& utf8) {
    return divider.ExtractIndexWords(Cp949(utf8).c_str());
  }
  std::vector<std::string> Words() const {
    std::vector<std::string> words;
    for (int i = 0; i < divider.indexWordCount; ++i) {
      words.push_back(Utf8(divider.indexWords[i].CStr()));
    }
    return words;
  }

};

TEST_F(IndexWordsTest, PrefixPieceSuffixGivesThreeWords) {
  EXPECT_EQ(3, Extract("신한국인들"));
  EXPECT_EQ((std::vector<std::string>{"한국인", "신한국인", "한국인들"}),
            Words());
  EXPECT_EQ(1, divider.rowCount);
  EXPECT_EQ(3, divider.rows[0].elementCount);
  EXPECT_EQ('X', divider.rows[0].elements[0].letter);
  EXPECT_EQ(3, divider.rows[0].elements[1].length);
}

TEST_F(IndexWordsTest, EachAlternativeOfTheDivisionIsCollected) {
  // "22@4": 대한 + 민국, then the whole word.
  EXPECT_EQ(3, Extract("대한민국"));
  EXPECT_EQ((std::vector<std::string>{"대한", "민국", "대한민국"}), Words());
  EXPECT_EQ(2, divider.rowCount);
  EXPECT_EQ(2, divider.rows[0].elementCount);
  EXPECT_EQ(4, divider.rows[1].elements[0].length);
}

TEST_F(IndexWordsTest, AWordThatIsNoProperNounIsOnlyEnumerated) {
  EXPECT_EQ(0, Extract("국가경제정책"));
  EXPECT_EQ(1u, testing_divider::LiveRows(divider).size());
}

TEST_F(IndexWordsTest, RepeatedTextAddsNothingAndTheListIsBounded) {
  const std::string piece = Cp949("국가");
  EXPECT_EQ(1, divider.AddIndexWord(piece.c_str()));
  EXPECT_EQ(1, divider.AddIndexWord(piece.c_str()));
  EXPECT_EQ(2, divider.AddIndexWord(piece.c_str(), 1));  // a shorter text
  for (int i = 0; i < kMaxIndexWords + 10; ++i) {
    divider.AddIndexWord(std::to_string(i).c_str());
  }
  EXPECT_EQ(kMaxIndexWords, divider.indexWordCount);
}

TEST_F(IndexWordsTest, ReportsGoToTheLogInTheirWords) {
  LogCapture log;
  EXPECT_EQ(3, Extract("신한국인들"));
  divider.PrintDivision("0");
  divider.PrintDivision("");
  const std::vector<std::string> lines = log.Lines();
  ASSERT_EQ(7u, lines.size());
  EXPECT_EQ("분해 결과 : 신 + 한국인 + 들", lines[0]);
  EXPECT_EQ("", lines[1]);  // the heading begins with a line break
  EXPECT_EQ("추출된 색인어 : 3 개", lines[2]);
  EXPECT_EQ("한국인", lines[3]);
  EXPECT_EQ("신한국인", lines[4]);
  EXPECT_EQ("한국인들", lines[5]);
  EXPECT_EQ("분해 결과 : 신한국인들", lines[6]);
}

TEST_F(IndexWordsTest, BadDivisionByteIsReportedAndStopsTheWalk) {
  LogCapture log;
  divider.word = Cp949("대한민국").c_str();
  divider.wordLength = divider.word.Length();
  divider.CollectIndexWords("2Z2");
  EXPECT_EQ((std::vector<std::string>{"대한"}), Words());
  divider.PrintDivision("2Z");
  EXPECT_EQ((std::vector<std::string>{"divpattern error..",
                                      "divpattern error.."}),
            log.Lines());
}

}  // namespace
}  // namespace Quorel
