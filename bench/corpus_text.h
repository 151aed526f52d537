// The running text of the annotated corpus for the throughput figures: for
// each sentence of every *.conllu file under a directory, the FORM column
// joined as written (a blank after a word unless it says SpaceAfter=No),
// one sentence a line, UTF-8. Nothing of it is ever written to disk.
#ifndef QRLSL_BENCH_CORPUS_TEXT_H_
#define QRLSL_BENCH_CORPUS_TEXT_H_

#include <cstdint>
#include <string>
#include <vector>

namespace qrlbench {

struct CorpusText {
  std::vector<std::string> lines;
  uint64_t bytes = 0;              // UTF-8 bytes of all lines, line ends too
  std::vector<std::string> files;  // the files read, in order
  size_t sentences = 0;            // the lines as read, before RepeatTo
};

// Reads every *.conllu file under `directory` (sorted by path). False when
// the directory doesn't exist or holds no sentence.
bool ReadCorpus(const std::string& directory, CorpusText& text);

// Repeats the lines, in order, until the text holds at least `minBytes`.
void RepeatTo(CorpusText& text, uint64_t minBytes);

}  // namespace qrlbench

#endif  // QRLSL_BENCH_CORPUS_TEXT_H_
