// Timed passes over the benchmark text. A Worker is one thread's share of
// the work: its own analyzer on a shared knowledge object and its own
// conversion buffers, so that a pass measures the library and not setup.
#ifndef QRLSL_BENCH_PASSES_H_
#define QRLSL_BENCH_PASSES_H_

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "analyzer/m_analyzer.h"
#include "bench/alloc_counter.h"
#include "eojul/eojul.h"
#include "qrlsl/qrlsl.h"
#include "tools/qrl/recode.h"

namespace qrlbench {

// What a pass does with each line (UTF-8).
enum class Work {
  kConversion,  // UTF-8 to CP949 only
  kSetString,   // conversion, then each blank-separated token into an Eojul
  kAnalysis,    // conversion and RunWithString
  kTagging0,    // conversion, RunWithString and Tagging(0)
  kTagging1,    // conversion, RunWithString and Tagging(1)
};

struct PassResult {
  double seconds = 0;
  double cpuSeconds = 0;  // CPU time of the running thread (single passes
                          // only): leaves out the time it waited for a core,
                          // though not the slowdown of sharing one
  uint64_t bytes = 0;   // UTF-8 bytes of the lines, line ends included
  uint64_t eojuls = 0;  // sentence elements (analysis with the sentence
                        // kept) or tokens (SetString); 0 otherwise
  AllocationCount allocations;  // made during the pass, by all threads
  // Tokens looked up in the analyzer's token memo, and found there.
  uint64_t memoLookups = 0;
  uint64_t memoRecalls = 0;
};

class Worker {
 public:
  // `exOption` is the analyzer's output mode: 1 keeps the sentence as a
  // host reads it, 0 analyses without keeping anything.
  // Without `tokenMemo` every token is analysed, however often it recurs.
  Worker(Quorel::QR_Knowledge* knowledge, int exOption, bool tokenMemo = true);

  // Runs `work` over lines [0, count) of `lines`.
  PassResult Run(const std::vector<std::string>& lines, size_t count, Work work);

 private:
  uint64_t Line(const std::string& line, Work work);
  // The library's analyzer behind the interface, for its token memo.
  Quorel::MAnalyzer& Concrete();
  std::unique_ptr<Quorel::QR_Analyzer> analyzer;
  Quorel::cli::Recoder recoder;
  Quorel::Eojul eojul;
  std::string token;
};

// The same work on `threads` workers at once, each over all `count` lines;
// seconds is the wall time from the common start to the last finish.
PassResult RunThreads(std::vector<std::unique_ptr<Worker>>& workers,
                      const std::vector<std::string>& lines, size_t count,
                      Work work);

// Lines from the start that hold at least `bytes`.
size_t LinesFor(const std::vector<std::string>& lines, uint64_t bytes);

}  // namespace qrlbench

#endif  // QRLSL_BENCH_PASSES_H_
