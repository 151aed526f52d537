// Korean text through UTF-8, UCS-2 and CP949, the road every string of the
// analyzer takes, including the syllables only the extension holds.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "text/charset.h"

namespace Quorel {
namespace {

std::string Convert(const std::string& bytes, const char* from, const char* to) {
  WideChar* wide = ToWide(bytes.c_str(), from);
  char* converted = FromWide(wide, to);
  std::string result(converted);
  FreeBytes(converted);
  FreeWide(wide);
  return result;
}

std::string SyllableCp949(WideChar syllable) {
  const WideChar wide[] = {syllable, 0};
  char out[4];
  int32_t count = EncodeCount(out, wide, 4, kEncodingCp949);
  return std::string(out, count > 0 ? count : 0);
}

TEST(KoreanTextTest, SyllableOutsideKsX1001TakesTheExtension) {
  const std::string ttom = "\xEB\x98\xA0";  // 똠 in UTF-8
  EXPECT_EQ(Convert(ttom, "UTF-8", "CP949"), "\x8C\x63");
  EXPECT_EQ(Convert(ttom, "UTF-8", "EUC-KR"), "\x8C\x63");
  EXPECT_EQ(Convert("\x8C\x63", "cp949", "utf-8"), ttom);
  EXPECT_EQ(Convert("\x8C\x63", "euc-kr", "utf-8"), ttom);  // EUC-KR input reads extended codes
}

TEST(KoreanTextTest, MixedTextRoundTripsThroughCp949) {
  // Hangul, Hanja, a compatibility jamo, a symbol, digits and ASCII.
  const std::string text =
      "\xEB\x8C\x80\xED\x95\x9C\xEB\xAF\xBC\xEA\xB5\xAD \xE9\x9F\x93\xE5\x9C\x8B "
      "\xE3\x84\xB1 \xE2\x80\xBB 1,000\xEC\x9B\x90! \xEB\x98\xA0\xEB\xB0\xA9";
  std::string cp949 = Convert(text, "UTF-8", "CP949");
  EXPECT_EQ(cp949.substr(0, 8), "\xB4\xEB\xC7\xD1\xB9\xCE\xB1\xB9");  // 대한민국
  EXPECT_EQ(cp949.substr(9, 4), "\xF9\xDB\xCF\xD0");                   // 韓國, Hanja rows
  EXPECT_EQ(Convert(cp949, "CP949", "UTF-8"), text);
}

// All 11,172 syllables: KS X 1001 keeps 2,350 of them in two-byte codes
// 0xB0A1..0xC8FE; the extension takes the rest in code-point order, those
// below U+C8A5 under leads 0x81..0xA0 and the others under 0xA1..0xC6 with
// low trails. Each one converts back to itself.
TEST(KoreanTextTest, EverySyllableEncodesInOrderAndBack) {
  int ksx1001 = 0;
  int firstTable = 0;
  int secondTable = 0;
  std::string previousKs;
  std::string previousExtension;
  for (WideChar syllable = 0xAC00; syllable <= 0xD7A3; ++syllable) {
    std::string code = SyllableCp949(syllable);
    ASSERT_EQ(code.size(), 2u) << std::hex << syllable;
    unsigned char lead = code[0];
    unsigned char trail = code[1];
    if (lead >= 0xB0 && trail >= 0xA1) {
      ++ksx1001;
      EXPECT_LT(previousKs, code);
      previousKs = code;
    } else {
      EXPECT_EQ(lead <= 0xA0, syllable < 0xC8A5) << std::hex << syllable;
      (lead <= 0xA0 ? firstTable : secondTable) += 1;
      EXPECT_LT(previousExtension, code);  // ordered within and across the two tables
      previousExtension = code;
    }
    WideChar back[4];
    ASSERT_EQ(DecodeCount(back, code.c_str(), 4, kEncodingCp949), 1);
    EXPECT_EQ(back[0], syllable);
  }
  EXPECT_EQ(ksx1001, 2350);
  EXPECT_EQ(firstTable, 32 * 178);
  EXPECT_EQ(secondTable, 11172 - 2350 - 32 * 178);
}

// Sentences of a real corpus: UTF-8 to CP949 and back keeps every character
// CP949 has, and turns each one it lacks into exactly one blank.
TEST(KoreanTextTest, CorpusSentencesSurviveTheRoundTrip) {
  const std::string root = QRLSL_SOURCE_DIR "/../shared/corpus/";
  const char* files[] = {"ud-korean-gsd/ko_gsd-ud-dev.conllu", "ud-korean-kaist/ko_kaist-ud-dev.conllu"};
  int sentences = 0;
  int blanked = 0;
  for (const char* file : files) {
    std::ifstream in(root + file);
    if (!in) continue;
    std::string line;
    while (std::getline(in, line)) {
      if (line.compare(0, 9, "# text = ") != 0) continue;
      ++sentences;
      WideChar* original = ToWide(line.c_str() + 9, "UTF-8");
      char* cp949 = FromWide(original, "CP949");
      WideChar* back = ToWide(cp949, "CP949");
      ASSERT_EQ(WideLength(back), WideLength(original)) << line;
      for (int32_t i = 0; original[i]; ++i) {
        if (back[i] == original[i]) continue;
        ++blanked;
        EXPECT_EQ(back[i], 0x20) << line;
        EXPECT_EQ(SyllableCp949(original[i]), " ") << "U+" << std::hex << original[i];
      }
      FreeWide(back);
      FreeBytes(cp949);
      FreeWide(original);
    }
  }
  if (sentences == 0) GTEST_SKIP() << "no corpus under " << root;
  RecordProperty("sentences", sentences);
  RecordProperty("blanked", blanked);
}

}  // namespace
}  // namespace Quorel
