// Test support for the driver suites: CP949 through the library's own
// converter, and an analyzer over a small knowledge directory written from
// UTF-8 source lines into a temporary directory.
#ifndef QRLSL_TESTS_ANALYZER_DRIVER_HELPERS_H_
#define QRLSL_TESTS_ANALYZER_DRIVER_HELPERS_H_

#include <map>
#include <string>
#include <vector>

#include "analyzer/m_analyzer.h"
#include "common/test_support.h"
#include "knowledge/dictionary.h"

namespace Quorel {
namespace testing_driver {

// UTF-8 to CP949 and back, from the shared support.
using Quorel::testsupport::Cp949;
using Quorel::testsupport::Utf8;

// One candidate as "form/TAG+form/TAG", in UTF-8.
std::string CandidateText(Eojul& e, int candidate);
// All candidates of `e`, in view order.
std::vector<std::string> Candidates(Eojul& e);

// A knowledge directory (file name -> UTF-8 content) loaded from source,
// with its pre-analysis file when one is given, and an analyzer on it.
class DriverFixture {
 public:
  explicit DriverFixture(const std::map<std::string, std::string>& files);
  ~DriverFixture();
  DriverFixture(const DriverFixture&) = delete;
  DriverFixture& operator=(const DriverFixture&) = delete;

  // SetString(CP949 of utf8), RunWithEojul; returns the analyzer's eojul.
  Eojul& Run(const std::string& utf8);
  // SetText with explicit type bits, then the cascade alone (no scoring).
  Eojul& Analyze(const std::string& utf8, unsigned type, int* result = nullptr);

  Dictionary knowledge{false};
  MAnalyzer analyzer{&knowledge};

 private:
  std::string dir;
};

// The small source dictionaries most driver tests share.
std::map<std::string, std::string> SmallKnowledge();

}  // namespace testing_driver
}  // namespace Quorel

#endif  // QRLSL_TESTS_ANALYZER_DRIVER_HELPERS_H_
