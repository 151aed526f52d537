// AnalyzeRemainder: an eojul that ends in an auxiliary predicate left the
// part before it in the auxiliary tails. That part is analysed again as a
// sub-token; an analysis that can stand before the auxiliary is joined with
// the tail's auxiliary and endings.
#include <cstring>

#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"

namespace Quorel {

namespace {

// Type bits of the re-analysed part: double-byte sub-token, and with the
// long-first bit when the auxiliary is longer than one syllable.
constexpr unsigned kRemainderType = 132;
constexpr unsigned kRemainderLongType = 388;

enum Verdict { kNone = 0, kJoin = 1, kJoinAsPredicate = 2, kRefuse = 3 };

bool Is(const char* text, const char* literal) {
  return text != nullptr && std::strcmp(text, literal) == 0;
}

// The verdict of the analyses of the part before the auxiliary `lexeme`:
// the last candidate's word stands.
int Judge(Eojul& part, const char* lexeme) {
  const bool ji = Is(lexeme, Hangul::Noun::kJi);
  int verdict = kNone;
  for (int c = 0; c < part.GetListSize(); ++c) {
    const int n = part.GetCount(c);
    if (n < 1) continue;
    const uint32_t pos = part.GetPOS(c, n - 1);
    const char* last = part.GetLexicon(c, n - 1);
    if ((pos & Pos::EM) != Pos::EM) {
      // A josa before the auxiliary makes it a predicate of its own.
      if ((pos & Pos::J_) != 0) verdict = kJoinAsPredicate;
      continue;
    }
    if (ji && !Is(last, Hangul::kEo) && !Is(last, Hangul::kA)) {
      verdict = kRefuse;
      continue;
    }
    if (!Is(last, Hangul::Noun::kJi)) {
      verdict = kJoin;
      continue;
    }
    // An eomi 지 goes only before the negating auxiliaries.
    verdict = Is(lexeme, Hangul::Noun::kMal) || Is(lexeme, Hangul::Noun::kMotha) ||
                      Is(lexeme, Hangul::Noun::kAnh)
                  ? kJoin
                  : kRefuse;
  }
  return verdict;
}

}  // namespace

int MAnalyzer::AnalyzeRemainder(Eojul& e) {
  remainderEojul.Initialize(true);
  for (int32_t k = 0; k < auxTailCount && k < EojulPool::kCapacity; ++k) {
    Eojul& tail = eojulPool.auxTails[k];
    const char* lexeme = tail.GetLexicon(0, 0);
    if (lexeme == nullptr) lexeme = "";
    const unsigned type =
        tail.GetType() |
        (std::strlen(lexeme) > 2 ? kRemainderLongType : kRemainderType);
    remainderEojul.SetText(tail.GetString(), type);
    const int result = AnalyzeEojul(remainderEojul);
    if (remainderEojul.GetListSize() == 0) continue;

    const int verdict = Judge(remainderEojul, lexeme);
    if (verdict == kJoin) {
      e.JoinAfter(remainderEojul, tail);
      return result;
    }
    if (verdict == kJoinAsPredicate) {
      // The tail with its auxiliary read as a plain predicate.
      const int n = tail.GetCount(0);
      splitEojul.SetText(tail.GetString(), tail.GetType());
      splitEojul.BeginCandidate();
      for (int m = 0; m < n; ++m) {
        splitEojul.AddMorpheme(tail.GetLexicon(0, m),
                               m == 0 ? Pos::V_ : tail.GetPOS(0, m));
      }
      splitEojul.SetCandidateScore(tail.ScoreAt(0));
      splitEojul.EndCandidate();
      e.JoinAfter(remainderEojul, splitEojul);
      return result;
    }
    // Refused: the pending analyses decide.
    analysisResult = 0;
    if (nounStage < 2) {
      if (pendingNounEnding > 0) nounStage = 3;
      if (pendingNounSuffix > 0 || pendingNounOther > 0) nounStage = 4;
      if (nounStage < 2 && compoundState != 0) compoundState = 0;
    }
    return 0;
  }
  return 0;
}

}  // namespace Quorel
