// AnalyzeWhole: the stem of the top level taken whole, with nothing peeled
// off or with its ending already in the level. The stem may be a dictionary
// word, or a predicate whose ending is fused into its last syllable; the
// rule bits of that syllable choose the sound-change handlers to run.
// Also the two handlers of an elided 아/어 (EoElided, AeElided), which need
// no swap: the word itself is the stem.
#include <cstring>

#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "analyzer/syllable_tests.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

constexpr int kFound = RouteStatus::kCandidate;
constexpr uint32_t kIcBit = 1u << 26;
constexpr uint32_t kMaBit = 1u << 25;
constexpr uint32_t kMmBit = 1u << 24;

bool HasAll(uint32_t mask, uint32_t bits) { return (mask & bits) == bits; }

}  // namespace

void MAnalyzer::VoteCompound(int before) {
  if (!HasAll(foundMask, Pos::NNU) && !HasAll(foundMask, Pos::NNP)) {
    compoundState = 1;
  } else if ((before & kFound) != 0 && compoundState == 1) {
    compoundState = 0;
  } else {
    compoundState = 1;
  }
}

int MAnalyzer::WholeWord(Eojul& e, const SearchInfo& hit) {
  const uint32_t bits = hit.info.bits;
  const bool marked = (hit.info.marks & 1) != 0;
  int status = 0;
  if ((bits & Pos::N_) != 0) {
    if ((bits & 0x1) != 0) {
      const uint32_t mask = marked ? Pos::NFG : Pos::NNG;
      AddSurfaceCandidate(e, mask);
      foundMask |= mask;
      status = kFound;
    }
    if ((bits & 0x400) != 0) {
      AddSurfaceCandidate(e, Pos::NNI);
      foundMask |= Pos::NNI;
      status = kFound;
    }
    // NNP, and NNU with a division pattern, go to the noun analysis.
    for (uint32_t cls : {0x4u, 0x8u}) {
      if ((bits & cls) == 0) continue;
      if (cls == 0x8 && hit.nnuText != nullptr &&
          std::strcmp(hit.nnuText, "0") == 0) {
        AddSurfaceCandidate(e, marked ? Pos::NFU : Pos::NNU);
      } else {
        if (AnalyzeNoun(e, cls == 0x4 ? 80 : 85, -1) < 0) {
          e.BeginCandidate();
          e.AddMorpheme(workText.CStr(), Pos::NNR);
          nounStage = 1;
        }
        e.EndCandidate();
      }
      foundMask |= Pos::N_ | cls;
      status = kFound;
    }
    if ((bits & 0x20) != 0) {
      AddSurfaceCandidate(e, Pos::NP);
      status = kFound;
    }
    if ((bits & 0x40) != 0) {
      AddSurfaceCandidate(e, Pos::NU);
      status = kFound;
    }
    if ((bits & 0x2) != 0) {
      AddSurfaceCandidate(e, Pos::NNB);
      status = kFound;
    }
    if ((status & kFound) != 0) {
      foundMask |= Pos::N_;
      wholeNounDone = 1;
    }
  }
  // Interjection, adverb and determiner, whatever the noun bit says.
  const uint32_t others[3][2] = {
      {kIcBit, Pos::IC}, {kMaBit, Pos::MA}, {kMmBit, Pos::MM}};
  for (const auto& other : others) {
    if ((bits & other[0]) == 0) continue;
    AddSurfaceCandidate(e, other[1]);
    foundMask |= other[1];
    status = kFound;
  }
  return status;
}

int MAnalyzer::AnalyzeWhole(Eojul& e) {
  const unsigned type = e.GetType();
  int status = 0;
  uint32_t hit = 0;
  curJe = jeInfo();
  curJongJe = jeInfo();
  LevelRec& level = levels[levelIndex];
  const int32_t stemLength = level.stem.Length();
  const bool wholeHit = !wordHits.empty() && wordHits.back().end == stemLength;

  // 2. The whole stem is a dictionary word.
  if (levelIndex == 0 && (type & EojulType::kSubToken) == 0 && wholeHit) {
    hit = wordHits.back().info.bits;
    status = WholeWord(e, wordHits.back());
  }

  // 3.
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return status | RouteStatus::kNoSyllable;
  const bool rePass = (type & EojulType::kSubToken) != 0;
  const uint32_t rules = syl->flags;
  const bool open = IsOpen(*syl);

  // 4. A final that is the first letter of a bare eomi (ㄴ, ㄹ, ㅁ).
  if (!open) {
    curJongJe = BareEomi(syl->jongseong);
    if (curJongJe.text != nullptr) {
      status |= WholeStem(e, rePass ? 0x20000180 : 0x30000180) & kFound;
      // 인, 일, 임: the copula 이 with its ending fused in.
      if ((!rePass || (type & 0x0100) != 0) && HasLetters(*syl, 13, 29) &&
          levels[levelIndex].ending.IsEmpty() &&
          (Copula(e, -1) & kFound) != 0) {
        foundMask &= ~(1u << 27);
        status |= RouteStatus::kPending;
      }
    }
  }

  // 5. The sound changes of a top-level stem (or of a re-analysis).
  if (levelIndex == 0 || rePass) {
    if (hit == 0 && wholeHit) hit = wordHits.back().info.bits;
    if ((hit & 0x20000080) != 0 && open) {
      if ((rules & kDropSsangSiot) != 0) {
        status |= EoElided(e, hit) & kFound;
      } else if ((rules & kAeEDropSsangSiot) != 0) {
        status |= AeElided(e, hit) & kFound;
      }
    }
    const int jong = syl->jongseong;
    if ((rules & kToEu) != 0 && open) status |= EuDrop(e) & kFound;
    if ((rules & kAddRieul) != 0 && (jong == 5 || jong == 9)) {
      status |= LDrop(e) & kFound;
    }
    if ((rules & kPeoToPu) != 0 && open) status |= PuIrregular(e) & kFound;
    if ((rules & kWaWoToOU) != 0) status |= WaContract(e) & kFound;
    if ((rules & kWaeToOe) != 0) status |= WaeContract(e) & kFound;
    if ((rules & kReuIrregular) != 0) status |= ReuIrregular(e) & kFound;
    if ((rules & kReoToEo) != 0) status |= ReoIrregular(e) & kFound;
    if ((rules & kAeToEo) != 0) status |= AeContract(e) & kFound;
  }

  // 6. ㅎ irregular; 게 read this way keeps the ending search going.
  if ((rules & (kAeToHieut | kAddHieut)) != 0 &&
      (HIrregular(e) & kFound) != 0) {
    status |= kFound;
    if (IsSyllable(*syl, Hangul::kGe)) status |= RouteStatus::kGoOn;
  }

  // 7. ㅂ irregular before a fused ending: 우 and 러 shapes.
  if (curJongJe.text != nullptr &&
      (HasLetters(*syl, 13, 20) || HasLetters(*syl, 7, 7))) {
    status |= BIrregular(e) & kFound;
  }

  // 8.
  if ((rules & kYeoToI) != 0) status |= YeoContract(e) & kFound;

  // 9. A prefinal ending at the end of the stem.
  if (!rePass && ((curJongJe.text != nullptr && syl->choseong == 11) ||
                  IsSyllable(*syl, Hangul::kSyeo))) {
    if ((Prefinal(e, -1) & kFound) != 0) {
      VoteCompound(status);
      status |= kFound;
    }
  }

  // 10. A derived stem (하, 되, 시키 ...).
  if (curJongJe.text != nullptr ||
      (rules & (kHaeToHa | kWaeToOe | kWaWoToOU)) != 0) {
    if ((DerivedStem(e, -1) & kFound) != 0) {
      VoteCompound(status);
      status |= kFound;
    }
  }

  // 11. Contracted 하 on stems of 3 to 5 syllables.
  const int32_t length = levels[levelIndex].stem.Length();
  if (length > 4 && length < 11) {
    if ((rules & kChiToHa) != 0) {
      return status | (ContractedHa(e, HaContraction::kChi) & kFound);
    }
    if ((rules & kKeToHa) != 0) {
      return status | (ContractedHa(e, HaContraction::kKe) & kFound);
    }
    if (IsSyllable(*syl, Hangul::kKi)) {
      status |= ContractedHa(e, HaContraction::kKi) & kFound;
    }
  }
  return status;
}

int MAnalyzer::EoElided(Eojul& e, unsigned wordBits) {
  int status = 0;
  if ((wordBits & 0x80) != 0) status |= EmitEo(e, Pos::VV);
  if ((wordBits & 0x100) != 0) status |= EmitEo(e, Pos::VA);
  if ((wordBits & Pos::VX) != 0) status |= EmitEo(e, Pos::VX);
  return Finish(status);
}

int MAnalyzer::AeElided(Eojul& e, unsigned wordBits) {
  if (LastSyllableOf(levels[levelIndex].stem) == nullptr) {
    return RouteStatus::kNoSyllable;
  }
  return EoElided(e, wordBits);
}

}  // namespace Quorel
