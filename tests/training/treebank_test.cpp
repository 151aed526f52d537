// Reading treebanks: tokens and their morphemes, the CP949 text the analyzer
// is given, and which tokens a scanner eojul covers.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/test_support.h"
#include "tools/corpus_training.h"
#include "tools/treebank.h"

namespace Quorel {
namespace {

using testsupport::Cp949;
using treebank::Token;

std::vector<std::vector<Token>> Read(const std::string& conllu) {
  testsupport::TempDir dir;
  std::string path = dir.WriteRaw("t.conllu", conllu);
  std::vector<std::vector<Token>> sentences;
  EXPECT_TRUE(treebank::ReadConllu(
      path, [&](const std::vector<Token>& tokens) { sentences.push_back(tokens); }));
  return sentences;
}

TEST(TreebankTest, TokensWithSpacingAndTheWholeLemma) {
  auto sentences = Read(
      "# text = 있다.\n"
      "1-2\t있다.\t_\t_\t_\t_\t_\t_\t_\t_\n"
      "1\t있다\t있\tAUX\tVX+EF\t_\t0\troot\t_\tOrigLemma=있+다|SpaceAfter=No\n"
      "2\t.\t.\tPUNCT\tSF\t_\t1\tpunct\t_\t_\n"
      "\n"
      "1\t가\t가\tVERB\tVV\t_\t0\troot\t_\t_\n");
  ASSERT_EQ(sentences.size(), 2u);
  ASSERT_EQ(sentences[0].size(), 2u);  // the range line is passed over
  EXPECT_EQ(sentences[0][0].lemma, "있+다");
  EXPECT_FALSE(sentences[0][0].spaceAfter);
  EXPECT_TRUE(sentences[0][1].spaceAfter);
  std::vector<treebank::Morpheme> gold;
  ASSERT_TRUE(treebank::GoldOfToken(sentences[0][0], gold));
  EXPECT_EQ(gold, (std::vector<treebank::Morpheme>{{"있", "VX"}, {"다", "EM"}}));
  EXPECT_EQ(sentences[1][0].lemma, "가");
  EXPECT_FALSE(treebank::ReadConllu("/no/such/file", [](const std::vector<Token>&) {}));
}

TEST(TreebankTest, LemmasAndTagsThatDoNotPairUpGiveNoMorphemes) {
  Token token{"있다", "있", "VX+EF", true};
  std::vector<treebank::Morpheme> out;
  EXPECT_FALSE(treebank::MorphemesOfToken(token, out));
  token.lemma = "있+";
  EXPECT_FALSE(treebank::MorphemesOfToken(token, out));
  // One tag takes the whole lemma, "+" and all.
  token = {"+", "+", "SW", true};
  ASSERT_TRUE(treebank::MorphemesOfToken(token, out));
  EXPECT_EQ(out.back().form, "+");
}

TEST(TreebankTest, TextJoinsEojulsAndLeavesOutWhatCp949CannotHold) {
  std::vector<Token> tokens = {{"학교", "", "", false}, {"에", "", "", true},
                               {"😀", "", "", true},   {"가", "", "", false},
                               {".", "", "", true}};
  treebank::SentenceText s = treebank::BuildText(tokens);
  EXPECT_EQ(s.text, Cp949("학교에 가."));
  EXPECT_EQ(s.eojulOfToken, (std::vector<size_t>{0, 0, 1, 2, 2}));
  using Span = std::pair<size_t, size_t>;
  const size_t none = treebank::kNoSpan;
  EXPECT_EQ(s.tokenSpans, (std::vector<Span>{{0, 4}, {4, 6}, {none, none},
                                             {7, 9}, {9, 10}}));
  EXPECT_EQ(s.eojulSpans, (std::vector<Span>{{0, 6}, {none, none}, {7, 10}}));

  size_t first = 0, last = 0;
  ASSERT_TRUE(treebank::CoveringTokens(s, 0, 6, first, last));
  EXPECT_EQ(first, 0u);
  EXPECT_EQ(last, 1u);
  ASSERT_TRUE(treebank::CoveringTokens(s, 9, 10, first, last));
  EXPECT_EQ(first, 4u);
  EXPECT_EQ(last, 4u);
  EXPECT_FALSE(treebank::CoveringTokens(s, 0, 2, first, last));  // cuts 학교
  EXPECT_FALSE(treebank::CoveringTokens(s, 2, 6, first, last));
  EXPECT_FALSE(treebank::CoveringTokens(s, 6, 7, first, last));  // the space
}

}  // namespace
}  // namespace Quorel
