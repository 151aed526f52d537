// Test support for the knowledge suites: CP949 conversion of UTF-8 literals,
// a scratch directory, and the small knowledge directory the suites share.
#ifndef QRLSL_TESTS_KNOWLEDGE_KNOWLEDGE_HELPERS_H_
#define QRLSL_TESTS_KNOWLEDGE_KNOWLEDGE_HELPERS_H_

#include <string>

#include "common/test_support.h"

namespace Quorel {
namespace testing_knowledge {

// CP949 conversion and the scratch directory come from the shared support.
using Quorel::testsupport::Cp949;
using Quorel::testsupport::TempDir;
using Quorel::testsupport::Utf8;

// Writes the small source knowledge directory the suites use.
void WriteSmallKnowledge(const TempDir& dir);

}  // namespace testing_knowledge
}  // namespace Quorel

#endif  // QRLSL_TESTS_KNOWLEDGE_KNOWLEDGE_HELPERS_H_
