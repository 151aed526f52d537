// The build of the shipped knowledge base: its sources convert whole, a bad
// line stops the build with the line named, and the result loads silently.
#include <filesystem>
#include <fstream>
#include <string>

#include "gtest/gtest.h"
#include "knowledge/dictionary.h"
#include "knowledge_base/kb_helpers.h"

namespace {

using kbtest::CoreKnowledgeDir;


const char* const kFixedNames[] = {
    "em.dic", "js.dic", "nnb.dic", "nng.dic", "np.dic", "nnp.dic", "nu.dic",
    "vv.dic", "va.dic", "ma.dic", "mm.dic", "ic.dic", "vx.dic", "xp.dic",
    "xsn.dic", "xsnxsn.dic", "conj.dic", "preanal.sys.dic"};

std::string BuildCommand(const std::string& src, const std::string& out) {
  return std::string("python3 ") + QRLSL_SOURCE_DIR +
         "/tools/build_knowledge.py --no-hunspell --src " + src + " --out " + out;
}

TEST(KnowledgeBuild, WritesEveryFileInCp949AndTheRuleFolder) {
  const std::string& dir = CoreKnowledgeDir();
  for (const char* name : kFixedNames) {
    std::string text = kbtest::ReadFile(dir + "/" + name);
    EXPECT_FALSE(text.empty()) << name;
    // No comment line is copied (no CP949 trail byte is a ';').
    EXPECT_EQ(text.find(';'), std::string::npos) << name;
  }
  EXPECT_TRUE(std::filesystem::is_directory(dir + "/sinfo"));
  std::string em = kbtest::ReadFile(dir + "/em.dic");
  EXPECT_NE(em.find(kbtest::Cp949("다\t다/EF 401 0#ㄴ다/EF")), std::string::npos);
}

TEST(KnowledgeBuild, EverySourceLineConverts) {
  // The build fails and names the line when any source line is malformed,
  // so a clean run over knowledge-src/ means every line was taken.
  std::string errors;
  std::string out = kbtest::FreshDir("all_lines");
  EXPECT_EQ(kbtest::Run(BuildCommand(std::string(QRLSL_SOURCE_DIR) + "/knowledge-src", out),
                &errors),
            0);
  EXPECT_EQ(errors, "");
}

TEST(KnowledgeBuild, AMalformedLineFailsTheBuildAndIsNamed) {
  std::string src = kbtest::FreshDir("bad_src");
  {
    std::ofstream em(src + "/em.dic");
    em << "다\t다/EF 401 0\n"
       << "고\t고/EC 1 7\n"         // 7 is no ending type
       << "지\t지/XX 1 0\n"         // unknown tag
       << "면\t면/EC\n"             // attach missing
       << "데\t데/EC 1 5\n";        // a type 5 form begins with ㄴ
    std::ofstream nnb(src + "/nnb.dic");
    nnb << "것\t0\n개\n";           // a bound noun needs its number
  }
  std::string errors;
  EXPECT_EQ(kbtest::Run(BuildCommand(src, kbtest::FreshDir("bad_out")), &errors), 1);
  EXPECT_NE(errors.find("em.dic:2:"), std::string::npos) << errors;
  EXPECT_NE(errors.find("em.dic:3: unknown tag XX"), std::string::npos) << errors;
  EXPECT_NE(errors.find("em.dic:4:"), std::string::npos) << errors;
  EXPECT_NE(errors.find("em.dic:5: a fused ending"), std::string::npos) << errors;
  EXPECT_NE(errors.find("nnb.dic:2:"), std::string::npos) << errors;
  EXPECT_EQ(errors.find("em.dic:1:"), std::string::npos) << errors;
}

TEST(KnowledgeBuild, LoadsFromSourceAndCompiledFileWithoutMessages) {
  const std::string& dir = CoreKnowledgeDir();
  Quorel::Dictionary source(false);
  testing::internal::CaptureStderr();
  int loaded = source.LoadKnowledge(dir.c_str(), false, true);
  int preanal = source.LoadPreAnalysis(dir.c_str(), "preanal.sys.dic", true);
  std::string messages = testing::internal::GetCapturedStderr();
  EXPECT_EQ(loaded, 1);
  EXPECT_EQ(preanal, 1);
  EXPECT_EQ(messages, "");
  EXPECT_GT(source.mainInfos.size(), 2000u);
  EXPECT_GT(source.jeInfos.size(), 300u);

  std::string out = kbtest::FreshDir("compiled");
  testing::internal::CaptureStderr();
  EXPECT_TRUE(source.CompileKnowledge(dir.c_str(), out.c_str()));
  Quorel::Dictionary compiled(false);
  EXPECT_EQ(compiled.LoadKnowledge(out.c_str(), true, true), 1);
  messages = testing::internal::GetCapturedStderr();
  EXPECT_EQ(messages, "");
  EXPECT_EQ(compiled.mainInfos.size(), source.mainInfos.size());
}

}  // namespace
