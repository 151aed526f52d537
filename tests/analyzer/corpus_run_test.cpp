// Every eojul of the annotated corpus (the FORM column of its CoNLL-U
// files) through RunWithEojul: no crash, and at least one candidate each,
// with the small driver knowledge and with the shipped knowledge sources.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "analyzer/driver_helpers.h"
#include "common/test_support.h"

namespace Quorel {
namespace {

using testing_driver::Cp949;
using testing_driver::DriverFixture;
using testing_driver::SmallKnowledge;

const std::filesystem::path kSourceDir(QRLSL_SOURCE_DIR);

// The forms of the corpus that have a CP949 spelling, in file order.
std::vector<std::string> CorpusForms() {
  std::vector<std::string> forms;
  for (const std::string& form : testsupport::CorpusForms()) {
    if (!Cp949(form).empty()) forms.push_back(form);
  }
  return forms;
}

// Runs every form; each candidate has morphemes with a lexicon and a score
// that is not negative (an unregistered word beside other candidates earns
// nothing). Returns the number of forms whose best candidate holds two
// nouns or more.
long RunAll(DriverFixture& fixture, const std::vector<std::string>& forms) {
  fixture.analyzer.SetOption(0, 3);
  long divided = 0;
  for (const std::string& form : forms) {
    Eojul& e = fixture.Run(form);
    EXPECT_GE(e.GetListSize(), 1) << form;
    for (int c = 0; c < e.GetListSize(); ++c) {
      EXPECT_GE(e.GetCount(c), 1) << form;
      for (int m = 0; m < e.GetCount(c); ++m) {
        EXPECT_NE('\0', e.GetLexicon(c, m)[0]) << form;
      }
      EXPECT_GE(e.GetScore(c), 0.0) << form;
    }
    if (e.GetCount(0) > 1 && (e.GetPOS(0, 0) & 0x40000000) != 0 &&
        (e.GetPOS(0, 1) & 0x40000000) != 0) {
      ++divided;
    }
    if (::testing::Test::HasFailure()) break;
  }
  return divided;
}

// The UTF-8 source dictionaries of the shipped knowledge, without the
// pre-analysis file, so that every eojul goes through the routes.
std::map<std::string, std::string> ShippedSources() {
  std::map<std::string, std::string> files;
  for (const auto& entry :
       std::filesystem::directory_iterator(kSourceDir / "knowledge-src")) {
    const std::string name = entry.path().filename().string();
    if (entry.path().extension() == ".dic" && name != "preanal.sys.dic") {
      files[name] = testsupport::ReadFile(entry.path().string());
    }
  }
  return files;
}

class CorpusRunTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (testsupport::CorpusDirectory().empty()) {
      GTEST_SKIP() << "no corpus beside the repository";
    }
    forms = CorpusForms();
    ASSERT_FALSE(forms.empty());
  }

  std::vector<std::string> forms;
};

TEST_F(CorpusRunTest, EveryEojulGetsACandidate) {
  DriverFixture fixture(SmallKnowledge());
  RunAll(fixture, forms);
}

TEST_F(CorpusRunTest, ShippedKnowledgeDividesCompoundsAndLeavesNoEojulBare) {
  if (!std::filesystem::is_directory(kSourceDir / "knowledge-src")) {
    GTEST_SKIP() << "no knowledge sources";
  }
  DriverFixture fixture(ShippedSources());
  EXPECT_GT(RunAll(fixture, forms), 0);
}

}  // namespace
}  // namespace Quorel
