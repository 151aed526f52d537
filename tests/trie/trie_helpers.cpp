#include "trie/trie_helpers.h"

#include <cstring>

namespace Quorel {
namespace testing_trie {

::testing::AssertionResult FreeListIsSound(const QR_DaTrie& trie) {
  const int32_t end = trie.bcPos + 1;
  int32_t onList = 0;
  if (trie.bcEmptyStart > trie.bcPos) {
    if (trie.bcEmptyStart != end || trie.bcEmptyEnd != end) {
      return ::testing::AssertionFailure()
             << "empty list must have start = end = bcPos + 1, got "
             << trie.bcEmptyStart << ", " << trie.bcEmptyEnd << " at bcPos "
             << trie.bcPos;
    }
  } else {
    int32_t last = 0;
    for (int32_t f = trie.bcEmptyStart; f != end; f = -trie.bc[f].check) {
      if (f <= last || f > trie.bcPos) {
        return ::testing::AssertionFailure()
               << "list not ascending inside the used area at " << f
               << " after " << last;
      }
      if (trie.bc[f].base != 0 || trie.bc[f].check >= 0) {
        return ::testing::AssertionFailure()
               << "list cell " << f << " is not free: base "
               << trie.bc[f].base << " check " << trie.bc[f].check;
      }
      last = f;
      ++onList;
    }
    if (last != trie.bcEmptyEnd) {
      return ::testing::AssertionFailure()
             << "list ends at " << last << ", bcEmptyEnd " << trie.bcEmptyEnd;
    }
  }
  int32_t notInUse = 0;
  for (int32_t i = 2; i <= trie.bcPos; ++i) {
    if (trie.bc[i].check <= 0) ++notInUse;
  }
  if (notInUse != onList) {
    return ::testing::AssertionFailure()
           << notInUse << " cells not in use but " << onList << " on the list";
  }
  for (int32_t i = end; i < trie.bcSize + 256; ++i) {
    if (trie.bc[i].base != 0 || trie.bc[i].check != 0) {
      return ::testing::AssertionFailure() << "cell " << i << " above bcPos "
                                           << trie.bcPos << " was written";
    }
  }
  return ::testing::AssertionSuccess();
}

bool Lookup(const QR_DaTrie& trie, const std::string& key, int32_t* value) {
  TrieNode node;
  for (unsigned char c : key) {
    if (!trie.Walk(c, node)) return false;
  }
  if (node.value == nullptr) return false;
  *value = QR_DaTrie::GetValue(node);
  return true;
}

size_t WalkablePrefix(const QR_DaTrie& trie, const std::string& key) {
  TrieNode node;
  size_t n = 0;
  while (n < key.size() &&
         trie.Walk(static_cast<unsigned char>(key[n]), node)) {
    ++n;
  }
  return n;
}

int32_t InsertValue(QR_DaTrie& trie, const std::string& key, int32_t value) {
  TrieNode node;
  if (trie.Insert(key.c_str(), node) != 1 || node.value == nullptr) return -1;
  if (QR_DaTrie::GetValue(node) < 1) QR_DaTrie::SetValue(node, value);
  return QR_DaTrie::GetValue(node);
}

::testing::AssertionResult SameArrays(const QR_DaTrie& a, const QR_DaTrie& b) {
  if (a.bcPos != b.bcPos || a.tailPos != b.tailPos ||
      a.bcEmptyStart != b.bcEmptyStart || a.bcEmptyEnd != b.bcEmptyEnd) {
    return ::testing::AssertionFailure()
           << "positions differ: bcPos " << a.bcPos << "/" << b.bcPos
           << " tailPos " << a.tailPos << "/" << b.tailPos << " list "
           << a.bcEmptyStart << "-" << a.bcEmptyEnd << "/" << b.bcEmptyStart
           << "-" << b.bcEmptyEnd;
  }
  for (int32_t i = 0; i <= a.bcPos; ++i) {
    if (a.bc[i].base != b.bc[i].base || a.bc[i].check != b.bc[i].check) {
      return ::testing::AssertionFailure()
             << "cell " << i << " differs: (" << a.bc[i].base << ", "
             << a.bc[i].check << ") vs (" << b.bc[i].base << ", "
             << b.bc[i].check << ")";
    }
  }
  if (std::memcmp(a.tail, b.tail, a.tailPos) != 0) {
    return ::testing::AssertionFailure() << "tail bytes differ";
  }
  return ::testing::AssertionSuccess();
}

}  // namespace testing_trie
}  // namespace Quorel
