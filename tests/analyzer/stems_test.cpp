// Stem constructions over a small CP949 knowledge directory: noun + copula
// (written, silent, fused, ㅕ), derived stems with a predicative suffix, the
// contracted 하, prefinal endings, auxiliary chains, and the pending tails
// that the routes leave in the eojul pool.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "analyzer/driver_helpers.h"
#include "eojul/tag_set.h"

namespace Quorel {
namespace {

using testing_driver::CandidateText;
using testing_driver::Candidates;
using testing_driver::DriverFixture;
using testing_driver::Utf8;
using List = std::vector<std::string>;

constexpr unsigned kHangul = EojulType::kDoubleByte;
constexpr uint32_t kPastMark = 0x80000000;

// Endings are hexadecimal in their attach and type columns: 다 opens the
// copula route (0x1) and reads ㄴ다 into a final ㄴ (type 5); 니다 reads ㅂ니다
// into a final ㅂ (type 0x13 = 19); 서 is an open-stem ending (0x40).
std::map<std::string, std::string> StemKnowledge() {
  return {
      {"nng.dic", "학생\n의사\n공부\n생각\n사랑\n정\n편\n무심\n아이\n"},
      {"np.dic", "누구\n그\n"},
      {"vv.dic", "먹\n가\n버리\n보\n있\n생각하\n낫\n하\n치르\n"},
      {"vx.dic", "버리\n보\n있\n"},
      {"em.dic",
       "다\t다/EF 1#ㄴ다/EF 1 5\n니다\tㅂ니다/EF 1 13\n어\t어/EC 0\n"
       "고\t고/EC 0\n서\t서/EC 40\n야\t야/EC 0\n데\tㄴ데/EC 1 5\n"
       "는\t는/ETM 0\n"},
      {"js.dic", "는\t는/JX 2\n도\t도/JX 0\n"},
  };
}

// One pending tail as "surface : candidate".
std::string TailText(const Eojul& tail) {
  Eojul& t = const_cast<Eojul&>(tail);
  return Utf8(t.GetString()) + " : " + CandidateText(t, 0);
}

class StemsTest : public ::testing::Test {
 protected:
  StemsTest() : fixture(StemKnowledge()) {}

  // The cascade alone (no scoring), in stored order.
  List Analyze(const std::string& utf8) {
    return Candidates(fixture.Analyze(utf8, kHangul));
  }
  List CopulaTails() {
    List all;
    for (int k = 0; k < fixture.analyzer.PendingNounSuffix(); ++k) {
      all.push_back(TailText(fixture.analyzer.Pool().copulaTails[k]));
    }
    return all;
  }
  List SuffixTails() {
    List all;
    for (int k = 0; k < fixture.analyzer.PendingNounOther(); ++k) {
      all.push_back(TailText(fixture.analyzer.Pool().suffixTails[k]));
    }
    return all;
  }
  List AuxTails() {
    List all;
    for (int k = 0; k < fixture.analyzer.AuxTailCount(); ++k) {
      all.push_back(TailText(fixture.analyzer.Pool().auxTails[k]));
    }
    return all;
  }
  uint32_t Found() const { return fixture.analyzer.FoundMask(); }

  DriverFixture fixture;
};

// ---- Copula ----

TEST_F(StemsTest, WrittenCopulaAfterANoun) {
  EXPECT_EQ(Analyze("학생이다"), (List{"학생/NNG+이/VC+다/EM"}));
  EXPECT_EQ(Found() & Pos::VC, Pos::VC);
  // Before a prefinal ending the copula stands on its own level.
  EXPECT_EQ(Analyze("학생이었다"), (List{"학생/NNG+이/VC+었/EP+다/EM"}));
  EXPECT_EQ(Found() & (Pos::VC | Pos::EP), Pos::VC | Pos::EP);
}

TEST_F(StemsTest, WrittenYiMayEndTheNounItself) {
  // 아이 + silent 이; the part without 이 (아) waits as a copula tail.
  EXPECT_EQ(Analyze("아이다"), (List{"아이/NNG+이/VC+다/EM"}));
  EXPECT_EQ(CopulaTails(), (List{"아 : 이/VC+다/EM"}));
}

TEST_F(StemsTest, SilentCopulaFollowsOpenNounsOnly) {
  EXPECT_EQ(Analyze("의사다"), (List{"의사/NNG+이/VC+다/EM"}));
  EXPECT_EQ(Analyze("의사였다"), (List{"의사/NNG+이/VC+었/EP+다/EM"}));
  // 학생 is closed: no silent copula, nothing stored, the unknown word.
  EXPECT_EQ(Analyze("학생다"), (List{"학생다/NNR"}));
  EXPECT_TRUE(CopulaTails().empty());
}

TEST_F(StemsTest, FusedCopulaGivesItsFinalToTheEnding) {
  EXPECT_EQ(Analyze("학생입니다"), (List{"학생/NNG+이/VC+ㅂ니다/EM"}));
  // The split at 다 leaves 학생입니 for the noun analysis.
  EXPECT_EQ(CopulaTails(), (List{"학생입니 : 이/VC+다/EM"}));
}

TEST_F(StemsTest, FusedCopulaWithoutANounPartLeavesNoTail) {
  EXPECT_EQ(Analyze("학생인데"), (List{"학생/NNG+이/VC+ㄴ데/EM"}));
  // 인 alone before ㄴ데: nothing is left to wait for a noun analysis.
  EXPECT_EQ(Analyze("인데"), (List{"인데/NNR"}));
  EXPECT_TRUE(CopulaTails().empty());
}

TEST_F(StemsTest, YeoIsCopulaAndEoAfterANoun) {
  EXPECT_EQ(Analyze("누구여"), (List{"누구/NP+이/VC+어/EM"}));
}

// ---- Derived stems ----

TEST_F(StemsTest, NounWithPredicativeSuffixHa) {
  EXPECT_EQ(Analyze("공부하다"), (List{"공부/NNG+하/XSD+다/EM"}));
  EXPECT_EQ(Found() & Pos::XSD, Pos::XSD);
  // The silent copula and the auxiliary 하 leave their tails as well.
  EXPECT_EQ(CopulaTails(), (List{"공부하 : 이/VC+다/EM"}));
  EXPECT_EQ(AuxTails(), (List{"공부 : 하/VX+다/EM"}));
  EXPECT_TRUE(SuffixTails().empty());
}

TEST_F(StemsTest, SuffixWithItsEndingInsideTheLastSyllable) {
  EXPECT_EQ(Analyze("공부해"), (List{"공부/NNG+하/XSD+어/EM"}));
  // An open-stem ending gets its 어 in front.
  EXPECT_EQ(Analyze("공부해서"), (List{"공부/NNG+하/XSD+어서/EM"}));
  EXPECT_EQ(Analyze("공부했다"), (List{"공부/NNG+하/XSD+었/EP+다/EM"}));
  EXPECT_EQ(Analyze("생각돼"), (List{"생각/NNG+되/XSD+어/EM"}));
  EXPECT_EQ(Analyze("공부하여"), (List{"공부/NNG+하/XSD+어/EM"}));
}

TEST_F(StemsTest, SuffixWithAFusedFinal) {
  // 다우 is the surface of 답; 런 goes back to 럽.
  EXPECT_EQ(Analyze("정다운데"), (List{"정/NNG+답/XSD+ㄴ데/EM"}));
  EXPECT_EQ(Analyze("사랑스런데"), (List{"사랑/NNG+스럽/XSD+ㄴ데/EM"}));
  EXPECT_EQ(Analyze("정다워"), (List{"정/NNG+답/XSD+어/EM"}));
}

TEST_F(StemsTest, TwoSyllableStemTakesNoPlainSuffix) {
  // 정답 is 4 bytes: 정 + 답 is refused and the word stays unknown.
  EXPECT_EQ(Analyze("정답다"), (List{"정답다/NNR"}));
  EXPECT_EQ(Found() & Pos::XSD, 0u);
}

TEST_F(StemsTest, UnknownNounBeforeASuffixWaitsInSuffixTails) {
  Analyze("운동하다");
  EXPECT_EQ(SuffixTails(), (List{"운동 : 하/XSD+다/EM"}));
  EXPECT_EQ(Candidates(*fixture.analyzer.CurrentEojul()),
            (List{"운동/NNR+하/XSD+다/EM", "운동하다/NNR"}));
  // 저 alone is never the noun of a suffix: no suffix tail for it.
  Analyze("저하다");
  EXPECT_TRUE(SuffixTails().empty());
  EXPECT_EQ(AuxTails(), (List{"저 : 하/VX+다/EM"}));
}

// ---- Contracted 하 ----

TEST_F(StemsTest, ContractedHaBeforeJi) {
  Eojul& e = fixture.Analyze("무심치", kHangul);
  EXPECT_EQ(Candidates(e), (List{"무심/NNG+하/XSD+지/EM"}));
  // The route scores its newest candidate itself, lowered.
  EXPECT_GT(e.ScoreAt(0), 0.0);
  EXPECT_EQ(Analyze("무심치도"), (List{"무심/NNG+하/XSD+지/EM+도/J_"}));
}

TEST_F(StemsTest, ContractedHaBeforeGeWithThePredicateReading) {
  Eojul& e = fixture.Analyze("생각케", kHangul);
  EXPECT_EQ(Candidates(e),
            (List{"생각/NNG+하/XSD+게/EM", "생각하/VV+게/EM"}));
  EXPECT_EQ(e.ScoreAt(0), 0.0);
  EXPECT_GT(e.ScoreAt(1), 0.0);
  EXPECT_EQ(Analyze("생각케도"),
            (List{"생각/NNG+하/XSD+게/EM+도/J_", "생각하/VV+게/EM+도/J_"}));
  EXPECT_EQ(Found() & (Pos::N_ | Pos::XSD), Pos::N_ | Pos::XSD);
}

TEST_F(StemsTest, ContractedHaBeforeGi) {
  EXPECT_EQ(Analyze("편키는"), (List{"편/NNG+하/XSD+기/ETN+는/J_"}));
}

TEST_F(StemsTest, DemonstrativeTakesNoContractedHa) {
  EXPECT_EQ(Analyze("그치도"), (List{"그치/NNR+도/J_", "그치도/NNR"}));
}

// ---- Prefinal endings ----

TEST_F(StemsTest, HonorificPast) {
  EXPECT_EQ(Analyze("가셨다"), (List{"가/VV+셨/EP+다/EM"}));
  // 셨 holds the past marker ㅆ.
  EXPECT_EQ(Found() & (kPastMark | Pos::EP | Pos::V_),
            kPastMark | Pos::EP | Pos::V_);
  EXPECT_EQ(Analyze("가셨어"), (List{"가/VV+셨/EP+어/EM"}));
}

TEST_F(StemsTest, LongestPrefinalSequenceIsOneMorpheme) {
  EXPECT_EQ(Analyze("먹었겠다"), (List{"먹/VV+었겠/EP+다/EM"}));
  EXPECT_EQ(Analyze("가시었다"), (List{"가/VV+시었/EP+다/EM"}));
  EXPECT_EQ(Analyze("먹으신다"), (List{"먹/VV+으시/EP+ㄴ다/EM"}));
}

TEST_F(StemsTest, HonorificWithAFusedFinal) {
  EXPECT_EQ(Analyze("가신"), (List{"가/VV+시/EP+ㄴ/ETM"}));
  EXPECT_EQ(Analyze("치르신다"), (List{"치르/VV+시/EP+ㄴ다/EM"}));
  // 셔 alone is 시 + 어.
  EXPECT_EQ(Analyze("가셔"), (List{"가/VV+시/EP+어/EM"}));
}

TEST_F(StemsTest, PastMarkerFusedIntoTheStem) {
  EXPECT_EQ(Analyze("하였다"), (List{"하/VV+었/EP+다/EM"}));
  // The ㅅ irregular before 았: 나았 from 낫.
  EXPECT_EQ(Analyze("나았다"), (List{"낫/VV+았/EP+다/EM"}));
}

// ---- Auxiliary chains ----

TEST_F(StemsTest, AuxiliaryAsItsOwnEojul) {
  EXPECT_EQ(Analyze("먹어"), (List{"먹/VV+어/EM"}));
  EXPECT_EQ(Analyze("보다"), (List{"보/VV+다/EM", "보/VX+다/EM"}));
  EXPECT_EQ(Analyze("버렸다"),
            (List{"버리/VV+었/EP+다/EM", "버리/VX+었/EP+다/EM"}));
}

TEST_F(StemsTest, RePassReadsNoAuxiliary) {
  const unsigned sub = kHangul | EojulType::kSubToken;
  EXPECT_EQ(Candidates(fixture.Analyze("보다", sub)), (List{"보/VV+다/EM"}));
  EXPECT_EQ(Candidates(fixture.Analyze("버렸다", sub)),
            (List{"버리/VV+었/EP+다/EM"}));
}

TEST_F(StemsTest, AuxiliaryInsideOneEojul) {
  EXPECT_EQ(Analyze("먹고있다"), (List{"먹/VV+고/EM+있/VX+다/EM"}));
  EXPECT_EQ(AuxTails(), (List{"먹고 : 있/VX+다/EM"}));
  EXPECT_EQ(Analyze("먹어버렸다"),
            (List{"먹/VV+어/EM+버리/VX+었/EP+다/EM"}));
  EXPECT_EQ(AuxTails(), (List{"먹어 : 버리/VX+었/EP+다/EM"}));
  EXPECT_EQ(CopulaTails(), (List{"먹어버 : 이/VC+었/EP+다/EM"}));
}

TEST_F(StemsTest, GetAfterYaWaitsForTheStemBeforeIt) {
  EXPECT_EQ(Analyze("가야겠다"), (List{"가/VV+야/EM+겠/EP+다/EM"}));
  EXPECT_EQ(AuxTails(), (List{"가야 : 겠/EP+다/EM"}));
}

// ---- Tails on a re-analysis pass ----

// A sub-token (type 0x80) keeps the pool of its token: its copula and
// suffix tails carry the newest auxiliary tail behind their endings.
TEST_F(StemsTest, RePassTailsCarryTheNewestAuxiliary) {
  Analyze("먹고있다");
  ASSERT_EQ(AuxTails(), (List{"먹고 : 있/VX+다/EM"}));
  fixture.Analyze("운동하다", kHangul | EojulType::kSubToken);
  EXPECT_EQ(CopulaTails(), (List{"운동하 : 이/VC+다/EM+있/VX+다/EM"}));
  EXPECT_EQ(SuffixTails(), (List{"운동 : 하/XSD+다/EM+있/VX+다/EM"}));
}

TEST_F(StemsTest, RePassDropsSuffixTailsBeforeAnAdnominalEnding) {
  Analyze("먹고있다");
  fixture.Analyze("운동하는", kHangul | EojulType::kSubToken);
  EXPECT_TRUE(SuffixTails().empty());
  EXPECT_TRUE(CopulaTails().empty());
  // The auxiliary tail of the token stands untouched.
  EXPECT_EQ(AuxTails(), (List{"먹고 : 있/VX+다/EM"}));
}

// ---- Stem lookups answered from the word hits of the eojul ----

// SearchStem answers as SearchMain, field for field: from wordHits for the
// prefixes of the analysed word (hits and misses), by the trie for others.
TEST_F(StemsTest, StemSearchAnswersAsTheMainSearch) {
  using testing_driver::Cp949;
  Analyze("생각하다");
  const Dictionary& d = fixture.knowledge;
  const MAnalyzer& a = fixture.analyzer;
  int hits = 0;
  for (const char* utf8 : {"생", "생각", "생각하", "생각하다", "생각하다다",
                           "학생", "하", "각하", "공부", "생각해"}) {
    const StringEx key(Cp949(utf8).c_str());
    SearchInfo viaHits;
    SearchInfo viaTrie;
    const int found = a.SearchStem(key, viaHits);
    ASSERT_EQ(found, d.SearchMain(key, viaTrie)) << utf8;
    hits += found;
    EXPECT_EQ(viaHits.start, viaTrie.start) << utf8;
    EXPECT_EQ(viaHits.end, viaTrie.end) << utf8;
    EXPECT_EQ(viaHits.info.bits, viaTrie.info.bits) << utf8;
    EXPECT_EQ(viaHits.info.marks, viaTrie.info.marks) << utf8;
    EXPECT_EQ(viaHits.info.nnuInfo, viaTrie.info.nnuInfo) << utf8;
    EXPECT_EQ(viaHits.nnbText, viaTrie.nnbText) << utf8;
    EXPECT_EQ(viaHits.nnpText, viaTrie.nnpText) << utf8;
    EXPECT_EQ(viaHits.nnuText, viaTrie.nnuText) << utf8;
    EXPECT_EQ(viaHits.nuText, viaTrie.nuText) << utf8;
  }
  // 생각, 생각하, 학생, 하 and 공부 are words.
  EXPECT_EQ(hits, 5);
}

// The whole road with scoring keeps the analyses.
TEST_F(StemsTest, ScoredRunKeepsTheStemAnalyses) {
  Eojul& e = fixture.Run("학생이었다");
  EXPECT_EQ(Candidates(e), (List{"학생/NNG+이/VC+었/EP+다/EM"}));
  EXPECT_GT(e.GetScore(0), 0.0);
}

}  // namespace
}  // namespace Quorel
