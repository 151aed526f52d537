// Hanja to Hangul: the reading of every character of the CP949 Hanja rows,
// and the in-place rewrite of a CP949 string with those readings.
#ifndef QRLSL_EOJUL_HANJA_H_
#define QRLSL_EOJUL_HANJA_H_

#include <cstdint>

namespace Quorel {

constexpr int kHanjaRows = 52;       // leads 0xCA..0xFD
constexpr int kHanjaColumns = 94;    // trails 0xA1..0xFE
constexpr unsigned char kHanjaFirstLead = 0xCA;
constexpr unsigned char kHanjaLastLead = 0xFD;
constexpr unsigned char kHanjaFirstTrail = 0xA1;
constexpr unsigned char kHanjaLastTrail = 0xFE;

// Row lead - 0xCA, column trail - 0xA1: the big-endian CP949 code of the
// reading syllable, 0 for none (every entry of the table is filled).
extern const uint16_t HanjaReadingTable[kHanjaRows][kHanjaColumns];

// Copies the NUL-terminated `source` to `destination` with each Hanja pair
// replaced by its reading. Bytes with the top bit set go in pairs, others one
// by one; a top-bit byte right before the NUL ends the string and is not
// copied. The length never grows, so source and destination may be the same.
// Returns the length of the result.
int32_t ConvertHanja(const char* source, char* destination);

}  // namespace Quorel

#endif  // QRLSL_EOJUL_HANJA_H_
