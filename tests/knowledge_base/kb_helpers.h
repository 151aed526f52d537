// Helpers of the knowledge-base tests: running the Python build tools,
// CP949 literals, and one knowledge directory built for the whole suite.
#ifndef QRLSL_TESTS_KNOWLEDGE_BASE_KB_HELPERS_H_
#define QRLSL_TESTS_KNOWLEDGE_BASE_KB_HELPERS_H_

#include <string>

#include "common/test_support.h"
#include "gtest/gtest.h"
#include "knowledge/dictionary.h"

namespace kbtest {

// A fresh, empty directory under the test temporary directory.
std::string FreshDir(const std::string& name);
// Runs a command line; its standard error goes to `errors` (may be null).
// Returns the exit status, or -1 when the command can't be started.
int Run(const std::string& command, std::string* errors);
// UTF-8 to CP949 and back, and the whole text of a file.
using Quorel::testsupport::Cp949;
using Quorel::testsupport::ReadFile;
using Quorel::testsupport::Utf8;
// The knowledge directory that tools/build_knowledge.py makes from
// knowledge-src/ without the Hunspell lists, built once per run.
const std::string& CoreKnowledgeDir();
// Runs tools/build_knowledge.py with `arguments`; as Run.
int BuildKnowledge(const std::string& arguments, std::string* errors);

// A suite over the core knowledge, loaded once per suite with its
// pre-analysis into `dic`.
class CoreKnowledgeSuite : public testing::Test {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();
  static Quorel::Dictionary* dic;
};

}  // namespace kbtest

#endif  // QRLSL_TESTS_KNOWLEDGE_BASE_KB_HELPERS_H_
