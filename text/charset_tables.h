// The mapping tables of the multi-byte sets as runs over sorted keys, and the
// linear index that numbers each set's codes.
//
// A table maps a key (a set's linear index, or a code point) to a value (the
// other of the two). A run covers keys first..last and either counts values up
// from `value` (listed 0) or reads them from list[value] on (listed 1), where
// 0xFFFF means no mapping. Lookup is a binary search over the runs.
#ifndef QRLSL_TEXT_CHARSET_TABLES_H_
#define QRLSL_TEXT_CHARSET_TABLES_H_

#include <cstdint>

namespace Quorel {
namespace charset {

struct CodeRun {
  uint16_t first;
  uint16_t last;
  uint16_t value;
  uint16_t listed;
};

struct CodeMap {
  const CodeRun* runs;
  int32_t count;
  const uint16_t* list;
};

// The value of `key`, or -1 when the table doesn't map it.
int32_t MapCode(const CodeMap& map, uint32_t key);
// The same for a linear index that may be -1 (outside the code space).
inline int32_t MapIndex(const CodeMap& map, int32_t index) {
  return index < 0 ? -1 : MapCode(map, static_cast<uint32_t>(index));
}

// <Set>Decode: linear index -> code point; <Set>Encode: code point -> index.
extern const CodeMap Ksx1001Decode, Ksx1001Encode;
extern const CodeMap Cp949Ext1Decode, Cp949Ext1Encode;
extern const CodeMap Cp949Ext2Decode, Cp949Ext2Encode;
extern const CodeMap Jisx0201Decode, Jisx0201Encode;  // index: the byte
extern const CodeMap Jisx0208Decode, Jisx0208Encode;
extern const CodeMap Jisx0212Decode, Jisx0212Encode;
extern const CodeMap Gb2312Decode, Gb2312Encode;
extern const CodeMap Big5Decode, Big5Encode;

// ISO 8859-15: bytes 0xA0..0xBF to code points; code points 0xA0..0xBF and
// 0x150..0x17F to bytes (0: no mapping).
extern const uint16_t Latin9Decode[32];
extern const uint16_t Latin9EncodeA0[32];
extern const uint16_t Latin9Encode150[48];

// Linear indexes; -1 when the bytes lie outside the code space.

// 94 x 94 sets in EUC form, both bytes 0xA1..0xFE.
inline int32_t Index94(uint32_t lead, uint32_t trail) {
  if (lead < 0xA1 || lead > 0xFE || trail < 0xA1 || trail > 0xFE) return -1;
  return static_cast<int32_t>((lead - 0xA1) * 94 + (trail - 0xA1));
}

}  // namespace charset
}  // namespace Quorel

#endif  // QRLSL_TEXT_CHARSET_TABLES_H_
