// StringEx helpers and Text's splitting into fields.
#include <cstring>
#include <new>

#include "text/strings.h"

namespace Quorel {

bool StringEx::StartsWith(const char* prefix) const {
  const int32_t n = prefix != nullptr ? static_cast<int32_t>(std::strlen(prefix)) : 0;
  return n <= length && std::memcmp(Data(), prefix, n) == 0;
}

bool StringEx::EndsWith(const char* suffix) const {
  const int32_t n = suffix != nullptr ? static_cast<int32_t>(std::strlen(suffix)) : 0;
  return n <= length && std::memcmp(Data() + length - n, suffix, n) == 0;
}

void StringEx::TrimRight() {
  int32_t n = length;
  const char* data = Data();
  while (n > 0 && (data[n - 1] == ' ' || data[n - 1] == '\t' ||
                   data[n - 1] == '\r' || data[n - 1] == '\n')) {
    --n;
  }
  Truncate(n);
}

Text::Text() = default;

Text::Text(const char* text) : StringEx(text) {}

Text::Text(const Text& other) : StringEx(other) { CopyFields(other); }

Text& Text::operator=(const Text& other) {
  if (this != &other) {
    StringEx::operator=(other);
    CopyFields(other);
  }
  return *this;
}

Text& Text::operator=(const char* text) {
  StringEx::operator=(text);
  FreeFields();
  return *this;
}

Text::~Text() { FreeFields(); }

void Text::FreeFields() {
  delete[] fields;
  delete[] fieldStarts;
  fields = nullptr;
  fieldStarts = nullptr;
  fieldCount = 0;
  splitState = 0;
}

void Text::CopyFields(const Text& other) {
  FreeFields();
  userValue = other.userValue;
  splitState = other.splitState;
  if (other.fields == nullptr) return;
  if (!AllocateFields(other.fieldCount)) return;
  for (int32_t i = 0; i < other.fieldCount; ++i) {
    fields[i] = other.fields[i];
    fieldStarts[i] = other.fieldStarts[i];
  }
  fieldCount = other.fieldCount;
}

bool Text::AllocateFields(int32_t count) {
  // No caller passes a negative count; the test keeps the allocation sizes
  // in range for the compiler's size checks.
  if (count < 0) {
    splitState = -1;
    return false;
  }
  const auto n = static_cast<uint32_t>(count);
  fields = new (std::nothrow) StringEx[n];
  fieldStarts = new (std::nothrow) int32_t[n];
  if (fields == nullptr || fieldStarts == nullptr) {
    FreeFields();
    splitState = -1;
    return false;
  }
  return true;
}

int32_t Text::Split(char delimiter) {
  const char text[2] = {delimiter, '\0'};
  return SplitAt(text, 1);
}

int32_t Text::Split(const char* delimiter) {
  const int32_t n =
      delimiter != nullptr ? static_cast<int32_t>(std::strlen(delimiter)) : 0;
  return SplitAt(delimiter, n);
}

int32_t Text::SplitAt(const char* delimiter, int32_t delimiterLength) {
  FreeFields();
  // A NUL or empty delimiter never occurs in the text: one field.
  const bool none = delimiterLength == 0 || delimiter[0] == '\0';
  int32_t count = 1;
  for (int32_t at = none ? -1 : FindString(delimiter, 0); at >= 0;
       at = FindString(delimiter, at + delimiterLength)) {
    ++count;
  }
  if (!AllocateFields(count)) return 0;
  int32_t start = 0;
  for (int32_t i = 0; i < count - 1; ++i) {
    const int32_t at = FindString(delimiter, start);
    Substr(fields[i], start, at - start);
    fieldStarts[i] = start;
    start = at + delimiterLength;
  }
  Substr(fields[count - 1], start);
  fieldStarts[count - 1] = start;
  fieldCount = count;
  splitState = 1;
  return count;
}

const StringEx& Text::Field(int32_t i) const {
  static const StringEx kEmpty;
  if (splitState != 1 || i < 0 || i >= fieldCount) return kEmpty;
  return fields[i];
}

}  // namespace Quorel
