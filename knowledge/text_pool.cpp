#include "knowledge/text_pool.h"

#include <cstdlib>
#include <cstring>

namespace Quorel {

TextPool::TextPool() { Reset(kMinCapacity); }

TextPool::~TextPool() { std::free(buffer); }

bool TextPool::Reset(int32_t newCapacity) {
  std::free(buffer);
  used = 0;
  capacity = newCapacity < kMinCapacity ? kMinCapacity : newCapacity;
  buffer = static_cast<char*>(std::calloc(static_cast<size_t>(capacity), 1));
  if (buffer == nullptr) {
    capacity = 0;
    return false;
  }
  return true;
}

int32_t TextPool::Append(const char* text, int32_t n) {
  if (n < 0 || buffer == nullptr) return -1;
  int64_t newCapacity = capacity;
  while (static_cast<int64_t>(used) + n + 1 >= newCapacity) newCapacity *= 2;
  if (newCapacity > INT32_MAX) return -1;
  if (newCapacity != capacity) {
    char* grown =
        static_cast<char*>(std::calloc(static_cast<size_t>(newCapacity), 1));
    if (grown == nullptr) return -1;
    std::memcpy(grown, buffer, static_cast<size_t>(used));
    std::free(buffer);
    buffer = grown;
    capacity = static_cast<int32_t>(newCapacity);
  }
  int32_t offset = used;
  if (n > 0) std::memcpy(buffer + used, text, static_cast<size_t>(n));
  used += n + 1;
  return offset;
}

}  // namespace Quorel
