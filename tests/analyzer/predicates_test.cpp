// Predicate analysis over a small CP949 knowledge directory: each sound-change
// handler on a form it must analyse and on a listed stem it must leave alone,
// with stem, ending and endingBits as it found them afterwards; AnalyzeWhole's
// word check and its choice of handlers, directly and through the cascade.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "analyzer/driver_helpers.h"
#include "eojul/tag_set.h"
#include "text/syllable_table.h"

namespace Quorel {

using testing_driver::Candidates;
using testing_driver::Cp949;
using testing_driver::DriverFixture;
using testing_driver::Utf8;
using List = std::vector<std::string>;

constexpr unsigned kHangul = EojulType::kDoubleByte;

// Sets up the state in which AnalyzeSplit and AnalyzeEomi (or the driver,
// for an empty ending) call a handler, on level 0 of a fresh eojul.
struct PredicateProbe {
  static Eojul& Prepare(DriverFixture& fixture, const std::string& stemUtf8,
                        const std::string& endingUtf8, unsigned type) {
    MAnalyzer& a = fixture.analyzer;
    const Dictionary& d = fixture.knowledge;
    const std::string stem = Cp949(stemUtf8);
    const std::string ending = Cp949(endingUtf8);
    const std::string word = stem + ending;
    Eojul& e = *a.CurrentEojul();
    e.SetText(word.c_str(), type);
    a.ResetEojulPool();
    a.levelIndex = 0;
    a.foundMask = 0;
    a.compoundState = 0;
    a.analysisLength = static_cast<int32_t>(word.size());
    a.wordHits.clear();
    d.SearchAll(word.c_str(), a.wordHits, 0, 0, 0, 1, 0, 0);
    LevelRec& level = a.levels[0];
    level.stem = stem.c_str();
    level.ending.Clear();
    level.endingBits = 0;
    a.curJe = jeInfo();
    a.curJongJe = jeInfo();
    const SyllableRec* last = LastSyllable(stem.c_str());
    const int jong = last != nullptr ? last->jongseong : 0;
    if (ending.empty()) {
      a.curJongJe = a.BareEomi(jong);
      return e;
    }
    SearchJEInfo sjei;
    d.SearchJE(ending.c_str(), sjei, static_cast<int32_t>(ending.size()));
    d.GetJEInfo(a.curJe, sjei, 1);
    if (jong == 5 || jong == 9 || jong == 19) d.GetJEInfo(a.curJongJe, sjei, jong);
    if (a.curJe.text != nullptr) level.ending = a.curJe.text;
    level.endingBits = a.curJe.text != nullptr ? a.curJe.bits : a.curJongJe.bits;
    return e;
  }
  // Raises the stack to level 1 with `stemUtf8` and its ending (as Prefinal
  // leaves it), level 0 keeping the ending Prepare gave it.
  static void PushLevel(MAnalyzer& a, const std::string& stemUtf8,
                        const std::string& endingUtf8, uint32_t bits) {
    LevelRec& upper = a.levels[1];
    upper.stem = Cp949(stemUtf8).c_str();
    upper.ending = Cp949(endingUtf8).c_str();
    upper.endingBits = bits;
    a.levelIndex = 1;
  }
  static uint32_t FoundMask(const MAnalyzer& a) { return a.foundMask; }
  static Eojul& AuxTail(MAnalyzer& a, int k) { return a.eojulPool.auxTails[k]; }
};

namespace {

// Verbs, adjectives and a few nouns; endings as written after a stem.
std::map<std::string, std::string> PredicateKnowledge() {
  return {
      {"vv.dic",
       "살\n쓰\n짓\n씻\n듣\n받\n돕\n이르\n보\n오\n되\n가\n서\n크\n모르\n"
       "흐르\n건너\n입\n가르\n공부하\n닿\n푸\n개\n벌\n"},
      {"va.dic", "춥\n곱\n파랗\n벌겋\n푸르\n크\n자연스럽\n"},
      {"vx.dic", "보\n"},
      {"nng.dic", "공부\n학교\n나\n"},
      {"np.dic", "나\n"},
      {"ma.dic", "아주\n학교\n"},
      {"em.dic",
       "니\t니/EF 0\n어\t어/EC 0\n아\t아/EC 0\n서\t서/EC 0\n여\t여/EC 0\n"
       "면\t면/EC 0\n게\t게/EC 0\n"
       // 니다 as written, and as ㅂ니다 fused into a final ㅂ (type 19).
       "니다\t니다/EF 0#ㅂ니다/EF 0 13\n"},
  };
}

// The top level as a handler found it.
struct LevelState {
  std::string stem;
  std::string ending;
  uint32_t endingBits;
  bool operator==(const LevelState& o) const {
    return stem == o.stem && ending == o.ending && endingBits == o.endingBits;
  }
};

LevelState StateOf(const MAnalyzer& a) {
  const LevelRec& level = a.LevelAt(0);
  return {Utf8(level.stem.CStr()), Utf8(level.ending.CStr()), level.endingBits};
}

std::ostream& operator<<(std::ostream& out, const LevelState& s) {
  return out << "[" << s.stem << "|" << s.ending << "|0x" << std::hex
             << s.endingBits << std::dec << "]";
}

using Handler = int (MAnalyzer::*)(Eojul&);

class PredicateTest : public ::testing::Test {
 protected:
  PredicateTest() : fixture(PredicateKnowledge()) {}

  // Runs `handler` on stem + ending; its candidates, and the level checked
  // to be as it was before.
  List Run(Handler handler, const std::string& stem, const std::string& ending,
           int* status = nullptr, unsigned type = kHangul) {
    Eojul& e = PredicateProbe::Prepare(fixture, stem, ending, type);
    const LevelState before = StateOf(fixture.analyzer);
    const int r = (fixture.analyzer.*handler)(e);
    if (status != nullptr) *status = r;
    EXPECT_EQ(StateOf(fixture.analyzer), before)
        << "level not restored after " << stem << "+" << ending;
    return Candidates(e);
  }

  // AnalyzeWhole on the whole word as the driver leaves it.
  List Whole(const std::string& word, int* status = nullptr,
             unsigned type = kHangul) {
    return Run(&MAnalyzer::AnalyzeWhole, word, "", status, type);
  }

  DriverFixture fixture;
};

// ---- Irregular stems ----

TEST_F(PredicateTest, EuDropReadsTheStemWithEu) {
  EXPECT_EQ(Whole("써"), (List{"쓰/VV+어/EM"}));
  // With an ending the 어 stands before it (LeadEo) and goes again.
  EXPECT_EQ(Run(&MAnalyzer::EuDrop, "써", "서"), (List{"쓰/VV+어서/EM"}));
  // A listed stem is regular in another class: 가라 is no 가르.
  EXPECT_EQ(Run(&MAnalyzer::EuDrop, "가라", ""), List{});
  // One syllable with ㅏ is left alone.
  EXPECT_EQ(Run(&MAnalyzer::EuDrop, "바", ""), List{});
}

TEST_F(PredicateTest, VerbAndAdjectiveBothStandVerbFirst) {
  EXPECT_EQ(Whole("커"), (List{"크/VV+어/EM", "크/VA+어/EM"}));
  EXPECT_NE(PredicateProbe::FoundMask(fixture.analyzer) & Pos::V_, 0u);
}

TEST_F(PredicateTest, LDropBeforeAnEndingAndFused) {
  EXPECT_EQ(Run(&MAnalyzer::LDrop, "사", "니"), (List{"살/VV+니/EM"}));
  // 어 does not follow a dropped ㄹ.
  EXPECT_EQ(Run(&MAnalyzer::LDrop, "사", "어"), List{});
  // The final ㄴ of 산 is the ending's: 살 + ㄴ.
  EXPECT_EQ(Whole("산"), (List{"살/VV+ㄴ/ETM"}));
  EXPECT_EQ(Run(&MAnalyzer::LDrop, "산", ""), (List{"살/VV+ㄴ/ETM"}));
  EXPECT_EQ(Run(&MAnalyzer::LDrop, "삽", "니다"), (List{"살/VV+ㅂ니다/EM"}));
}

TEST_F(PredicateTest, LDropWithoutVerbLeavesAnAuxiliaryTail) {
  // 만드니: no verb 만들, but 들 can be an auxiliary after 만.
  EXPECT_EQ(Run(&MAnalyzer::LDrop, "만드", "니"), List{});
  ASSERT_EQ(fixture.analyzer.AuxTailCount(), 1);
  Eojul& tail = PredicateProbe::AuxTail(fixture.analyzer, 0);
  EXPECT_EQ(Utf8(tail.GetString()), "만");
  EXPECT_EQ(Candidates(tail), (List{"들/VX+니/EM"}));
}

TEST_F(PredicateTest, SIrregularAddsSiotUnlessListed) {
  EXPECT_EQ(Run(&MAnalyzer::SIrregular, "지", "어"), (List{"짓/VV+어/EM"}));
  EXPECT_EQ(Run(&MAnalyzer::SIrregular, "씨", "어"), List{});  // 씻 is regular
  // The ending must begin with 아, 어 or 으.
  EXPECT_EQ(Run(&MAnalyzer::SIrregular, "지", "니"), List{});
}

TEST_F(PredicateTest, DIrregularTurnsRieulToDigeutUnlessListed) {
  EXPECT_EQ(Run(&MAnalyzer::DIrregular, "들", "어"), (List{"듣/VV+어/EM"}));
  EXPECT_EQ(Run(&MAnalyzer::DIrregular, "발", "아"), List{});  // 받 is regular
}

TEST_F(PredicateTest, BIrregularOverWuAndReo) {
  EXPECT_EQ(Run(&MAnalyzer::BIrregular, "고우", "면"), (List{"곱/VA+면/EM"}));
  // A fused final: the ㄴ of 운 is the ending.
  EXPECT_EQ(Whole("고운"), (List{"곱/VA+ㄴ/ETM"}));
  EXPECT_EQ(Whole("자연스런"), (List{"자연스럽/VA+ㄴ/ETM"}));
  // An empty ending reads as 어.
  EXPECT_EQ(Run(&MAnalyzer::BIrregular, "추우", ""), (List{"춥/VA+어/EM"}));
  // 입 is regular: 이우 is no 입 + 우.
  EXPECT_EQ(Run(&MAnalyzer::BIrregular, "이우", "면"), List{});
}

TEST_F(PredicateTest, WaContractHandsOverToBIrregular) {
  EXPECT_EQ(Whole("추워"), (List{"춥/VA+어/EM"}));
  EXPECT_EQ(Whole("도와"), (List{"돕/VV+어/EM"}));
  EXPECT_EQ(Whole("이워"), List{});
}

TEST_F(PredicateTest, ReuIrregularKeepsItsEo) {
  EXPECT_EQ(Whole("흘러"), (List{"흐르/VV+어/EM"}));
  EXPECT_EQ(Whole("몰라"), (List{"모르/VV+어/EM"}));
  // Even after 라 the prefix is 어, and it stays in the ending.
  Eojul& e = PredicateProbe::Prepare(fixture, "몰라", "서", kHangul);
  EXPECT_NE(fixture.analyzer.ReuIrregular(e) & RouteStatus::kCandidate, 0);
  EXPECT_EQ(Candidates(e), (List{"모르/VV+어서/EM"}));
  EXPECT_EQ(StateOf(fixture.analyzer),
            (LevelState{"몰라", "어서", Pos::EM}));
  // 푸르 conjugates as 푸르러, not as 풀러.
  EXPECT_EQ(Run(&MAnalyzer::ReuIrregular, "풀러", ""), List{});
}

TEST_F(PredicateTest, ReoIrregularCutsTheReo) {
  EXPECT_EQ(Whole("이르러"), (List{"이르/VV+어/EM"}));
  EXPECT_EQ(Whole("푸르러"), (List{"푸르/VA+어/EM"}));
  EXPECT_EQ(Run(&MAnalyzer::ReoIrregular, "흐러", ""), List{});
}

TEST_F(PredicateTest, PuIrregular) {
  EXPECT_EQ(Whole("퍼"), (List{"푸/VV+어/EM"}));
  EXPECT_EQ(Run(&MAnalyzer::PuIrregular, "퍼", "서"), (List{"푸/VV+서/EM"}));
}

// ---- Contracted stems ----

TEST_F(PredicateTest, HIrregularReadsTheHieutStem) {
  EXPECT_EQ(Whole("파래"), (List{"파랗/VA+아/EM"}));
  EXPECT_EQ(Whole("파란"), (List{"파랗/VA+ㄴ/ETM"}));
  EXPECT_EQ(Run(&MAnalyzer::HIrregular, "파래", "서"), (List{"파랗/VA+서/EM"}));
  // The ㅂ of 파랍 begins the ending.
  EXPECT_EQ(Run(&MAnalyzer::HIrregular, "파랍", "니다"),
            (List{"파랗/VA+ㅂ니다/EM"}));
  // 닿 is regular: 단 is no 닿 + ㄴ.
  EXPECT_EQ(Run(&MAnalyzer::HIrregular, "단", ""), List{});
}

TEST_F(PredicateTest, HIrregularWithoutTailCountsWithoutCandidate) {
  int status = 0;
  EXPECT_EQ(Run(&MAnalyzer::HIrregular, "파라", "", &status), List{});
  EXPECT_EQ(status & RouteStatus::kCandidate, RouteStatus::kCandidate);
}

TEST_F(PredicateTest, GeReadAsHieutSendsTheSearchOn) {
  int status = 0;
  EXPECT_EQ(Whole("벌게", &status), (List{"벌겋/VA+어/EM"}));
  EXPECT_EQ(status & RouteStatus::kGoOn, RouteStatus::kGoOn);
  Whole("파래", &status);
  EXPECT_EQ(status & RouteStatus::kGoOn, 0);
}

TEST_F(PredicateTest, GeSubTokenGoesOnToTheSplits) {
  // A sub-token stops after its whole-word analysis, unless that read 게.
  EXPECT_EQ(Candidates(fixture.Analyze("벌게", kHangul | EojulType::kSubToken)),
            (List{"벌겋/VA+어/EM", "벌/VV+게/EM"}));
  EXPECT_EQ(Candidates(fixture.Analyze("파래", kHangul | EojulType::kSubToken)),
            (List{"파랗/VA+아/EM"}));
}

TEST_F(PredicateTest, NwaWithoutVerbLeavesAnAuxiliaryTail) {
  // 해놔: no verb 해놓, so the 놓 is an auxiliary and 해 waits in auxTails.
  EXPECT_EQ(Run(&MAnalyzer::HIrregular, "해놔", ""), List{});
  ASSERT_EQ(fixture.analyzer.AuxTailCount(), 1);
  Eojul& tail = PredicateProbe::AuxTail(fixture.analyzer, 0);
  EXPECT_EQ(Utf8(tail.GetString()), "해");
  EXPECT_EQ(Candidates(tail), (List{"놓/VX+어/EM"}));

  // On a raised level the endings above 0 stand, then level 0's or 어.
  Eojul& e = PredicateProbe::Prepare(fixture, "해놨", "", kHangul);
  PredicateProbe::PushLevel(fixture.analyzer, "해놔", "었", Pos::EP);
  fixture.analyzer.HIrregular(e);
  ASSERT_EQ(fixture.analyzer.AuxTailCount(), 1);
  EXPECT_EQ(Candidates(PredicateProbe::AuxTail(fixture.analyzer, 0)),
            (List{"놓/VX+었/EP+어/EM"}));
  EXPECT_EQ(Utf8(fixture.analyzer.LevelAt(1).stem.CStr()), "해놔");
}

TEST_F(PredicateTest, HaYeoReadsHaPlusA) {
  EXPECT_EQ(Run(&MAnalyzer::HaYeo, "공부하", "여"),
            (List{"공부하/VV+아/EM", "공부/NNG+하/XSD+아/EM"}));
  EXPECT_NE(PredicateProbe::FoundMask(fixture.analyzer) & Pos::XSD, 0u);
  EXPECT_EQ(Run(&MAnalyzer::HaYeo, "공부하", "어"), List{});
}

TEST_F(PredicateTest, AeContractReadsEo) {
  EXPECT_EQ(Whole("건내"), (List{"건너/VV+어/EM"}));
  // Not for one syllable.
  EXPECT_EQ(Run(&MAnalyzer::AeContract, "내", ""), List{});
}

TEST_F(PredicateTest, WaContractAndWaeContract) {
  EXPECT_EQ(Whole("봐"), (List{"보/VV+아/EM", "보/VX+아/EM"}));
  EXPECT_EQ(Whole("와"), (List{"오/VV+아/EM"}));
  // An ending that does not begin with 아 gets it in front for a while.
  EXPECT_EQ(Run(&MAnalyzer::WaContract, "봐", "서"),
            (List{"보/VV+아서/EM", "보/VX+아서/EM"}));
  // No auxiliary reading on a re-analysis pass.
  EXPECT_EQ(Run(&MAnalyzer::WaContract, "봐", "", nullptr,
                kHangul | EojulType::kSubToken),
            (List{"보/VV+아/EM"}));
  EXPECT_EQ(Whole("돼"), (List{"되/VV+어/EM"}));
}

TEST_F(PredicateTest, ElidedVowelReadsTheWordAsStem) {
  EXPECT_EQ(Whole("가"), (List{"가/VV+어/EM"}));
  EXPECT_EQ(Whole("서"), (List{"서/VV+어/EM"}));
  EXPECT_EQ(Whole("개"), (List{"개/VV+어/EM"}));
  Eojul& e = PredicateProbe::Prepare(fixture, "가", "", kHangul);
  EXPECT_EQ(fixture.analyzer.EoElided(e, Pos::VA | Pos::VX),
            RouteStatus::kCandidate);
  EXPECT_EQ(Candidates(e), (List{"가/VA+어/EM", "가/VX+어/EM"}));
}

// ---- AnalyzeWhole ----

TEST_F(PredicateTest, WholeWordGivesEachClassItsCandidate) {
  EXPECT_EQ(Whole("나"), (List{"나/NNG", "나/NP"}));
  EXPECT_EQ(Whole("학교"), (List{"학교/NNG", "학교/MA"}));
  const uint32_t found = PredicateProbe::FoundMask(fixture.analyzer);
  EXPECT_EQ(found & Pos::NNG, Pos::NNG);
  EXPECT_EQ(found & Pos::MA, Pos::MA);
  // Not on a re-analysis pass.
  EXPECT_EQ(Whole("학교", nullptr, kHangul | EojulType::kSubToken), List{});
}

TEST_F(PredicateTest, CascadeTakesTheWholeWordAnalysis) {
  int result = 0;
  Eojul& e = fixture.Analyze("써", kHangul, &result);
  EXPECT_EQ(result, 1);
  EXPECT_EQ(Candidates(e), (List{"쓰/VV+어/EM"}));
  EXPECT_EQ(Candidates(fixture.Analyze("몰라서", kHangul)),
            (List{"모르/VV+어서/EM"}));
  EXPECT_EQ(Candidates(fixture.Analyze("사니", kHangul)), (List{"살/VV+니/EM"}));
}

}  // namespace
}  // namespace Quorel
