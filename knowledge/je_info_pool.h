// JeInfoPool: the readings of josa and eomi as four parallel arrays beside a
// TextPool of their forms. An entry is addressed by its index; jeInfo records
// are built from it on demand.
#ifndef QRLSL_KNOWLEDGE_JE_INFO_POOL_H_
#define QRLSL_KNOWLEDGE_JE_INFO_POOL_H_

#include <cstdint>

#include "knowledge/text_pool.h"

namespace Quorel {

class JeInfoPool {
 public:
  static constexpr int32_t kMinCapacity = 102400;

  JeInfoPool();
  ~JeInfoPool();
  JeInfoPool(const JeInfoPool&) = delete;
  JeInfoPool& operator=(const JeInfoPool&) = delete;

  // Adds an entry (the arrays first, then the form to the text pool) and
  // returns its index; -1 when memory ran out.
  int32_t Add(uint32_t bits, uint16_t attach, uint8_t type, const char* text,
              int32_t textLength);
  // Drops all entries; the arrays get room for max(kMinCapacity, capacity)
  // entries, zeroed. The text pool is left as it is. False when memory ran
  // out.
  bool Reset(int32_t capacity);

  TextPool text;
  int32_t count = 0;
  int32_t capacity = 0;
  uint32_t* offset = nullptr;
  uint32_t* bits = nullptr;
  uint16_t* attach = nullptr;
  uint8_t* type = nullptr;

 private:
  // Reallocates the four arrays to newCapacity entries, keeping `count`.
  bool Resize(int32_t newCapacity);
  void Free();
};

}  // namespace Quorel

#endif  // QRLSL_KNOWLEDGE_JE_INFO_POOL_H_
