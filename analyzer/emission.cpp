// The common steps of the stem handlers: emitting a candidate from the
// level stack, the fused reading of the top ending, and the split before
// an auxiliary predicate.
#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

void MAnalyzer::AddEndings(Eojul& target, int from) {
  for (int k = from; k >= 0; --k) {
    if (!levels[k].ending.IsEmpty()) {
      target.AddMorpheme(levels[k].ending.CStr(), levels[k].endingBits);
    }
  }
}

int MAnalyzer::Emit(Eojul& e, uint32_t mask) {
  e.BeginCandidate();
  e.AddMorpheme(levels[levelIndex].stem.CStr(), mask);
  AddEndings(e, levelIndex);
  e.EndCandidate();
  return RouteStatus::kCandidate;
}

int MAnalyzer::EmitEo(Eojul& e, uint32_t mask) {
  if (!levels[levelIndex].ending.IsEmpty()) return Emit(e, mask);
  e.BeginCandidate();
  e.AddMorpheme(levels[levelIndex].stem.CStr(), mask);
  e.AddMorpheme(Hangul::kEo, Pos::EM);
  e.EndCandidate();
  return RouteStatus::kCandidate;
}

void MAnalyzer::UseFused(Eojul& e) {
  LevelRec& level = levels[levelIndex];
  workText = level.ending;
  fusedSavedBits = level.endingBits;
  SetEnding(level, curJongJe.text != nullptr ? curJongJe.text : "", e);
  level.endingBits = curJongJe.bits;
}

void MAnalyzer::UndoFused() {
  LevelRec& level = levels[levelIndex];
  level.ending = workText;
  level.endingBits = fusedSavedBits;
}

int MAnalyzer::Finish(int status) {
  if ((status & RouteStatus::kCandidate) != 0) foundMask |= Pos::V_;
  return status;
}

int MAnalyzer::AuxSplit() {
  LevelRec& level = levels[levelIndex];
  if (Knowledge()->avList.Find(level.stem, avPositions) == 0) {
    return RouteStatus::kNoSyllable;
  }
  for (uint32_t i = 0; i < avPositions.count; ++i) {
    const int32_t p = avPositions.positions[i];
    if (p <= 0 || auxTailCount >= EojulPool::kCapacity) continue;
    Eojul& tail = eojulPool.auxTails[auxTailCount];
    pieceText.Assign(level.stem.CStr(), p);
    tail.SetText(pieceText.CStr(), 0);
    tail.BeginCandidate();
    tail.AddMorpheme(level.stem.CStr(p), Pos::VX);
    if (level.ending.IsEmpty()) {
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
