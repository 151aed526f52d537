// Hanja readings: the table over the whole Hanja block, and ConvertHanja's
// pairwise walk.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "eojul/hanja.h"
#include "text/charset.h"

namespace Quorel {
namespace {

// Every code of the block, in code order, as one CP949 string.
std::string AllHanja() {
  std::string text;
  for (int lead = kHanjaFirstLead; lead <= kHanjaLastLead; ++lead) {
    for (int trail = kHanjaFirstTrail; trail <= kHanjaLastTrail; ++trail) {
      text += static_cast<char>(lead);
      text += static_cast<char>(trail);
    }
  }
  return text;
}

std::string Converted(const std::string& text) {
  std::string out(text.size() + 1, '#');
  int32_t length = ConvertHanja(text.c_str(), &out[0]);
  EXPECT_EQ(out[length], '\0');
  return out.substr(0, length);
}

// The block converted whole: 4,888 characters, each of them now a Hangul
// syllable, their readings rising through the block as the standard sorts
// its Hanja.
TEST(HanjaReadingTest, EveryHanjaOfTheBlockReadsAsOneSyllable) {
  std::string hanja = AllHanja();
  ASSERT_EQ(hanja.size(), 2u * 4888);
  std::string readings = Converted(hanja);
  ASSERT_EQ(readings.size(), hanja.size());
  WideChar* wide = ToWide(readings.c_str(), "CP949");
  ASSERT_EQ(WideLength(wide), 4888);
  WideChar previous = 0xAC00;
  for (int i = 0; i < 4888; ++i) {
    EXPECT_TRUE(wide[i] >= 0xAC00 && wide[i] <= 0xD7A3) << "code " << i << ": U+" << std::hex << wide[i];
    EXPECT_GE(wide[i], previous) << "code " << i;
    previous = wide[i];
    // Readings are plain KS X 1001 syllables: leads 0xB0..0xC8, trails 0xA1..
    unsigned char lead = readings[2 * i];
    unsigned char trail = readings[2 * i + 1];
    EXPECT_TRUE(lead >= 0xB0 && lead <= 0xC8 && trail >= 0xA1) << "code " << i;
  }
  FreeWide(wide);
}

TEST(HanjaReadingTest, EveryEntryIsFilled) {
  int empty = 0;
  for (const auto& row : HanjaReadingTable) {
    for (uint16_t entry : row) empty += entry == 0;
  }
  EXPECT_EQ(empty, 0);
}

TEST(HanjaReadingTest, TellingRowsHold) {
  const std::pair<uint16_t, uint16_t> rows[] = {
      {0xCAA1, 0xB0A1},  // 가
      {0xD1CB, 0xB1E2},  // 기
      {0xD8F5, 0xB8E9},  // 면
      {0xE0C1, 0xBCB1},  // 선
      {0xEFB7, 0xC0FD},  // 절
      {0xF6E1, 0xC4E8},  // 쾌
  };
  for (const auto& row : rows) {
    int lead = row.first >> 8;
    int trail = row.first & 0xFF;
    EXPECT_EQ(HanjaReadingTable[lead - 0xCA][trail - 0xA1], row.second) << std::hex << row.first;
  }
}

TEST(HanjaReadingTest, WordsReadAsKorean) {
  EXPECT_EQ(Converted("\xD3\xDE\xF9\xDB\xDA\xC5\xCF\xD0"), "\xB4\xEB\xC7\xD1\xB9\xCE\xB1\xB9");  // 大韓民國
  EXPECT_EQ(Converted("\xF9\xD3\xED\xAE"), "\xC7\xD1\xC0\xDA");  // 漢字 -> 한자
  EXPECT_EQ(Converted("\xD7\xDD"), "\xB8\xAE");                  // 李 filed under 리
}

TEST(ConvertHanjaTest, RunsInPlaceAndKeepsTheLength) {
  char text[] = "\xF9\xDB\xCF\xD0\xE5\xDE";  // 韓國語
  EXPECT_EQ(ConvertHanja(text, text), 6);
  EXPECT_STREQ(text, "\xC7\xD1\xB1\xB9\xBE\xEE");  // 한국어
  std::string all = AllHanja();
  std::string expected = Converted(all);
  EXPECT_EQ(ConvertHanja(&all[0], &all[0]), static_cast<int32_t>(expected.size()));
  EXPECT_EQ(all, expected);
}

TEST(ConvertHanjaTest, AsciiGoesByteByByteAndOtherPairsStay) {
  // "A韓1국語!" with a Hangul syllable and a symbol pair left as they are.
  EXPECT_EQ(Converted("A\xF9\xDB" "1\xB1\xB9\xE5\xDE!\xA1\xDA"),
            "A\xC7\xD1" "1\xB1\xB9\xBE\xEE!\xA1\xDA");
  // An odd number of ASCII bytes before a Hanja does not shift the pairing.
  EXPECT_EQ(Converted("abc\xF9\xDB"), "abc\xC7\xD1");
  // A Hanja-row lead with a trail outside 0xA1..0xFE is no Hanja.
  EXPECT_EQ(Converted("\xCA\x41\xFD\xFF"), "\xCA\x41\xFD\xFF");
  // The trail of a pair is never a lead: 0xB0 0xCA then 0xA1 0x41.
  EXPECT_EQ(Converted("\xB0\xCA\xA1\x41"), "\xB0\xCA\xA1\x41");
  EXPECT_EQ(Converted(""), "");
}

TEST(ConvertHanjaTest, TopBitByteBeforeTheEndIsLeftOut) {
  EXPECT_EQ(Converted("ab\xF9"), "ab");
  EXPECT_EQ(Converted("\xF9\xDB\xCF"), "\xC7\xD1");
  char text[] = "x\xF9\xDB\xB0";
  EXPECT_EQ(ConvertHanja(text, text), 3);
  EXPECT_STREQ(text, "x\xC7\xD1");
}

}  // namespace
}  // namespace Quorel
