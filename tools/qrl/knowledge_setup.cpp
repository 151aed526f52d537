// Knowledge lookup by the file system, and the loads with their messages.
#include "tools/qrl/knowledge_setup.h"

#include <filesystem>
#include <system_error>

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

bool LoadKnowledgeDirectory(QR_Knowledge& knowledge,
                            const std::string& directory, std::string& error) {
  std::error_code ignored;
  if (!fs::is_directory(directory, ignored)) {
    error = "no knowledge directory " + directory;
    return false;
  }
  bool compiled = HasCompiledFile(directory);
  if (knowledge.LoadKnowledge(directory.c_str(), compiled, true) < 1) {
    error = "can't load the knowledge in " + directory +
            (compiled ? " (qrl.klg)" : " (source dictionaries)");
    return false;
  }
  return true;
}

bool LoadUserFile(QR_Knowledge& knowledge, const std::string& path,
                  UserFile kind, std::string& error) {
  Cp949Copy file(path);
  if (!file.Ok()) {
    error = "can't read " + path;
    return false;
  }
  const char* directory = file.Directory().c_str();
  const char* name = file.Name().c_str();
  int result = kind == UserFile::kUserNouns
                   ? knowledge.LoadUserNoun(directory, name, true)
                   : knowledge.LoadPreAnalysis(directory, name, true);
  if (result < 1) {
    error = "can't load " + path;
    return false;
  }
  return true;
}

void LoadTaggerKnowledge(QR_Knowledge& knowledge, const std::string& directory) {
  knowledge.LoadEojulRules(directory.c_str());
  knowledge.LoadGroupRules(directory.c_str());
  knowledge.LoadTagLists(directory.c_str());
  knowledge.SetTaggerWeights(kTaggerWeights[0], kTaggerWeights[1],
                             kTaggerWeights[2], kTaggerWeights[3],
                             kTaggerWeights[4]);
}

}  // namespace cli
}  // namespace Quorel
