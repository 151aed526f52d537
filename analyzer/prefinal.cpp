// Prefinal: peels a prefinal ending (시, 었, 았, 겠 and their sequences of
// the EP list) off the end of the stem and analyses what stands before it
// on a new level: as a plain predicate, through the sound-change handlers,
// as a derived stem, or as a noun with the copula. A past marker fused into
// the stem's last syllable (갔 = 가 + 었) is read as 었 as well.
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
constexpr int kKept = RouteStatus::kCandidate | RouteStatus::kPending;
constexpr uint32_t kPastMark = 0x80000000;
constexpr int kSsangSiot = 22;  // the final ㅆ of a past marker

bool HasAll(uint32_t mask, uint32_t bits) { return (mask & bits) == bits; }

// 이 with or without a final: its ㅆ (있) is no past marker.
bool IsYiShaped(const SyllableRec& s) { return HasLetters(s, 13, 29); }

bool IsPast(const SyllableRec& s) {
  return s.jongseong == kSsangSiot && !IsYiShaped(s);
}

// Writes the syllable of record `link` over two bytes of `text`.
void WriteSyllable(char* text, int16_t link) {
  const SyllableRec* to = SyllableByNumber(link);
  if (to == nullptr || to->code[0] == 0) return;
  text[0] = static_cast<char>(to->code[0]);
  text[1] = static_cast<char>(to->code[1]);
}

}  // namespace

int MAnalyzer::Prefinal(Eojul& e, int /*level*/) {
  const Dictionary* dictionary = Knowledge();
  const bool rePass = (e.GetType() & EojulType::kSubToken) != 0;
  LevelRec& top = levels[levelIndex];
  int32_t ep = -1;
  if (dictionary->epList.Find(top.stem, epPositions) != 0 &&
      epPositions.count > 0) {
    ep = epPositions.positions[0];
  }
  bool past = false;
  const SyllableRec* syl = nullptr;
  if (ep < 0) {
    syl = LastSyllableOf(top.stem);
    if (syl == nullptr) return RouteStatus::kNoSyllable;
    if (syl->jongseong != kSsangSiot) {
      if (curJongJe.text == nullptr || syl->choseong != 11) return 0;
      if (syl->jungseong != 29) return 0;
      return PrefinalFusedSi(e, *syl, rePass);
    }
    if (!IsYiShaped(*syl)) past = true;
  }

  // The top ending as it came, for the restore at the end.
  const StringEx savedEnding = top.ending;
  const uint32_t savedBits = top.endingBits;
  int status = 0;
  if (ep > 0) status |= PrefinalStemSi(e, ep, rePass);
  if (ep < 1 && !past) {
    top.ending = savedEnding;
    top.endingBits = savedBits;
    return status;
  }

  LevelRec& next = levels[levelIndex + 1];
  next.stem.Assign(top.stem.CStr(), ep > 0 ? ep : top.stem.Length());
  if (!past) {
    syl = LastSyllableOf(next.stem);
    if (syl == nullptr) {
      top.ending = savedEnding;
      top.endingBits = savedBits;
      return status | RouteStatus::kNoSyllable;
    }
    past = IsPast(*syl);
  }
  // A fused past marker: the stem loses its ㅆ, the ending starts with 었.
  char* lastBytes = next.stem.Data() + next.stem.Length() - 2;
  const char keptLast[2] = {lastBytes[0], lastBytes[1]};
  if (past) {
    next.ending = Hangul::Stem::kEot;
    const SyllableRec* last = LastSyllableOf(next.stem);
    if (last != nullptr) WriteSyllable(lastBytes, last->links[0]);
  } else {
    next.ending.Clear();
  }

  if (ep > 0) {
    const int32_t at = next.ending.Length();
    next.ending.Append(top.stem.CStr(ep));
    const SyllableRec* f = SyllableAt(next.ending.CStr(at));
    if (f != nullptr && IsOpen(*f) && HasLetters(*f, 11, 11)) {
      // 셔 is 시 + 어: the EP is 시.
      WriteSyllable(next.ending.Data() + at, f->links[18]);
    }
    if (f != nullptr && HasLetters(*f, 2, 10) && f->jongseong == kSsangSiot &&
        next.stem.EndsWith(Hangul::Stem::kYa)) {
      StoreYaGetTail(next.stem.Length(), ep);
    }
    if (top.ending.IsEmpty()) {
      if ((top.endingBits & Pos::E_) != 0 && curJongJe.text != nullptr && f &&
          f->jongseong == curJongJe.type) {
        SetEnding(top, curJongJe.text + 2, e);
        top.endingBits = curJongJe.bits;
      } else {
        top.ending = Hangul::kEo;
        top.endingBits = Pos::EM;
      }
    }
  }

  next.endingBits = Pos::EP;
  ++levelIndex;
  const SyllableRec* first = FirstSyllableOf(next.ending.CStr());
  if (first == nullptr) {
    status |= RouteStatus::kNoSyllable;
  } else {
    // ㅅ irregular before the prefinal ending: 나았 from 낫.
    bool done = false;
    if (!past && (syl->flags & kAddSiot) != 0 &&
        (first->jungseong == 7 || first->jungseong == 27 ||
         ((IsOpen(*first) || (first->jongseong & kSsangSiot) != 0) &&
          HasLetters(*first, 13, 3)))) {
      const int r = SIrregular(e);
      status |= r & kKept;
      done = (r & kFound) != 0;
    }
    status |= PrefinalPlain(e, done, rePass);
    status |= PrefinalHandlers(e, *syl, *first, past);
    if (status == 0 && !rePass) status |= AuxSplit();
    if (!past && next.stem.Length() > 2) {
      const SyllableRec* lead = FirstSyllableOf(next.ending.CStr());
      const bool openO = lead != nullptr && IsOpen(*lead) &&
                         HasLetters(*lead, 13, 13);
      const bool jap = lead != nullptr && HasLetters(*lead, 14, 3) &&
                       lead->jongseong == 19;
      if (!openO && !jap) {
        const int r = Copula(e, -1);
        status |= r & kKept;
        if ((r & kFound) != 0 &&
            (foundMask & (Pos::IC | Pos::MA | Pos::MM | Pos::J_)) == 0 &&
            !HasAll(foundMask, Pos::NNP) && !HasAll(foundMask, Pos::NNU)) {
          compoundState = 1;
        }
      }
    }
  }

  lastBytes = next.stem.Data() + next.stem.Length() - 2;
  lastBytes[0] = keptLast[0];
  lastBytes[1] = keptLast[1];
  PopLevel();
  top.ending = savedEnding;
  top.endingBits = savedBits;
  if ((status & kFound) != 0) foundMask |= Pos::V_ | Pos::EP;
  return status;
}

int MAnalyzer::PrefinalFusedSi(Eojul& e, const SyllableRec& syl,
                               bool rePass) {
  LevelRec& top = levels[levelIndex];
  SyllableSwap swap;
  if (!swap.ApplyLast(top.stem, syl, 0)) return 0;
  int32_t ep = -1;
  if (Knowledge()->epList.Find(top.stem, epPositions) != 0 &&
      epPositions.count > 0) {
    ep = epPositions.positions[0];
  }
  if (ep <= 0) {
    swap.Restore();
    return 0;
  }
  UseFused(e);
  PushLevel(top.stem.CStr(), ep, top.stem.CStr(ep), Pos::EP);
  LevelRec& next = levels[levelIndex];
  // After a closed stem the 시 needs its 으: 먹으신, not 먹신.
  bool valid = true;
  const SyllableRec* last = LastSyllableOf(next.stem);
  if (last != nullptr && !IsOpen(*last)) {
    valid = next.ending.StartsWith(Hangul::kEu);
  }
  const jeInfo savedJe = curJe;
  curJe = jeInfo();
  int status = 0;
  auto readings = [&]() {
    if (valid && CheckJoin(next.stem, next.ending.CStr())) {
      status |= EmitStemReadings(e, Lookup(next.stem), !rePass, nullptr);
    }
  };
  readings();
  if ((status & kFound) == 0 && next.ending == Hangul::Stem::kEusi) {
    // A stem that ends in 으 itself: 치르 + 시 written 치르신.
    next.stem.Append(Hangul::kEu);
    next.ending = Hangul::Stem::kSi;
    readings();
    next.stem.Truncate(next.stem.Length() - 2);
    next.ending = Hangul::Stem::kEusi;
  }
  last = LastSyllableOf(next.stem);
  if (last != nullptr && IsOpen(*last)) {
    if ((last->flags & kAddRieul) != 0) status |= LDrop(e) & kKept;
    if (HasLetters(*last, 13, 20)) status |= BIrregular(e) & kKept;
  }
  status |= DerivedStem(e, -1) & kKept;
  const int r = Copula(e, -1);
  status |= r & kKept;
  if ((r & kFound) != 0) compoundState = 1;
  curJe = savedJe;
  if (status == 0 && !rePass) status |= AuxSplit();
  PopLevel();
  UndoFused();
  swap.Restore();
  return status;
}

int MAnalyzer::PrefinalStemSi(Eojul& e, int32_t ep, bool rePass) {
  LevelRec& top = levels[levelIndex];
  const SyllableRec* s = SyllableAt(top.stem.CStr(ep));
  if (s == nullptr) return 0;
  int status = 0;
  // 시 of the stem itself before the rest of the EP: 가시었 from 가시.
  if (top.stem.Length() - ep >= 4 && HasLetters(*s, 11, 29) &&
      curJe.text != nullptr) {
    SetEnding(top, curJe.text, e);
    top.endingBits = curJe.bits;
    PushLevel(top.stem.CStr(), ep + 2, top.stem.CStr(ep + 2), Pos::EP);
    status |= EmitStemReadings(e, Lookup(levels[levelIndex].stem), !rePass,
                               nullptr);
    PopLevel();
  }
  if (s->jongseong == kSsangSiot) foundMask |= kPastMark;
  // 셨 read as the stem's 시 and 었.
  if (HasLetters(*s, 11, 11) && (s->jongseong & kSsangSiot) != 0 &&
      curJe.text != nullptr) {
    SetEnding(top, curJe.text, e);
    top.endingBits = curJe.bits;
    PushLevel(top.stem.CStr(), ep, Hangul::Stem::kEot, Pos::EP);
    LevelRec& next = levels[levelIndex];
    next.stem.Append(Hangul::Stem::kSi);
    next.ending.Append(top.stem.CStr(ep + 2));
    status |= EmitStemReadings(e, Lookup(next.stem), !rePass, nullptr);
    PopLevel();
  }
  return status;
}

int MAnalyzer::PrefinalPlain(Eojul& e, bool done, bool rePass) {
  LevelRec& next = levels[levelIndex];
  int status = 0;
  auto readings = [&]() {
    const SyllableRec* f = FirstSyllableOf(next.ending.CStr());
    const SyllableRec* last = LastSyllableOf(next.stem);
    const bool plain = !(f != nullptr && f->choseong == 11 &&
                         last != nullptr && !IsOpen(*last));
    if (plain && !done && CheckJoin(next.stem, next.ending.CStr())) {
      status |= EmitStemReadings(e, Lookup(next.stem), !rePass, nullptr);
    }
  };
  readings();
  if ((status & kFound) == 0 && next.ending.StartsWith(Hangul::kEu)) {
    // The 으 may belong to the stem: 치르 + 시 from 치르시.
    next.stem.Append(Hangul::kEu);
    next.ending.Replace(0, 2, "");
    readings();
    next.stem.Truncate(next.stem.Length() - 2);
    next.ending.Replace(0, 0, Hangul::kEu);
  }
  return status;
}

int MAnalyzer::PrefinalHandlers(Eojul& e, const SyllableRec& syl,
                                const SyllableRec& first, bool past) {
  const uint32_t rules = syl.flags;
  int status = 0;
  if (!past) {
    if ((rules & kAddRieul) != 0 && first.choseong == 11) {
      status |= LDrop(e) & kKept;
    }
    if ((rules & kRieulToDigeut) != 0) status |= DIrregular(e) & kKept;
    if (IsOpen(syl) && (syl.jungseong & 13) != 0 &&
        first.jongseong == kSsangSiot && first.choseong == 13) {
      status |= EuDrop(e) & kKept;
    }
    if (IsOpen(syl) && HasLetters(syl, 13, 20)) {
      status |= BIrregular(e) & kKept;
    }
    status |= DerivedStem(e, -1) & kKept;
    return status;
  }
  if ((rules & kToEu) != 0) status |= EuDrop(e) & kKept;
  if ((rules & kPeoToPu) != 0) status |= PuIrregular(e) & kKept;
  if ((rules & kWaWoToOU) != 0) status |= WaContract(e) & kKept;
  if ((rules & kWaeToOe) != 0) status |= WaeContract(e) & kKept;
  if ((rules & kReuIrregular) != 0) status |= ReuIrregular(e) & kKept;
  if ((rules & kReoToEo) != 0) status |= ReoIrregular(e) & kKept;
  if ((rules & kAeToEo) != 0) status |= AeContract(e) & kKept;
  if ((rules & (kAeToHieut | kAddHieut)) != 0) {
    status |= HIrregular(e) & kKept;
  }
  if ((rules & kYeoToI) != 0 && syl.choseong == 13) {
    status |= HaYeo(e) & kKept;
  }
  if ((rules & kYeoToI) != 0) status |= YeoContract(e) & kKept;
  if ((rules & (kHaeToHa | kWaeToOe | kWaWoToOU)) != 0) {
    status |= DerivedStem(e, -1) & kKept;
  }
  return status;
}

void MAnalyzer::StoreYaGetTail(int32_t stemLength, int32_t ep) {
  if (auxTailCount >= EojulPool::kCapacity) return;
  const LevelRec& top = levels[levelIndex];
  Eojul& tail = eojulPool.auxTails[auxTailCount];
  pieceText.Assign(top.stem.CStr(), stemLength);
  tail.SetText(pieceText.CStr(), 0);
  tail.BeginCandidate();
  tail.AddMorpheme(top.stem.CStr(ep), Pos::EP);
  AddEndings(tail, levelIndex);
  tail.EndCandidate();
  ++auxTailCount;
}

}  // namespace Quorel
