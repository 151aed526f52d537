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
  CPU_ZERO(&previousMask);
  saved = sched_getaffinity(0, sizeof previousMask, &previousMask) == 0;
  if (!saved || cpu < 0 || cpu >= CPU_SETSIZE) return;
  cpu_set_t one;
  CPU_ZERO(&one);
  CPU_SET(cpu, &one);
  pinned = sched_setaffinity(0, sizeof one, &one) == 0;
}

PinnedTo::~PinnedTo() {
  if (saved && pinned) sched_setaffinity(0, sizeof previousMask, &previousMask);
}

}  // namespace qrlbench
