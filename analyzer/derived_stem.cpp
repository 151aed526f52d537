// DerivedStem: a stem that ends in a predicative suffix of the XSD list
// (공부하, 생각되, 사랑스럽) read as noun + suffix. Three shapes: the suffix
// as written before the ending, the suffix with the ending's first letter
// fused into its last syllable (사랑스런 from 스럽 + ㄴ), and the ending
// inside the last syllable (공부해 from 하 + 어). A noun part that no
// dictionary entry explains waits in suffixTails.
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
constexpr uint32_t kJosaBit = 0x800000;

bool HasAll(uint32_t mask, uint32_t bits) { return (mask & bits) == bits; }

// None of IC, MA, MM, and not all bits of any of NNP, NNU, NNG, NNI.
bool NoPlainWordClass(uint32_t found) {
  return (found & (Pos::IC | Pos::MA | Pos::MM)) == 0 &&
         !HasAll(found, Pos::NNP) && !HasAll(found, Pos::NNU) &&
         !HasAll(found, Pos::NNG) && !HasAll(found, Pos::NNI);
}

bool IsDemonstrative(const StringEx& stem) {
  return stem == Hangul::Stem::kI || stem == Hangul::Stem::kGeu ||
         stem == Hangul::Stem::kJeo;
}

}  // namespace

int MAnalyzer::DerivedStem(Eojul& e, int /*level*/) {
  int status = 0;
  if (curJe.text != nullptr || levelIndex >= 1) {
    status |= DerivedPlain(e);
    if ((status & RouteStatus::kNoSyllable) != 0) return status;
  }
  if (curJongJe.text != nullptr &&
      (levelIndex == 0 || (levels[0].endingBits & kJosaBit) != 0)) {
    status |= DerivedFused(e);
  }
  const LevelRec& top = levels[levelIndex];
  if ((curJe.text == nullptr && curJongJe.text == nullptr) ||
      (levelIndex > 0 && top.endingBits == Pos::EP) ||
      (curJe.text != nullptr && (curJe.attach & (0x0040 | 0x0100)) != 0)) {
    status = DerivedInside(e, status);
  }
  return status;
}

int MAnalyzer::DerivedPlain(Eojul& e) {
  const Dictionary* dictionary = Knowledge();
  LevelRec& top = levels[levelIndex];
  if (dictionary->xsdList.Find(top.stem, xsdPositions) == 0) return 0;
  const char* surface = e.GetString();
  int status = 0;
  for (uint32_t i = 0; i < xsdPositions.count; ++i) {
    const int32_t p = xsdPositions.positions[i];
    if (p <= 0) continue;
    // Two syllables are too short for a noun and a suffix: the route ends.
    if (top.stem.Length() == 4) return status | RouteStatus::kNoSyllable;
    const char* suffix =
        dictionary->xsdList.GetEntry(xsdPositions.values[i])->base;
    LevelRec& next = levels[levelIndex + 1];
    next.stem.Assign(top.stem.CStr(), p);
    next.ending = suffix;
    next.endingBits = Pos::XSD;
    if (IsDemonstrative(next.stem)) continue;
    ++levelIndex;
    if ((NounStem(e, 0x4000002F) & kFound) == 0) {
      if (StoreNounTail(e, true)) status |= kPending;
      PopLevel();
      continue;
    }
    status |= kFound;
    foundMask |= Pos::XSD;
    // A common noun right after the noun part makes a compound reading.
    SearchInfo si;
    // NounStem's cut of the surface is undone by now: measuring here finds
    // the length the loop began with.
    if (p <= static_cast<int32_t>(std::strlen(surface)) &&
        dictionary->SearchMain(surface + p, si) != 0 &&
        HasAll(si.info.bits, Pos::NNG)) {
      compoundState = 1;
    }
    const LevelRec& below = levels[levelIndex - 1];
    bool settled = false;
    if (below.ending.Length() < 5) {
      const bool nominal = std::strcmp(suffix, Hangul::kHa) == 0 &&
                           below.ending == Hangul::kGi &&
                           below.endingBits == Pos::ETN;
      const bool adnominal = std::strcmp(suffix, Hangul::Stem::kGeori) != 0 &&
                             below.endingBits == Pos::ETM;
      if (!nominal && !adnominal) {
        compoundState = 1;
        settled = true;
      }
    }
    if (!settled && std::strcmp(suffix, Hangul::Stem::kDae) == 0 &&
        pendingNounEnding > 0) {
      compoundState = 0;
      for (int32_t k = 0; k < pendingNounEnding && k < EojulPool::kCapacity;
           ++k) {
        if (eojulPool.stemEnds[k].length == next.stem.Length() + 2) {
          compoundState = 1;
        }
      }
    }
    PopLevel();
  }
  return status;
}

int MAnalyzer::DerivedFused(Eojul& e) {
  const Dictionary* dictionary = Knowledge();
  LevelRec& top = levels[levelIndex];
  const SyllableRec* syl = LastSyllableOf(top.stem);
  if (syl == nullptr) return RouteStatus::kNoSyllable;
  SyllableSwap swap;
  if (!swap.ApplyLast(top.stem, *syl, 0)) return 0;
  auto found = [&]() {
    return dictionary->xsdList.Find(top.stem, xsdPositions) != 0 &&
           xsdPositions.count > 0;
  };
  bool hit = found();
  if (!hit && HasLetters(*syl, 7, 7) && (syl->flags & kAddBieup) != 0) {
    // 스러운 and 스런 go back to 스럽.
    swap.Restore();
    hit = swap.ApplyLast(top.stem, *syl, 3) && found();
  }
  const char* jamo = BareJamo(syl->jongseong);
  if (!hit || jamo == nullptr) {
    swap.Restore();
    return 0;
  }
  workText = top.ending;
  const uint32_t savedBits = top.endingBits;
  const bool nominal = top.endingBits == Pos::ETN;
  top.ending = jamo;
  if (!nominal) SetEnding(top, curJongJe.text, e);
  top.endingBits = curJongJe.bits;

  int status = 0;
  for (uint32_t i = 0; i < xsdPositions.count; ++i) {
    const int32_t p = xsdPositions.positions[i];
    if (p == 0) continue;
    const int r = SuffixNoun(
        e, p, dictionary->xsdList.GetEntry(xsdPositions.values[i])->base,
        0x4000004F);
    status |= r;
    if ((r & kFound) != 0 && compoundState != 2 && curJe.text != nullptr &&
        NoPlainWordClass(foundMask)) {
      compoundState = 1;
    }
  }
  swap.Restore();
  // An ETN level keeps the bare jamo as its ending.
  if (!nominal) top.ending = workText;
  top.endingBits = curJe.text != nullptr ? curJe.bits : savedBits;
  if ((status & kFound) != 0) foundMask |= Pos::XSD;
  return status;
}

int MAnalyzer::DerivedInside(Eojul& e, int status) {
  const Dictionary* dictionary = Knowledge();
  const bool rePass = (e.GetType() & EojulType::kSubToken) != 0;
  LevelRec& top = levels[levelIndex];
  const SyllableRec* syl = LastSyllableOf(top.stem);
  if (syl == nullptr) return status | RouteStatus::kNoSyllable;
  if (!IsOpen(*syl)) return status;
  const bool epTop = levelIndex > 0 && top.endingBits == Pos::EP;
  int link;
  if ((syl->flags & kHaeToHa) != 0) {
    // 해 before the EP 오 is no 하 + 어.
    if (IsSyllable(*syl, Hangul::Stem::kHae) && top.endingBits == Pos::EP &&
        top.ending.StartsWith(Hangul::Stem::kO)) {
      return status;
    }
    link = 21;
  } else if ((syl->flags & kWaeToOe) != 0 && syl->choseong == 5) {
    link = 17;
  } else if ((syl->flags & kWaWoToOU) != 0) {
    link = 16;
  } else {
    return status;
  }
  SyllableSwap swap;
  if (!swap.ApplyLast(top.stem, *syl, link)) return status;

  // The ending of the contracted vowel: "어" in place of the ending, or in
  // front of an open-stem ending; an EP level keeps its own.
  StringEx savedEnding;
  const uint32_t savedBits = top.endingBits;
  bool replaced = false;
  bool led = false;
  if (!epTop) {
    if (curJe.text == nullptr || (curJe.attach & (0x0040 | 0x0100)) == 0) {
      savedEnding = top.ending;
      top.ending = Hangul::kEo;
      top.endingBits = Pos::EM;
      replaced = true;
    } else {
      led = LeadEo(Hangul::kEo);
    }
  }

  if (link == 21) {
    const int r = EmitStemReadings(e, Lookup(top.stem), !rePass, nullptr);
    if ((r & kFound) != 0) {
      status |= kFound;
      foundMask |= Pos::V_;
      if (compoundState != 2) compoundState = 1;
    }
  }
  if (dictionary->xsdList.Find(top.stem, xsdPositions) != 0) {
    for (uint32_t i = 0; i < xsdPositions.count; ++i) {
      const int32_t p = xsdPositions.positions[i];
      if (p == 0) continue;
      const char* suffix =
          dictionary->xsdList.GetEntry(xsdPositions.values[i])->base;
      const int r = SuffixNoun(e, p, suffix, 0x4000004F);
      status |= r;
      if ((r & kFound) == 0) continue;
      foundMask |= Pos::XSD;
      // 하 + 어 is the plain derived verb, no compound.
      const bool plainHa = top.ending == Hangul::kEo &&
                           top.endingBits == Pos::EM &&
                           std::strcmp(suffix, Hangul::kHa) == 0;
      if (!plainHa) compoundState = 1;
    }
  }
  if ((status == 0 || ((status & kPending) != 0 && (status & kFound) == 0)) &&
      !rePass) {
    status |= AuxSplit();
  }

  swap.Restore();
  UndoLeadEo(led);
  if (replaced) {
    top.ending = savedEnding;
    top.endingBits = savedBits;
  }
  return status;
}

}  // namespace Quorel
