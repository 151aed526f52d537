// Test support for the divider suites: CP949 from UTF-8 literals through the
// library's converter, a scratch knowledge directory, and a readable form of
// the divider's pattern string.
#ifndef QRLSL_TESTS_NOUN_DIVIDER_DIVIDER_HELPERS_H_
#define QRLSL_TESTS_NOUN_DIVIDER_DIVIDER_HELPERS_H_

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "analyzer/noun_divider.h"
#include "common/test_support.h"
#include "knowledge/dictionary.h"

namespace Quorel {
namespace testing_divider {

// CP949 conversion and the scratch directory come from the shared support.
using Quorel::testsupport::Cp949;
using Quorel::testsupport::TempDir;
using Quorel::testsupport::Utf8;

// Source files by name (UTF-8 content); every file of the knowledge
// directory that isn't given is written empty.
using SourceFiles = std::map<std::string, std::string>;

// A Dictionary loaded from the source files, with the directory kept alive.
struct Knowledge {
  TempDir dir;
  Dictionary dictionary{false};
};
std::unique_ptr<Knowledge> LoadKnowledge(const SourceFiles& files);

// The small knowledge most cases share: a few nouns, josa with their attach
// masks, suffix, prefix and conjunction lists, stored divisions and
// frequencies.
const SourceFiles& SmallFiles();

// A suite on SmallFiles(), loaded once; each test has a fresh divider bound
// to it.
class SmallKnowledgeTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    knowledge = LoadKnowledge(SmallFiles()).release();
  }
  static void TearDownTestSuite() {
    delete knowledge;
    knowledge = nullptr;
  }
  void SetUp() override { divider.Bind(&knowledge->dictionary); }

  static Knowledge* knowledge;
  NounDivider divider;
};

// The pattern string in words: "$", "%", or the first byte as a number, ":",
// then the groups separated by "@", each element as its letter (if any) and
// length, elements separated by ",". A missing '$' shows as "<open>".
std::string Render(const char* output);

// Rows of the divider that are alive after Enumerate.
std::vector<int> LiveRows(const NounDivider& d);
// A row in words: the elements as in Render, letters of plain nouns as "".
std::string RowShape(const NounDivider& d, int row);

}  // namespace testing_divider
}  // namespace Quorel

#endif  // QRLSL_TESTS_NOUN_DIVIDER_DIVIDER_HELPERS_H_
