// The byte-string classes of the system. All bytes are CP949 and every
// length and position is in bytes.
//
//   spr::stdstyle::string<char>  growable NUL-terminated string; a 16-byte
//                                inline buffer (15 characters and the NUL)
//                                before it allocates
//   StringEx                     comparison and search helpers
//   Text                         splitting into fields
//
// Substr returns an empty result rather than a shortened one when the range
// runs past the end; callers test for that.
#ifndef QRLSL_TEXT_STRINGS_H_
#define QRLSL_TEXT_STRINGS_H_

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Quorel {
namespace spr {
namespace stdstyle {

// Moves n bytes (one to two Words) as the first and the last Word, both
// loaded before either is stored.
template <class Word>
inline void MoveHeadAndTail(unsigned char* out, const unsigned char* in, size_t n) {
  Word head, tail;
  std::memcpy(&head, in, sizeof(Word));
  std::memcpy(&tail, in + n - sizeof(Word), sizeof(Word));
  std::memcpy(out, &head, sizeof(Word));
  std::memcpy(out + n - sizeof(Word), &tail, sizeof(Word));
}

// memmove for the short texts that nearly all strings are: every byte is
// loaded before any is stored, so the ranges may overlap as in memmove.
inline void MoveBytes(void* to, const void* from, size_t n) {
  unsigned char* out = static_cast<unsigned char*>(to);
  const unsigned char* in = static_cast<const unsigned char*>(from);
  if (n > 16) {
    std::memmove(out, in, n);
  } else if (n >= 8) {
    MoveHeadAndTail<uint64_t>(out, in, n);
  } else if (n >= 4) {
    MoveHeadAndTail<uint32_t>(out, in, n);
  } else if (n > 0) {
    // 1 to 3 bytes: first, middle and last cover them all.
    const unsigned char first = in[0], middle = in[n / 2], last = in[n - 1];
    out[0] = first;
    out[n / 2] = middle;
    out[n - 1] = last;
  }
}

template <class T>
class string {
 public:
  string() : storage(inlineBuffer), length(0), capacity(kInline) {
    inlineBuffer[0] = T();
  }
  string(const T* text);          // null is the empty string
  string(const T* text, int32_t count);
  string(const string& other);
  string& operator=(const string& other) {
    if (this != &other) Assign(other.Data(), other.length);
    return *this;
  }
  // The same as Assign(text, its length), NUL included in the one copy.
  string& operator=(const T* text) {
    if (text == nullptr) {
      Clear();
      return *this;
    }
    const int32_t n = TextLength(text);
    if (n < capacity) {
      MoveBytes(Data(), text, sizeof(T) * (n + 1));
      length = n;
    } else {
      AssignGrowing(text, n);
    }
    return *this;
  }
  virtual ~string() {
    if (capacity > kInline) delete[] heap;
  }

  // Makes room for n characters plus the terminator.
  void Reserve(int32_t n);
  // Copies count characters (null or a negative count: none). The text may
  // lie in this string's own storage.
  void Assign(const T* text, int32_t count) {
    if (text != nullptr && count >= 0 && count < capacity) {
      T* data = Data();
      MoveBytes(data, text, sizeof(T) * count);
      data[count] = T();
      length = count;
    } else {
      AssignGrowing(text, count);
    }
  }
  void Append(const string& other) { Append(other.Data(), other.length); }
  void Append(const T* text) {
    if (text != nullptr) Append(text, TextLength(text));
  }
  void Append(const T* text, int32_t count) {
    if (text == nullptr || count <= 0) return;
    if (count < capacity - length) {
      T* data = Data();
      MoveBytes(data + length, text, sizeof(T) * count);
      length += count;
      data[length] = T();
    } else {
      AppendGrowing(text, count);
    }
  }
  void Append(T c) {
    if (!Grow(length + 2)) return;
    T* data = Data();
    data[length++] = c;
    data[length] = T();
  }

  int32_t Length() const { return length; }
  bool IsEmpty() const { return length == 0; }
  const T* CStr(int32_t position = 0) const { return Data() + position; }
  T* Data() { return storage; }
  const T* Data() const { return storage; }
  // The character at `position`; NUL when outside 0..Length()-1.
  T At(int32_t position) const {
    if (position < 0 || position >= length) return T();
    return Data()[position];
  }
  // Cuts the text to its first n characters (n within 0..Length()).
  void Truncate(int32_t n) {
    if (n < 0 || n > length) return;
    length = n;
    Data()[n] = T();
  }

  // <0, 0, >0 as strcmp; the second form folds ASCII letters.
  int Compare(const T* text) const;
  int CompareNoCase(const T* text) const;
  // Compare(text) == 0; for char the C library's strcmp answers equality
  // the same way (unsigned bytes up to the first NUL), faster.
  bool operator==(const T* text) const {
    if constexpr (sizeof(T) == 1) {
      return std::strcmp(reinterpret_cast<const char*>(Data()),
                         text != nullptr ? reinterpret_cast<const char*>(text) : "") == 0;
    } else {
      return Compare(text) == 0;
    }
  }

  // result = count characters from position (-1: to the end). Empty when
  // position is negative or past the length, or when the range runs past it.
  void Substr(string& result, int32_t position, int32_t count = -1) const;
  // Replaces count characters at position with text; nothing unless both
  // position and position + count lie within the length.
  void Replace(int32_t position, int32_t count, const T* text);
  // Offset of the first c at or after `from`; -1 if absent or c is NUL.
  int32_t Find(T c, int32_t from = 0) const;
  // Offset of the first c; -1 if absent, and for c = NUL.
  int32_t FindFirstChar(T c) const;
  // Offset of the first occurrence of text (plain byte search); -1 if absent.
  int32_t FindString(const T* text) const;
  // The same, starting at offset `from`.
  int32_t FindString(const T* text, int32_t from) const;
  void Clear() {
    length = 0;
    Data()[0] = T();
  }
  // Exchanges the texts of two strings with their storage (inline bytes or
  // heap block); nothing is copied but the members.
  void Swap(string& other) {
    static_assert(sizeof inlineBuffer >= sizeof heap, "the bytes hold either");
    unsigned char held[sizeof inlineBuffer];
    std::memcpy(held, inlineBuffer, sizeof held);
    std::memcpy(inlineBuffer, other.inlineBuffer, sizeof held);
    std::memcpy(other.inlineBuffer, held, sizeof held);
    const int32_t heldLength = length;
    length = other.length;
    other.length = heldLength;
    const int32_t heldCapacity = capacity;
    capacity = other.capacity;
    other.capacity = heldCapacity;
    storage = capacity > kInline ? heap : inlineBuffer;
    other.storage = other.capacity > kInline ? other.heap : other.inlineBuffer;
  }

 protected:
  // Makes the storage hold at least `needed` characters (NUL included),
  // keeping the text. False when the allocation failed.
  bool Grow(int32_t needed) { return needed <= capacity || GrowStorage(needed); }
  // True when `text` points into this string's own storage.
  bool Owns(const T* text) const;
  // Characters before the terminator of a non-null text.
  static int32_t TextLength(const T* text) {
    if constexpr (sizeof(T) == 1) {
      return static_cast<int32_t>(std::strlen(reinterpret_cast<const char*>(text)));
    } else {
      int32_t n = 0;
      while (text[n] != T()) ++n;
      return n;
    }
  }

  static constexpr int32_t kInline = 16;
  union {
    T inlineBuffer[kInline];
    T* heap;
  };
  // The inline buffer or the heap block: where the text is, read with one
  // load on every access instead of a test of the capacity.
  T* storage;
  int32_t length;
  int32_t capacity;  // characters the storage holds, the NUL included

 private:
  // The rare paths of Grow, Assign and Append: a new block, and the text
  // copied first when it lies in the storage being replaced.
  bool GrowStorage(int32_t needed);
  void AssignGrowing(const T* text, int32_t count);
  void AppendGrowing(const T* text, int32_t count);
};

extern template class string<char>;

}  // namespace stdstyle
}  // namespace spr

class StringEx : public spr::stdstyle::string<char> {
 public:
  using spr::stdstyle::string<char>::string;
  StringEx() = default;
  StringEx(const StringEx&) = default;
  StringEx& operator=(const StringEx&) = default;
  StringEx& operator=(const char* text) {
    spr::stdstyle::string<char>::operator=(text);
    return *this;
  }
  ~StringEx() override = default;

  bool StartsWith(const char* prefix) const;
  bool EndsWith(const char* suffix) const;
  // Removes trailing blanks, tabs, CR and LF.
  void TrimRight();
};

class Text : public StringEx {
 public:
  Text();
  Text(const char* text);
  Text(const Text& other);  // deep-copies the fields
  Text& operator=(const Text& other);
  Text& operator=(const char* text);
  ~Text() override;

  // Cuts the text at each delimiter: delimiters + 1 fields, a trailing
  // delimiter giving an empty last field. Returns the field count.
  int32_t Split(char delimiter);
  int32_t Split(const char* delimiter);
  int32_t FieldCount() const { return fieldCount; }
  // Field i; an empty string when i is out of range or not split.
  const StringEx& Field(int32_t i) const;

 private:
  void FreeFields();
  // Replaces the fields with a deep copy of other's (and its split state).
  void CopyFields(const Text& other);
  // Allocates both field arrays; on failure frees them, splitState -1.
  bool AllocateFields(int32_t count);
  // The common cut of both Split forms.
  int32_t SplitAt(const char* delimiter, int32_t delimiterLength);

  StringEx* fields = nullptr;
  int32_t* fieldStarts = nullptr;  // offset of each field in the text
  int32_t fieldCount = 0;
  int32_t splitState = 0;  // 0 not split, 1 split, -1 allocation failed
  int32_t userValue = 0;   // carried along by copies
};

}  // namespace Quorel

#endif  // QRLSL_TEXT_STRINGS_H_
