// Big5: ASCII and the double-byte set with leads 0xA1..0xF9 and trails
// 0x40..0x7E and 0xA1..0xFE (157 a lead).
#include "text/charset_codecs.h"
#include "text/charset_tables.h"

namespace Quorel {
namespace charset {

namespace {

constexpr int32_t kTrails = 157;
constexpr int32_t kLowTrails = 63;  // 0x40..0x7E

int32_t Big5Index(unsigned char lead, unsigned char trail) {
  int32_t row = lead - 0xA1;
  if (trail >= 0x40 && trail <= 0x7E) return row * kTrails + trail - 0x40;
  if (trail >= 0xA1 && trail <= 0xFE) return row * kTrails + kLowTrails + trail - 0xA1;
  return -1;
}

}  // namespace

int32_t DecodeBig5(uint32_t* out, const unsigned char* in, int32_t available) {
  unsigned char lead = in[0];
  if (lead < 0x80) return DecodeAscii(out, in);
  if (lead < 0xA1 || lead > 0xF9) return kInvalidSequence;
  if (available < 2) return kTooFewBytes;
  return StoreDecoded(out, MapIndex(Big5Decode, Big5Index(lead, in[1])), 2);
}

int32_t EncodeBig5(unsigned char* out, uint32_t codePoint, int32_t room) {
  int32_t result = EncodeAscii(out, codePoint, room);
  if (result != kNoMapping) return result;
  int32_t index = MapCode(Big5Encode, codePoint);
  if (index < 0) return kNoMapping;
  int32_t column = index % kTrails;
  unsigned char bytes[2] = {
      static_cast<unsigned char>(0xA1 + index / kTrails),
      static_cast<unsigned char>(column < kLowTrails ? 0x40 + column
                                                     : 0xA1 + column - kLowTrails)};
  return StoreEncoded(out, room, bytes, 2);
}

}  // namespace charset
}  // namespace Quorel
