// TaggerPass: what both tagging passes keep while they walk a sentence of
// analysed eojuls and build a vector of eojuls with one candidate each: the
// current eojul and its neighbours, the result vector, the placing of a
// candidate (Select) and the tail of the rule cascade, which also decides
// for the frequency pass when its model is silent.
#ifndef QRLSL_TAGGER_TAGGER_PASS_H_
#define QRLSL_TAGGER_TAGGER_PASS_H_

#include <cstdint>
#include <vector>

#include "eojul/eojul.h"

namespace Quorel {

// The josa that may close a noun chosen by the tail; searched as a plain
// substring, so any part of an entry is found too.
extern const char kTailJosaList[];

// The tail's memory over the candidates of one eojul: -1 unset, -2 blocked.
struct TailMemory {
  int a = -1;  // a candidate with a copula close in score to a later one
  int b = -1;  // a noun + josa candidate, or -2 once the copula/suffix hit
  int d = -1;  // a candidate with a predicative suffix
};

class TaggerPass {
 public:
  Eojul* current = nullptr;
  Eojul* next = nullptr;      // kept when the sentence edge leaves it unset
  Eojul* previous = nullptr;  // the last result: the chosen previous eojul
  Eojul temp;                 // the chosen candidate is built here
  std::vector<Eojul*>* input = nullptr;
  std::vector<Eojul> results;
  int32_t resultCount = 0;
  int32_t done = 0;
  // For each placed eojul, in order, the candidate placed (0 for an eojul
  // placed as it stands). Cleared with the results.
  std::vector<int> placedChoices;

 protected:
  // Empties the results.
  void ClearResults();
  // Index of the last eojul of the input.
  int Last() const { return static_cast<int>(input->size()) - 1; }
  // Appends e as it stands (all its candidates, its scores).
  void Place(const Eojul& e);
  // Makes e current and readies temp with its text, type and offset.
  void Prepare(Eojul& e);
  // Opens eojul i of the input: one with no choice (one candidate or none)
  // is placed as it stands and false returned; else it is made current.
  bool Open(int i);
  // next and previous for index i, where the sentence has them.
  void SetNeighbours(int i);
  // Places candidate c of the current eojul, alone, with its score.
  void Select(int c);
  // The candidate that the next Place records.
  int pendingChoice = 0;
  // The tail's two steps for candidate c of the current eojul.
  void TailStep(int c, TailMemory& memory);
  // The tail's choice when no rule has placed the current eojul.
  void FinalChoice(const TailMemory& memory);
};

}  // namespace Quorel

#endif  // QRLSL_TAGGER_TAGGER_PASS_H_
