// Tagging mode 0: each rule of the cascade on a small sentence where it
// decides against the best score, and the tail's choices.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "eojul/tag_set.h"
#include "tagger/tagger.h"
#include "tagging/tagging_helpers.h"

namespace Quorel {
namespace {

using testing_tagger::SentenceBuilder;
using testing_tagger::Show;
using testing_tagger::TagAndShow;

class CascadeTest : public ::testing::Test {
 protected:
  // Tags in mode 0; every eojul must come back with one candidate.
  std::vector<std::string> Tag(SentenceBuilder& b) {
    tagger.Bind(nullptr, &log);
    return TagAndShow(tagger, b.sentence, 0);
  }
  std::string TagLast(SentenceBuilder& b) { return Tag(b).back(); }

  Tagger tagger;
  std::ostringstream log;
};

TEST_F(CascadeTest, Rule1PronounFirstInSentence) {
  SentenceBuilder b;
  b.Add("그는")
      .Candidate({{"그", Pos::NNG}, {"는", Pos::JX}}, 2.0)
      .Candidate({{"그", Pos::NP}, {"는", Pos::JX}}, 1.0);
  EXPECT_EQ(TagLast(b), "그/NP+는/J_");
}

TEST_F(CascadeTest, Rule2PronounAfterALoneSymbol) {
  SentenceBuilder b;
  b.Add("(", 0x08).Candidate({{"(", Pos::SC}}, 1.0);
  b.Add("그는")
      .Candidate({{"그", Pos::NNG}, {"는", Pos::JX}}, 2.0)
      .Candidate({{"그", Pos::NP}, {"는", Pos::JX}}, 1.0);
  EXPECT_EQ(TagLast(b), "그/NP+는/J_");
}

TEST_F(CascadeTest, Rule3LoneDeterminerOrAdverbOfTwo) {
  SentenceBuilder b;
  b.Add("잘")
      .Candidate({{"자", Pos::VV}, {"ㄹ", Pos::ETM}}, 2.0)
      .Candidate({{"잘", Pos::MA}}, 1.0);
  EXPECT_EQ(TagLast(b), "잘/MA");
  SentenceBuilder c;
  c.Add("새")
      .Candidate({{"새", Pos::NNB}}, 2.0)
      .Candidate({{"새", Pos::MM}}, 1.0);
  EXPECT_EQ(TagLast(c), "새/MM");
}

TEST_F(CascadeTest, Rule4DeterminerBeforeOnlyNouns) {
  SentenceBuilder b;
  b.Add("저")
      .Candidate({{"저", Pos::MM}}, 1.0)
      .Candidate({{"저", Pos::NNG}}, 2.0)
      .Candidate({{"저", Pos::NNB}}, 0.5);
  b.Add("사람").Candidate({{"사람", Pos::NNG}}, 1.0);
  EXPECT_EQ(Tag(b)[0], "저/MM");

  // A next reading that is no noun sends the determiner to the tail.
  SentenceBuilder c;
  c.Add("저")
      .Candidate({{"저", Pos::MM}}, 1.0)
      .Candidate({{"저", Pos::NNG}}, 2.0)
      .Candidate({{"저", Pos::NNB}}, 0.5);
  c.Add("사람")
      .Candidate({{"사람", Pos::NNG}}, 1.0)
      .Candidate({{"살", Pos::VV}, {"ㅁ", Pos::ETN}}, 1.0);
  EXPECT_EQ(Tag(c)[0], "저/NNG");
}

TEST_F(CascadeTest, Rule5SelectsTheOnlyNounAfterADeterminer) {
  // The loop stands on candidate 0 when rule 5 places candidate 1.
  SentenceBuilder b;
  b.Add("그").Candidate({{"그", Pos::MM}}, 1.0);
  b.Add("사과")
      .Candidate({{"사", Pos::VV}, {"과", Pos::EM}}, 3.0)
      .Candidate({{"사과", Pos::NNG}}, 1.0)
      .Candidate({{"사", Pos::VV}, {"고", Pos::EM}}, 2.0);
  EXPECT_EQ(TagLast(b), "사과/NNG");
}

TEST_F(CascadeTest, Rule5WithTwoNounsGoesToTheTail) {
  SentenceBuilder b;
  b.Add("그").Candidate({{"그", Pos::MM}}, 1.0);
  b.Add("사과")
      .Candidate({{"사", Pos::VV}, {"과", Pos::EM}}, 3.0)
      .Candidate({{"사과", Pos::NNG}}, 1.0)
      .Candidate({{"사", Pos::NNG}, {"과", Pos::J_}}, 2.0);
  EXPECT_EQ(TagLast(b), "사/VV+과/EM");
}

TEST_F(CascadeTest, Rule6NounBeforeHaOrDoe) {
  SentenceBuilder b;
  b.Add("공부")
      .Candidate({{"공부", Pos::NNG}}, 1.0)
      .Candidate({{"공", Pos::NNG}, {"부", Pos::XSN}}, 2.0);
  b.Add("하다").Candidate({{"하", Pos::VV}, {"다", Pos::EM}}, 1.0);
  EXPECT_EQ(Tag(b)[0], "공부/NNG");
}

TEST_F(CascadeTest, Rule6ShadowsRule10) {
  // Rule 10 (a noun before a noun + josa) has rule 6's condition, and rule
  // 6 goes to the tail: the best score decides.
  SentenceBuilder b;
  b.Add("사과")
      .Candidate({{"사과", Pos::NNG}}, 1.0)
      .Candidate({{"사", Pos::VV}, {"과", Pos::EM}}, 2.0);
  b.Add("맛이").Candidate({{"맛", Pos::NNG}, {"이", Pos::J_}}, 1.0);
  EXPECT_EQ(Tag(b)[0], "사/VV+과/EM");
}

TEST_F(CascadeTest, Rule7BoundNounAfterACommonNoun) {
  SentenceBuilder b;
  b.Add("학교").Candidate({{"학교", Pos::NNG}}, 1.0);
  b.Add("수")
      .Candidate({{"수", Pos::NNB}}, 1.0)
      .Candidate({{"수", Pos::NNG}}, 2.0);
  EXPECT_EQ(TagLast(b), "수/NNB");
}

TEST_F(CascadeTest, Rule7BoundNounAfterANumber) {
  SentenceBuilder b;
  b.Add("3", 0x01).Candidate({{"3", Pos::SN}}, 1.0);
  b.Add("개")
      .Candidate({{"개", Pos::NNB}}, 1.0)
      .Candidate({{"개", Pos::NNG}}, 2.0)
      .Candidate({{"개", Pos::VV}}, 1.5);
  EXPECT_EQ(TagLast(b), "개/NNB");
}

TEST_F(CascadeTest, Rule7BoundNounBeforeAPredicate) {
  SentenceBuilder b;
  b.Add("것").Candidate({{"것", Pos::NNB}}, 1.0);
  b.Add("수")
      .Candidate({{"수", Pos::NNB}}, 1.0)
      .Candidate({{"수", Pos::NNG}}, 2.0);
  b.Add("있다").Candidate({{"있", Pos::VV}, {"다", Pos::EM}}, 1.0);
  EXPECT_EQ(Tag(b)[1], "수/NNB");

  // Last in the sentence, after no determiner ending: the tail decides.
  SentenceBuilder c;
  c.Add("것").Candidate({{"것", Pos::NNB}}, 1.0);
  c.Add("수")
      .Candidate({{"수", Pos::NNB}}, 1.0)
      .Candidate({{"수", Pos::NNG}}, 2.0);
  EXPECT_EQ(TagLast(c), "수/NNG");
}

TEST_F(CascadeTest, Rule7BoundNounAfterADeterminerEnding) {
  SentenceBuilder b;
  b.Add("먹은").Candidate({{"먹", Pos::VV}, {"은", Pos::ETM}}, 1.0);
  b.Add("것")
      .Candidate({{"것", Pos::NNB}}, 1.0)
      .Candidate({{"것", Pos::NNG}}, 2.0)
      .Candidate({{"것", Pos::MA}}, 1.5);
  EXPECT_EQ(TagLast(b), "것/NNB");
}

TEST_F(CascadeTest, Rule8DeterminerEndingBeforeABoundNoun) {
  SentenceBuilder b;
  b.Add("큰")
      .Candidate({{"크", Pos::VA}, {"ㄴ", Pos::ETM}}, 1.0)
      .Candidate({{"큰", Pos::NNG}}, 2.0);
  b.Add("것").Candidate({{"것", Pos::NNB}}, 1.0);
  EXPECT_EQ(Tag(b)[0], "크/VA+ㄴ/ETM");

  SentenceBuilder c;
  c.Add("큰")
      .Candidate({{"크", Pos::VA}, {"ㄴ", Pos::ETM}}, 1.0)
      .Candidate({{"큰", Pos::NNG}}, 2.0);
  c.Add("집").Candidate({{"집", Pos::NNG}}, 1.0);
  EXPECT_EQ(Tag(c)[0], "큰/NNG");
}

TEST_F(CascadeTest, Rule8AuxiliaryDeterminerAfterAnEnding) {
  SentenceBuilder b;
  b.Add("먹어").Candidate({{"먹", Pos::VV}, {"어", Pos::EM}}, 1.0);
  b.Add("본")
      .Candidate({{"보", Pos::VX}, {"ㄴ", Pos::ETM}}, 1.0)
      .Candidate({{"본", Pos::NNG}}, 2.0);
  EXPECT_EQ(TagLast(b), "보/VX+ㄴ/ETM");
}

TEST_F(CascadeTest, Rule9NumberAndBoundNoun) {
  SentenceBuilder b;
  b.Add("3개", 0x05)
      .Candidate({{"3", Pos::SN}, {"개", Pos::NNB}}, 1.0)
      .Candidate({{"3개", Pos::NNG}}, 2.0);
  EXPECT_EQ(TagLast(b), "3/SN+개/NNB");
}

TEST_F(CascadeTest, Rule11AuxiliaryAfterAnEnding) {
  SentenceBuilder b;
  b.Add("먹고").Candidate({{"먹", Pos::VV}, {"고", Pos::EM}}, 1.0);
  b.Add("싶다")
      .Candidate({{"싶", Pos::VX}, {"다", Pos::EM}}, 1.0)
      .Candidate({{"싶", Pos::VV}, {"다", Pos::EM}}, 2.0);
  EXPECT_EQ(TagLast(b), "싶/VX+다/EM");
}

TEST_F(CascadeTest, Rule12PredicateBeforeAnAuxiliary) {
  SentenceBuilder b;
  b.Add("학교").Candidate({{"학교", Pos::NNG}}, 1.0);
  b.Add("가")
      .Candidate({{"가", Pos::VV}, {"아", Pos::EM}}, 1.0)
      .Candidate({{"가", Pos::NNG}}, 2.0);
  b.Add("보다").Candidate({{"보", Pos::VX}, {"다", Pos::EM}}, 1.0);
  EXPECT_EQ(Tag(b)[1], "가/VV+아/EM");
}

TEST_F(CascadeTest, Rule12JosaBeforeAPredicateNeverDecides) {
  for (const char* josa : {"을", "를", "에"}) {
    SentenceBuilder b;
    b.Add("밥을").Candidate({{"밥", Pos::NNG}, {josa, Pos::J_}}, 1.0);
    b.Add("먹")
        .Candidate({{"먹", Pos::VV}, {"어", Pos::EM}}, 1.0)
        .Candidate({{"먹", Pos::NNG}}, 2.0);
    EXPECT_EQ(TagLast(b), "먹/NNG") << josa;
  }
}

TEST_F(CascadeTest, TailCopulaCloseToALaterCandidate) {
  SentenceBuilder b;
  b.Add("학생이다")
      .Candidate({{"학생", Pos::NNG}, {"이", Pos::VC}, {"다", Pos::EM}}, 1.0)
      .Candidate({{"학생이", Pos::NNG}, {"다", Pos::NNG}}, 1.5);
  EXPECT_EQ(TagLast(b), "학생/NNG+이/VC+다/EM");

  // The gap test looks only at later candidates: the last can't set it.
  SentenceBuilder c;
  c.Add("학생이다")
      .Candidate({{"학생이", Pos::NNG}, {"다", Pos::NNG}}, 1.5)
      .Candidate({{"학생", Pos::NNG}, {"이", Pos::VC}, {"다", Pos::EM}}, 1.0);
  EXPECT_EQ(TagLast(c), "학생이/NNG+다/NNG");

  // A later candidate far ahead in score leaves the copula alone.
  SentenceBuilder d;
  d.Add("학생이다")
      .Candidate({{"학생", Pos::NNG}, {"이", Pos::VC}, {"다", Pos::EM}}, 1.0)
      .Candidate({{"학생이", Pos::NNG}, {"다", Pos::NNG}}, 2.0);
  EXPECT_EQ(TagLast(d), "학생이/NNG+다/NNG");
}

TEST_F(CascadeTest, TailPredicativeSuffix) {
  SentenceBuilder b;
  b.Add("공부하다")
      .Candidate({{"공부", Pos::NNG}, {"하", Pos::XSD}, {"다", Pos::EM}}, 1.0)
      .Candidate({{"공부하", Pos::VV}, {"다", Pos::EM}}, 2.0);
  EXPECT_EQ(TagLast(b), "공부/NNG+하/XSD+다/EM");

  // "대" and a short base without a noun suffix don't count.
  SentenceBuilder c;
  c.Add("좋대")
      .Candidate({{"좋", Pos::NNG}, {"하", Pos::XSD}, {"대", Pos::EM}}, 1.0)
      .Candidate({{"좋", Pos::VA}, {"대", Pos::EM}}, 2.0);
  EXPECT_EQ(TagLast(c), "좋/VA+대/EM");
}

TEST_F(CascadeTest, TailNounAndJosa) {
  SentenceBuilder b;
  b.Add("학교에서")
      .Candidate({{"학교", Pos::NNG}, {"에서", Pos::J_}}, 1.0)
      .Candidate({{"학", Pos::NNG}, {"교에서", Pos::NNG}}, 2.0);
  EXPECT_EQ(TagLast(b), "학교/NNG+에서/J_");

  // "서" is found inside "에서"; "로" is not in the list.
  SentenceBuilder c;
  c.Add("학교서")
      .Candidate({{"학교", Pos::NNG}, {"서", Pos::J_}}, 1.0)
      .Candidate({{"학교서", Pos::NNG}}, 2.0);
  EXPECT_EQ(TagLast(c), "학교/NNG+서/J_");
  SentenceBuilder d;
  d.Add("학교로")
      .Candidate({{"학교", Pos::NNG}, {"로", Pos::J_}}, 1.0)
      .Candidate({{"학교로", Pos::NNG}}, 2.0);
  EXPECT_EQ(TagLast(d), "학교로/NNG");
}

TEST_F(CascadeTest, NoRuleAndNoTailPicksTheLaterOfEqualScores) {
  SentenceBuilder b;
  b.Add("나무")
      .Candidate({{"나무", Pos::NNG}}, 1.0)
      .Candidate({{"나", Pos::NNG}, {"무", Pos::NNG}}, 1.0);
  EXPECT_EQ(TagLast(b), "나/NNG+무/NNG");
}

TEST_F(CascadeTest, KeepsScoresAndRecordsOffsets) {
  SentenceBuilder b;
  b.Add("학교에").Candidate({{"학교", Pos::NNG}, {"에", Pos::J_}}, 0.7);
  b.Add("공부")
      .Candidate({{"공부", Pos::NNG}}, 1.25)
      .Candidate({{"공", Pos::NNG}, {"부", Pos::NNG}}, 1.0);
  Tag(b);
  Eojul& first = b.sentence[0];
  EXPECT_DOUBLE_EQ(first.GetScore(0), 0.7);
  EXPECT_EQ(first.GetStartOffset(0, 1), 4);
  EXPECT_EQ(first.GetEndOffset(0, 1), 6);
  Eojul& second = b.sentence[1];
  EXPECT_DOUBLE_EQ(second.GetScore(0), 1.25);
  EXPECT_EQ(second.GetOffset(), b.sentence[0].GetOffset() + 9);
  EXPECT_EQ(second.GetEndOffset(0, 0), 4);
}

TEST_F(CascadeTest, WrongModeChangesNothing) {
  SentenceBuilder b;
  b.Add("나무")
      .Candidate({{"나무", Pos::NNG}}, 1.0)
      .Candidate({{"나", Pos::NNG}, {"무", Pos::NNG}}, 1.0);
  tagger.Bind(nullptr, &log);
  tagger.Tagging(b.sentence, 2);
  EXPECT_EQ(log.str(), "Wrong tagging mode. Select tagging mode 0 or 1.\n");
  ASSERT_EQ(b.sentence.size(), 1u);
  EXPECT_EQ(b.sentence[0].GetListSize(), 2);
}

}  // namespace
}  // namespace Quorel
