// MAnalyzer::ScanText: cuts one CP949 line into tokens, classifies each by
// its characters and hands it to FlushToken. Tokens close at white space
// and at punctuation; runs of one symbol stay together; a closing quote or
// bracket marks the token after it.
#include <cstring>
#include <string>

#include "analyzer/m_analyzer.h"
#include "eojul/hanja.h"
#include "eojul/number_punctuation.h"
#include "eojul/symbols.h"
#include "log/logger.h"

namespace Quorel {

namespace {

constexpr unsigned kClosingQuote = 0x200;   // a closing quote or bracket
constexpr unsigned kJoinsNumber = 0x400;    // a symbol joins this number on
constexpr unsigned kOtherSymbol = 0x800;
constexpr int kTokenLimit = 256;
constexpr unsigned kTextClasses =
    EojulType::kDigit | EojulType::kLatin | EojulType::kDoubleByte;

// The token under construction and the scan position. The buffer is the
// analyzer's, sized once for the longest line, so that a line costs no
// allocation; `used` bytes of it are the token (NUL-terminated when read).
struct ScanState {
  explicit ScanState(std::string& tokenBuffer) : buffer(&tokenBuffer[0]) {}
  char* buffer;
  size_t used = 0;
  unsigned type = 0;
  unsigned marks = 0;
  int position = 0;
  int tokenStart = 0;
};

}  // namespace

void MAnalyzer::ScanText(const char* text, int length) {
  if (length >= kLineLimit) {
    std::string message(text, static_cast<size_t>(length));
    message += "\nA single line is bigger than DEFAULT buffer size.";
    Logger().Write(message.c_str());
    return;
  }
  // A token is never longer than its line (under kLineLimit), plus the NUL.
  if (scanBuffer.size() < static_cast<size_t>(kLineLimit) + 2) {
    scanBuffer.resize(static_cast<size_t>(kLineLimit) + 2);
  }
  ScanState s(scanBuffer);
  const int width = options[18] > 0 ? 1 : 2;
  auto at = [&](int k) -> unsigned char {
    return k <= length ? static_cast<unsigned char>(text[k]) : 0;
  };
  auto flush = [&]() {
    if (s.used > static_cast<size_t>(kTokenLimit)) {
      s.type += EojulType::kTooLong;
    }
    // Separators (NUL among them) end a token, so it holds no NUL.
    s.buffer[s.used] = 0;
    FlushToken(s.buffer, static_cast<uint32_t>(s.used), s.type, s.tokenStart);
    s.tokenStart = s.position;
    s.used = 0;
    s.type = 0;
  };
  auto store = [&](unsigned char c) { s.buffer[s.used++] = static_cast<char>(c); };

  int i = 0;
  while (i <= length) {
    unsigned char c = at(i);
    unsigned char d = at(i + 1);
    bool hasNext = i + 1 < length;
    if (c >= 0xB0 && c <= 0xC8 && hasNext) {
      // A run of Hangul syllables, the bulk of a Korean text: no Hanja and
      // no symbol row, so each pair is double-byte text as below.
      do {
        s.position += width;
        store(c);
        store(d);
        i += 2;
        c = at(i);
        d = at(i + 1);
      } while (c >= 0xB0 && c <= 0xC8 && i + 1 < length);
      s.type |= EojulType::kDoubleByte;
    } else if (IsHanja(c, d) && hasNext) {
      s.position += width;
      store(c);
      store(d);
      s.buffer[s.used] = 0;
      ConvertHanja(s.buffer, s.buffer);
      s.type |= EojulType::kDoubleByte;
      i += 2;
    } else if (IsDoubleByteText(c, d)) {
      s.position += width;
      store(c);
      if (c == 0xA4 && hasNext && d >= 0xA1 && d <= 0xD3) {
        store(d);
        s.type |= EojulType::kInnerSymbol;
        i += 2;
      } else if (hasNext) {
        store(d);
        s.type |= EojulType::kDoubleByte;
        i += 2;
      } else {
        s.type |= EojulType::kHalfChar;
        i += 1;
      }
    } else if (IsDigit(c)) {
      s.position += 1;
      store(c);
      s.type |= EojulType::kDigit;
      i += 1;
    } else if (IsUpperLatin(c) || IsLowerLatin(c)) {
      s.position += 1;
      bool fold = IsUpperLatin(c) && options[12] <= 0;
      store(fold ? static_cast<unsigned char>(c + 32) : c);
      s.type |= EojulType::kLatin;
      i += 1;
    } else if (options[13] > 0 &&
               NumberPunctuationApplies(text, length, i,
                                        (s.type & EojulType::kDigit) != 0)) {
      int end = NumberPunctuationEnd(text, length, i);
      if (end < 0) {
        s.position += 1;
        store(c);
        s.type |= EojulType::kInnerSymbol;
        i += 1;
      } else {
        for (; i < end; ++i) {
          store(at(i));
          s.position += 1;
        }
        s.type |= EojulType::kDigit;
      }
    } else if (IsSeparator(c)) {
      s.position += 1;
      if (s.used == 0) {
        s.tokenStart += 1;
      } else {
        if ((s.marks & kClosingQuote) != 0) s.type |= EojulType::kClosed;
        flush();
        s.marks = 0;
      }
      i += 1;
    } else if (c < 0x80) {
      bool digits = (s.type & EojulType::kDigit) != 0;
      if (c == '"' || c == '\'' || c == ')' || c == '>' || c == ']') {
        s.marks |= kClosingQuote;
      } else if ((c == '$' || c == '%') && digits && hasNext) {
        s.marks |= kJoinsNumber;
      } else if ((c == '-' || c == '.' || c == '~') && digits && hasNext &&
                 IsDigit(d)) {
        s.marks |= kJoinsNumber;
      } else {
        s.marks |= kOtherSymbol;
      }
      bool pending = (s.marks & (kClosingQuote | kJoinsNumber)) != 0;
      if (s.type != 0 && !pending) {
        flush();
        s.marks = 0;
      }
      if (hasNext && d == c) {
        // A run of one symbol collects in the buffer.
        if ((s.type & kTextClasses) != 0) flush();
        store(c);
        s.marks |= kClosingQuote | kJoinsNumber;
        s.position += 1;
      } else if ((s.marks & (kClosingQuote | kJoinsNumber)) != 0) {
        // The marks stay set for the next token.
        if ((s.type & kTextClasses) != 0) {
          if ((s.marks & kClosingQuote) != 0) s.type |= EojulType::kClosed;
          flush();
        }
        s.position += 1;
        store(c);
        s.type |= EojulType::kSymbol;
        flush();
      } else {
        if (s.used != 0 && s.type != EojulType::kSymbol) flush();
        store(c);
        s.position += 1;
        s.type = EojulType::kSymbol;
        flush();
        s.marks &= ~(kClosingQuote | kJoinsNumber);
      }
      i += 1;
    } else {
      if (s.used != 0) flush();
      s.position += width;
      if (!hasNext || d < 0x81) {
        i += 2;  // a lone lead byte or a broken pair makes no token
        continue;
      }
      store(c);
      store(d);
      if (IsListedSymbol(c, d)) {
        s.type = EojulType::kSymbol;
        if (IsClosingMark(c, d)) s.marks |= kClosingQuote;
      } else {
        s.type = EojulType::kOtherChar;
      }
      flush();
      i += 2;
    }
  }
}

}  // namespace Quorel
