// Running the built qrl from the tests: a private scratch directory for each
// test, the command's exit status and both output streams, and small text
// utilities for reading what it wrote.
#ifndef QRLSL_TESTS_CLI_RUN_HELPERS_H_
#define QRLSL_TESTS_CLI_RUN_HELPERS_H_

#include <string>
#include <vector>

namespace clitest {

struct RunResult {
  int status = -1;  // the exit status; -1 when qrl did not exit normally
  std::string out;
  std::string err;
};

// A fresh directory under the system's temporary directory, removed with
// the object.
class ScratchDir {
 public:
  ScratchDir();
  ~ScratchDir();
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  const std::string& Path() const { return path; }
  // Writes `content` to Path()/name (subdirectories are made) and returns
  // the file's full path.
  std::string Write(const std::string& name, const std::string& content) const;

 private:
  std::string path;
};

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
// CP949 form of UTF-8 text, through the library's converter.
std::string ToCp949(const std::string& utf8);
// Contents of a file; empty when it can't be read.
std::string ReadFile(const std::string& path);

}  // namespace clitest

#endif  // QRLSL_TESTS_CLI_RUN_HELPERS_H_
