// TextPool: a growing buffer of NUL-terminated texts that records point into
// by offset. The buffer is kept zeroed beyond `used`, so the byte behind each
// text is its NUL. Capacity never drops below kMinCapacity.
#ifndef QRLSL_KNOWLEDGE_TEXT_POOL_H_
#define QRLSL_KNOWLEDGE_TEXT_POOL_H_

#include <cstdint>

namespace Quorel {

class TextPool {
 public:
  static constexpr int32_t kMinCapacity = 102400;

  TextPool();
  ~TextPool();
  TextPool(const TextPool&) = delete;
  TextPool& operator=(const TextPool&) = delete;

  // Appends n bytes and a NUL, doubling the capacity as needed. Returns the
  // text's offset, or -1 when memory ran out (nothing appended).
  int32_t Append(const char* text, int32_t n);
  // Drops the texts and makes a zeroed buffer of max(kMinCapacity, capacity)
  // bytes. False when memory ran out (the pool is then empty, capacity 0).
  bool Reset(int32_t capacity);
  const char* At(int32_t offset) const { return buffer + offset; }

  char* buffer = nullptr;
  int32_t capacity = 0;
  int32_t used = 0;
};

}  // namespace Quorel

#endif  // QRLSL_KNOWLEDGE_TEXT_POOL_H_
