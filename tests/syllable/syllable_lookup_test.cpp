// The in-line syllable lookups against the row index read literally
// (row lead % 129), over every pair of bytes.
#include <gtest/gtest.h>

#include <string>

#include "text/syllable_table.h"

namespace Quorel {
namespace {

// The lookup as the row index states it.
const SyllableRec* LiteralLookup(unsigned lead, unsigned trail) {
  if (lead < 129 && trail > 200) return nullptr;
  const SyllableRow& row = SyllableRowIndex[lead % 129];
  const short n = static_cast<short>(row.firstRecord + ((trail - row.firstTrail) & 255));
  if (n < 0 || n >= kSyllableCount) return nullptr;
  return &SyllableTable[n];
}

TEST(SyllableLookupTest, EveryPairReadsTheRecordOfItsRow) {
  int differences = 0;
  for (unsigned lead = 0; lead < 256; ++lead) {
    for (unsigned trail = 0; trail < 256; ++trail) {
      const char bytes[2] = {static_cast<char>(lead), static_cast<char>(trail)};
      if (SyllableAt(bytes) != LiteralLookup(lead, trail)) ++differences;
    }
  }
  EXPECT_EQ(differences, 0);
}

TEST(SyllableLookupTest, LastSyllableWithAndWithoutTheLength) {
  const std::string texts[] = {"", "a", "\xB0\xA1", "a\xB0\xA1", "\xC7\xD1\xB1\xDB",
                               "ab", "\xB0", "x\xC8\xFE"};
  for (const std::string& text : texts) {
    const SyllableRec* measured = LastSyllable(text.c_str());
    EXPECT_EQ(LastSyllable(text.c_str(), static_cast<int32_t>(text.size())), measured);
    if (text.size() >= 2) {
      EXPECT_EQ(measured, SyllableAt(text.c_str() + text.size() - 2));
    } else {
      EXPECT_EQ(measured, nullptr);
    }
  }
  EXPECT_EQ(LastSyllable(nullptr), nullptr);
  EXPECT_EQ(LastSyllable(nullptr, 4), nullptr);
}

TEST(SyllableLookupTest, ByNumberWithinTheTableOnly) {
  EXPECT_EQ(SyllableByNumber(-1), nullptr);
  EXPECT_EQ(SyllableByNumber(0), &SyllableTable[0]);
  EXPECT_EQ(SyllableByNumber(kSyllableCount - 1), &SyllableTable[kSyllableCount - 1]);
  EXPECT_EQ(SyllableByNumber(kSyllableCount), nullptr);
}

}  // namespace
}  // namespace Quorel
