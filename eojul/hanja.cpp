// Hanja readings: the generated table and the pairwise rewrite.
#include "eojul/hanja.h"

namespace Quorel {

const uint16_t HanjaReadingTable[kHanjaRows][kHanjaColumns] = {
#include "eojul/hanja_table.inc"
};

int32_t ConvertHanja(const char* source, char* destination) {
  const unsigned char* in = reinterpret_cast<const unsigned char*>(source);
  unsigned char* out = reinterpret_cast<unsigned char*>(destination);
  int32_t i = 0;
  while (in[i]) {
    unsigned char c = in[i];
    if (c < 0x80) {
      out[i] = c;
      ++i;
      continue;
    }
    unsigned char d = in[i + 1];
    if (d == 0) break;  // a lead with no trail is left out
    uint16_t reading = 0;
    if (c >= kHanjaFirstLead && c <= kHanjaLastLead && d >= kHanjaFirstTrail &&
        d <= kHanjaLastTrail) {
      reading = HanjaReadingTable[c - kHanjaFirstLead][d - kHanjaFirstTrail];
    }
    if (reading != 0) {
      out[i] = static_cast<unsigned char>(reading >> 8);
      out[i + 1] = static_cast<unsigned char>(reading & 0xFF);
    } else {
      out[i] = c;
      out[i + 1] = d;
    }
    i += 2;
  }
  out[i] = '\0';
  return i;
}

}  // namespace Quorel
