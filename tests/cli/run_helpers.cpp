// qrl runs through the shell with its streams redirected to files of the
// scratch directory; arguments are single-quoted.
#include "cli/run_helpers.h"

#include <stdlib.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "text/charset.h"

namespace clitest {

namespace fs = std::filesystem;

namespace {

std::string Quote(const std::string& word) {
  std::string quoted = "'";
  for (char c : word) {
    if (c == '\'') {
      quoted += "'\\''";
    } else {
      quoted += c;
    }
  }
  return quoted + "'";
}

}  // namespace

std::string TinyKnowledge(const ScratchDir& dir, const std::string& name) {
  dir.Write(name + "/ic.dic", ToCp949("어이쿠\n"));
  return dir.Path() + "/" + name;
}

RunResult RunQrl(const std::vector<std::string>& args,
                 const std::string& input, const std::string& directory) {
  ScratchDir streams;
  std::string in = streams.Write("stdin", input);
  std::string out = streams.Path() + "/stdout";
  std::string err = streams.Path() + "/stderr";
  std::string command = "cd " + Quote(directory) + " && " + Quote(QRL_BINARY);
  for (const std::string& arg : args) command += " " + Quote(arg);
  command += " <" + Quote(in) + " >" + Quote(out) + " 2>" + Quote(err);
  int raw = std::system(command.c_str());
  RunResult result;
  if (raw != -1 && WIFEXITED(raw)) result.status = WEXITSTATUS(raw);
  result.out = ReadFile(out);
  result.err = ReadFile(err);
  return result;
}

bool RunOnTerminal(const std::vector<std::string>& args,
                   const std::string& directory, std::string& shown) {
  if (std::system("script --version >/dev/null 2>&1") != 0) return false;
  ScratchDir capture;
  std::string inner = "cd " + Quote(directory) + " && " + Quote(QRL_BINARY);
  for (const std::string& arg : args) inner += " " + Quote(arg);
  inner += " >/dev/null </dev/null";
  std::string typescript = capture.Path() + "/typescript";
  std::string command = "script -qec " + Quote(inner) + " " + Quote(typescript) +
                        " >/dev/null 2>&1 </dev/null";
  if (std::system(command.c_str()) != 0) return false;
  shown = ReadFile(typescript);
  return true;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  std::string line;
  while (std::getline(in, line)) lines.push_back(line);
  return lines;
}

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields;
  size_t start = 0;
  while (true) {
    size_t tab = line.find('\t', start);
    fields.push_back(line.substr(start, tab - start));
    if (tab == std::string::npos) return fields;
    start = tab + 1;
  }
}

}  // namespace clitest
