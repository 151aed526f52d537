// The handlers of the irregular conjugations whose stem loses or changes a
// letter: 으 (EuDrop), ㄹ (LDrop), ㅅ, ㄷ, ㅂ (SIrregular, DIrregular,
// BIrregular), 르, 러 and 우 (ReuIrregular, ReoIrregular, PuIrregular).
// Each undoes one change on the top stem through a SyllableTable link, asks
// the dictionary, emits what it agrees to, and puts stem, ending and
// endingBits back as it found them; ReuIrregular alone keeps the "어" it
// put before an ending.
#include <cstring>
#include <initializer_list>

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

bool OneOf(int value, std::initializer_list<int> values) {
  for (int v : values) {
    if (v == value) return true;
  }
  return false;
}

// The syllable before the last one of a text of at least 4 bytes.
const SyllableRec* PreviousSyllable(const StringEx& text) {
  return text.Length() >= 4 ? SyllableAt(text.CStr(text.Length() - 4))
                            : nullptr;
}

}  // namespace

int MAnalyzer::SwapAndEmit(Eojul& e, const SyllableRec& syl, int link,
                           const char* exceptions, const char* lead) {
  LevelRec& level = levels[levelIndex];
  SyllableSwap swap;
  if (!swap.ApplyLast(level.stem, syl, link)) return kNoSyllable;
  int status = 0;
  const uint32_t bits = Lookup(level.stem);
  if ((bits & Pos::V_) != 0 &&
      (exceptions == nullptr || !InExceptionList(exceptions, level.stem))) {
    status = EmitPredicate(e, bits, lead);
  }
  swap.Restore();
  return status;
}

int MAnalyzer::EuDrop(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  if (level.stem.Length() < 2) return 0;
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return kNoSyllable;
  // One syllable with ㅏ is left alone.
  if (syl->jungseong == 3 && level.stem.Length() == 2) return 0;

  // 오 before 았: the stem ends in 으 that the ending swallowed (잠가 ...).
  if (IsOpen(*syl) && syl->jungseong == 13 && level.ending.StartsWith(Hangul::kAt)) {
    workText = level.stem;
    workText.Append(Hangul::kEu);
    const uint32_t bits = Lookup(workText);
    if ((bits & Pos::V_) != 0 && (bits & 0x80) != 0) {
      e.BeginCandidate();
      e.AddMorpheme(workText.CStr(), Pos::VV);
      if (level.ending.IsEmpty()) {
        e.AddMorpheme(Hangul::kEo, Pos::EM);
      } else {
        AddEndings(e, levelIndex);
      }
      e.EndCandidate();
      return Finish(kFound);
    }
  }

  const bool led = LeadEo(Hangul::kEo);
  const int status = SwapAndEmit(e, *syl, 11, IrregularExceptions::kEuExceptions,
                                 Hangul::kEo);
  UndoLeadEo(led);
  return Finish(status);
}

int MAnalyzer::LDrop(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  if (level.stem.Length() < 2) return 0;
  const bool rePass = (e.GetType() & EojulType::kSubToken) != 0;
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return kNoSyllable;
  int status = 0;

  // The ending as written after a stem that lost its ㄹ (사니 from 살).
  if (curJe.text != nullptr || level.endingBits == Pos::EP) {
    const SyllableRec* first = FirstSyllableOf(level.ending.CStr());
    if (first == nullptr) return kNoSyllable;
    const bool proceed =
        (level.endingBits == Pos::EP && first->jungseong != 27) ||
        HasLetters(*first, 13, 13) || first->choseong == 4 ||
        (level.stem.Length() >= 4 && first->choseong == 11);
    if (proceed && IsOpen(*syl)) {
      SyllableSwap swap;
      if (!swap.ApplyLast(level.stem, *syl, 12)) return kNoSyllable;
      const uint32_t bits = Lookup(level.stem);
      if ((bits & Pos::V_) != 0) {
        if ((bits & 0x80) != 0 && (curJe.attach & 0x2000) == 0) {
          status |= Emit(e, Pos::VV);
        }
        if ((bits & 0x100) != 0) status |= Emit(e, Pos::VA);
      }
      // A search that cannot run (no Hangul) returns with the swap in place.
      if ((status & kFound) == 0 && !rePass && AuxSplit() != 0) {
        return Finish(status | kNoSyllable);
      }
      swap.Restore();
    }
  }

  // The fused reading: the final of the stem begins the ending (산 from 살).
  const char* jong = curJongJe.text;
  const bool fusedType =
      jong != nullptr &&
      (curJongJe.type == 5 || curJongJe.type == 19 ||
       (curJongJe.type == 9 &&
        (std::strlen(jong) == 2 || curJe.text == nullptr)));
  if (fusedType && (status & kFound) == 0 &&
      !(rePass && (curJongJe.attach & 0x0800) != 0)) {
    const bool fused = level.endingBits != Pos::EP;
    if (fused) UseFused(e);
    SyllableSwap swap;
    if (swap.ApplyLast(level.stem, *syl, 12)) {
      const uint32_t bits = Lookup(level.stem);
      if ((bits & Pos::V_) != 0) {
        if ((bits & 0x80) != 0 && (curJongJe.attach & 0x2000) == 0) {
          status |= Emit(e, Pos::VV);
        }
        if ((bits & 0x100) != 0) status |= Emit(e, Pos::VA);
      }
      if ((bits & Pos::VX) != 0 && !rePass) status |= Emit(e, Pos::VX);
      swap.Restore();
    } else {
      status |= kNoSyllable;
    }
    if (fused) UndoFused();
  }
  return Finish(status);
}

int MAnalyzer::SIrregular(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return kNoSyllable;
  if (!IsOpen(*syl) ||
      !OneOf(syl->jungseong, {3, 4, 7, 11, 13, 20, 27, 29})) {
    return 0;
  }
  const SyllableRec* first = FirstSyllableOf(level.ending.CStr());
  if (first == nullptr) return kNoSyllable;
  if (first->choseong != 13 || !OneOf(first->jungseong, {3, 7, 27}) ||
      level.stem.Length() < 2) {
    return 0;
  }
  return Finish(
      SwapAndEmit(e, *syl, 1, IrregularExceptions::kSExceptions, nullptr));
}

int MAnalyzer::DIrregular(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return kNoSyllable;
  if (syl->jongseong != 9 ||
      !OneOf(syl->jungseong, {3, 7, 11, 13, 20, 27, 29})) {
    return 0;
  }
  const SyllableRec* first = FirstSyllableOf(level.ending.CStr());
  if (first == nullptr) return kNoSyllable;
  if (first->choseong != 13 || level.stem.Length() < 2) return 0;
  return Finish(
      SwapAndEmit(e, *syl, 2, IrregularExceptions::kDExceptions, nullptr));
}

int MAnalyzer::BIrregular(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return kNoSyllable;
  if ((syl->jungseong == 20 || syl->jungseong == 7) &&
      curJongJe.text == nullptr && syl->jongseong != kNoFinal) {
    return 0;
  }
  int status = 0;

  // 러 with a fused final: 스런 from 스럽.
  if (curJongJe.text != nullptr && curJongJe.type != 19 &&
      HasLetters(*syl, 7, 7)) {
    SyllableSwap swap;
    if (!swap.ApplyLast(level.stem, *syl, 3)) return kNoSyllable;
    const uint32_t bits = Lookup(level.stem);
    if ((bits & Pos::V_) != 0) {
      UseFused(e);
      status |= EmitPredicate(e, bits, nullptr);
      UndoFused();
    }
    swap.Restore();
    return Finish(status);
  }

  // 우 after a syllable that lost its ㅂ: 가까우, 고운, 추워.
  if (level.stem.Length() < 4) return 0;
  const SyllableRec* prev = PreviousSyllable(level.stem);
  if (prev == nullptr) return kNoSyllable;
  if ((prev->flags & kAddBieup) == 0) return 0;
  SyllableSwap swap;
  if (!swap.Apply(level.stem, level.stem.Length() - 4, prev->links[3])) {
    return kNoSyllable;
  }
  SyllableCut cut;
  cut.Apply(level.stem);
  if (InExceptionList(IrregularExceptions::kBExceptions, level.stem)) {
    cut.Restore();
    swap.Restore();
    return 0;
  }

  // The ending: the fused reading's jamo or its text, or "어" for none.
  StringEx& held = heldEndings[levelIndex];
  const uint32_t savedBits = level.endingBits;
  bool replaced = false;
  if (level.endingBits != Pos::EP && curJongJe.text != nullptr &&
      !(levelIndex > 0 && levels[levelIndex - 1].endingBits == Pos::EP)) {
    const char* jamo = BareJamo(curJongJe.type);
    if (jamo == nullptr) {
      cut.Restore();
      swap.Restore();
      return 0;
    }
    held = level.ending;
    if (level.endingBits != Pos::ETN) {
      SetEnding(level, curJongJe.text, e);
    } else {
      level.ending = jamo;
    }
    level.endingBits = curJongJe.bits;
    replaced = true;
  }
  if (level.ending.IsEmpty()) {
    if (!replaced) held.Clear();
    level.ending = Hangul::kEo;
    level.endingBits = Pos::EM;
    replaced = true;
  }

  status |= EmitPredicate(e, Lookup(level.stem), nullptr);

  if (replaced) {
    level.ending = held;
    level.endingBits = savedBits;
  }
  cut.Restore();
  swap.Restore();
  return Finish(status);
}

int MAnalyzer::ReuIrregular(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  if (level.stem.Length() < 4) return 0;
  const SyllableRec* syl = LastSyllableOf(level.stem);
  const SyllableRec* prev = PreviousSyllable(level.stem);
  if (syl == nullptr || prev == nullptr) return kNoSyllable;
  if (!IsOpen(*syl) || prev->jongseong != 9 || syl->choseong != 7 ||
      (syl->jungseong != 3 && syl->jungseong != 7)) {
    return 0;
  }
  // 몰라 to 모르: the ㄹ goes back from the syllable before.
  const int32_t length = level.stem.Length();
  SyllableSwap prevSwap;
  SyllableSwap lastSwap;
  if (!prevSwap.Apply(level.stem, length - 4, prev->links[0]) ||
      !lastSwap.Apply(level.stem, length - 2, syl->links[4])) {
    prevSwap.Restore();
    return kNoSyllable;
  }
  int status = 0;
  const uint32_t bits = Lookup(level.stem);
  if ((bits & Pos::V_) != 0 &&
      !InExceptionList(IrregularExceptions::kReuExceptions, level.stem)) {
    for (uint32_t mask : {Pos::VV, Pos::VA}) {
      if ((bits & mask & 0x180) == 0) continue;
      e.BeginCandidate();
      e.AddMorpheme(level.stem.CStr(), mask);
      if (level.ending.IsEmpty()) {
        e.AddMorpheme(Hangul::kEo, Pos::EM);
      } else {
        // The 어 of 몰라서 stays before the ending, even after 라.
        if ((level.endingBits & Pos::EM) == Pos::EM &&
            !level.ending.StartsWith(Hangul::kEo) &&
            !level.ending.StartsWith(Hangul::kSe) &&
            !level.ending.StartsWith(Hangul::kDeut) &&
            !level.ending.StartsWith(Hangul::kMyeon)) {
          level.ending.Replace(0, 0, Hangul::kEo);
        }
        AddEndings(e, levelIndex);
      }
      e.EndCandidate();
      status |= kFound;
    }
  }
  lastSwap.Restore();
  prevSwap.Restore();
  return Finish(status);
}

int MAnalyzer::ReoIrregular(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  if (level.stem.Length() < 4) return 0;
  const SyllableRec* syl = LastSyllableOf(level.stem);
  const SyllableRec* prev = PreviousSyllable(level.stem);
  if (syl == nullptr || prev == nullptr) return kNoSyllable;
  if (!IsOpen(*prev) || !IsSyllable(*prev, Hangul::kReu) || !IsOpen(*syl) ||
      !IsSyllable(*syl, Hangul::kReo)) {
    return 0;
  }
  // 푸르러: the 러 is the ending's.
  SyllableCut cut;
  cut.Apply(level.stem);
  const int status = EmitPredicate(e, Lookup(level.stem), Hangul::kEo);
  cut.Restore();
  return Finish(status);
}

int MAnalyzer::PuIrregular(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  if (level.stem.Length() < 2) return 0;
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return kNoSyllable;
  return Finish(SwapAndEmit(e, *syl, 13, nullptr, Hangul::kEo));
}

}  // namespace Quorel
