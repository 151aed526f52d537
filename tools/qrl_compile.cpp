// qrl_compile: builds the knowledge of a source directory and writes its
// compiled file qrl.klg.
//
//   qrl_compile <knowledge-dir> [<output-dir>]
//
// The output directory defaults to the knowledge directory. Loading messages
// and errors go to standard error; the exit status is 0 on success.
#include <cstdio>
#include <cstring>
#include <string>

#include <sys/stat.h>

#include "knowledge/dictionary.h"

namespace {

void Usage(std::FILE* out) {
  std::fputs(
      "usage: qrl_compile <knowledge-dir> [<output-dir>]\n"
      "Builds the source dictionaries of <knowledge-dir> (with its\n"
      "preanal.sys.dic) and writes <output-dir>/qrl.klg; <output-dir>\n"
      "defaults to <knowledge-dir>.\n",
      out);
}

bool IsDirectory(const char* path) {
  struct stat info;
  return stat(path, &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc >= 2 && (std::strcmp(argv[1], "--help") == 0 ||
                    std::strcmp(argv[1], "-h") == 0)) {
    Usage(stdout);
    return 0;
  }
  if (argc < 2 || argc > 3 || argv[1][0] == '\0') {
    Usage(stderr);
    return 2;
  }
  const char* source = argv[1];
  const char* output = argc == 3 ? argv[2] : argv[1];
  // Every source file is optional, so a mistyped directory would otherwise
  // give an empty knowledge.
  if (!IsDirectory(source)) {
    std::fprintf(stderr, "qrl_compile: %s is not a directory\n", source);
    return 1;
  }
  Quorel::Dictionary dictionary(false);
  if (!dictionary.CompileKnowledge(source, output)) {
    std::fprintf(stderr, "qrl_compile: could not compile %s into %s/qrl.klg\n",
                 source, output);
    return 1;
  }
  return 0;
}
