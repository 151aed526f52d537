// The rule pass adds a whole-josa or a copula candidate to an eojul that a
// quote or bracket closed, behind the candidates analysis found.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "tagger/tagger.h"
#include "tagging/tagging_helpers.h"

namespace Quorel {
namespace {

using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;
using testing_tagger::SentenceBuilder;
using testing_tagger::Show;
using testing_tagger::SinfoDirectory;

constexpr unsigned kClosedHangul = 0x44;

class ForcedCandidatesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    // The josa/eomi sources sit beside "sinfo" in the knowledge directory.
    dir.WriteBeside("js.dic", "라고\t라고/JX 0\n");
    dir.WriteBeside("em.dic", "다\t다/EF 0\n데\tㄴ데/EC 0 5\n게\tㄹ게/EC 0 9\n");
    CaptureStderr();
    d.LoadKnowledge(dir.Path(), false, true);
    GetCapturedStderr();
    tagger.Bind(&d, &log);
  }
  // RuleTag over a one-eojul sentence with one noun candidate; returns the
  // eojul's candidates afterwards.
  std::vector<std::string> Rule(const std::string& surface,
                                unsigned type = kClosedHangul) {
    SentenceBuilder b;
    b.Add(surface, type).Candidate({{surface.c_str(), Pos::NNG}}, 1.0);
    std::vector<Eojul*> input{&b.sentence[0]};
    tagger.input = &input;
    tagger.RuleTag();
    EXPECT_EQ(tagger.results.size(), 1u);
    std::vector<std::string> shown;
    Eojul& e = b.sentence[0];
    for (int c = 0; c < e.GetListSize(); ++c) shown.push_back(Show(e, c));
    return shown;
  }

  SinfoDirectory dir;
  Dictionary d{false};
  Tagger tagger;
  std::ostringstream log;
};

TEST_F(ForcedCandidatesTest, WholeJosaAfterTheAnalysis) {
  EXPECT_EQ(Rule("라고"),
            (std::vector<std::string>{"라고/NNG", "라고/J_"}));
  EXPECT_EQ(Rule("라고", 0x04), (std::vector<std::string>{"라고/NNG"}));
}

TEST_F(ForcedCandidatesTest, CopulaForms) {
  EXPECT_EQ(Rule("이다").back(), "이/VC+다/EM");
  EXPECT_EQ(Rule("였다").back(), "이/VC+었/EP+다/EM");
  EXPECT_EQ(Rule("인데").back(), "이/VC+ㄴ데/EM");
  EXPECT_EQ(Rule("일게").back(), "이/VC+ㄹ게/EM");
  EXPECT_EQ(Rule("인").back(), "이/VC+ㄴ/ETM");
  // A bare ㅂ has no reading; a first syllable of another shape, nothing.
  EXPECT_EQ(Rule("입").size(), 1u);
  EXPECT_EQ(Rule("가다").size(), 1u);
  EXPECT_EQ(Rule("이다", 0x04).size(), 1u);
}

}  // namespace
}  // namespace Quorel
