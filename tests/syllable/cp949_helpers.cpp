#include "syllable/cp949_helpers.h"

#include <iconv.h>

namespace Quorel {
namespace testing {
namespace {

// Converts all of `in` or nothing.
bool Convert(const char* to, const char* from, const std::string& in,
             std::string* out) {
  iconv_t cd = iconv_open(to, from);
  if (cd == reinterpret_cast<iconv_t>(-1)) return false;
  std::string buffer(in.size() * 4 + 8, '\0');
  char* src = const_cast<char*>(in.data());
  size_t srcLeft = in.size();
  char* dst = &buffer[0];
  size_t dstLeft = buffer.size();
  const size_t rc = iconv(cd, &src, &srcLeft, &dst, &dstLeft);
  iconv_close(cd);
  if (rc == static_cast<size_t>(-1) || srcLeft != 0) return false;
  buffer.resize(buffer.size() - dstLeft);
  *out = buffer;
  return true;
}

}  // namespace

bool HaveCp949() {
  std::string out;
  return Convert("CP949", "UTF-8", "\xEA\xB0\x80", &out) && out == "\xB0\xA1";
}

std::string Cp949(const std::string& utf8) {
  std::string out;
  return Convert("CP949", "UTF-8", utf8, &out) ? out : std::string();
}

char32_t CodePointOf(unsigned char lead, unsigned char trail) {
  const std::string in{static_cast<char>(lead), static_cast<char>(trail)};
  std::string out;
  if (!Convert("UTF-32LE", "CP949", in, &out) || out.size() != 4) return 0;
  char32_t cp = 0;
  for (int i = 3; i >= 0; --i) cp = cp << 8 | static_cast<unsigned char>(out[i]);
  return cp;
}

std::string Cp949Of(char32_t codePoint) {
  std::string in;
  for (int i = 0; i < 4; ++i) in += static_cast<char>(codePoint >> (8 * i) & 0xFF);
  std::string out;
  return Convert("CP949", "UTF-32LE", in, &out) ? out : std::string();
}

const SyllableRec* Syl(const std::string& utf8) {
  const std::string bytes = Cp949(utf8);
  return bytes.size() == 2 ? SyllableAt(bytes.c_str()) : nullptr;
}

int Num(const std::string& utf8) {
  const SyllableRec* rec = Syl(utf8);
  return rec == nullptr ? -1 : SyllableNumber(rec);
}

}  // namespace testing
}  // namespace Quorel
