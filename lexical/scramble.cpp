#include "lexical/scramble.h"

#include <cstdlib>

namespace Quorel {

namespace {

const char kHexDigits[] = "0123456789ABCDEF";

void AppendHex(unsigned char byte, std::string& out) {
  out += kHexDigits[byte >> 4];
  out += kHexDigits[byte & 0x0F];
}

// Value of one hexadecimal digit of either case; 0 for anything else.
unsigned char HexValue(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned char>(c - '0');
  if (c >= 'A' && c <= 'F') return static_cast<unsigned char>(c - 'A' + 10);
  if (c >= 'a' && c <= 'f') return static_cast<unsigned char>(c - 'a' + 10);
  return 0;
}

// Decodes pairs of hexadecimal digits into bytes, each XOR-ed with `mask`.
void DecodeHex(const std::string& hex, unsigned char mask, std::string& out) {
  out.clear();
  for (size_t i = 0; i + 1 < hex.size(); i += 2) {
    const unsigned char byte =
        static_cast<unsigned char>((HexValue(hex[i]) << 4) | HexValue(hex[i + 1]));
    out += static_cast<char>(byte ^ mask);
  }
}

// Reads exactly `count` bytes; false when the file ends first.
bool ReadExactly(FILE* file, size_t count, std::string& out) {
  out.resize(count);
  return count == 0 || std::fread(&out[0], 1, count, file) == count;
}

}  // namespace

bool ScrambleLine(const char* line, size_t length, std::string& record) {
  if (length > kMaxScrambledLine) return false;
  const size_t bodyLength = length * 2;
  char number[16];
  std::snprintf(number, sizeof(number), "%05d\n",
                static_cast<int>((bodyLength + lengthOffset) * scrambleByte));
  for (const char* p = number; *p; ++p) {
    AppendHex(static_cast<unsigned char>(*p), record);
  }
  for (size_t i = 0; i < length; ++i) {
    AppendHex(static_cast<unsigned char>(line[i]) ^ scrambleByte, record);
  }
  return true;
}

int ReadScrambledRecord(FILE* file, std::string& line) {
  line.clear();
  std::string hex;
  if (!ReadExactly(file, kLengthFieldSize, hex)) return -1;
  std::string numberText;
  DecodeHex(hex, 0, numberText);
  const long number = std::strtol(numberText.c_str(), nullptr, 10);
  if (number == 0) return 0;
  const long bodyLength = number / scrambleByte - lengthOffset;
  if (bodyLength < 0) return -1;
  if (!ReadExactly(file, static_cast<size_t>(bodyLength), hex)) return -1;
  DecodeHex(hex, scrambleByte, line);
  return 1;
}

}  // namespace Quorel
