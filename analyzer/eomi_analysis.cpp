// AnalyzeEomi: the eomi readings of a split point after the stem of the top
// level. The stem's last syllable decides, by its rule bits, which sound
// change handlers may undo a change; the first cascade needs a reading that
// can follow a closed stem or a fused one, the second serves open stems.
#include <cstring>

#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "analyzer/syllable_tests.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

constexpr int kFound = RouteStatus::kCandidate;

bool HasAll(uint32_t mask, uint32_t bits) { return (mask & bits) == bits; }

bool IsFusedFinal(int jong) { return jong == 5 || jong == 9 || jong == 19; }

// Neither all of NNP, NNU, NNG nor NNI stands.
bool NoNounClass(uint32_t found) {
  return !HasAll(found, Pos::NNP) && !HasAll(found, Pos::NNU) &&
         !HasAll(found, Pos::NNG) && !HasAll(found, Pos::NNI);
}

}  // namespace

int MAnalyzer::AnalyzeEomi(Eojul& e, const SearchJEInfo& sjei) {
  const Dictionary* dictionary = Knowledge();
  int result = 0;
  dictionary->GetJEInfo(curJe, sjei, 1);
  LevelRec& level = levels[levelIndex];
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return RouteStatus::kNoSyllable;
  const int jong = syl->jongseong;
  const uint32_t rules = syl->flags;
  const bool open = IsOpen(*syl);
  if (IsFusedFinal(jong)) {
    dictionary->GetJEInfo(curJongJe, sjei, jong);
  } else {
    curJongJe = jeInfo();
  }

  if (curJe.text != nullptr || curJongJe.text != nullptr) {
    level.endingBits = curJe.text != nullptr ? curJe.bits : curJongJe.bits;

    // First cascade: shut when only an open-stem or bare reading exists.
    const bool shut = (curJe.text == nullptr ||
                       (curJe.attach & (0x0040 | 0x0080)) != 0) &&
                      curJongJe.text == nullptr;
    if (!shut) {
      if ((rules & kAddRieul) != 0 && (IsFusedFinal(jong) || open)) {
        result |= LDrop(e) & kFound;
      }
      if ((rules & kToEu) != 0 && open && IsSyllable(*syl, Hangul::kA)) {
        result |= EuDrop(e) & kFound;
      }
      if ((rules & kAddSiot) != 0) result |= SIrregular(e) & kFound;
      if ((rules & kRieulToDigeut) != 0) result |= DIrregular(e) & kFound;
      if (HasLetters(*syl, 13, 20) &&
          ((curJongJe.text == nullptr && (jong == 1 || IsFusedFinal(jong))) ||
           (curJongJe.text != nullptr && curJongJe.type != 17))) {
        result |= BIrregular(e) & kFound;
      }
      if ((rules & kReuIrregular) != 0) result |= ReuIrregular(e) & kFound;
      if ((rules & (kAeToHieut | kAddHieut)) != 0) {
        if (open || (curJongJe.text != nullptr && curJongJe.type == jong)) {
          result |= HIrregular(e) & kFound;
        }
      }
      if ((curJe.text != nullptr && (curJe.attach & 0x0020) == 0) ||
          (curJongJe.text != nullptr && (curJongJe.attach & 0x0020) == 0)) {
        result |= Prefinal(e, -1) & kFound;
      }
      // After an open stem the copula is silent.
      if (((curJe.text != nullptr && (curJe.attach & 0x0001) != 0) ||
           (curJongJe.text != nullptr && (curJongJe.attach & 0x0001) != 0)) &&
          (curJongJe.text != nullptr || open)) {
        if ((Copula(e, -1) & kFound) != 0) {
          result |= kFound;
          if (compoundState != 2 && curJe.text != nullptr &&
              std::strlen(curJe.text) < 5 &&
              (foundMask & (Pos::IC | Pos::MA | Pos::MM)) == 0 &&
              NoNounClass(foundMask)) {
            compoundState = 1;
          }
        }
      }
      if ((rules & (kHaeToHa | kWaeToOe | kWaWoToOU)) == 0) {
        result |= DerivedStem(e, -1) & kFound;
      }
      const bool reoAfterReu =
          curJe.text != nullptr &&
          std::strncmp(curJe.text, Hangul::kReo, 2) == 0 && open &&
          IsSyllable(*syl, Hangul::kReu) && curJongJe.text == nullptr;
      if (!reoAfterReu &&
          (curJongJe.text != nullptr ||
           (curJe.text != nullptr && CheckJoin(level.stem, curJe.text)))) {
        result |= WholeStem(e, 0x30000180) & kFound;
      }
    }

    // Second part, for all.
    if ((rules & kYeoToI) != 0 && !IsSyllable(*syl, Hangul::kYeo) &&
        curJe.text != nullptr && (curJe.attach & (0x0040 | 0x0100)) == 0) {
      result |= YeoContract(e) & kFound;
    }
    if (curJongJe.text == nullptr && curJe.text != nullptr &&
        (curJe.attach & (0x0040 | 0x0100)) != 0 && open) {
      const bool narrow = (curJe.attach & 0x0100) != 0;
      SetEnding(levels[levelIndex], curJe.text, e);
      if ((rules & kToEu) != 0) result |= EuDrop(e) & kFound;
      if ((rules & kPeoToPu) != 0) result |= PuIrregular(e) & kFound;
      if ((rules & kWaWoToOU) != 0) result |= WaContract(e) & kFound;
      if ((rules & kWaeToOe) != 0) result |= WaeContract(e) & kFound;
      if (!narrow && (rules & kReuIrregular) != 0) {
        result |= ReuIrregular(e) & kFound;
      }
      if ((rules & kReoToEo) != 0) result |= ReoIrregular(e) & kFound;
      if ((rules & kAeToEo) != 0) result |= AeContract(e) & kFound;
      if (!narrow && (rules & (kAeToHieut | kAddHieut)) != 0) {
        result |= HIrregular(e) & kFound;
      }
      if ((rules & kYeoToI) != 0) result |= YeoContract(e) & kFound;
      if ((rules & (kHaeToHa | kWaeToOe | kWaWoToOU)) != 0) {
        result |= DerivedStem(e, -1) & kFound;
      }
      if (!narrow) result |= WholeStem(e, 0x30000180) & kFound;
      if ((rules & kYeoToI) != 0 && syl->choseong == 11) {
        result |= Prefinal(e, -1) & kFound;
      }
    }
  }

  // An ending marked 0x1000 makes a predicate analysis good enough.
  if (compoundState != 2 && (result & kFound) != 0 &&
      ((curJe.text != nullptr && (curJe.attach & 0x1000) != 0) ||
       (curJongJe.text != nullptr && (curJongJe.attach & 0x1000) != 0)) &&
      NoNounClass(foundMask)) {
    compoundState = 1;
  }
  return result;
}

}  // namespace Quorel
