// spr::stdstyle::string<char>: storage growth, the rare paths of assignment
// and appending, comparison and search. The common paths live in the header.
//
// The storage is the inline buffer while the capacity is kInline, else a
// heap block; both hold a terminating NUL after `length` characters. An
// allocation that fails leaves the string as it was.
#include "text/strings.h"

#include <cstring>
#include <new>

namespace Quorel {
namespace spr {
namespace stdstyle {

template <class T>
string<T>::string(const T* text) : string() {
  if (text != nullptr) Assign(text, TextLength(text));
}

template <class T>
string<T>::string(const T* text, int32_t count) : string() {
  Assign(text, count);
}

template <class T>
string<T>::string(const string& other) : string() {
  Assign(other.Data(), other.length);
}

template <class T>
bool string<T>::Owns(const T* text) const {
  const T* data = Data();
  return text >= data && text < data + capacity;
}

template <class T>
bool string<T>::GrowStorage(int32_t needed) {
  if (needed <= capacity) return true;
  // Geometric growth keeps repeated appends linear.
  int32_t newCapacity = capacity * 2;
  if (newCapacity < needed) newCapacity = needed;
  T* block = new (std::nothrow) T[newCapacity];
  if (block == nullptr) return false;
  std::memcpy(block, Data(), sizeof(T) * (length + 1));
  if (capacity > kInline) delete[] heap;
  heap = block;
  storage = block;
  capacity = newCapacity;
  return true;
}

template <class T>
void string<T>::Reserve(int32_t n) {
  if (n < 0) return;
  Grow(n + 1);
}

template <class T>
void string<T>::AssignGrowing(const T* text, int32_t count) {
  if (text == nullptr || count < 0) count = 0;
  if (count > 0 && Owns(text)) {
    // The source lies in our own storage: take a copy first.
    string copy(text, count);
    Assign(copy.Data(), copy.length);
    return;
  }
  length = 0;
  Data()[0] = T();
  if (!Grow(count + 1)) return;
  T* data = Data();
  if (count > 0) std::memcpy(data, text, sizeof(T) * count);
  data[count] = T();
  length = count;
}

template <class T>
void string<T>::AppendGrowing(const T* text, int32_t count) {
  if (text == nullptr || count <= 0) return;
  if (Owns(text)) {
    string copy(text, count);
    Append(copy.Data(), copy.length);
    return;
  }
  if (!Grow(length + count + 1)) return;
  T* data = Data();
  std::memcpy(data + length, text, sizeof(T) * count);
  length += count;
  data[length] = T();
}

template <class T>
int string<T>::Compare(const T* text) const {
  const unsigned char* a = reinterpret_cast<const unsigned char*>(Data());
  const unsigned char* b = reinterpret_cast<const unsigned char*>(
      text != nullptr ? text : "");
  while (*a != 0 && *a == *b) {
    ++a;
    ++b;
  }
  return static_cast<int>(*a) - static_cast<int>(*b);
}

template <class T>
int string<T>::CompareNoCase(const T* text) const {
  auto fold = [](unsigned char c) -> int {
    return (c >= 'A' && c <= 'Z') ? c - 'A' + 'a' : c;
  };
  const unsigned char* a = reinterpret_cast<const unsigned char*>(Data());
  const unsigned char* b = reinterpret_cast<const unsigned char*>(
      text != nullptr ? text : "");
  while (*a != 0 && fold(*a) == fold(*b)) {
    ++a;
    ++b;
  }
  return fold(*a) - fold(*b);
}

template <class T>
void string<T>::Substr(string& result, int32_t position, int32_t count) const {
  if (position < 0 || position > length) {
    result.Clear();
    return;
  }
  if (count == -1) count = length - position;
  // A range that runs past the end gives an empty result, not a shorter one.
  if (count < 0 || count > length - position) {
    result.Clear();
    return;
  }
  result.Assign(Data() + position, count);
}

template <class T>
void string<T>::Replace(int32_t position, int32_t count, const T* text) {
  if (position < 0 || position > length) return;
  if (count < 0 || count > length - position) return;
  const int32_t insertLength = text != nullptr ? TextLength(text) : 0;
  if (insertLength > 0 && Owns(text)) {
    string copy(text, insertLength);
    Replace(position, count, copy.Data());
    return;
  }
  const int32_t newLength = length - count + insertLength;
  if (!Grow(newLength + 1)) return;
  T* data = Data();
  // Move the part behind the replaced range (with its NUL), then fill in.
  std::memmove(data + position + insertLength, data + position + count,
               sizeof(T) * (length - position - count + 1));
  if (insertLength > 0) {
    std::memcpy(data + position, text, sizeof(T) * insertLength);
  }
  length = newLength;
}

template <class T>
int32_t string<T>::Find(T c, int32_t from) const {
  if (c == T()) return -1;
  if (from < 0) from = 0;
  const T* data = Data();
  for (int32_t i = from; i < length; ++i) {
    if (data[i] == c) return i;
  }
  return -1;
}

template <class T>
int32_t string<T>::FindFirstChar(T c) const {
  return Find(c, 0);
}

template <class T>
int32_t string<T>::FindString(const T* text) const {
  return FindString(text, 0);
}

template <class T>
int32_t string<T>::FindString(const T* text, int32_t from) const {
  const int32_t n = text != nullptr ? TextLength(text) : 0;
  if (from < 0) from = 0;
  const T* data = Data();
  for (int32_t i = from; i + n <= length; ++i) {
    if (std::memcmp(data + i, text, sizeof(T) * n) == 0) return i;
  }
  return -1;
}

template class string<char>;

}  // namespace stdstyle
}  // namespace spr
}  // namespace Quorel
