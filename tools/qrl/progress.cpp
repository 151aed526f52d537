// Drawing of the progress bar: "\r", label, bar, percentage, megabytes.
#include "tools/qrl/progress.h"

#include <unistd.h>

#include <cstdio>
#include <utility>

namespace Quorel {
namespace cli {

namespace {
constexpr int kBarWidth = 30;
}  // namespace

Progress::Progress(std::string label, uint64_t total, bool enabled)
    : label(std::move(label)),
      total(total),
      active(enabled && total > 0 && isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() {
  if (active && shownPercent >= 0) std::fputs("\r\033[K", stderr);
}

void Progress::Advance(uint64_t bytes) {
  if (!active) return;
  done += bytes;
  if (done > total) done = total;
  int percent = static_cast<int>(done * 100 / total);
  if (percent == shownPercent) return;
  shownPercent = percent;
  Draw();
}

void Progress::Draw() {
  char bar[kBarWidth + 1];
  int filled = shownPercent * kBarWidth / 100;
  for (int i = 0; i < kBarWidth; ++i) bar[i] = i < filled ? '=' : ' ';
  if (filled < kBarWidth) bar[filled] = '>';
  bar[kBarWidth] = 0;
  std::fprintf(stderr, "\r%s [%s] %3d%% %.1f/%.1f MB", label.c_str(), bar,
               shownPercent, done / 1e6, total / 1e6);
  std::fflush(stderr);
}

}  // namespace cli
}  // namespace Quorel
