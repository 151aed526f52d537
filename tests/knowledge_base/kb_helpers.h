// Helpers of the knowledge-base tests: running the Python build tools,
// CP949 literals, and one knowledge directory built for the whole suite.
#ifndef QRLSL_TESTS_KNOWLEDGE_BASE_KB_HELPERS_H_
#define QRLSL_TESTS_KNOWLEDGE_BASE_KB_HELPERS_H_

#include <string>

namespace kbtest {

// A fresh, empty directory under the test temporary directory.
std::string FreshDir(const std::string& name);
// Runs a command line; its standard error goes to `errors` (may be null).
// Returns the exit status, or -1 when the command can't be started.
int Run(const std::string& command, std::string* errors);
// UTF-8 to CP949 and back.
std::string Cp949(const std::string& utf8);
std::string Utf8(const std::string& cp949);
// The knowledge directory that tools/build_knowledge.py makes from
// knowledge-src/ without the Hunspell lists, built once per run.
const std::string& CoreKnowledgeDir();
// The whole text of a file, empty when it can't be read.
std::string ReadFile(const std::string& path);

}  // namespace kbtest

#endif  // QRLSL_TESTS_KNOWLEDGE_BASE_KB_HELPERS_H_
