// Running the built qrl from the tests: a private scratch directory for each
// test, the command's exit status and both output streams, and small text
// utilities for reading what it wrote.
#ifndef QRLSL_TESTS_CLI_RUN_HELPERS_H_
#define QRLSL_TESTS_CLI_RUN_HELPERS_H_

#include <string>
#include <vector>

#include "common/test_support.h"

namespace clitest {

struct RunResult {
  int status = -1;  // the exit status; -1 when qrl did not exit normally
  std::string out;
  std::string err;
};

// The shared scratch directory, whose Write takes the content as it is.
class ScratchDir : public Quorel::testsupport::TempDir {
 public:
  std::string Write(const std::string& name, const std::string& content) const {
    return WriteRaw(name, content);
  }
};

// A knowledge directory `name` under `dir` that holds one word only (the
// interjection 어이쿠, in CP949), so that what a test analyses comes from
// its own pre-analysis or user files; its path. qrl refuses a knowledge
// directory that holds no word at all.
std::string TinyKnowledge(const ScratchDir& dir, const std::string& name = "tiny");

// Runs qrl with `args` in `directory`, with `input` as its standard input.
RunResult RunQrl(const std::vector<std::string>& args,
                 const std::string& input, const std::string& directory);

// Runs qrl with `args` in `directory` with its standard error on a pseudo
// terminal (through util-linux `script`) and its standard output discarded;
// what the terminal showed. False when no such terminal can be had.
bool RunOnTerminal(const std::vector<std::string>& args,
                   const std::string& directory, std::string& shown);

// The lines of `text` without their line ends (no empty last line).
std::vector<std::string> Lines(const std::string& text);
// `line` cut at every TAB.
std::vector<std::string> Fields(const std::string& line);
// CP949 form of UTF-8 text, and the contents of a file.
inline std::string ToCp949(const std::string& utf8) {
  return Quorel::testsupport::Cp949(utf8);
}
using Quorel::testsupport::ReadFile;

}  // namespace clitest

#endif  // QRLSL_TESTS_CLI_RUN_HELPERS_H_
