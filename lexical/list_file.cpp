#include "lexical/list_file.h"

namespace Quorel {

std::string JoinPath(const char* path, const char* fileName) {
  std::string joined = path ? path : "";
  if (joined.empty() || (joined.back() != '/' && joined.back() != '\\')) {
    joined += '/';
  }
  if (fileName) joined += fileName;
  return joined;
}

bool ReadLine(FILE* file, std::string& line) {
  line.clear();
  int c;
  while ((c = std::fgetc(file)) != EOF) {
    if (c == '\n') return true;
    line += static_cast<char>(c);
  }
  return !line.empty();
}

bool IsSkippedLine(const char* line) {
  const char c = line[0];
  return c == '\0' || c == ';' || c == '/' || IsLineSpace(c);
}

void CutTrailingSpace(std::string& line) {
  size_t end = line.size();
  while (end > 0 && IsLineSpace(line[end - 1])) --end;
  line.resize(end);
}

}  // namespace Quorel
