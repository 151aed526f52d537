// Character classes shared by the scanner and Eojul::SetString.
//
// The symbol list holds the two-byte CP949 punctuation, signs, box drawing,
// units and circled characters that form one-character symbol tokens; the
// closing marks are the quotes and brackets after which a token counts as
// closed. All tests take the first byte c and the next byte d.
#ifndef QRLSL_EOJUL_SYMBOLS_H_
#define QRLSL_EOJUL_SYMBOLS_H_

namespace Quorel {

// The ASCII punctuation of SetString, blank included.
extern const char kAsciiPunctuation[];

// Whether the pair is in the symbol list.
bool IsListedSymbol(unsigned char c, unsigned char d);
// Whether the pair is one of the 14 closing quotes and brackets.
bool IsClosingMark(unsigned char c, unsigned char d);
// Whether a non-NUL ASCII byte is in kAsciiPunctuation.
bool IsAsciiPunctuation(unsigned char c);

// Hanja: c in 0xCA..0xFD and d in 0xA1..0xFE.
inline bool IsHanja(unsigned char c, unsigned char d) {
  return c >= 0xCA && c <= 0xFD && d >= 0xA1 && d <= 0xFE;
}
// Double-byte text: a top-bit lead, except the symbol rows 0xA1..0xAC with a
// trail outside the extension range 0x41..0xA0.
inline bool IsDoubleByteText(unsigned char c, unsigned char d) {
  if (c < 0x80) return false;
  return !(c >= 0xA1 && c <= 0xAC && !(d >= 0x41 && d <= 0xA0)) ||
         (c == 0xA4 && d < 0xFD);
}
inline bool IsDigit(unsigned char c) { return c >= '0' && c <= '9'; }
inline bool IsUpperLatin(unsigned char c) { return c >= 'A' && c <= 'Z'; }
inline bool IsLowerLatin(unsigned char c) { return c >= 'a' && c <= 'z'; }
// Separators of the scanner: blank, tab, line ends and NUL.
inline bool IsSeparator(unsigned char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == 0;
}

}  // namespace Quorel

#endif  // QRLSL_EOJUL_SYMBOLS_H_
