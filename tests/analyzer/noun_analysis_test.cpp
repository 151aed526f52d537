// Noun and unknown-word analysis over a small CP949 knowledge directory with
// joint and position frequencies: the results and scores of AnalyzeNoun in
// its modes, compound nouns and unknown pieces through the driver, the
// commit of pending stem ends, copula and suffix tails, and the remainder
// before an auxiliary predicate.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "analyzer/driver_helpers.h"
#include "common/test_support.h"
#include "eojul/tag_set.h"

namespace Quorel {

// Reaches the status fields and the pending tables of the analyzer.
struct NounAnalysisProbe {
  // The state the driver leaves for a fresh top-level token.
  static void Fresh(MAnalyzer& a) {
    a.analysisResult = 0;
    a.foundMask = 0;
    a.contextCode = 0;
    a.nounStage = 0;
    a.nounCut = 0;
    a.nounBest = -1;
    a.compoundState = 0;
    a.verbState = 0;
    a.levelIndex = 0;
    a.compoundTried = false;
    a.ResetEojulPool();
  }
  static void SetNounStage(MAnalyzer& a, int32_t v) { a.nounStage = v; }
  static void SetNounBest(MAnalyzer& a, int32_t v) { a.nounBest = v; }
  static void SetContextCode(MAnalyzer& a, int32_t v) { a.contextCode = v; }
  static void SetCompoundState(MAnalyzer& a, int32_t v) { a.compoundState = v; }
  static void SetFoundMask(MAnalyzer& a, uint32_t v) { a.foundMask = v; }
  static int32_t ContextCode(const MAnalyzer& a) { return a.contextCode; }
  static int32_t NounCut(const MAnalyzer& a) { return a.nounCut; }
  static int32_t NounBest(const MAnalyzer& a) { return a.nounBest; }
  static bool CompoundTried(const MAnalyzer& a) { return a.compoundTried; }
  static Eojul& Remainder(MAnalyzer& a) { return a.remainderEojul; }
  static void SetLevelEnding(MAnalyzer& a, const std::string& ending,
                             uint32_t bits) {
    a.levels[0].ending = ending.c_str();
    a.levels[0].endingBits = bits;
  }

  // The next entry of a pending table, counted.
  static Eojul& NextCopulaTail(MAnalyzer& a) {
    return a.eojulPool.copulaTails[a.pendingNounSuffix++];
  }
  static Eojul& NextSuffixTail(MAnalyzer& a) {
    return a.eojulPool.suffixTails[a.pendingNounOther++];
  }
  static Eojul& NextAuxTail(MAnalyzer& a) {
    return a.eojulPool.auxTails[a.auxTailCount++];
  }
  static void AddStemEnd(MAnalyzer& a, int32_t length, const jeInfo& reading) {
    StemEnd& entry = a.eojulPool.stemEnds[a.pendingNounEnding++];
    entry.length = length;
    entry.reading = reading;
  }
};

namespace {

using testing_driver::Candidates;
using testing_driver::Cp949;
using testing_driver::DriverFixture;
using List = std::vector<std::string>;
using Probe = NounAnalysisProbe;

constexpr unsigned kHangul = EojulType::kDoubleByte;
constexpr int kDriverMode = 87;
constexpr int kStemEndMode = 74;
constexpr int kProperMode = 80;
constexpr int kUserMode = 85;
constexpr int kSuffixMode = 88;

// Nouns for compounds (경기관광공사 divides two ways), one marked noun (전자,
// NFG), proper nouns with stored divisions of two alternatives (with unknown
// pieces in the last two); joints 가경 and 제정, and positions of 국가, 경제,
// 정책.
std::map<std::string, std::string> NounKnowledge() {
  return {
      {"nng.dic",
       "국가\n경제\n정책\n경기\n관광\n공사\n관광공사\n학교\n책\n@전자\n"},
      {"np.dic", "그\n"},
      {"nnb.dic", "개\t1\n"},
      {"nnp.dic", "대한민국\t22@4\n한빛누리\t1UU1@4\n누리한빛\tUU2@UUUU\n"},
      {"nni.dic", ""},
      {"nu.dic", ""},
      {"vv.dic", "먹\n가\n"},
      {"va.dic", ""},
      {"vx.dic", "가\n않\n"},
      {"ma.dic", ""},
      {"mm.dic", ""},
      {"ic.dic", ""},
      {"em.dic", "다\t다/EF 0\n어\t어/EC 0\n지\t지/EC 0\n기\t기/ETN 0\n"},
      {"js.dic",
       "의\t의/JKG 0\n과\t과/JC 1\n를\t를/JK 2\n을\t을/JK 1\n에\t에/JK 0\n"
       "에서\t에서/JK 0\n도\t도/JX 0\n이\t이/JK 1\n가\t가/JK 2\n"},
      {"xsn.dic", "들\n씩\n인\n"},
      {"xsnxsn.dic", ""},
      {"xp.dic", "신\n"},
      {"conj.dic", "및\n"},
      {"divInfo_freq_sorted.txt", "가 경\t500\n제 정\t300\n"},
      {"posInfo_freq_sorted.txt",
       "국가\t1000\t0\t0\n경제\t0\t500\t0\n정책\t0\t0\t2000\n"},
  };
}

class NounAnalysisTest : public ::testing::Test {
 protected:
  NounAnalysisTest() : fixture(NounKnowledge()) {
    divider.Bind(&fixture.knowledge);
  }

  MAnalyzer& Analyzer() { return fixture.analyzer; }

  // The analyzer's eojul holding `utf8`, with the status of a fresh token.
  Eojul& Fresh(const std::string& utf8) {
    Eojul& e = *Analyzer().CurrentEojul();
    e.SetText(Cp949(utf8).c_str(), kHangul);
    Probe::Fresh(Analyzer());
    return e;
  }

  // Score of group k when the divider alone divides `utf8` under `mode`.
  double PatternScore(const std::string& utf8, int mode, int k) {
    const std::string word = Cp949(utf8);
    divider.Divide(word.c_str(), mode);
    return divider.GetPatternScore(k);
  }

  // The josa reading of `utf8` as the split search stores it.
  jeInfo Josa(const std::string& utf8) {
    SearchJEInfo sjei;
    jeInfo out;
    fixture.knowledge.SearchJE(Cp949(utf8).c_str(), sjei);
    return fixture.knowledge.GetJEInfo(out, sjei, 0);
  }

  // Fills `tail` with the surface and one candidate of (form, POS) pairs.
  static void Fill(Eojul& tail, const std::string& surface,
                   std::initializer_list<std::pair<const char*, uint32_t>> parts,
                   double score = 0.0) {
    tail.SetText(Cp949(surface).c_str(), 0);
    tail.BeginCandidate();
    for (const auto& part : parts) tail.AddMorpheme(Cp949(part.first).c_str(), part.second);
    tail.SetCandidateScore(score);
    tail.EndCandidate();
  }

  DriverFixture fixture;
  NounDivider divider;
};

// ---- AnalyzeNoun: results ----

TEST_F(NounAnalysisTest, NoPatternIsMinusOneAndOpensNothing) {
  Eojul& e = Fresh("뷁뷁");
  EXPECT_EQ(-1, Analyzer().AnalyzeNoun(e, kDriverMode, -1));
  EXPECT_EQ(0, e.GetListSize());
  EXPECT_FALSE(Probe::CompoundTried(Analyzer()));
}

TEST_F(NounAnalysisTest, NegativeBestScoreIsMinusThree) {
  Eojul& e = Fresh("뷁뷁뷁뷁");
  EXPECT_EQ(-3, Analyzer().AnalyzeNoun(e, kDriverMode, -1));
  EXPECT_EQ(0, e.GetListSize());
}

TEST_F(NounAnalysisTest, OneGroupWithAnUnknownPieceIsRefusedOnAFreshToken) {
  Eojul& e = Fresh("국가뷁뷁정책");
  EXPECT_EQ(-2, Analyzer().AnalyzeNoun(e, kDriverMode, -1));
  EXPECT_EQ(0, e.GetListSize());
  // The suffix-tail mode answers "no pattern" instead.
  Fill(Probe::NextSuffixTail(Analyzer()), "국가뷁뷁정책", {{"하", Pos::XSD}});
  EXPECT_EQ(-1, Analyzer().AnalyzeNoun(e, kSuffixMode, 0));
  EXPECT_EQ(0, e.GetListSize());
}

TEST_F(NounAnalysisTest, SeveralGroupsAreRefusedOnlyWhenEachHoldsAnUnknown) {
  // Stored proper-noun divisions: one group free of unknown pieces lets the
  // pattern pass (with result 0 for the unknown piece).
  Eojul& e = Fresh("한빛누리");
  EXPECT_EQ(0, Analyzer().AnalyzeNoun(e, kProperMode, -1));
  e.EndCandidate();
  EXPECT_EQ(Candidates(e), (List{"한/NNG+빛누/NNR+리/NNG", "한빛누리/NNG"}));
  Eojul& all = Fresh("누리한빛");
  EXPECT_EQ(-2, Analyzer().AnalyzeNoun(all, kProperMode, -1));
  EXPECT_EQ(0, all.GetListSize());
}

TEST_F(NounAnalysisTest, UnknownPieceStandsOnceANounStageSaysSoAndScoresLess) {
  // A pending noun-plus-ending analysis (stage 3), or a ranked stem end,
  // skips the unknown-word tests.
  for (int variant = 0; variant < 2; ++variant) {
    Eojul& e = Fresh("국가뷁뷁정책");
    if (variant == 0) {
      Probe::SetNounStage(Analyzer(), 3);
    } else {
      Probe::SetNounBest(Analyzer(), 0);
    }
    EXPECT_EQ(0, Analyzer().AnalyzeNoun(e, kDriverMode, -1)) << variant;
    e.EndCandidate();
    EXPECT_EQ(Candidates(e), (List{"국가/NNG+뷁뷁/NNR+정책/NNG"}));
    EXPECT_EQ(PatternScore("국가뷁뷁정책", 2, 0) / 1.83, e.ScoreAt(0));
    EXPECT_EQ(1, Analyzer().NounStage());
    EXPECT_TRUE(Probe::CompoundTried(Analyzer()));
  }
}

TEST_F(NounAnalysisTest, MarkedNounBeforeASuffixScoresAsAnUnknown) {
  // 전자 is marked (NFG): before the suffix 들 its group is divided by 1.83,
  // and without an unknown piece the result stays the group count.
  Eojul& e = Fresh("국가전자들");
  EXPECT_EQ(1, Analyzer().AnalyzeNoun(e, kStemEndMode, -1));
  e.EndCandidate();
  EXPECT_EQ(Candidates(e), (List{"국가/NNG+전자/NFG+들/XSN"}));
  EXPECT_EQ(PatternScore("국가전자들", 10, 0) / 1.83, e.ScoreAt(0));
  EXPECT_EQ(10, Probe::ContextCode(Analyzer()));
  // Elsewhere in the word it costs nothing.
  Eojul& front = Fresh("전자국가들");
  EXPECT_EQ(1, Analyzer().AnalyzeNoun(front, kStemEndMode, -1));
  front.EndCandidate();
  EXPECT_EQ(Candidates(front), (List{"전자/NFG+국가/NNG+들/XSN"}));
  EXPECT_EQ(PatternScore("전자국가들", 10, 0), front.ScoreAt(0));
}

TEST_F(NounAnalysisTest, ThreeNounsMakeOneGroupScoredByItsRow) {
  Eojul& e = Fresh("국가경제정책");
  EXPECT_EQ(1, Analyzer().AnalyzeNoun(e, kDriverMode, -1));
  // The last candidate is left open for the caller.
  e.AddMorpheme(Cp949("도").c_str(), Pos::JX);
  e.EndCandidate();
  EXPECT_EQ(Candidates(e), (List{"국가/NNG+경제/NNG+정책/NNG+도/J_"}));
  EXPECT_EQ(PatternScore("국가경제정책", 2, 0), e.ScoreAt(0));
  EXPECT_EQ(2, Probe::ContextCode(Analyzer()));
}

TEST_F(NounAnalysisTest, DriverModeContextFollowsTheTokenBefore) {
  Eojul& e = Fresh("국가경제정책");
  Probe::SetContextCode(Analyzer(), 5);
  Analyzer().AnalyzeNoun(e, kDriverMode, -1);
  EXPECT_EQ(1, Probe::ContextCode(Analyzer()));
  // Context 1 writes the best row only: 경기 + 관광공사.
  Eojul& best = Fresh("경기관광공사");
  Probe::SetContextCode(Analyzer(), 5);
  EXPECT_EQ(1, Analyzer().AnalyzeNoun(best, kDriverMode, -1));
  best.EndCandidate();
  EXPECT_EQ(Candidates(best), (List{"경기/NNG+관광공사/NNG"}));
  // A predicate route's compound state 2 divides in context 0.
  Eojul& plain = Fresh("국가경제정책");
  Probe::SetCompoundState(Analyzer(), 2);
  Analyzer().AnalyzeNoun(plain, kDriverMode, -1);
  EXPECT_EQ(0, Probe::ContextCode(Analyzer()));
}

TEST_F(NounAnalysisTest, JosaClosingTheDriversDivisionBlocksTheStemEnd) {
  Eojul& e = Fresh("국가경제를");
  EXPECT_EQ(1, Analyzer().AnalyzeNoun(e, kDriverMode, -1));
  e.EndCandidate();
  EXPECT_EQ(Candidates(e), (List{"국가/NNG+경제/NNG+를/J_"}));
  EXPECT_EQ(2, Analyzer().NounStage());
  EXPECT_EQ(2, Probe::NounCut(Analyzer()));
}

TEST_F(NounAnalysisTest, StoredProperNounGroupsScoreByLengthAndCarryTheLevels) {
  // The noun stem hands the proper noun to the noun analysis with its level:
  // each group gets the josa, and both score 0.9 units a byte.
  Eojul& e = fixture.Analyze("대한민국을", kHangul);
  EXPECT_EQ(Candidates(e), (List{"대한/NNG+민국/NNG+을/J_", "대한민국/NNG+을/J_"}));
  EXPECT_EQ(0.9 * (8 * 0.31), e.ScoreAt(0));
  EXPECT_EQ(0.9 * (8 * 0.31), e.ScoreAt(1));
}

TEST_F(NounAnalysisTest, UserNounGroupsScoreByLengthTheLastByOnePointThreeMore) {
  testsupport::TempDir dir;
  dir.Write("user.dic", "한국어사전\t32@5\n");
  ASSERT_EQ(1, fixture.knowledge.LoadUserNoun(dir.Path().c_str(), "user.dic", false));
  Eojul& e = Fresh("한국어사전");
  EXPECT_EQ(2, Analyzer().AnalyzeNoun(e, kUserMode, -1));
  e.EndCandidate();
  EXPECT_EQ(Candidates(e), (List{"한국어/NNU+사전/NNU", "한국어사전/NNU"}));
  EXPECT_EQ(0.9 * (10 * 0.31), e.ScoreAt(0));
  EXPECT_EQ((0.9 * 1.3) * (10 * 0.31), e.ScoreAt(1));
  EXPECT_EQ(1.1700000000000002 * (10 * 0.31), e.ScoreAt(1));
  // The proper-noun mode keeps 0.9 for its last group too.
  Eojul& p = Fresh("대한민국");
  EXPECT_EQ(2, Analyzer().AnalyzeNoun(p, kProperMode, -1));
  p.EndCandidate();
  EXPECT_EQ(0.9 * (8 * 0.31), p.ScoreAt(1));
}

TEST_F(NounAnalysisTest, GroupWithoutARowScoreTakesItsPlainScore) {
  // 그들 is no noun: the divider's fixed answer has no row behind it.
  Eojul& e = Fresh("그들");
  EXPECT_EQ(1, Analyzer().AnalyzeNoun(e, kDriverMode, -1));
  e.EndCandidate();
  EXPECT_EQ(Candidates(e), (List{"그/NP+들/XSN"}));
  EXPECT_EQ(0.0, PatternScore("그들", 2, 0));
  // NP earns 0.4 units a byte; the suffix nothing.
  EXPECT_DOUBLE_EQ(0.4 * (2 * 0.31) * 0.87, e.ScoreAt(0));
}

TEST_F(NounAnalysisTest, ContractedHaModesPutTheirEndingBehindEachGroup) {
  // 경기관광공사 + 치 + 도: each finished group carries 하 지 and the levels;
  // the last is left to the caller.
  Eojul& e = Fresh("경기관광공사");
  Probe::SetLevelEnding(Analyzer(), Cp949("도"), Pos::JX);
  EXPECT_EQ(2, Analyzer().AnalyzeNoun(e, 90, 0));
  e.EndCandidate();
  EXPECT_EQ(Candidates(e), (List{"경기/NNG+관광/NNG+공사/NNG+하/XSD+지/EM+도/J_",
                                 "경기/NNG+관광공사/NNG"}));
  // After a user noun a division with a josa is refused.
  Eojul& josa = Fresh("국가경제를");
  EXPECT_EQ(-2, Analyzer().AnalyzeNoun(josa, 67, -1));
  EXPECT_EQ(0, josa.GetListSize());
  EXPECT_EQ(1, Analyzer().AnalyzeNoun(josa, 71, -1));
}

TEST_F(NounAnalysisTest, SuffixInAtTheEndBeforeACopulaMarksTheVerbState) {
  Eojul& e = Fresh("국가경제인");
  Fill(Probe::NextCopulaTail(Analyzer()), "국가경제인", {{"이", Pos::VC}});
  EXPECT_EQ(1, Analyzer().AnalyzeNoun(e, kDriverMode, -1));
  e.EndCandidate();
  EXPECT_EQ(Candidates(e), (List{"국가/NNG+경제/NNG+인/XSN"}));
  EXPECT_EQ(3, Analyzer().VerbState());
  // Not once a copula stood.
  Eojul& after = Fresh("국가경제인");
  Fill(Probe::NextCopulaTail(Analyzer()), "국가경제인", {{"이", Pos::VC}});
  Probe::SetFoundMask(Analyzer(), Pos::VC);
  Analyzer().AnalyzeNoun(after, kDriverMode, -1);
  EXPECT_EQ(0, Analyzer().VerbState());
}

// ---- Through the driver ----

TEST_F(NounAnalysisTest, CompoundOfThreeNounsComesBestPatternFirst) {
  Analyzer().SetOption(0, 2);
  Eojul& e = fixture.Run("경기관광공사");
  // Both divisions stand, each with the score of its row; the better one,
  // four syllables of 관광공사 in one piece, comes first.
  EXPECT_EQ(Candidates(e),
            (List{"경기/NNG+관광공사/NNG", "경기/NNG+관광/NNG+공사/NNG"}));
  const double rowOfTwo = PatternScore("경기관광공사", 2, 1);
  const double rowOfThree = PatternScore("경기관광공사", 2, 0);
  EXPECT_GT(rowOfTwo, rowOfThree);
  EXPECT_EQ(rowOfTwo, e.GetScore(0));
  EXPECT_EQ(rowOfThree, e.GetScore(1));
  EXPECT_EQ(1, Analyzer().CompoundState());

  Eojul& one = fixture.Run("국가경제정책");
  EXPECT_EQ(Candidates(one), (List{"국가/NNG+경제/NNG+정책/NNG"}));
  EXPECT_EQ(PatternScore("국가경제정책", 2, 0), one.GetScore(0));
}

TEST_F(NounAnalysisTest, NounWithAnUnknownPieceIsTheUnknownWordOfTheLastStep) {
  // Refused while the token is fresh, then built as the unknown word.
  Eojul& e = fixture.Run("국가뷁뷁정책");
  EXPECT_EQ(Candidates(e), (List{"국가/NNG+뷁뷁/NNR+정책/NNG"}));
  EXPECT_EQ(PatternScore("국가뷁뷁정책", 2, 0) / 1.83, e.GetScore(0));
  EXPECT_EQ(1, Analyzer().NounStage());
}

TEST_F(NounAnalysisTest, UnexplainedWordIsOneUnregisteredNoun) {
  for (const char* word : {"뷁뷁", "뷁뷁뷁뷁"}) {
    Eojul& e = fixture.Run(word);
    EXPECT_EQ(Candidates(e), (List{std::string(word) + "/NNR"})) << word;
    EXPECT_EQ(1.0, e.GetScore(0));
  }
}

// ---- Pending analyses ----

TEST_F(NounAnalysisTest, StemEndBeforeAJosaIsDividedAndJoined) {
  // The driver's own division of the whole word has an unknown piece and is
  // refused; the stem before 을 stands with the josa behind it.
  int result = 0;
  Eojul& e = fixture.Analyze("국가뷁뷁정책을", kHangul, &result);
  EXPECT_EQ(1, result);
  EXPECT_EQ(Candidates(e), (List{"국가/NNG+뷁뷁/NNR+정책/NNG+을/J_"}));
  EXPECT_EQ(PatternScore("국가뷁뷁정책", 10, 0) / 1.83 + 0.15, e.ScoreAt(0));
  // 을 ranks a stem end in the list 는:를:께:을:은.
  EXPECT_EQ(9, Probe::NounBest(Analyzer()));
}

TEST_F(NounAnalysisTest, StemEndThatNothingDividesStandsUnregistered) {
  int result = 0;
  Eojul& e = fixture.Analyze("뷁뷁을", kHangul, &result);
  EXPECT_EQ(1, result);
  EXPECT_EQ(Candidates(e), (List{"뷁뷁/NNR+을/J_"}));
  EXPECT_EQ(0.15, e.ScoreAt(0));
}

TEST_F(NounAnalysisTest, NegativeStemDivisionIsPassedOnAndTheWordFallsBack) {
  Eojul& e = Fresh("뷁뷁뷁뷁를");
  Probe::AddStemEnd(Analyzer(), 8, Josa("를"));
  Probe::SetNounStage(Analyzer(), 3);
  EXPECT_EQ(-3, Analyzer().CommitPending(e));
  EXPECT_EQ(0, e.GetListSize());
  EXPECT_STREQ(Cp949("뷁뷁뷁뷁를").c_str(), e.GetString());  // byte put back
  EXPECT_EQ(Candidates(fixture.Run("뷁뷁뷁뷁를")), (List{"뷁뷁뷁뷁를/NNR"}));
}

TEST_F(NounAnalysisTest, LoneStemEndOutsideTheListMarksAnUnregisteredClass) {
  // 가 ranks no stem end: a single division of the stem before it marks NNR
  // among the classes met.
  Eojul& e = Fresh("국가경제가");
  Probe::AddStemEnd(Analyzer(), 8, Josa("가"));
  Probe::SetNounStage(Analyzer(), 3);
  EXPECT_EQ(1, Analyzer().CommitPending(e));
  EXPECT_EQ(Candidates(e), (List{"국가/NNG+경제/NNG+가/J_"}));
  EXPECT_EQ(PatternScore("국가경제", 10, 0) + 0.15, e.ScoreAt(0));
  EXPECT_EQ(-1, Probe::NounBest(Analyzer()));
  EXPECT_EQ(Pos::NNR, Analyzer().FoundMask() & Pos::NNR);

  Eojul& ranked = Fresh("국가경제를");
  Probe::AddStemEnd(Analyzer(), 8, Josa("를"));
  Probe::SetNounStage(Analyzer(), 3);
  EXPECT_EQ(1, Analyzer().CommitPending(ranked));
  EXPECT_EQ(Candidates(ranked), (List{"국가/NNG+경제/NNG+를/J_"}));
  EXPECT_EQ(0u, Analyzer().FoundMask() & Pos::NNR);
}

TEST_F(NounAnalysisTest, CopulaTailJoinsTheDivisionOfItsNounPart) {
  Eojul& e = Fresh("국가경제이다");
  Fill(Probe::NextCopulaTail(Analyzer()), "국가경제",
       {{"이", Pos::VC}, {"다", 0x00400600}}, 0.25);
  EXPECT_EQ(1, Analyzer().CommitPending(e));
  EXPECT_EQ(Candidates(e), (List{"국가/NNG+경제/NNG+이/VC+다/EM"}));
  // The tail's own score is added to the group's.
  EXPECT_EQ(PatternScore("국가경제", 0, 0) + 0.25, e.ScoreAt(0));
}

TEST_F(NounAnalysisTest, CopulaTailWithoutPatternStandsUnregistered) {
  Eojul& e = Fresh("뷁뷁이다");
  Fill(Probe::NextCopulaTail(Analyzer()), "뷁뷁",
       {{"이", Pos::VC}, {"다", 0x00400600}});
  // A tail of one syllable is passed over.
  Fill(Probe::NextCopulaTail(Analyzer()), "뷁", {{"이", Pos::VC}});
  EXPECT_EQ(-1, Analyzer().CommitPending(e));
  EXPECT_EQ(Candidates(e), (List{"뷁뷁/NNR+이/VC+다/EM"}));
}

TEST_F(NounAnalysisTest, SuffixTailsCommitFirstAndPassOverRefusedDivisions) {
  Eojul& e = Fresh("국가경제하다");
  for (const char* noun : {"국가뷁뷁", "뷁뷁뷁뷁", "국가경제"}) {
    Fill(Probe::NextSuffixTail(Analyzer()), noun,
         {{"하", Pos::XSD}, {"다", 0x00400600}});
  }
  // Not reached: a suffix tail stood.
  Fill(Probe::NextCopulaTail(Analyzer()), "국가경제하",
       {{"이", Pos::VC}, {"다", 0x00400600}});
  // An unknown piece alone has no pattern here and stands unregistered; the
  // "%" of the second tail passes on; the last result is the group count.
  EXPECT_EQ(1, Analyzer().CommitPending(e));
  EXPECT_EQ(Candidates(e), (List{"국가뷁뷁/NNR+하/XSD+다/EM",
                                 "국가/NNG+경제/NNG+하/XSD+다/EM"}));
  EXPECT_EQ(PatternScore("국가경제", 0, 0), e.ScoreAt(1));
  EXPECT_EQ(1, Analyzer().NounStage());
}

TEST_F(NounAnalysisTest, CopulaTailsFollowWhenNoSuffixTailStood) {
  Eojul& e = Fresh("국가경제하이다");
  Fill(Probe::NextSuffixTail(Analyzer()), "뷁뷁뷁뷁",
       {{"하", Pos::XSD}, {"다", 0x00400600}});
  Fill(Probe::NextCopulaTail(Analyzer()), "국가경제하",
       {{"이", Pos::VC}, {"다", 0x00400600}});
  // The copula tail's piece 하 is unknown: refused on its own (-2).
  EXPECT_EQ(-2, Analyzer().CommitPending(e));
  EXPECT_EQ(0, e.GetListSize());
}

// ---- The remainder before an auxiliary predicate ----

TEST_F(NounAnalysisTest, RemainderOfAnAuxiliaryIsJoinedWithItsTail) {
  int result = 0;
  Eojul& e = fixture.Analyze("먹어가", kHangul, &result);
  EXPECT_EQ(1, result);
  EXPECT_EQ(Candidates(e), (List{"먹/VV+어/EM+가/VX+어/EM"}));
}

TEST_F(NounAnalysisTest, EndingJiStandsOnlyBeforeTheNegatingAuxiliaries) {
  Eojul& e = Fresh("먹지않다");
  Fill(Probe::NextAuxTail(Analyzer()), "먹지", {{"않", Pos::VX}, {"다", 0x00400600}});
  EXPECT_EQ(1, Analyzer().AnalyzeRemainder(e));
  EXPECT_EQ(Candidates(e), (List{"먹/VV+지/EM+않/VX+다/EM"}));

  Eojul& refused = Fresh("먹지가");
  Fill(Probe::NextAuxTail(Analyzer()), "먹지", {{"가", Pos::VX}, {"어", 0x00400600}});
  Probe::AddStemEnd(Analyzer(), 4, Josa("가"));
  EXPECT_EQ(0, Analyzer().AnalyzeRemainder(refused));
  EXPECT_EQ(0, refused.GetListSize());
  EXPECT_EQ(Candidates(Probe::Remainder(Analyzer())), (List{"먹/VV+지/EM"}));
  // The pending stem end is to be committed instead.
  EXPECT_EQ(3, Analyzer().NounStage());
}

TEST_F(NounAnalysisTest, AuxiliaryJiWantsAnEndingAOrEo) {
  Eojul& e = Fresh("먹어지다");
  Fill(Probe::NextAuxTail(Analyzer()), "먹어", {{"지", Pos::VX}, {"다", 0x00400600}});
  EXPECT_EQ(1, Analyzer().AnalyzeRemainder(e));
  EXPECT_EQ(Candidates(e), (List{"먹/VV+어/EM+지/VX+다/EM"}));

  Eojul& refused = Fresh("먹지지다");
  Fill(Probe::NextAuxTail(Analyzer()), "먹지", {{"지", Pos::VX}, {"다", 0x00400600}});
  EXPECT_EQ(0, Analyzer().AnalyzeRemainder(refused));
  EXPECT_EQ(0, refused.GetListSize());
}

}  // namespace
}  // namespace Quorel
