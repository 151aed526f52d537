// The analysing run of qrl: loads the knowledge, sets up one analyzer with
// the user's options, and writes one result per eojul of every input line.
#ifndef QRLSL_TOOLS_QRL_ANALYSIS_H_
#define QRLSL_TOOLS_QRL_ANALYSIS_H_

#include <string>
#include <utility>
#include <vector>

#include "tools/qrl/output.h"

namespace Quorel {
namespace cli {

struct AnalysisSettings {
  std::string knowledgeDirectory;  // empty: look for one
  Format format = Format::kText;
  int candidates = 0;              // option 0; 0 keeps all
  bool candidatesGiven = false;    // -n given: no tagging unless -t
  int taggingMode = -1;            // -1: mode 0, or none after -n
  std::vector<std::pair<int, int>> options;  // (number, value), in order
  std::vector<std::string> userNounFiles;
  std::vector<std::string> preAnalysisFiles;
  bool raw = false;                // ignore pre-analysis entries
  bool progress = true;            // a bar for long files on a terminal
  bool strict = false;             // invalid UTF-8 stops the run
  std::string encoding = "auto";   // of the input: auto, utf-8 or cp949
  std::vector<std::string> inputs; // files; none or "-": standard input
};

// Runs the analysis; the exit status (0, or 1 when the knowledge or an
// input couldn't be used, the output couldn't be written, or --strict met
// invalid UTF-8). Invalid UTF-8 otherwise reads as U+FFFD with a warning
// naming the input, line and byte. A directory among the inputs stands for
// the files under it, in the order of their paths. With the encoding
// "auto", an input whose first line beyond ASCII is CP949 and not UTF-8 is
// read as CP949 (and said so).
int RunAnalysis(const AnalysisSettings& settings);

}  // namespace cli
}  // namespace Quorel

#endif  // QRLSL_TOOLS_QRL_ANALYSIS_H_
