#include "lexical/synonym.h"

#include <new>

namespace Quorel {

void Synonym::Reset() {
  entry = nullptr;
  entryIndex = 0;
  count = 0;
  longerWords = false;
}

void Synonym::SetFound(uint32_t index, int groupCount) {
  entry = &container->Entry(index);
  entryIndex = index;
  count = groupCount;
}

int64_t Synonym::HeadOf(int index) const {
  if (!entry || index < 0 || index >= count) return -1;
  if (entry->flags & kOverlapBit) {
    return container->Overlap(LinkOf(entry->flags))[index];
  }
  return (entry->flags & kHeadBit) ? entryIndex : LinkOf(entry->flags);
}

int Synonym::GetGroupSize(int index) {
  const int64_t head = HeadOf(index);
  if (head < 0) return 0;
  return static_cast<int>(GroupSizeOf(container->Entry(head).flags));
}

const char* Synonym::GetGroupHead(int index) {
  const int64_t head = HeadOf(index);
  if (head < 0) return nullptr;
  return container->Entry(head).text.CStr();
}

const char* Synonym::GetWord(int index, int position) {
  const int64_t head = HeadOf(index);
  if (head < 0 || position < 0) return nullptr;
  const uint64_t at = static_cast<uint64_t>(head) + position;
  if (at >= container->EntryCount()) return nullptr;
  return container->Entry(at).text.CStr();
}

uint32_t Synonym::MarkFlags(int index, int position) const {
  const int64_t head = HeadOf(index);
  if (head < 0 || position < 0) return 0;
  if (static_cast<uint32_t>(position) > GroupSizeOf(container->Entry(head).flags)) {
    return 0;
  }
  const uint64_t at = static_cast<uint64_t>(head) + position;
  if (at >= container->EntryCount()) return 0;
  return container->Entry(at).flags;
}

int Synonym::HasLessMark(int index, int position) {
  return (MarkFlags(index, position) & kLessMarkBit) ? 1 : 0;
}

int Synonym::HasGreaterMark(int index, int position) {
  return (MarkFlags(index, position) & kGreaterMarkBit) ? 1 : 0;
}

QR_Synonym* CreateSynonym() { return new (std::nothrow) Synonym(); }

}  // namespace Quorel
