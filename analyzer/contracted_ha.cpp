// ContractedHa: 하 contracted with the next ending after a noun or adverb:
// 치 (무심치 = 무심 + 하 + 지), 케 (생각케 = 생각 + 하 + 게), 키 (편키 = 편 +
// 하 + 기). The noun reading comes first, then, for longer stems, the stem
// with 하 restored as a dictionary predicate. These readings are weak: the
// newest candidate's score is lowered at once.
#include <cstring>

#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "analyzer/predicate_steps.h"
#include "analyzer/surface_cut.h"
#include "analyzer/syllable_tests.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

constexpr uint32_t kJosaBit = 0x800000;
constexpr double kContractedFactor = 0.78;

// One variant: the contracted syllable's letters, the ending it holds, and
// the noun-analysis modes for a proper noun and for a user noun.
struct HaForm {
  int cho;
  int jung;
  const char* ending;
  uint32_t endingBits;
  int properMode;
  int userMode;
};

const HaForm& FormOf(HaContraction variant) {
  static const HaForm kForms[] = {
      {16, 29, Hangul::Stem::kJi, Pos::EM, 90, 67},
      {17, 10, Hangul::kGe, Pos::EM, 71, 68},
      {17, 29, Hangul::kGi, Pos::ETN, 75, 69},
  };
  return kForms[static_cast<int>(variant)];
}

}  // namespace

int MAnalyzer::ContractedHa(Eojul& e, HaContraction variant) {
  const HaForm& form = FormOf(variant);
  LevelRec& top = levels[levelIndex];
  const SyllableRec* syl = LastSyllableOf(top.stem);
  if (syl == nullptr) return RouteStatus::kNoSyllable;
  if (!IsOpen(*syl) || !HasLetters(*syl, form.cho, form.jung)) return 0;
  if ((e.GetType() & EojulType::kSubToken) != 0 &&
      (levels[0].endingBits & kJosaBit) != 0) {
    return 0;
  }
  const int32_t stemLength = top.stem.Length();
  SyllableCut cut;
  if (!cut.Apply(top.stem)) return 0;
  SearchInfo si;
  const uint32_t bits =
      SearchStem(top.stem, si) != 0 ? si.info.bits : 0;
  const bool marked = (si.info.marks & 1) != 0;
  int status = 0;

  if ((bits & (Pos::N_ | Pos::MA)) != 0) {
    // The first class of the word that applies; a proper or divisible user
    // noun goes to the noun analysis.
    uint32_t mask = Pos::MA;
    int mode = 0;
    if ((bits & Pos::N_) != 0) {
      if ((bits & 0x1) != 0) {
        mask = marked ? Pos::NFG : Pos::NNG;
      } else if ((bits & 0x2) != 0) {
        mask = Pos::NNB;
      } else if ((bits & 0x4) != 0) {
        mode = form.properMode;
      } else if ((bits & 0x8) != 0) {
        if (si.nnuText == nullptr || std::strcmp(si.nnuText, "0") != 0) {
          mode = form.userMode;
        } else {
          mask = marked ? Pos::NFU : Pos::NNU;
        }
      } else if ((bits & 0x20) != 0) {
        // 이, 그, 저 take no 하.
        if (top.stem == Hangul::Stem::kI || top.stem == Hangul::Stem::kGeu ||
            top.stem == Hangul::Stem::kJeo) {
          cut.Restore();
          return 0;
        }
        mask = Pos::NP;
      } else if ((bits & 0x40) != 0) {
        mask = Pos::NU;
      } else if ((bits & 0x400) != 0) {
        mask = Pos::NNI;
      }
    }
    if (mode != 0) {
      SurfaceCut surfaceCut(e, top.stem.Length());
      if (AnalyzeNoun(e, mode, levelIndex) < 0) {
        e.BeginCandidate();
        e.AddMorpheme(workText.CStr(), Pos::NNR);
      }
    } else {
      e.BeginCandidate();
      e.AddMorpheme(top.stem.CStr(), mask);
    }
    e.AddMorpheme(Hangul::kHa, Pos::XSD);
    e.AddMorpheme(form.ending, form.endingBits);
    if (!levels[0].ending.IsEmpty()) {
      e.AddMorpheme(levels[0].ending.CStr(), levels[0].endingBits);
    }
    e.EndCandidate();
    status |= RouteStatus::kCandidate;
  }

  // The predicate reading: the stem with 하 in place of the contraction.
  if (stemLength >= 6) {
    top.stem.Append(Hangul::kHa);
    const uint32_t predicate = Lookup(top.stem);
    if ((predicate & Pos::V_) != 0) {
      for (uint32_t cls : {Pos::VV, Pos::VA}) {
        if ((predicate & cls & 0x180) == 0) continue;
        e.BeginCandidate();
        e.AddMorpheme(top.stem.CStr(), cls);
        e.AddMorpheme(form.ending, form.endingBits);
        AddEndings(e, levelIndex);
        e.EndCandidate();
        status |= RouteStatus::kCandidate;
      }
    }
    top.stem.Truncate(stemLength - 2);
  }
  cut.Restore();

  if ((status & RouteStatus::kCandidate) != 0) {
    foundMask |= Pos::N_ | Pos::XSD;
    compoundState = 1;
    ResetScoreFlow();
    const int newest = static_cast<int>(e.StoredCount()) - 1;
    e.SetScoreAt(newest, Score(newest, e) * kContractedFactor);
  }
  return status;
}

}  // namespace Quorel
