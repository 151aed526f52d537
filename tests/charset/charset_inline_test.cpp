// The in-line decoders and encoders of the conversion loops against the
// codecs' general forms, over every code point and every byte sequence of the
// forms they take in line.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "text/charset.h"
#include "text/charset_codecs.h"

namespace Quorel {
namespace {

// The decode loop written out plainly over a codec's general decoder.
std::vector<WideChar> ReferenceDecode(const std::string& bytes, int32_t id) {
  std::vector<WideChar> units;
  const unsigned char* in = reinterpret_cast<const unsigned char*>(bytes.c_str());
  int32_t available = static_cast<int32_t>(bytes.size());
  while (available > 0) {
    uint32_t codePoint = 0;
    const int32_t consumed = charset::CodecTable[id].decode(&codePoint, in, available);
    if (consumed == charset::kTooFewBytes) break;
    const int32_t step = consumed >= 0 ? consumed : 1;
    const bool blank = consumed < 0 || codePoint > 0xFFFF || codePoint == 0xFFFE ||
                       (codePoint >= 0xD800 && codePoint <= 0xDFFF);
    units.push_back(blank ? 0x20 : static_cast<WideChar>(codePoint));
    in += step;
    available -= step;
  }
  return units;
}

std::vector<WideChar> LibraryDecode(const std::string& bytes, int32_t id) {
  std::vector<WideChar> units(bytes.size() + 1);
  const int32_t count =
      DecodeCount(units.data(), bytes.c_str(), static_cast<int32_t>(units.size()), id);
  EXPECT_EQ(count, DecodeCount(nullptr, bytes.c_str(), 0x7FFFFFFF, id));
  units.resize(count < 0 ? 0 : count);
  return units;
}

std::string Utf8Of(uint32_t codePoint) {
  unsigned char bytes[6];
  const int32_t n = charset::EncodeUtf8(bytes, codePoint, 6);
  return std::string(reinterpret_cast<char*>(bytes), n);
}

TEST(Utf8InlineTest, AnswersAsTheGeneralDecoderForEveryLeadAndTwoTrails) {
  int64_t differences = 0;
  for (uint32_t lead = 1; lead < 256; ++lead) {
    for (uint32_t first = 0; first < 256; ++first) {
      for (uint32_t second = 0; second < 256; ++second) {
        const unsigned char in[4] = {static_cast<unsigned char>(lead),
                                     static_cast<unsigned char>(first),
                                     static_cast<unsigned char>(second), 0x80};
        for (int32_t available = 1; available <= 4; ++available) {
          if (available < 3 && second != 0) continue;  // bytes it never reads
          uint32_t inlined = 0, general = 0;
          const int32_t a = charset::DecodeUtf8Inline(&inlined, in, available);
          const int32_t b = charset::DecodeUtf8(&general, in, available);
          if (a != b || (a > 0 && inlined != general)) ++differences;
          if (charset::DecodeUtf8Inline(nullptr, in, available) != b) ++differences;
        }
      }
    }
  }
  EXPECT_EQ(differences, 0);
}

TEST(Utf8InlineTest, EveryCodePointDecodesAsTheGeneralLoop) {
  // Runs of neighbouring code points, so the loop meets every form in turn.
  std::string text;
  for (uint32_t codePoint = 1; codePoint <= 0x10FFFF; ++codePoint) {
    text += Utf8Of(codePoint);
    if (text.size() >= 4096 || codePoint == 0x10FFFF) {
      ASSERT_EQ(LibraryDecode(text, kEncodingUtf8), ReferenceDecode(text, kEncodingUtf8))
          << "run ending at U+" << std::hex << codePoint;
      text.clear();
    }
  }
}

TEST(Utf8InlineTest, BadAndCutSequencesAmongHangulDecodeAsTheGeneralLoop) {
  const std::string han = Utf8Of(0xD55C);  // 한
  const std::string cases[] = {
      han + "\xED\xA0\x80" + han,       // a surrogate: one blank
      han + "\xEF\xBF\xBE" + "a",        // U+FFFE: one blank
      han + "\xE0\x9F\xBF" + han,        // overlong three-byte form
      han + "\xEA\x41\x80" + han,        // a trail that isn't one
      "a\xC0\x80" + han,                 // two invalid bytes
      han + "\xF0\x9F\x98\x80" + han,    // outside UCS-2
      han + "\xF8\x88\x80\x80\x80",      // the five-byte form
      han + "\xED\x95",                  // cut at the end
      han + "\xED",                      // cut after the lead
      "\xED\x95\x9C\xFF\xFE" + han,      // bytes that never lead
  };
  for (const std::string& text : cases) {
    EXPECT_EQ(LibraryDecode(text, kEncodingUtf8), ReferenceDecode(text, kEncodingUtf8));
  }
}

TEST(Cp949InlineTest, EveryByteOrPairDecodesAsTheGeneralLoop) {
  for (uint32_t lead = 1; lead < 256; ++lead) {
    std::string text;
    for (uint32_t trail = 1; trail < 256; ++trail) {
      text += static_cast<char>(lead);
      text += static_cast<char>(trail);
    }
    text += static_cast<char>(lead);  // and a lead cut off at the end
    for (int32_t id : {kEncodingCp949, kEncodingEucKr}) {
      ASSERT_EQ(LibraryDecode(text, id), ReferenceDecode(text, id)) << "lead " << lead;
    }
  }
}

TEST(Cp949InlineTest, EveryUnitEncodesAsTheGeneralEncoder) {
  std::vector<WideChar> wide;
  std::string expected;
  for (uint32_t unit = 1; unit <= 0xFFFF; ++unit) {
    wide.push_back(static_cast<WideChar>(unit));
    unsigned char bytes[2];
    const int32_t n = unit >= 0xD800 && unit <= 0xDFFF
                          ? -1
                          : charset::CodecTable[kEncodingCp949].encode(bytes, unit, 2);
    if (n < 0) {
      expected += ' ';
    } else {
      expected.append(reinterpret_cast<char*>(bytes), n);
    }
  }
  wide.push_back(0);
  for (int32_t id : {kEncodingCp949, kEncodingEucKr}) {
    std::string out(expected.size() + 1, '\x7F');
    const int32_t count =
        EncodeCount(&out[0], wide.data(), static_cast<int32_t>(out.size()), id);
    ASSERT_EQ(count, static_cast<int32_t>(expected.size()));
    EXPECT_EQ(out.substr(0, count), expected);
    EXPECT_EQ(out[count], '\0');
    EXPECT_EQ(EncodeCount(nullptr, wide.data(), 0x7FFFFFF, id), count);
  }
}

TEST(Cp949InlineTest, ATwoByteCodeWithoutRoomEndsTheOutputWithoutNul) {
  const WideChar wide[] = {'a', 0xD55C, 'b', 0};
  char out[3] = {'x', 'x', 'x'};
  EXPECT_EQ(EncodeCount(out, wide, 2, kEncodingCp949), 1);
  EXPECT_EQ(out[0], 'a');
  EXPECT_EQ(out[1], 'x');
}

// The two-step road: DecodeCount from UTF-8, EncodeCount to CP949.
std::string TwoStepCp949(const std::string& utf8) {
  std::vector<WideChar> wide(utf8.size() + 1);
  const int32_t units = DecodeCount(wide.data(), utf8.c_str(),
                                    static_cast<int32_t>(wide.size()), kEncodingUtf8);
  std::string bytes(static_cast<size_t>(units) * 3 + 1, '\0');
  const int32_t size = EncodeCount(&bytes[0], wide.data(), units * 3 + 1, kEncodingCp949);
  bytes.resize(size);
  return bytes;
}

std::string OnePassCp949(const std::string& utf8) {
  // One byte more than needed, to catch a write past the promised room.
  std::string bytes(utf8.size() + 2, '\x7F');
  const int32_t size =
      Utf8ToCp949(&bytes[0], utf8.c_str(), static_cast<int32_t>(utf8.size()));
  EXPECT_LE(size, static_cast<int32_t>(utf8.size()));
  EXPECT_EQ(bytes[size], '\0');
  EXPECT_EQ(bytes[utf8.size() + 1], '\x7F');
  bytes.resize(size);
  return bytes;
}

// The one-pass road leaves the blank of these units to the table.
TEST(Utf8ToCp949Test, SurrogatesAndFffeHaveNoCp949Code) {
  const uint16_t* table = charset::Cp949EncodeTable();
  for (uint32_t unit = 0xD800; unit <= 0xDFFF; ++unit) EXPECT_EQ(table[unit], 0) << unit;
  EXPECT_EQ(table[0xFFFE], 0);
}

TEST(Utf8ToCp949Test, EveryCodePointGivesTheBytesOfTheTwoSteps) {
  std::string text;
  for (uint32_t codePoint = 1; codePoint <= 0x10FFFF; ++codePoint) {
    text += Utf8Of(codePoint);
    if (text.size() >= 4096 || codePoint == 0x10FFFF) {
      ASSERT_EQ(OnePassCp949(text), TwoStepCp949(text))
          << "run ending at U+" << std::hex << codePoint;
      text.clear();
    }
  }
}

TEST(Utf8ToCp949Test, BadCutAndForeignBytesGiveTheBytesOfTheTwoSteps) {
  const std::string han = Utf8Of(0xD55C);
  const std::string cases[] = {
      "", "abc", han + "\xED\xA0\x80" + han, han + "\xEF\xBF\xBE" + "a",
      han + "\xE0\x9F\xBF" + han, "a\xC0\x80" + han, han + "\xF0\x9F\x98\x80" + han,
      han + "\xFC\x84\x80\x80\x80\x80", han + "\xED\x95", han + "\xED",
      han + "\xE0\x41", "\xED\x95\x9C\xFF\xFE" + han,
      Utf8Of(0xB620) + Utf8Of(0xAC00) + Utf8Of(0x3131) + Utf8Of(0x4E00) + Utf8Of(0xE9),
  };
  for (const std::string& text : cases) EXPECT_EQ(OnePassCp949(text), TwoStepCp949(text));
  // Every lead with every first trail, cut after two bytes and followed by
  // one more character.
  for (uint32_t lead = 1; lead < 256; ++lead) {
    std::string text;
    for (uint32_t trail = 1; trail < 256; ++trail) {
      text += static_cast<char>(lead);
      text += static_cast<char>(trail);
      text += "\xEA\xB0\x80";
    }
    ASSERT_EQ(OnePassCp949(text), TwoStepCp949(text)) << "lead " << lead;
  }
}

}  // namespace
}  // namespace Quorel
