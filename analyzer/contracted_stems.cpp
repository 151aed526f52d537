// The handlers of stems whose last vowel merged with the ending: the ㅎ
// irregular (HIrregular: 파래 from 파랗), 여 after 하 (HaYeo), ㅐ from ㅓ + 어
// (AeContract), ㅘ and ㅝ (WaContract: 봐 from 보), ㅙ (WaeContract: 돼 from
// 되). Each swaps the last syllable of the top stem for the one a
// SyllableTable link names, asks the dictionary, emits what it agrees to,
// and leaves stem, ending and endingBits as it found them.
#include "analyzer/irregular_exceptions.h"
#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "analyzer/predicate_steps.h"
#include "analyzer/syllable_tests.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

constexpr int kFound = RouteStatus::kCandidate;
constexpr int kNoSyllable = RouteStatus::kNoSyllable;

// What an empty ending becomes after the ㅎ stem.
enum class HTail { kNone, kA, kEo, kFused };

}  // namespace

int MAnalyzer::HIrregular(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return kNoSyllable;
  const bool rePass = (e.GetType() & EojulType::kSubToken) != 0;
  const int j = syl->jungseong;
  int status = 0;
  bool fused = false;
  HTail mode = HTail::kNone;
  jeInfo tail;
  SyllableSwap swap;

  if (j == 3 || j == 5 || j == 7 || j == 11) {
    // 파란, 파랄, 파람, 파랍: the final may be the ending's.
    const int jong = syl->jongseong;
    if (jong == 5 || jong == 9 || jong == 17) {
      if (!level.ending.IsEmpty()) {
        if (syl->choseong == 4 || curJongJe.text == nullptr) return 0;
        UseFused(e);
        fused = true;
      }
    } else if (jong == 19) {
      if (level.ending.IsEmpty() || curJongJe.text == nullptr) return 0;
      UseFused(e);
      fused = true;
    } else if (jong != kNoFinal) {
      return 0;
    }
    tail = curJongJe.text != nullptr ? curJongJe : BareEomi(jong);
    mode = tail.text != nullptr ? HTail::kFused : HTail::kNone;
    if (!swap.ApplyLast(level.stem, *syl, 9)) {
      if (fused) UndoFused();
      return kNoSyllable;
    }
  } else if (j == 4 || j == 6 || j == 14 || j == 10 || j == 12) {
    // 파래, 하얘, 놔: ㅏ/ㅑ (or ㅗ) + ㅎ + 아; 누레, 허예: ㅓ/ㅕ + ㅎ + 어.
    mode = (j == 10 || j == 12) ? HTail::kEo : HTail::kA;
    if (!swap.ApplyLast(level.stem, *syl, 8)) return kNoSyllable;
  } else {
    return 0;
  }

  const uint32_t bits = Lookup(level.stem);
  if ((bits & Pos::V_) == 0 && j == 14 && status == 0 && !rePass) {
    status |= AuxSplitWith(true);  // 해놔: the 놓 is an auxiliary
  }
  if (InExceptionList(IrregularExceptions::kHExceptions, level.stem)) {
    swap.Restore();
    if (fused) UndoFused();
    return status;
  }

  if ((bits & Pos::V_) != 0) {
    for (uint32_t mask : {Pos::VV, Pos::VA}) {
      if ((bits & mask & 0x180) == 0) continue;
      if (!level.ending.IsEmpty()) {
        status |= Emit(e, mask);
        continue;
      }
      // Without a fused tail no candidate is opened; the word still counts
      // as analysed.
      if (mode != HTail::kNone) {
        e.BeginCandidate();
        e.AddMorpheme(level.stem.CStr(), mask);
        if (mode == HTail::kFused) {
          e.AddMorpheme(tail.text, tail.bits);
        } else {
          e.AddMorpheme(mode == HTail::kA ? Hangul::kA : Hangul::kEo, Pos::EM);
        }
        AddEndings(e, levelIndex - 1);
      }
      e.EndCandidate();
      status |= kFound;
    }
  }
  swap.Restore();
  if (fused) UndoFused();
  return Finish(status);
}

int MAnalyzer::HaYeo(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  const SyllableRec* first = FirstSyllableOf(level.ending.CStr());
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (first == nullptr || syl == nullptr) return kNoSyllable;
  if (!IsOpen(*first) || !HasLetters(*first, 13, 11) || !IsOpen(*syl) ||
      !IsSyllable(*syl, Hangul::kHa)) {
    return 0;
  }
  // 하여 reads 하 + 아.
  SyllableSwap swap;
  if (!swap.Apply(level.ending, 0, first->links[5])) return kNoSyllable;
  uint32_t marks = 0;
  int status = EmitPredicate(e, Lookup(level.stem, &marks), nullptr);

  // A noun before the 하: noun + 하 (suffix) + the endings.
  const int32_t nounEnd = level.stem.Length() - 2;
  for (const SearchInfo& hit : wordHits) {
    if (hit.end > nounEnd) break;
    if (hit.end != nounEnd || (hit.info.bits & Pos::N_) == 0) continue;
    const bool marked = (marks & 1) != 0;
    const uint32_t nounClasses[2][2] = {{0x1, marked ? Pos::NFG : Pos::NNG},
                                        {0x8, marked ? Pos::NFU : Pos::NNG}};
    for (const auto& noun : nounClasses) {
      if ((hit.info.bits & noun[0]) == 0) continue;
      e.BeginCandidate();
      pieceText.Assign(level.stem.CStr(), nounEnd);
      e.AddMorpheme(pieceText.CStr(), noun[1]);
      e.AddMorpheme(level.stem.CStr(nounEnd), Pos::XSD);
      AddEndings(e, levelIndex);
      e.EndCandidate();
      foundMask |= Pos::XSD | Pos::N_;
      status |= kFound;
    }
  }
  swap.Restore();
  return Finish(status);
}

int MAnalyzer::AeContract(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  if (curJongJe.text != nullptr || level.stem.Length() < 4) return 0;
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return kNoSyllable;
  if (!IsOpen(*syl) || syl->jungseong != 4) return 0;
  return Finish(SwapAndEmit(e, *syl, 10, nullptr, Hangul::kEo));
}

int MAnalyzer::WaContract(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return kNoSyllable;
  if (!IsOpen(*syl)) return 0;
  const char* lead;
  if (syl->jungseong == 14) {
    lead = Hangul::kA;
  } else if (syl->jungseong == 21) {
    lead = Hangul::kEo;
  } else {
    return 0;
  }
  const bool led = LeadEo(lead);
  SyllableSwap swap;
  if (!swap.ApplyLast(level.stem, *syl, 16)) {
    UndoLeadEo(led);
    return kNoSyllable;
  }
  const uint32_t bits = Lookup(level.stem);
  int status = EmitPredicate(e, bits, lead);
  if ((bits & Pos::VX) != 0 && (e.GetType() & EojulType::kSubToken) == 0) {
    status |= EmitLed(e, Pos::VX, lead);
  }
  // 고와 from 곱: the ㅂ irregular reads the swapped stem.
  if (syl->choseong == 13) status |= BIrregular(e) & kFound;
  swap.Restore();
  UndoLeadEo(led);
  return Finish(status);
}

int MAnalyzer::WaeContract(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return kNoSyllable;
  if (!IsOpen(*syl) || syl->jungseong != 15) return 0;
  SyllableSwap swap;
  if (!swap.ApplyLast(level.stem, *syl, 17)) return kNoSyllable;
  const uint32_t bits = Lookup(level.stem);
  int status = EmitPredicate(e, bits, Hangul::kEo);
  if ((bits & Pos::VX) != 0 && (e.GetType() & EojulType::kSubToken) == 0) {
    status |= EmitEo(e, Pos::VX);
  }
  swap.Restore();
  return Finish(status);
}

}  // namespace Quorel
