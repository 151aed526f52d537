// The scanner through RunWithString: token cuts, type bits, marks that stay
// for the next token, offsets, and the line limit.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "analyzer/m_analyzer.h"
#include "knowledge/dictionary.h"

namespace Quorel {
namespace {

struct Token {
  std::string text;
  unsigned type;
  int offset;
};

class ScannerTest : public ::testing::Test {
 protected:
  ScannerTest() : analyzer(&knowledge) { analyzer.SetExOption(1); }

  std::vector<Token> Scan(const std::string& text) {
    analyzer.RunWithString(text.c_str());
    std::vector<Token> tokens;
    for (int i = 0; i < analyzer.GetEojulCountInSentence(); ++i) {
      auto* e = static_cast<Eojul*>(analyzer.GetEojulInSentence(i));
      tokens.push_back({e->GetString(), e->GetType(), e->GetOffset()});
    }
    return tokens;
  }
  std::vector<std::string> Texts(const std::string& text) {
    std::vector<std::string> texts;
    for (const Token& token : Scan(text)) texts.push_back(token.text);
    return texts;
  }

  Dictionary knowledge{false};
  MAnalyzer analyzer;
};

using Words = std::vector<std::string>;

TEST_F(ScannerTest, EmptyTextKeepsTheOldSentence) {
  Scan("a b");
  EXPECT_EQ(analyzer.RunWithString(""), 1);
  EXPECT_EQ(analyzer.GetEojulCountInSentence(), 2);
}

TEST_F(ScannerTest, WithoutKeepBitTheSentenceStaysEmpty) {
  analyzer.SetExOption(0);
  EXPECT_EQ(analyzer.RunWithString("a b"), 1);
  EXPECT_EQ(analyzer.GetEojulCountInSentence(), 0);
  EXPECT_EQ(analyzer.GetEojulInSentence(0), nullptr);
}

TEST_F(ScannerTest, CutsAtBlanksAndPunctuation) {
  // 말했다.
  std::vector<Token> tokens = Scan("\xB8\xBB\xC7\xDF\xB4\xD9.");
  ASSERT_EQ(tokens.size(), 2u);
  EXPECT_EQ(tokens[0].text, "\xB8\xBB\xC7\xDF\xB4\xD9");
  EXPECT_EQ(tokens[0].type, EojulType::kDoubleByte);
  EXPECT_EQ(tokens[1].text, ".");
  EXPECT_EQ(tokens[1].type, EojulType::kSymbol);
  EXPECT_EQ(Texts("ab  cd\tef"), (Words{"ab", "cd", "ef"}));
}

TEST_F(ScannerTest, RepeatedSymbolsStayTogether) {
  std::vector<Token> tokens = Scan("!!!");
  ASSERT_EQ(tokens.size(), 1u);
  EXPECT_EQ(tokens[0].text, "!!!");
  EXPECT_EQ(tokens[0].type, EojulType::kSymbol);
  EXPECT_EQ(Texts("wow!!"), (Words{"wow", "!!"}));
}

TEST_F(ScannerTest, NumberPunctuationOption) {
  EXPECT_EQ(Texts("3,000"), (Words{"3", ",", "000"}));
  analyzer.SetOption(13, 1);
  std::vector<Token> tokens = Scan("3,000");
  ASSERT_EQ(tokens.size(), 1u);
  EXPECT_EQ(tokens[0].type, EojulType::kDigit);
  tokens = Scan("3.14.15");
  ASSERT_FALSE(tokens.empty());
  EXPECT_NE(tokens[0].type & EojulType::kInnerSymbol, 0u);
  // A comma that doesn't join thousands stays in the token as a symbol.
  for (const char* text : {"1,23", "1,2345"}) {
    tokens = Scan(text);
    ASSERT_EQ(tokens.size(), 1u) << text;
    EXPECT_EQ(tokens[0].type, EojulType::kDigit | EojulType::kInnerSymbol);
  }
}

TEST_F(ScannerTest, PercentJoinsANumberOnlyWhenMoreFollows) {
  // "10%" then a blank: the mark joins, so "%" comes out as its own symbol
  // token after the number without an extra cut of the number.
  std::vector<Token> tokens = Scan("10% x");
  ASSERT_EQ(tokens.size(), 3u);
  EXPECT_EQ(tokens[0].text, "10");
  EXPECT_EQ(tokens[1].text, "%");
  EXPECT_EQ(tokens[1].type, EojulType::kSymbol);
  tokens = Scan("10%");
  ASSERT_EQ(tokens.size(), 2u);
  EXPECT_EQ(tokens[1].type, EojulType::kSymbol);
}

TEST_F(ScannerTest, ClosingQuoteMarksTheWord) {
  // "책" : the word closed by the quote gets 0x40.
  std::vector<Token> tokens = Scan("\"\xC3\xA5\"");
  ASSERT_EQ(tokens.size(), 3u);
  EXPECT_EQ(tokens[1].text, "\xC3\xA5");
  EXPECT_NE(tokens[1].type & EojulType::kClosed, 0u);
  EXPECT_EQ(tokens[2].text, "\"");
}

TEST_F(ScannerTest, DoubleByteSymbolsAreTokensOfTheirOwn) {
  // 가「나」 : the brackets are listed symbols.
  std::vector<Token> tokens = Scan("\xB0\xA1\xA1\xB8\xB3\xAA\xA1\xB9");
  ASSERT_EQ(tokens.size(), 4u);
  EXPECT_EQ(tokens[1].type, EojulType::kSymbol);
  EXPECT_EQ(tokens[2].text, "\xB3\xAA");
  EXPECT_EQ(tokens[3].type, EojulType::kSymbol);
}

TEST_F(ScannerTest, HalfCharacterAtTheEnd) {
  std::vector<Token> tokens = Scan("\xB0\xA1\xB3");
  ASSERT_EQ(tokens.size(), 1u);
  EXPECT_EQ(tokens[0].type, EojulType::kDoubleByte | EojulType::kHalfChar);
  // A lone symbol-row lead is dropped silently.
  EXPECT_EQ(Texts("a \xA1"), (Words{"a"}));
}

// Runs of Hangul syllables meeting the other classes inside one token.
TEST_F(ScannerTest, HangulRunsMeetOtherCharacters) {
  // 가나 then the jamo ㄱ: one token, with the jamo's inner-symbol bit.
  std::vector<Token> tokens = Scan("\xB0\xA1\xB3\xAA\xA4\xA1");
  ASSERT_EQ(tokens.size(), 1u);
  EXPECT_EQ(tokens[0].text, "\xB0\xA1\xB3\xAA\xA4\xA1");
  EXPECT_EQ(tokens[0].type, EojulType::kDoubleByte | EojulType::kInnerSymbol);
  // 가 then the Hanja 家 (read 가) then 나.
  tokens = Scan("\xB0\xA1\xCA\xA1\xB3\xAA");
  ASSERT_EQ(tokens.size(), 1u);
  EXPECT_EQ(tokens[0].text, "\xB0\xA1\xB0\xA1\xB3\xAA");
  // Latin and digits join the Hangul token and add their bits.
  tokens = Scan("\xB0\xA1" "a1" "\xB3\xAA");
  ASSERT_EQ(tokens.size(), 1u);
  EXPECT_EQ(tokens[0].type,
            EojulType::kDoubleByte | EojulType::kLatin | EojulType::kDigit);
  // The last syllable lead (0xC8) and the first lead after it (0xC9).
  tokens = Scan("\xC8\xFE\xC9\xA1 \xC8\xFE");
  ASSERT_EQ(tokens.size(), 2u);
  EXPECT_EQ(tokens[0].text, "\xC8\xFE\xC9\xA1");
  EXPECT_EQ(tokens[0].type, EojulType::kDoubleByte);
  EXPECT_EQ(tokens[1].offset, 5);
  // A syllable cut in half after a run, and a run closed by a period.
  EXPECT_EQ(Scan("\xB0\xA1\xB3\xAA\xB0")[0].type,
            EojulType::kDoubleByte | EojulType::kHalfChar);
  EXPECT_EQ(Texts("\xB0\xA1\xB3\xAA."), (Words{"\xB0\xA1\xB3\xAA", "."}));
}

TEST_F(ScannerTest, OffsetsInBytesOrCharacters) {
  std::vector<Token> tokens = Scan("\xB0\xA1 \xB3\xAA");  // 가 나
  ASSERT_EQ(tokens.size(), 2u);
  EXPECT_EQ(tokens[0].offset, 0);
  EXPECT_EQ(tokens[1].offset, 3);
  analyzer.SetOption(18, 1);
  tokens = Scan("\xB0\xA1 \xB3\xAA");
  EXPECT_EQ(tokens[1].offset, 2);
}

TEST_F(ScannerTest, OverlongTokenGetsOneUnregisteredNoun) {
  std::string token(257, 'a');
  analyzer.RunWithString(token.c_str());
  ASSERT_EQ(analyzer.GetEojulCountInSentence(), 1);
  QR_Eojul* e = analyzer.GetEojulInSentence(0);
  EXPECT_EQ(static_cast<Eojul*>(e)->GetType() & EojulType::kTooLong,
            EojulType::kTooLong);
  ASSERT_EQ(e->GetListSize(), 1);
  EXPECT_STREQ(e->GetStrPOS(0, 0), "NNR");
}

TEST_F(ScannerTest, LineLimit) {
  std::string refused(66560, 'a');
  EXPECT_EQ(analyzer.RunWithString(refused.c_str()), 1);
  EXPECT_EQ(analyzer.GetEojulCountInSentence(), 0);
  std::string taken(66559, 'a');
  analyzer.RunWithString(taken.c_str());
  EXPECT_EQ(analyzer.GetEojulCountInSentence(), 1);
}

TEST_F(ScannerTest, EveryTokenHasACandidate) {
  const char* text = "Abc 123 \xC7\xD1\xB1\xDB!! (x) \xA1\xA2 \xCA\xA1 a.b";
  analyzer.RunWithString(text);
  ASSERT_GT(analyzer.GetEojulCountInSentence(), 0);
  for (int i = 0; i < analyzer.GetEojulCountInSentence(); ++i) {
    EXPECT_GE(analyzer.GetEojulInSentence(i)->GetListSize(), 1) << i;
  }
}

}  // namespace
}  // namespace Quorel
