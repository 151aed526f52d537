// Character-set conversion between byte strings and UCS-2 wide strings.
//
// Byte strings of eight encodings (selected by name or id) convert to and from
// NUL-terminated wide strings of 16-bit units. Nothing fails loudly: invalid
// input and unmappable characters become blanks (0x20), and a multi-byte
// sequence cut off at the end of the input is dropped. Strings returned by the
// *New, ToWide and FromWide forms are allocated with new[]; the caller frees
// them with FreeWide / FreeBytes (or delete[] directly).
#ifndef QRLSL_TEXT_CHARSET_H_
#define QRLSL_TEXT_CHARSET_H_

#include <cstdint>
#include <ostream>

namespace Quorel {

// One UCS-2 unit; wide strings end with a 0 unit.
typedef uint16_t WideChar;

// Encoding ids; names compare without regard to case.
enum EncodingIds : int32_t {
  kEncodingInvalid = 0,
  kEncodingUtf8 = 1,     // "UTF-8", "UTF8"
  kEncodingEucKr = 2,    // "EUC-KR": the CP949 pair, extension included
  kEncodingCp949 = 3,    // "CP949"
  kEncodingEucJp = 4,    // "EUC-JP"
  kEncodingShiftJis = 5, // "SHIFT-JIS", "SJIS"
  kEncodingGb2312 = 6,   // "GB2312"
  kEncodingBig5 = 7,     // "BIG5"
  kEncodingLatin9 = 8,   // "ISO 8859-15", "ISO-8859-15", "ISO8859-15", "ISO8859", "LATIN9"
};

// The id of an encoding name; 0 when the name is null or not known.
int32_t EncodingId(const char* name);

// Decodes the NUL-terminated `bytes` (null: empty) into at most `room` units
// of `out`, or only counts them when `out` is null. A NUL follows when room
// remains. Returns the units written without the NUL; -1 for an id not in 1..8.
int32_t DecodeCount(WideChar* out, const char* bytes, int32_t room, int32_t id);
// EncodingId(name), then DecodeCount.
int32_t Decode(WideChar* out, const char* bytes, int32_t room, const char* name);
// A new wide string holding `bytes` decoded; null only if allocation fails.
WideChar* DecodeNew(const char* bytes, int32_t id);
// EncodingId(name), then DecodeNew. The caller frees the result.
WideChar* ToWide(const char* bytes, const char* name);

// Encodes the NUL-terminated `wide` (null: empty) into at most `room` bytes of
// `out`, or only counts them when `out` is null. A NUL follows when room
// remains. Returns the bytes written without the NUL; -1 for an id not in 1..8.
int32_t EncodeCount(char* out, const WideChar* wide, int32_t room, int32_t id);
// EncodingId(name), then EncodeCount.
int32_t Encode(char* out, const WideChar* wide, int32_t room, const char* name);
// A new byte string holding `wide` encoded; null only if allocation fails.
char* EncodeNew(const WideChar* wide, int32_t id);
// EncodingId(name), then EncodeNew. The caller frees the result.
char* FromWide(const WideChar* wide, const char* name);

// UTF-8 straight to CP949, the road of the input text: the same bytes as
// DecodeCount from UTF-8 and then EncodeCount to CP949 with room enough for
// both. No character grows in bytes, so `out` needs `length` + 1 bytes for
// the `length` bytes of `utf8` (which hold no NUL). Returns the bytes written
// before the NUL that ends them.
int32_t Utf8ToCp949(char* out, const char* utf8, int32_t length);

// Frees what the *New forms, ToWide and FromWide returned (null is fine).
void FreeWide(WideChar* wide);
void FreeBytes(char* bytes);

// Units before the terminating 0; 0 for null.
int32_t WideLength(const WideChar* wide);

// Encodes at most 4,096 bytes of `wide` in the named encoding, writes them to
// the stream and flushes. The Line forms add a line end; the forms without a
// stream write to the standard output.
void WriteWide(std::ostream& stream, const WideChar* wide, const char* name);
void WriteWideLine(std::ostream& stream, const WideChar* wide, const char* name);
void WriteWide(const WideChar* wide, const char* name);
void WriteWideLine(const WideChar* wide, const char* name);

}  // namespace Quorel

#endif  // QRLSL_TEXT_CHARSET_H_
