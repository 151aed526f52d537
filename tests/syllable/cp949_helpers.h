// Test-side CP949 conversion through the C library's iconv, so that the
// syllable table is checked against a mapping it was not generated from.
#ifndef QRLSL_TESTS_SYLLABLE_CP949_HELPERS_H_
#define QRLSL_TESTS_SYLLABLE_CP949_HELPERS_H_

#include <string>

#include "text/syllable_table.h"

namespace Quorel {
namespace testing {

// True when iconv knows CP949 here; the checks that need it skip otherwise.
bool HaveCp949();
// CP949 bytes of a UTF-8 text; empty when it can't be converted.
std::string Cp949(const std::string& utf8);
// The code point of one two-byte CP949 character; 0 when it is not one.
char32_t CodePointOf(unsigned char lead, unsigned char trail);
// The two CP949 bytes of a code point; empty when CP949 lacks it.
std::string Cp949Of(char32_t codePoint);

// The record of one syllable written in UTF-8; null when it can't be converted.
const SyllableRec* Syl(const std::string& utf8);
// Its record number; -1 when it can't be converted.
int Num(const std::string& utf8);

}  // namespace testing
}  // namespace Quorel

#endif  // QRLSL_TESTS_SYLLABLE_CP949_HELPERS_H_
