// AnalyzeMixed: a token with digits, Latin letters, symbols or a user noun
// is cut into runs of one class (SN, FL, SC, NNU, a bare jamo NNR, Hangul);
// each run gets its tag, a Hangul run goes to the Hangul-part routes, and
// the pieces are joined into candidates. User nouns come with a pattern
// program that says how their surface divides.
#include <cstring>
#include <iostream>

#include "analyzer/m_analyzer.h"
#include "eojul/number_punctuation.h"
#include "eojul/symbols.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

// No run on this side: the token's edge.
constexpr uint32_t kNoClass = 0xFFFFFFFFu;
constexpr uint32_t kHangulClass = 0;
constexpr uint32_t kDecimalFlag = 64;
constexpr uint32_t kThousandsFlag = 0x8000;
constexpr uint32_t kUserConjunction = 0x800008;

constexpr const char* kWrongEntry =
    "This is a wrong information of this entry in the usernoun dictionary.\n";

bool IsLatin(unsigned char c) { return IsLowerLatin(c) || IsUpperLatin(c); }

bool AllOf(const char* text, int32_t from, int32_t to,
           bool (*test)(unsigned char)) {
  for (int32_t i = from; i < to; ++i) {
    if (!test(static_cast<unsigned char>(text[i]))) return false;
  }
  return true;
}

// Class of the two-byte pair with lead b and trail t (t 0 when absent).
uint32_t PairClass(unsigned char b, unsigned char t, bool hasTrail) {
  if (b == 164 && t >= 161 && t <= 211) return Pos::NNR;
  if (b >= 173 || (b >= 128 && b <= 160) ||
      (b >= 161 && b <= 172 && t >= 65 && t <= 160) ||
      (b == 164 && hasTrail && t < 253)) {
    return kHangulClass;
  }
  return Pos::SC;
}

// The "." and "," flags of a number text.
uint32_t NumberFlags(const char* text) {
  uint32_t flags = 0;
  if (std::strchr(text, '.') != nullptr) flags |= kDecimalFlag;
  if (std::strchr(text, ',') != nullptr) flags |= kThousandsFlag;
  return flags;
}

}  // namespace

int MAnalyzer::FindUserNouns(const char* text, unsigned len) {
  userNounHits.clear();
  const Dictionary* dictionary = Knowledge();
  const int32_t n = static_cast<int32_t>(len);
  int32_t p = 0;
  while (p < n && text[p] != 0) {
    dictionary->SearchAll(text, userNounHits, n, p, 0, 0, 0, 1);
    // A hit starts only at the head of a run or at a two-byte character.
    const unsigned char c = static_cast<unsigned char>(text[p]);
    if (IsDigit(c)) {
      while (p < n && IsDigit(static_cast<unsigned char>(text[p]))) ++p;
    } else if (IsLatin(c)) {
      while (p < n && IsLatin(static_cast<unsigned char>(text[p]))) ++p;
    } else {
      p += c >= 128 ? 2 : 1;
    }
  }
  return static_cast<int>(userNounHits.size());
}

int MAnalyzer::RunUserPattern(Eojul& e, const char* text, int32_t from,
                              int32_t to, int result) {
  int32_t pos = from;
  for (int32_t k = 0; k < userPattern.Length(); ++k) {
    const char command = userPattern.At(k);
    int32_t count = 1;
    uint32_t mask = Pos::NNU;
    if (command >= '0' && command <= '9') {
      count = command - '0';
    } else if (command >= 'a' && command <= 'z') {
      count = 10 + (command - 'a');
    } else {
      switch (command) {
        case 'B': mask = Pos::NNB; break;
        case 'C': mask = kUserConjunction; break;
        case 'D': mask = Pos::NU; break;
        case 'I': mask = Pos::NNI; break;
        case 'J': mask = Pos::J_; break;
        case 'P': mask = Pos::NP; break;
        case 'X': mask = Pos::XP; compoundTried = true; break;
        case 'Y': mask = Pos::XSN; compoundTried = true; break;
        case '@':
          // The next alternative reads the hit again from its first byte.
          e.EndCandidate();
          e.BeginCandidate();
          pos = from;
          continue;
        default:
          pieceText.Assign(text + from, to - from);
          std::clog << pieceText.CStr() << '\t' << userPattern.CStr() << '\n'
                    << kWrongEntry;
          return result;
      }
    }
    // count characters: a pair of bytes from 128 up is one character.
    int32_t end = pos;
    for (int32_t c = 0; c < count && end < to; ++c) {
      end += static_cast<unsigned char>(text[end]) >= 128 && end + 1 < to ? 2
                                                                          : 1;
    }
    if (end > pos) {
      pieceText.Assign(text + pos, end - pos);
      e.AddMorpheme(pieceText.CStr(), mask);
    }
    pos = end;
  }
  return result;
}

int MAnalyzer::EmitUserNoun(Eojul& e, unsigned pos, StringEx& text) {
  int best = -1;
  for (size_t k = 0; k < userNounHits.size(); ++k) {
    const SearchInfo& hit = userNounHits[k];
    if (hit.start != static_cast<int32_t>(pos)) continue;
    if (best < 0 || hit.end > userNounHits[best].end) {
      best = static_cast<int>(k);
    }
  }
  if (best < 0) return -1;
  const SearchInfo& hit = userNounHits[best];
  const int32_t s = hit.start;
  const int32_t t = hit.end;
  const int32_t n = text.Length();
  // With one byte of context on each side, a hit inside a Latin or digit
  // run is no user noun: it would cut the run.
  const int32_t from = s > 0 ? s - 1 : s;
  const int32_t to = t < n ? t + 1 : t;
  if (AllOf(text.CStr(), from, to, IsLatin) ||
      AllOf(text.CStr(), from, to, IsDigit)) {
    return -1;
  }
  userPattern = hit.nnuText != nullptr ? hit.nnuText : "0";
  if (userPattern == "0") {
    pieceText.Assign(text.CStr(s), t - s);
    e.AddMorpheme(pieceText.CStr(), Pos::NNU);
    return best;
  }
  return RunUserPattern(e, text.CStr(), s, t, best);
}

void MAnalyzer::EmitForeign(Eojul& e) {
  SearchInfo si;
  if (Knowledge()->SearchMain(workText, si) == 0 ||
      (si.info.bits & Pos::NNU) != Pos::NNU) {
    e.AddMorpheme(workText.CStr(), Pos::FL);
    return;
  }
  // The pattern is normalised to lower case, as the stored word is.
  userPattern = si.nnuText != nullptr ? si.nnuText : "0";
  for (int32_t k = 0; k < userPattern.Length(); ++k) {
    const char c = userPattern.At(k);
    if (IsUpperLatin(static_cast<unsigned char>(c))) {
      userPattern.Data()[k] = static_cast<char>(c + 32);
    }
  }
  if (userPattern == "0") {
    e.AddMorpheme(workText.CStr(), Pos::NNU);
    return;
  }
  RunUserPattern(e, workText.CStr(), 0, workText.Length(), 0);
}

void MAnalyzer::RejoinWith(Eojul& e, Eojul& part, bool after) {
  // Close the open candidate first, so that the copy keeps its morphemes.
  e.EndCandidate();
  mixedCopy.CopyFrom(e);
  e.SetText(mixedCopy.GetString(), mixedCopy.GetType());
  if (after) {
    e.JoinAfter(mixedCopy, part);
  } else {
    e.JoinBefore(mixedCopy, part);
  }
}

void MAnalyzer::JoinPart(Eojul& e, Eojul& part) {
  if (e.GetListSize() >= 2) {
    RejoinWith(e, part, true);
  } else if (part.GetListSize() >= 2) {
    RejoinWith(e, part, false);
  } else {
    e.AppendMorphemes(part);
  }
}

void MAnalyzer::AddTypedRun(Eojul& e, const char* text, uint32_t mask,
                            unsigned partType) {
  const bool foreign = mask == Pos::FL;
  if (e.GetListSize() < 2) {
    if (foreign) {
      workText = text;
      EmitForeign(e);
    } else {
      e.AddMorpheme(text, mask);
    }
    return;
  }
  mixedPart.SetText(text, partType);
  mixedPart.BeginCandidate();
  if (foreign) {
    workText = text;
    EmitForeign(mixedPart);
  } else {
    mixedPart.AddMorpheme(text, mask);
  }
  mixedPart.EndCandidate();
  RejoinWith(e, mixedPart, true);
}

void MAnalyzer::AddPart(Eojul& e, const char* text, uint32_t mask) {
  AddTypedRun(e, text, mask, EojulType::kDoubleByte);
}

void MAnalyzer::AnalyzePlainMixed(Eojul& e) {
  const char* s = userText.CStr();
  const int32_t len = userText.Length();
  const unsigned type = e.GetType();
  e.BeginCandidate();
  if ((type & EojulType::kDigit) != 0 && (type & EojulType::kLatin) != 0) {
    // Runs of Latin letters (FL) and of digits with their marks (SN).
    uint32_t runClass =
        IsLatin(static_cast<unsigned char>(s[0])) ? Pos::FL : Pos::SN;
    uint32_t flags = 0;
    int32_t start = 0;
    for (int32_t i = 1; i <= len; ++i) {
      const unsigned char c = static_cast<unsigned char>(s[i]);
      if (i < len && c == '.') {
        flags |= kDecimalFlag;
        continue;
      }
      if (i < len && c == ',') {
        flags |= kThousandsFlag;
        continue;
      }
      const uint32_t now = i == len ? kNoClass : IsLatin(c) ? Pos::FL : Pos::SN;
      if (now == runClass) continue;
      if (runClass == Pos::FL) {
        workText.Assign(s + start, i - start);
        EmitForeign(e);
      } else {
        runText.Assign(s + start, i - start);
        e.AddMorpheme(runText.CStr(), Pos::SN | flags);
      }
      flags = 0;
      start = i;
      runClass = now;
    }
  } else if ((type & EojulType::kDigit) != 0) {
    e.AddSurfaceMorpheme(Pos::SN | NumberFlags(s));
  } else {
    workText = s;
    EmitForeign(e);
  }
  e.EndCandidate();
}

MAnalyzer::MixedChar MAnalyzer::ClassifyMixed(Eojul& target, int32_t pos,
                                              uint32_t runClass,
                                              bool numberRules) {
  const char* s = userText.CStr();
  const int32_t len = userText.Length();
  const int hit = EmitUserNoun(target, static_cast<unsigned>(pos), userText);
  if (hit >= 0) return {Pos::NNU, userNounHits[hit].end, 0};

  const unsigned char c = static_cast<unsigned char>(s[pos]);
  if (IsDigit(c)) return {Pos::SN, pos + 1, 0};
  if (IsLatin(c)) return {Pos::FL, pos + 1, 0};
  if (c < 128) {
    if (numberRules && runClass == Pos::SN && (c == '.' || c == ',') &&
        pos + 1 < len && IsDigit(static_cast<unsigned char>(s[pos + 1]))) {
      const int end = NumberPunctuationEnd(s, len, pos);
      if (end > 0) {
        return {Pos::SN, end, c == '.' ? kDecimalFlag : kThousandsFlag};
      }
    }
    return {Pos::SC, pos + 1, 0};
  }
  const bool hasTrail = pos + 1 < len;
  const unsigned char t = hasTrail ? static_cast<unsigned char>(s[pos + 1]) : 0;
  return {PairClass(c, t, hasTrail), hasTrail ? pos + 2 : len, 0};
}

void MAnalyzer::FlushMixedRun(Eojul& e, int32_t start, int32_t end,
                              uint32_t runClass, uint32_t flags,
                              uint32_t prev, uint32_t next) {
  runText.Assign(userText.CStr(start), end - start);
  switch (runClass) {
    case Pos::NNU:
      return;  // added where it was found
    case Pos::SN:
      AddTypedRun(e, runText.CStr(), Pos::SN | flags, EojulType::kDigit);
      return;
    case Pos::FL:
      AddTypedRun(e, runText.CStr(), Pos::FL, EojulType::kLatin);
      return;
    case Pos::SC:
    case Pos::NNR:
      AddTypedRun(e, runText.CStr(), runClass, EojulType::kOtherChar);
      return;
    default:
      break;
  }
  // A Hangul run. Beside a number it may be a counter; a lone byte there is
  // a cut character and stands as a symbol.
  int r;
  if (prev == Pos::SN || next == Pos::SN) {
    if (runText.Length() == 1) {
      AddTypedRun(e, runText.CStr(), Pos::SC, EojulType::kOtherChar);
      return;
    }
    r = AnalyzeCountedPart(e, runText, static_cast<unsigned>(start));
  } else {
    r = AnalyzeHangulPart(e, runText, static_cast<unsigned>(start));
  }
  if (r == -1 || r == -2) {
    AddPart(e, runText.CStr(), Pos::NNR);
    nounStage = 1;
  }
}

int MAnalyzer::AnalyzeMixed(Eojul& e) {
  userText = e.GetString();
  const int32_t len = userText.Length();
  FindUserNouns(userText.CStr(), static_cast<unsigned>(len));
  const unsigned type = e.GetType();
  if (userNounHits.empty() &&
      (type & (EojulType::kDoubleByte | EojulType::kInnerSymbol |
               EojulType::kNumberJoin)) == 0) {
    AnalyzePlainMixed(e);
    return 1;
  }

  e.BeginCandidate();
  if (len == 0) {
    e.EndCandidate();
    return 1;
  }
  const bool numberRules = e.numberPunctuation;
  MixedChar first = ClassifyMixed(e, 0, kNoClass, numberRules);
  int32_t runStart = 0;
  uint32_t runClass = first.runClass;
  uint32_t runFlags = first.flags;
  uint32_t prev = kNoClass;
  int32_t pos = first.next;
  while (pos < len) {
    // A user noun after the first character collects its alternatives in
    // a work eojul of its own; they are joined when the run is settled.
    if (!userNounHits.empty()) {
      mixedNoun.SetText(e.GetString(), type);
      mixedNoun.BeginCandidate();
    }
    const MixedChar now = ClassifyMixed(mixedNoun, pos, runClass, numberRules);
    mixedNoun.EndCandidate();
    if (now.runClass != runClass) {
      FlushMixedRun(e, runStart, pos, runClass, runFlags, prev, now.runClass);
      prev = runClass;
      runStart = pos;
      runClass = now.runClass;
      runFlags = now.flags;
      if (now.runClass == Pos::NNU) JoinPart(e, mixedNoun);
    } else if (now.runClass == Pos::NNU) {
      // A user noun followed at once by another.
      JoinPart(e, mixedNoun);
    } else {
      runFlags |= now.flags;
    }
    pos = now.next;
  }
  FlushMixedRun(e, runStart, len, runClass, runFlags, prev, kNoClass);
  e.EndCandidate();
  return 1;
}

}  // namespace Quorel
