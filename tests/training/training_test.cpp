// Learning from a tiny hand-written treebank over a small knowledge: the
// exact files, their loading by the Dictionary, and the frequency tagger
// choosing by them.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "common/test_support.h"
#include "knowledge/corpus_statistics.h"
#include "knowledge/dictionary.h"
#include "knowledge/tagger_files.h"
#include "qrlsl/qrlsl.h"
#include "tools/corpus_training.h"
#include "trie/lookup_records.h"

namespace Quorel {
namespace {

using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;
using testsupport::Cp949;
using testsupport::TempDir;
using testsupport::Utf8;

const char kCorpus[] = QRLSL_TEST_DATA_DIR "/training/tiny.conllu";

// The scanner cuts the three sentences into these eojuls and tag lists:
//   사람이 NNG+J_, 학교에서도 NNG+J_ (the josa chain glued), 밥을 NNG+J_,
//   먹는다 VV+EM, . SC
//   경기관광공사는 NNG+NNG+NNG+J_, 감을 VV+ETN+J_ (the analyzer's second
//   candidate), 먹고 VV+EM, 스타벅스가 NNP+J_ (unknown here: the corpus tags)
//   ab FL, - SC, cd는 FL+J_ (all three cut the token ab-cd: best candidate),
//   밥을 NNG+J_, 먹고 VV+EM
const char kTagList[] =
    "FOS\nEOS\nNNG+J_\nVV+EM\nSC\nFL\nFL+J_\nNNG+NNG+NNG+J_\nNNP+J_\n"
    "VV+ETN+J_\n";
const char kTagCounts[] =
    "NNG+J_\t4\n"
    "FL+J_\tVV+EM\t1\nFOS\tNNG+J_\t1\nNNG+J_\tNNG+J_\t1\nNNG+J_\tVV+EM\t1\n"
    "VV+EM\t3\n"
    "NNG+J_\tEOS\t1\nNNG+J_\tSC\t1\nVV+ETN+J_\tNNP+J_\t1\n"
    "SC\t2\n"
    "FL\tFL+J_\t1\nVV+EM\tEOS\t1\n"
    "FL\t1\nFOS\tSC\t1\n"
    "FL+J_\t1\nSC\tNNG+J_\t1\n"
    "NNG+NNG+NNG+J_\t1\nFOS\tVV+ETN+J_\t1\n"
    "NNP+J_\t1\nVV+EM\tEOS\t1\n"
    "VV+ETN+J_\t1\nNNG+NNG+NNG+J_\tVV+EM\t1\n";
// By count, then by CP949 bytes.
const char kWordList[] =
    "먹고\t2\n밥을\t2\n-\t1\n.\t1\nab\t1\ncd는\t1\n감을\t1\n경기관광공사는\t1\n"
    "먹는다\t1\n사람이\t1\n스타벅스가\t1\n학교에서도\t1\n";
const char kWordCounts[] =
    "먹고-VV+EM\t2\nNNG+J_\tEOS\t1\nVV+ETN+J_\tNNP+J_\t1\n"
    "밥을-NNG+J_\t2\nFL+J_\tVV+EM\t1\nNNG+J_\tVV+EM\t1\n"
    "--SC\t1\nFL\tFL+J_\t1\n"
    ".-SC\t1\nVV+EM\tEOS\t1\n"
    "ab-FL\t1\nFOS\tSC\t1\n"
    "cd는-FL+J_\t1\nSC\tNNG+J_\t1\n"
    "감을-VV+ETN+J_\t1\nNNG+NNG+NNG+J_\tVV+EM\t1\n"
    "경기관광공사는-NNG+NNG+NNG+J_\t1\nFOS\tVV+ETN+J_\t1\n"
    "먹는다-VV+EM\t1\nNNG+J_\tSC\t1\n"
    "사람이-NNG+J_\t1\nFOS\tNNG+J_\t1\n"
    "스타벅스가-NNP+J_\t1\nVV+EM\tEOS\t1\n"
    "학교에서도-NNG+J_\t1\nNNG+J_\tNNG+J_\t1\n";

class TrainingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    knowledge.Write("nng.dic", "학교\n사람\n경기\n관광\n공사\n밥\n감\n");
    knowledge.Write("vv.dic", "먹\n가\n");
    knowledge.Write("js.dic",
                    "에서\t에서/JK 0\n도\t도/JX 0\n이\t이/JK 0\n가\t가/JK 0\n"
                    "을\t을/JK 0\n는\t는/JX 0\n");
    knowledge.Write("em.dic", "고\t고/EC 0\n는다\t는다/EF 0\n");
    CaptureStderr();  // the files this knowledge lacks are reported
    const bool loaded = treebank::LoadKnowledgeDirectory(dic, knowledge.Path());
    GetCapturedStderr();
    ASSERT_TRUE(loaded);
    analyzer.reset(CreateAnalyzer(&dic));
    analyzer->SetExOption(1);
  }

  // Reads the tiny treebank `passes` times and writes the files to `out`.
  void Train(int passes) {
    for (int i = 0; i < passes; ++i) {
      ASSERT_TRUE(treebank::ReadConllu(
          kCorpus, [&](const std::vector<treebank::Token>& tokens) {
            treebank::TrainSentence(dic, *analyzer, tokens, stats, tally);
          }));
    }
    std::string error;
    ASSERT_TRUE(stats.Write(out.Path(), error)) << error;
  }

  // The chosen analysis of each eojul of `utf8` in tagging `mode`.
  std::vector<std::string> Tagged(const std::string& utf8, int mode) {
    analyzer->RunWithString(Cp949(utf8).c_str());
    analyzer->Tagging(mode);
    std::vector<std::string> shown;
    for (int i = 0; i < analyzer->GetEojulCountInSentence(); ++i) {
      QR_Eojul& e = *analyzer->GetEojulInSentence(i);
      std::string s;
      for (int m = 0; m < e.GetCount(0); ++m) {
        if (m > 0) s += "+";
        s += Utf8(e.GetLexicon(0, m)) + "/" + e.GetStrPOS(0, m);
      }
      shown.push_back(s);
    }
    return shown;
  }

  TempDir knowledge;
  TempDir out;
  Dictionary dic{false};
  std::unique_ptr<QR_Analyzer> analyzer;
  CorpusStatistics stats;
  treebank::TrainingTally tally;
};

TEST_F(TrainingTest, TinyTreebankGivesExactFiles) {
  Train(1);
  EXPECT_EQ(tally.sentences, 3);
  EXPECT_EQ(tally.aligned, 10);
  EXPECT_EQ(tally.mapped, 1);    // 스타벅스가
  EXPECT_EQ(tally.analysed, 3);  // ab, -, cd는
  EXPECT_EQ(tally.untagged, 0);
  EXPECT_EQ(out.Read("sinfo/tag_list.txt"), Cp949(kTagList));
  EXPECT_EQ(out.Read("sinfo/taglist.klg"), Cp949(kTagCounts));
  EXPECT_EQ(out.Read("sinfo/word_list.txt"), Cp949(kWordList));
  EXPECT_EQ(out.Read("sinfo/wordlist.klg"), Cp949(kWordCounts));
  // One compound seen once is far below the floor of 100.
  EXPECT_TRUE(out.Exists("divInfo_freq_sorted.txt"));
  EXPECT_EQ(out.Read("divInfo_freq_sorted.txt"), "");
  EXPECT_EQ(out.Read("posInfo_freq_sorted.txt"), "");
}

TEST_F(TrainingTest, CompoundFrequenciesAppearAtTheFloor) {
  Train(99);
  EXPECT_EQ(out.Read("divInfo_freq_sorted.txt"), "");
  EXPECT_EQ(out.Read("posInfo_freq_sorted.txt"), "");
  Train(1);
  // 경기+관광+공사: joints 기|관 and 광|공; 경기 first, 관광 middle, 공사 last.
  EXPECT_EQ(out.Read("divInfo_freq_sorted.txt"),
            Cp949("광 공\t100\n기 관\t100\n"));
  EXPECT_EQ(out.Read("posInfo_freq_sorted.txt"),
            Cp949("경기\t100\t0\t0\n공사\t0\t0\t100\n관광\t0\t100\t0\n"));
  EXPECT_EQ(out.Read("sinfo/word_list.txt").substr(0, 9), Cp949("먹고\t200\n"));
}

TEST_F(TrainingTest, FilesLoadWithoutMessages) {
  Train(100);
  Dictionary loaded(false);
  CaptureStderr();
  loaded.LoadTagLists(out.Path().c_str());
  EXPECT_EQ(GetCapturedStderr(), "\nTI loading\n[0] [8]\n\nWI loading\n[0] [12]\n");
  EXPECT_EQ(GetTagListId(loaded, "FOS"), 0);
  EXPECT_EQ(GetTagListId(loaded, "EOS"), 1);
  EXPECT_EQ(GetTagListId(loaded, "VV+ETN+J_"), 9);
  EXPECT_EQ(GetWordTotal(loaded, Cp949("밥을").c_str()), 200);
  int32_t index = -1;
  ASSERT_EQ(GetTagListIndex(loaded, 2, index), 1);  // NNG+J_
  EXPECT_EQ(loaded.tagListInfos[index].total, 400);
  ASSERT_EQ(GetWordIndex(loaded, Cp949("감을-VV+ETN+J_").c_str(), index), 1);
  EXPECT_EQ(loaded.wordListInfos[index].total, 100);

  // The compound frequencies go in with the source dictionaries.
  const char* names[] = {"nng.dic", "vv.dic", "js.dic", "em.dic"};
  for (const char* name : names) out.WriteRaw(name, knowledge.Read(name));
  Dictionary sources(false);
  CaptureStderr();
  ASSERT_GE(sources.LoadKnowledge(out.Path().c_str(), false, false), 1);
  const std::string messages = GetCapturedStderr();
  for (const char* fault : {"Error", "Can't", "Too many"}) {
    EXPECT_EQ(messages.find(fault), std::string::npos) << messages;
  }
  int32_t freq = 0;
  ASSERT_EQ(sources.GetDivFreq(Cp949("광공").c_str(), freq), 1);
  EXPECT_EQ(freq, 100);
  PosInfoRec rec;
  ASSERT_EQ(sources.GetPosFreq(Cp949("관광").c_str(), rec), 1);
  EXPECT_EQ(rec.counts[1], 100u);
  EXPECT_EQ(rec.counts[0] + rec.counts[2], 0u);
}

TEST_F(TrainingTest, StatTagChoosesTheLearntReading) {
  const std::string sentence = "경기관광공사는 감을 먹고";
  // The rules prefer the noun 감; so does mode 1 with no statistics.
  EXPECT_EQ(Tagged(sentence, 0)[1], "감/NNG+을/J_");
  EXPECT_EQ(Tagged(sentence, 1)[1], "감/NNG+을/J_");
  Train(1);
  CaptureStderr();
  dic.LoadTagLists(out.Path().c_str());
  GetCapturedStderr();
  dic.SetTaggerWeights(550.96, 370.28, 54.11, 8.8, 50.0);
  // Between NNG+NNG+NNG+J_ and VV+EM the treebank saw only VV+ETN+J_.
  EXPECT_EQ(Tagged(sentence, 1),
            (std::vector<std::string>{"경기/NNG+관광/NNG+공사/NNG+는/J_",
                                      "가/VV+ㅁ/ETN+을/J_", "먹/VV+고/EM"}));
  EXPECT_EQ(Tagged(sentence, 0)[1], "감/NNG+을/J_");
}

}  // namespace
}  // namespace Quorel
