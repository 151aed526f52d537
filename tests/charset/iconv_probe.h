// The C library's iconv(3) as the reference the converter is measured
// against: one code to one code point and back.
#ifndef QRLSL_TESTS_CHARSET_ICONV_PROBE_H_
#define QRLSL_TESTS_CHARSET_ICONV_PROBE_H_

#include <iconv.h>

#include <cstdint>
#include <string>

class IconvProbe {
 public:
  explicit IconvProbe(const char* charset)
      : toUnicode(iconv_open("UTF-32LE", charset)), fromUnicode(iconv_open(charset, "UTF-32LE")) {}
  ~IconvProbe() {
    if (Ready()) {
      iconv_close(toUnicode);
      iconv_close(fromUnicode);
    }
  }
  IconvProbe(const IconvProbe&) = delete;
  IconvProbe& operator=(const IconvProbe&) = delete;

  bool Ready() const { return toUnicode != Failed() && fromUnicode != Failed(); }

  // The one code point `bytes` stand for; -1 if they are invalid, cut off,
  // or more than one character.
  int64_t DecodeOne(const std::string& bytes) {
    std::string out;
    if (!Run(toUnicode, bytes, out) || out.size() != 4) return -1;
    const unsigned char* u = reinterpret_cast<const unsigned char*>(out.data());
    return u[0] | (u[1] << 8) | (u[2] << 16) | (static_cast<int64_t>(u[3]) << 24);
  }

  // The bytes of one code point; empty if it has no encoding.
  std::string EncodeOne(uint32_t codePoint) {
    std::string in(4, '\0');
    for (int i = 0; i < 4; ++i) in[i] = static_cast<char>((codePoint >> (8 * i)) & 0xFF);
    std::string out;
    if (!Run(fromUnicode, in, out)) out.clear();
    return out;
  }

 private:
  static iconv_t Failed() { return reinterpret_cast<iconv_t>(-1); }

  static bool Run(iconv_t cd, const std::string& in, std::string& out) {
    iconv(cd, nullptr, nullptr, nullptr, nullptr);
    std::string source = in;
    char buffer[32];
    char* inPtr = &source[0];
    size_t inLeft = source.size();
    char* outPtr = buffer;
    size_t outLeft = sizeof buffer;
    if (iconv(cd, &inPtr, &inLeft, &outPtr, &outLeft) == static_cast<size_t>(-1) || inLeft != 0) {
      return false;
    }
    if (iconv(cd, nullptr, nullptr, &outPtr, &outLeft) == static_cast<size_t>(-1)) return false;
    out.assign(buffer, outPtr);
    return true;
  }

  iconv_t toUnicode;
  iconv_t fromUnicode;
};

#endif  // QRLSL_TESTS_CHARSET_ICONV_PROBE_H_
