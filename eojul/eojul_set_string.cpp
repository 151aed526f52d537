// Eojul::SetString: classifies one string as a single token. Unlike the
// scanner it cuts nothing but at a tab, a line end or the NUL, and stores
// the whole text (Hanja converted to their readings) as the surface.
#include <cstring>

#include "eojul/eojul.h"
#include "eojul/hanja.h"
#include "eojul/number_punctuation.h"
#include "eojul/symbols.h"
#include "log/logger.h"

namespace Quorel {

namespace {

constexpr int kLineLimit = 66560;
constexpr int kTokenLimit = 256;

bool IsLineEnd(unsigned char c) {
  return c == '\t' || c == '\n' || c == '\r' || c == 0;
}

}  // namespace

void Eojul::SetString(const char* source) {
  if (source == nullptr) source = "";
  int length = static_cast<int>(std::strlen(source));
  if (length >= kLineLimit) {
    Logger logger;
    logger.Write(source);
    logger.Write("A single line is bigger than DEFAULT buffer size.");
    return;
  }
  if (length > kTokenLimit) {
    SetText(source, EojulType::kTooLong);
    return;
  }
  char buffer[kTokenLimit + 2];
  std::memcpy(buffer, source, length + 1);
  ConvertHanja(buffer, buffer);

  unsigned type = 0;
  int i = 0;
  while (i <= length) {
    unsigned char c = static_cast<unsigned char>(buffer[i]);
    unsigned char d =
        i < length ? static_cast<unsigned char>(buffer[i + 1]) : 0;
    bool hasNext = i + 1 < length;
    if (IsDoubleByteText(c, d)) {
      if (c == 0xA4 && hasNext && d >= 0xA1 && d <= 0xD3) {
        type |= EojulType::kInnerSymbol;
        i += 2;
      } else if (hasNext) {
        type |= EojulType::kDoubleByte;
        i += 2;
      } else {
        type |= EojulType::kHalfChar;
        i += 1;
      }
    } else if (IsDigit(c)) {
      type |= EojulType::kDigit;
      i += 1;
    } else if (IsUpperLatin(c) || IsLowerLatin(c)) {
      type |= EojulType::kLatin;
      if (IsUpperLatin(c) && !keepCase) buffer[i] = static_cast<char>(c + 32);
      i += 1;
    } else if (!IsAsciiPunctuation(c)) {
      if (c < 0x80) {
        if (IsLineEnd(c) && i > 0) {
          buffer[i] = 0;
          SetText(buffer, type);
          return;
        }
        i += 1;
      } else if (hasNext && d > 0x80) {
        if (IsListedSymbol(c, d)) type |= EojulType::kInnerSymbol;
        i += 2;
      } else {
        i += 1;
      }
    } else if (!numberPunctuation) {
      type |= EojulType::kInnerSymbol;
      i += 1;
    } else {
      bool applies = NumberPunctuationApplies(
          buffer, length, i, (type & EojulType::kDigit) != 0);
      int end = applies ? NumberPunctuationEnd(buffer, length, i) : -1;
      if (end < 0) {
        type |= EojulType::kInnerSymbol;
        i += 1;
      } else {
        type |= EojulType::kDigit;
        i = end;
      }
    }
  }
  // Only the empty string gets here: the Eojul stays as it was.
}

}  // namespace Quorel
