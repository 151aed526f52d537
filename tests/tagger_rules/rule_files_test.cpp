// The rule files of the tagger: eojul rules, group-rule lines, eojul
// patterns and morpheme conditions, with their error reports.
#include "knowledge/rule_files.h"

#include <gtest/gtest.h>

#include <string>

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "tagging/tagging_helpers.h"

namespace Quorel {
namespace {

using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;
using testing_tagger::Cp949;
using testing_tagger::SinfoDirectory;

const std::string kFault = "The format of this rule is fault : ";

// Parses one pattern as pattern number 0 of a fresh rule; err gets stderr.
int Parse(const std::string& p, Grule& g, std::string& err) {
  CaptureStderr();
  int result = ParseEojulPattern(g, p, 0);
  err = GetCapturedStderr();
  return result;
}

TEST(EojulPatternTest, CountAtTheEndOfThePattern) {
  Grule g;
  std::string err;
  ASSERT_EQ(Parse("#3", g, err), 1);
  ASSERT_EQ(g.eojuls.size(), 1u);
  EXPECT_EQ(g.eojuls[0].morphCount, 3);
  EXPECT_TRUE(g.eojuls[0].morphemes.empty());
  EXPECT_EQ(err, "");
}

TEST(EojulPatternTest, TheCharacterBehindACountIsPassedOver) {
  Grule g;
  std::string err;
  // The "[" behind the digit is lost and "1" is read as an item.
  EXPECT_EQ(Parse("#3[1][NNG]", g, err), -1);
  EXPECT_TRUE(g.eojuls.empty());
  EXPECT_EQ(err, kFault + "#3[1][NNG]\n");

  Grule h;
  ASSERT_EQ(Parse("#3+[1][NNG]", h, err), 1);
  ASSERT_EQ(h.eojuls.size(), 1u);
  EXPECT_EQ(h.eojuls[0].morphCount, 3);
  ASSERT_EQ(h.eojuls[0].morphemes.size(), 1u);
  EXPECT_EQ(h.eojuls[0].morphemes[0].index, 1);
  EXPECT_EQ(h.eojuls[0].morphemes[0].tagMask, Pos::NNG);
}

TEST(EojulPatternTest, PlacesCountsFocusAndConditions) {
  Grule g;
  std::string err;
  ASSERT_EQ(ParseEojulPattern(g, "N%2+@[1][VV]+[$][EC:ETM]", 2), 1);
  EXPECT_EQ(g.focus, 2);
  const EojulInfo& info = g.eojuls.at(0);
  EXPECT_EQ(info.place, 2);
  EXPECT_EQ(info.candidateCount, 2);
  ASSERT_EQ(info.morphemes.size(), 2u);
  EXPECT_EQ(info.morphemes[0].index, 1);
  EXPECT_EQ(info.morphemes[0].tagMask, Pos::VV);
  EXPECT_EQ(info.morphemes[1].index, -1);
  EXPECT_EQ(info.morphemes[1].tagMask, Pos::EM | Pos::ETM);

  Grule first;
  ASSERT_EQ(ParseEojulPattern(first, "F", 0), 1);
  EXPECT_EQ(first.eojuls[0].place, 1);
  Grule last;
  ASSERT_EQ(ParseEojulPattern(last, "E", 0), 1);
  EXPECT_EQ(last.eojuls[0].place, 3);
}

TEST(EojulPatternTest, UnknownItemIsReported) {
  Grule g;
  std::string err;
  EXPECT_EQ(Parse("F[1][NNG]X", g, err), 1);  // "X" is inside the condition
  EXPECT_EQ(err, "");
  Grule h;
  EXPECT_EQ(Parse("F[1][NNG]+X", h, err), -1);  // behind the "+" an item
  EXPECT_EQ(err, kFault + "F[1][NNG]+X\n");
  EXPECT_TRUE(h.eojuls.empty());
}

TEST(MorphemeConditionTest, IndexTagsAndExclusions) {
  MorphemeInfo info;
  ASSERT_EQ(ParseMorphemeCondition(info, "[$][NNG:!VV]"), 1);
  EXPECT_EQ(info.index, -1);
  EXPECT_EQ(info.tagMask, Pos::NNG);
  EXPECT_EQ(info.otherMask, Pos::VV);
  EXPECT_TRUE(info.lexiconList.empty());

  MorphemeInfo unknown;
  ASSERT_EQ(ParseMorphemeCondition(unknown, "[2][XYZ:JKG]"), 1);
  EXPECT_EQ(unknown.index, 2);
  EXPECT_EQ(unknown.tagMask, Pos::JKG);  // an unknown name adds nothing
}

TEST(MorphemeConditionTest, BadIndexFields) {
  MorphemeInfo info;
  EXPECT_EQ(ParseMorphemeCondition(info, "[][NNG]"), -1);
  EXPECT_EQ(ParseMorphemeCondition(info, "[a][NNG]"), -1);
  EXPECT_EQ(ParseMorphemeCondition(info, "[1x]"), -1);
  EXPECT_EQ(ParseMorphemeCondition(info, "[$$]"), -1);
  MorphemeInfo alone;
  EXPECT_EQ(ParseMorphemeCondition(alone, "[0]"), 1);
  EXPECT_EQ(alone.index, 0);
  EXPECT_EQ(alone.tagMask, 0u);
}

TEST(MorphemeConditionTest, LexiconsSplitInsideTheirDelimiters) {
  MorphemeInfo info;
  const std::string field = Cp949(":가:!나:");
  ASSERT_EQ(ParseMorphemeCondition(info, "[1][NNG][" + field + "]"), 1);
  EXPECT_EQ(info.lexiconList, field);
  ASSERT_EQ(info.lexicons.size(), 2u);
  EXPECT_EQ(info.lexicons.at(Cp949("가")), 0);
  EXPECT_EQ(info.lexicons.at(Cp949("!나")), 1);
}

TEST(MorphemeConditionTest, TheOpeningBracketIsNotTested) {
  MorphemeInfo info;
  ASSERT_EQ(ParseMorphemeCondition(info, "[1]xVV]y:a:]"), 1);
  EXPECT_EQ(info.tagMask, Pos::VV);
  EXPECT_EQ(info.lexiconList, ":a:");
  EXPECT_EQ(info.lexicons.count("a"), 1u);
}

TEST(GroupRuleLineTest, FocusPatternsAndDroppedLines) {
  std::vector<Grule> rules;
  ASSERT_TRUE(ParseGroupRuleLine(rules, " F[1][NNG] \t@[1][VV]\t[$][EC]"));
  ASSERT_EQ(rules.size(), 1u);
  EXPECT_EQ(rules[0].focus, 1);
  ASSERT_EQ(rules[0].eojuls.size(), 3u);
  EXPECT_EQ(rules[0].eojuls[0].place, 1);

  CaptureStderr();
  EXPECT_FALSE(ParseGroupRuleLine(rules, "[1][NNG]\t@[1][VV]\t"));
  EXPECT_EQ(GetCapturedStderr(), kFault + "[1][NNG]\t@[1][VV]\t\n");
  EXPECT_EQ(rules.size(), 1u);

  // A bad pattern is left out; the rule stands without it.
  CaptureStderr();
  ASSERT_TRUE(ParseGroupRuleLine(rules, "Q\t@[1][VV]"));
  EXPECT_EQ(GetCapturedStderr(), kFault + "Q\n");
  ASSERT_EQ(rules.size(), 2u);
  EXPECT_EQ(rules[1].focus, 1);
  EXPECT_EQ(rules[1].eojuls.size(), 1u);
}

TEST(RuleFilesTest, GroupRuleFileSkipsCommentsAndLinesWithoutFocus) {
  SinfoDirectory dir;
  dir.Write("grule.klg",
            "; comment\n/ comment\n  [1][NNG]\t@[1][VV]\n"
            "[1][NNG]\t[1][VV]\n\n[1][NNG]\t@[1][VV]\n");
  Dictionary d(false);
  CaptureStderr();
  EXPECT_EQ(d.LoadGroupRules(dir.Path()), 1);
  EXPECT_EQ(GetCapturedStderr(), "");
  ASSERT_EQ(d.groupRules.size(), 1u);
  EXPECT_EQ(d.groupRules[0].focus, 1);
  Dictionary none(false);
  EXPECT_EQ(none.LoadGroupRules("/nonexistent/qrl"), 0);
}

TEST(RuleFilesTest, EojulRuleFileMessagesAndLastLineWins) {
  SinfoDirectory dir;
  dir.Write("erule.klg",
            "; comment\n"
            "사과\t1\n"
            "배 \t 2 \n"
            "no tab here\n"
            " \t3\n"
            "\t3\n"
            "감\t \n"
            "귤\t1 2\n"
            "사과\t3\n");
  Dictionary d(false);
  CaptureStderr();
  EXPECT_EQ(d.LoadEojulRules(dir.Path()), 1);
  EXPECT_EQ(GetCapturedStderr(),
            "[0]" + kFault + "no tab here\n" +  //
                "[1]" + kFault + "\n" +         //
                "[2]" + kFault + " \n" +        //
                "[3]" + kFault + "1 2\n");
  EXPECT_EQ(GetEojulRule(d, Cp949("사과").c_str()), 3);
  EXPECT_EQ(GetEojulRule(d, Cp949("배").c_str()), 2);
  EXPECT_EQ(GetEojulRule(d, Cp949("귤").c_str()), -1);
  EXPECT_EQ(GetEojulRule(d, Cp949("사").c_str()), -1);   // a prefix
  EXPECT_EQ(GetEojulRule(d, Cp949("사과나").c_str()), -1);
  EXPECT_EQ(GetEojulRule(d, ""), -1);

  Dictionary none(false);
  EXPECT_EQ(none.LoadEojulRules("/nonexistent/qrl"), 0);
  EXPECT_EQ(GetEojulRule(none, Cp949("사과").c_str()), -1);
}

}  // namespace
}  // namespace Quorel
