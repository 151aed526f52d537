// ISO 8859-15: one byte a character; only 0xA0..0xBF differ from Latin-1.
#include "text/charset_codecs.h"
#include "text/charset_tables.h"

namespace Quorel {
namespace charset {

namespace {
constexpr uint32_t kEuroSign = 0x20AC;
}  // namespace

int32_t DecodeLatin9(uint32_t* out, const unsigned char* in, int32_t /*available*/) {
  unsigned char c = in[0];
  if (out) *out = (c >= 0xA0 && c <= 0xBF) ? Latin9Decode[c - 0xA0] : c;
  return 1;
}

int32_t EncodeLatin9(unsigned char* out, uint32_t codePoint, int32_t room) {
  uint32_t byte;
  if (codePoint < 0xA0 || (codePoint >= 0xC0 && codePoint <= 0xFF)) {
    byte = codePoint;
  } else {
    if (codePoint <= 0xBF) byte = Latin9EncodeA0[codePoint - 0xA0];
    else if (codePoint >= 0x150 && codePoint <= 0x17F) byte = Latin9Encode150[codePoint - 0x150];
    else if (codePoint == kEuroSign) byte = 0xA4;
    else return kNoMapping;
    if (byte == 0) return kNoMapping;  // these tables mark a gap with 0
  }
  unsigned char value = static_cast<unsigned char>(byte);
  return StoreEncoded(out, room, &value, 1);
}

}  // namespace charset
}  // namespace Quorel
