// The answer NounDivider keeps aside for its caller: a word's pattern and
// group scores, copied out before a shorter form of the word is divided and
// put back when the word is asked for again. Divide answers from the word
// and the mode alone, so the copy is the answer a new division would give.
#include <cstring>

#include "analyzer/noun_divider.h"

namespace Quorel {

void NounDivider::KeepAnswer() {
  kept.valid = true;
  kept.mode = mode;
  kept.word = word;
  kept.length = static_cast<int32_t>(strnlen(output, sizeof(output)));
  std::memcpy(kept.output, output, static_cast<size_t>(kept.length));
  if (answerTaken) {
    std::memcpy(kept.scores, takenScores, sizeof(kept.scores));
    return;
  }
  // GetPatternScore of each group, as the rows and selections give it.
  for (int k = 0; k < kDivRows; ++k) {
    const int r = selected[k];
    kept.scores[k] = r >= 0 && r < kDivRows ? rows[r].score : 0.0;
  }
}

bool NounDivider::TakeKeptAnswer(const char* text, int divideMode) {
  if (!kept.valid || kept.mode != divideMode || text == nullptr ||
      !(kept.word == text)) {
    return false;
  }
  kept.valid = false;
  hitsComplete = false;  // hits are those of the word given up
  mode = divideMode;
  word = kept.word;
  wordLength = word.Length();
  // The output holds one string and zeros behind it, as after Divide.
  ClearOutput();
  std::memcpy(output, kept.output, static_cast<size_t>(kept.length));
  std::memcpy(takenScores, kept.scores, sizeof(takenScores));
  answerTaken = true;
  return true;
}

}  // namespace Quorel
