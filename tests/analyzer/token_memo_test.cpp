// The token memo: its keys and carried values on hand-built eojuls, and an
// analyzer with it answering every token as one without it would, across
// repeated tokens, knowledge loaded later and option changes.
#include "analyzer/token_memo.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "analyzer/driver_helpers.h"
#include "common/eojul_readings.h"
#include "common/test_support.h"
#include "eojul/tag_set.h"

namespace Quorel {
namespace {

using testing_driver::Cp949;
using testing_driver::DriverFixture;
using testing_driver::SmallKnowledge;
using testsupport::EojulReadings;
using Carried = TokenMemo::Carried;
using FlowUse = TokenMemo::FlowUse;

constexpr unsigned kHangul = EojulType::kDoubleByte;

// A token with two scored candidates, as an analysis leaves it.
void Analysed(Eojul& e, const char* token, unsigned type = kHangul) {
  e.SetText(token, type);
  e.BeginCandidate();
  e.AddMorpheme("x", Pos::NNG);
  e.AddMorpheme("y", Pos::JX);
  e.SetCandidateScore(1.25);
  e.EndCandidate();
  e.BeginCandidate();
  e.AddSurfaceMorpheme(Pos::NNP);
  e.SetCandidateScore(0.5);
  e.EndCandidate();
}

class TokenMemoTest : public ::testing::Test {
 protected:
  // Keeps `kept` for its own surface, made with `in`.
  void Keep(const Eojul& kept, const Carried& in, const FlowUse& use,
            const Carried& out) {
    Eojul& source = const_cast<Eojul&>(kept);
    const char* token = source.GetString();
    const auto length = static_cast<uint32_t>(std::strlen(token));
    memo.Keep(TokenMemo::KeyOf(token, length), length, source.GetType(), in,
              use, kept, out);
  }
  // Recall of `token` into `into` (given the surface first).
  bool Recall(const char* token, unsigned type, const Carried& in,
              Eojul& into, Carried& out) {
    into.SetText(token, type);
    const auto length = static_cast<uint32_t>(std::strlen(token));
    return memo.Recall(TokenMemo::KeyOf(token, length), token, length, type,
                       in, into, out);
  }

  TokenMemo memo;
  Eojul kept;
  Eojul into;
  Carried out;
};

TEST_F(TokenMemoTest, KeptTokenIsRecalledWithWhatItLeft) {
  EXPECT_FALSE(Recall("ab", kHangul, Carried{}, into, out));
  Analysed(kept, "ab");
  Keep(kept, Carried{0, 0}, FlowUse{false, true}, Carried{1, 3});
  EXPECT_EQ(memo.Count(), 1u);
  ASSERT_TRUE(Recall("ab", kHangul, Carried{0, 0}, into, out));
  EXPECT_EQ(EojulReadings(into), EojulReadings(kept));
  EXPECT_EQ(out.contextCode, 1);
  EXPECT_EQ(out.scoreFlow, 3);
  EXPECT_EQ(memo.Lookups(), 2u);
  EXPECT_EQ(memo.Recalls(), 1u);
}

TEST_F(TokenMemoTest, OtherBytesTypeOrContextMiss) {
  Analysed(kept, "ab");
  Keep(kept, Carried{1, 0}, FlowUse{}, Carried{0, 0});
  EXPECT_FALSE(Recall("abc", kHangul, Carried{1, 0}, into, out));
  EXPECT_FALSE(Recall("ac", kHangul, Carried{1, 0}, into, out));
  EXPECT_FALSE(Recall("ab", EojulType::kLatin, Carried{1, 0}, into, out));
  EXPECT_FALSE(Recall("ab", kHangul, Carried{5, 0}, into, out));
  EXPECT_TRUE(Recall("ab", kHangul, Carried{1, 0}, into, out));
}

TEST_F(TokenMemoTest, ScoreFlowIsMatchedOnlyWhenTheTokenReadIt) {
  // Passed on: any flow matches and comes back as it went in.
  Analysed(kept, "ab");
  Keep(kept, Carried{0, 2}, FlowUse{false, false}, Carried{0, 2});
  ASSERT_TRUE(Recall("ab", kHangul, Carried{0, 4}, into, out));
  EXPECT_EQ(out.scoreFlow, 4);
  // Replaced before any read: any flow matches, the new one comes back.
  Keep(kept, Carried{0, 2}, FlowUse{false, true}, Carried{0, 1});
  ASSERT_TRUE(Recall("ab", kHangul, Carried{0, 4}, into, out));
  EXPECT_EQ(out.scoreFlow, 1);
  // Read: only the same flow matches.
  Keep(kept, Carried{0, 2}, FlowUse{true, true}, Carried{0, 1});
  EXPECT_FALSE(Recall("ab", kHangul, Carried{0, 4}, into, out));
  ASSERT_TRUE(Recall("ab", kHangul, Carried{0, 2}, into, out));
  EXPECT_EQ(out.scoreFlow, 1);
}

TEST_F(TokenMemoTest, ATokenOfTheSameSlotTakesItOver) {
  // Two different tokens that fall in one slot.
  std::string first = "a0", second;
  const uint32_t slot = TokenMemo::KeyOf(first.c_str(), 2).slot;
  for (int k = 1; second.empty(); ++k) {
    const std::string candidate = "a" + std::to_string(k);
    if (TokenMemo::KeyOf(candidate.c_str(),
                         static_cast<uint32_t>(candidate.size())).slot == slot) {
      second = candidate;
    }
  }
  Analysed(kept, first.c_str());
  Keep(kept, Carried{}, FlowUse{}, Carried{});
  EXPECT_FALSE(Recall(second.c_str(), kHangul, Carried{}, into, out));
  Analysed(kept, second.c_str());
  Keep(kept, Carried{}, FlowUse{}, Carried{});
  EXPECT_TRUE(Recall(second.c_str(), kHangul, Carried{}, into, out));
  EXPECT_FALSE(Recall(first.c_str(), kHangul, Carried{}, into, out));
  EXPECT_EQ(memo.Count(), 1u);
}

TEST_F(TokenMemoTest, FollowAndForgetEmptyIt) {
  int knowledge = 0, other = 0;
  memo.Follow(&knowledge, 7, 0);
  Analysed(kept, "ab");
  Keep(kept, Carried{}, FlowUse{}, Carried{});
  memo.Follow(&knowledge, 7, 0);  // nothing moved
  EXPECT_TRUE(Recall("ab", kHangul, Carried{}, into, out));
  memo.Follow(&knowledge, 8, 0);  // the knowledge changed
  EXPECT_FALSE(Recall("ab", kHangul, Carried{}, into, out));

  Keep(kept, Carried{}, FlowUse{}, Carried{});
  memo.Follow(&knowledge, 8, 2);  // the eojul's switches changed
  EXPECT_FALSE(Recall("ab", kHangul, Carried{}, into, out));

  Keep(kept, Carried{}, FlowUse{}, Carried{});
  memo.Follow(&other, 8, 2);  // another knowledge object
  EXPECT_FALSE(Recall("ab", kHangul, Carried{}, into, out));

  Keep(kept, Carried{}, FlowUse{}, Carried{});
  memo.Forget();
  EXPECT_FALSE(Recall("ab", kHangul, Carried{}, into, out));
  EXPECT_EQ(memo.Count(), 0u);
}

TEST_F(TokenMemoTest, WhatDoesNotPackIsNotKept) {
  kept.SetText("ab", kHangul);
  for (int k = 0; k < 40; ++k) {
    kept.BeginCandidate();
    kept.AddMorpheme("ab", Pos::NNG);
    kept.EndCandidate();
  }
  Keep(kept, Carried{}, FlowUse{}, Carried{});
  EXPECT_EQ(memo.Count(), 0u);
  EXPECT_FALSE(Recall("ab", kHangul, Carried{}, into, out));
}

// Two analyzers on one knowledge, with and without the memo; each text goes
// through both and every eojul must read the same.
class MemoAnalyzerTest : public ::testing::Test {
 protected:
  MemoAnalyzerTest() : fixture(SmallKnowledge()), plain(&fixture.knowledge) {
    fixture.analyzer.SetExOption(1);
    plain.SetExOption(1);
    plain.UseTokenMemo(false);
  }

  static std::vector<std::string> Run(MAnalyzer& analyzer,
                                      const std::string& utf8) {
    EXPECT_EQ(analyzer.RunWithString(Cp949(utf8).c_str()), 1);
    std::vector<std::string> all;
    for (int i = 0; i < analyzer.GetEojulCountInSentence(); ++i) {
      all.push_back(EojulReadings(*static_cast<Eojul*>(analyzer.GetEojulInSentence(i))));
    }
    return all;
  }
  // The text through both; returns the memo analyzer's readings.
  std::vector<std::string> Both(const std::string& utf8) {
    std::vector<std::string> withMemo = Run(fixture.analyzer, utf8);
    EXPECT_EQ(withMemo, Run(plain, utf8)) << utf8;
    return withMemo;
  }
  const TokenMemo& Memo() const { return fixture.analyzer.Memo(); }

  DriverFixture fixture;
  MAnalyzer plain;
};

TEST_F(MemoAnalyzerTest, RepeatedTokensReadAsAnalysedWithTheirOwnOffsets) {
  Both("나는 학교에서 사과를 먹는다 나는 학교에서 사과를 먹는다 나는");
  EXPECT_GE(Memo().Recalls(), 4u);
  // The same tokens in another order, with symbols and digits between.
  Both("사과를, 나는 (학교에서) 12개 사과를 나는 먹는다.");
  Both("한국어사전을 나는 한국어사전을");
  EXPECT_EQ(plain.Memo().Lookups(), 0u);
}

TEST_F(MemoAnalyzerTest, KnowledgeLoadedLaterIsSeen) {
  const std::vector<std::string> before = Both("한국어사전 나는 한국어사전");
  testsupport::TempDir dir;
  dir.Write("user.dic", "한국어사전\t32@5\n");
  ASSERT_EQ(1, fixture.knowledge.LoadUserNoun(dir.Path().c_str(), "user.dic", false));
  const std::vector<std::string> after = Both("한국어사전 나는 한국어사전");
  EXPECT_NE(before[0], after[0]);
}

TEST_F(MemoAnalyzerTest, OptionsAndSwitchesSetLaterAreSeen) {
  Both("나는 사과를 1.5kg 나는 사과를 1.5kg");
  fixture.analyzer.SetOption(13, 1);
  plain.SetOption(13, 1);
  Both("나는 사과를 1.5kg 나는 사과를 1.5kg");
  // A switch set on the eojul itself, not through SetOption.
  fixture.analyzer.CurrentEojul()->numberPunctuation = false;
  plain.CurrentEojul()->numberPunctuation = false;
  Both("나는 사과를 1.5kg 나는 사과를 1.5kg");
  // The passes that read more than the memo keeps turn it off.
  const uint64_t lookups = Memo().Lookups();
  fixture.analyzer.SetOption(17, 1);
  plain.SetOption(17, 1);
  Both("나는 사과를 나는 사과를");
  EXPECT_EQ(Memo().Lookups(), lookups);
}

TEST_F(MemoAnalyzerTest, AnotherKnowledgeObjectIsSeen) {
  Both("나는 사과를 먹는다");
  DriverFixture other({{"nng.dic", "사과를\n"}, {"js.dic", "는\t는/JX 2\n"}});
  fixture.analyzer.SetKnowledge(&other.knowledge);
  plain.SetKnowledge(&other.knowledge);
  Both("나는 사과를 먹는다");
}

}  // namespace
}  // namespace Quorel
