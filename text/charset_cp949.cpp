// CP949: ASCII, KS X 1001 in its EUC form, and the extension that completes
// the Hangul syllables (first table: leads 0x81..0xA0; second: leads
// 0xA1..0xFE with trails below 0xA1). EUC-KR shares this pair.
// Every text of the library passes through this pair, so the answers of the
// run tables are copied once into two direct tables (about 190 KB) at the
// first conversion; the searches below only fill them.
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

// The double-byte code point of lead and trail by the run tables; -1 if none.
int32_t SearchDecode(unsigned char lead, unsigned char trail) {
  const unsigned char in[2] = {lead, trail};
  uint32_t codePoint = 0;
  int32_t consumed;
  if (lead <= 0xA0) {
    consumed = DecodeExtension(&codePoint, in, Cp949Ext1Decode, 0x81, kExt1Trails);
  } else if (trail < 0xA1) {
    consumed = DecodeExtension(&codePoint, in, Cp949Ext2Decode, 0xA1, kExt2Trails);
  } else {
    consumed = StoreDecoded(&codePoint, MapIndex(Ksx1001Decode, Index94(lead, trail)), 2);
  }
  return consumed == 2 ? static_cast<int32_t>(codePoint) : -1;
}

// The two bytes (lead first) of a code point from 0x80 by the run tables;
// kNoMapping if none.
int32_t SearchEncode(unsigned char* out, uint32_t codePoint) {
  int32_t result = StoreIndex94(out, 2, MapCode(Ksx1001Encode, codePoint));
  if (result != kNoMapping) return result;
  if (codePoint < kFirstHangul || codePoint > kLastHangul) return kNoMapping;
  if (codePoint < kFirstOfSecondTable) {
    return EncodeExtension(out, 2, MapCode(Cp949Ext1Encode, codePoint), 0x81, kExt1Trails);
  }
  return EncodeExtension(out, 2, MapCode(Cp949Ext2Encode, codePoint), 0xA1, kExt2Trails);
}

constexpr uint32_t kFirstLead = 0x81;
constexpr uint32_t kLeads = 0xFE - kFirstLead + 1;

// The run tables' answers by direct index. 0 means no mapping: no
// double-byte code decodes to U+0000, and no code point encodes to 00 00.
struct DirectTables {
  uint16_t decode[kLeads * 256];  // (lead - 0x81) * 256 + trail -> code point
  uint16_t encode[0x10000];       // code point -> lead << 8 | trail

  DirectTables() : decode(), encode() {
    for (uint32_t lead = kFirstLead; lead <= 0xFE; ++lead) {
      for (uint32_t trail = 0; trail < 256; ++trail) {
        const int32_t codePoint = SearchDecode(static_cast<unsigned char>(lead),
                                               static_cast<unsigned char>(trail));
        if (codePoint > 0 && codePoint <= 0xFFFF) {
          decode[(lead - kFirstLead) * 256 + trail] = static_cast<uint16_t>(codePoint);
        }
      }
    }
    for (uint32_t codePoint = 0x80; codePoint <= 0xFFFF; ++codePoint) {
      unsigned char bytes[2];
      if (SearchEncode(bytes, codePoint) == 2) {
        encode[codePoint] = static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
      }
    }
  }
};

// Built on first use; read-only afterwards, shared by every thread.
const DirectTables& Direct() {
  static const DirectTables tables;
  return tables;
}

}  // namespace

const uint16_t* Cp949DecodeTable() { return Direct().decode; }

const uint16_t* Cp949EncodeTable() { return Direct().encode; }

int32_t DecodeCp949(uint32_t* out, const unsigned char* in, int32_t available) {
  return DecodeCp949With(Direct().decode, out, in, available);
}

int32_t EncodeCp949(unsigned char* out, uint32_t codePoint, int32_t room) {
  return EncodeCp949With(Direct().encode, out, codePoint, room);
}

}  // namespace charset
}  // namespace Quorel
