// Whether a "." or "," between digits belongs to the number (option 13).
//
// A "." is a decimal point unless the digit run on either side ends at
// another "." (3.14.15 is no number). A "," joins only thousands groups: at
// most three digits before it and exactly three after each comma.
#ifndef QRLSL_EOJUL_NUMBER_PUNCTUATION_H_
#define QRLSL_EOJUL_NUMBER_PUNCTUATION_H_

namespace Quorel {

// Whether the rule speaks at all: s[i] is "." or ",", the token so far has
// digits (`hasDigit`), and a digit stands on both sides. `s` has `length`
// bytes.
bool NumberPunctuationApplies(const char* s, int length, int i, bool hasDigit);
// REQUIRES: NumberPunctuationApplies. The index just past the bytes that
// join the number (i + 1 for a decimal point, the end of the thousands
// groups for a comma), or -1 when the mark is a symbol inside the token.
int NumberPunctuationEnd(const char* s, int length, int i);

}  // namespace Quorel

#endif  // QRLSL_EOJUL_NUMBER_PUNCTUATION_H_
