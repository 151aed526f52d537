// The transition-code table: a permutation with the format's fixed codes.
#include <gtest/gtest.h>

#include <set>

#include "trie/qr_datrie.h"

namespace Quorel {
namespace {

TEST(CodeMap, IsAPermutation) {
  std::set<int> codes(CodeMap, CodeMap + 256);
  EXPECT_EQ(256u, codes.size());
}

// Byte ranges mapped onto consecutive codes.
struct CodeRun {
  int firstByte;
  int lastByte;
  int firstCode;
};

TEST(CodeMap, FixedCodesOfTheFormat) {
  const CodeRun runs[] = {
      {0x00, 0x00, 0x00}, {0x01, 0x1F, 0xE1}, {' ', ' ', 0x5E},
      {'!', '!', 0x4B},   {'"', '"', 0x42},   {'#', '#', 0x01},
      {'$', '&', 0x43},   {'\'', '\'', 0x1C}, {'(', ',', 0x46},
      {'-', '-', 0x41},   {'.', '/', 0x4C},   {'0', '9', 0x37},
      {':', '@', 0x4E},   {'A', 'Z', 0x1D},   {'[', '_', 0x55},
      {'`', '`', 0x5F},   {'a', 'z', 0x02},   {'{', '~', 0x5A},
      {0x7F, 0x7F, 0x60}, {0x80, 0xFF, 0x61},
  };
  int covered = 0;
  for (const CodeRun& run : runs) {
    for (int b = run.firstByte; b <= run.lastByte; ++b) {
      EXPECT_EQ(run.firstCode + (b - run.firstByte), CodeMap[b]) << "byte " << b;
      ++covered;
    }
  }
  EXPECT_EQ(256, covered);
  EXPECT_EQ(0x4F, CodeMap[static_cast<unsigned char>(';')]);
  EXPECT_EQ(kTrieEndCode, CodeMap[kTrieEnd]);  // the walks use the constant
}

TEST(CodeMap, DoubleByteRangeKeepsItsOrder) {
  for (int b = 0x81; b <= 0xFE; ++b) EXPECT_LT(CodeMap[b - 1], CodeMap[b]);
}

}  // namespace
}  // namespace Quorel
