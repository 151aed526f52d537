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
  Format format = Format::kFull;
  int candidates = 0;              // option 0; 0 keeps all
  int taggingMode = -1;            // -1: no tagging
  std::vector<std::pair<int, int>> options;  // (number, value), in order
  std::vector<std::string> userNounFiles;
  std::vector<std::string> preAnalysisFiles;
  bool raw = false;                // ignore pre-analysis entries
  bool progress = true;            // a bar for long files on a terminal
  bool strict = false;             // invalid UTF-8 stops the run
  std::vector<std::string> inputs; // files; none or "-": standard input
};

// Runs the analysis; the exit status (0, or 1 when the knowledge or an
// input couldn't be used, or --strict met invalid UTF-8). Invalid UTF-8
// otherwise reads as U+FFFD with a warning naming the input, line and byte.
int RunAnalysis(const AnalysisSettings& settings);

}  // namespace cli
}  // namespace Quorel

#endif  // QRLSL_TOOLS_QRL_ANALYSIS_H_
