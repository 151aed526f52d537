// Placing candidates, and the tail of the cascade: a copula or predicative
// suffix candidate, else a noun + josa candidate, else the best score.
#include "tagger/tagger_pass.h"

#include <cstring>

#include "eojul/tag_set.h"

namespace Quorel {

// 가 과 는 를 며 뿐 에 와 요 은 을 의 이 에 에서 께
const char kTailJosaList[] =
    ":\xB0\xA1:\xB0\xFA:\xB4\xC2:\xB8\xA6:\xB8\xE7:\xBB\xD3:\xBF\xA1:\xBF\xCD"
    ":\xBF\xE4:\xC0\xBA:\xC0\xBB:\xC0\xC7:\xC0\xCC:\xBF\xA1:\xBF\xA1\xBC\xAD"
    ":\xB2\xB2:";

namespace {

const char kDae[] = "\xB4\xEB";  // 대

bool Has(uint32_t mask, uint32_t tag) { return (mask & tag) == tag; }
bool AnyBit(uint32_t mask, uint32_t bits) { return (mask & bits) != 0; }

size_t Length(const char* text) {
  return text != nullptr ? std::strlen(text) : 0;
}

}  // namespace

void TaggerPass::ClearResults() {
  results.clear();
  placedChoices.clear();
  resultCount = 0;
}

void TaggerPass::Place(const Eojul& e) {
  results.push_back(e);
  placedChoices.push_back(pendingChoice);
  pendingChoice = 0;
  ++resultCount;
  done = 1;
}

void TaggerPass::Prepare(Eojul& e) {
  current = &e;
  temp.SetText(e.GetString(), e.GetType());
  temp.SetOffset(e.GetOffset());
  // The chosen form answers IsIndexWord as the analysed eojul did.
  temp.indexMask = e.indexMask;
  temp.minForeignLength = e.minForeignLength;
  temp.minNumberLength = e.minNumberLength;
}

bool TaggerPass::Open(int i) {
  Eojul& e = *(*input)[i];
  done = 0;
  if (e.GetListSize() <= 1) {
    Place(e);
    return false;
  }
  Prepare(e);
  return true;
}

void TaggerPass::SetNeighbours(int i) {
  if (i < Last()) next = (*input)[i + 1];
  if (i > 0 && !results.empty()) previous = &results.back();
}

void TaggerPass::Select(int c) {
  Eojul& e = *current;
  temp.BeginCandidate();
  int count = e.GetCount(c);
  for (int m = 0; m < count; ++m) {
    temp.AddMorpheme(e.GetLexicon(c, m), e.GetPOS(c, m));
  }
  temp.SetCandidateScore(e.GetScore(c));
  temp.EndCandidate();
  pendingChoice = c;
  Place(temp);
}

void TaggerPass::TailStep(int c, TailMemory& memory) {
  Eojul& e = *current;
  const int n = e.GetCount(c);
  const int listSize = e.GetListSize();
  for (int m = 0; m < n; ++m) {
    uint32_t pos = e.GetPOS(c, m);
    if (m == 0) continue;
    const char* before = e.GetLexicon(c, m - 1);
    uint32_t beforePos = e.GetPOS(c, m - 1);
    if (AnyBit(pos, Pos::VC) && Length(before) >= 3 && !Has(beforePos, Pos::NNB)) {
      // A copula candidate that a later candidate hardly outscores.
      for (int q = c + 1; q < listSize; ++q) {
        if (e.GetScore(q) - e.GetScore(c) < 0.87) {
          memory.a = c;
          memory.b = -2;
          break;
        }
      }
    }
    if (AnyBit(pos, Pos::XSD) && std::strcmp(e.GetLexicon(c, m), kDae) != 0) {
      if (!AnyBit(beforePos, Pos::XSN) && Length(before) < 3) continue;
      if (!Has(beforePos, Pos::NNB)) {
        memory.d = c;
        memory.b = -2;
      }
    }
  }
  if (memory.b != -1 || memory.a == c || n < 1) return;
  uint32_t finalPos = e.GetPOS(c, n - 1);
  uint32_t beforePos = e.GetPOS(c, n - 2);
  if (!AnyBit(finalPos, Pos::J_) || Has(beforePos, Pos::NNR)) return;
  if ((AnyBit(beforePos, Pos::XSN) || Length(e.GetLexicon(c, n - 2)) >= 3) &&
      std::strstr(kTailJosaList, e.GetLexicon(c, n - 1)) != nullptr) {
    memory.b = c;
  }
}

void TaggerPass::FinalChoice(const TailMemory& memory) {
  if (done != 0) return;
  if (memory.b >= 0) {
    Select(memory.b);
  } else if (memory.d >= 0) {
    Select(memory.d);
  } else if (memory.a < 0) {
    Select(current->BestCandidate());
  } else {
    Select(memory.a);
  }
}

}  // namespace Quorel
