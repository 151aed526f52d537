// Real sentences of the annotated corpus, analysed with an empty knowledge
// and tagged in both modes: every eojul keeps exactly one candidate.
#include <gtest/gtest.h>

#include "common/test_support.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "analyzer/m_analyzer.h"
#include "knowledge/dictionary.h"
#include "tagger/tagger.h"
#include "tagging/tagging_helpers.h"

namespace Quorel {
namespace {

using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;
using testing_tagger::Cp949;
using testing_tagger::SinfoDirectory;

using Quorel::testsupport::CorpusSentences;

TEST(CorpusSentencesTest, EveryEojulEndsWithOneCandidate) {
  const std::vector<std::string> sentences = CorpusSentences();
  if (sentences.empty()) GTEST_SKIP() << "no corpus beside the repository";
  SinfoDirectory empty;
  Dictionary knowledge(false);
  CaptureStderr();
  knowledge.LoadKnowledge(empty.Path(), false, true);
  GetCapturedStderr();
  MAnalyzer analyzer(&knowledge);
  analyzer.SetExOption(1);
  Tagger tagger;
  std::ostringstream log;
  tagger.Bind(&knowledge, &log);
  size_t several = 0;
  for (const std::string& utf8 : sentences) {
    ASSERT_EQ(analyzer.RunWithString(Cp949(utf8).c_str()), 1);
    const int count = analyzer.GetEojulCountInSentence();
    for (int mode = 0; mode <= 1; ++mode) {
      std::vector<Eojul> sentence;
      for (int i = 0; i < count; ++i) {
        Eojul* e = static_cast<Eojul*>(analyzer.GetEojulInSentence(i));
        if (mode == 0 && e->GetListSize() > 1) ++several;
        sentence.push_back(*e);
      }
      tagger.Tagging(sentence, mode);
      ASSERT_EQ(sentence.size(), static_cast<size_t>(count)) << utf8;
      for (Eojul& e : sentence) {
        ASSERT_EQ(e.GetListSize(), 1) << utf8 << " mode " << mode;
        for (int m = 0; m < e.GetCount(0); ++m) {
          EXPECT_GE(e.GetEndOffset(0, m), e.GetStartOffset(0, m));
        }
      }
    }
  }
  EXPECT_GT(several, 0u);  // the tagger had choices to make
  EXPECT_EQ(log.str(), "");
}

}  // namespace
}  // namespace Quorel
