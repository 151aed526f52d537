#include "bench/cpu_affinity.h"

namespace qrlbench {

std::vector<int> AllowedCpus() {
  std::vector<int> cpus;
  cpu_set_t set;
  CPU_ZERO(&set);
  if (sched_getaffinity(0, sizeof set, &set) != 0) return cpus;
  for (int cpu = 0; cpu < CPU_SETSIZE; ++cpu) {
    if (CPU_ISSET(cpu, &set)) cpus.push_back(cpu);
  }
  return cpus;
}

PinnedTo::PinnedTo(int cpu) {
  CPU_ZERO(&before_);
  saved_ = sched_getaffinity(0, sizeof before_, &before_) == 0;
  if (!saved_ || cpu < 0 || cpu >= CPU_SETSIZE) return;
  cpu_set_t one;
  CPU_ZERO(&one);
  CPU_SET(cpu, &one);
  pinned_ = sched_setaffinity(0, sizeof one, &one) == 0;
}

PinnedTo::~PinnedTo() {
  if (saved_ && pinned_) sched_setaffinity(0, sizeof before_, &before_);
}

}  // namespace qrlbench
