// CorpusStatistics: what is counted, in which order it is written, and what
// is left out so that the loaders read every line; the mapping of Sejong
// tags onto the tag-list strings of this analyzer.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/test_support.h"
#include "knowledge/corpus_statistics.h"
#include "tools/corpus_training.h"

namespace Quorel {
namespace {

using testsupport::Cp949;

std::vector<std::string> Pieces(std::initializer_list<const char*> utf8) {
  std::vector<std::string> pieces;
  for (const char* p : utf8) pieces.push_back(Cp949(p));
  return pieces;
}

std::vector<TaggedEojul> Sentence(
    std::initializer_list<std::pair<const char*, const char*>> eojuls) {
  std::vector<TaggedEojul> sentence;
  for (const auto& e : eojuls) sentence.push_back({Cp949(e.first), e.second});
  return sentence;
}

TEST(CorpusStatisticsTest, CompoundsGiveJointsAndPlacesAtTheFloor) {
  CorpusStatistics stats;
  for (int i = 0; i < 100; ++i) stats.AddCompound(Pieces({"국제", "의료", "관광", "협의회"}));
  for (int i = 0; i < 60; ++i) stats.AddCompound(Pieces({"의료", "관광"}));
  // 의료: 100 times in the middle and 60 first; 관광 160 times, 60 last.
  EXPECT_EQ(stats.DivInfoText(), Cp949("료 관\t160\n광 협\t100\n제 의\t100\n"));
  EXPECT_EQ(stats.PosInfoText(), Cp949("관광\t0\t100\t60\n의료\t60\t100\t0\n"
                                       "국제\t100\t0\t0\n협의회\t0\t0\t100\n"));
}

TEST(CorpusStatisticsTest, FrequenciesUnderTheFloorAreNotWritten) {
  CorpusStatistics stats;
  for (int i = 0; i < 99; ++i) stats.AddCompound(Pieces({"경기", "관광"}));
  EXPECT_EQ(stats.DivInfoText(), "");
  EXPECT_EQ(stats.PosInfoText(), "");
  // One-syllable pieces join but are not looked up by place.
  stats.AddCompound(Pieces({"경기", "관광"}));
  for (int i = 0; i < 100; ++i) stats.AddCompound(Pieces({"도", "내"}));
  EXPECT_EQ(stats.DivInfoText(), Cp949("기 관\t100\n도 내\t100\n"));
  EXPECT_EQ(stats.PosInfoText(), Cp949("경기\t100\t0\t0\n관광\t0\t0\t100\n"));
}

TEST(CorpusStatisticsTest, PiecesOtherThanHangulBreakTheCompound) {
  CorpusStatistics stats;
  for (int i = 0; i < 100; ++i) {
    stats.AddCompound(Pieces({"경기", "ab", "관광", "공사", "3", "학교"}));
  }
  // Left: 경기 alone; 관광+공사 a compound; 학교 alone.
  EXPECT_EQ(stats.DivInfoText(), Cp949("광 공\t100\n"));
  EXPECT_EQ(stats.PosInfoText(), Cp949("공사\t0\t0\t100\n관광\t100\t0\t0\n"));
}

TEST(CorpusStatisticsTest, SentenceEdgesAndEojulsWithoutTagList) {
  CorpusStatistics stats;
  stats.AddSentence(Sentence({{"가", "NNG"}, {"?", ""}, {"나", "VV+EM"}}));
  stats.AddSentence(Sentence({{"나", "VV+EM"}}));
  EXPECT_EQ(stats.SentenceCount(), 2u);
  // The eojul without a tag list is no context: 가 stands before 나.
  EXPECT_EQ(stats.TagListText(), "FOS\nEOS\nVV+EM\nNNG\n");
  EXPECT_EQ(stats.TagCountText(),
            "VV+EM\t2\nFOS\tEOS\t1\nNNG\tEOS\t1\nNNG\t1\nFOS\tVV+EM\t1\n");
  EXPECT_EQ(stats.WordListText(), Cp949("나\t2\n가\t1\n"));
  EXPECT_EQ(stats.WordCountText(), Cp949("나-VV+EM\t2\nFOS\tEOS\t1\nNNG\tEOS\t1\n"
                                         "가-NNG\t1\nFOS\tVV+EM\t1\n"));
}

TEST(CorpusStatisticsTest, SurfacesTheLoadersTakeForCommentsHaveNoWordEntry) {
  CorpusStatistics stats;
  stats.AddSentence(Sentence({{";", "SC"}, {"/", "SC"}, {"가", "NNG"}}));
  EXPECT_EQ(stats.TagListText(), "FOS\nEOS\nSC\nNNG\n");
  EXPECT_EQ(stats.TagCountText(),
            "SC\t2\nFOS\tSC\t1\nSC\tNNG\t1\nNNG\t1\nSC\tEOS\t1\n");
  EXPECT_EQ(stats.WordListText(), Cp949("가\t1\n"));
  EXPECT_EQ(stats.WordCountText(), Cp949("가-NNG\t1\nSC\tEOS\t1\n"));
}

TEST(CorpusStatisticsTest, TagListsWithoutAnIdAreLeftOutOfTheBlocks) {
  CorpusStatistics stats;
  // A tag list the loader would read as a comment gets no id.
  stats.AddSentence(Sentence({{"가", "NNG"}, {"나", "/X"}}));
  EXPECT_EQ(stats.TagListText(), "FOS\nEOS\nNNG\n");
  EXPECT_EQ(stats.TagCountText(), "NNG\t0\n");
  EXPECT_EQ(stats.WordCountText(), Cp949("가-NNG\t0\n"));
}

TEST(CorpusStatisticsTest, WriteMakesTheSixFiles) {
  testsupport::TempDir dir;
  CorpusStatistics stats;
  stats.AddSentence(Sentence({{"가", "NNG"}}));
  std::string error;
  ASSERT_TRUE(stats.Write(dir.Path(), error)) << error;
  EXPECT_EQ(dir.Read("sinfo/tag_list.txt"), "FOS\nEOS\nNNG\n");
  EXPECT_EQ(dir.Read("sinfo/taglist.klg"), "NNG\t1\nFOS\tEOS\t1\n");
  for (const char* name : {"divInfo_freq_sorted.txt", "posInfo_freq_sorted.txt",
                           "sinfo/word_list.txt", "sinfo/wordlist.klg"}) {
    EXPECT_TRUE(dir.Exists(name)) << name;
  }
  // Missing directories are made; a file in the way fails.
  EXPECT_TRUE(stats.Write(dir.File("new/place"), error));
  EXPECT_TRUE(dir.Exists("new/place/sinfo/wordlist.klg"));
  const std::string plain = dir.WriteRaw("plain", "x");
  EXPECT_FALSE(stats.Write(plain, error));
  EXPECT_NE(error.find("can't write"), std::string::npos);
}

TEST(SejongMappingTest, TagListsAreWrittenAsGetStrPosNamesThem) {
  using treebank::MappedTagList;
  using treebank::Morpheme;
  // Case josa and JKG, JX all come back as J_; a josa chain is one morpheme.
  EXPECT_EQ(MappedTagList({{"학교", "NNG"}, {"에서", "JKB"}, {"도", "JX"}}),
            "NNG+J_");
  EXPECT_EQ(MappedTagList({{"나라", "NNG"}, {"의", "JKG"}}), "NNG+J_");
  // EF and EC are EM, XSV and XSA XSD, VCP VC, VCN VA, NR NU, MAG MA.
  EXPECT_EQ(MappedTagList({{"공부", "NNG"}, {"하", "XSV"}, {"았", "EP"},
                           {"다", "EF"}}),
            "NNG+XSD+EP+EM");
  EXPECT_EQ(MappedTagList({{"깨끗", "XR"}, {"하", "XSA"}, {"고", "EC"}}),
            "NNG+XSD+EM");
  EXPECT_EQ(MappedTagList({{"것", "NNB"}, {"이", "VCP"}, {"다", "EF"}}),
            "NNB+VC+EM");
  EXPECT_EQ(MappedTagList({{"아니", "VCN"}, {"ㄴ", "ETM"}}), "VA+ETM");
  EXPECT_EQ(MappedTagList({{"하나", "NR"}}), "NU");
  EXPECT_EQ(MappedTagList({{"다시", "MAG"}}), "MA");
  // Punctuation is SC, Latin and Hanja FL, numbers SN.
  EXPECT_EQ(MappedTagList({{"3", "SN"}, {"개", "NNB"}, {".", "SF"}}), "SN+NNB+SC");
  EXPECT_EQ(MappedTagList({{"abc", "SL"}}), "FL");
  // A josa after something else starts a new morpheme.
  EXPECT_EQ(MappedTagList({{"나", "NP"}, {"도", "JX"}, {"가", "VV"},
                           {"아", "EC"}, {"요", "JX"}}),
            "NP+J_+VV+EM+J_");
  // A tag outside both sets leaves the list empty.
  EXPECT_EQ(MappedTagList({{"가", "nc"}}), "");
  EXPECT_EQ(MappedTagList({{"가", "XX"}}), "");
}

TEST(KaistMappingTest, TagListsOfKaistTagsAreThoseOfTheirSejongCounterparts) {
  using treebank::MappedTagList;
  const struct {
    std::vector<treebank::Morpheme> kaist;
    const char* list;
  } rows[] = {
      {{{"학교", "ncn"}, {"에서", "jca"}, {"는", "jxt"}}, "NNG+J_"},
      {{{"서울", "nq"}, {"이", "jp"}, {"ㅂ니다", "ef"}}, "NNP+VC+EM"},
      {{{"공부", "ncpa"}, {"하", "xsv"}, {"었", "ep"}, {"다", "ef"}}, "NNG+XSD+EP+EM"},
      {{{"그립", "paa"}, {"습니다", "ef"}, {".", "sf"}}, "VA+EM+SC"},
      {{{"찾", "pvg"}, {"아", "ecx"}, {"가", "px"}, {"ㄴ", "etm"}}, "VV+EM+VX+ETM"},
      {{{"3", "nnc"}, {"개", "nbu"}}, "SN+NNB"},   // digits are a number
      {{{"셋", "nnc"}}, "NU"},
      {{{"(", "sl"}, {"The", "f"}, {")", "sr"}}, "SC+FL+SC"},
      {{{"몹시", "mag"}, {"그", "mmd"}, {"나", "npp"}}, "MA+MM+NP"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(MappedTagList(row.kaist), row.list) << row.kaist[0].form;
  }
}

std::vector<TaggedEojul> OneEojul(const char* surface) {
  return Sentence({{surface, "NNG"}});
}

TEST(CorpusStatisticsTest, ScaledCountsClearTheFloorsAndKeepTheirProportions) {
  CorpusStatistics stats;
  stats.SetScale(100);
  stats.AddCompound(Pieces({"경기", "관광"}));
  stats.AddCompound(Pieces({"경기", "관광"}));
  stats.AddCompound(Pieces({"의료", "관광"}));
  stats.AddSentence(OneEojul("경기"));
  // Seen once or twice: 100 and 200, both at or over the floor.
  EXPECT_EQ(stats.DivInfoText(), Cp949("기 관\t200\n료 관\t100\n"));
  EXPECT_EQ(stats.PosInfoText(), Cp949("관광\t0\t0\t300\n경기\t200\t0\t0\n"
                                       "의료\t100\t0\t0\n"));
  EXPECT_EQ(stats.TagCountText(), "NNG\t1\nFOS\tEOS\t100\n");
  EXPECT_EQ(stats.WordListText(), Cp949("경기\t100\n"));
  // A factor below 1 counts as 1.
  stats.SetScale(0);
  EXPECT_EQ(stats.DivInfoText(), "");
}

TEST(CorpusStatisticsTest, WordEntriesNeedTheirSentences) {
  CorpusStatistics stats;
  stats.SetMinSentences(2);
  // 관광 is a piece of compounds in two sentences, 경기 twice in one.
  stats.AddCompound(Pieces({"경기", "관광"}));
  stats.AddCompound(Pieces({"경기", "관광"}));
  stats.AddSentence(Sentence({{"학교", "NNG"}, {"학교", "NNG"}}));
  stats.AddCompound(Pieces({"의료", "관광"}));
  stats.AddSentence(Sentence({{"학교", "NNG"}, {"나무", "NNG"}}));
  for (int i = 0; i < 100; ++i) stats.AddCompound(Pieces({"의료", "관광"}));
  stats.AddSentence(OneEojul("나무"));
  stats.SetScale(100);
  const std::string places = stats.PosInfoText();
  EXPECT_NE(places.find(Cp949("관광\t")), std::string::npos);
  EXPECT_NE(places.find(Cp949("의료\t")), std::string::npos);
  EXPECT_EQ(places.find(Cp949("경기\t")), std::string::npos);
  // Joints are no word entries and stay.
  EXPECT_NE(stats.DivInfoText().find(Cp949("기 관")), std::string::npos);
  EXPECT_EQ(stats.WordListText(), Cp949("학교\t300\n나무\t200\n"));
  const std::string words = stats.WordCountText();
  EXPECT_NE(words.find(Cp949("학교-NNG")), std::string::npos);
  EXPECT_NE(words.find(Cp949("나무-NNG")), std::string::npos);
  // 학교 is seen three times, in two sentences.
  stats.SetMinSentences(3);
  EXPECT_EQ(stats.WordListText(), "");
  EXPECT_EQ(stats.WordCountText().find(Cp949("학교")), std::string::npos);
}

}  // namespace
}  // namespace Quorel
