#include "knowledge_base/kb_helpers.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "gtest/gtest.h"

namespace kbtest {

std::string FreshDir(const std::string& name) {
  // One folder per process: ctest runs the tests of this suite side by side,
  // each in a process of its own, and none may clear another's directory.
  std::filesystem::path dir = std::filesystem::path(testing::TempDir()) /
                              ("kb_" + std::to_string(getpid())) / name;
  std::filesystem::remove_all(dir);
  std::filesystem::create_directories(dir);
  return dir.string();
}

int Run(const std::string& command, std::string* errors) {
  std::string errorFile = FreshDir("stderr") + "/err.txt";
  int status = std::system((command + " >/dev/null 2>" + errorFile).c_str());
  if (errors != nullptr) *errors = ReadFile(errorFile);
  if (status == -1 || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

int BuildKnowledge(const std::string& arguments, std::string* errors) {
  return Run(std::string("python3 ") + QRLSL_SOURCE_DIR + "/tools/build_knowledge.py " +
                 arguments,
             errors);
}

const std::string& CoreKnowledgeDir() {
  static const std::string dir = [] {
    std::string out = FreshDir("core");
    std::string errors;
    int status = BuildKnowledge("--no-hunspell --out " + out, &errors);
    EXPECT_EQ(status, 0) << errors;
    return out;
  }();
  return dir;
}

Quorel::Dictionary* CoreKnowledgeSuite::dic = nullptr;

void CoreKnowledgeSuite::SetUpTestSuite() {
  dic = new Quorel::Dictionary(false);
  dic->LoadKnowledge(CoreKnowledgeDir().c_str(), false, true);
  dic->LoadPreAnalysis(CoreKnowledgeDir().c_str(), "preanal.sys.dic", true);
}

void CoreKnowledgeSuite::TearDownTestSuite() {
  delete dic;
  dic = nullptr;
}

}  // namespace kbtest
