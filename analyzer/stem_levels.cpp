// Common steps of the stem constructions: pushing a level for what a route
// peels off, the predicate readings of the top stem, and the writers of the
// pending noun tails (copulaTails, suffixTails) that the noun analysis
// finishes later.
#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

constexpr uint32_t kPastMark = 0x80000000;

bool HasAll(uint32_t mask, uint32_t bits) { return (mask & bits) == bits; }

}  // namespace

void MAnalyzer::PushLevel(const char* stem, int32_t stemLength,
                          const char* ending, uint32_t bits) {
  LevelRec& next = levels[levelIndex + 1];
  next.stem.Assign(stem, stemLength);
  next.ending = ending;
  next.endingBits = bits;
  ++levelIndex;
}

int MAnalyzer::EmitStemReadings(Eojul& e, uint32_t bits, bool withVx,
                                const char* lead) {
  int status = EmitPredicate(e, bits, lead);
  if (withVx && (bits & Pos::VX) != 0) status |= EmitLed(e, Pos::VX, lead);
  return status;
}

jeInfo MAnalyzer::JosaBelow() const {
  const Dictionary* dictionary = Knowledge();
  SearchJEInfo below;
  jeInfo josa;
  dictionary->SearchJE(levels[levelIndex - 1].ending, below);
  dictionary->GetJEInfo(josa, below, 0);
  return josa;
}

bool MAnalyzer::StoreNounTail(Eojul& e, bool suffix) {
  int32_t& count = suffix ? pendingNounOther : pendingNounSuffix;
  // Without a noun part (인 alone before its ending) there is nothing to
  // wait for.
  if (levels[levelIndex].stem.IsEmpty()) return false;
  if (count >= EojulPool::kCapacity) return true;
  Eojul& tail =
      suffix ? eojulPool.suffixTails[count] : eojulPool.copulaTails[count];
  tail.SetText(levels[levelIndex].stem.CStr(), 0);
  tail.BeginCandidate();
  AddEndings(tail, levelIndex);
  // On a re-analysis pass the auxiliary that sent it follows the endings;
  // a suffix tail before an ETM or ETN ending is then no tail at all.
  if ((e.GetType() & EojulType::kSubToken) != 0) {
    if (suffix && (HasAll(levels[0].endingBits, Pos::ETM) ||
                   HasAll(levels[0].endingBits, Pos::ETN))) {
      tail.Initialize(true);
      return true;
    }
    if (auxTailCount > 0) {
      tail.AppendMorphemes(eojulPool.auxTails[auxTailCount - 1]);
    }
  }
  tail.EndCandidate();
  ++count;
  return true;
}

int MAnalyzer::CopulaNoun(Eojul& e, uint32_t mask, bool guarded) {
  if ((NounStem(e, mask) & RouteStatus::kCandidate) != 0) {
    foundMask |= Pos::VC;
    return RouteStatus::kCandidate;
  }
  if (guarded && pendingNounSuffix > 0 && (foundMask & kPastMark) != 0) {
    return 0;
  }
  return StoreNounTail(e, false) ? RouteStatus::kPending : 0;
}

int MAnalyzer::SuffixNoun(Eojul& e, int32_t p, const char* suffix,
                          uint32_t mask) {
  PushLevel(levels[levelIndex].stem.CStr(), p, suffix, Pos::XSD);
  int status = RouteStatus::kCandidate;
  if ((NounStem(e, mask) & RouteStatus::kCandidate) == 0) {
    status = StoreNounTail(e, true) ? RouteStatus::kPending : 0;
  }
  PopLevel();
  return status;
}

}  // namespace Quorel
