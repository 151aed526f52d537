#include "knowledge/je_info_pool.h"

#include <cstdlib>
#include <cstring>

namespace Quorel {

namespace {

// A zeroed copy of `count` elements of `old` in an array of `capacity`.
template <class T>
T* Regrow(const T* old, int32_t count, int32_t capacity) {
  T* fresh = static_cast<T*>(std::calloc(static_cast<size_t>(capacity),
                                         sizeof(T)));
  if (fresh != nullptr && count > 0) {
    std::memcpy(fresh, old, sizeof(T) * static_cast<size_t>(count));
  }
  return fresh;
}

}  // namespace

JeInfoPool::JeInfoPool() { Reset(kMinCapacity); }

JeInfoPool::~JeInfoPool() { Free(); }

void JeInfoPool::Free() {
  std::free(offset);
  std::free(bits);
  std::free(attach);
  std::free(type);
  offset = nullptr;
  bits = nullptr;
  attach = nullptr;
  type = nullptr;
  count = 0;
  capacity = 0;
}

bool JeInfoPool::Resize(int32_t newCapacity) {
  uint32_t* newOffset = Regrow(offset, count, newCapacity);
  uint32_t* newBits = Regrow(bits, count, newCapacity);
  uint16_t* newAttach = Regrow(attach, count, newCapacity);
  uint8_t* newType = Regrow(type, count, newCapacity);
  if (!newOffset || !newBits || !newAttach || !newType) {
    std::free(newOffset);
    std::free(newBits);
    std::free(newAttach);
    std::free(newType);
    return false;
  }
  int32_t kept = count;
  Free();
  offset = newOffset;
  bits = newBits;
  attach = newAttach;
  type = newType;
  count = kept;
  capacity = newCapacity;
  return true;
}

bool JeInfoPool::Reset(int32_t newCapacity) {
  Free();
  return Resize(newCapacity < kMinCapacity ? kMinCapacity : newCapacity);
}

int32_t JeInfoPool::Add(uint32_t entryBits, uint16_t entryAttach,
                        uint8_t entryType, const char* form,
                        int32_t formLength) {
  int64_t newCapacity = capacity < 1 ? kMinCapacity : capacity;
  while (static_cast<int64_t>(count) + 1 >= newCapacity) newCapacity *= 2;
  if (newCapacity > INT32_MAX / 4) return -1;
  if (newCapacity != capacity &&
      !Resize(static_cast<int32_t>(newCapacity))) {
    return -1;
  }
  int32_t index = count;
  offset[index] = static_cast<uint32_t>(text.used);
  bits[index] = entryBits;
  attach[index] = entryAttach;
  type[index] = entryType;
  ++count;
  text.Append(form, formLength);
  return index;
}

}  // namespace Quorel
