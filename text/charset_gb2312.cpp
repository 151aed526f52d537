// GB2312 in its EUC form: ASCII and GB 2312 with both bytes 0xA1..0xFE.
#include "text/charset_codecs.h"
#include "text/charset_tables.h"

namespace Quorel {
namespace charset {

int32_t DecodeGb2312(uint32_t* out, const unsigned char* in, int32_t available) {
  unsigned char lead = in[0];
  if (lead < 0x80) return DecodeAscii(out, in);
  if (lead < 0xA1 || lead > 0xFE) return kInvalidSequence;
  if (available < 2) return kTooFewBytes;
  return StoreDecoded(out, MapIndex(Gb2312Decode, Index94(lead, in[1])), 2);
}

int32_t EncodeGb2312(unsigned char* out, uint32_t codePoint, int32_t room) {
  int32_t result = EncodeAscii(out, codePoint, room);
  if (result != kNoMapping) return result;
  return StoreIndex94(out, room, MapCode(Gb2312Encode, codePoint));
}

}  // namespace charset
}  // namespace Quorel
