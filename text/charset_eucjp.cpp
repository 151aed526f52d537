// EUC-JP: ASCII, JIS X 0208 in two bytes, half-width katakana of JIS X 0201
// after 0x8E, and JIS X 0212 in three bytes after 0x8F.
#include "text/charset_codecs.h"
#include "text/charset_tables.h"

namespace Quorel {
namespace charset {

namespace {
constexpr unsigned char kSingleShift2 = 0x8E;
constexpr unsigned char kSingleShift3 = 0x8F;
}  // namespace

int32_t DecodeEucJp(uint32_t* out, const unsigned char* in, int32_t available) {
  unsigned char lead = in[0];
  if (lead < 0x80) return DecodeAscii(out, in);
  if (lead == kSingleShift2) {
    if (available < 2) return kTooFewBytes;
    if (in[1] < 0xA1 || in[1] > 0xDF) return kInvalidSequence;
    return StoreDecoded(out, MapCode(Jisx0201Decode, in[1]), 2);
  }
  if (lead == kSingleShift3) {
    if (available < 3) return kTooFewBytes;
    return StoreDecoded(out, MapIndex(Jisx0212Decode, Index94(in[1], in[2])), 3);
  }
  if (lead < 0xA1 || lead > 0xFE) return kInvalidSequence;
  if (available < 2) return kTooFewBytes;
  return StoreDecoded(out, MapIndex(Jisx0208Decode, Index94(lead, in[1])), 2);
}

int32_t EncodeEucJp(unsigned char* out, uint32_t codePoint, int32_t room) {
  int32_t result = EncodeAscii(out, codePoint, room);
  if (result != kNoMapping) return result;
  result = StoreIndex94(out, room, MapCode(Jisx0208Encode, codePoint));
  if (result != kNoMapping) return result;
  int32_t kana = MapCode(Jisx0201Encode, codePoint);
  if (kana >= 0xA1) {
    unsigned char bytes[2] = {kSingleShift2, static_cast<unsigned char>(kana)};
    return StoreEncoded(out, room, bytes, 2);
  }
  return StoreIndex94(out, room, MapCode(Jisx0212Encode, codePoint), kSingleShift3);
}

}  // namespace charset
}  // namespace Quorel
