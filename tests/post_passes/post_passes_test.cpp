// The post-analysis passes on hand-built candidates.
#include "tagger/post_passes.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "eojul/tag_set.h"
#include "text/charset.h"

namespace Quorel {
namespace {

std::string Cp949(const char* utf8) {
  WideChar* wide = ToWide(utf8, "utf-8");
  char* bytes = FromWide(wide, "cp949");
  std::string result = bytes;
  FreeBytes(bytes);
  FreeWide(wide);
  return result;
}

std::string Utf8(const char* cp949) {
  WideChar* wide = ToWide(cp949, "cp949");
  char* bytes = FromWide(wide, "utf-8");
  std::string result = bytes;
  FreeBytes(bytes);
  FreeWide(wide);
  return result;
}

using Morphemes = std::vector<std::pair<const char*, uint32_t>>;

class PassTest : public ::testing::Test {
 protected:
  void Start(const char* surface) { e.SetText(Cp949(surface).c_str(), 4); }
  void Add(const Morphemes& morphemes, double score) {
    e.BeginCandidate();
    for (const auto& m : morphemes) e.AddMorpheme(Cp949(m.first).c_str(), m.second);
    e.SetCandidateScore(score);
    e.EndCandidate();
  }
  // Candidate c as "form/TAG+form/TAG" in UTF-8.
  std::string Show(int c) {
    std::string shown;
    for (int m = 0; m < e.GetCount(c); ++m) {
      if (m > 0) shown += "+";
      shown += Utf8(e.GetLexicon(c, m)) + "/" + e.GetStrPOS(c, m);
    }
    return shown;
  }

  Eojul e;
  Eojul scratch;
  PassContext context{scratch};
};

TEST_F(PassTest, NumberUnitOffersBothForms) {
  Start("3개");
  Add({{"3", Pos::SN}, {"개", Pos::NNB}}, 1.0);
  PassNumberUnit(e, context);
  ASSERT_EQ(e.GetListSize(), 2);
  EXPECT_EQ(Show(0), "3/SN+개/NNB");
  EXPECT_EQ(Show(1), "3개/NNG");
  EXPECT_DOUBLE_EQ(e.GetScore(1), 1.3);
}

TEST_F(PassTest, NumberUnitLeavesOtherCandidates) {
  Start("3개");
  Add({{"3개", Pos::NNG}}, 1.0);
  PassNumberUnit(e, context);
  EXPECT_EQ(e.GetListSize(), 1);
}

TEST_F(PassTest, CompoundRunJoinsNumbersAndNouns) {
  Start("3월급여");
  Add({{"3", Pos::SN}, {"월", Pos::NNG}, {"급여", Pos::NNG}}, 2.0);
  PassCompoundRun(e, context);
  ASSERT_EQ(e.GetListSize(), 1);
  EXPECT_EQ(Show(0), "3월급여/NNC");
  EXPECT_DOUBLE_EQ(e.GetScore(0), 2.0);
}

TEST_F(PassTest, CompoundRunKeepsALonePieceAndProperNouns) {
  Start("학교에서");
  Add({{"학교", Pos::NNG}, {"에서", Pos::J_}}, 1.0);
  Add({{"서울", Pos::NNP}, {"시청", Pos::NNG}}, 0.5);
  PassCompoundRun(e, context);
  ASSERT_EQ(e.GetListSize(), 2);
  EXPECT_EQ(Show(0), "학교/NNG+에서/J_");
  EXPECT_EQ(Show(1), "서울/NNP+시청/NNG");  // NNP is not joinable
}

TEST_F(PassTest, EqualResultsAreKeptOnceWithTheHigherScore) {
  Start("국제정치");
  Add({{"국제", Pos::NNG}, {"정치", Pos::NNG}}, 1.0);
  Add({{"국", Pos::NNG}, {"제정치", Pos::NNG}}, 3.0);
  PassCompoundRun(e, context);
  // Both become one NNC of the same text; the second has the higher score,
  // so the first is dropped when the second says the same.
  ASSERT_EQ(e.GetListSize(), 1);
  EXPECT_EQ(Show(0), "국제정치/NNC");
  EXPECT_DOUBLE_EQ(e.GetScore(0), 3.0);
}

TEST_F(PassTest, PrefixSuffixJoinsButNotAfterOneSyllable) {
  Start("과학적");
  Add({{"과학", Pos::NNG}, {"적", Pos::XSN}}, 1.0);
  Add({{"책", Pos::NNG}, {"꽂이", Pos::XSN}}, 0.5);
  Add({{"신", Pos::XP}, {"기술", Pos::NNG}}, 0.2);
  PassCompoundPrefixSuffix(e, context);
  ASSERT_EQ(e.GetListSize(), 3);
  EXPECT_EQ(Show(0), "과학/NNG+적/XSN");  // 적 is on the stop list
  EXPECT_EQ(Show(1), "책/NNG+꽂이/XSN");  // one-syllable base
  EXPECT_EQ(Show(2), "신기술/NNC");
}

TEST_F(PassTest, PrefixSuffixJoinsTwoSyllableBases) {
  Start("전문가");
  Add({{"전문", Pos::NNG}, {"가", Pos::XSN}}, 1.0);
  PassCompoundPrefixSuffix(e, context);
  EXPECT_EQ(Show(0), "전문가/NNC");
}

TEST_F(PassTest, AffixPassJoinsStopListSuffixesWhenCompoundTried) {
  Start("학생들");
  Add({{"학생", Pos::NNG}, {"들", Pos::XSN}}, 1.0);
  context.option17 = 1;
  PassCompoundAffix(e, context);  // compoundTried is off: nothing happens
  EXPECT_EQ(Show(0), "학생/NNG+들/XSN");
  PassCompoundPrefixSuffix(e, context);
  EXPECT_EQ(Show(0), "학생/NNG+들/XSN");  // the stop list keeps 들 apart
  context.compoundTried = true;
  PassCompoundAffix(e, context);
  ASSERT_EQ(e.GetListSize(), 1);
  EXPECT_EQ(Show(0), "학생들/NNC");
}

TEST_F(PassTest, AffixPassModeTwoAddsChangedCandidates) {
  Start("학생들");
  Add({{"학생", Pos::NNG}, {"들", Pos::XSN}}, 1.0);
  Add({{"학생들", Pos::NNG}}, 0.5);
  context.option17 = 2;
  context.option0 = 2;
  context.compoundTried = true;
  PassCompoundAffix(e, context);
  ASSERT_EQ(e.GetListSize(), 3);
  EXPECT_EQ(Show(2), "학생들/NNC");
  EXPECT_EQ(context.addedCount, 1);
  PassCompoundAffix(e, context);  // the same result again only raises scores
  EXPECT_EQ(e.GetListSize(), 3);
}

TEST_F(PassTest, CutAtUserNoun) {
  Start("큐알");
  Add({{"큐", Pos::NNG}, {"알", Pos::NNG}}, 3.0);
  Add({{"큐알", Pos::NNU}}, 2.0);
  Add({{"큐알", Pos::NNR}}, 1.0);
  PassCutAtUserNoun(e);
  EXPECT_EQ(e.GetListSize(), 2);
  Start("없음");
  Add({{"없음", Pos::NNG}}, 1.0);
  PassCutAtUserNoun(e);
  EXPECT_EQ(e.GetListSize(), 1);
}

struct Span {
  int start;
  int end;
};

std::vector<Span> Offsets(Eojul& e, int c) {
  std::vector<Span> spans;
  for (int m = 0; m < e.GetCount(c); ++m) {
    spans.push_back({e.GetStartOffset(c, m), e.GetEndOffset(c, m)});
  }
  return spans;
}

TEST_F(PassTest, OffsetsOfPlainAndFusedMorphemes) {
  Start("학교에서");
  Add({{"학교", Pos::NNG}, {"에서", Pos::J_}}, 1.0);
  Start("했다");
  Add({{"하", Pos::VV}, {"었", Pos::EP}, {"다", Pos::EM}}, 1.0);
  PassOffsets(e);
  std::vector<Span> spans = Offsets(e, 0);
  ASSERT_EQ(spans.size(), 3u);
  EXPECT_EQ(spans[0].start, 0);
  EXPECT_EQ(spans[0].end, 2);
  EXPECT_EQ(spans[1].start, 0);  // 었 is inside 했
  EXPECT_EQ(spans[1].end, 2);
  EXPECT_EQ(spans[2].start, 2);
  EXPECT_EQ(spans[2].end, 4);
}

TEST_F(PassTest, CopulaWithoutSurfaceHasNoPlace) {
  Start("학교다");
  Add({{"학교", Pos::NNG}, {"이", Pos::VC}, {"다", Pos::EM}}, 1.0);
  Add({{"학교", Pos::NNG}, {"다", Pos::J_}}, 0.5);
  PassOffsets(e);
  std::vector<Span> spans = Offsets(e, 0);
  ASSERT_EQ(spans.size(), 3u);
  EXPECT_EQ(spans[1].start, -1);
  EXPECT_EQ(spans[1].end, -1);  // 65535 read back as a signed 16-bit value
  EXPECT_EQ(spans[2].start, 4);  // from the morpheme before the copula
  EXPECT_EQ(spans[2].end, 6);
  spans = Offsets(e, 1);
  EXPECT_EQ(spans[1].start, 4);
  PassOffsets(e);  // a second run records the same offsets, not more
  EXPECT_EQ(Offsets(e, 1)[1].start, 4);
}

TEST_F(PassTest, OffsetsOfContractedEndings) {
  Start("가서");  // 가 + 아서: the ending starts inside 가
  Add({{"가", Pos::VV}, {"아서", Pos::EM}}, 1.0);
  PassOffsets(e);
  EXPECT_EQ(Offsets(e, 0)[1].start, 0);
  EXPECT_EQ(Offsets(e, 0)[1].end, 4);
  Start("먹어");
  Add({{"먹", Pos::VV}, {"어", Pos::EM}}, 1.0);
  PassOffsets(e);
  EXPECT_EQ(Offsets(e, 0)[1].start, 2);  // 어 stands in the surface
  Start("간다");
  Add({{"가", Pos::VV}, {"ㄴ다", Pos::EM}}, 1.0);
  PassOffsets(e);
  EXPECT_EQ(Offsets(e, 0)[1].start, 0);
  EXPECT_EQ(Offsets(e, 0)[1].end, 4);
}

}  // namespace
}  // namespace Quorel
