// AnalyzeNoun: noun candidates from a division pattern of the compound
// analyzer. The mode names whose text is divided and what stands behind each
// group; each group of the pattern becomes one candidate, scored by the row
// it came from. The last candidate is left open for the caller.
#include <cstring>

#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

// Marks a group that holds an unknown piece, or an NFG before a suffix or an
// unknown piece; such groups score less by kUnknownDivisor.
constexpr double kUnknownSentinel = -200.9;
constexpr double kUnknownDivisor = 1.83;
// Proper and user nouns score by their length: 0.9 units a byte, and the
// last group of a user noun 0.9 * 1.3 as the double it is.
constexpr double kStoredFactor = 0.9;
constexpr double kUserLastFactor = 1.1700000000000002;
constexpr double kByteUnit = 0.31;
// A group without a row score takes its plain score at this rate.
constexpr double kPlainRate = 0.87;
constexpr uint32_t kEomiMask = 0x400600;

// Modes of AnalyzeNoun (character codes).
constexpr int kChiProper = 90;  // Z
constexpr int kChiUser = 67;    // C
constexpr int kKeProper = 71;   // G
constexpr int kKeUser = 68;     // D
constexpr int kKiProper = 75;   // K
constexpr int kKiUser = 69;     // E
constexpr int kLevelText = 72;  // H
constexpr int kStemEnd = 74;    // J
constexpr int kProper = 80;     // P
constexpr int kUser = 85;       // U
constexpr int kCopula = 86;     // V
constexpr int kDriver = 87;     // W
constexpr int kSuffix = 88;     // X

// A pattern byte ends the walk when it is '$' or not above 0 as a signed
// byte (255 stands for "no group").
bool EndsWalk(char c) { return c == '$' || static_cast<signed char>(c) <= 0; }

// What the unknown-word tests and the contraction modes read of a pattern.
struct PatternFacts {
  int groupEnds = 0;      // '@' between groups
  bool anyUnknown = false;
  bool eachGroupUnknown = true;
  bool josaOrConj = false;  // a "J" or "C" element
};

PatternFacts ReadFacts(const char* pattern) {
  PatternFacts facts;
  bool groupUnknown = false;
  for (int i = 1; !EndsWalk(pattern[i]);) {
    const unsigned char c = static_cast<unsigned char>(pattern[i]);
    if (c == '@') {
      facts.eachGroupUnknown = facts.eachGroupUnknown && groupUnknown;
      groupUnknown = false;
      ++facts.groupEnds;
      ++i;
      continue;
    }
    if (c == 'U') {
      facts.anyUnknown = true;
      groupUnknown = true;
    }
    if (c == 'J' || c == 'C') facts.josaOrConj = true;
    i += IsMarkedLetter(c) && pattern[i + 1] != 0 ? 2 : 1;
  }
  facts.eachGroupUnknown = facts.eachGroupUnknown && groupUnknown;
  return facts;
}

bool IsContractionUser(int mode) {
  return mode == kChiUser || mode == kKeUser || mode == kKiUser;
}

}  // namespace

void MAnalyzer::OpenUnknown(Eojul& e, const char* text) {
  e.BeginCandidate();
  e.AddMorpheme(text, Pos::NNR);
}

void MAnalyzer::AddGroupTail(Eojul& e, int mode, int level) {
  const char* ending = nullptr;
  uint32_t endingBits = kEomiMask;
  switch (mode) {
    case kChiProper:
    case kChiUser:
      ending = Hangul::Noun::kJi;
      break;
    case kKeProper:
    case kKeUser:
      ending = Hangul::kGe;
      break;
    case kKiProper:
    case kKiUser:
      ending = Hangul::kGi;
      endingBits = Pos::ETN;
      break;
    case kStemEnd:
      e.AddMorpheme(eojulPool.stemEnds[level].reading.text,
                    eojulPool.stemEnds[level].reading.bits);
      return;
    case kCopula:
      e.AppendMorphemes(eojulPool.copulaTails[level]);
      return;
    case kSuffix:
      e.AppendMorphemes(eojulPool.suffixTails[level]);
      return;
    case kLevelText:
      return;
    default:
      AddEndings(e, level);
      return;
  }
  // The contracted 하 and its ending, then the levels.
  e.AddMorpheme(Hangul::kHa, Pos::XSD);
  e.AddMorpheme(ending, endingBits);
  AddEndings(e, level);
}

double MAnalyzer::GroupScore(Eojul& e, int mode, int group, double sentinel,
                             bool lastGroup) {
  double s = compoundAnalyzer.GetPatternScore(group);
  if (sentinel == kUnknownSentinel) s /= kUnknownDivisor;
  if (mode == kProper || mode == kUser) {
    const double factor =
        lastGroup && mode == kUser ? kUserLastFactor : kStoredFactor;
    return factor * (workText.Length() * kByteUnit);
  }
  if (s == 0.0) return Score(e.GetListSize() - 1, e) * kPlainRate;
  return s;
}

const char* MAnalyzer::DivideNoun(const char* text, int mode) {
  // Both callers divide workText; its length is known then.
  const int32_t length =
      text == nullptr ? 0
      : text == workText.CStr() ? workText.Length()
                                : static_cast<int32_t>(std::strlen(text));
  // The word last divided, compared by length first (it holds no NUL).
  const StringEx& last = compoundAnalyzer.word;
  if (divisionKept && compoundAnalyzer.mode == mode &&
      last.Length() == length &&
      std::memcmp(last.CStr(), text != nullptr ? text : "",
                  static_cast<size_t>(length)) == 0) {
    return compoundAnalyzer.output;
  }
  // Within one eojul a word is often divided, then its stem without the
  // ending, then the word again: the divider keeps the word's answer aside
  // across the stem. divisionKept is false at the first division of an
  // eojul, so nothing kept crosses into another.
  if (!divisionKept) {
    compoundAnalyzer.DropKeptAnswer();
  } else if (text != nullptr) {
    if (compoundAnalyzer.TakeKeptAnswer(text, mode)) {
      return compoundAnalyzer.output;
    }
    const size_t n = static_cast<size_t>(length);
    if (n < static_cast<size_t>(last.Length()) &&
        std::memcmp(last.CStr(), text, n) == 0) {
      compoundAnalyzer.KeepAnswer();
    }
  }
  // The divider keeps the word only when it divided one.
  divisionKept = text != nullptr && text[0] != '\0' && Knowledge() != nullptr;
  const bool searched = text != nullptr && wordHitsText == text;
  return compoundAnalyzer.Divide(text, length, mode,
                                 searched ? &wordHits : nullptr);
}

int MAnalyzer::AnalyzeNoun(Eojul& e, int mode, int level) {
  // 1. Whose text is divided, and under which context.
  // Modes of the stored tails keep a context of 1 from the token before.
  const bool keepOne = contextCode == 1;
  switch (mode) {
    case kChiUser:
    case kKeUser:
    case kKiUser:
    case kUser:
      contextCode = 4;
      workText = e.GetString();
      break;
    case kChiProper:
    case kKeProper:
    case kKiProper:
    case kProper:
      contextCode = 3;
      workText = e.GetString();
      break;
    case kLevelText:
      contextCode = keepOne ? 1 : 0;
      workText = levels[levelIndex].stem;
      break;
    case kStemEnd:
      contextCode = keepOne ? 1 : 10;
      workText = e.GetString();
      break;
    case kCopula:
    case kSuffix: {
      const int32_t count = mode == kCopula ? pendingNounSuffix : pendingNounOther;
      workText.Clear();
      if (level < 0 || level >= count || level >= EojulPool::kCapacity) {
        return -1;
      }
      contextCode = keepOne ? 1 : 0;
      Eojul& tail = mode == kCopula ? eojulPool.copulaTails[level]
                                    : eojulPool.suffixTails[level];
      workText = tail.GetString();
      break;
    }
    case kDriver:
      contextCode = contextCode == 5 ? 1 : (compoundState == 2 ? 0 : 2);
      workText = e.GetString();
      break;
    default:
      workText = e.GetString();
      return -1;
  }
  const char* pattern = DivideNoun(workText.CStr(), contextCode);
  int result = 1;
  int groups = 0;
  double sentinel = 0.0;

  // 2. No pattern, or the best row scored below 0.
  if (pattern[0] == '$' || pattern[1] == '$') return -1;
  if (pattern[0] == '%') return -3;

  // 3, 4. The unknown-word tests, unless the state says a noun stands.
  const PatternFacts facts = ReadFacts(pattern);
  const int count = e.GetListSize();
  // A lone candidate beside stored auxiliary tails is always tested.
  bool test = true;
  if (auxTailCount > 0 && mode == kDriver && count < 2) {
    test = true;
  } else if (nounStage == 3 || (nounStage == 1 && count < 2) ||
             (nounStage > 1 && mode == kDriver && (foundMask & Pos::J_) == 0) ||
             nounBest >= 0) {
    test = false;
  }
  if (test) {
    if (facts.groupEnds == 0 && facts.anyUnknown) {
      return mode == kSuffix ? -1 : -2;
    }
    if (facts.groupEnds > 0 && facts.eachGroupUnknown) return -2;
  }
  // 5. A contracted 하 after a user noun takes no josa or conjunction.
  if (IsContractionUser(mode) && facts.josaOrConj) return -2;

  // 6. The walk over the groups.
  if (static_cast<signed char>(pattern[0]) <= 0) return result;
  compoundTried = true;
  e.BeginCandidate();
  const Dictionary* dictionary = Knowledge();
  const int32_t textLength = workText.Length();
  int32_t start = 0;  // byte of workText where the next piece begins
  // The piece of `bytes` bytes at `start`, cut to the text; false if empty.
  auto takePiece = [&](int32_t bytes) {
    const int32_t from = start < textLength ? start : textLength;
    const int32_t n = bytes < textLength - from ? bytes : textLength - from;
    pieceText.Assign(workText.CStr(from), n);
    start += bytes;
    return n > 0;
  };
  int i = 1;
  while (!EndsWalk(pattern[i])) {
    const unsigned char b = static_cast<unsigned char>(pattern[i]);
    if (b == 'X' || b == 'Y') {
      // 7.1 Prefix or suffix syllables.
      const uint32_t mask = b == 'X' ? Pos::XP : Pos::XSN;
      const int syllables = static_cast<unsigned char>(pattern[i + 1]);
      for (int k = 0; k < syllables && start + 2 <= textLength; ++k) {
        takePiece(2);
        e.AddMorpheme(pieceText.CStr(), pieceText.Length(), mask);
        if (contextCode > 0 && start == textLength && pendingNounSuffix > 0 &&
            (foundMask & Pos::VC) == 0 && pieceText == Hangul::Noun::kIn) {
          verbState = 3;
        }
      }
      if (pattern[i + 1] == 0) break;
      i += 2;
    } else if (IsMarkedLetter(b)) {
      // 7.2 A piece whose class its letter tells.
      if (pattern[i + 1] == 0) break;
      const int length = static_cast<unsigned char>(pattern[i + 1]);
      const bool piece = takePiece(length * 2);
      uint32_t mask = 0;
      switch (b) {
        case 'B': mask = Pos::NNB; break;
        case 'C': mask = 0x00800008; break;
        case 'D': mask = Pos::NU; break;
        case 'I': mask = Pos::NNI; break;
        case 'P': mask = Pos::NP; break;
        case 'J':
          mask = Pos::J_;
          if (mode == kDriver &&
              (pattern[i + 2] == '@' || pattern[i + 2] == '$')) {
            nounStage = 2;
            nounCut = length * 2;
          }
          break;
        case 'U':
          mask = Pos::NNR;
          result = 0;
          nounStage = 1;
          sentinel = kUnknownSentinel;
          break;
        default: {  // 'N': a piece of a stored user-noun division
          SearchInfo si;
          const bool found = piece && dictionary->SearchMain(pieceText, si) != 0;
          if (!found || (si.info.marks & 1) == 0) {
            mask = Pos::NNU;
          } else if ((si.info.bits & 0x1) != 0) {
            mask = Pos::NFG;
          } else if ((si.info.bits & 0x8) != 0) {
            mask = Pos::NFU;
          } else {
            mask = si.info.bits;
          }
        }
      }
      if (piece) e.AddMorpheme(pieceText.CStr(), pieceText.Length(), mask);
      i += 2;
    } else if (b == '@') {
      // 8. A group ends: its tail, its score, and the next candidate.
      if (level >= 0) AddGroupTail(e, mode, level);
      e.SetCandidateScore(GroupScore(e, mode, groups, sentinel, false));
      e.EndCandidate();
      e.BeginCandidate();
      ++groups;
      start = 0;
      ++i;
    } else {
      // 7.5 A plain noun of b syllables.
      SearchInfo si;
      const bool piece = takePiece(static_cast<int32_t>(b) * 2);
      const bool marked = piece && dictionary->SearchMain(pieceText, si) != 0 &&
                          (si.info.marks & 1) != 0;
      const uint32_t mask = marked ? Pos::NFG : Pos::NNG;
      if (piece) e.AddMorpheme(pieceText.CStr(), pieceText.Length(), mask);
      if (mask == Pos::NFG && (pattern[i + 1] == 'Y' || pattern[i + 1] == 'U')) {
        sentinel = kUnknownSentinel;
      }
      ++i;
    }
  }
  // 9. The last group: scored, left open for the caller.
  e.SetCandidateScore(GroupScore(e, mode, groups, sentinel, true));
  ++groups;

  // 10.
  return result != 1 ? result : groups;
}

}  // namespace Quorel
