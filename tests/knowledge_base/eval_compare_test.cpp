// The folding of ending allomorphs that the treebank evaluation applies to
// gold and system morphemes before comparing them, and the coarse classes
// of gold morphemes where the tag sets differ in convention.
#include "tools/eval_compare.h"
#include "tools/treebank.h"

#include <string>
#include <vector>

#include "gtest/gtest.h"
#include "knowledge/dictionary.h"
#include "knowledge_base/kb_helpers.h"

namespace {

struct M {
  std::string form;
  std::string tag;
};

std::string Forms(const std::vector<M>& v) {
  std::string out;
  for (const M& m : v) out += (out.empty() ? "" : "+") + m.form;
  return out;
}

std::string Folded(std::vector<M> v,
                   unsigned folds = Quorel::evaluation::kFoldAll) {
  Quorel::evaluation::FoldAllomorphs(v, folds);
  return Forms(v);
}

TEST(FoldAllomorphs, OneSpellingForTheEndingsOfVowelHarmony) {
  EXPECT_EQ(Folded({{"통하", "VV"}, {"어", "EM"}}), "통하+아");
  EXPECT_EQ(Folded({{"나오", "VV"}, {"었", "EP"}, {"네요", "EM"}}), "나오+았+네요");
  EXPECT_EQ(Folded({{"먹", "VV"}, {"어서", "EM"}}), "먹+아서");
  EXPECT_EQ(Folded({{"먹", "VV"}, {"었었", "EP"}, {"다", "EM"}}), "먹+았었+다");
  // 여, 였 only behind 하: 하여 = 해, 하였다 = 했다.
  EXPECT_EQ(Folded({{"위하", "VV"}, {"여", "EM"}}), "위하+아");
  EXPECT_EQ(Folded({{"하", "XS"}, {"였", "EP"}, {"다", "EM"}}), "하+았+다");
  EXPECT_EQ(Folded({{"펴", "VV"}, {"여", "EM"}}), "펴+여");
}

TEST(FoldAllomorphs, OnlyEndingsAreFolded) {
  // A noun or josa that begins with the same syllable keeps its form.
  EXPECT_EQ(Folded({{"어머니", "N"}, {"에", "J"}}), "어머니+에");
  EXPECT_EQ(Folded({{"하", "XS"}, {"여름", "N"}}), "하+여름");
  EXPECT_EQ(Folded({{"어", "IC"}}), "어");
  // The tag is left as it is.
  std::vector<M> v = {{"가", "VV"}, {"어요", "EM"}};
  Quorel::evaluation::FoldAllomorphs(v);
  EXPECT_EQ(v[1].tag, "EM");
  EXPECT_EQ(v[1].form, "아요");
}

TEST(FoldAllomorphs, TheLinkingVowelFallsOut) {
  EXPECT_EQ(Folded({{"먹", "VV"}, {"으면", "EM"}}), "먹+면");
  EXPECT_EQ(Folded({{"읽", "VV"}, {"으시", "EP"}, {"고", "EM"}}), "읽+시+고");
  EXPECT_EQ(Folded({{"같", "VA"}, {"은", "ETM"}}), "같+ㄴ");
  EXPECT_EQ(Folded({{"먹", "VV"}, {"을까", "EM"}}), "먹+ㄹ까");
  EXPECT_EQ(Folded({{"먹", "VV"}, {"음", "ETN"}}), "먹+ㅁ");
  EXPECT_EQ(Folded({{"먹", "VV"}, {"습니다", "EM"}}), "먹+ㅂ니다");
  // A josa keeps its 으 and its 은; 으 alone is no linking vowel.
  EXPECT_EQ(Folded({{"집", "N"}, {"으로", "J"}}), "집+으로");
  EXPECT_EQ(Folded({{"책", "N"}, {"은", "J"}}), "책+은");
  EXPECT_EQ(Folded({{"으", "EM"}}), "으");
}

TEST(FoldAllomorphs, EachFoldAlone) {
  using Quorel::evaluation::kFoldHarmony;
  using Quorel::evaluation::kFoldLinkingVowel;
  std::vector<M> v = {{"먹", "VV"}, {"었", "EP"}, {"으면", "EM"}};
  EXPECT_EQ(Folded(v, kFoldHarmony), "먹+았+으면");
  EXPECT_EQ(Folded(v, kFoldLinkingVowel), "먹+었+면");
  EXPECT_EQ(Folded(v, 0), "먹+었+으면");
}

std::string Gold(const std::string& lemma, const std::string& xpos) {
  Quorel::treebank::Token token;
  token.lemma = lemma;
  token.xpos = xpos;
  std::vector<Quorel::treebank::Morpheme> out;
  if (!Quorel::treebank::GoldOfToken(token, out)) return "(none)";
  std::string text;
  for (const auto& m : out) text += (text.empty() ? "" : "+") + m.form + "/" + m.tag;
  return text;
}

TEST(GoldOfToken, AKaistNumeralInDigitsIsANumber) {
  EXPECT_EQ(Gold("3+개", "nnc+nbu"), "3/SN+개/N");
  EXPECT_EQ(Gold("1,828+건", "nnc+nbu"), "1,828/SN+건/N");
  EXPECT_EQ(Gold("1.2+배", "nnc+nbu"), "1.2/SN+배/N");
  // A numeral in letters stays a noun, and the Sejong tags are as they were.
  EXPECT_EQ(Gold("하나+에", "nnc+jca"), "하나/N+에/J");
  EXPECT_EQ(Gold("3+개", "SN+NNB"), "3/SN+개/N");
}

TEST(JosaParts, AGluedChainIsCutIntoItsKeys) {
  Quorel::Dictionary dic(false);
  ASSERT_EQ(dic.LoadKnowledge(kbtest::CoreKnowledgeDir().c_str(), false, true), 1);
  auto parts = [&](const std::string& josa) {
    std::string joined;
    for (const std::string& p : Quorel::treebank::JosaParts(dic, kbtest::Cp949(josa))) {
      joined += (joined.empty() ? "" : "+") + kbtest::Utf8(p);
    }
    return joined;
  };
  EXPECT_EQ(parts("에서도"), "에서+도");
  EXPECT_EQ(parts("까지는"), "까지+는");
  // A josa and the genitive stored as one key are two morphemes.
  EXPECT_EQ(parts("과의"), "과+의");
  EXPECT_EQ(parts("에서의"), "에서+의");
  EXPECT_EQ(parts("로부터의"), "로부터+의");
  // Chains stored as one key are cut before their last josa.
  EXPECT_EQ(parts("에서부터"), "에서+부터");
  EXPECT_EQ(parts("으로는"), "으로+는");
  EXPECT_EQ(parts("에서부터는"), "에서+부터+는");
  // One josa stays whole; so does a text that is no chain of keys.
  EXPECT_EQ(parts("으로부터"), "으로부터");
  EXPECT_EQ(parts("로부터"), "로부터");
  EXPECT_EQ(parts("이나"), "이나");
  EXPECT_EQ(parts("의"), "의");
  EXPECT_EQ(parts("학교"), "학교");
}

}  // namespace
