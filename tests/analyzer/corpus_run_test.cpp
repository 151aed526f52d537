// Every eojul of the annotated corpus (the FORM column of its CoNLL-U
// files) through RunWithEojul: no crash, and at least one candidate each.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "analyzer/driver_helpers.h"

namespace Quorel {
namespace {

using testing_driver::Cp949;
using testing_driver::DriverFixture;
using testing_driver::SmallKnowledge;

TEST(CorpusRunTest, EveryEojulGetsACandidate) {
  const std::filesystem::path corpus =
      std::filesystem::path(QRLSL_SOURCE_DIR) / ".." / "shared" / "corpus";
  if (!std::filesystem::is_directory(corpus)) {
    GTEST_SKIP() << "no corpus at " << corpus;
  }
  DriverFixture fixture(SmallKnowledge());
  fixture.analyzer.SetOption(0, 3);
  long forms = 0;
  for (const auto& entry :
       std::filesystem::recursive_directory_iterator(corpus)) {
    if (entry.path().extension() != ".conllu") continue;
    std::ifstream in(entry.path());
    std::string line;
    while (std::getline(in, line)) {
      if (line.empty() || line[0] == '#') continue;
      std::istringstream fields(line);
      std::string id;
      std::string form;
      if (!std::getline(fields, id, '\t') || !std::getline(fields, form, '\t')) {
        continue;
      }
      const std::string cp949 = Cp949(form);
      if (cp949.empty()) continue;
      Eojul& e = fixture.Run(form);
      ASSERT_GE(e.GetListSize(), 1) << form << " in " << entry.path();
      for (int c = 0; c < e.GetListSize(); ++c) {
        ASSERT_GE(e.GetCount(c), 1) << form;
        // An unregistered word beside other candidates earns nothing.
        ASSERT_GE(e.GetScore(c), 0.0) << form;
      }
      ++forms;
    }
  }
  EXPECT_GT(forms, 0);
}

}  // namespace
}  // namespace Quorel
