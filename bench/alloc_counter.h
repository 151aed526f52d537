// Heap allocations of the whole benchmark process, counted by replacing the
// global operator new and delete of the binary (the library is linked in
// statically, so its allocations are counted too).
#ifndef QRLSL_BENCH_ALLOC_COUNTER_H_
#define QRLSL_BENCH_ALLOC_COUNTER_H_

#include <cstdint>

namespace qrlbench {

struct AllocationCount {
  uint64_t calls = 0;
  uint64_t bytes = 0;
};

// Allocations made so far by every thread.
AllocationCount Allocations();

}  // namespace qrlbench

#endif  // QRLSL_BENCH_ALLOC_COUNTER_H_
