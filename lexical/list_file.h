// Helpers shared by the stop-word and synonym loaders: joining a directory
// and a file name, reading a line of any length, the rule that skips comment
// and blank lines, and cutting white space at the end of a line.
// Used at load time only.
#ifndef QRLSL_LEXICAL_LIST_FILE_H_
#define QRLSL_LEXICAL_LIST_FILE_H_

#include <cstdio>
#include <string>

namespace Quorel {

// path + fileName, with "/" in between unless path ends in "/" or "\\".
std::string JoinPath(const char* path, const char* fileName);

// Reads the next line without its line feed into `line`. False at the end of
// the file when nothing was read.
bool ReadLine(FILE* file, std::string& line);

// True for an empty line or one that begins with ";", "/", a space, a TAB,
// a line feed or a carriage return.
bool IsSkippedLine(const char* line);

// Blank, TAB, CR or LF.
inline bool IsLineSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Removes blanks, TABs, CRs and LFs from the end of `line`.
void CutTrailingSpace(std::string& line);

}  // namespace Quorel

#endif  // QRLSL_LEXICAL_LIST_FILE_H_
