// The wide-string layer of the converter: encoding names, the decode and
// encode loops with their blank rules, allocation and stream output.
#include "text/charset.h"

#include <cstring>
#include <iostream>
#include <new>

#include "text/charset_codecs.h"

namespace Quorel {

namespace charset {

const Codec CodecTable[kCodecCount] = {
    {nullptr, nullptr},
    {DecodeUtf8, EncodeUtf8},
    {DecodeCp949, EncodeCp949},
    {DecodeCp949, EncodeCp949},
    {DecodeEucJp, EncodeEucJp},
    {DecodeShiftJis, EncodeShiftJis},
    {DecodeGb2312, EncodeGb2312},
    {DecodeBig5, EncodeBig5},
    {DecodeLatin9, EncodeLatin9},
};

}  // namespace charset

namespace {

constexpr WideChar kBlank = 0x20;
constexpr uint32_t kFirstSurrogate = 55296;
constexpr uint32_t kLastSurrogate = 57343;
constexpr uint32_t kNonCharacter = 0xFFFE;
// Measuring room of DecodeNew, and the one digit shorter of EncodeNew.
constexpr int32_t kDecodeMeasureRoom = 0x7FFFFFFF;
constexpr int32_t kEncodeMeasureRoom = 0x7FFFFFF;
constexpr int32_t kWriteRoom = 4096;

struct EncodingName {
  const char* name;
  int32_t id;
};

constexpr EncodingName kEncodingNames[] = {
    {"UTF-8", kEncodingUtf8},        {"UTF8", kEncodingUtf8},
    {"EUC-KR", kEncodingEucKr},      {"CP949", kEncodingCp949},
    {"EUC-JP", kEncodingEucJp},      {"SHIFT-JIS", kEncodingShiftJis},
    {"SJIS", kEncodingShiftJis},     {"GB2312", kEncodingGb2312},
    {"BIG5", kEncodingBig5},         {"ISO 8859-15", kEncodingLatin9},
    {"ISO-8859-15", kEncodingLatin9}, {"ISO8859-15", kEncodingLatin9},
    {"ISO8859", kEncodingLatin9},    {"LATIN9", kEncodingLatin9},
};

char UpperAscii(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 32) : c; }

bool SameNameIgnoringCase(const char* name, const char* upper) {
  for (; *upper; ++name, ++upper) {
    if (UpperAscii(*name) != *upper) return false;
  }
  return *name == '\0';
}

const charset::Codec* CodecOf(int32_t id) {
  if (id < 1 || id >= charset::kCodecCount) return nullptr;
  return &charset::CodecTable[id];
}

// A code point that has no UCS-2 unit of its own.
bool NotUcs2(uint32_t codePoint) {
  return codePoint > 0xFFFF || codePoint == kNonCharacter ||
         (codePoint >= kFirstSurrogate && codePoint <= kLastSurrogate);
}

void WriteEncoded(std::ostream& stream, const WideChar* wide, const char* name,
                  bool lineEnd) {
  char buffer[kWriteRoom + 1];
  int32_t count = EncodeCount(buffer, wide, kWriteRoom, EncodingId(name));
  if (count > 0) stream.write(buffer, count);
  if (lineEnd) stream << '\n';
  stream.flush();
}

// Measures with `measureRoom`, allocates count + 1 units and converts; an
// unknown id measures -1 and gives an empty string. Null if new[] fails.
template <class Out, class In>
Out* ConvertNew(int32_t (*convert)(Out*, const In*, int32_t, int32_t), const In* source,
                int32_t id, int32_t measureRoom) {
  int32_t count = convert(nullptr, source, measureRoom, id);
  if (count < 0) count = 0;
  Out* result = new (std::nothrow) Out[count + 1];
  if (result == nullptr) return nullptr;
  result[0] = 0;
  convert(result, source, count + 1, id);
  return result;
}

// The decode loop with its blank rules over any decoder: while room and
// bytes remain, one unit per character, a blank per invalid byte, and a stop
// at a sequence cut off at the end. A NUL follows when room remains.
template <class Decoder>
int32_t DecodeLoop(WideChar* out, const unsigned char* in, int32_t available,
                   int32_t room, Decoder decode) {
  int32_t count = 0;
  while (room > 0 && available > 0) {
    uint32_t codePoint = 0;
    int32_t consumed = decode(out ? &codePoint : nullptr, in, available);
    WideChar unit;
    if (consumed >= 0) {
      in += consumed;
      available -= consumed;
      unit = NotUcs2(codePoint) ? kBlank : static_cast<WideChar>(codePoint);
    } else if (consumed == charset::kInvalidSequence) {
      in += 1;
      available -= 1;
      unit = kBlank;
    } else {
      break;  // a sequence cut off at the end of the input is dropped
    }
    if (out) out[count] = unit;
    ++count;
    --room;
  }
  if (room > 0 && out) out[count] = 0;
  return count;
}

// The encode loop over any encoder: a blank for a surrogate unit or a
// character without a code; no room for a character ends the output, with
// no NUL after it.
template <class Encoder>
int32_t EncodeLoop(unsigned char* cursor, const WideChar* wide, int32_t room,
                   Encoder encode) {
  int32_t count = 0;
  for (const WideChar* unit = wide; unit && *unit && room > 0; ++unit) {
    int32_t written;
    if (*unit >= kFirstSurrogate && *unit <= kLastSurrogate) {
      written = -1;  // a lone half of a pair has nothing to encode
    } else {
      written = encode(cursor, *unit, room);
      if (written == charset::kNoRoom) {
        room = 0;  // so no NUL follows a character left out
        break;
      }
    }
    if (written < 0) {
      if (cursor) *cursor = kBlank;
      written = 1;
    }
    if (cursor) cursor += written;
    count += written;
    room -= written;
  }
  if (room > 0 && cursor) *cursor = '\0';
  return count;
}

}  // namespace

int32_t EncodingId(const char* name) {
  if (name == nullptr) return kEncodingInvalid;
  for (const EncodingName& entry : kEncodingNames) {
    // First letters first: most names fail there.
    if (UpperAscii(name[0]) == entry.name[0] && SameNameIgnoringCase(name, entry.name)) {
      return entry.id;
    }
  }
  return kEncodingInvalid;
}

int32_t DecodeCount(WideChar* out, const char* bytes, int32_t room, int32_t id) {
  const charset::Codec* codec = CodecOf(id);
  if (codec == nullptr) return -1;
  const unsigned char* in = reinterpret_cast<const unsigned char*>(bytes ? bytes : "");
  int32_t available = static_cast<int32_t>(std::strlen(reinterpret_cast<const char*>(in)));
  // Nearly all text comes in as UTF-8 or CP949: their decoders are taken in
  // line (the same answers); the others go through the table.
  switch (id) {
    case kEncodingUtf8:
      return DecodeLoop(out, in, available, room, charset::Utf8InlineDecoder());
    case kEncodingEucKr:
    case kEncodingCp949:
      return DecodeLoop(out, in, available, room,
                        charset::Cp949Decoder{charset::Cp949DecodeTable()});
    default:
      return DecodeLoop(out, in, available, room, codec->decode);
  }
}

int32_t Decode(WideChar* out, const char* bytes, int32_t room, const char* name) {
  return DecodeCount(out, bytes, room, EncodingId(name));
}

WideChar* DecodeNew(const char* bytes, int32_t id) {
  return ConvertNew(DecodeCount, bytes, id, kDecodeMeasureRoom);
}

WideChar* ToWide(const char* bytes, const char* name) {
  return DecodeNew(bytes, EncodingId(name));
}

int32_t EncodeCount(char* out, const WideChar* wide, int32_t room, int32_t id) {
  const charset::Codec* codec = CodecOf(id);
  if (codec == nullptr) return -1;
  unsigned char* cursor = reinterpret_cast<unsigned char*>(out);
  // The library's own text goes out as CP949: its encoder in line.
  switch (id) {
    case kEncodingEucKr:
    case kEncodingCp949:
      return EncodeLoop(cursor, wide, room, charset::Cp949Encoder{charset::Cp949EncodeTable()});
    default:
      return EncodeLoop(cursor, wide, room, codec->encode);
  }
}

int32_t Encode(char* out, const WideChar* wide, int32_t room, const char* name) {
  return EncodeCount(out, wide, room, EncodingId(name));
}

char* EncodeNew(const WideChar* wide, int32_t id) {
  return ConvertNew(EncodeCount, wide, id, kEncodeMeasureRoom);
}

char* FromWide(const WideChar* wide, const char* name) {
  return EncodeNew(wide, EncodingId(name));
}

void FreeWide(WideChar* wide) { delete[] wide; }

void FreeBytes(char* bytes) { delete[] bytes; }

int32_t WideLength(const WideChar* wide) {
  int32_t length = 0;
  if (wide) {
    while (wide[length]) ++length;
  }
  return length;
}

void WriteWide(std::ostream& stream, const WideChar* wide, const char* name) {
  WriteEncoded(stream, wide, name, false);
}

void WriteWideLine(std::ostream& stream, const WideChar* wide, const char* name) {
  WriteEncoded(stream, wide, name, true);
}

void WriteWide(const WideChar* wide, const char* name) { WriteWide(std::cout, wide, name); }

void WriteWideLine(const WideChar* wide, const char* name) { WriteWideLine(std::cout, wide, name); }

}  // namespace Quorel
