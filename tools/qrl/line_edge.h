// One input line at the edge of the qrl tool: what the user wrote (UTF-8)
// beside what the library reads (CP949), with the place in the user's line
// of every CP949 byte, so that surfaces are written as the user wrote them
// and offsets count the user's characters.
//
// Nothing of the line is lost on the way in:
// - invalid UTF-8 reads as U+FFFD, one for each invalid byte, and the place
//   of each is kept for a warning; surfaces show U+FFFD, code-point offsets
//   count it as one character, byte offsets stay those of the input;
// - a character CP949 lacks is handed to the library as a stand-in that the
//   scanner keeps as a token or in its eojul: an accented Latin letter as its
//   base letter (café as cafe), another letter (CJK beyond CP949, old jamo,
//   other scripts) as "X", a symbol (emoji, U+FFFD) as "?"; blanks beyond
//   ASCII (no-break space, ideographic space), TAB, CR, LF and NUL as a
//   blank, which the scanner cuts at. Every other character of the line
//   reaches the library and comes back in an eojul's surface.
#ifndef QRLSL_TOOLS_QRL_LINE_EDGE_H_
#define QRLSL_TOOLS_QRL_LINE_EDGE_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Quorel {
namespace cli {

class LineEdge {
 public:
  // Reads one line (without its line end).
  void Read(std::string_view utf8);

  // The CP949 text for the library: NUL-free, one or two bytes a character.
  const std::string& Cp949() const { return cp949; }
  // The byte offsets in the line of the invalid UTF-8 sequences, in order.
  const std::vector<size_t>& InvalidBytes() const { return invalid; }

  // For a CP949 byte offset from 0 to Cp949().size(): the code-point and
  // the UTF-8 byte offset in the line of the character it stands for (the
  // end of the line for Cp949().size()).
  size_t CodePointAt(size_t cp949Offset) const;
  size_t ByteAt(size_t cp949Offset) const;
  // The CP949 byte offset of CP949 character number `n` (the offsets that
  // analyzer option 18 gives), clipped to the end.
  size_t Cp949OffsetOfCharacter(size_t n) const;
  // The line as written over the CP949 span [begin, end), U+FFFD in place
  // of invalid bytes.
  std::string_view Written(size_t begin, size_t end) const;
  // The number of code points of the line (an invalid byte counts one).
  size_t CodePoints() const { return codePoints; }
  // The line as written, U+FFFD in place of invalid bytes, without the
  // characters that reach the library as blanks.
  std::string NonBlankText() const;
  // True when the CP949 span [begin, end) holds a stand-in.
  bool HasStandIn(size_t begin, size_t end) const;

 private:
  // Adds the character at UTF-8 byte offset `byte` of `size` bytes.
  void Append(uint32_t codePoint, size_t byte, size_t size);

  std::string line;
  std::string clean;  // the line with U+FFFD for invalid bytes
  std::string cp949;
  std::vector<size_t> invalid;
  // Per CP949 byte, and one more for the end: the code point, the UTF-8
  // byte offset in the line and in `clean`, and whether it is a stand-in.
  std::vector<uint32_t> codePointOf;
  std::vector<uint32_t> byteOf;
  std::vector<uint32_t> cleanByteOf;
  std::vector<bool> standIn;
  std::vector<uint32_t> characterStarts;  // CP949 offset of each character
  uint32_t codePoints = 0;
};

// The UTF-8 bytes of one code point.
void AppendUtf8(std::string& out, uint32_t codePoint);

}  // namespace cli
}  // namespace Quorel

#endif  // QRLSL_TOOLS_QRL_LINE_EDGE_H_
