// The two plain stems: a noun (or adverb) before a josa or ending
// (NounStem), and a predicate stem with its ending as it stands, then with
// the ending's first letter fused into the stem's last syllable (WholeStem).
#include <cstring>

#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "analyzer/surface_cut.h"
#include "analyzer/syllable_tests.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

constexpr int kFound = RouteStatus::kCandidate;
constexpr uint32_t kJosaBit = 0x800000;

bool HasAll(uint32_t mask, uint32_t bits) { return (mask & bits) == bits; }

}  // namespace

int MAnalyzer::NounStem(Eojul& e, uint32_t mask) {
  LevelRec& level = levels[levelIndex];
  SearchInfo si;
  const uint32_t bits =
      SearchStem(level.stem, si) != 0 ? si.info.bits : 0;
  const bool marked = (si.info.marks & 1) != 0;
  int status = 0;

  if ((bits & Pos::N_) != 0) {
    const uint32_t both = mask & bits;
    if ((both & 0x1) != 0) status |= Emit(e, marked ? Pos::NFG : Pos::NNG);
    if ((both & 0x2) != 0) status |= Emit(e, Pos::NNB);
    // NNP, and NNU with a division pattern, go to the noun analysis.
    for (uint32_t cls : {0x4u, 0x8u}) {
      if ((both & cls) == 0) continue;
      const uint32_t found = cls == 0x4 ? Pos::NNP : Pos::NNU;
      if (cls == 0x8 && si.nnuText != nullptr &&
          std::strcmp(si.nnuText, "0") == 0) {
        status |= Emit(e, marked ? Pos::NFU : Pos::NNU);
      } else {
        {
          SurfaceCut cut(e, level.stem.Length());
          if (AnalyzeNoun(e, cls == 0x4 ? 80 : 85, levelIndex) < 0) {
            e.BeginCandidate();
            e.AddMorpheme(workText.CStr(), Pos::NNR);
            nounStage = 1;
          }
        }
        AddEndings(e, levelIndex);
        e.EndCandidate();
        status |= kFound;
      }
      if (compoundState != 0 ||
          (levelIndex == 0 && level.ending.Length() == 2 &&
           (level.endingBits & kJosaBit) != 0)) {
        foundMask |= found;
      }
    }
    if ((both & 0x20) != 0) status |= Emit(e, Pos::NP);
    if ((both & 0x40) != 0) status |= Emit(e, Pos::NU);
    if ((both & 0x400) != 0) status |= Emit(e, Pos::NNI);
  } else if ((foundMask & Pos::MA) == 0 && (mask & bits & Pos::MA) != 0 &&
             ((((level.endingBits & (0x4 | 0x2)) != 0) &&
               level.stem.Length() > 2) ||
              (level.endingBits & Pos::VC) != 0)) {
    // An adverb stem.
    status |= Emit(e, Pos::MA);
    foundMask |= Pos::MA;
  }

  if ((status & kFound) != 0) {
    foundMask |= Pos::N_;
    if (curJongJe.text == nullptr && curJe.text != nullptr &&
        (curJe.attach & 0x0080) != 0) {
      verbState = 1;
    }
  }
  return status;
}

int MAnalyzer::WholeStem(Eojul& e, uint32_t mask) {
  const bool rePass = (e.GetType() & EojulType::kSubToken) != 0;
  LevelRec& level = levels[levelIndex];
  int status = 0;

  if (curJe.text != nullptr) {
    const SyllableRec* syl = LastSyllableOf(level.stem);
    if (syl == nullptr) return RouteStatus::kNoSyllable;
    const bool open = IsOpen(*syl);
    uint32_t bits = 0;
    for (const SearchInfo& hit : wordHits) {
      if (hit.end == level.stem.Length()) {
        bits = hit.info.bits;
        break;
      }
    }
    const bool skip = ((curJe.attach & 0x0002) != 0 && !open) ||
                      ((curJe.attach & 0x0010) != 0 && open) ||
                      ((curJe.attach & 0x4000) != 0 && !open &&
                       syl->jongseong != 9);
    if (!skip) {
      if (levelIndex > 0 && (levels[levelIndex - 1].endingBits & kJosaBit) != 0) {
        const jeInfo josa = JosaBelow();
        const SyllableRec* endSyl = LastSyllable(curJe.text);
        if (endSyl == nullptr || Dictionary::CheckAttach(*endSyl, josa) == 0) {
          bits = 0;
        }
      }
      if ((bits & Pos::V_) != 0) {
        if ((mask & 0x80) != 0 && (bits & 0x80) != 0 &&
            (curJe.attach & (0x2000 | 0x8000)) == 0) {
          status |= Emit(e, Pos::VV);
        }
        if ((mask & 0x100) != 0 && (bits & 0x100) != 0 &&
            ((curJe.attach & 0x8000) == 0 || level.stem == Hangul::kAni)) {
          status |= Emit(e, Pos::VA);
        }
      }
      if ((mask & Pos::VX) != 0 && (bits & Pos::VX) != 0 && !rePass &&
          (curJe.attach & 0x8000) == 0) {
        status |= Emit(e, Pos::VX);
      }
    }
  }

  if (status == 0 && !rePass && !level.ending.IsEmpty()) {
    if (AuxSplit() != 0) return Finish(status | RouteStatus::kNoSyllable);
    if ((foundMask & Pos::XSD) != 0 && auxTailCount > 0) foundMask |= Pos::VX;
  }

  if (curJongJe.text == nullptr ||
      (rePass && (curJongJe.attach & 0x0800) != 0)) {
    return Finish(status);
  }
  if (rePass && (HasAll(curJongJe.bits, Pos::ETM) ||
                 ((levels[0].endingBits & kJosaBit) != 0 &&
                  HasAll(curJongJe.bits, Pos::ETN)))) {
    return Finish(status);
  }

  // The fused pass: the final goes back to the ending.
  const SyllableRec* syl = LastSyllableOf(level.stem);
  if (syl == nullptr) return Finish(status | RouteStatus::kNoSyllable);
  const SyllableRec* plain = SyllableByNumber(syl->links[0]);
  if (plain == nullptr) return Finish(status);
  UseFused(e);
  char* last = level.stem.Data() + level.stem.Length() - 2;
  const char saved[2] = {last[0], last[1]};
  last[0] = static_cast<char>(plain->code[0]);
  last[1] = static_cast<char>(plain->code[1]);
  SearchInfo si;
  const uint32_t bits =
      SearchStem(level.stem, si) != 0 ? si.info.bits : 0;
  const uint16_t attach = curJongJe.attach;
  if ((bits & Pos::V_) != 0) {
    if ((mask & 0x80) != 0 && (bits & 0x80) != 0 &&
        (attach & (0x2000 | 0x8000)) == 0) {
      status |= Emit(e, Pos::VV);
    }
    if ((mask & 0x100) != 0 && (bits & 0x100) != 0 && (attach & 0x0004) == 0 &&
        ((attach & 0x8000) == 0 || level.stem == Hangul::kAni)) {
      status |= Emit(e, Pos::VA);
    }
  }
  if ((mask & Pos::VX) != 0 && (bits & Pos::VX) != 0 &&
      (attach & 0x8000) == 0 && !rePass) {
    status |= Emit(e, Pos::VX);
  }
  int auxStatus = 0;
  if (status == 0 && !rePass) {
    auxStatus = AuxSplit();
    if (auxStatus == 0 && (foundMask & Pos::XSD) != 0 && auxTailCount > 0) {
      foundMask |= Pos::VX;
    }
  }
  last = level.stem.Data() + level.stem.Length() - 2;
  last[0] = saved[0];
  last[1] = saved[1];
  UndoFused();
  return Finish(status | auxStatus);
}

}  // namespace Quorel
