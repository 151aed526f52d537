// The soundness of a trie read from a compiled file. Walk trusts bases,
// parents and tail positions, and Insert trusts the free-cell list, so each
// of these is checked once here instead of on every step.
#include "knowledge/image_checks.h"

#include <cstring>

namespace Quorel {

namespace {

constexpr unsigned char kEnd = ';';

// Where the 4 value bytes of the in-use leaf i start, or -1 when its record
// runs past the written tail. A leaf reached by the code of ";" holds the
// value alone; any other holds its key's rest up to ";" first.
int64_t ValueAt(const QR_DaTrie& trie, int32_t i) {
  const int64_t pos = -static_cast<int64_t>(trie.bc[i].base);
  const int32_t parent = trie.bc[i].check;
  int64_t at = pos;
  if (trie.bc[parent].base < 0 ||
      static_cast<int64_t>(trie.bc[parent].base) + CodeMap[kEnd] != i) {
    while (at < trie.tailPos && trie.tail[at] != kEnd) ++at;
    ++at;  // behind the ";"
  }
  return at + 4 <= trie.tailPos ? at : -1;
}

// The cells one by one: bases, parents and leaf records.
const char* CellFault(const QR_DaTrie& trie) {
  if (trie.bc[1].check != 1 || trie.bc[1].base < 1) {
    return "its root cell is not a branch";
  }
  for (int32_t i = 0; i <= trie.bcPos; ++i) {
    const TrieCell& cell = trie.bc[i];
    if (cell.base > trie.bcSize) {
      return "a cell's children lie beyond the cells";
    }
    if (cell.check < 1) {
      if (cell.base != 0) return "a free cell holds a base";
      continue;
    }
    if (cell.check > trie.bcPos) return "a cell's parent lies beyond the cells";
    if (cell.base < 0) {
      const int64_t pos = -static_cast<int64_t>(cell.base);
      if (pos >= trie.tailPos || ValueAt(trie, i) < 0) {
        return "a key's rest runs past the tail";
      }
    }
  }
  return nullptr;
}

// The free-cell list: ascending from bcEmptyStart, through free cells only,
// ending at bcPos + 1, with bcEmptyEnd its last cell, and holding every cell
// whose check is negative.
const char* FreeListFault(const QR_DaTrie& trie) {
  int64_t f = trie.bcEmptyStart;
  int64_t last = 0;
  int64_t onList = 0;
  while (f <= trie.bcPos) {
    if (f <= last || trie.bc[f].check >= 0) {
      return "its free-cell list is broken";
    }
    last = f;
    ++onList;
    f = -static_cast<int64_t>(trie.bc[f].check);
  }
  if (f != static_cast<int64_t>(trie.bcPos) + 1 ||
      trie.bcEmptyEnd != (onList > 0 ? last : f)) {
    return "its free-cell list is broken";
  }
  int64_t negative = 0;
  for (int32_t i = 0; i <= trie.bcPos; ++i) {
    if (trie.bc[i].check < 0) ++negative;
  }
  return negative == onList ? nullptr : "its free-cell list is broken";
}

}  // namespace

const char* TrieImageFault(const QR_DaTrie& trie) {
  if (trie.bc == nullptr || trie.tail == nullptr) return nullptr;
  if (trie.bcPos < 0 || trie.tailPos < 0 || trie.bcPos >= trie.bcSize + 256 ||
      trie.tailPos >= trie.tailSize + 128) {
    return "its sizes are impossible";
  }
  if (trie.bcPos < 1) return nullptr;  // never built: every walk fails
  const char* fault = CellFault(trie);
  return fault != nullptr ? fault : FreeListFault(trie);
}

const char* TrieValueFault(const QR_DaTrie& trie, int64_t low, int64_t high) {
  if (trie.bc == nullptr || trie.bcPos < 1) return nullptr;
  for (int32_t i = 0; i <= trie.bcPos; ++i) {
    if (trie.bc[i].check < 1 || trie.bc[i].base >= 0) continue;
    int32_t value = 0;
    std::memcpy(&value, trie.tail + ValueAt(trie, i), 4);
    if (value < low || value >= high) return "a key's value points nowhere";
  }
  return nullptr;
}

}  // namespace Quorel
