#include "knowledge/suffix_lists.h"

#include <cstdlib>
#include <cstring>

#include "knowledge/knowledge_io.h"
#include "text/syllable_table.h"

namespace Quorel {

namespace {

#include "knowledge/suffix_tables.inc"

template <size_t N>
constexpr int32_t Rows(const SuffixEntry (&)[N]) {
  return static_cast<int32_t>(N);
}

}  // namespace

PositionList::PositionList() { Allocate(kMinCapacity); }

PositionList::~PositionList() {
  std::free(positions);
  std::free(values);
}

void PositionList::Allocate(uint32_t newCapacity) {
  auto* newPositions = static_cast<unsigned char*>(std::calloc(newCapacity, 1));
  auto* newValues = static_cast<unsigned char*>(std::calloc(newCapacity, 1));
  if (newPositions == nullptr || newValues == nullptr) {
    std::free(newPositions);
    std::free(newValues);
    return;  // the old arrays stay
  }
  if (positions != nullptr && count > 0) {
    std::memcpy(newPositions, positions, count);
    std::memcpy(newValues, values, count);
  }
  std::free(positions);
  std::free(values);
  positions = newPositions;
  values = newValues;
  capacity = newCapacity;
}

void PositionList::Add(unsigned char position, unsigned char value) {
  if (count + 1 >= capacity) Allocate(capacity * 2);
  if (count + 1 >= capacity) return;  // out of memory: the hit is lost
  positions[count] = position;
  values[count] = value;
  ++count;
}

void PositionList::Clear(bool resetCapacity) {
  count = 0;
  if (resetCapacity && capacity != kMinCapacity) {
    std::free(positions);
    std::free(values);
    positions = nullptr;
    values = nullptr;
    capacity = 0;
    Allocate(kMinCapacity);
  } else if (positions != nullptr) {
    std::memset(positions, 0, capacity);
    std::memset(values, 0, capacity);
  }
}

SuffixList::SuffixList(Kind listKind, const SuffixEntry* rows,
                       int32_t rowTotal)
    : kind(listKind), table(rows), rowCount(rowTotal) {
  const bool ep = kind == kEP;
  const char* name = kind == kAV ? "AV" : "XSD";
  int created = ep ? trie.Create(1024, 256, 256, 128)
                   : trie.Create(512, 128, 128, 64);
  if (created < 0) {
    Report("Can't create trie. So ", kind == kAV ? "av" : "xsd",
           " list is not created...");
    return;
  }
  const size_t bufferSize = kind == kXSD ? 10 : 20;
  char reversed[20];
  for (int32_t row = 1; row < rowCount; ++row) {
    size_t n = std::strlen(table[row].surface);
    if (n >= bufferSize) n = bufferSize - 1;
    for (size_t k = 0; k < n; ++k) reversed[k] = table[row].surface[n - 1 - k];
    reversed[n] = '\0';
    TrieNode node;
    if (trie.Insert(reversed, node) == 0) {
      Report("Error in setting ", name, " list..");
      continue;
    }
    if (QR_DaTrie::GetValue(node) != 0) {
      Report(ep ? "In prefinal endings" : "In predicative suffixes",
             ", Duplicated entries exist. Please check..");
      continue;
    }
    QR_DaTrie::SetValue(node, row);
  }
  trie.BuildReadIndexes();
}

const SuffixEntry* SuffixList::GetEntry(int32_t row) const {
  return row >= 0 && row < rowCount ? &table[row] : nullptr;
}

int SuffixList::Search(const char* text, int32_t len, PositionList& results,
                       bool checkSyllable) const {
  if (text == nullptr) return 0;
  if (len == 0) len = static_cast<int32_t>(std::strlen(text));
  if (len < 2) return 0;
  results.count = 0;
  TrieNode node;
  int32_t longestAt = -1;
  int32_t longestRow = 0;
  // A key that ends behind the byte at i (walking backwards); false when
  // the search must answer 0 at once.
  auto take = [&](int32_t i) {
    const int32_t row = QR_DaTrie::GetValue(node);
    if (kind == kEP) {
      longestAt = i;
      longestRow = row;
      return true;
    }
    if (kind == kAV) {
      // An auxiliary follows an open syllable, or one closed by ㄹ or ㄴ.
      const SyllableRec* before = i >= 2 ? SyllableAt(text + i - 2) : nullptr;
      if (before == nullptr) {
        if (checkSyllable) return false;
      } else if ((before->flags & 0x1) && before->jongseong != 9 &&
                 before->jongseong != 5) {
        return true;
      }
    }
    results.Add(static_cast<unsigned char>(i),
                static_cast<unsigned char>(row));
    return true;
  };
  // Byte 0 is never walked: no key starts at the very first byte.
  int32_t i = len - 1;
  int paired = -1;
  if (len >= 3) {
    // The last two bytes in one step: most texts end in no suffix at all.
    paired = trie.WalkRootPair(static_cast<unsigned char>(text[len - 1]),
                               static_cast<unsigned char>(text[len - 2]),
                               node);
    if (paired == 1) {
      if (node.value != nullptr && !take(len - 2)) return 0;
      i = len - 3;
    }
  }
  for (; paired != 0 && i >= 1; --i) {
    if (trie.Walk(static_cast<unsigned char>(text[i]), node) == 0) break;
    if (node.value != nullptr && !take(i)) return 0;
  }
  if (kind == kEP) {
    if (longestAt < 0) return 0;
    results.Add(static_cast<unsigned char>(longestAt),
                static_cast<unsigned char>(longestRow));
  }
  return 1;
}

int SuffixList::Find(const char* text, PositionList& results,
                     int32_t len) const {
  return Search(text, len, results, true);
}

int SuffixList::Find(const spr::stdstyle::string<char>& text,
                     PositionList& results, int32_t len) const {
  return Search(text.CStr(), len == 0 ? text.Length() : len, results, true);
}

PositionList* SuffixList::Find(const char* text, int32_t len) {
  return Search(text, len, ownList, false) ? &ownList : nullptr;
}

PositionList* SuffixList::Find(const spr::stdstyle::string<char>& text,
                               int32_t len) {
  return Find(text.CStr(), len == 0 ? text.Length() : len);
}

AVList::AVList() : SuffixList(kAV, kAVTable, Rows(kAVTable)) {}

XSDList::XSDList() : SuffixList(kXSD, kXSDTable, Rows(kXSDTable)) {}

EPList::EPList() : SuffixList(kEP, kEPTable, Rows(kEPTable)) {}

}  // namespace Quorel
