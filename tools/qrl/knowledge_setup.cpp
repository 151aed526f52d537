// Knowledge lookup by the file system, and the loads with their messages.
#include "tools/qrl/knowledge_setup.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>
#include <vector>

#include "knowledge/dictionary.h"
#include "knowledge/tagger_files.h"
#include "tools/qrl/recode.h"

namespace Quorel {
namespace cli {

namespace fs = std::filesystem;

namespace {

const char kCompiledName[] = "qrl.klg";

// The weights the Java host hands the statistical tagger.
constexpr double kTaggerWeights[5] = {550.96, 370.28, 54.11, 8.8, 50.0};

bool HasCompiledFile(const fs::path& directory) {
  std::error_code ignored;
  return fs::is_regular_file(directory / kCompiledName, ignored);
}

}  // namespace

std::string FindKnowledgeDirectory() {
  if (HasCompiledFile("knowledge")) return "knowledge";
  std::error_code error;
  fs::path executable = fs::read_symlink("/proc/self/exe", error);
  if (error) return "";
  fs::path home = executable.parent_path();
  for (const fs::path& candidate : {home / "knowledge", home / ".." / "knowledge"}) {
    if (HasCompiledFile(candidate)) return candidate.lexically_normal().string();
  }
  return "";
}

namespace {

// True when a source dictionary of `directory` is written in UTF-8: the
// sources of a knowledge base (knowledge-src/), not a knowledge base.
bool SourcesInUtf8(const fs::path& directory) {
  for (const char* name : {"nng.dic", "em.dic", "js.dic", "vv.dic"}) {
    std::string content;
    if (ReadWholeFile((directory / name).string(), content)) {
      return IsUtf8Text(content);
    }
  }
  return false;
}

}  // namespace

bool LoadKnowledgeDirectory(QR_Knowledge& knowledge,
                            const std::string& directory, std::string& error) {
  std::error_code ignored;
  if (!fs::is_directory(directory, ignored)) {
    error = "no knowledge directory " + directory;
    return false;
  }
  bool compiled = HasCompiledFile(directory);
  if (!compiled && SourcesInUtf8(directory)) {
    error = "the knowledge in " + directory +
            " holds its dictionaries in UTF-8: they are the sources of a "
            "knowledge base; build one with tools/build_knowledge.py "
            "(scripts/setup.sh builds build/knowledge)";
    return false;
  }
  if (knowledge.LoadKnowledge(directory.c_str(), compiled, true) < 1) {
    error = "can't load the knowledge in " + directory +
            (compiled ? " (qrl.klg)" : " (source dictionaries)");
    return false;
  }
  const auto& dic = static_cast<const Dictionary&>(knowledge);
  if (dic.mainInfos.size() <= 1 && dic.jeInfos.size() <= 1) {
    error = "the knowledge in " + directory +
            " holds no word: neither qrl.klg nor a source dictionary "
            "(em.dic, js.dic, nng.dic, ...)";
    return false;
  }
  return true;
}

namespace {

// Runs `load` with the library's standard error going to a temporary file;
// returns what it wrote there.
template <typename Load>
std::string CaptureStandardError(Load load) {
  std::fflush(stderr);
  std::cerr.flush();
  char name[] = "/tmp/qrl-messages-XXXXXX";
  const int file = mkstemp(name);
  const int saved = file < 0 ? -1 : dup(STDERR_FILENO);
  if (saved < 0) {
    if (file >= 0) close(file);
    load();
    return "";
  }
  dup2(file, STDERR_FILENO);
  load();
  std::fflush(stderr);
  std::cerr.flush();
  dup2(saved, STDERR_FILENO);
  close(saved);
  close(file);
  std::string messages;
  ReadWholeFile(name, messages);
  unlink(name);
  return messages;
}

// Splits text at line ends.
std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
    start = end + 1;
  }
  return lines;
}

// Reports the library's messages of loading `path` (in CP949) in UTF-8: a
// message that quotes a line of the file names its line number.
void ReportRejected(const std::string& path, const std::string& loaded,
                    const std::string& messages) {
  if (messages.empty()) return;
  Recoder recoder;
  const std::vector<std::string> fileLines = LinesOf(loaded);
  std::vector<bool> named(fileLines.size(), false);
  size_t rejected = 0;
  for (const std::string& message : LinesOf(messages)) {
    if (message.empty()) continue;
    size_t number = 0;
    const size_t colon = message.rfind(" : ");
    if (colon != std::string::npos) {
      const std::string quoted = message.substr(colon + 3);
      for (size_t k = 0; k < fileLines.size(); ++k) {
        if (!named[k] && !quoted.empty() && fileLines[k] == quoted) {
          named[k] = true;
          number = k + 1;
          break;
        }
      }
    }
    std::cerr << "qrl: " << path;
    if (number > 0) {
      std::cerr << ":" << number;
      ++rejected;
    }
    std::cerr << ": " << recoder.ToUtf8(message.c_str()) << "\n";
  }
  if (rejected > 0) {
    std::cerr << "qrl: " << path << ": " << rejected
              << (rejected == 1 ? " line" : " lines") << " rejected\n";
  }
}

}  // namespace

bool LoadUserFile(QR_Knowledge& knowledge, const std::string& path,
                  UserFile kind, std::string& error) {
  Cp949Copy file(path);
  if (!file.Ok()) {
    error = "can't read " + path;
    return false;
  }
  const char* directory = file.Directory().c_str();
  const char* name = file.Name().c_str();
  int result = 0;
  const std::string messages = CaptureStandardError([&] {
    result = kind == UserFile::kUserNouns
                 ? knowledge.LoadUserNoun(directory, name, true)
                 : knowledge.LoadPreAnalysis(directory, name, true);
  });
  std::string loaded;
  ReadWholeFile(file.Path(), loaded);
  ReportRejected(path, loaded, messages);
  if (result < 1) {
    error = "can't load " + path;
    return false;
  }
  return true;
}

bool LoadTaggerKnowledge(QR_Knowledge& knowledge, const std::string& directory) {
  knowledge.LoadEojulRules(directory.c_str());
  knowledge.LoadGroupRules(directory.c_str());
  // The loader marks its progress on standard error; a user needn't see it.
  CaptureStandardError([&] { knowledge.LoadTagLists(directory.c_str()); });
  knowledge.SetTaggerWeights(kTaggerWeights[0], kTaggerWeights[1],
                             kTaggerWeights[2], kTaggerWeights[3],
                             kTaggerWeights[4]);
  return GetTagListId(static_cast<const Dictionary&>(knowledge), "FOS") >= 0;
}

}  // namespace cli
}  // namespace Quorel
