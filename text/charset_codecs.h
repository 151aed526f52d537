// The decoder and encoder of each encoding, as the converter's table of nine
// rows indexed by encoding id (row 0 empty).
//
// Decoder: (out code point or null, input, bytes available) -> bytes consumed,
// kInvalidSequence, or kTooFewBytes; with a null output it only measures.
// Encoder: (out bytes or null, code point, room) -> bytes written,
// kNoMapping, or kNoRoom; with a null output it only measures.
#ifndef QRLSL_TEXT_CHARSET_CODECS_H_
#define QRLSL_TEXT_CHARSET_CODECS_H_

#include <cstdint>

namespace Quorel {
namespace charset {

constexpr int32_t kInvalidSequence = -1;  // decoder
constexpr int32_t kTooFewBytes = -2;      // decoder
constexpr int32_t kNoMapping = -1;        // encoder
constexpr int32_t kNoRoom = -2;           // encoder

typedef int32_t (*DecodeFunction)(uint32_t* out, const unsigned char* in,
                                  int32_t available);
typedef int32_t (*EncodeFunction)(unsigned char* out, uint32_t codePoint,
                                  int32_t room);

struct Codec {
  DecodeFunction decode;
  EncodeFunction encode;
};

constexpr int32_t kCodecCount = 9;
extern const Codec CodecTable[kCodecCount];

int32_t DecodeUtf8(uint32_t* out, const unsigned char* in, int32_t available);
int32_t EncodeUtf8(unsigned char* out, uint32_t codePoint, int32_t room);
int32_t DecodeCp949(uint32_t* out, const unsigned char* in, int32_t available);
int32_t EncodeCp949(unsigned char* out, uint32_t codePoint, int32_t room);
int32_t DecodeEucJp(uint32_t* out, const unsigned char* in, int32_t available);
int32_t EncodeEucJp(unsigned char* out, uint32_t codePoint, int32_t room);
int32_t DecodeShiftJis(uint32_t* out, const unsigned char* in, int32_t available);
int32_t EncodeShiftJis(unsigned char* out, uint32_t codePoint, int32_t room);
int32_t DecodeGb2312(uint32_t* out, const unsigned char* in, int32_t available);
int32_t EncodeGb2312(unsigned char* out, uint32_t codePoint, int32_t room);
int32_t DecodeBig5(uint32_t* out, const unsigned char* in, int32_t available);
int32_t EncodeBig5(unsigned char* out, uint32_t codePoint, int32_t room);
int32_t DecodeLatin9(uint32_t* out, const unsigned char* in, int32_t available);
int32_t EncodeLatin9(unsigned char* out, uint32_t codePoint, int32_t room);

// Shared steps of the codecs.

// A byte below 0x80 as itself (1), else kInvalidSequence.
inline int32_t DecodeAscii(uint32_t* out, const unsigned char* in) {
  if (in[0] >= 0x80) return kInvalidSequence;
  if (out) *out = in[0];
  return 1;
}

// A code point below 0x80 as one byte, else kNoMapping.
inline int32_t EncodeAscii(unsigned char* out, uint32_t codePoint, int32_t room) {
  if (codePoint >= 0x80) return kNoMapping;
  if (room < 1) return kNoRoom;
  if (out) out[0] = static_cast<unsigned char>(codePoint);
  return 1;
}

// Stores a mapped code point, or gives kInvalidSequence when `value` is -1.
inline int32_t StoreDecoded(uint32_t* out, int32_t value, int32_t consumed) {
  if (value < 0) return kInvalidSequence;
  if (out) *out = static_cast<uint32_t>(value);
  return consumed;
}

// Writes `count` bytes (1 to 3) from `bytes`, or kNoRoom.
inline int32_t StoreEncoded(unsigned char* out, int32_t room,
                            const unsigned char* bytes, int32_t count) {
  if (room < count) return kNoRoom;
  if (out) {
    for (int32_t i = 0; i < count; ++i) out[i] = bytes[i];
  }
  return count;
}

// The UTF-8 decoder with its two common forms in line, for the decode loop:
// ASCII, and the three-byte form that holds all of Hangul when it is whole
// and valid. Anything else goes to DecodeUtf8, so the answers are the same.
inline int32_t DecodeUtf8Inline(uint32_t* out, const unsigned char* in,
                                int32_t available) {
  const uint32_t lead = in[0];
  if (lead < 0x80) {
    if (out) *out = lead;
    return 1;
  }
  if ((lead & 0xF0) == 0xE0 && available >= 3 && (in[1] & 0xC0) == 0x80 &&
      (in[2] & 0xC0) == 0x80 && (lead != 0xE0 || in[1] >= 0xA0)) {
    if (out) *out = (lead & 0x0F) << 12 | (in[1] & 0x3Fu) << 6 | (in[2] & 0x3Fu);
    return 3;
  }
  return DecodeUtf8(out, in, available);
}

// The direct tables of the CP949 pair, built on first use (see
// charset_cp949.cpp): (lead - 0x81) * 256 + trail -> code point, and code
// point -> lead << 8 | trail; 0 means no mapping. Loops fetch them once and
// call the *With forms, which answer as DecodeCp949 and EncodeCp949.
const uint16_t* Cp949DecodeTable();
const uint16_t* Cp949EncodeTable();

inline int32_t DecodeCp949With(const uint16_t* table, uint32_t* out,
                               const unsigned char* in, int32_t available) {
  const uint32_t lead = in[0];
  if (lead < 0x80) return DecodeAscii(out, in);
  if (lead < 0x81 || lead > 0xFE) return kInvalidSequence;
  if (available < 2) return kTooFewBytes;
  const uint16_t codePoint = table[(lead - 0x81) * 256 + in[1]];
  return StoreDecoded(out, codePoint != 0 ? codePoint : -1, 2);
}

inline int32_t EncodeCp949With(const uint16_t* table, unsigned char* out,
                               uint32_t codePoint, int32_t room) {
  int32_t result = EncodeAscii(out, codePoint, room);
  if (result != kNoMapping) return result;
  if (codePoint > 0xFFFF) return kNoMapping;
  const uint16_t code = table[codePoint];
  if (code == 0) return kNoMapping;
  const unsigned char bytes[2] = {static_cast<unsigned char>(code >> 8),
                                  static_cast<unsigned char>(code & 0xFF)};
  return StoreEncoded(out, room, bytes, 2);
}

// The in-line forms as the conversion loops take them.
struct Utf8InlineDecoder {
  int32_t operator()(uint32_t* out, const unsigned char* in, int32_t available) const {
    return DecodeUtf8Inline(out, in, available);
  }
};
struct Cp949Decoder {
  const uint16_t* table;  // Cp949DecodeTable()
  int32_t operator()(uint32_t* out, const unsigned char* in, int32_t available) const {
    return DecodeCp949With(table, out, in, available);
  }
};
struct Cp949Encoder {
  const uint16_t* table;  // Cp949EncodeTable()
  int32_t operator()(unsigned char* out, uint32_t codePoint, int32_t room) const {
    return EncodeCp949With(table, out, codePoint, room);
  }
};

// Writes a 94 x 94 set's linear index as its two EUC bytes (0xA1..0xFE),
// after `prefix` unless it is 0; kNoMapping for index -1, or kNoRoom.
inline int32_t StoreIndex94(unsigned char* out, int32_t room, int32_t index,
                            unsigned char prefix = 0) {
  if (index < 0) return kNoMapping;
  unsigned char bytes[3] = {prefix, static_cast<unsigned char>(0xA1 + index / 94),
                            static_cast<unsigned char>(0xA1 + index % 94)};
  return prefix ? StoreEncoded(out, room, bytes, 3) : StoreEncoded(out, room, bytes + 1, 2);
}

}  // namespace charset
}  // namespace Quorel

#endif  // QRLSL_TEXT_CHARSET_CODECS_H_
