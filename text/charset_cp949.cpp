// CP949: ASCII, KS X 1001 in its EUC form, and the extension that completes
// the Hangul syllables (first table: leads 0x81..0xA0; second: leads
// 0xA1..0xFE with trails below 0xA1). EUC-KR shares this pair.
#include "text/charset_codecs.h"
#include "text/charset_tables.h"

namespace Quorel {
namespace charset {

namespace {

constexpr int32_t kExt1Trails = 178;  // A-Z, a-z, 0x81..0xFE
constexpr int32_t kExt2Trails = 84;   // A-Z, a-z, 0x81..0xA0
constexpr uint32_t kFirstHangul = 44032;
constexpr uint32_t kLastHangul = 55203;
constexpr uint32_t kFirstOfSecondTable = 51365;

// Position of an extension trail byte among the 178; -1 if it is none.
int32_t TrailIndex(uint32_t trail) {
  if (trail >= 0x41 && trail <= 0x5A) return static_cast<int32_t>(trail - 0x41);
  if (trail >= 0x61 && trail <= 0x7A) return static_cast<int32_t>(trail - 0x61 + 26);
  if (trail >= 0x81 && trail <= 0xFE) return static_cast<int32_t>(trail - 0x81 + 52);
  return -1;
}

unsigned char TrailByte(int32_t index) {
  if (index < 26) return static_cast<unsigned char>(0x41 + index);
  if (index < 52) return static_cast<unsigned char>(0x61 + index - 26);
  return static_cast<unsigned char>(0x81 + index - 52);
}

// Looks up an extension code: leads from `firstLead`, `trails` per lead.
int32_t DecodeExtension(uint32_t* out, const unsigned char* in,
                        const CodeMap& map, uint32_t firstLead, int32_t trails) {
  int32_t t = TrailIndex(in[1]);
  if (t < 0 || t >= trails) return kInvalidSequence;
  return StoreDecoded(out, MapIndex(map, static_cast<int32_t>(in[0] - firstLead) * trails + t), 2);
}

int32_t EncodeExtension(unsigned char* out, int32_t room, int32_t index,
                        unsigned char firstLead, int32_t trails) {
  if (index < 0) return kNoMapping;
  unsigned char bytes[2] = {static_cast<unsigned char>(firstLead + index / trails),
                            TrailByte(index % trails)};
  return StoreEncoded(out, room, bytes, 2);
}

}  // namespace

int32_t DecodeCp949(uint32_t* out, const unsigned char* in, int32_t available) {
  unsigned char lead = in[0];
  if (lead < 0x80) return DecodeAscii(out, in);
  if (lead < 0x81 || lead > 0xFE) return kInvalidSequence;
  if (available < 2) return kTooFewBytes;
  if (lead <= 0xA0) return DecodeExtension(out, in, Cp949Ext1Decode, 0x81, kExt1Trails);
  if (in[1] < 0xA1) return DecodeExtension(out, in, Cp949Ext2Decode, 0xA1, kExt2Trails);
  return StoreDecoded(out, MapIndex(Ksx1001Decode, Index94(lead, in[1])), 2);
}

int32_t EncodeCp949(unsigned char* out, uint32_t codePoint, int32_t room) {
  int32_t result = EncodeAscii(out, codePoint, room);
  if (result != kNoMapping) return result;
  result = StoreIndex94(out, room, MapCode(Ksx1001Encode, codePoint));
  if (result != kNoMapping) return result;
  if (codePoint < kFirstHangul || codePoint > kLastHangul) return kNoMapping;
  if (codePoint < kFirstOfSecondTable) {
    return EncodeExtension(out, room, MapCode(Cp949Ext1Encode, codePoint), 0x81, kExt1Trails);
  }
  return EncodeExtension(out, room, MapCode(Cp949Ext2Encode, codePoint), 0xA1, kExt2Trails);
}

}  // namespace charset
}  // namespace Quorel
