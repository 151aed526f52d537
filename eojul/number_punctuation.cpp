#include "eojul/number_punctuation.h"

#include "eojul/symbols.h"

namespace Quorel {

namespace {

bool DigitAt(const char* s, int at) {
  return IsDigit(static_cast<unsigned char>(s[at]));
}

int DecimalPointEnd(const char* s, int length, int i) {
  int left = i - 1;
  while (left >= 0 && DigitAt(s, left)) --left;
  if (left >= 0 && s[left] == '.') return -1;
  int right = i + 1;
  while (right < length && DigitAt(s, right)) ++right;
  if (right < length && s[right] == '.') return -1;
  return i + 1;
}

int ThousandsEnd(const char* s, int length, int i) {
  int count = 0;
  int left = i - 1;
  while (left >= 0 && DigitAt(s, left)) {
    ++count;
    --left;
  }
  if (left >= 0 && (s[left] == '.' || s[left] == ',')) count = 10;
  if (count > 3) return -1;
  int counter = 0;
  int j = i + 1;
  while (j < length) {
    if (DigitAt(s, j)) {
      ++counter;
      if (counter > 3) break;
    } else if (counter == 3 && s[j] == ',') {
      counter = 0;
    } else {
      break;
    }
    ++j;
  }
  return counter == 3 ? j : -1;
}

}  // namespace

bool NumberPunctuationApplies(const char* s, int length, int i,
                              bool hasDigit) {
  char c = s[i];
  return (c == '.' || c == ',') && hasDigit && i >= 1 && DigitAt(s, i - 1) &&
         i + 1 < length && DigitAt(s, i + 1);
}

int NumberPunctuationEnd(const char* s, int length, int i) {
  return s[i] == '.' ? DecimalPointEnd(s, length, i)
                     : ThousandsEnd(s, length, i);
}

}  // namespace Quorel
