#include "eojul/tag_set.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace Quorel {
namespace {

TEST(TagSetTest, TableIsSortedByByteOrder) {
  for (int row = 1; row < kPosTableSize; ++row) {
    EXPECT_LT(std::strcmp(PosTable[row - 1].name, PosTable[row].name), 0) << row;
  }
}

TEST(TagSetTest, EveryNameFindsItsRow) {
  for (int row = 0; row < kPosTableSize; ++row) {
    EXPECT_EQ(PosRowOf(PosTable[row].name), row);
    EXPECT_EQ(PosCodeOf(PosTable[row].name), PosTable[row].mask);
  }
}

TEST(TagSetTest, NamesToMasks) {
  EXPECT_EQ(PosCodeOf("EF"), 0x00400600u);
  EXPECT_EQ(PosCodeOf("SND"), 0x00020000u);
  EXPECT_EQ(PosCodeOf("NNG"), 0x40000001u);
  EXPECT_EQ(PosCodeOf("XYZ"), 0u);
  EXPECT_EQ(PosRowOf("XYZ"), -1);
  EXPECT_EQ(PosCodeOf("UW"), 0u);
  EXPECT_EQ(PosRowOf("UW"), 34);
  EXPECT_EQ(PosCodeOf(""), 0u);
  EXPECT_EQ(PosCodeOf(nullptr), 0u);
  EXPECT_EQ(PosCodeOf("nng"), 0u);  // byte order: case counts
}

TEST(TagSetTest, MasksToNames) {
  EXPECT_STREQ(PosNameOf(0x00400600), "EM");
  EXPECT_STREQ(PosNameOf(0x00020000), "SN");
  EXPECT_STREQ(PosNameOf(0), "UW");
  EXPECT_STREQ(PosNameOf(0x00800000), "J_");
  EXPECT_STREQ(PosNameOf(0x00400000 | 0x2000), "EP");
  EXPECT_STREQ(PosNameOf(0x40000002 | 0x1), "");
  EXPECT_STREQ(PosNameOf(0x00020040), "SN");
  EXPECT_STREQ(PosNameOf(0x00028000), "SN");
  EXPECT_STREQ(PosNameOf(0x00028040), "SN");
  EXPECT_STREQ(PosNameOf(0x40000400), "NNI");   // second low table
  EXPECT_STREQ(PosNameOf(0x00400400), "EM");
  EXPECT_STREQ(PosNameOf(0xFFFFFFFF), "");
  EXPECT_STREQ(PosNameOf(0x00030000), "");       // two families
}

TEST(TagSetTest, NamesMapManyToOne) {
  // A name read in may come back as another one of the same mask.
  for (const char* name : {"EC", "EF", "EM"}) {
    EXPECT_STREQ(PosNameOf(PosCodeOf(name)), "EM");
  }
  for (const char* name : {"JC", "JK", "J_"}) {
    EXPECT_STREQ(PosNameOf(PosCodeOf(name)), "J_");
  }
  for (const char* name : {"XSA", "XSD", "XSV"}) {
    EXPECT_STREQ(PosNameOf(PosCodeOf(name)), "XSD");
  }
}

TEST(TagSetTest, EveryReverseSlotKeysItsMask) {
  for (int slot = 0; slot < kPosHashSlots; ++slot) {
    for (const PosEntry* table : {PosLowTable, PosLow2Table}) {
      if (table[slot].mask == 0) {
        EXPECT_STREQ(table[slot].name, "-1");
        continue;
      }
      EXPECT_EQ(static_cast<int>((table[slot].mask & 0xFFFF) % 50), slot);
      EXPECT_STREQ(PosNameOf(table[slot].mask), table[slot].name);
    }
    if (PosHighTable[slot].mask != 0) {
      EXPECT_EQ(static_cast<int>((PosHighTable[slot].mask >> 16) % 50), slot);
    }
  }
}

TEST(TagSetTest, ThroughTheAbstractClass) {
  std::unique_ptr<QR_POS> pos(CreatePOS());
  EXPECT_EQ(pos->GetPOSCode("VV"), 0x20000080u);
  EXPECT_STREQ(pos->GetPOSName(0x20000080), "VV");
  EXPECT_STREQ(pos->GetPOSName(0x12345678), "");
}

}  // namespace
}  // namespace Quorel
