// Small file helpers shared by the knowledge loaders: reading a line of any
// length, joining a directory and a file name, and writing a loading message
// to standard error.
#ifndef QRLSL_KNOWLEDGE_KNOWLEDGE_IO_H_
#define QRLSL_KNOWLEDGE_KNOWLEDGE_IO_H_

#include <cstdio>
#include <string>

#include "text/strings.h"

namespace Quorel {

// Reads the next line into `line` without its LF (and a CR before it).
// False at the end of the file when nothing was read.
bool ReadLine(std::FILE* file, StringEx& line);
// directory + "/" + name, the separator left out when the directory already
// ends in "/" or "\\" (when `always` is false).
std::string JoinPath(const char* directory, const char* name,
                     bool always = true);
// Writes the parts, then a line end, to standard error.
void Report(const char* a, const char* b = "", const char* c = "",
            const char* d = "");

}  // namespace Quorel

#endif  // QRLSL_KNOWLEDGE_KNOWLEDGE_IO_H_
