// Every code of every multi-byte table, and every character of the Basic
// Multilingual Plane, measured against the C library's iconv(3).
#include <gtest/gtest.h>

#include <cctype>
#include <memory>
#include <string>
#include <vector>

#include "tests/charset/iconv_probe.h"
#include "text/charset.h"
#include "text/charset_codecs.h"

namespace Quorel {
namespace {

struct TableCase {
  const char* name;
  const char* iconvName;
  std::vector<int> threeByteLeads;  // leads whose codes take three bytes
  bool highSingleBytes;             // single bytes 0x80.. are characters
};

// Some sets of the C library pass C1 control bytes through; ours keep their
// single bytes to ASCII, so those are left out of the comparison.
bool IsPassedThroughControl(const TableCase& c, const std::string& bytes) {
  return !c.highSingleBytes && bytes.size() == 1 && static_cast<unsigned char>(bytes[0]) >= 0x80;
}

std::ostream& operator<<(std::ostream& out, const TableCase& c) { return out << c.name; }

const TableCase kCases[] = {
    {"CP949", "UHC", {}, false},
    {"EUC-KR", "UHC", {}, false},
    {"EUC-JP", "EUC-JP", {0x8F}, false},
    {"SJIS", "SJIS", {}, true},
    {"GB2312", "EUC-CN", {}, false},
    {"BIG5", "BIG5", {}, false},
    {"UTF-8", "UTF-8", {0xE0, 0xE1, 0xEC, 0xED, 0xEF}, false},
    {"ISO-8859-15", "ISO-8859-15", {}, true},
};

std::vector<WideChar> DecodeUnits(const std::string& bytes, const char* name) {
  WideChar buffer[16];
  int32_t count = Decode(buffer, bytes.c_str(), 16, name);
  if (count < 0) return {};
  return std::vector<WideChar>(buffer, buffer + count);
}

std::string EncodeUnit(WideChar unit, const char* name) {
  WideChar wide[2] = {unit, 0};
  char buffer[16];
  int32_t count = Encode(buffer, wide, 16, name);
  return count < 0 ? std::string("<error>") : std::string(buffer, count);
}

// The unit a decoded code point lands as: UCS-2 holds no 0xFFFE, no surrogate
// and nothing above 0xFFFF.
WideChar ExpectedUnit(int64_t codePoint) {
  bool notUcs2 = codePoint > 0xFFFF || codePoint == 0xFFFE ||
                 (codePoint >= 0xD800 && codePoint <= 0xDFFF);
  return notUcs2 ? 0x20 : static_cast<WideChar>(codePoint);
}

std::string Hex(const std::string& bytes) {
  static const char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (unsigned char c : bytes) text += {kDigits[c >> 4], kDigits[c & 15], ' '};
  return text;
}

class CharsetTableTest : public ::testing::TestWithParam<TableCase> {
 protected:
  void SetUp() override {
    probe.reset(new IconvProbe(GetParam().iconvName));
    if (!probe->Ready()) GTEST_SKIP() << "iconv lacks " << GetParam().iconvName;
  }

  // Decodes one code both ways. A code iconv takes must come out as its
  // character and encode back as iconv encodes that character; a code iconv
  // refuses must not be taken whole as one character by our decoder (UTF-8
  // surrogates are: the wide layer blanks them).
  void CheckCode(const std::string& code) {
    const char* name = GetParam().name;
    if (IsPassedThroughControl(GetParam(), code)) return;
    int64_t reference = probe->DecodeOne(code);
    if (reference < 0) {
      uint32_t codePoint = 0;
      int32_t consumed = charset::CodecTable[EncodingId(name)].decode(
          &codePoint, reinterpret_cast<const unsigned char*>(code.data()),
          static_cast<int32_t>(code.size()));
      bool invented = consumed == static_cast<int32_t>(code.size()) && ExpectedUnit(codePoint) != 0x20;
      if (invented) ++mismatches;
      EXPECT_FALSE(invented) << name << " " << Hex(code) << "gives U+" << std::hex << codePoint;
      return;
    }
    std::vector<WideChar> units = DecodeUnits(code, name);
    ++mapped;
    std::vector<WideChar> expected = {ExpectedUnit(reference)};
    if (units != expected) ++mismatches;
    EXPECT_EQ(units, expected) << name << " " << Hex(code);
    if (expected[0] == 0x20) return;
    std::string back = EncodeUnit(expected[0], name);
    EXPECT_EQ(back, probe->EncodeOne(expected[0])) << name << " U+" << std::hex << expected[0];
    if (back == code) ++roundTrips;
  }

  std::unique_ptr<IconvProbe> probe;
  int mapped = 0;
  int roundTrips = 0;
  int mismatches = 0;
};

TEST_P(CharsetTableTest, DecodesEveryCodeAsIconvAndEncodesItBack) {
  const TableCase& c = GetParam();
  for (int single = 1; single < 0x100; ++single) CheckCode(std::string(1, static_cast<char>(single)));
  for (int lead = 0x80; lead < 0x100; ++lead) {
    for (int trail = 0x21; trail < 0x100; ++trail) {
      CheckCode({static_cast<char>(lead), static_cast<char>(trail)});
      ASSERT_LT(mismatches, 20) << "stopping after many failures";
    }
  }
  for (int lead : c.threeByteLeads) {
    for (int second = 0x80; second < 0x100; ++second) {
      for (int third = 0x80; third < 0x100; ++third) {
        CheckCode({static_cast<char>(lead), static_cast<char>(second), static_cast<char>(third)});
      }
      ASSERT_LT(mismatches, 20) << "stopping after many failures";
    }
  }
  EXPECT_GT(mapped, 0);
  RecordProperty("mapped", mapped);
  RecordProperty("roundTrips", roundTrips);
}

// Characters iconv maps both ways encode as iconv encodes them, and those
// it can't encode become a blank. Its one-way conveniences (a full-width
// sign to its narrow code, say) are ours to keep or to leave blank.
TEST_P(CharsetTableTest, EncodesEveryBmpCharacterAsIconv) {
  const TableCase& c = GetParam();
  int encoded = 0;
  for (uint32_t codePoint = 1; codePoint < 0x10000; ++codePoint) {
    if (codePoint >= 0xD800 && codePoint <= 0xDFFF) continue;
    std::string reference = probe->EncodeOne(codePoint);
    if (IsPassedThroughControl(c, reference)) continue;
    std::string ours = EncodeUnit(static_cast<WideChar>(codePoint), c.name);
    if (reference.empty()) {
      reference = " ";
    } else if (probe->DecodeOne(reference) != codePoint) {
      bool keptOrBlank = ours == reference || ours == " ";
      EXPECT_TRUE(keptOrBlank) << c.name << " U+" << std::hex << codePoint << " one way";
      continue;
    } else {
      ++encoded;
    }
    if (ours != reference) ++mismatches;
    EXPECT_EQ(Hex(ours), Hex(reference)) << c.name << " U+" << std::hex << codePoint;
    ASSERT_LT(mismatches, 20) << "stopping after many failures";
  }
  EXPECT_GT(encoded, 0);
}

INSTANTIATE_TEST_SUITE_P(AllEncodings, CharsetTableTest, ::testing::ValuesIn(kCases),
                         [](const ::testing::TestParamInfo<TableCase>& info) {
                           std::string name;
                           for (const char* p = info.param.name; *p; ++p) {
                             if (isalnum(static_cast<unsigned char>(*p))) name += *p;
                           }
                           return name;
                         });

// CP949 in full: each of its double-byte codes decodes as iconv decodes it
// and encodes back to the very same bytes; the extension completes the
// 11,172 syllables that KS X 1001 leaves at 2,350.
TEST(Cp949TableTest, EveryDoubleByteCodeRoundTrips) {
  IconvProbe probe("UHC");
  if (!probe.Ready()) GTEST_SKIP() << "iconv lacks UHC";
  int codes = 0;
  int extension = 0;
  int failures = 0;
  for (int lead = 0x81; lead <= 0xFE; ++lead) {
    for (int trail = 0x41; trail <= 0xFE; ++trail) {
      std::string code = {static_cast<char>(lead), static_cast<char>(trail)};
      int64_t reference = probe.DecodeOne(code);
      if (reference < 0) continue;
      ++codes;
      if (lead <= 0xA0 || trail < 0xA1) ++extension;
      std::vector<WideChar> units = DecodeUnits(code, "CP949");
      bool good = units.size() == 1 && units[0] == reference && EncodeUnit(units[0], "CP949") == code;
      if (!good && ++failures <= 10) ADD_FAILURE() << "code " << Hex(code);
    }
  }
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(extension, 11172 - 2350);
  EXPECT_GT(codes, extension + 8000);
}

}  // namespace
}  // namespace Quorel
