// The converter's rules: names, blanks for what can't be decoded or encoded,
// cut-off input, room and measuring, allocation and stream output.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "text/charset.h"
#include "text/charset_codecs.h"

namespace Quorel {
namespace {

std::u16string DecodeText(const std::string& bytes, const char* name) {
  WideChar* wide = ToWide(bytes.c_str(), name);
  std::u16string text(wide, wide + WideLength(wide));
  FreeWide(wide);
  return text;
}

std::string EncodeText(const std::u16string& text, const char* name) {
  std::vector<WideChar> wide(text.begin(), text.end());
  wide.push_back(0);
  char* bytes = FromWide(wide.data(), name);
  std::string result(bytes);
  FreeBytes(bytes);
  return result;
}

TEST(EncodingIdTest, NamesCompareWithoutCase) {
  const std::pair<const char*, int32_t> names[] = {
      {"UTF-8", 1},     {"utf8", 1},        {"Utf-8", 1},       {"EUC-KR", 2},
      {"euc-kr", 2},    {"cp949", 3},       {"CP949", 3},       {"euc-jp", 4},
      {"Shift-JIS", 5}, {"sjis", 5},        {"gb2312", 6},      {"big5", 7},
      {"latin9", 8},    {"iso 8859-15", 8}, {"ISO-8859-15", 8}, {"iso8859-15", 8},
      {"ISO8859", 8},
  };
  for (const auto& entry : names) EXPECT_EQ(EncodingId(entry.first), entry.second) << entry.first;
}

TEST(EncodingIdTest, UnknownNamesGiveZero) {
  for (const char* name : {"UTF-16", "utf", "UTF-8 ", "cp9490", "EUC", "", "ISO8859-1", "KOI8-R"}) {
    EXPECT_EQ(EncodingId(name), 0) << name;
  }
  EXPECT_EQ(EncodingId(nullptr), 0);
}

TEST(EncodingIdTest, UnknownIdsAreRefusedAndNewFormsGiveEmptyStrings) {
  WideChar wide[4] = {'a', 0};
  char bytes[4];
  EXPECT_EQ(DecodeCount(wide, "abc", 4, 0), -1);
  EXPECT_EQ(DecodeCount(wide, "abc", 4, 9), -1);
  EXPECT_EQ(Decode(wide, "abc", 4, "klingon"), -1);
  EXPECT_EQ(EncodeCount(bytes, wide, 4, 0), -1);
  EXPECT_EQ(Encode(bytes, wide, 4, "klingon"), -1);
  WideChar* none = ToWide("abc", "klingon");
  ASSERT_NE(none, nullptr);
  EXPECT_EQ(WideLength(none), 0);
  FreeWide(none);
  char* noBytes = FromWide(wide, "klingon");
  ASSERT_NE(noBytes, nullptr);
  EXPECT_STREQ(noBytes, "");
  FreeBytes(noBytes);
}

TEST(Utf8DecodeTest, CharactersOutsideUcs2BecomeOneBlank) {
  EXPECT_EQ(DecodeText("\xEF\xBF\xBE", "UTF-8"), u" ");                // 0xFFFE refused
  EXPECT_EQ(DecodeText("\xEF\xBF\xBD", "UTF-8"), u"\xFFFD");           // its neighbour kept
  EXPECT_EQ(DecodeText("a\xF0\x9F\x98\x80z", "UTF-8"), u"a z");        // four bytes, one blank
  EXPECT_EQ(DecodeText("\xED\xA0\x80!", "UTF-8"), u" !");              // an encoded surrogate
  EXPECT_EQ(DecodeText("\xF8\x88\x80\x80\x80" "A", "UTF-8"), u" A");   // five-byte form
  EXPECT_EQ(DecodeText("\xFD\xBF\xBF\xBF\xBF\xBF" "A", "UTF-8"), u" A");  // six-byte form
}

TEST(Utf8DecodeTest, InvalidBytesBecomeOneBlankEach) {
  EXPECT_EQ(DecodeText("\xC0\x80", "UTF-8"), u"  ");
  EXPECT_EQ(DecodeText("\xC1\xBF", "UTF-8"), u"  ");
  EXPECT_EQ(DecodeText("\xE0\x80\xAF", "UTF-8"), u"   ");       // overlong three-byte form
  EXPECT_EQ(DecodeText("\xF0\x8F\xBF\xBF", "UTF-8"), u"    ");   // overlong four-byte form
  EXPECT_EQ(DecodeText("\xF8\x87\xBF\xBF\xBF", "UTF-8"), u"     ");
  EXPECT_EQ(DecodeText("\xFC\x83\xBF\xBF\xBF\xBF", "UTF-8"), u"      ");
  EXPECT_EQ(DecodeText("\xFE\xFF", "UTF-8"), u"  ");
  EXPECT_EQ(DecodeText("\xC3" "A", "UTF-8"), u" A");  // a lead without its trail
  EXPECT_EQ(DecodeText("\xE2\x82" "A" "\xAC", "UTF-8"), u"  A ");  // a trail cut by 'A'
}

TEST(Utf8DecodeTest, CutSequenceAtTheEndIsDropped) {
  EXPECT_EQ(DecodeText("ab\xE2\x82", "UTF-8"), u"ab");
  EXPECT_EQ(DecodeText("\xED\x95\x9C\xEA", "UTF-8"), u"\xD55C");
  EXPECT_EQ(DecodeText("\xF0\x9F\x98", "UTF-8"), u"");
  EXPECT_EQ(DecodeCount(nullptr, "ab\xE2\x82", 100, kEncodingUtf8), 2);
}

TEST(Utf8CodecTest, SixFormsByValue) {
  const std::pair<uint32_t, std::string> forms[] = {
      {0x7F, "\x7F"},
      {0x80, "\xC2\x80"},
      {0x7FF, "\xDF\xBF"},
      {0x800, "\xE0\xA0\x80"},
      {0xFFFF, "\xEF\xBF\xBF"},
      {0x10000, "\xF0\x90\x80\x80"},
      {0x1FFFFF, "\xF7\xBF\xBF\xBF"},
      {0x200000, "\xF8\x88\x80\x80\x80"},
      {0x3FFFFFF, "\xFB\xBF\xBF\xBF\xBF"},
      {0x4000000, "\xFC\x84\x80\x80\x80\x80"},
      {0x7FFFFFFF, "\xFD\xBF\xBF\xBF\xBF\xBF"},
  };
  for (const auto& form : forms) {
    unsigned char out[8];
    int32_t length = static_cast<int32_t>(form.second.size());
    ASSERT_EQ(charset::EncodeUtf8(out, form.first, 8), length) << std::hex << form.first;
    EXPECT_EQ(std::string(reinterpret_cast<char*>(out), length), form.second);
    EXPECT_EQ(charset::EncodeUtf8(nullptr, form.first, length), length);
    EXPECT_EQ(charset::EncodeUtf8(out, form.first, length - 1), charset::kNoRoom);
    uint32_t value = 0;
    EXPECT_EQ(charset::DecodeUtf8(&value, out, length), length);
    EXPECT_EQ(value, form.first);
    if (length > 1) {
      EXPECT_EQ(charset::DecodeUtf8(&value, out, length - 1), charset::kTooFewBytes);
    }
  }
  unsigned char out[8];
  EXPECT_EQ(charset::EncodeUtf8(out, 0x80000000u, 8), charset::kNoMapping);
}

TEST(EncodeTest, SurrogateUnitsAndUnmappableCharactersBecomeBlanks) {
  EXPECT_EQ(EncodeText(u"a\xD800" "b", "UTF-8"), "a b");
  EXPECT_EQ(EncodeText(u"a\xDFFF" "b", "CP949"), "a b");
  EXPECT_EQ(EncodeText(u"\xD83D\xDE00", "UTF-8"), "  ");  // a pair is two lone halves here
  EXPECT_EQ(EncodeText(u"\x0E01\x4E02", "CP949"), "  ");  // Thai, and a Hanja KS X 1001 lacks
  EXPECT_EQ(EncodeText(u"\xAC00\x0E01\xAC00", "EUC-KR"), "\xB0\xA1 \xB0\xA1");
  EXPECT_EQ(EncodeText(u"\xFFFE", "UTF-8"), "\xEF\xBF\xBE");  // only decoding refuses 0xFFFE
}

TEST(DecodeTest, RoomLimitsUnitsAndTheNulFollowsOnlyWhenRoomRemains) {
  WideChar out[8];
  std::fill(out, out + 8, 0x7777);
  EXPECT_EQ(DecodeCount(out, "abcd", 4, kEncodingUtf8), 4);
  EXPECT_EQ(out[3], 'd');
  EXPECT_EQ(out[4], 0x7777);  // no room left for the NUL
  EXPECT_EQ(DecodeCount(out, "abcd", 2, kEncodingUtf8), 2);
  EXPECT_EQ(out[2], 'c');     // untouched from the call before
  EXPECT_EQ(DecodeCount(out, "abcd", 5, kEncodingUtf8), 4);
  EXPECT_EQ(out[4], 0);
  EXPECT_EQ(DecodeCount(out, "", 5, kEncodingUtf8), 0);
  EXPECT_EQ(out[0], 0);
  EXPECT_EQ(DecodeCount(out, nullptr, 5, kEncodingCp949), 0);
  EXPECT_EQ(DecodeCount(out, "abc", 0, kEncodingUtf8), 0);
  EXPECT_EQ(DecodeCount(nullptr, "\xC0\x80xyz\xE2", 0x7FFFFFFF, kEncodingUtf8), 5);
}

TEST(EncodeTest, NoRoomForACharacterEndsTheOutput) {
  char out[8];
  std::fill(out, out + 8, '#');
  const WideChar text[] = {'a', 0xD55C, 'b', 0};
  EXPECT_EQ(EncodeCount(out, text, 2, kEncodingCp949), 1);  // the syllable needs two
  EXPECT_EQ(out[1], '#');                                   // and no NUL follows
  EXPECT_EQ(EncodeCount(out, text, 3, kEncodingCp949), 3);
  EXPECT_EQ(out[3], '#');
  EXPECT_EQ(EncodeCount(out, text, 4, kEncodingUtf8), 4);
  EXPECT_EQ(std::string(out, 4), "a\xED\x95\x9C");
  EXPECT_EQ(EncodeCount(out, text, 8, kEncodingUtf8), 5);
  EXPECT_STREQ(out, "a\xED\x95\x9C" "b");
  EXPECT_EQ(EncodeCount(nullptr, text, 0x7FFFFFF, kEncodingCp949), 4);
  EXPECT_EQ(EncodeCount(out, nullptr, 8, kEncodingCp949), 0);
  EXPECT_STREQ(out, "");
}

TEST(NewFormsTest, MeasureThenFillExactly) {
  WideChar* wide = DecodeNew("\xC7\xD1\xB1\xDB abc \x8C\x63", kEncodingCp949);
  ASSERT_NE(wide, nullptr);
  EXPECT_EQ(std::u16string(wide, wide + WideLength(wide)), u"\xD55C\xAE00 abc \xB620");
  char* utf8 = EncodeNew(wide, kEncodingUtf8);
  ASSERT_NE(utf8, nullptr);
  EXPECT_STREQ(utf8, "\xED\x95\x9C\xEA\xB8\x80 abc \xEB\x98\xA0");
  FreeBytes(utf8);
  FreeWide(wide);
  WideChar* empty = DecodeNew(nullptr, kEncodingUtf8);
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(empty[0], 0);
  FreeWide(empty);
  EXPECT_EQ(WideLength(nullptr), 0);
}

TEST(Latin9Test, EuroAndTheChangedRow) {
  EXPECT_EQ(DecodeText("\xA4", "ISO-8859-15"), u"\x20AC");
  EXPECT_EQ(EncodeText(u"\x20AC", "latin9"), "\xA4");
  const std::u16string changed = u"\x20AC\x0160\x0161\x017D\x017E\x0152\x0153\x0178";
  const std::string bytes = "\xA4\xA6\xA8\xB4\xB8\xBC\xBD\xBE";
  EXPECT_EQ(DecodeText(bytes, "ISO8859-15"), changed);
  EXPECT_EQ(EncodeText(changed, "ISO8859"), bytes);
  // The Latin-1 signs those codes held have no place here.
  EXPECT_EQ(EncodeText(u"\x00A4\x00A6\x00A8\x00B4\x00B8\x00BC\x00BD\x00BE", "latin9"), "        ");
  // The rest of 0xA0..0xBF, and 0xC0..0xFF, are Latin-1.
  EXPECT_EQ(DecodeText("\xA0\xA5\xA7\xBF\xC0\xFF", "latin9"), u"\x00A0\x00A5\x00A7\x00BF\x00C0\x00FF");
  EXPECT_EQ(EncodeText(u"\x00A0\x00A5\x00A7\x00BF\x00C0\x00FF", "latin9"), "\xA0\xA5\xA7\xBF\xC0\xFF");
  EXPECT_EQ(EncodeText(u"\x0151\x0100\x20AD", "latin9"), "   ");
}

TEST(WriteWideTest, WritesEncodedBytesAndLineEnds) {
  const WideChar text[] = {0xD55C, 0xAE00, '!', 0};
  std::ostringstream stream;
  WriteWide(stream, text, "CP949");
  EXPECT_EQ(stream.str(), "\xC7\xD1\xB1\xDB!");
  WriteWideLine(stream, text, "UTF-8");
  EXPECT_EQ(stream.str(), "\xC7\xD1\xB1\xDB!\xED\x95\x9C\xEA\xB8\x80!\n");
}

TEST(WriteWideTest, WritesAtMost4096Bytes) {
  std::vector<WideChar> text(4095, 'x');
  text.push_back(0xD55C);  // needs bytes 4096 and 4097: left out whole
  text.push_back(0);
  std::ostringstream stream;
  WriteWide(stream, text.data(), "CP949");
  EXPECT_EQ(stream.str(), std::string(4095, 'x'));
  std::vector<WideChar> syllables(3000, 0xAC00);
  syllables.push_back(0);
  std::ostringstream second;
  WriteWideLine(second, syllables.data(), "CP949");
  EXPECT_EQ(second.str().size(), 4097u);
  EXPECT_EQ(second.str().substr(4094), "\xB0\xA1\n");
}

TEST(WriteWideTest, ShortFormsWriteToStandardOutput) {
  const WideChar text[] = {0xB620, 0};
  testing::internal::CaptureStdout();
  WriteWide(text, "UTF-8");
  WriteWideLine(text, "CP949");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "\xEB\x98\xA0\x8C\x63\n");
}

}  // namespace
}  // namespace Quorel
