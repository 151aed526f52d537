// Small in-place edits of a stem that the predicate handlers undo before
// they return: a syllable swapped for a SyllableTable link (Swap), the last
// syllable cut off (SyllableCut); and the membership test of the exception
// lists. Nothing here allocates: the bytes live in the string's own storage.
#ifndef QRLSL_ANALYZER_PREDICATE_STEPS_H_
#define QRLSL_ANALYZER_PREDICATE_STEPS_H_

#include <cstdint>

#include "text/strings.h"
#include "text/syllable_table.h"

namespace Quorel {

// One syllable of a text replaced by the syllable a link names, with the old
// two bytes kept for Restore.
class SyllableSwap {
 public:
  // Writes the syllable of record `link` over the two bytes at `offset` of
  // `text`; false, writing nothing, when the link is none or the offset is
  // outside the text.
  bool Apply(StringEx& target, int32_t at, int16_t link) {
    const SyllableRec* to = SyllableByNumber(link);
    if (to == nullptr || to->code[0] == 0 || at < 0 ||
        at + 2 > target.Length()) {
      return false;
    }
    char* bytes = target.Data() + at;
    saved[0] = bytes[0];
    saved[1] = bytes[1];
    bytes[0] = static_cast<char>(to->code[0]);
    bytes[1] = static_cast<char>(to->code[1]);
    text = &target;
    offset = at;
    return true;
  }
  // The link `bit` (a SyllableTable link number) of the last syllable.
  bool ApplyLast(StringEx& text, const SyllableRec& last, int bit) {
    return Apply(text, text.Length() - 2, last.links[bit]);
  }
  // Puts the kept bytes back, once; nothing when not applied.
  void Restore() {
    if (text == nullptr) return;
    char* bytes = text->Data() + offset;
    bytes[0] = saved[0];
    bytes[1] = saved[1];
    text = nullptr;
  }
  bool Applied() const { return text != nullptr; }

 private:
  StringEx* text = nullptr;
  int32_t offset = 0;
  char saved[2] = {0, 0};
};

// The last syllable of a text cut off, kept for Restore.
class SyllableCut {
 public:
  // False, changing nothing, when the text is shorter than 2 bytes.
  bool Apply(StringEx& text);
  void Restore();

 private:
  StringEx* text = nullptr;
  char saved[2] = {0, 0};
};

// ":" + stem + ":" occurs in the colon-separated `list`.
bool InExceptionList(const char* list, const StringEx& stem);

// The bare jamo eomi of a fused ending's type: ㄴ for 5, ㄹ for 9, ㅁ for 17,
// ㅂ for 19; null for any other type.
const char* BareJamo(int type);

}  // namespace Quorel

#endif  // QRLSL_ANALYZER_PREDICATE_STEPS_H_
