// The common steps of the stem handlers: emitting a candidate from the
// level stack, the fused reading of the top ending, and the split before
// an auxiliary predicate.
#include <cstring>

#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

void MAnalyzer::AddEndings(Eojul& target, int from) {
  for (int k = from; k >= 0; --k) {
    if (!levels[k].ending.IsEmpty()) {
      target.AddMorpheme(levels[k].ending.CStr(), levels[k].ending.Length(),
                         levels[k].endingBits);
    }
  }
}

int MAnalyzer::Emit(Eojul& e, uint32_t mask) {
  e.BeginCandidate();
  e.AddMorpheme(levels[levelIndex].stem.CStr(), levels[levelIndex].stem.Length(),
                mask);
  AddEndings(e, levelIndex);
  e.EndCandidate();
  return RouteStatus::kCandidate;
}

int MAnalyzer::EmitLed(Eojul& e, uint32_t mask, const char* lead) {
  if (lead == nullptr || !levels[levelIndex].ending.IsEmpty()) {
    return Emit(e, mask);
  }
  e.BeginCandidate();
  e.AddMorpheme(levels[levelIndex].stem.CStr(), levels[levelIndex].stem.Length(),
                mask);
  e.AddMorpheme(lead, Pos::EM);
  e.EndCandidate();
  return RouteStatus::kCandidate;
}

int MAnalyzer::EmitEo(Eojul& e, uint32_t mask) {
  return EmitLed(e, mask, Hangul::kEo);
}

int MAnalyzer::EmitPredicate(Eojul& e, uint32_t bits, const char* lead) {
  if ((bits & Pos::V_) == 0) return 0;
  int status = 0;
  // Both readings when both bits are set; the verb first.
  if ((bits & 0x80) != 0) status |= EmitLed(e, Pos::VV, lead);
  if ((bits & 0x100) != 0) status |= EmitLed(e, Pos::VA, lead);
  return status;
}

int MAnalyzer::SearchStem(const StringEx& key, SearchInfo& si) const {
  const int32_t length = key.Length();
  // Most keys that are no prefix differ in their last byte (a handler
  // swapped the last syllable): that test comes before the whole compare.
  if (length <= 0 || length > wordHitsText.Length() ||
      key.CStr()[length - 1] != wordHitsText.CStr()[length - 1] ||
      std::memcmp(key.CStr(), wordHitsText.CStr(), length) != 0) {
    return Knowledge()->SearchMain(key, si);
  }
  // wordHits are in increasing end; SearchMain zeroes si on a miss.
  for (const SearchInfo& hit : wordHits) {
    if (hit.end < length) continue;
    if (hit.end > length) break;
    si = hit;
    return 1;
  }
  std::memset(static_cast<void*>(&si), 0, sizeof si);
  return 0;
}

uint32_t MAnalyzer::Lookup(const StringEx& key, uint32_t* marks) const {
  SearchInfo si;
  const uint32_t bits = SearchStem(key, si) != 0 ? si.info.bits : 0;
  if (marks != nullptr) *marks = bits != 0 ? si.info.marks : 0;
  return bits;
}

bool MAnalyzer::LeadEo(const char* lead) {
  LevelRec& level = levels[levelIndex];
  if ((level.endingBits & Pos::EM) != Pos::EM ||
      level.ending.StartsWith(Hangul::kA) ||
      level.ending.StartsWith(Hangul::kEo)) {
    return false;
  }
  level.ending.Replace(0, 0, lead);
  return true;
}

void MAnalyzer::UndoLeadEo(bool noted) {
  if (noted) levels[levelIndex].ending.Replace(0, 2, "");
}

void MAnalyzer::UseFused(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  // The held slot takes the ending and its storage; SetEnding fills the
  // storage the slot had. Fused windows of one level never nest.
  heldEndings[levelIndex].Swap(level.ending);
  heldBits[levelIndex] = level.endingBits;
  SetEnding(level, curJongJe.text != nullptr ? curJongJe.text : "", e);
  level.endingBits = curJongJe.bits;
}

void MAnalyzer::UndoFused() {
  LevelRec& level = levels[levelIndex];
  // The slot is left with the fused ending; every user writes it first.
  level.ending.Swap(heldEndings[levelIndex]);
  level.endingBits = heldBits[levelIndex];
}

int MAnalyzer::Finish(int status) {
  if ((status & RouteStatus::kCandidate) != 0) foundMask |= Pos::V_;
  return status;
}

int MAnalyzer::AuxSplit() { return AuxSplitWith(false); }

int MAnalyzer::AuxSplitWith(bool eoOnLevelZero) {
  LevelRec& level = levels[levelIndex];
  if (Knowledge()->avList.Find(level.stem, avPositions) == 0) {
    return RouteStatus::kNoSyllable;
  }
  for (uint32_t i = 0; i < avPositions.count; ++i) {
    const int32_t p = avPositions.positions[i];
    if (p <= 0 || auxTailCount >= EojulPool::kCapacity) continue;
    Eojul& tail = eojulPool.auxTails[auxTailCount];
    pieceText.Assign(level.stem.CStr(), p);
    tail.SetText(pieceText.CStr(), static_cast<uint32_t>(pieceText.Length()), 0);
    tail.BeginCandidate();
    tail.AddMorpheme(level.stem.CStr(p), Pos::VX);
    if (eoOnLevelZero) {
      // The levels above 0 as they stand, then level 0 or "어".
      for (int k = levelIndex; k >= 1; --k) {
        if (!levels[k].ending.IsEmpty()) {
          tail.AddMorpheme(levels[k].ending.CStr(), levels[k].ending.Length(),
                           levels[k].endingBits);
        }
      }
      if (levels[0].ending.IsEmpty()) {
        tail.AddMorpheme(Hangul::kEo, Pos::EM);
      } else {
        tail.AddMorpheme(levels[0].ending.CStr(), levels[0].ending.Length(),
                         levels[0].endingBits);
      }
    } else if (level.ending.IsEmpty()) {
      tail.AddMorpheme(Hangul::kEo, Pos::EM);
    } else {
      AddEndings(tail, levelIndex);
    }
    tail.EndCandidate();
    ++auxTailCount;
  }
  return 0;
}

}  // namespace Quorel
