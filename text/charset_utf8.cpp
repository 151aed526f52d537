// UTF-8 in its six historical forms; values above 0xFFFF decode as they are
// and the wide-string layer turns them into blanks.
#include "text/charset_codecs.h"

namespace Quorel {
namespace charset {

namespace {

// The forms by lead byte: the first lead of the form, the sequence length,
// the value bits of the lead, and the least first trail after `shortestLead`
// (the lead whose low trails would spell an overlong form).
struct Utf8Form {
  uint32_t firstLead;
  int32_t length;
  uint32_t leadMask;
  uint32_t shortestLead;
  uint32_t leastTrail;
};

constexpr Utf8Form kForms[] = {
    {0xC2, 2, 0x1F, 0x00, 0x80}, {0xE0, 3, 0x0F, 0xE0, 0xA0},
    {0xF0, 4, 0x07, 0xF0, 0x90}, {0xF8, 5, 0x03, 0xF8, 0x88},
    {0xFC, 6, 0x01, 0xFC, 0x84},
};

// The form a lead byte opens; null for 0x80..0xC1, 0xFE and 0xFF.
const Utf8Form* FormOf(uint32_t lead) {
  if (lead < kForms[0].firstLead || lead >= 0xFE) return nullptr;
  const Utf8Form* form = kForms;
  while (form + 1 < kForms + 5 && form[1].firstLead <= lead) ++form;
  return form;
}

}  // namespace

int32_t DecodeUtf8(uint32_t* out, const unsigned char* in, int32_t available) {
  if (in[0] < 0x80) return DecodeAscii(out, in);
  const Utf8Form* form = FormOf(in[0]);
  if (form == nullptr) return kInvalidSequence;
  if (available < form->length) return kTooFewBytes;
  if (in[0] == form->shortestLead && in[1] < form->leastTrail) return kInvalidSequence;
  uint32_t value = in[0] & form->leadMask;
  for (int32_t i = 1; i < form->length; ++i) {
    if ((in[i] & 0xC0) != 0x80) return kInvalidSequence;
    value = (value << 6) | (in[i] & 0x3F);
  }
  if (out) *out = value;
  return form->length;
}

int32_t EncodeUtf8(unsigned char* out, uint32_t codePoint, int32_t room) {
  if (codePoint < 0x80) return EncodeAscii(out, codePoint, room);
  int32_t length;
  unsigned char lead;
  if (codePoint < 0x800) length = 2, lead = 0xC0;
  else if (codePoint < 0x10000) length = 3, lead = 0xE0;
  else if (codePoint < 0x200000) length = 4, lead = 0xF0;
  else if (codePoint < 0x4000000) length = 5, lead = 0xF8;
  else if (codePoint <= 0x7FFFFFFF) length = 6, lead = 0xFC;
  else return kNoMapping;
  if (room < length) return kNoRoom;
  if (out) {
    for (int32_t i = length - 1; i > 0; --i) {
      out[i] = static_cast<unsigned char>(0x80 | (codePoint & 0x3F));
      codePoint >>= 6;
    }
    out[0] = static_cast<unsigned char>(lead | codePoint);
  }
  return length;
}

}  // namespace charset
}  // namespace Quorel
