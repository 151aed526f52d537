// Eojul::SetString: one string classified as a single token.
#include <gtest/gtest.h>

#include <string>

#include "eojul/eojul.h"

namespace Quorel {
namespace {

unsigned TypeOf(const char* text, bool numberPunctuation = false,
                bool keepCase = false) {
  Eojul e;
  e.numberPunctuation = numberPunctuation;
  e.keepCase = keepCase;
  e.SetString(text);
  return e.GetType();
}

TEST(SetStringTest, ClassifiesCharacters) {
  EXPECT_EQ(TypeOf("123"), EojulType::kDigit);
  EXPECT_EQ(TypeOf("abc"), EojulType::kLatin);
  EXPECT_EQ(TypeOf("\xC7\xD1\xB1\xDB"), EojulType::kDoubleByte);  // 한글
  EXPECT_EQ(TypeOf("a1"), EojulType::kDigit | EojulType::kLatin);
  EXPECT_EQ(TypeOf("a.b"), EojulType::kLatin | EojulType::kInnerSymbol);
  // A compatibility jamo counts as a symbol inside the token.
  EXPECT_EQ(TypeOf("\xA4\xA1"), EojulType::kInnerSymbol);
  // A listed double-byte symbol: 、 (0xA1A2).
  EXPECT_EQ(TypeOf("\xA1\xA2"), EojulType::kInnerSymbol);
}

TEST(SetStringTest, CutLeadByteIsDroppedByTheHanjaPass) {
  // The Hanja conversion stops at a top-bit byte followed by the NUL, so a
  // lead byte cut off at the end never reaches the classification.
  Eojul e;
  e.SetString("\xC7\xD1\xB1");
  EXPECT_STREQ(e.GetString(), "\xC7\xD1");
  EXPECT_EQ(e.GetType(), EojulType::kDoubleByte);
}

TEST(SetStringTest, FoldsLatinUnlessKeepCase) {
  Eojul e;
  e.SetString("AbC");
  EXPECT_STREQ(e.GetString(), "abc");
  e.keepCase = true;
  e.SetString("AbC");
  EXPECT_STREQ(e.GetString(), "AbC");
}

TEST(SetStringTest, NumberPunctuation) {
  EXPECT_EQ(TypeOf("3,000", true), EojulType::kDigit);
  EXPECT_EQ(TypeOf("3,000", false), EojulType::kDigit | EojulType::kInnerSymbol);
  EXPECT_EQ(TypeOf("3.14", true), EojulType::kDigit);
  EXPECT_EQ(TypeOf("3.14.15", true) & EojulType::kInnerSymbol,
            EojulType::kInnerSymbol);
  EXPECT_EQ(TypeOf("1,23", true) & EojulType::kInnerSymbol,
            EojulType::kInnerSymbol);
  EXPECT_EQ(TypeOf("1,2345", true) & EojulType::kInnerSymbol,
            EojulType::kInnerSymbol);
  EXPECT_EQ(TypeOf("1,234,567", true), EojulType::kDigit);
  EXPECT_EQ(TypeOf("1234,567", true) & EojulType::kInnerSymbol,
            EojulType::kInnerSymbol);
}

TEST(SetStringTest, CutsAtTabAndLineEndOnly) {
  Eojul e;
  e.SetString("ab cd\tef");
  EXPECT_STREQ(e.GetString(), "ab cd");  // the blank stays: it is punctuation
  EXPECT_EQ(e.GetType(), EojulType::kLatin | EojulType::kInnerSymbol);
  e.SetString("\tab");
  EXPECT_STREQ(e.GetString(), "\tab");   // a leading tab stays in the text
}

TEST(SetStringTest, EmptyStringLeavesTheEojul) {
  Eojul e;
  e.SetString("kept");
  e.SetString("");
  EXPECT_STREQ(e.GetString(), "kept");
  e.SetString(nullptr);
  EXPECT_STREQ(e.GetString(), "kept");
}

TEST(SetStringTest, OverlongTokens) {
  Eojul e;
  std::string token(257, 'A');
  e.SetString(token.c_str());
  EXPECT_EQ(e.GetType(), EojulType::kTooLong);
  EXPECT_EQ(std::string(e.GetString()), token);  // not classified, not folded
  std::string line(66560, 'a');
  e.SetString("before");
  e.SetString(line.c_str());
  EXPECT_STREQ(e.GetString(), "before");  // refused, only logged
}

TEST(SetStringTest, HanjaTakeTheirReading) {
  Eojul e;
  e.SetString("\xCA\xA1");  // the first Hanja of the block reads 가
  EXPECT_STREQ(e.GetString(), "\xB0\xA1");
  EXPECT_EQ(e.GetType(), EojulType::kDoubleByte);
}

}  // namespace
}  // namespace Quorel
