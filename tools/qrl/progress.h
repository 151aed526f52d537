// A one-line progress bar on standard error for long file runs. It draws
// only when standard error is a terminal and the total is known, redraws
// when the shown percentage changes, and clears its line when done.
#ifndef QRLSL_TOOLS_QRL_PROGRESS_H_
#define QRLSL_TOOLS_QRL_PROGRESS_H_

#include <cstdint>
#include <string>

namespace Quorel {
namespace cli {

class Progress {
 public:
  // `total` bytes are expected; `label` names the run (a file name).
  // Nothing is drawn when `enabled` is false or stderr is no terminal.
  Progress(std::string label, uint64_t total, bool enabled);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // `bytes` more have been read.
  void Advance(uint64_t bytes);

 private:
  void Draw();
  std::string label;
  uint64_t total;
  uint64_t done = 0;
  int shownPercent = -1;
  bool active;
};

}  // namespace cli
}  // namespace Quorel

#endif  // QRLSL_TOOLS_QRL_PROGRESS_H_
