// The per-line work and the clocks around whole passes.
#include "bench/passes.h"

#include <atomic>
#include <chrono>
#include <thread>

#include <time.h>

namespace qrlbench {

namespace {

using Clock = std::chrono::steady_clock;

double Seconds(Clock::time_point from, Clock::time_point to) {
  return std::chrono::duration<double>(to - from).count();
}

double ThreadCpuSeconds() {
  timespec t{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

}  // namespace

Worker::Worker(Quorel::QR_Knowledge* knowledge, int exOption, bool tokenMemo)
    : analyzer(Quorel::CreateAnalyzer(knowledge)) {
  analyzer->SetExOption(exOption);
  Concrete().UseTokenMemo(tokenMemo);
}

Quorel::MAnalyzer& Worker::Concrete() {
  return *static_cast<Quorel::MAnalyzer*>(analyzer.get());
}

uint64_t Worker::Line(const std::string& line, Work work) {
  const std::string& cp949 = recoder.ToCp949(line.c_str());
  switch (work) {
    case Work::kConversion:
      return 0;
    case Work::kSetString: {
      uint64_t tokens = 0;
      size_t start = 0;
      while (start < cp949.size()) {
        size_t blank = cp949.find(' ', start);
        if (blank == std::string::npos) blank = cp949.size();
        if (blank > start) {
          token.assign(cp949, start, blank - start);
          eojul.SetString(token.c_str());
          ++tokens;
        }
        start = blank + 1;
      }
      return tokens;
    }
    case Work::kAnalysis:
    case Work::kTagging0:
    case Work::kTagging1:
      if (cp949.empty()) return 0;
      analyzer->RunWithString(cp949.c_str());
      if (work == Work::kTagging0) analyzer->Tagging(0);
      if (work == Work::kTagging1) analyzer->Tagging(1);
      return static_cast<uint64_t>(analyzer->GetEojulCountInSentence());
  }
  return 0;
}

PassResult Worker::Run(const std::vector<std::string>& lines, size_t count,
                       Work work) {
  PassResult result;
  AllocationCount before = Allocations();
  const double cpuStart = ThreadCpuSeconds();
  const uint64_t lookups = Concrete().Memo().Lookups();
  const uint64_t recalls = Concrete().Memo().Recalls();
  Clock::time_point start = Clock::now();
  for (size_t i = 0; i < count && i < lines.size(); ++i) {
    result.eojuls += Line(lines[i], work);
    result.bytes += lines[i].size() + 1;
  }
  result.seconds = Seconds(start, Clock::now());
  result.cpuSeconds = ThreadCpuSeconds() - cpuStart;
  result.memoLookups = Concrete().Memo().Lookups() - lookups;
  result.memoRecalls = Concrete().Memo().Recalls() - recalls;
  AllocationCount after = Allocations();
  result.allocations = {after.calls - before.calls, after.bytes - before.bytes};
  return result;
}

PassResult RunThreads(std::vector<std::unique_ptr<Worker>>& workers,
                      const std::vector<std::string>& lines, size_t count,
                      Work work) {
  std::vector<PassResult> results(workers.size());
  std::atomic<size_t> ready{0};
  std::atomic<bool> go{false};
  std::vector<std::thread> threads;
  for (size_t t = 0; t < workers.size(); ++t) {
    threads.emplace_back([&, t]() {
      ready.fetch_add(1);
      while (!go.load()) std::this_thread::yield();
      results[t] = workers[t]->Run(lines, count, work);
    });
  }
  while (ready.load() < workers.size()) std::this_thread::yield();
  AllocationCount before = Allocations();
  Clock::time_point start = Clock::now();
  go.store(true);
  for (std::thread& thread : threads) thread.join();
  PassResult total;
  total.seconds = Seconds(start, Clock::now());
  for (const PassResult& one : results) {
    total.bytes += one.bytes;
    total.eojuls += one.eojuls;
  }
  AllocationCount after = Allocations();
  total.allocations = {after.calls - before.calls, after.bytes - before.bytes};
  return total;
}

size_t LinesFor(const std::vector<std::string>& lines, uint64_t bytes) {
  uint64_t sum = 0;
  size_t count = 0;
  while (count < lines.size() && sum < bytes) sum += lines[count++].size() + 1;
  return count;
}

}  // namespace qrlbench
