// The CPUs a benchmark may run on, and a scope that keeps the calling
// thread on one of them. On a shared virtual machine the CPUs need not be
// equal (a busy neighbour on the same core slows one of them), so the
// single-thread figures are also taken on each CPU in turn.
#ifndef QRLSL_BENCH_CPU_AFFINITY_H_
#define QRLSL_BENCH_CPU_AFFINITY_H_

#include <sched.h>

#include <vector>

namespace qrlbench {

// The CPUs of the process's affinity mask, in increasing order; empty when
// the mask can't be read.
std::vector<int> AllowedCpus();

// Keeps the calling thread on `cpu` while it lives, then gives it back the
// mask it had. Pinned() is false when the CPU could not be taken.
class PinnedTo {
 public:
  explicit PinnedTo(int cpu);
  ~PinnedTo();
  PinnedTo(const PinnedTo&) = delete;
  PinnedTo& operator=(const PinnedTo&) = delete;
  bool Pinned() const { return pinned; }

 private:
  cpu_set_t previousMask;
  bool saved = false;
  bool pinned = false;
};

}  // namespace qrlbench

#endif  // QRLSL_BENCH_CPU_AFFINITY_H_
