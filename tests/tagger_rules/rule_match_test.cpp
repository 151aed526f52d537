// The group-rule matcher on parsed conditions and hand-built eojuls.
#include "tagger/rule_match.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "eojul/tag_set.h"
#include "tagging/tagging_helpers.h"

namespace Quorel {
namespace {

using testing_tagger::AddCandidate;
using testing_tagger::Cp949;
using testing_tagger::Start;

MorphemeInfo Condition(const std::string& utf8) {
  MorphemeInfo info;
  EXPECT_EQ(ParseMorphemeCondition(info, Cp949(utf8)), 1) << utf8;
  return info;
}

int TagLexicon(const MorphemeInfo& rule, uint32_t tag, const char* utf8) {
  return MatchTagLexicon(rule, tag, Cp949(utf8).c_str());
}

TEST(TagTestTest, FamilyMasksShareABitSubclassMasksContainTheTag) {
  EXPECT_TRUE(TagTest(Pos::N_, Pos::NNG));
  EXPECT_TRUE(TagTest(Pos::N_, Pos::NNB));
  EXPECT_FALSE(TagTest(Pos::N_, Pos::VV));
  EXPECT_TRUE(TagTest(Pos::NNG, Pos::NNG));
  EXPECT_FALSE(TagTest(Pos::NNG, Pos::NNB));
  EXPECT_FALSE(TagTest(Pos::NNG, Pos::N_ | Pos::NNG | Pos::NNB));
  EXPECT_TRUE(TagTest(Pos::NNG | Pos::NNB, Pos::NNB));
}

TEST(MatchTagLexiconTest, EmptyConditionMatchesNothing) {
  MorphemeInfo rule = Condition("[1]");
  EXPECT_EQ(TagLexicon(rule, Pos::NNG, "사과"), 0);
  MorphemeInfo tagOnly = Condition("[1][NNG]");
  EXPECT_EQ(TagLexicon(tagOnly, Pos::NNG, "사과"), 1);
  EXPECT_EQ(TagLexicon(tagOnly, Pos::VV, "사과"), 0);
  EXPECT_EQ(TagLexicon(tagOnly, 0, "사과"), 1);  // UW skips the tag test
}

TEST(MatchTagLexiconTest, AlternativesAndRefusedForms) {
  MorphemeInfo named = Condition("[1][NNG][:사과:배:]");
  EXPECT_EQ(TagLexicon(named, Pos::NNG, "사과"), 1);
  EXPECT_EQ(TagLexicon(named, Pos::NNG, "배"), 1);
  EXPECT_EQ(TagLexicon(named, Pos::NNG, "감"), 0);

  // Only refused forms: every other lexicon is admitted.
  MorphemeInfo refused = Condition("[1][NNG][:!사과:!배:]");
  EXPECT_EQ(TagLexicon(refused, Pos::NNG, "사과"), 0);
  EXPECT_EQ(TagLexicon(refused, Pos::NNG, "배"), 0);
  EXPECT_EQ(TagLexicon(refused, Pos::NNG, "감"), 1);

  MorphemeInfo mixed = Condition("[1][NNG][:사과:!배:]");
  EXPECT_EQ(TagLexicon(mixed, Pos::NNG, "사과"), 1);
  EXPECT_EQ(TagLexicon(mixed, Pos::NNG, "감"), 0);
}

TEST(MatchTagLexiconTest, MinimumSyllables) {
  // "#n" alone admits every lexicon of at least n syllables.
  MorphemeInfo alone = Condition("[1][NNG][x#2x]");
  EXPECT_EQ(TagLexicon(alone, Pos::NNG, "사과"), 1);
  EXPECT_EQ(TagLexicon(alone, Pos::NNG, "배"), 0);
  // Beside alternatives it only narrows them.
  MorphemeInfo narrowed = Condition("[1][NNG][:사과:배:#2:]");
  EXPECT_EQ(TagLexicon(narrowed, Pos::NNG, "사과"), 1);
  EXPECT_EQ(TagLexicon(narrowed, Pos::NNG, "배"), 0);
  EXPECT_EQ(TagLexicon(narrowed, Pos::NNG, "바나나"), 0);
}

class MorphemeRuleTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Start(e, "가는");
    AddCandidate(e, {{"가", Pos::VV}, {"는", Pos::ETM}}, 1.0);
    AddCandidate(e, {{"가", Pos::NNG}, {"는", Pos::JX}}, 1.0);
    AddCandidate(e, {{"갈", Pos::VV}, {"는", Pos::ETM}}, 1.0);
  }
  int Match(const std::string& condition, int candidate, int start = 0) {
    return MatchMorphemeRule(Condition(condition), e, candidate, 7, start,
                             log);
  }
  Eojul e;
  std::ostringstream log;
};

TEST_F(MorphemeRuleTest, PlacedConditions) {
  EXPECT_EQ(Match("[1][VV]", 0), 1);
  EXPECT_EQ(Match("[2][ETM]", 0), 1);
  EXPECT_EQ(Match("[$][ETM]", 0), 1);
  EXPECT_EQ(Match("[$][ETM]", 1), 0);
  EXPECT_EQ(Match("[3][ETM]", 0), 0);  // past the last morpheme
  EXPECT_EQ(Match("[1][VV][:갈:]", 2), 1);
  EXPECT_EQ(Match("[1][VV][:갈:]", 0), 0);
}

TEST_F(MorphemeRuleTest, AnyMorphemeFromStart) {
  EXPECT_EQ(Match("[0][ETM]", 0), 1);
  EXPECT_EQ(Match("[0][VV]", 0, 1), 0);  // the search starts at morpheme 1
  EXPECT_EQ(Match("[0][JX]", 1, 1), 1);
}

TEST_F(MorphemeRuleTest, ExclusionLooksAtOtherCandidates) {
  // Placed: every candidate counts, the one under test included.
  EXPECT_EQ(Match("[1][VV:!NNG]", 0), 0);
  EXPECT_EQ(Match("[2][ETM:!JKG]", 0), 1);
  // Any-morpheme: candidates from the one under test on.
  EXPECT_EQ(Match("[0][VV:!NNG]", 2), 1);
  EXPECT_EQ(Match("[0][VV:!NNG]", 0), 0);
}

TEST_F(MorphemeRuleTest, BadIndexIsReportedWithTheRuleNumber) {
  MorphemeInfo rule = Condition("[1][VV]");
  rule.index = -3;
  EXPECT_EQ(MatchMorphemeRule(rule, e, 0, 7, 0, log), -1);
  EXPECT_EQ(log.str(), "This rule is worng : 7\n");
}

TEST_F(MorphemeRuleTest, EojulPatternsPlaceAndCounts) {
  Grule g;
  ASSERT_EQ(ParseEojulPattern(g, "F%3+[1][VV]", 0), 1);
  ASSERT_EQ(ParseEojulPattern(g, "E#2", 1), 1);
  ASSERT_EQ(ParseEojulPattern(g, "", 2), 1);
  ASSERT_EQ(ParseEojulPattern(g, "#2+[1][VV]+[2][ETM]", 3), 1);
  EXPECT_EQ(MatchEojul(g.eojuls[0], e, 0, 2, 0, 1, log), 1);
  EXPECT_EQ(MatchEojul(g.eojuls[0], e, 1, 2, 0, 1, log), 0);
  EXPECT_EQ(MatchEojul(g.eojuls[0], e, 0, 2, 1, 1, log), 0);
  // Nothing but a place is met; nothing at all is not.
  EXPECT_EQ(MatchEojul(g.eojuls[1], e, 2, 2, 1, 1, log), 1);
  EXPECT_EQ(MatchEojul(g.eojuls[1], e, 1, 2, 1, 1, log), 0);
  EXPECT_EQ(MatchEojul(g.eojuls[2], e, 1, 2, 1, 1, log), 0);
  // Each condition k searches from morpheme k on.
  EXPECT_EQ(MatchEojul(g.eojuls[3], e, 1, 2, 2, 1, log), 1);
  EXPECT_EQ(log.str(), "");
  g.eojuls[3].place = 5;
  EXPECT_EQ(MatchEojul(g.eojuls[3], e, 1, 2, 2, 4, log), -1);
  EXPECT_EQ(log.str(), "This rule is worng : 4\n");
}

}  // namespace
}  // namespace Quorel
