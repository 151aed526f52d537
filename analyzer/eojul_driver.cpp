// AnalyzeEojul: the per-token cascade. Overlong tokens, pre-analysed
// eojuls, symbols, mixed tokens and cut double-byte text are settled first;
// then the whole word, every josa/eomi split point, the noun route, the
// auxiliary split of an open final syllable, the remainder and the pending
// analyses, and last the unknown word. The numbered comments follow the
// order of the cascade; each early return is part of it.
#include <cstring>

#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "analyzer/syllable_tests.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

// Tag classes whose presence (without VX) makes the second-chance routes
// pointless: EP, predicative suffix, VC, V_, NNP, MA.
constexpr uint32_t kSettledClasses =
    0x2000 | 0x200000 | 0x8000000 | 0x20000000 | 0x4 | 0x2000000;
constexpr uint32_t kStartedMark = 0x80000000;
constexpr uint32_t kNnrBit = 0x10;

}  // namespace

void MAnalyzer::AddSurfaceCandidate(Eojul& e, uint32_t pos) {
  e.BeginCandidate();
  e.AddSurfaceMorpheme(pos);
  e.EndCandidate();
}

void MAnalyzer::ResetEojulPool() {
  for (int32_t k = 0; k < pendingNounSuffix && k < EojulPool::kCapacity; ++k) {
    eojulPool.copulaTails[k].Initialize(true);
  }
  for (int32_t k = 0; k < pendingNounOther && k < EojulPool::kCapacity; ++k) {
    eojulPool.suffixTails[k].Initialize(true);
  }
  for (int32_t k = 0; k < auxTailCount && k < EojulPool::kCapacity; ++k) {
    eojulPool.auxTails[k].Initialize(true);
  }
  pendingNounEnding = 0;
  pendingNounSuffix = 0;
  pendingNounOther = 0;
  auxTailCount = 0;
}

bool MAnalyzer::ReadPreAnalysis(Eojul& e, int32_t length) {
  const Dictionary* dictionary = Knowledge();
  if (dictionary == nullptr) return false;
  // The whole surface as one key: every byte must walk.
  int32_t walked = 0;
  const unsigned char* value = dictionary->preAnalTrie.ValueOf(
      reinterpret_cast<const unsigned char*>(e.GetString()), length, walked);
  if (value == nullptr) return false;
  int32_t at;
  std::memcpy(&at, value, sizeof at);
  const std::vector<unsigned char>& buffer = dictionary->preAnalBuffer;
  size_t size = buffer.size();
  if (at <= 0 || static_cast<size_t>(at) >= size) return false;

  // count, then per candidate: morpheme count, per morpheme lexicon NUL row.
  size_t p = static_cast<size_t>(at);
  int n = buffer[p++];
  for (int i = 0; i < n && p < size; ++i) {
    int m = buffer[p++];
    if (m == 0) continue;
    e.BeginCandidate();
    for (int k = 0; k < m && p < size; ++k) {
      const char* lexicon = reinterpret_cast<const char*>(&buffer[p]);
      const size_t start = p;
      while (p < size && buffer[p] != 0) ++p;
      if (p + 1 >= size) break;  // a record cut short ends the read
      const uint32_t length = static_cast<uint32_t>(p - start);
      ++p;
      signed char row = static_cast<signed char>(buffer[p++]);
      uint32_t pos = row >= 0 && row < kPosTableSize ? PosTable[row].mask : 0;
      e.AddMorpheme(lexicon, length, pos);
      if (!compoundTried && (pos & (Pos::XP | Pos::XSN)) != 0) {
        compoundTried = true;
      }
    }
    // The first listed candidate gets the highest score.
    e.SetCandidateScore(static_cast<double>(n - i));
    e.EndCandidate();
  }
  return true;
}

int MAnalyzer::AnalyzeEojul(Eojul& e) {
  return AnalyzeEojul(e, static_cast<int32_t>(std::strlen(e.GetString())));
}

int MAnalyzer::AnalyzeEojul(Eojul& e, int32_t len) {
  // 1. Reset; contextCode 1 and 5 carry over to the next token.
  analysisResult = 0;
  foundMask = 0;
  levelIndex = 0;
  compoundTried = false;
  restarted = false;
  nounBest = -1;
  divisionKept = false;
  wordHitsText.Clear();
  if (contextCode != 1 && contextCode != 5) contextCode = 0;

  const unsigned type = e.GetType();
  const bool sub = (type & EojulType::kSubToken) != 0;
  Dictionary* dictionary = Knowledge();

  // 2. Overlong: no route runs.
  if ((type & EojulType::kTooLong) != 0) {
    AddSurfaceCandidate(e, Pos::NNR);
    return 1;
  }

  // The dictionary search of step 5 starts loading while step 3 runs.
  if (dictionary != nullptr && len >= 2) {
    dictionary->mainTrie.PrefetchRootPair(e.GetString());
  }
  // 3. Pre-analysis, unless raw output asks for the real analysis.
  analysisLength = len;
  if (!sub && !rawOutput && ReadPreAnalysis(e, len)) {
    analysisResult = 1;
    return 1;
  }

  // 4. Class routes of a top-level token.
  if (!sub) {
    compoundState = 0;
    verbState = 0;
    nounStage = 0;
    nounCut = 0;
    ResetEojulPool();
    // A Hangul token with symbols has bit 4 as well and goes on.
    if (type == EojulType::kSymbol || type == EojulType::kInnerSymbol) {
      AddSurfaceCandidate(e, Pos::SC);
      return 1;
    }
    if ((type & (EojulType::kDigit | EojulType::kLatin |
                 EojulType::kInnerSymbol)) != 0) {
      AnalyzeMixed(e);
      return 1;
    }
    if ((type & EojulType::kHalfChar) != 0) {
      AddSurfaceCandidate(e, Pos::NNR);
      return 0;
    }
  }
  if (dictionary == nullptr) return analysisResult;

  // 5. Level 0 is the whole eojul; wordHits all dictionary prefixes.
  levels[levelIndex].stem.Assign(e.GetString(), len);
  levels[levelIndex].ending.Clear();
  levels[levelIndex].endingBits = 0;
  wordHits.clear();
  dictionary->SearchAll(e.GetString(), wordHits, len, 0, 0, 1, 0, 0);
  wordHitsText.Assign(e.GetString(), len);

  // 6. The whole word.
  const int status = AnalyzeWhole(e);
  if ((status & RouteStatus::kCandidate) != 0) analysisResult = 1;
  if (analysisResult > 0 && sub && (status & RouteStatus::kGoOn) == 0) {
    return analysisResult;
  }

  // 7. Split points. A josa reading that is not a whole-word ending of a
  // long tail (other than 하고, 하며) rules out the later noun routes.
  SearchSplitsOf(e.GetString(), len, sub);
  bool allowNoun = true;
  for (size_t k = 0; k < jeCandidates.size(); ++k) {
    const SearchJEInfo split = jeCandidates[k];
    levelIndex = 0;
    analysisLength = split.reserved > 0 ? split.reserved : len;
    const int r = AnalyzeSplit(e, split);
    if ((r & RouteStatus::kCandidate) != 0) analysisResult = 1;
    if (len - split.length > 2) {
      jeInfo out;
      dictionary->GetJEInfo(out, split, 0);
      if ((out.attach & 32) == 0 && out.text != nullptr &&
          std::strcmp(out.text, Hangul::kHago) != 0 &&
          std::strcmp(out.text, Hangul::kHamyeo) != 0) {
        allowNoun = false;
      }
    }
  }

  // 8.
  if (analysisResult > 0 && sub && (status & RouteStatus::kGoOn) != 0) {
    return analysisResult;
  }

  // 9. The noun route.
  if (!restarted && !sub && (type & EojulType::kDoubleByte) != 0 &&
      (verbState == 1 ||
       !((analysisResult >= 1 && compoundState < 1) || e.GetListSize() >= 3))) {
    const int v = AnalyzeNoun(e, 87, -1);
    compoundState = 0;
    if (verbState == 1) {
      splitEojul.Initialize(true);
      e.EndCandidate();
    } else {
      if (v >= 0) {
        compoundState = 1;
      } else {
        nounStage = 1;
      }
      if (nounStage != 2) {
        if (pendingNounEnding > 0) nounStage = 3;
        if (pendingNounSuffix >= 1 || pendingNounOther >= 1) nounStage = 4;
      }
      e.EndCandidate();
    }
  }

  // 10. Auxiliary split: a verb ending in an open ㅏ syllable, or 내.
  if (analysisResult < 1 && !sub) {
    const SyllableRec* last = LastSyllable(e.GetString(), len);
    if (last != nullptr && IsOpen(*last) &&
        (last->jungseong == 3 || HasLetters(*last, 4, 4))) {
      workText = e.GetString();
      if (dictionary->avList.Find(workText, avPositions) != 0) {
        for (uint32_t i = 0; i < avPositions.count; ++i) {
          const int32_t p = avPositions.positions[i];
          if (p <= 0 || auxTailCount >= EojulPool::kCapacity) continue;
          Eojul& tail = eojulPool.auxTails[auxTailCount];
          pieceText.Assign(workText.CStr(), p);
          tail.SetText(pieceText.CStr(),
                       static_cast<uint32_t>(pieceText.Length()), 0);
          tail.BeginCandidate();
          tail.AddMorpheme(workText.CStr(p), Pos::VX);
          tail.AddMorpheme(Hangul::kEo, Pos::EM);
          tail.EndCandidate();
          ++auxTailCount;
        }
      }
    }
  }

  // 11.
  if (!sub && !allowNoun && (foundMask & Pos::VX) != 0) foundMask &= ~Pos::VX;

  // 12. Enough candidates from a compound or predicate route.
  const int count = e.GetListSize();
  if (compoundState != 0 && count >= 2 && !(compoundState == 1 && count < 3) &&
      verbState != 3) {
    return analysisResult;
  }
  // 13. A long josa leaves the noun to the split routes; when they found
  // nothing the token still ends as the unknown word of rule 21.
  if (!allowNoun) {
    if (sub || e.GetListSize() > 0) return analysisResult;
    return UnknownWord(e);
  }
  // 14.
  if ((foundMask & Pos::VX) == 0 && (foundMask & kSettledClasses) != 0) {
    return analysisResult;
  }
  // 15.
  if (sub) return analysisResult;

  // 16. The remainder; nothing found before is lost.
  const int32_t savedResult = analysisResult;
  const uint32_t savedMask = foundMask;
  const bool savedTried = compoundTried;
  const int rem = AnalyzeRemainder(e);
  analysisResult |= savedResult;
  foundMask |= savedMask;
  compoundTried = compoundTried || savedTried;
  if (remainderEojul.GetListSize() == 0 && (foundMask & Pos::VX) != 0) {
    nounStage = 0;
  }

  // 17. The pending analyses.
  int committed = 0;
  if (rem == 0 && nounStage >= 2) {
    committed = CommitPending(e);
    if (compoundState != 0 && e.GetListSize() == 0) compoundState = 0;
    if (committed > 0) analysisResult |= 1;
  }

  // 18.
  if (rem == 0 && (foundMask & Pos::VX) != 0) foundMask &= ~Pos::VX;
  // 19.
  if (compoundState != 0) return analysisResult;

  // 20. Fall through to the unknown word.
  const bool toUnknown =
      analysisResult < 1 && rem == 0 && committed < 1 &&
      ((foundMask & kStartedMark) == 0 || e.GetListSize() == 0);
  if (!toUnknown &&
      (analysisResult >= 1 || (foundMask & kNnrBit) == 0)) {
    return analysisResult;
  }

  // 21.
  return UnknownWord(e);
}

int MAnalyzer::UnknownWord(Eojul& e) {
  // The noun analysis, else the text as NNR.
  const int w = AnalyzeNoun(e, 87, -1);
  if (w < 0 && (foundMask & (Pos::J_ | kNnrBit)) == 0) {
    e.BeginCandidate();
    e.AddMorpheme(workText.CStr(), Pos::NNR);
    nounStage = 1;
  }
  e.EndCandidate();
  return analysisResult;
}

}  // namespace Quorel
