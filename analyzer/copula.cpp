// The copula 이 after a noun: written out (학생이다), silent after an open
// noun (의사다), fused with the final of the ending (학생입니다), and the ㅕ
// contraction (YeoContract: 가져 from 가지, 여 from 이 + 어 after a noun).
// What no dictionary noun explains waits in copulaTails or suffixTails.
#include <cstring>

#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "analyzer/predicate_steps.h"
#include "analyzer/syllable_tests.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

constexpr int kFound = RouteStatus::kCandidate;
constexpr int kPending = RouteStatus::kPending;
constexpr int kGoOn = RouteStatus::kGoOn;
constexpr uint32_t kJosaBit = 0x800000;
// Noun classes before a copula: NNG, NNB, NNP, NNU, NP, NU, NNI.
constexpr uint32_t kCopulaNouns = 0x4000046F;

bool IsYi(const SyllableRec& s) { return HasLetters(s, 13, 29); }

// An empty top ending stands as the eomi 어 until Restore.
class EoFill {
 public:
  void Apply(LevelRec& level) {
    if (!level.ending.IsEmpty() || target != nullptr) return;
    target = &level;
    savedBits = level.endingBits;
    level.ending = Hangul::kEo;
    level.endingBits = Pos::EM;
  }
  void Restore() {
    if (target == nullptr) return;
    target->ending.Clear();
    target->endingBits = savedBits;
    target = nullptr;
  }

 private:
  LevelRec* target = nullptr;
  uint32_t savedBits = 0;
};

}  // namespace

int MAnalyzer::Copula(Eojul& e, int /*level*/) {
  // A josa below must be able to follow the noun of this stem.
  if (levelIndex >= 1 && (levels[levelIndex - 1].endingBits & kJosaBit) != 0) {
    const SyllableRec* last = LastSyllableOf(levels[levelIndex - 1].stem);
    if (last == nullptr) return RouteStatus::kNoSyllable;
    if (Dictionary::CheckAttach(*last, JosaBelow()) == 0) return 0;
  }
  LevelRec& top = levels[levelIndex];
  int status = 0;

  if (curJe.text != nullptr || top.endingBits == Pos::EP) {
    LevelRec& next = levels[levelIndex + 1];
    bool silent = true;
    bool proceed = true;
    if (top.stem.Length() > 2 && top.stem.EndsWith(Hangul::Stem::kI)) {
      // The written 이 may also end the noun itself (아이 + silent 이).
      PushLevel(top.stem.CStr(), top.stem.Length(), Hangul::Stem::kI, Pos::VC);
      if ((NounStem(e, kCopulaNouns) & kFound) != 0) {
        status |= kFound;
        foundMask |= Pos::VC;
      }
      PopLevel();
      next.stem.Assign(top.stem.CStr(), top.stem.Length() - 2);
      silent = false;
    } else {
      proceed = (curJe.attach & 0x0200) == 0;
      next.stem = top.stem;
    }
    if (proceed) {
      PushLevel(next.stem.CStr(), next.stem.Length(), Hangul::Stem::kI,
                Pos::VC);
      const SyllableRec* last = LastSyllableOf(levels[levelIndex].stem);
      if (last == nullptr) {
        PopLevel();
        return status | RouteStatus::kNoSyllable;
      }
      // A silent copula follows an open noun only.
      if (!silent || IsOpen(*last)) {
        status |= CopulaNoun(e, kCopulaNouns, true);
      }
      PopLevel();
    }
  }

  // The fused 이: 인, 일, 입, 임 give their final to the ending.
  const SyllableRec* last = LastSyllableOf(top.stem);
  if (curJongJe.text != nullptr && top.endingBits != Pos::EP &&
      (curJongJe.attach & 0x0001) != 0 && last != nullptr && IsYi(*last)) {
    UseFused(e);
    PushLevel(top.stem.CStr(), top.stem.Length() - 2, Hangul::Stem::kI,
              Pos::VC);
    status |= CopulaNoun(e, 0x4200046F, true);
    PopLevel();
    UndoFused();
    if (curJe.text != nullptr) top.endingBits = curJe.bits;
  }
  return status;
}

int MAnalyzer::YeoContract(Eojul& e) {
  LevelRec& top = levels[levelIndex];
  const SyllableRec* syl = LastSyllableOf(top.stem);
  if (syl == nullptr) return RouteStatus::kNoSyllable;
  if (!IsOpen(*syl)) return 0;
  if (top.ending.StartsWith(Hangul::Stem::kDoe) ||
      top.ending == Hangul::Stem::kDeun) {
    return 0;
  }
  const bool rePass = (e.GetType() & EojulType::kSubToken) != 0;
  const bool led = LeadEo(Hangul::kEo);
  EoFill fill;
  int status = 0;

  // ㅕ from ㅣ + 어: 가져 is 가지 + 어.
  if (syl->jungseong == 11) {
    SyllableSwap swap;
    if (swap.ApplyLast(top.stem, *syl, 18)) {
      status |= EmitStemReadings(e, Lookup(top.stem), !rePass, Hangul::kEo);
      if ((status & kFound) != 0) foundMask |= Pos::V_;
      const Dictionary* dictionary = Knowledge();
      if ((status & kFound) == 0 && syl->choseong != 13 &&
          dictionary->xsdList.Find(top.stem, xsdPositions) != 0) {
        for (uint32_t i = 0; i < xsdPositions.count; ++i) {
          const int32_t p = xsdPositions.positions[i];
          if (p == 0) continue;
          fill.Apply(top);
          const int r = SuffixNoun(
              e, p, dictionary->xsdList.GetEntry(xsdPositions.values[i])->base,
              0x4000000F);
          if ((r & kFound) != 0) foundMask |= Pos::XSD;
          status |= r;
        }
      }
      if ((status & kFound) == 0 && !rePass) status |= AuxSplit();
      swap.Restore();
    }
  }

  // 여 itself: 하 + 여 (the 여 irregular), a suffix 하 before it, and the
  // auxiliary before the stem.
  if (IsSyllable(*syl, Hangul::kYeo)) {
    fill.Apply(top);
    SyllableCut cut;
    if (cut.Apply(top.stem)) {
      const int r = EmitStemReadings(e, Lookup(top.stem), true, nullptr);
      if ((r & kFound) != 0) foundMask |= Pos::V_;
      status |= r;
      cut.Restore();
    }
    const int32_t length = top.stem.Length();
    if (length > 4 && std::memcmp(top.stem.CStr(length - 4), Hangul::kHa, 2) == 0) {
      PushLevel(top.stem.CStr(), length - 4, Hangul::kHa, Pos::XSD);
      if ((NounStem(e, 0x4000006F) & kFound) != 0) {
        foundMask |= Pos::XSD | Pos::N_;
        status |= kFound;
      } else if (StoreNounTail(e, true)) {
        status |= kPending;
      }
      PopLevel();
      if (length >= 6 &&
          std::memcmp(top.stem.CStr(length - 6), Hangul::kGe, 2) == 0) {
        status |= kGoOn;
      }
    }
    const bool settled = status != 0 &&
                         ((status & kFound) != 0 || (status & kPending) == 0) &&
                         (status & kGoOn) == 0;
    if (!rePass && !settled && cut.Apply(top.stem)) {
      status |= AuxSplit();
      cut.Restore();
    }
    if (!rePass && (foundMask & Pos::XSD) != 0 && auxTailCount > 0) {
      foundMask |= Pos::VX;
    }
  }

  // 여 as 이 + 어 after a noun.
  if (!(levelIndex == 0 && curJe.text != nullptr &&
        (curJe.attach & 0x0001) == 0) &&
      top.stem.Length() > 2) {
    PushLevel(top.stem.CStr(), top.stem.Length() - 2, Hangul::Stem::kI,
              Pos::VC);
    const int r = CopulaNoun(e, kCopulaNouns, false);
    if ((r & kFound) != 0) foundMask |= Pos::N_;
    status |= r;
    PopLevel();
  }

  fill.Restore();
  UndoLeadEo(led);
  return status;
}

}  // namespace Quorel
