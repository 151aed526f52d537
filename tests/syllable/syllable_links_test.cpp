// Properties of every syllable record: letters against the Unicode
// decomposition (through iconv, not the generator's codec), flags against
// links, and the sound-change classes re-derived from Johab letter values.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "syllable/cp949_helpers.h"
#include "text/syllable_table.h"

namespace Quorel {
namespace {

using testing::Num;
using testing::Syl;

// Johab values in Unicode letter order.
const unsigned char kChoJohab[19] = {2,  3,  4,  5,  6,  7,  8,  9,  10, 11,
                                     12, 13, 14, 15, 16, 17, 18, 19, 20};
const unsigned char kJungJohab[21] = {3,  4,  5,  6,  7,  10, 11, 12, 13, 14, 15,
                                      18, 19, 20, 21, 22, 23, 26, 27, 28, 29};
const unsigned char kJongJohab[28] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10,
                                      11, 12, 13, 14, 15, 16, 17, 19, 20, 21,
                                      22, 23, 24, 25, 26, 27, 28, 29};

// Johab letters used below.
enum : unsigned char {
  G = 2, R = 7, M = 8, O = 13,                                      // initials
  A = 3, AE = 4, YA = 5, YAE = 6, EO = 7, E = 10, YEO = 11, YE = 12,
  OV = 13, WA = 14, WAE = 15, OE = 18, U = 20, WO = 21, WI = 23,
  EU = 27, UI = 28, I = 29,                                          // vowels
  NONE = 1, NIEUN = 5, DIGEUT = 8, RIEUL = 9, RIEUL_MIEUM = 11, MIEUM = 17,
  BIEUP = 19, SIOT = 21, SSANG_SIOT = 22, HIEUT = 29,                // finals
};

const SyllableRec* Link(const SyllableRec* rec, int k) {
  return rec == nullptr ? nullptr : SyllableByNumber(rec->links[k]);
}

bool IsSyllable(const SyllableRec& rec) { return rec.code[0] != 0; }

class SyllableLinks : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!testing::HaveCp949()) GTEST_SKIP() << "iconv has no CP949";
  }
};

TEST_F(SyllableLinks, LettersAgreeWithTheUnicodeDecomposition) {
  for (int n = 0; n < kSyllableCount; ++n) {
    const SyllableRec& rec = SyllableTable[n];
    if (!IsSyllable(rec)) continue;
    const char32_t cp = testing::CodePointOf(rec.code[0], rec.code[1]);
    ASSERT_TRUE(cp >= 0xAC00 && cp <= 0xD7A3) << "record " << n;
    const int index = static_cast<int>(cp - 0xAC00);
    EXPECT_EQ(rec.choseong, kChoJohab[index / 588]) << n;
    EXPECT_EQ(rec.jungseong, kJungJohab[index / 28 % 21]) << n;
    EXPECT_EQ(rec.jongseong, kJongJohab[index % 28]) << n;
  }
}

TEST_F(SyllableLinks, BlankRecordsAreExactlyTheCodesThatAreNotSyllables) {
  for (int lead = 0x81; lead <= 0xC8; ++lead) {
    for (int trail = 0x41; trail <= 0xFE; ++trail) {
      const char bytes[3] = {static_cast<char>(lead), static_cast<char>(trail), 0};
      const SyllableRec* rec = SyllableAt(bytes);
      if (rec == nullptr) continue;
      const char32_t cp = testing::CodePointOf(lead, trail);
      const bool hangul = cp >= 0xAC00 && cp <= 0xD7A3;
      if (rec->code[0] == lead && rec->code[1] == trail) {
        EXPECT_TRUE(hangul) << std::hex << lead << " " << trail;
      } else {
        EXPECT_FALSE(hangul) << std::hex << lead << " " << trail;
      }
    }
  }
}

TEST_F(SyllableLinks, EverySyllableHasOneRecord) {
  std::vector<bool> seen(kSyllableCount, false);
  for (char32_t cp = 0xAC00; cp <= 0xD7A3; ++cp) {
    const std::string bytes = testing::Cp949Of(cp);
    ASSERT_EQ(bytes.size(), 2u) << std::hex << static_cast<unsigned>(cp);
    const SyllableRec* rec = SyllableAt(bytes.c_str());
    ASSERT_NE(rec, nullptr);
    ASSERT_TRUE(IsSyllable(*rec));
    const int n = SyllableNumber(rec);
    EXPECT_FALSE(seen[n]) << n;
    seen[n] = true;
  }
}

TEST(SyllableFlags, LinkExistsExactlyWithItsBit) {
  for (int n = 0; n < kSyllableCount; ++n) {
    const SyllableRec& rec = SyllableTable[n];
    for (int k = 0; k < 24; ++k) {
      EXPECT_EQ((rec.flags >> k & 1) != 0, rec.links[k] != kNoLink)
          << "record " << n << " bit " << k;
    }
    EXPECT_EQ((rec.flags & kHieutPair) != 0, rec.links[kHieutPairLink] != kNoLink)
        << "record " << n;
    EXPECT_EQ(rec.flags >> 28, 0u) << n;
    for (int16_t link : rec.links) {
      if (link == kNoLink) continue;
      const SyllableRec* target = SyllableByNumber(link);
      ASSERT_NE(target, nullptr) << n;
      EXPECT_TRUE(IsSyllable(*target)) << "record " << n << " -> " << link;
    }
  }
}

TEST(SyllableFlags, FinalBitAndLinkZeroDropTheFinal) {
  for (int n = 0; n < kSyllableCount; ++n) {
    const SyllableRec& rec = SyllableTable[n];
    if (!IsSyllable(rec)) continue;
    EXPECT_EQ((rec.flags & kHasFinal) != 0, rec.jongseong != kNoFinal) << n;
    const SyllableRec* open = SyllableByNumber(rec.links[0]);
    if (open == nullptr) continue;
    EXPECT_EQ(open->choseong, rec.choseong) << n;
    EXPECT_EQ(open->jungseong, rec.jungseong) << n;
    EXPECT_EQ(open->jongseong, kNoFinal) << n;
  }
}

TEST(SyllableFlags, HowManySyllablesCarryEachBit) {
  const int expected[28] = {
      11172 - 399,   // 0: with a final
      19 * 8 + 7,    // 1
      19 * 7,        // 2
      19 * 10 + 1,   // 3: less 지, plus 런 럴
      12, 2, 2, 2,   // 4..7
      4 * 4 * 2 + 2, // 8
      4 * 4 * 5 + 1, // 9
      19 * 2,        // 10
      19 * 2 * 2,    // 11
      19 * 9 * 6,    // 12
      2,             // 13
      19 * 3 * 2,    // 14
      19 * 2 * 2,    // 15
      19 * 2 * 2,    // 16
      19 * 2,        // 17
      19 * 2,        // 18
      19, 19,        // 19, 20
      2, 1, 1,       // 21..23
      1, 1, 16, 1,   // 24..27
  };
  int counts[28] = {};
  for (int n = 0; n < kSyllableCount; ++n) {
    for (int k = 0; k < 28; ++k) counts[k] += SyllableTable[n].flags >> k & 1;
  }
  for (int k = 0; k < 28; ++k) EXPECT_EQ(counts[k], expected[k]) << "bit " << k;
}

// A class rule: which letters carry the bit, and the letters its link has.
// A target of 0 keeps the letter; vowel pairs map from -> to.
struct ClassRule {
  int bit;
  std::vector<unsigned char> initials;  // empty: all
  std::vector<unsigned char> vowels;
  std::vector<unsigned char> finals;
  std::vector<std::pair<unsigned char, unsigned char>> vowelTo;  // empty: keep
  unsigned char finalTo;                                         // 0: keep
};

bool Has(const std::vector<unsigned char>& set, unsigned char v) {
  if (set.empty()) return true;
  for (unsigned char s : set) {
    if (s == v) return true;
  }
  return false;
}

TEST(SyllableFlags, ClassRulesHoldForEveryInitial) {
  const std::vector<unsigned char> grmo = {G, R, M, O};
  const std::vector<unsigned char> open = {NONE};
  const std::vector<unsigned char> openOrSs = {NONE, SSANG_SIOT};
  const ClassRule rules[] = {
      {1, {}, {A, AE, EO, YEO, OV, U, EU, I}, open, {}, SIOT},
      {2, {}, {A, EO, YEO, OV, U, EU, I}, {RIEUL}, {}, DIGEUT},
      {3, {}, {A, AE, EO, YEO, OV, OE, U, WI, EU, I}, open, {}, BIEUP},
      {8, grmo, {AE, YAE, E, YE}, openOrSs,
       {{AE, A}, {YAE, YA}, {E, EO}, {YE, YEO}}, HIEUT},
      {9, grmo, {A, YA, EO, YEO}, {NONE, NIEUN, RIEUL, MIEUM, BIEUP}, {}, HIEUT},
      {10, {}, {AE}, openOrSs, {{AE, EO}}, NONE},
      {11, {}, {A, EO}, openOrSs, {{A, EU}, {EO, EU}}, NONE},
      {12, {}, {A, EO, YEO, OV, WA, WAE, U, EU, I},
       {NONE, NIEUN, RIEUL, RIEUL_MIEUM, MIEUM, BIEUP}, {}, RIEUL},
      {14, {}, {A, EO, YEO}, openOrSs, {}, NONE},
      {15, {}, {AE, E}, openOrSs, {}, NONE},
      {16, {}, {WA, WO}, openOrSs, {{WA, OV}, {WO, U}}, NONE},
      {17, {}, {WAE}, openOrSs, {{WAE, OE}}, NONE},
      {18, {}, {YEO}, openOrSs, {{YEO, I}}, NONE},
      {19, {}, {OE}, open, {{OE, OV}}, NONE},
      {20, {}, {UI}, open, {{UI, EU}}, NONE},
      {26, grmo, {A, YA, EO, YEO}, {HIEUT},
       {{A, EO}, {EO, A}, {YA, YEO}, {YEO, YA}}, 0},
  };
  // Named exceptions, checked one by one in the tests below.
  const std::vector<int> extras = {Num("얘"), Num("럐"), Num("먜"), Num("게"),
                                   Num("레"), Num("메"), Num("예"), Num("지"),
                                   Num("런"), Num("럴"), Num("놔"), Num("놨"),
                                   Num("단")};
  for (const ClassRule& rule : rules) {
    const int link = rule.bit == 26 ? kHieutPairLink : rule.bit;
    for (int n = 0; n < kSyllableCount; ++n) {
      const SyllableRec& rec = SyllableTable[n];
      if (!IsSyllable(rec)) continue;
      const bool member = Has(rule.initials, rec.choseong) &&
                          Has(rule.vowels, rec.jungseong) &&
                          Has(rule.finals, rec.jongseong);
      const bool flagged = (rec.flags >> rule.bit & 1) != 0;
      bool exception = false;
      for (int e : extras) exception = exception || e == n;
      if (exception) continue;
      ASSERT_EQ(flagged, member) << "bit " << rule.bit << " record " << n;
      if (!member) continue;
      const SyllableRec* target = SyllableByNumber(rec.links[link]);
      ASSERT_NE(target, nullptr);
      unsigned char vowel = rec.jungseong;
      for (const auto& pair : rule.vowelTo) {
        if (pair.first == rec.jungseong) vowel = pair.second;
      }
      EXPECT_EQ(target->choseong, rec.choseong) << rule.bit << " " << n;
      EXPECT_EQ(target->jungseong, vowel) << rule.bit << " " << n;
      EXPECT_EQ(target->jongseong, rule.finalTo ? rule.finalTo : rec.jongseong)
          << rule.bit << " " << n;
    }
  }
}

// One named link: from's link k leads to `to`; a null `to` means no link k.
struct NamedLink {
  const char* from;
  int k;
  const char* to;
};

void ExpectLinks(const std::vector<NamedLink>& cases) {
  for (const NamedLink& c : cases) {
    const SyllableRec* rec = Syl(c.from);
    ASSERT_NE(rec, nullptr) << c.from;
    if (c.to == nullptr) {
      EXPECT_EQ(rec->links[c.k], kNoLink) << c.from << " link " << c.k;
    } else {
      EXPECT_EQ(Link(rec, c.k), Syl(c.to))
          << c.from << " link " << c.k << " -> " << c.to;
    }
  }
}

using SyllableNamedLinks = SyllableLinks;

TEST_F(SyllableNamedLinks, LinksTheAnalyzersFollow) {
  ExpectLinks({{"가", 1, "갓"}, {"갔", 14, "가"}, {"해", 21, "하"},
               {"퍼", 13, "푸"}, {"놔", 8, "놓"}, {"라", 4, "르"},
               {"단", 9, "닿"}, {"갛", kHieutPairLink, "겋"}, {"걸", 2, "걷"},
               {"가", 3, "갑"}, {"가", 12, "갈"}, {"줘", 16, "주"},
               {"돼", 17, "되"}, {"져", 18, "지"}, {"되", 19, "도"},
               {"희", 20, "흐"}});
}

TEST_F(SyllableNamedLinks, ExtrasOfTheSiotLink) {
  ExpectLinks({{"얘", 1, "옇"}, {"럐", 1, "렿"}, {"먜", 1, "몋"},
               {"게", 1, "갛"}, {"레", 1, "랗"}, {"메", 1, "맣"},
               {"예", 1, "얗"}, {"걔", 1, nullptr}, {"네", 1, nullptr}});
}

TEST_F(SyllableNamedLinks, BieupLinkSkipsJiAndTakesReonReol) {
  ExpectLinks({{"지", 3, nullptr}, {"치", 3, "칩"}, {"자", 3, "잡"},
               {"런", 3, "럽"}, {"럴", 3, "럽"}, {"건", 3, nullptr}});
}

TEST_F(SyllableNamedLinks, ReuAndBieupIrregulars) {
  ExpectLinks({{"라", 4, "르"}, {"랐", 4, "르"}, {"러", 4, "르"},
               {"렀", 4, "르"}, {"래", 4, "랩"}, {"려", 4, "렵"},
               {"로", 4, "롭"}, {"뢰", 4, "룁"}, {"루", 4, "룹"},
               {"뤼", 4, "륍"}, {"르", 4, "릅"}, {"리", 4, "립"},
               {"럽", 4, nullptr}});
}

TEST_F(SyllableNamedLinks, SingleSyllableLinks) {
  ExpectLinks({{"여", 5, "아"}, {"였", 5, "았"}, {"러", 6, "어"},
               {"렀", 6, "었"}, {"거", 7, "아"}, {"너", 7, "아"},
               {"놨", 8, "놓"}, {"펐", 13, "푸"}, {"했", 21, "하"},
               {"치", 22, "하"}, {"케", 23, "하"}, {"하", 21, nullptr},
               {"더", 7, nullptr}});
}

TEST_F(SyllableNamedLinks, HieutStemLinks) {
  ExpectLinks({{"개", 8, "갛"}, {"갰", 8, "갛"}, {"걔", 8, "걓"},
               {"메", 8, "멓"}, {"예", 8, "옇"}, {"간", 9, "갛"},
               {"얼", 9, "엏"}, {"랍", 9, "랗"}, {"난", 9, nullptr},
               {"걓", kHieutPairLink, "곃"}, {"곃", kHieutPairLink, "걓"},
               {"겋", kHieutPairLink, "갛"}, {"낳", kHieutPairLink, nullptr}});
}

TEST_F(SyllableNamedLinks, VowelAndFinalDropLinks) {
  // Bits 14 and 15 link an open syllable to itself.
  ExpectLinks({{"가", 14, "가"}, {"였", 14, "여"}, {"해", 15, "해"},
               {"셌", 15, "세"}, {"했", 10, "허"}, {"갔", 11, "그"},
               {"썼", 11, "쓰"}});
}

TEST_F(SyllableNamedLinks, RieulLinkKeepsOrAddsTheFinal) {
  ExpectLinks({{"갈", 12, "갈"}, {"삶", 12, "살"}, {"놘", 12, "놜"},
               {"갓", 12, nullptr}, {"개", 12, nullptr}});
}

}  // namespace
}  // namespace Quorel
