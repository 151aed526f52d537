// Every sentence of the annotated corpus through two analyzers on the core
// knowledge, one answering recurring tokens from its token memo and one
// analysing every token: each eojul must read the same, before and after
// tagging in both modes.
#include <string>
#include <vector>

#include "analyzer/m_analyzer.h"
#include "common/eojul_readings.h"
#include "gtest/gtest.h"
#include "knowledge_base/kb_helpers.h"

namespace {

using kbtest::Cp949;
using Quorel::Eojul;
using Quorel::MAnalyzer;
using Quorel::testsupport::EojulReadings;

class TokenMemoCorpus : public kbtest::CoreKnowledgeSuite {
 protected:
  // The sentence through `analyzer`, tagged in `mode` unless it is -1.
  static std::vector<std::string> Run(MAnalyzer& analyzer, const std::string& cp949,
                                      int mode) {
    EXPECT_EQ(analyzer.RunWithString(cp949.c_str()), 1);
    if (mode >= 0) analyzer.Tagging(mode);
    std::vector<std::string> all;
    for (int i = 0; i < analyzer.GetEojulCountInSentence(); ++i) {
      all.push_back(EojulReadings(*static_cast<Eojul*>(analyzer.GetEojulInSentence(i))));
    }
    return all;
  }
};

TEST_F(TokenMemoCorpus, EverySentenceReadsAsWithoutTheMemo) {
  const std::vector<std::string> sentences = Quorel::testsupport::CorpusSentences();
  if (sentences.empty()) GTEST_SKIP() << "no corpus beside the repository";
  for (int mode = -1; mode <= 1; ++mode) {
    MAnalyzer memo(dic);
    MAnalyzer plain(dic);
    memo.SetExOption(1);
    plain.SetExOption(1);
    plain.UseTokenMemo(false);
    int differing = 0;
    for (const std::string& sentence : sentences) {
      const std::string cp949 = Cp949(sentence);
      if (Run(memo, cp949, mode) != Run(plain, cp949, mode)) {
        ADD_FAILURE() << "mode " << mode << ": " << sentence;
        if (++differing == 5) break;
      }
    }
    // Frequent tokens were answered from the memo.
    EXPECT_GT(memo.Memo().Recalls() * 5, memo.Memo().Lookups()) << mode;
  }
}

}  // namespace
