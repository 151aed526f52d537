// Reading a line at the edge: a UTF-8 decoder that keeps every byte it
// can't read as U+FFFD, CP949 through the library's converter one
// character at a time, and stand-ins for what CP949 lacks.
#include "tools/qrl/line_edge.h"

#include "text/charset.h"

namespace Quorel {
namespace cli {

namespace {

constexpr uint32_t kReplacement = 0xFFFD;

// Base letters of U+00C0 to U+017F ('.' where there is none).
const char kLatinBases[] =
    "AAAAAA.CEEEEIIII.NOOOOO..UUUUY..aaaaaa.ceeeeiiii.nooooo..uuuuy.y"
    "AaAaAaCcCcCcCcDd..EeEeEeEeEeGgGgGgGgHh..IiIiIiIiI...JjKk.LlLlLl."
    "...NnNnNn...OoOoOo..RrRrRrSsSsSsSsTtTt..UuUuUuUuUuUuWwYyYZzZzZz.";

bool IsBlank(uint32_t c) {
  return c == 0x00A0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200A) ||
         c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F ||
         c == 0x3000;
}

// Punctuation, symbols, emoji and the marks that join them (U+FFFD too).
bool IsSymbol(uint32_t c) {
  return (c >= 0x00A1 && c <= 0x00BF) || c == 0x00D7 || c == 0x00F7 ||
         (c >= 0x200B && c <= 0x2BFF) || (c >= 0x2E00 && c <= 0x2E7F) ||
         (c >= 0x3001 && c <= 0x303F) || (c >= 0xFE00 && c <= 0xFE6F) ||
         (c >= 0xFFF0 && c <= 0xFFFF) || (c >= 0x1F000 && c <= 0x1FBFF) ||
         (c >= 0xE0000 && c <= 0xE0FFF);
}

// The stand-in of a character CP949 lacks.
char StandIn(uint32_t c) {
  if (c >= 0xC0 && c <= 0x17F && kLatinBases[c - 0xC0] != '.') {
    return kLatinBases[c - 0xC0];
  }
  return IsSymbol(c) ? '?' : 'X';
}

// Decodes the UTF-8 sequence at `at`; its length goes to `size`, and an
// invalid sequence (a bad lead or trail byte, an overlong or cut form, a
// surrogate, beyond U+10FFFF) reads as U+FFFD of one byte.
uint32_t Decode(std::string_view s, size_t at, size_t& size) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(s[i]); };
  const unsigned char lead = byte(at);
  size = 1;
  if (lead < 0x80) return lead;
  size_t n;
  uint32_t c;
  uint32_t least;
  if (lead >= 0xC2 && lead <= 0xDF) {
    n = 2, c = lead & 0x1F, least = 0x80;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    n = 3, c = lead & 0x0F, least = 0x800;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    n = 4, c = lead & 0x07, least = 0x10000;
  } else {
    return kReplacement;
  }
  if (at + n > s.size()) return kReplacement;
  for (size_t i = 1; i < n; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) return kReplacement;
    c = (c << 6) | (byte(at + i) & 0x3F);
  }
  if (c < least || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) {
    return kReplacement;
  }
  size = n;
  return c;
}

}  // namespace

void AppendUtf8(std::string& out, uint32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

void LineEdge::Read(std::string_view utf8) {
  line.assign(utf8.data(), utf8.size());
  clean.clear();
  cp949.clear();
  invalid.clear();
  codePointOf.clear();
  byteOf.clear();
  cleanByteOf.clear();
  standIn.clear();
  characterStarts.clear();
  codePoints = 0;
  size_t at = 0;
  while (at < line.size()) {
    size_t size;
    const uint32_t c = Decode(line, at, size);
    if (c == kReplacement && size == 1 &&
        static_cast<unsigned char>(line[at]) >= 0x80) {
      invalid.push_back(at);
    }
    Append(c, at, size);
    at += size;
  }
  codePointOf.push_back(codePoints);
  byteOf.push_back(static_cast<uint32_t>(line.size()));
  cleanByteOf.push_back(static_cast<uint32_t>(clean.size()));
  standIn.push_back(false);
}

void LineEdge::Append(uint32_t c, size_t byte, size_t size) {
  char bytes[8] = {0};
  int32_t length = 0;
  bool stand = false;
  if (c == 0 || c == '\t' || c == '\r' || c == '\n' || IsBlank(c)) {
    bytes[0] = ' ';
    length = 1;
  } else if (c < 0x80) {
    bytes[0] = static_cast<char>(c);
    length = 1;
  } else {
    if (c < 0x10000) {
      const WideChar wide[2] = {static_cast<WideChar>(c), 0};
      length = EncodeCount(bytes, wide, sizeof bytes - 1, kEncodingCp949);
    }
    // The converter writes a blank for what CP949 lacks.
    if (length <= 0 || (length == 1 && bytes[0] == ' ')) {
      bytes[0] = StandIn(c);
      length = 1;
      stand = true;
    }
  }
  characterStarts.push_back(static_cast<uint32_t>(cp949.size()));
  for (int32_t i = 0; i < length; ++i) {
    cp949 += bytes[i];
    codePointOf.push_back(codePoints);
    byteOf.push_back(static_cast<uint32_t>(byte));
    cleanByteOf.push_back(static_cast<uint32_t>(clean.size()));
    standIn.push_back(stand);
  }
  if (c == kReplacement && size == 1) {
    AppendUtf8(clean, kReplacement);
  } else {
    clean.append(line, byte, size);
  }
  ++codePoints;
}

size_t LineEdge::CodePointAt(size_t offset) const {
  return codePointOf[offset < codePointOf.size() ? offset : codePointOf.size() - 1];
}

size_t LineEdge::ByteAt(size_t offset) const {
  return byteOf[offset < byteOf.size() ? offset : byteOf.size() - 1];
}

size_t LineEdge::Cp949OffsetOfCharacter(size_t n) const {
  return n < characterStarts.size() ? characterStarts[n] : cp949.size();
}

std::string_view LineEdge::Written(size_t begin, size_t end) const {
  const size_t last = cleanByteOf.size() - 1;
  const size_t from = cleanByteOf[begin < last ? begin : last];
  const size_t to = cleanByteOf[end < last ? end : last];
  return to > from ? std::string_view(clean).substr(from, to - from)
                   : std::string_view();
}

std::string LineEdge::NonBlankText() const {
  std::string text;
  for (size_t n = 0; n < characterStarts.size(); ++n) {
    const size_t at = characterStarts[n];
    if (cp949[at] == ' ') continue;
    const size_t next =
        n + 1 < characterStarts.size() ? characterStarts[n + 1] : cp949.size();
    text += Written(at, next);
  }
  return text;
}

bool LineEdge::HasStandIn(size_t begin, size_t end) const {
  for (size_t i = begin; i < end && i < standIn.size(); ++i) {
    if (standIn[i]) return true;
  }
  return false;
}

}  // namespace cli
}  // namespace Quorel
