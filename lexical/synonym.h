// Synonym: the answer of one SynonymContainer::Search, read group by group.
// It holds the container, the entry found, its index and the number of
// groups; it stays valid until the container loads again.
#ifndef QRLSL_LEXICAL_SYNONYM_H_
#define QRLSL_LEXICAL_SYNONYM_H_

#include <cstdint>

#include "lexical/synonyms.h"
#include "qrlsl/qr_synonym.h"

namespace Quorel {

class Synonym : public QR_Synonym {
 public:
  Synonym() = default;
  ~Synonym() override = default;

  bool IsFound() override { return entry != nullptr; }
  // Forgets the answer; the bound container stays.
  void Reset() override;
  // 1 without overlap, else the number of groups; 0 when nothing was found.
  int GetCount() override { return entry ? count : 0; }
  // Words in group `index` (0..GetCount()-1); 0 when out of range.
  int GetGroupSize(int index) override;
  // First word of group `index`; null when out of range.
  const char* GetGroupHead(int index) override;
  // The entry `position` places after the head of group `index`; null when
  // the group is out of range or the entry doesn't exist. The position isn't
  // held to the group size.
  const char* GetWord(int index, int position) override;
  // Flag bit 2 (or 3) of that entry: 1 when the word was written with "<"
  // (or ">") in front. 0 also when out of range or position > group size.
  int HasLessMark(int index, int position) override;
  int HasGreaterMark(int index, int position) override;

  // Set by SynonymContainer::Search.
  void Bind(const SynonymContainer* owner) { container = owner; }
  void SetFound(uint32_t entryIndex, int groupCount);
  void NoteLongerWords() { longerWords = true; }
  // True when the trie walk of the search could go on: longer keys may exist.
  bool HasLongerWords() const { return longerWords; }

 private:
  // Entry index of the head of group `index`; -1 when out of range.
  int64_t HeadOf(int index) const;
  // Flags of entry head + position for the mark readers; 0 when out of range.
  uint32_t MarkFlags(int index, int position) const;

  const SynonymContainer* container = nullptr;
  const EntryNInfo* entry = nullptr;
  uint32_t entryIndex = 0;
  int count = 0;
  bool longerWords = false;
};

}  // namespace Quorel

#endif  // QRLSL_LEXICAL_SYNONYM_H_
