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
