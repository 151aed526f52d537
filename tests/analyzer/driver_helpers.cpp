#include "analyzer/driver_helpers.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "eojul/tag_set.h"

namespace Quorel {
namespace testing_driver {

std::string CandidateText(Eojul& e, int candidate) {
  std::string text;
  for (int m = 0; m < e.GetCount(candidate); ++m) {
    if (m > 0) text += "+";
    text += Utf8(e.GetLexicon(candidate, m));
    text += "/";
    text += e.GetStrPOS(candidate, m);
  }
  return text;
}

std::vector<std::string> Candidates(Eojul& e) {
  std::vector<std::string> all;
  for (int c = 0; c < e.GetListSize(); ++c) all.push_back(CandidateText(e, c));
  return all;
}

DriverFixture::DriverFixture(const std::map<std::string, std::string>& files) {
  std::string pattern =
      (std::filesystem::temp_directory_path() / "qrlsl_driver_XXXXXX").string();
  if (mkdtemp(&pattern[0]) == nullptr) throw std::runtime_error("mkdtemp");
  dir = pattern;
  for (const auto& file : files) {
    std::ofstream out(dir + "/" + file.first, std::ios::binary);
    out << Cp949(file.second);
  }
  knowledge.LoadKnowledge(dir.c_str(), false, true);
  if (files.count("preanal.sys.dic") != 0) {
    knowledge.LoadPreAnalysis(dir.c_str(), "preanal.sys.dic", true);
  }
}

DriverFixture::~DriverFixture() {
  std::error_code ignored;
  std::filesystem::remove_all(dir, ignored);
}

Eojul& DriverFixture::Run(const std::string& utf8) {
  Eojul& e = *analyzer.CurrentEojul();
  e.SetString(Cp949(utf8).c_str());
  analyzer.RunWithEojul();
  return e;
}

Eojul& DriverFixture::Analyze(const std::string& utf8, unsigned type,
                              int* result) {
  Eojul& e = *analyzer.CurrentEojul();
  e.SetText(Cp949(utf8).c_str(), type);
  int r = analyzer.AnalyzeEojul(e);
  if (result != nullptr) *result = r;
  return e;
}

std::map<std::string, std::string> SmallKnowledge() {
  return {
      {"nng.dic", "학교\n나\n도서관\n사과\n"},
      {"np.dic", "나\n"},
      {"vv.dic", "먹\n가\n"},
      // 다 reads as written after a closed stem, and as ㄴ다 fused into
      // a final ㄴ (type 5).
      {"em.dic", "다\t다/EF 0#ㄴ다/EF 0 5\n는다\t는다/EF 1\n기\t기/ETN 0\n"},
      {"js.dic", "가\t가/JK 2\n이\t이/JK 1\n에서\t에서/JK 0\n도\t도/JX 0\n"
                 "는\t는/JX 2\n를\t를/JK 2\n"},
  };
}

}  // namespace testing_driver
}  // namespace Quorel
