// Several analyzers on one shared knowledge, each on its own thread and its
// own texts at once: every text comes out exactly as one analyzer on one
// thread gives it, candidates, scores, offsets and tagging included. Built
// with ThreadSanitizer, this also shows that the shared knowledge is only
// read while the analyzers run.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "common/test_support.h"
#include "knowledge/dictionary.h"
#include "qrlsl/qrlsl.h"

namespace Quorel {
namespace {

using testsupport::Cp949;
using testsupport::TempDir;

constexpr int kThreads = 4;
constexpr size_t kCorpusSentences = 96;

// The shipped knowledge sources (UTF-8) written in CP949 and loaded, with
// their pre-analysis file.
void LoadShippedKnowledge(Dictionary& k, const TempDir& dir) {
  const std::filesystem::path src =
      std::filesystem::path(QRLSL_SOURCE_DIR) / "knowledge-src";
  for (const auto& entry : std::filesystem::directory_iterator(src)) {
    if (entry.path().extension() != ".dic") continue;
    dir.WriteRaw(entry.path().filename().string(),
                 Cp949(testsupport::ReadFile(entry.path().string())));
  }
  ASSERT_EQ(1, k.LoadKnowledge(dir.Path().c_str(), false, true));
  k.LoadPreAnalysis(dir.Path().c_str(), "preanal.sys.dic", true);
}

// Sample texts of every kind of token, and the first sentences of the
// corpus when it is there.
std::vector<std::string> Texts() {
  std::vector<std::string> texts = {
      "나는 학교에 갔다. 하늘이 맑다!",
      "3,000원짜리 사과를 2개 샀습니다 1.5kg",
      "\"책\"을 읽었다고 말했다... ABC뉴스의 기사 (2024.1.5)",
      "漢字와 한글 ㄱㄴㄷ 걸어가셨겠지요 도와주었다 예쁜 꽃들이 피었다",
  };
  const std::vector<std::string> corpus = testsupport::CorpusSentences();
  for (size_t i = 0; i < corpus.size() && i < kCorpusSentences; ++i) {
    texts.push_back(corpus[i]);
  }
  std::vector<std::string> cp949;
  for (const std::string& text : texts) {
    const std::string converted = Cp949(text);
    if (!converted.empty()) cp949.push_back(converted);
  }
  return cp949;
}

// Everything a host reads of the sentence, in one string.
std::string Show(QR_Analyzer& a) {
  std::ostringstream out;
  for (int i = 0; i < a.GetEojulCountInSentence(); ++i) {
    QR_Eojul& e = *a.GetEojulInSentence(static_cast<unsigned>(i));
    out << a.GetEojulOffsetInSentence(static_cast<unsigned>(i)) << ' '
        << e.GetString() << " best " << e.BestCandidate() << ':';
    for (int c = 0; c < e.GetListSize(); ++c) {
      out << " [" << e.GetScore(c);
      for (int m = 0; m < e.GetCount(c); ++m) {
        out << ' ' << e.GetLexicon(c, m) << '/' << e.GetStrPOS(c, m) << '@'
            << e.GetStartOffset(c, m) << '-' << e.GetEndOffset(c, m)
            << (e.IsIndexWord(c, m) ? "*" : "");
      }
      out << ']';
    }
    out << '\n';
  }
  return out.str();
}

// One text analysed, then tagged in both modes, as one string.
std::string Analyse(QR_Analyzer& a, const std::string& text) {
  std::string shown;
  a.RunWithString(text.c_str());
  shown += Show(a);
  a.Tagging(0);
  shown += Show(a);
  a.RunWithString(text.c_str());
  a.Tagging(1);
  shown += Show(a);
  return shown;
}

std::unique_ptr<QR_Analyzer> NewAnalyzer(QR_Knowledge& k) {
  std::unique_ptr<QR_Analyzer> a(CreateAnalyzer(&k));
  a->SetExOption(1);
  a->SetOption(0, 3);
  a->SetOption(1, 2);
  a->SetOption(11, 1);
  return a;
}

TEST(SharedKnowledgeThreads, AnalyzersOnSeveralThreadsAgreeWithOneThread) {
  TempDir dir;
  Dictionary knowledge(false);
  ::testing::internal::CaptureStderr();
  LoadShippedKnowledge(knowledge, dir);
  ::testing::internal::GetCapturedStderr();
  const std::vector<std::string> texts = Texts();
  ASSERT_GE(texts.size(), 4u);

  std::vector<std::string> expected;
  {
    std::unique_ptr<QR_Analyzer> single = NewAnalyzer(knowledge);
    for (const std::string& text : texts) {
      expected.push_back(Analyse(*single, text));
    }
  }

  // The analysis found words, not only unknown tokens.
  ASSERT_NE(std::string::npos, expected[0].find(Cp949("학교/NNG")));

  // Thread t starts at its own quarter of the texts and goes round them
  // all, so that at any moment the threads analyse different texts and each
  // text is analysed on every thread.
  const size_t n = texts.size();
  std::vector<std::vector<std::string>> results(kThreads);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      std::unique_ptr<QR_Analyzer> a = NewAnalyzer(knowledge);
      std::vector<std::string>& mine = results[t];
      mine.resize(n);
      const size_t start = static_cast<size_t>(t) * n / kThreads;
      for (size_t k = 0; k < n; ++k) {
        const size_t i = (start + k) % n;
        mine[i] = Analyse(*a, texts[i]);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();

  for (int t = 0; t < kThreads; ++t) {
    for (size_t i = 0; i < texts.size(); ++i) {
      ASSERT_EQ(expected[i], results[t][i]) << "thread " << t << ", text " << i;
    }
  }
}

}  // namespace
}  // namespace Quorel
