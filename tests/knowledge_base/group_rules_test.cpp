// The shipped group rules of the tagger's rule pass: they convert and load
// without a message, and in tagging mode 1 they take the auxiliary reading
// of a predicate behind the ending that governs it, and only there.
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "gtest/gtest.h"
#include "knowledge/dictionary.h"
#include "knowledge_base/kb_helpers.h"
#include "qrlsl/qrlsl.h"

namespace {

using kbtest::Cp949;
using kbtest::Utf8;

// Rule lines of a rule source: neither empty nor a comment.
size_t RuleLines(const std::string& path) {
  std::istringstream in(kbtest::ReadFile(path));
  std::string line;
  size_t count = 0;
  while (std::getline(in, line)) {
    if (!line.empty() && line[0] != ';' && line[0] != '/' && line[0] != ' ') ++count;
  }
  return count;
}

class GroupRules : public kbtest::CoreKnowledgeSuite {
 protected:
  static void SetUpTestSuite() {
    CoreKnowledgeSuite::SetUpTestSuite();
    testing::internal::CaptureStderr();
    loaded = dic->LoadGroupRules(kbtest::CoreKnowledgeDir().c_str());
    messages = testing::internal::GetCapturedStderr();
  }
  // The tag of the first morpheme of each eojul after tagging `text`.
  static std::string FirstTags(const std::string& text, int mode) {
    std::unique_ptr<Quorel::QR_Analyzer> analyzer(Quorel::CreateAnalyzer(dic));
    analyzer->SetExOption(1);
    analyzer->RunWithString(Cp949(text).c_str());
    analyzer->Tagging(mode);
    std::string out;
    for (int i = 0; i < analyzer->GetEojulCountInSentence(); ++i) {
      Quorel::QR_Eojul* e = analyzer->GetEojulInSentence(i);
      if (!out.empty()) out += " ";
      out += e->GetCount(0) > 0 ? Utf8(e->GetLexicon(0, 0)) + "/" + e->GetStrPOS(0, 0) : "-";
    }
    return out;
  }

  static int loaded;
  static std::string messages;
};
int GroupRules::loaded = 0;
std::string GroupRules::messages;

TEST_F(GroupRules, EveryRuleLoadsSilently) {
  EXPECT_EQ(loaded, 1);
  EXPECT_EQ(messages, "");
  size_t lines = RuleLines(std::string(QRLSL_SOURCE_DIR) + "/knowledge-src/sinfo/grule.klg");
  ASSERT_GT(lines, 0u);
  EXPECT_EQ(dic->groupRules.size(), lines);
}

TEST_F(GroupRules, AnAuxiliaryFollowsTheEndingThatGovernsIt) {
  EXPECT_EQ(FirstTags("먹고 있다", 1), "먹/VV 있/VX");
  EXPECT_EQ(FirstTags("먹지 않는다", 1), "먹/VV 않/VX");
  EXPECT_EQ(FirstTags("먹어 보았다", 1), "먹/VV 보/VX");
  // Behind a josa the same words are main verbs.
  EXPECT_EQ(FirstTags("책이 있다", 1), "책/NNG 있/VV");
  EXPECT_EQ(FirstTags("영화를 보았다", 1), "영화/NNG 보/VV");
}

TEST(GroupRuleSource, AMalformedRuleFailsTheBuildAndIsNamed) {
  std::string src = kbtest::FreshDir("grule_src");
  std::filesystem::create_directories(src + "/sinfo");
  {
    std::ofstream rules(src + "/sinfo/grule.klg");
    rules << "[$][EC][:고:]\t@[1][VX][:있:]\n"  // sound
          << "[$][EC][:고:]\t[1][VX]\n"         // no @
          << "[$][XYZ]\t@[1][VX]\n"             // unknown tag
          << "[a][EC]\t@[1][VX]\n"              // bad index
          << "[$][EC][고]\t@[1][VX]\n";         // lexicons without ":"
    std::ofstream(src + "/sinfo/erule.klg") << "있다\t1\n있다\tx\n";
  }
  std::string errors;
  std::string out = kbtest::FreshDir("grule_out");
  EXPECT_EQ(kbtest::BuildKnowledge("--no-hunspell --src " + src + " --out " + out, &errors), 1);
  EXPECT_EQ(errors.find("grule.klg:1:"), std::string::npos) << errors;
  EXPECT_NE(errors.find("grule.klg:2: a rule has one pattern marked with @"),
            std::string::npos) << errors;
  EXPECT_NE(errors.find("grule.klg:3: unknown tag XYZ"), std::string::npos) << errors;
  EXPECT_NE(errors.find("grule.klg:4:"), std::string::npos) << errors;
  EXPECT_NE(errors.find("grule.klg:5:"), std::string::npos) << errors;
  EXPECT_EQ(errors.find("erule.klg:1:"), std::string::npos) << errors;
  EXPECT_NE(errors.find("erule.klg:2:"), std::string::npos) << errors;
}

}  // namespace
