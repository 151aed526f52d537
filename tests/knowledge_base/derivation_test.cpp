// Predicates built of a noun or root and a derivational suffix are stored
// as the noun, and the analyzer reads the suffix; endings that follow a
// prefinal ending (었, 겠, 시) take that route with the shipped knowledge.
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>

#include "gtest/gtest.h"
#include "knowledge/dictionary.h"
#include "knowledge_base/kb_helpers.h"
#include "qrlsl/qrlsl.h"

namespace {

using kbtest::Cp949;
using kbtest::Utf8;

std::set<std::string> Lines(const std::string& path) {
  std::set<std::string> lines;
  std::istringstream in(kbtest::Utf8(kbtest::ReadFile(path)));
  std::string line;
  while (std::getline(in, line)) lines.insert(line);
  return lines;
}

TEST(DerivedPredicates, NounPlusSuffixIsStoredAsTheNoun) {
  std::string src = kbtest::FreshDir("derived_src");
  {
    std::ofstream(src + "/nng.dic") << "공부\n사용\n자연\n말\n";
    std::ofstream(src + "/vv.dic") << "공부하\n사용되\n통하\n말하\n좋아하\n먹\n"
                                   << "미워하\tㅂ\n";
    std::ofstream(src + "/va.dic") << "깨끗하\n자연스럽\tㅂ\n기쁘\n하게하\n";
  }
  std::string out = kbtest::FreshDir("derived_out");
  std::string errors;
  ASSERT_EQ(kbtest::BuildKnowledge("--no-hunspell --src " + src + " --out " + out, &errors), 0)
      << errors;
  // One-syllable bases (통하, 말하) and 아/어 forms before 하 stay whole.
  EXPECT_EQ(Lines(out + "/vv.dic"),
            (std::set<std::string>{"통하", "말하", "좋아하", "먹", "미워하\tㅂ"}));
  // An inflected form before 하 is no root (하게 하다).
  EXPECT_EQ(Lines(out + "/va.dic"), (std::set<std::string>{"기쁘", "하게하"}));
  // A root before 하 that is no noun joins the nouns.
  EXPECT_EQ(Lines(out + "/nng.dic"),
            (std::set<std::string>{"공부", "사용", "자연", "말", "깨끗"}));
}

TEST(RemovedWords, ABangLineTakesAWordOutOfEveryListOfItsFile) {
  // The Hunspell sample brings 가깝 as an adjective; "!가깝" in our own
  // va.dic leaves it out, with or without its irregular class.
  std::string src = kbtest::FreshDir("removed_src");
  {
    std::ofstream(src + "/va.dic") << "기쁘\n!가깝\n";
    std::ofstream(src + "/nng.dic") << "@학교\n!학교\n사람\n물\n";
  }
  std::string data = std::string(QRLSL_TEST_DATA_DIR) + "/knowledge_base";
  std::string out = kbtest::FreshDir("removed_out");
  std::string errors;
  std::string arguments = "--src " + src + " --out " + out + " --hunspell-dic " + data +
                          "/sample.dic --hunspell-aff " + data + "/sample.aff";
  ASSERT_EQ(kbtest::BuildKnowledge(arguments, &errors), 0) << errors;
  std::set<std::string> va = Lines(out + "/va.dic");
  EXPECT_EQ(va.count("가깝\tㅂ"), 0u);
  EXPECT_EQ(va.count("기쁘"), 1u);
  std::set<std::string> nng = Lines(out + "/nng.dic");
  EXPECT_EQ(nng.count("@학교"), 0u);
  EXPECT_EQ(nng.count("사람"), 1u);
  // One-syllable nouns come from our own list alone: the sample's 강 is
  // left out, our 물 stays.
  EXPECT_EQ(nng.count("강"), 0u);
  EXPECT_EQ(nng.count("물"), 1u);
  for (const std::string& line : nng) EXPECT_NE(line[0], '!') << line;

  std::ofstream(src + "/va.dic") << "!가깝\n!\n";  // a bang without its word
  std::string bad = kbtest::FreshDir("removed_bad");
  EXPECT_EQ(kbtest::BuildKnowledge("--no-hunspell --src " + src + " --out " + bad, &errors), 1);
  EXPECT_NE(errors.find("va.dic:2: a word to remove"), std::string::npos) << errors;
}

class CoreAnalysis : public kbtest::CoreKnowledgeSuite {
 protected:

  // Every candidate of the one eojul `word`, as lexicon/TAG+... in UTF-8.
  static std::set<std::string> Candidates(const std::string& word) {
    std::unique_ptr<Quorel::QR_Analyzer> analyzer(Quorel::CreateAnalyzer(dic));
    analyzer->SetExOption(1);
    analyzer->RunWithString(Cp949(word).c_str());
    std::set<std::string> out;
    if (analyzer->GetEojulCountInSentence() != 1) return out;
    Quorel::QR_Eojul* e = analyzer->GetEojulInSentence(0);
    for (int c = 0; c < e->GetListSize(); ++c) {
      std::string text;
      for (int m = 0; m < e->GetCount(c); ++m) {
        if (m > 0) text += "+";
        text += Utf8(e->GetLexicon(c, m)) + "/" + e->GetStrPOS(c, m);
      }
      out.insert(text);
    }
    return out;
  }
};

TEST_F(CoreAnalysis, EndingsFollowPrefinalEndings) {
  EXPECT_EQ(Candidates("먹었습니다").count("먹/VV+었/EP+습니다/EM"), 1u);
  EXPECT_EQ(Candidates("먹었는데").count("먹/VV+었/EP+는데/EM"), 1u);
  EXPECT_EQ(Candidates("가겠습니까").count("가/VV+겠/EP+습니까/EM"), 1u);
  EXPECT_EQ(Candidates("하시는").count("하/VV+시/EP+는/ETM"), 1u);
  EXPECT_EQ(Candidates("하십니다").count("하/VV+시/EP+ㅂ니다/EM"), 1u);
  EXPECT_EQ(Candidates("가시려고").count("가/VV+시/EP+려고/EM"), 1u);
  // The present declarative 는다 still never follows 었.
  EXPECT_EQ(Candidates("먹었는다").count("먹/VV+었/EP+는다/EM"), 0u);
  EXPECT_EQ(Candidates("먹는다").count("먹/VV+는다/EM"), 1u);
}

TEST_F(CoreAnalysis, EndingsInNeunFollowOpenAndClosedStems) {
  EXPECT_EQ(Candidates("하는데").count("하/VV+는데/EM"), 1u);
  EXPECT_EQ(Candidates("먹는데").count("먹/VV+는데/EM"), 1u);
  EXPECT_EQ(Candidates("오는지").count("오/VV+는지/EM"), 1u);
  EXPECT_EQ(Candidates("하는군요").count("하/VV+는군요/EM"), 1u);
}

TEST_F(CoreAnalysis, TheQuotativeJosaIsNoKeyBehindANoun) {
  // 고 stands alone behind a closing quote (pre-analysis); behind a noun it
  // would only compete with the ending of 살고, 주고.
  for (const std::string& c : Candidates("살고")) {
    EXPECT_EQ(c.find("고/J"), std::string::npos) << c;
  }
  EXPECT_EQ(Candidates("고").count("고/J_"), 1u);
}

TEST_F(CoreAnalysis, AnUnknownNounIsCutFromALongCaseJosa) {
  // The long case josa carry bit 20, so that the driver reads the noun
  // before them; their chains with a JX are keys of their own.
  EXPECT_EQ(Candidates("쿠팡에서").count("쿠팡/NNR+에서/J_"), 1u);
  EXPECT_EQ(Candidates("쿠팡으로").count("쿠팡/NNR+으로/J_"), 1u);
  EXPECT_EQ(Candidates("학교에서도").count("학교/NNG+에서도/J_"), 1u);
  EXPECT_EQ(Candidates("친구에게만").count("친구/NNG+에게만/J_"), 1u);
}

TEST_F(CoreAnalysis, ASilentCopulaStandsOnlyBeforeItsEndings) {
  // 다 and 면 follow a silent copula (친구다); 기에 and 고 need it written.
  EXPECT_EQ(Candidates("친구다").count("친구/NNG+이/VC+다/EM"), 1u);
  EXPECT_EQ(Candidates("학생이기에").count("학생/NNG+이/VC+기에/EM"), 1u);
  for (const std::string& c : Candidates("위기에")) {
    EXPECT_EQ(c.find("/VC"), std::string::npos) << c;
  }
}

TEST_F(CoreAnalysis, DerivedPredicatesReadTheirSuffix) {
  std::set<std::string> clean = Candidates("깨끗한");
  EXPECT_EQ(clean.count("깨끗/NNG+하/XSD+ㄴ/ETM"), 1u);
  EXPECT_EQ(clean.count("깨끗하/VA+ㄴ/ETM"), 0u);
  EXPECT_EQ(Candidates("공부했다").count("공부/NNG+하/XSD+었/EP+다/EM"), 1u);
}

}  // namespace
