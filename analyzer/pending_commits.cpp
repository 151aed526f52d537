// CommitPending: the split routes stored right-hand parts whose left part no
// dictionary word explained (a stem before a josa, a noun before the copula,
// a noun before a predicative suffix). Here the noun analysis divides those
// left parts and each division is joined with its stored right-hand part.
#include <cstring>

#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "analyzer/surface_cut.h"
#include "eojul/tag_set.h"

namespace Quorel {

namespace {

constexpr int kStemEndMode = 74;
constexpr int kCopulaMode = 86;
constexpr int kSuffixMode = 88;
// Results of AnalyzeNoun.
constexpr int kNoPattern = -1;
constexpr int kRefused = -2;
constexpr int kNegativeBest = -3;
constexpr double kByteUnit = 0.31;

// Score of the open candidate, the last one begun.
double OpenScore(const Eojul& e) {
  const uint32_t count = e.StoredCount();
  return count > 0 ? e.ScoreAt(count - 1) : 0.0;
}

// What a josa of `bytes` bytes adds to its candidate's score.
double EndingBonus(size_t bytes) {
  if (bytes < 3) return 0.15;
  if (bytes >= 5) return 0.25 * (static_cast<double>(bytes) * kByteUnit);
  return 0.3;
}

}  // namespace

int MAnalyzer::CommitPending(Eojul& e) {
  int n = 0;
  if (pendingNounOther >= 1) {
    n = CommitSuffixTails(e);
    if (n > 0) return n;
  }
  if (pendingNounEnding > 0) {
    n = CommitStemEnds(e);
    // A lone unknown stem before a one-syllable josa that ranks no stem.
    const int32_t length = static_cast<int32_t>(std::strlen(e.GetString()));
    if (nounBest < 0 && pendingNounEnding == 1 && e.GetListSize() == 1 &&
        length == eojulPool.stemEnds[0].length + 2 && n >= 1) {
      foundMask |= Pos::NNR;
    }
  }
  if ((foundMask & Pos::NNG) == Pos::NNG) return n;
  if (pendingNounSuffix < 1) return n;
  const int m = CommitCopulaTails(e, n);
  return n >= 1 ? n : m;
}

int MAnalyzer::CommitStemEnds(Eojul& e) {
  // The surface is read through e each time: adding morphemes may move it.
  const int32_t length = static_cast<int32_t>(std::strlen(e.GetString()));
  const int32_t count = pendingNounEnding < EojulPool::kCapacity
                            ? pendingNounEnding
                            : EojulPool::kCapacity;
  const int32_t firstStem = eojulPool.stemEnds[0].length;
  const char* firstEnding = e.GetString() + firstStem;
  const char* place = std::strstr(Hangul::Noun::kStemEndJosa, firstEnding);
  nounBest = place != nullptr
                 ? static_cast<int32_t>(place - Hangul::Noun::kStemEndJosa)
                 : -1;
  const int32_t firstEndingLength = length - firstStem;
  const bool firstIsRoga = std::strcmp(firstEnding, Hangul::Noun::kRoga) == 0;

  int r = 0;
  for (int32_t k = 0; k < count; ++k) {
    const StemEnd& entry = eojulPool.stemEnds[k];
    // A josa the driver's division already read at the end.
    if (nounStage == 2 && firstEndingLength == nounCut) continue;
    {
      // The stem alone is divided.
      SurfaceCut cut(e, entry.length);
      const int before = r;
      r = AnalyzeNoun(e, kStemEndMode, k);
      if (before >= 1 && r < 0) return 1;
      if (r == kNegativeBest) return kNegativeBest;
      if (r < 0) {
        OpenUnknown(e, workText.CStr());
        nounStage = 1;
      }
    }
    const size_t endingLength = std::strlen(e.GetString() + entry.length);
    e.AddMorpheme(e.GetString() + entry.length,
                  static_cast<uint32_t>(endingLength), entry.reading.bits);
    e.SetCandidateScore(OpenScore(e) + EndingBonus(endingLength));
    e.EndCandidate();
    if (firstEndingLength >= 4 && !firstIsRoga) return 1;
  }

  if (r < 1 && (pendingNounEnding > 0 || pendingNounSuffix > 0)) {
    return nounBest < 0 ? r : 1;
  }
  // r is at least 1 here. One stem before a short josa outside the list: the
  // candidate is closed (it may be closed already).
  if (count == 1 && firstEndingLength < 4 && nounBest < 0) {
    e.EndCandidate();
    return 1;
  }
  return r;
}

int MAnalyzer::CommitCopulaTails(Eojul& e, int r) {
  const int32_t length = static_cast<int32_t>(std::strlen(e.GetString()));
  for (int32_t k = 0; k < pendingNounSuffix && k < EojulPool::kCapacity; ++k) {
    Eojul& tail = eojulPool.copulaTails[k];
    const int32_t tailLength = static_cast<int32_t>(std::strlen(tail.GetString()));
    // One syllable is too short to divide; a fused copula can leave no noun
    // part at all.
    if (tailLength == 2 || tailLength == 0) continue;
    const int before = r;
    r = AnalyzeNoun(e, kCopulaMode, k);
    if (before > 0) {
      // A candidate stands already: a failed tail ends the commit.
      if (r < 0) {
        if (r != kNegativeBest) return 1;
        break;
      }
    } else if (r == kNoPattern) {
      OpenUnknown(e, tail.GetString());
    } else if (r == kRefused || r == kNegativeBest) {
      break;
    }
    e.AppendMorphemes(tail);
    e.EndCandidate();
    if (length - tailLength >= 4) break;
  }
  return r;
}

int MAnalyzer::CommitSuffixTails(Eojul& e) {
  int r = 0;
  for (int32_t k = 0; k < pendingNounOther && k < EojulPool::kCapacity; ++k) {
    Eojul& tail = eojulPool.suffixTails[k];
    r = AnalyzeNoun(e, kSuffixMode, k);
    if (r == kRefused || r == kNegativeBest) continue;
    if (r == kNoPattern) {
      OpenUnknown(e, tail.GetString());
      nounStage = 1;
    }
    e.AppendMorphemes(tail);
    e.EndCandidate();
  }
  return r;
}

}  // namespace Quorel
