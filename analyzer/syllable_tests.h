// Small syllable tests of the analysis routes, on SyllableTable records.
// A null record means the bytes were no syllable (or too short).
#ifndef QRLSL_ANALYZER_SYLLABLE_TESTS_H_
#define QRLSL_ANALYZER_SYLLABLE_TESTS_H_

#include "text/strings.h"
#include "text/syllable_table.h"

namespace Quorel {

// The last syllable of a stem. A stem holds no NUL within its length (it is
// cut from NUL-terminated texts, and sound changes write only real syllable
// codes), so its length is what strlen would measure.
inline const SyllableRec* LastSyllableOf(const StringEx& text) {
  return LastSyllable(text.CStr(), text.Length());
}

// The first syllable of a text; null when it is shorter than 2 bytes.
inline const SyllableRec* FirstSyllableOf(const char* text) {
  if (text == nullptr || text[0] == 0 || text[1] == 0) return nullptr;
  return SyllableAt(text);
}

// Open: no final consonant.
inline bool IsOpen(const SyllableRec& s) { return (s.flags & kHasFinal) == 0; }

inline bool HasLetters(const SyllableRec& s, int cho, int jung) {
  return s.choseong == cho && s.jungseong == jung;
}

// The record is exactly the syllable of the two CP949 bytes `cp949`.
inline bool IsSyllable(const SyllableRec& s, const char* cp949) {
  return s.code[0] == static_cast<unsigned char>(cp949[0]) &&
         s.code[1] == static_cast<unsigned char>(cp949[1]);
}

}  // namespace Quorel

#endif  // QRLSL_ANALYZER_SYLLABLE_TESTS_H_
