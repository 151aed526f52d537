// Replacement of the global allocation functions: count, then malloc/free.
#include "bench/alloc_counter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace qrlbench {
namespace {

std::atomic<uint64_t> calls{0};
std::atomic<uint64_t> bytes{0};

void* Allocate(std::size_t size) {
  calls.fetch_add(1, std::memory_order_relaxed);
  bytes.fetch_add(size, std::memory_order_relaxed);
  return std::malloc(size == 0 ? 1 : size);
}

}  // namespace

AllocationCount Allocations() {
  return {calls.load(std::memory_order_relaxed),
          bytes.load(std::memory_order_relaxed)};
}

}  // namespace qrlbench

void* operator new(std::size_t size) {
  void* block = qrlbench::Allocate(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return qrlbench::Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return qrlbench::Allocate(size);
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }
