// The input road UTF-8 -> CP949 in one pass, without the wide string between.
// Per character it does what the two loops of charset.cpp do one after the
// other: the decode loop's blanks (invalid byte, no UCS-2 unit), its stop at
// a cut sequence, then the CP949 encoder or a blank. ASCII and whole
// three-byte characters (all of Hangul) are taken in line; the rest goes
// through the UTF-8 decoder.
#include "text/charset.h"
#include "text/charset_codecs.h"

namespace Quorel {

namespace {

constexpr unsigned char kBlank = 0x20;

// A decoded unit that the wide string can't hold turns into a blank.
bool NotUcs2(uint32_t codePoint) {
  return codePoint > 0xFFFF || codePoint == 0xFFFE ||
         (codePoint >= 0xD800 && codePoint <= 0xDFFF);
}

// Writes the CP949 code of a unit (never 0, never ASCII here), or a blank.
unsigned char* PutCp949(unsigned char* out, const uint16_t* table, uint32_t unit) {
  const uint16_t code = table[unit];
  if (code == 0) {
    *out = kBlank;
    return out + 1;
  }
  out[0] = static_cast<unsigned char>(code >> 8);
  out[1] = static_cast<unsigned char>(code & 0xFF);
  return out + 2;
}

}  // namespace

int32_t Utf8ToCp949(char* out, const char* utf8, int32_t length) {
  const uint16_t* table = charset::Cp949EncodeTable();
  unsigned char* cursor = reinterpret_cast<unsigned char*>(out);
  const unsigned char* in = reinterpret_cast<const unsigned char*>(utf8);
  const unsigned char* end = in + (length > 0 ? length : 0);
  while (in < end) {
    const uint32_t lead = in[0];
    if (lead < 0x80) {
      *cursor++ = static_cast<unsigned char>(lead);
      ++in;
      continue;
    }
    // Leads 0xE1..0xEF with two trails: a three-byte character that can't be
    // overlong. Its surrogates and U+FFFE have no CP949 code either, so the
    // table alone gives the blank that the two steps give.
    if (lead - 0xE1 <= 0xEF - 0xE1 && end - in >= 3) {
      const uint32_t first = in[1] ^ 0x80u;
      const uint32_t second = in[2] ^ 0x80u;
      if ((first | second) < 0x40) {
        cursor = PutCp949(cursor, table, (lead & 0x0F) << 12 | first << 6 | second);
        in += 3;
        continue;
      }
    }
    uint32_t codePoint = 0;
    const int32_t consumed = charset::DecodeUtf8(&codePoint, in, static_cast<int32_t>(end - in));
    if (consumed == charset::kTooFewBytes) break;  // a cut sequence is dropped
    if (consumed < 0) {
      *cursor++ = kBlank;  // an invalid byte
      ++in;
      continue;
    }
    in += consumed;
    if (NotUcs2(codePoint)) {
      *cursor++ = kBlank;
    } else if (codePoint < 0x80) {
      *cursor++ = static_cast<unsigned char>(codePoint);  // never: no overlong forms
    } else {
      cursor = PutCp949(cursor, table, codePoint);
    }
  }
  *cursor = 0;
  return static_cast<int32_t>(cursor - reinterpret_cast<unsigned char*>(out));
}

}  // namespace Quorel
