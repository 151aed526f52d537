#include "knowledge/knowledge_io.h"

#include <cstring>

namespace Quorel {

bool ReadLine(std::FILE* file, StringEx& line) {
  line.Clear();
  char chunk[4096];
  bool any = false;
  while (std::fgets(chunk, sizeof chunk, file) != nullptr) {
    any = true;
    size_t n = std::strlen(chunk);
    bool ended = n > 0 && chunk[n - 1] == '\n';
    if (ended) --n;
    line.Append(chunk, static_cast<int32_t>(n));
    if (ended) break;
  }
  int32_t length = line.Length();
  if (length > 0 && line.At(length - 1) == '\r') line.Truncate(length - 1);
  return any;
}

std::string JoinPath(const char* directory, const char* name, bool always) {
  std::string path = directory != nullptr ? directory : "";
  bool ends = !path.empty() && (path.back() == '/' || path.back() == '\\');
  if (always || !ends) path += '/';
  path += name != nullptr ? name : "";
  return path;
}

void Report(const char* a, const char* b, const char* c, const char* d) {
  std::fputs(a, stderr);
  std::fputs(b, stderr);
  std::fputs(c, stderr);
  std::fputs(d, stderr);
  std::fputc('\n', stderr);
}

}  // namespace Quorel
