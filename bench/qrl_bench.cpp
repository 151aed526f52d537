// qrl_bench: the figures of the analyzer, printed for a person to read.
//
//   start-up     loading the compiled knowledge, and building it from the
//                source dictionaries
//   throughput   analysis, analysis + tagging, analysis with the thread
//                kept on each CPU in turn, and the same on several
//                threads sharing one knowledge object, on the corpus text
//                repeated to a size, after a warm-up; each beside the floor
//                (the scanner: conversion and token cutting with empty
//                knowledge) measured the same way
//   memory       resident size, and heap allocations per eojul once warm
//
// Usage: qrl_bench [--knowledge DIR] [--corpus DIR] [--mb N] [--threads N]
//                  [--passes N]
//        qrl_bench --counted-pass --knowledge DIR [--corpus DIR]
// Without a corpus the throughput and allocation figures are skipped.
// --counted-pass prints no figure: after a warm-up it analyses the corpus
// text once (not repeated, the sentence kept) inside CountedPass, for an
// instruction counter to measure (scripts/count_instructions.sh).
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

#include "bench/corpus_text.h"
#include "bench/cpu_affinity.h"
#include "bench/passes.h"

namespace {

namespace fs = std::filesystem;
using qrlbench::PassResult;
using qrlbench::Work;

struct Settings {
  std::string knowledge;  // empty: knowledge/ when present, else none
  std::string corpus = QRLSL_SOURCE_DIR "/../shared/corpus";
  double megabytes = 10;
  unsigned threads = std::max(2u, std::thread::hardware_concurrency());
  int passes = 3;  // timed passes per figure; the fastest counts
  bool countedPass = false;
};

bool Parse(int argc, char** argv, Settings& settings) {
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    if (arg == "--counted-pass") {
      settings.countedPass = true;
      continue;
    }
    if (i + 1 >= argc) return false;
    std::string value = argv[++i];
    if (arg == "--knowledge") {
      settings.knowledge = value;
    } else if (arg == "--corpus") {
      settings.corpus = value;
    } else if (arg == "--mb") {
      settings.megabytes = std::atof(value.c_str());
    } else if (arg == "--passes") {
      settings.passes = std::max(1, std::atoi(value.c_str()));
    } else if (arg == "--threads") {
      settings.threads = static_cast<unsigned>(std::max(1, std::atoi(value.c_str())));
    } else {
      return false;
    }
  }
  return settings.megabytes > 0;
}

double Milliseconds(const std::function<void()>& run) {
  auto start = std::chrono::steady_clock::now();
  run();
  return std::chrono::duration<double, std::milli>(
             std::chrono::steady_clock::now() - start).count();
}

// Best and median of `times` runs of `run`, which returns the milliseconds
// of the part it times.
void PrintTimed(const char* what, int times, const std::function<double()>& run) {
  std::vector<double> ms;
  for (int i = 0; i < times; ++i) ms.push_back(run());
  std::sort(ms.begin(), ms.end());
  std::printf("  %-44s %9.1f ms best, %9.1f ms median of %d\n", what, ms[0],
              ms[ms.size() / 2], times);
}

double PeakResidentMB() {
  rusage usage;
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024.0;  // kilobytes on Linux
}

double ResidentMB() {
  std::ifstream statm("/proc/self/statm");
  long pages = 0, resident = 0;
  statm >> pages >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

bool HasSources(const fs::path& dir) {
  static const char* const kNames[] = {"nng.dic", "vv.dic", "em.dic", "js.dic"};
  for (const char* name : kNames) {
    if (fs::exists(dir / name)) return true;
  }
  return false;
}

// The start-up figures. Leaves in `knowledge` the loaded knowledge that the
// analysis figures use, and in `where` its description.
void StartUp(const Settings& settings, const fs::path& scratch,
             std::unique_ptr<Quorel::QR_Knowledge>& knowledge, std::string& where) {
  fs::path dir = settings.knowledge;
  if (dir.empty() && (fs::exists("knowledge/qrl.klg") || HasSources("knowledge"))) {
    dir = "knowledge";
  }
  const bool sources = !dir.empty() && HasSources(dir);
  fs::path compiled = dir;
  if (dir.empty() || !fs::exists(dir / "qrl.klg")) {
    // Compile what there is (an empty directory without sources) to time
    // the load of a compiled file all the same.
    fs::path from = sources ? dir : scratch / "empty";
    fs::create_directories(from);
    compiled = scratch / "compiled";
    fs::create_directories(compiled);
    std::unique_ptr<Quorel::QR_Knowledge> k(Quorel::CreateKnowledge(false));
    k->CompileKnowledge(from.string().c_str(), compiled.string().c_str());
  }
  where = dir.empty() ? "none found: empty knowledge" : dir.string();
  std::printf("knowledge: %s\n\nstart-up\n", where.c_str());
  std::printf("  compiled file %s: %.2f MB\n", (compiled / "qrl.klg").c_str(),
              fs::file_size(compiled / "qrl.klg") / 1e6);

  knowledge.reset(Quorel::CreateKnowledge(false));
  double first = Milliseconds([&]() {
    knowledge->LoadKnowledge(compiled.string().c_str(), true, true);
  });
  std::printf("  %-44s %9.1f ms (the first in this process)\n", "load compiled knowledge", first);
  std::printf("  %-44s %9.1f MB (peak so far %.1f MB)\n",
              "resident after loading", ResidentMB(), PeakResidentMB());
  // Each load into a new object, timed without its destruction.
  auto timeLoad = [](const fs::path& from, bool fromCompiled) {
    return [from, fromCompiled]() {
      std::unique_ptr<Quorel::QR_Knowledge> k(Quorel::CreateKnowledge(false));
      return Milliseconds([&]() {
        k->LoadKnowledge(from.string().c_str(), fromCompiled, true);
      });
    };
  };
  PrintTimed("load compiled knowledge", 5, timeLoad(compiled, true));
  if (sources) {
    PrintTimed("build from the source dictionaries", 3, timeLoad(dir, false));
  } else {
    std::printf("  %-44s (no source dictionaries)\n", "build from the source dictionaries");
  }
  if (!dir.empty()) {
    knowledge->LoadEojulRules(dir.string().c_str());
    knowledge->LoadGroupRules(dir.string().c_str());
    knowledge->LoadTagLists(dir.string().c_str());
  }
}

void PrintRate(const char* what, const PassResult& r, const PassResult* floor) {
  double mbs = r.bytes / 1e6 / r.seconds;
  std::printf("  %-36s %8.2f MB/s", what, mbs);
  if (r.eojuls > 0) {
    std::printf(" %11.0f eojuls/s", r.eojuls / r.seconds);
  } else {
    std::printf(" %20s", "");
  }
  if (floor != nullptr) {
    double floorMbs = floor->bytes / 1e6 / floor->seconds;
    std::printf("   floor %8.2f MB/s  (%5.1f%% of it)", floorMbs, 100 * mbs / floorMbs);
  }
  if (r.cpuSeconds > 0) {
    std::printf("   cpu time %6.2f MB/s", r.bytes / 1e6 / r.cpuSeconds);
  }
  std::printf("\n");
}

void PrintAllocations(const char* what, const PassResult& r, uint64_t eojuls) {
  std::printf("  %-44s %8.3f per eojul  %10.1f bytes per eojul\n", what,
              static_cast<double>(r.allocations.calls) / eojuls,
              static_cast<double>(r.allocations.bytes) / eojuls);
}

// How often the token memo answered: in the timed passes, and on one pass
// of the corpus sentences, not repeated, by a fresh analyzer; the repeated
// text could otherwise flatter the memo. That single pass is also timed
// with the memo on and off (fresh analyzers each time, fastest of 5).
void PrintMemo(const PassResult& timed, Quorel::QR_Knowledge* knowledge,
               const qrlbench::CorpusText& text) {
  PassResult once[2];
  for (int round = 0; round < 5; ++round) {
    for (int on = 0; on <= 1; ++on) {
      qrlbench::Worker fresh(knowledge, 1, on == 1);
      const PassResult r = fresh.Run(text.lines, text.sentences, Work::kAnalysis);
      if (round == 0 || r.seconds < once[on].seconds) once[on] = r;
    }
  }
  auto share = [](const PassResult& r) {
    return r.memoLookups == 0 ? 0.0 : 100.0 * r.memoRecalls / r.memoLookups;
  };
  std::printf("  %-36s %7.1f%% of tokens in the timed passes, %.1f%% in one pass of the sentences\n",
              "  token memo hits", share(timed), share(once[1]));
  std::printf("  %-36s %8.2f MB/s with a fresh memo, %.2f MB/s without\n",
              "  one pass of the sentences", once[1].bytes / 1e6 / once[1].seconds,
              once[0].bytes / 1e6 / once[0].seconds);
}

// The throughput and allocation figures on the corpus text.
void Throughput(const Settings& settings, Quorel::QR_Knowledge* knowledge,
                const qrlbench::CorpusText& text) {
  const auto& lines = text.lines;
  const size_t all = lines.size();
  const size_t warm = qrlbench::LinesFor(lines, 1 << 20);
  std::unique_ptr<Quorel::QR_Knowledge> empty(Quorel::CreateKnowledge(false));

  // The fastest of the timed passes; the allocations are the last pass's.
  auto fastest = [&](const std::function<PassResult()>& pass) {
    PassResult best = pass();
    for (int i = 1; i < settings.passes; ++i) {
      PassResult next = pass();
      best.seconds = std::min(best.seconds, next.seconds);
      best.cpuSeconds = std::min(best.cpuSeconds, next.cpuSeconds);
      best.allocations = next.allocations;
    }
    return best;
  };
  // Each figure on a fresh worker, after a warm-up of the first megabyte.
  auto measure = [&](Quorel::QR_Knowledge* k, int exOption, Work work,
                     bool tokenMemo = true) {
    qrlbench::Worker worker(k, exOption, tokenMemo);
    worker.Run(lines, warm, work);
    return fastest([&]() { return worker.Run(lines, all, work); });
  };
  std::printf("\nthroughput, one thread (%.1f MB of text, %zu lines; fastest of %d)\n",
              text.bytes / 1e6, all, settings.passes);
  PassResult floor = measure(empty.get(), 1, Work::kAnalysis);
  PrintRate("floor: scanner, empty knowledge", floor, nullptr);
  PrintRate("  conversion alone", measure(empty.get(), 1, Work::kConversion), &floor);
  PrintRate("  conversion + SetString per token", measure(empty.get(), 1, Work::kSetString), &floor);
  PassResult analysis = measure(knowledge, 1, Work::kAnalysis);
  PrintRate("analysis", analysis, &floor);
  PrintRate("analysis, token memo off", measure(knowledge, 1, Work::kAnalysis, false), &floor);
  PrintMemo(analysis, knowledge, text);
  PrintRate("analysis + tagging, mode 0", measure(knowledge, 1, Work::kTagging0), &floor);
  PrintRate("analysis + tagging, mode 1", measure(knowledge, 1, Work::kTagging1), &floor);

  // Analysis and its floor with the thread kept on each CPU in turn: on a
  // shared machine one CPU can be markedly slower than another, and a
  // single-thread run gets whichever the scheduler gives it.
  constexpr size_t kMaxCpusMeasured = 4;
  const std::vector<int> cpus = qrlbench::AllowedCpus();
  if (cpus.size() > 1) {
    std::printf("\nthroughput, one thread kept on one CPU (fastest of %d)", settings.passes);
    if (cpus.size() > kMaxCpusMeasured) {
      std::printf(", the first %zu of %zu CPUs", kMaxCpusMeasured, cpus.size());
    }
    std::printf("\n");
    for (size_t c = 0; c < cpus.size() && c < kMaxCpusMeasured; ++c) {
      qrlbench::PinnedTo pin(cpus[c]);
      if (!pin.Pinned()) {
        std::printf("  cpu %d: can't be taken\n", cpus[c]);
        continue;
      }
      const PassResult cpuFloor = measure(empty.get(), 1, Work::kAnalysis);
      const std::string label = "cpu " + std::to_string(cpus[c]) + ": analysis";
      PrintRate(label.c_str(), measure(knowledge, 1, Work::kAnalysis), &cpuFloor);
    }
  }

  std::printf("\nthroughput, %u threads sharing one knowledge object (totals)\n",
              settings.threads);
  auto threaded = [&](Quorel::QR_Knowledge* k, Work work) {
    std::vector<std::unique_ptr<qrlbench::Worker>> workers;
    for (unsigned t = 0; t < settings.threads; ++t) {
      workers.push_back(std::make_unique<qrlbench::Worker>(k, 1));
      workers.back()->Run(lines, warm, work);
    }
    return fastest([&]() { return qrlbench::RunThreads(workers, lines, all, work); });
  };
  PassResult floorThreads = threaded(empty.get(), Work::kAnalysis);
  PrintRate("floor: scanner, empty knowledge", floorThreads, nullptr);
  PrintRate("analysis", threaded(knowledge, Work::kAnalysis), &floorThreads);
  PrintRate("analysis + tagging, mode 0", threaded(knowledge, Work::kTagging0), &floorThreads);

  // Allocations once warm: the eojul count of the text comes from the
  // analysis pass above, which kept the sentence.
  std::printf("\nheap allocations in the steady state (after a warm-up pass)\n");
  const uint64_t eojuls = analysis.eojuls;
  PrintAllocations("analysis alone (sentence not kept)", measure(knowledge, 0, Work::kAnalysis), eojuls);
  PrintAllocations("analysis, sentence kept for the host", measure(knowledge, 1, Work::kAnalysis), eojuls);
  PrintAllocations("floor: scanner, empty knowledge, not kept", measure(empty.get(), 0, Work::kAnalysis), eojuls);
}

}  // namespace

// The pass that scripts/count_instructions.sh counts; the name is its
// marker, so it is never inlined.
__attribute__((noinline)) PassResult CountedPass(qrlbench::Worker& worker,
                                                 const qrlbench::CorpusText& text) {
  return worker.Run(text.lines, text.lines.size(), Work::kAnalysis);
}

int RunCountedPass(const Settings& settings) {
  if (settings.knowledge.empty()) {
    std::fprintf(stderr, "qrl_bench: --counted-pass needs --knowledge\n");
    return 2;
  }
  qrlbench::CorpusText text;
  if (!qrlbench::ReadCorpus(settings.corpus, text)) {
    std::fprintf(stderr, "qrl_bench: no corpus at %s\n", settings.corpus.c_str());
    return 2;
  }
  std::unique_ptr<Quorel::QR_Knowledge> knowledge(Quorel::CreateKnowledge(false));
  knowledge->LoadKnowledge(settings.knowledge.c_str(), true, true);
  qrlbench::Worker worker(knowledge.get(), 1);
  worker.Run(text.lines, text.lines.size(), Work::kAnalysis);
  const PassResult pass = CountedPass(worker, text);
  std::printf("counted pass: %llu eojuls, %.2f MB of text\n",
              static_cast<unsigned long long>(pass.eojuls), pass.bytes / 1e6);
  return 0;
}

int main(int argc, char** argv) {
  Settings settings;
  if (!Parse(argc, argv, settings)) {
    std::fprintf(stderr,
                 "usage: qrl_bench [--knowledge DIR] [--corpus DIR] [--mb N] "
                 "[--threads N] [--passes N]\n"
                 "       qrl_bench --counted-pass --knowledge DIR [--corpus DIR]\n");
    return 2;
  }
  if (settings.countedPass) return RunCountedPass(settings);
  char pattern[] = "/tmp/qrl-bench-XXXXXX";
  if (mkdtemp(pattern) == nullptr) return 1;
  const fs::path scratch = pattern;

  std::unique_ptr<Quorel::QR_Knowledge> knowledge;
  std::string where;
  StartUp(settings, scratch, knowledge, where);

  qrlbench::CorpusText text;
  if (qrlbench::ReadCorpus(settings.corpus, text)) {
    std::printf("\ncorpus: %zu files under %s, %.2f MB of sentences\n",
                text.files.size(), settings.corpus.c_str(), text.bytes / 1e6);
    qrlbench::RepeatTo(text, static_cast<uint64_t>(settings.megabytes * 1e6));
    Throughput(settings, knowledge.get(), text);
  } else {
    std::printf("\ncorpus: none at %s; throughput and allocation figures skipped\n",
                settings.corpus.c_str());
  }
  std::printf("\nmemory\n  %-44s %9.1f MB (corpus text included)\n",
              "peak resident", PeakResidentMB());
  std::error_code ignored;
  fs::remove_all(scratch, ignored);
  return 0;
}
