// The score sum. Each step works on the running sum, so a factor scales all
// that the earlier morphemes earned; the order of the steps is the ranking.
#include "tagger/score.h"

#include <cstring>

namespace Quorel {

namespace {

constexpr uint32_t kNoun = 0x40000000;
constexpr uint32_t kPredicate = 0x20000000;
constexpr uint32_t kAuxiliary = 0x10000000;
constexpr uint32_t kCopula = 0x08000000;
constexpr uint32_t kInterjection = 0x04000000;
constexpr uint32_t kAdverb = 0x02000000;
constexpr uint32_t kDeterminer = 0x01000000;
constexpr uint32_t kJosa = 0x00800000;
constexpr uint32_t kEomi = 0x00400000;
constexpr uint32_t kPredicativeSuffix = 0x00200000;
constexpr uint32_t kNounSuffix = 0x00080000;
constexpr uint32_t kNumber = 0x00020000;
constexpr uint32_t kNounAndJosa = 0x40800000;
constexpr uint32_t kPrefinal = 0x00402000;

constexpr double kUnit = 0.31;           // per byte, all but predicates
constexpr double kPredicateUnit = 0.248; // per byte, VV, VA and VX

const char* const kHa = "\xC7\xCF";      // 하
const char* const kDae = "\xB4\xEB";     // 대
const char* const kHamyeo = "\xC7\xCF\xB8\xE7";  // 하며

bool HasAll(uint32_t mask, uint32_t bits) { return (mask & bits) == bits; }

// The length term: w * (len * unit), multiplied in that order.
double Term(double weight, size_t len, double unit) {
  return weight * (static_cast<double>(len) * unit);
}

// The josa and eomi length bonus; `shortBonus` for two bytes or less.
double EndingBonus(size_t len, double shortBonus) {
  if (len <= 2) return shortBonus;
  if (len <= 4) return 0.3;
  return 0.25 * (static_cast<double>(len) * kUnit);
}

}  // namespace

double ScoreCandidate(Eojul& eojul, int candidate, ScoreState& state) {
  // The morphemes are read straight from the stored candidate; one outside
  // the list has none and scores 0.
  const int stored = eojul.StoredCandidate(candidate);
  if (stored < 0) return 0.0;
  const uint32_t first = eojul.FirstMorphemeAt(static_cast<uint32_t>(stored));
  const int n = static_cast<int>(eojul.MorphemeCountAt(static_cast<uint32_t>(stored)));
  auto posAt = [&](int i) { return eojul.PosOf(first + static_cast<uint32_t>(i)); };
  auto lexiconAt = [&](int i) { return eojul.LexiconOf(first + static_cast<uint32_t>(i)); };
  // The surface is measured when a rule first asks for its length.
  const char* surface = eojul.GetString();
  size_t surfaceLen = 0;
  bool surfaceMeasured = false;
  auto surfaceLength = [&]() {
    if (!surfaceMeasured) {
      surfaceLen = surface != nullptr ? std::strlen(surface) : 0;
      surfaceMeasured = true;
    }
    return surfaceLen;
  };
  const uint32_t found = state.foundMask;
  int32_t& flow = state.scoreFlow;
  double s = 0.0;

  // Each morpheme is read once: the step before hands on its tag and
  // lexicon as the previous ones, and the next tag is read ahead.
  uint32_t tag = 0;
  const char* lexicon = "";
  uint32_t nextTag = n > 0 ? posAt(0) : 0;
  for (int i = 0; i < n; ++i) {
    const uint32_t prevTag = tag;
    const char* prevLexicon = lexicon;
    tag = nextTag;
    lexicon = lexiconAt(i);
    nextTag = i < n - 1 ? posAt(i + 1) : 0;
    const size_t len = std::strlen(lexicon);
    const bool nextIsAuxiliary = (nextTag & kAuxiliary) != 0;

    if ((tag & kNoun) != 0) {
      if (n == 1 && (tag & 0x10) == 0) s += 0.5;
      if ((tag & 0x1) != 0) {
        s += Term(0.6, len, kUnit);
        if (len == 2) s *= 0.8;
        // The penalty looks at the eojul's surface, not the morpheme.
        if (surfaceLength() == 6) s -= 0.1;
      }
      if ((tag & 0x1000) != 0) s += Term(0.6, len, kUnit);
      if ((tag & 0x2000) != 0) s += Term(1.1, len, kUnit);
      if ((tag & 0x400) != 0) s += Term(0.7, len, kUnit);
      if ((tag & 0x20) != 0) s += Term(0.4, len, kUnit);
      if ((tag & 0x40) != 0) s += Term(0.4, len, kUnit);
      if ((tag & 0x8) != 0) s += Term(1.4, len, kUnit);
      if ((tag & 0x2) != 0) {
        s += Term(0.3, len, kUnit);
        if (i > 0 && (prevTag & kNumber) != 0) s += 0.7;  // number + NNB
      }
      if (HasAll(found, kNounAndJosa)) s *= 1.35;
    }
    if ((tag & kInterjection) != 0) s += Term(0.2, len, kUnit);
    if ((tag & kAdverb) != 0) s += Term(0.3, len, kUnit);
    if ((tag & kDeterminer) != 0) s += Term(0.3, len, kUnit);
    if ((tag & kPredicate) != 0) {
      if ((tag & 0x80) != 0) {
        s += Term(0.5, len, kPredicateUnit);
        if (flow >= 3) s += 1.0;
        flow = 1;
      }
      if ((tag & 0x100) != 0) {
        s += Term(0.5, len, kPredicateUnit);
        if (flow >= 3) s += 1.0;
        flow = 2;
      }
    }
    if ((tag & kAuxiliary) != 0) {
      s += Term(0.2, len, kPredicateUnit);
      if (flow == 4) s *= 0.5;
    }
    if ((tag & kPredicativeSuffix) != 0 && flow == 0) {
      s += surfaceLength() < 8 ? 0.47 : 0.67;
      if (std::strcmp(lexicon, kHa) == 0) {
        s += 0.18;
        flow = (found & kAuxiliary) != 0 ? 4 : 3;
      } else if (std::strcmp(lexicon, kDae) == 0) {
        s -= 0.18;
        flow = 4;
      } else {
        flow = 4;
      }
      if (i > 0) {
        if (std::strlen(prevLexicon) == 2) s *= 0.7;
        // A bound noun or a pronoun before the suffix.
        if (HasAll(prevTag, 0x40000002) || HasAll(prevTag, 0x40000020)) {
          s *= 0.6;
        }
      }
    }
    if ((tag & kPredicativeSuffix) != 0 && (flow == 1 || flow == 2)) {
      s *= 0.95;
    }
    if ((tag & kJosa) != 0) {
      if (std::strcmp(lexicon, kHamyeo) == 0) s *= 0.57;
      s += EndingBonus(len, 0.15);
    }
    if ((tag & kEomi) != 0) {
      // An eomi between a suffix and an auxiliary pays once and is done.
      if (i > 0 && (prevTag & kPredicativeSuffix) != 0 && nextIsAuxiliary) {
        s *= 0.9;
        continue;
      }
      if (nextIsAuxiliary) s *= 0.9;
      s += EndingBonus(len, 0.1);
      if (flow == 4 && len <= 4) s *= 0.5;
      if ((tag & 0x1000) != 0 && HasAll(found, kNounAndJosa)) s *= 0.5;
    }
    if ((tag & kCopula) != 0) {
      if (i > 0 && (prevTag & kNoun) != 0 && std::strlen(prevLexicon) >= 6) {
        s += 0.3;
      } else if (i >= 2 && (prevTag & kNounSuffix) != 0) {
        if ((posAt(i - 2) & kNoun) != 0 && std::strlen(lexiconAt(i - 2)) >= 6) {
          s += 0.3;
        }
      }
    }
    if (HasAll(tag, kPrefinal)) s -= 0.37;
  }
  // A penalty that took the sum below zero comes back as its size.
  if (s < 0.0) s = s * -1.0;
  return s;
}

int ScoreEojul(Eojul& eojul, ScoreState& state) {
  const int count = eojul.GetListSize();
  if (count < 1) return 0;
  if (count == 1) {
    if (!(state.compoundTried && eojul.ScoreAt(0) > 0.0)) {
      eojul.SetScoreAt(0, 1.0);
    }
    return 1;
  }
  // Set once: a candidate inherits the flow the one before it left.
  state.scoreFlow = 0;
  state.flowReset = true;
  for (int k = 0; k < count; ++k) {
    if (eojul.ScoreAt(static_cast<uint32_t>(k)) > 0.0) continue;
    double score = ScoreCandidate(eojul, k, state);
    if (state.compoundTried) score *= 0.87;
    eojul.SetScoreAt(static_cast<unsigned>(k), score);
  }
  return 1;
}

}  // namespace Quorel
