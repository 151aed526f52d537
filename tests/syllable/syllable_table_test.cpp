// Layout of SyllableTable, the records the analyzers name, and the lookups,
// including what they give for bytes that are not Hangul.
#include <gtest/gtest.h>

#include <cstring>

#include "syllable/cp949_helpers.h"
#include "text/syllable_table.h"

namespace Quorel {
namespace {

using testing::Num;
using testing::Syl;

bool IsBlank(const SyllableRec& rec) {
  if (rec.code[0] != 0 || rec.code[1] != 0 || rec.spare0 != 0 ||
      rec.choseong != 0 || rec.jungseong != 0 || rec.jongseong != 0 ||
      rec.spare1[0] != 0 || rec.spare1[1] != 0 || rec.flags != 0 ||
      rec.spare2 != 0) {
    return false;
  }
  for (int16_t link : rec.links) {
    if (link != kNoLink) return false;
  }
  return true;
}

int NumberAt(const char* bytes) {
  const SyllableRec* rec = SyllableAt(bytes);
  return rec == nullptr ? -1 : SyllableNumber(rec);
}

TEST(SyllableLayout, BlankRecordsAreAllZeroWithNoLinks) {
  int blanks = 0;
  for (int n = 0; n < kSyllableCount; ++n) {
    const SyllableRec& rec = SyllableTable[n];
    if (rec.code[0] == 0) {
      EXPECT_TRUE(IsBlank(rec)) << "record " << n;
      ++blanks;
    } else {
      EXPECT_EQ(rec.spare0, 0) << n;
      EXPECT_EQ(rec.spare1[0] | rec.spare1[1], 0) << n;
      EXPECT_EQ(rec.spare2, 0) << n;
    }
  }
  EXPECT_EQ(blanks, 906);
  EXPECT_EQ(kSyllableCount - blanks, 11172);
}

TEST(SyllableLayout, EveryRecordIsFoundByItsOwnCode) {
  for (int n = 0; n < kSyllableCount; ++n) {
    const SyllableRec& rec = SyllableTable[n];
    if (rec.code[0] == 0) continue;
    const char bytes[3] = {static_cast<char>(rec.code[0]),
                           static_cast<char>(rec.code[1]), 0};
    ASSERT_EQ(SyllableAt(bytes), &rec) << "record " << n;
  }
}

TEST(SyllableLayout, RowsStartWhereTheRowIndexSays) {
  EXPECT_EQ(NumberAt("\x81\x41"), 0);
  EXPECT_EQ(NumberAt("\x82\x41"), 190);
  EXPECT_EQ(NumberAt("\xA0\xFE"), 6079);
  EXPECT_EQ(NumberAt("\xA1\x41"), 6080);
  EXPECT_EQ(NumberAt("\xAF\xA0"), 7519);
  EXPECT_EQ(NumberAt("\xB0\x41"), 7520);
  EXPECT_EQ(NumberAt("\xC6\xFE"), 11889);
  EXPECT_EQ(NumberAt("\xC7\xA1"), 11890);
  EXPECT_EQ(NumberAt("\xC8\xA1"), 11984);
  EXPECT_EQ(NumberAt("\xC8\xFE"), kSyllableCount - 1);

  EXPECT_EQ(SyllableRowIndex[0].firstRecord, 0);
  EXPECT_EQ(SyllableRowIndex[0].firstTrail, 0x41);
  EXPECT_EQ(SyllableRowIndex[0xC7 - 129].firstTrail, 0xA1);
  for (int r = 72; r < kSyllableRowCount; ++r) {
    EXPECT_EQ(SyllableRowIndex[r].firstRecord, 0) << r;
    EXPECT_EQ(SyllableRowIndex[r].firstTrail, 0) << r;
  }
}

TEST(SyllableLayout, GapCodeGivesABlankRecordNotNull) {
  const SyllableRec* rec = SyllableAt("\x81\x5B");
  ASSERT_NE(rec, nullptr);
  EXPECT_EQ(SyllableNumber(rec), 26);
  EXPECT_TRUE(IsBlank(*rec));
  // The symbol half of a 0xA1..0xAF row and the end of row 0xC6 are blanks.
  EXPECT_TRUE(IsBlank(*SyllableAt("\xC6\x53")));
  EXPECT_TRUE(IsBlank(*SyllableAt("\xC6\xA0")));
}

TEST(SyllableLayout, LastRecordIsTheLastSyllable) {
  const SyllableRec* rec = SyllableAt("\xC8\xFE");
  ASSERT_NE(rec, nullptr);
  EXPECT_EQ(SyllableNumber(rec), 12077);
  EXPECT_EQ(rec->code[0], 0xC8);
  EXPECT_EQ(rec->code[1], 0xFE);
  // 힝: ㅎ ㅣ ㅇ
  EXPECT_EQ(rec->choseong, 20);
  EXPECT_EQ(rec->jungseong, 29);
  EXPECT_EQ(rec->jongseong, 23);
}

TEST(SyllableRecords, Ga) {
  const SyllableRec* ga = SyllableAt("\xB0\xA1");
  ASSERT_NE(ga, nullptr);
  EXPECT_EQ(ga->code[0], 0xB0);
  EXPECT_EQ(ga->code[1], 0xA1);
  EXPECT_EQ(ga->choseong, 2);
  EXPECT_EQ(ga->jungseong, 3);
  EXPECT_EQ(ga->jongseong, kNoFinal);
  EXPECT_EQ(ga->flags, 0x5A0Au);
  const SyllableRec* gas = SyllableByNumber(ga->links[1]);
  ASSERT_NE(gas, nullptr);
  EXPECT_EQ(gas, SyllableAt("\xB0\xAB"));  // 갓
  EXPECT_EQ(gas->jongseong, 21);
}

TEST(SyllableRecords, FlagsOfTheSyllablesTheAnalyzersName) {
  struct Case {
    const char* cp949;
    const char* name;
    uint32_t flags;
  };
  const Case cases[] = {
      {"\xC7\xD8", "hae", 0x20840A}, {"\xC4\xA1", "chi", 0x40100A},
      {"\xC4\xC9", "ke", 0x808000},  {"\xBC\xAD", "seo", 0x100580A},
      {"\xBE\xDF", "ya", 0x2000200}, {"\xBF\xE4", "yo", 0x8000000},
      {"\xB3\xF6", "nwa", 0x11100},
  };
  for (const Case& c : cases) {
    const SyllableRec* rec = SyllableAt(c.cp949);
    ASSERT_NE(rec, nullptr) << c.name;
    EXPECT_EQ(rec->flags, c.flags) << c.name;
  }
  EXPECT_EQ(SyllableAt("\xBC\xAD")->flags & kMarkSeo, kMarkSeo);
  EXPECT_EQ(SyllableAt("\xBE\xDF")->flags & kMarkYa, kMarkYa);
  EXPECT_EQ(SyllableAt("\xBF\xE4")->flags & kMarkYo, kMarkYo);
}

TEST(SyllableRecords, SameRecordsThroughUtf8Helper) {
  if (!testing::HaveCp949()) GTEST_SKIP() << "iconv has no CP949";
  EXPECT_EQ(Syl("가"), SyllableAt("\xB0\xA1"));
  EXPECT_EQ(Syl("놔"), SyllableAt("\xB3\xF6"));
  EXPECT_EQ(Num("힝"), 12077);
}

TEST(SyllableLookup, LastSyllableOfShortTextsIsNull) {
  EXPECT_EQ(LastSyllable(""), nullptr);
  EXPECT_EQ(LastSyllable("a"), nullptr);
  EXPECT_EQ(LastSyllable("\xB0"), nullptr);
  EXPECT_EQ(LastSyllable(nullptr), nullptr);
}

TEST(SyllableLookup, LastSyllableReadsTheLastTwoBytes) {
  EXPECT_EQ(LastSyllable("\xB0\xA1"), SyllableAt("\xB0\xA1"));
  EXPECT_EQ(LastSyllable("ab\xB0\xA1\xB0\xAB"), SyllableAt("\xB0\xAB"));
  // No alignment to characters: the last two bytes, whatever they are.
  EXPECT_EQ(LastSyllable("\xB0\xA1" "a"), SyllableAt("\xA1" "a"));
}

TEST(SyllableLookup, ByNumberBounds) {
  EXPECT_EQ(SyllableByNumber(-1), nullptr);
  EXPECT_EQ(SyllableByNumber(-32768), nullptr);
  EXPECT_EQ(SyllableByNumber(0), &SyllableTable[0]);
  EXPECT_EQ(SyllableByNumber(12077), &SyllableTable[12077]);
  EXPECT_EQ(SyllableByNumber(12078), nullptr);
  EXPECT_EQ(SyllableByNumber(32767), nullptr);
}

TEST(SyllableLookup, NonHangulBytesFollowTheRowArithmetic) {
  // A lead below 0x81 with a trail above 200 is refused.
  EXPECT_EQ(SyllableAt("a\xC9"), nullptr);
  // With a smaller trail it reads row `lead`: rows below 72 are Hangul rows,
  // ' ' is row 32 (lead 0xA1)...
  EXPECT_EQ(SyllableAt(" A"), SyllableAt("\xA1\x41"));
  // ... and from row 72 up the record number is the trail.
  EXPECT_EQ(NumberAt("ab"), 'b');
  EXPECT_EQ(NumberAt("\xC9\x41"), 0x41);
  EXPECT_EQ(NumberAt("\xFE\xFE"), 0xFE);
  // A trail below the row's first wraps around by the byte mask.
  EXPECT_EQ(NumberAt("\x81\x20"), (0x20 - 0x41) & 255);
  EXPECT_EQ(NumberAt("\xC7\x41"), 11890 + ((0x41 - 0xA1) & 255));
  // Past the end of the table is null.
  EXPECT_EQ(SyllableAt("\xC8\x41"), nullptr);
  EXPECT_EQ(SyllableAt("G\x41"), nullptr);
}

}  // namespace
}  // namespace Quorel
