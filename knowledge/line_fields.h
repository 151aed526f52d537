// Small text helpers of the tagger's knowledge files: the comment test of a
// line, trimming, the digits test and the sinfo directory of a knowledge
// path.
#ifndef QRLSL_KNOWLEDGE_LINE_FIELDS_H_
#define QRLSL_KNOWLEDGE_LINE_FIELDS_H_

#include <string>

#include "knowledge/knowledge_io.h"

namespace Quorel {

// Empty lines and lines that begin with ";", "/" or a space are comments.
inline bool IsCommentLine(const std::string& line) {
  return line.empty() || line[0] == ';' || line[0] == '/' || line[0] == ' ';
}

inline bool IsBlankChar(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// text without blanks, tabs, CR and LF at both ends.
inline std::string Trimmed(const std::string& text) {
  size_t begin = 0;
  size_t end = text.size();
  while (begin < end && IsBlankChar(text[begin])) ++begin;
  while (end > begin && IsBlankChar(text[end - 1])) --end;
  return text.substr(begin, end - begin);
}

// True when every character is a decimal digit (and there is one).
inline bool AllDigits(const std::string& text) {
  if (text.empty()) return false;
  for (char c : text) {
    if (c < '0' || c > '9') return false;
  }
  return true;
}

// path/sinfo/name.
inline std::string SinfoPath(const char* path, const char* name) {
  return JoinPath(JoinPath(path, "sinfo").c_str(), name);
}

}  // namespace Quorel

#endif  // QRLSL_KNOWLEDGE_LINE_FIELDS_H_
