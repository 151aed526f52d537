// Tagging mode 1: eojul rules, group rules and the frequency model over a
// small knowledge directory written for each test.
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
using testing_tagger::TagAndShow;

// Tag lists: FOS 0, EOS 1, NNG 2, VV+EM 3.
const char kTagList[] = "FOS\nEOS\nNNG\nVV+EM\n";

class ModeOneTest : public ::testing::Test {
 protected:
  void Load() {
    CaptureStderr();
    d.LoadEojulRules(dir.Path());
    d.LoadGroupRules(dir.Path());
    d.LoadTagLists(dir.Path());
    GetCapturedStderr();
    d.SetTaggerWeights(550.96, 370.28, 54.11, 8.8, 50.0);
  }
  std::vector<std::string> Tag(SentenceBuilder& b) {
    tagger.Bind(&d, &log);
    return TagAndShow(tagger, b.sentence, 1);
  }
  // "가": a noun and a verb reading, by default the noun scored lower.
  static void AddGa(SentenceBuilder& b, double noun = 1.0, double verb = 2.0) {
    b.Add("가")
        .Candidate({{"가", Pos::NNG}}, noun)
        .Candidate({{"가", Pos::VV}, {"아", Pos::EM}}, verb);
  }
  // A one-candidate eojul, then "가" with the noun scored higher.
  static SentenceBuilder GaAfter(const char* word, uint32_t pos) {
    SentenceBuilder b;
    b.Add(word).Candidate({{word, pos}}, 1.0);
    AddGa(b, 2.0, 1.0);
    return b;
  }
  const StatInfo& Sinfo() { return tagger.statTagger.sinfo; }

  SinfoDirectory dir;
  Dictionary d{false};
  Tagger tagger;
  std::ostringstream log;
};

TEST_F(ModeOneTest, WithoutKnowledgeTheTailDecides) {
  Load();
  SentenceBuilder b;
  AddGa(b);
  EXPECT_EQ(Tag(b)[0], "가/VV+아/EM");
  EXPECT_EQ(Sinfo().prevId, 0xFFFF);  // no FOS in the tag lists
  EXPECT_EQ(Sinfo().nextIds, std::vector<uint16_t>{0xFFFF});
}

TEST_F(ModeOneTest, BigramDecidesBetweenFirstAndEndOfSentence) {
  dir.Write("tag_list.txt", kTagList);
  dir.Write("taglist.klg",
            "NNG\t1\nFOS\tEOS\t5\n"
            "VV+EM\t1\nFOS\tNNG\t4\n");
  Load();
  SentenceBuilder b;
  AddGa(b);
  EXPECT_EQ(Tag(b)[0], "가/NNG");
  const StatInfo& s = Sinfo();
  EXPECT_EQ(s.prevId, 0);
  EXPECT_EQ(s.nextIds, std::vector<uint16_t>{1});
  EXPECT_EQ(s.curIds, (std::vector<uint16_t>{2, 3}));
  EXPECT_EQ(s.curFreq, (std::vector<int32_t>{5, 4}));
  ASSERT_EQ(s.results.size(), 1u);
  // 5/5, no band factor below 1000, 0.3 for each unknown side word.
  EXPECT_DOUBLE_EQ(s.results[0].probability, 1.0 * 0.3 * 0.3);
}

TEST_F(ModeOneTest, BandFactorAndWordProbabilitiesWeighTheBigram) {
  dir.Write("tag_list.txt", kTagList);
  dir.Write("word_list.txt", "가\t4\n나\t10\n");
  dir.Write("taglist.klg",
            "NNG\t2\nFOS\tEOS\t1000\nFOS\tVV+EM\t1000\n"
            "VV+EM\t1\nFOS\tVV+EM\t30\n");
  dir.Write("wordlist.klg", "가-NNG\t1\nFOS\tEOS\t1\n"
                            "나-VV+EM\t1\nFOS\tEOS\t5\n");
  Load();
  SentenceBuilder b;
  AddGa(b);
  b.Add("나").Candidate({{"나", Pos::VV}, {"아", Pos::EM}}, 1.0);
  EXPECT_EQ(Tag(b)[0], "가/NNG");
  // "나" has one candidate and is placed as it stands: sinfo is that of "가".
  const StatInfo& s = Sinfo();
  ASSERT_EQ(s.results.size(), 2u);
  const double w4 = 8.8;
  const double w5 = 50.0;
  // NNG: 1000/2000 * band * P(가|NNG) * w5 * P(나|VV+EM) * w5 * 0.3.
  EXPECT_DOUBLE_EQ(s.results[0].probability,
                   1000.0 / 2000.0 * w4 * (0.25 * w5) * (0.5 * w5) * 0.3);
  // VV+EM: 30/30, no band, unknown word 0.3, then the next word.
  EXPECT_DOUBLE_EQ(s.results[1].probability, 1.0 * 0.3 * (0.5 * w5) * 0.3);
  EXPECT_EQ(s.best, 0);
}

TEST_F(ModeOneTest, WordProbabilityAloneDecides) {
  dir.Write("tag_list.txt", kTagList);
  dir.Write("word_list.txt", "가\t8\n");
  dir.Write("wordlist.klg", "가-NNG\t2\nFOS\tEOS\t2\nFOS\tNNG\t4\n");
  Load();
  SentenceBuilder b;
  AddGa(b);
  EXPECT_EQ(Tag(b)[0], "가/NNG");
  const StatInfo& s = Sinfo();
  ASSERT_EQ(s.results.size(), 1u);
  EXPECT_DOUBLE_EQ(s.results[0].probability, 6.0 / 8.0);  // no weights
  EXPECT_EQ(s.results[0].current, 0);
}

TEST_F(ModeOneTest, ScoresBreakTiesOfOneTagListOnlyWithTheOption) {
  dir.Write("tag_list.txt", kTagList);
  dir.Write("taglist.klg", "VV+EM\t1\nFOS\tEOS\t5\n");
  Load();
  // 준다: two readings of one tag list, which the model can't tell apart,
  // and a noun reading it doesn't know.
  const struct {
    bool option;
    double first, second;
    const char* chosen;
  } rows[] = {
      {false, 0.5, 0.5, "줄/VV+ㄴ다/EM"},  // the first the model met
      {false, 0.4, 0.5, "줄/VV+ㄴ다/EM"},
      {true, 0.5, 0.5, "주/VV+ㄴ다/EM"},   // of equal scores the later one
      {true, 0.4, 0.5, "주/VV+ㄴ다/EM"},   // the higher score
      {true, 0.6, 0.5, "줄/VV+ㄴ다/EM"},
  };
  for (const auto& row : rows) {
    SentenceBuilder b;
    b.Add("준다")
        .Candidate({{"줄", Pos::VV}, {"ㄴ다", Pos::EM}}, row.first)
        .Candidate({{"주", Pos::VV}, {"ㄴ다", Pos::EM}}, row.second)
        .Candidate({{"준다", Pos::NNG}}, 0.9);
    tagger.statTagger.scoreBreaksTies = row.option;
    EXPECT_EQ(Tag(b)[0], row.chosen) << row.option << " " << row.first;
  }
}

TEST_F(ModeOneTest, WordsTheModelDoesNotKnowAreLeftToTheRulesWithTheOption) {
  dir.Write("tag_list.txt", kTagList);
  // The model knows the tag lists and the word 가, not the word 나.
  dir.Write("word_list.txt", "가\t4\n");
  dir.Write("taglist.klg", "NNG\t3\nFOS\tNNG\t9\nFOS\tVV+EM\t9\nNNG\tEOS\t9\n"
                           "VV+EM\t2\nFOS\tNNG\t1\nFOS\tEOS\t9\n");
  dir.Write("wordlist.klg", "가-VV+EM\t1\nFOS\tNNG\t4\n");
  Load();
  // 나 (first): the model prefers the noun, the rules' tail the verb of the
  // higher score. 가 (second) is left to the model either way: behind a
  // noun its pairs choose the noun, behind a verb they know nothing and the
  // word decides.
  const struct {
    bool option;
    const char* first;
    const char* second;
  } rows[] = {{false, "나/NNG", "가/NNG"}, {true, "나/VV+아/EM", "가/VV+아/EM"}};
  for (const auto& row : rows) {
    SentenceBuilder b;
    b.Add("나")
        .Candidate({{"나", Pos::NNG}}, 1.0)
        .Candidate({{"나", Pos::VV}, {"아", Pos::EM}}, 2.0);
    AddGa(b);
    tagger.cascadeForUnknownWords = row.option;
    const std::vector<std::string> chosen = Tag(b);
    EXPECT_EQ(chosen[0], row.first) << row.option;
    EXPECT_EQ(chosen[1], row.second) << row.option;
  }
}

TEST_F(ModeOneTest, EojulRuleComesFirst) {
  dir.Write("tag_list.txt", kTagList);
  dir.Write("erule.klg", "가\t0\n");
  dir.Write("taglist.klg", "VV+EM\t1\nFOS\tEOS\t5\n");
  Load();
  SentenceBuilder b;
  AddGa(b);
  EXPECT_EQ(Tag(b)[0], "가/NNG");
}

TEST_F(ModeOneTest, EojulRuleOutOfRangeDropsTheEojul) {
  dir.Write("erule.klg", "가\t2\n");
  Load();
  SentenceBuilder b;
  b.Add("나").Candidate({{"나", Pos::NP}}, 1.0);
  AddGa(b);
  tagger.Bind(&d, &log);
  tagger.Tagging(b.sentence, 1);
  ASSERT_EQ(b.sentence.size(), 1u);
  EXPECT_EQ(Show(b.sentence[0], 0), "나/NP");
}

TEST_F(ModeOneTest, GroupRuleWithThePreviousEojul) {
  dir.Write("grule.klg", "[1][NNG]\t@[1][VV]\n");
  Load();
  SentenceBuilder b = GaAfter("학교", Pos::NNG);
  EXPECT_EQ(Tag(b)[1], "가/VV+아/EM");

  // The previous eojul's pattern fails: the tail picks the best.
  SentenceBuilder c = GaAfter("나", Pos::NP);
  EXPECT_EQ(Tag(c)[1], "가/NNG");
}

TEST_F(ModeOneTest, GroupRuleOfThreeSkipsTheSentenceEdges) {
  dir.Write("grule.klg", "[1][NP]\t@[1][VV]\t[1][NNG]\n");
  Load();
  SentenceBuilder b = GaAfter("나", Pos::NP);
  b.Add("집")
      .Candidate({{"집", Pos::NNG}}, 1.0)
      .Candidate({{"집", Pos::MA}}, 1.0);
  std::vector<std::string> chosen = Tag(b);
  EXPECT_EQ(chosen[1], "가/VV+아/EM");

  // The same eojul last in the sentence is left to the model.
  SentenceBuilder c = GaAfter("나", Pos::NP);
  EXPECT_EQ(Tag(c)[1], "가/NNG");
}

TEST_F(ModeOneTest, GroupRuleWithTheNextEojulNeverAppliesToTheLast) {
  dir.Write("grule.klg", "@[1][VV]\t[1][NNG]\n");
  Load();
  SentenceBuilder b = GaAfter("나", Pos::NP);
  b.Add("집").Candidate({{"집", Pos::NNG}}, 1.0);
  EXPECT_EQ(Tag(b)[1], "가/VV+아/EM");
  SentenceBuilder c = GaAfter("나", Pos::NP);
  EXPECT_EQ(Tag(c)[1], "가/NNG");
}

TEST_F(ModeOneTest, MalformedFocusPatternDropsTheEojul) {
  dir.Write("grule.klg", "@[1][VV]\n");
  Load();
  d.groupRules[0].eojuls[0].place = 7;
  SentenceBuilder b;
  b.Add("학교").Candidate({{"학교", Pos::NNG}}, 1.0);
  AddGa(b);
  tagger.Bind(&d, &log);
  tagger.Tagging(b.sentence, 1);
  EXPECT_EQ(b.sentence.size(), 1u);
  EXPECT_EQ(log.str(), "This rule is worng : 0\n");
}

}  // namespace
}  // namespace Quorel
