// CascadeTag, tagging mode 0: rules 1 to 12 over the candidates of each
// eojul with several, looking at the chosen previous eojul (P) and all
// candidates of the next (N); the tail decides what no rule placed.
#include <cstring>

#include "eojul/tag_set.h"
#include "tagger/tagger.h"

namespace Quorel {

namespace {

constexpr uint32_t kEndingGroup = 0x400600;  // EC, EF, EM

const char kDoe[] = "\xB5\xC7";  // 되
const char kHa[] = "\xC7\xCF";   // 하
// The josa that rule 12 compares the previous josa with, by address only.
const char kEul[] = "\xC0\xBB";  // 을
const char kReul[] = "\xB8\xA6"; // 를
const char kE[] = "\xBF\xA1";    // 에

bool Has(uint32_t mask, uint32_t tag) { return (mask & tag) == tag; }
bool AnyBit(uint32_t mask, uint32_t bits) { return (mask & bits) != 0; }

bool Is(const char* lexicon, const char* text) {
  return lexicon != nullptr && std::strcmp(lexicon, text) == 0;
}

uint32_t First(Eojul& e, int c) { return e.GetPOS(c, 0); }
uint32_t Final(Eojul& e, int c) { return e.GetPOS(c, e.GetCount(c) - 1); }

}  // namespace

void Tagger::CascadeTag() {
  ClearResults();
  const int last = Last();
  for (int i = 0; i <= last; ++i) {
    if (!Open(i)) continue;
    SetNeighbours(i);
    TailMemory memory;
    for (int c = 0; c < current->GetListSize() && done == 0; ++c) {
      CascadeRules(c, i);
      // The tail runs for c even after a rule placed it; then it is idle.
      TailStep(c, memory);
    }
    FinalChoice(memory);
  }
}

void Tagger::CascadeRules(int c, int i) {
  Eojul& e = *current;
  const int last = Last();
  const int listSize = e.GetListSize();
  const int n = e.GetCount(c);
  const uint32_t first = First(e, c);
  // P: the chosen previous eojul, one candidate; lastP its last morpheme.
  Eojul* p = i > 0 ? previous : nullptr;
  const uint32_t p0 = p != nullptr ? p->GetPOS(0, 0) : 0;
  const uint32_t lastP = p != nullptr ? Final(*p, 0) : 0;
  const int pCount = p != nullptr ? p->GetCount(0) : 0;

  // 1, 2: a pronoun first in the sentence or after a lone symbol.
  if (i == 0 && Has(first, Pos::NP)) return Select(c);
  if (i > 0 && pCount == 1 && Has(p0, Pos::SC) && Has(first, Pos::NP)) {
    return Select(c);
  }
  // 3: of two readings, a lone determiner or adverb.
  if (listSize == 2 && n == 1) {
    if (Has(first, Pos::MM)) return Select(c);
    if (Has(first, Pos::MA)) return Select(c);
  }
  // 4: a lone determiner before an eojul that can only be a noun.
  if (i < last && listSize > 2 && n == 1 && Has(first, Pos::MM)) {
    for (int k = 0; k < next->GetListSize(); ++k) {
      if (!AnyBit(First(*next, k), Pos::N_)) return;
    }
    return Select(c);
  }
  // 5: after a determiner, the one reading that starts with a noun.
  if (i > 0 && Has(p0, Pos::MM)) {
    int nouns = 0;
    int noun = -1;
    for (int k = 0; k < listSize; ++k) {
      if (AnyBit(First(e, k), Pos::N_)) {
        ++nouns;
        noun = k;
      }
    }
    if (nouns == 1) Select(noun);
    return;
  }
  // 6: a noun before 되 or 하 as a verb.
  if (i < last && n == 1 && Has(first, Pos::NNG)) {
    for (int k = 0; k < next->GetListSize(); ++k) {
      const char* lexicon = next->GetLexicon(k, 0);
      if ((Is(lexicon, kDoe) || Is(lexicon, kHa)) &&
          Has(First(*next, k), Pos::VV)) {
        Select(c);
        break;
      }
    }
    return;
  }
  // 7: a bound noun after a word.
  if (i != 0 && Has(first, Pos::NNB)) return BoundNounRule(c, i);
  // 8: a determiner ending.
  if (Has(Final(e, c), Pos::ETM)) {
    if (!AnyBit(first, Pos::VX)) {
      if (i < last) {
        for (int k = 0; k < next->GetListSize(); ++k) {
          if (Has(First(*next, k), Pos::NNB)) return Select(c);
        }
      }
      return;
    }
    if (i > 0 && Has(lastP, kEndingGroup)) Select(c);
    return;
  }
  // 9: a number and a bound noun.
  if (AnyBit(first, Pos::SN) && Has(e.GetPOS(c, 1), Pos::NNB)) {
    return Select(c);
  }
  // 10: a lone noun before a noun + josa.
  if (i < last && n == 1 && Has(first, Pos::NNG)) {
    for (int k = 0; k < next->GetListSize(); ++k) {
      if (Has(First(*next, k), Pos::NNG) && AnyBit(Final(*next, k), Pos::J_)) {
        Select(c);
        break;
      }
    }
    return;
  }
  // 11: an auxiliary after a connective or final ending.
  if (i > 0 && AnyBit(first, Pos::VX)) {
    if (Has(lastP, kEndingGroup)) Select(c);
    return;
  }
  // 12: a predicate.
  if (i == 0 || !AnyBit(first, Pos::V_)) return;
  if (i < last) {
    for (int k = 0; k < next->GetListSize(); ++k) {
      if (!Has(Final(e, c), Pos::ETM) && AnyBit(First(*next, k), Pos::VX)) {
        return Select(c);
      }
    }
  }
  // The object or locative josa before a predicate was meant to decide here,
  // but it is compared by address, so the step never selects; making it
  // fire would change what the tagger chooses.
  if (done == 0 && AnyBit(lastP, Pos::J_)) {
    const char* josa = p->GetLexicon(0, pCount - 1);
    if (josa == kEul || josa == kReul || josa == kE) Select(c);
  }
}

void Tagger::BoundNounRule(int c, int i) {
  Eojul& e = *current;
  Eojul& p = *previous;
  const uint32_t p0 = p.GetPOS(0, 0);
  const int pCount = p.GetCount(0);
  const uint32_t lastP = Final(p, 0);
  const char* lexicon = e.GetLexicon(c, 0);
  if (e.GetListSize() == 2 && lexicon != nullptr && std::strlen(lexicon) == 2 &&
      pCount == 1 && Has(p0, Pos::NNG)) {
    return Select(c);
  }
  if (p.GetListSize() == 1) {
    if (AnyBit(p0, Pos::SN)) return Select(c);
    if (AnyBit(p0, Pos::FL)) return Select(c);
  }
  if (i < Last()) {
    for (int k = 0; k < next->GetListSize(); ++k) {
      uint32_t nextFirst = First(*next, k);
      if (!AnyBit(nextFirst, Pos::V_) && !Has(nextFirst, Pos::NNB)) continue;
      if (pCount >= 1 && Has(lastP, Pos::ETM)) return Select(c);
      if (Has(p0, Pos::NNB)) return Select(c);
    }
  }
  if (done == 0 && pCount > 0 && Has(lastP, Pos::ETM)) Select(c);
}

}  // namespace Quorel
