// Shift-JIS: JIS X 0201 in one byte (its Roman half below 0x80, katakana at
// 0xA1..0xDF) and JIS X 0208 folded into leads 0x81..0x9F and 0xE0..0xEF.
#include "text/charset_codecs.h"
#include "text/charset_tables.h"

namespace Quorel {
namespace charset {

namespace {

bool IsSingleByte(unsigned char c) { return c < 0x80 || (c >= 0xA1 && c <= 0xDF); }

// JIS X 0208 linear index of a Shift-JIS pair; -1 outside the set.
int32_t JisIndex(unsigned char lead, unsigned char trail) {
  int32_t row;
  if (lead >= 0x81 && lead <= 0x9F) row = (lead - 0x81) * 2;
  else if (lead >= 0xE0 && lead <= 0xEF) row = (lead - 0xC1) * 2;
  else return -1;
  int32_t column;
  if (trail >= 0x40 && trail <= 0x7E) column = trail - 0x40;
  else if (trail >= 0x80 && trail <= 0x9E) column = trail - 0x41;
  else if (trail >= 0x9F && trail <= 0xFC) row += 1, column = trail - 0x9F;
  else return -1;
  return row * 94 + column;
}

}  // namespace

int32_t DecodeShiftJis(uint32_t* out, const unsigned char* in, int32_t available) {
  unsigned char lead = in[0];
  if (IsSingleByte(lead)) return StoreDecoded(out, MapCode(Jisx0201Decode, lead), 1);
  if (JisIndex(lead, 0x40) < 0) return kInvalidSequence;
  if (available < 2) return kTooFewBytes;
  return StoreDecoded(out, MapIndex(Jisx0208Decode, JisIndex(lead, in[1])), 2);
}

int32_t EncodeShiftJis(unsigned char* out, uint32_t codePoint, int32_t room) {
  int32_t single = MapCode(Jisx0201Encode, codePoint);
  if (single >= 0) {
    unsigned char byte = static_cast<unsigned char>(single);
    return StoreEncoded(out, room, &byte, 1);
  }
  int32_t index = MapCode(Jisx0208Encode, codePoint);
  if (index < 0) return kNoMapping;
  int32_t row = index / 94;
  int32_t column = index % 94;
  unsigned char bytes[2];
  bytes[0] = static_cast<unsigned char>(row / 2 + (row < 62 ? 0x81 : 0xC1));
  if (row % 2) bytes[1] = static_cast<unsigned char>(column + 0x9F);
  else bytes[1] = static_cast<unsigned char>(column + (column < 63 ? 0x40 : 0x41));
  return StoreEncoded(out, room, bytes, 2);
}

}  // namespace charset
}  // namespace Quorel
