// The folding of ending allomorphs that the treebank evaluation applies to
// gold and system morphemes before comparing them.
#include "tools/eval_compare.h"

#include <string>
#include <vector>

#include "gtest/gtest.h"

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

std::string Folded(std::vector<M> v) {
  Quorel::evaluation::FoldAllomorphs(v);
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

}  // namespace
