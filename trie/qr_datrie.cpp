// QR_DaTrie: insertion, walking and the free-cell list.
//
// Every step below fixes which cell is taken or freed and in what order;
// the arrays are a file format, so none of it may be "improved" without
// changing every compiled knowledge file.
#include "trie/qr_datrie.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace Quorel {

namespace {

constexpr int kSpareCells = 256;  // base + any code stays inside the array
constexpr int kSpareTail = 128;
constexpr unsigned char kEnd = kTrieEnd;

// Copies 4 value bytes, reversing them unless in machine order.
void CopyValueBytes(unsigned char* to, const unsigned char* from,
                    uint8_t nativeOrder) {
  for (int i = 0; i < 4; ++i) to[i] = from[nativeOrder != 0 ? i : 3 - i];
}

}  // namespace

QR_DaTrie::QR_DaTrie() = default;

QR_DaTrie::~QR_DaTrie() { Clear(); }

int QR_DaTrie::Create(int32_t bcSizeArg, int32_t tailSizeArg,
                      int32_t bcIncrementArg, int32_t tailIncrementArg) {
  Clear();
  bcPos = 1;
  bcEmptyStart = 2;
  bcEmptyEnd = 2;
  bcSize = bcSizeArg;
  tailSize = tailSizeArg;
  bcIncrement = bcIncrementArg;
  tailIncrement = tailIncrementArg;

  bc = static_cast<TrieCell*>(
      std::calloc(static_cast<size_t>(bcSize) + kSpareCells, sizeof(TrieCell)));
  if (bc == nullptr) AllocFailed();
  bc[1].base = 1;
  bc[1].check = 1;

  tailPos = 1;
  tail = static_cast<unsigned char*>(
      std::calloc(static_cast<size_t>(tailSize) + kSpareTail, 1));
  if (tail == nullptr) AllocFailed();
  tail[0] = kEnd;
  return 0;
}

void QR_DaTrie::Clear() {
  DropReadIndexes();
  std::free(bc);
  std::free(tail);
  bc = nullptr;
  tail = nullptr;
  bcSize = 0;
  bcPos = 0;
  tailSize = 0;
  tailPos = 0;
}

void QR_DaTrie::DropReadIndexes() {
  std::free(rootPairs);
  rootPairs = nullptr;
  std::free(endBits);
  endBits = nullptr;
}

void QR_DaTrie::BuildReadIndexes() {
  DropReadIndexes();
  if (bc == nullptr) return;
  auto* pairs =
      static_cast<int32_t*>(std::malloc(sizeof(int32_t) * kPairCount));
  if (pairs == nullptr) return;  // lookups walk byte by byte
  for (int c1 = kPairFirst; c1 <= 0xFF; ++c1) {
    int32_t* row = pairs + ((c1 - kPairFirst) << 8);
    TrieNode first;
    const int walked = Walk(static_cast<unsigned char>(c1), first);
    // A leaf or a key after c1 is left to the byte walk.
    const bool byBytes = walked != 0 && (first.value != nullptr || first.state < 1);
    for (int c2 = 0; c2 <= 0xFF; ++c2) {
      TrieNode second = first;
      if (byBytes) {
        row[c2] = kPairByBytes;
      } else if (walked == 0 ||
                 Walk(static_cast<unsigned char>(c2), second) == 0) {
        row[c2] = 0;
      } else {
        // 0 and kPairByBytes are no states of a sound trie; should a
        // damaged one give them, the byte walk answers.
        row[c2] = second.state == 0 ? kPairByBytes : second.state;
      }
    }
  }
  rootPairs = pairs;
  BuildEndBits();
}

void QR_DaTrie::BuildEndBits() {
  const size_t words = static_cast<size_t>(bcPos) / 64 + 1;
  auto* bits = static_cast<uint64_t*>(std::calloc(words, sizeof(uint64_t)));
  if (bits == nullptr) return;  // walks read the terminator cells
  // The terminator cell lies within the 256 cells behind any base, which
  // the cell array keeps room for; the test is the walks' own.
  for (int32_t s = 1; s <= bcPos; ++s) {
    const int32_t base = bc[s].base;
    if (base < 0 || base > bcSize) continue;
    const TrieCell& u = bc[kTrieEndCode + base];
    if (u.check == s && u.base < 0) bits[s >> 6] |= uint64_t{1} << (s & 63);
  }
  endBits = bits;
}

void QR_DaTrie::SetValue(TrieNode& node, int32_t value) {
  CopyValueBytes(node.value, reinterpret_cast<const unsigned char*>(&value),
                 node.nativeOrder);
}

int QR_DaTrie::Insert(const char* key, TrieNode& node) {
  DropReadIndexes();  // an insertion may move any cell
  node.Reset();
  if (bc == nullptr) return 0;

  int length = 0;
  if (key != nullptr) {
    while (length < kMaxKey && key[length] != '\0') {
      pKeyBuff[length] = static_cast<unsigned char>(key[length]);
      ++length;
    }
  }
  pKeyBuff[length] = kEnd;
  pKeyBuff[length + 1] = '\0';

  int32_t s = 1;
  const unsigned char* p = pKeyBuff;
  for (;;) {
    if (bc[s].base < 0) {
      if (p[-1] == kEnd) {
        // The key ends at the terminator transition: a bare value record.
        node.state = bc[s].base;
        node.value = tail - bc[s].base;
        return 1;
      }
      const int32_t q = CompareTail(s, p);
      if (q > 0) {
        node.state = -(q + 1);
        node.value = tail + q + 1;
      } else {
        SplitTail(s, p, node);
      }
      return 1;
    }
    const int32_t t = CodeMap[*p] + bc[s].base;
    ++p;
    if (t > bcPos || bc[t].check != s) break;
    s = t;
  }
  ResolveConflict(s, p - 1, node);
  return 1;
}

int32_t QR_DaTrie::CompareTail(int32_t s, const unsigned char* key) const {
  const unsigned char* p = tail - bc[s].base;
  while (*p != kEnd && *key != kEnd) {
    if (*p != *key) return 0;
    ++p;
    ++key;
  }
  if (*p == kEnd && *key == kEnd) return static_cast<int32_t>(p - tail);
  return 0;
}

void QR_DaTrie::ResolveConflict(int32_t s, const unsigned char* key,
                                TrieNode& node) {
  const int32_t t = CodeMap[*key] + bc[s].base;
  const int32_t c = bc[t].check;
  if (c > 0) {
    // Cell t belongs to state c: move whichever of s and c has fewer
    // children (counting the new one for s).
    const int n1 = ListChildren(s, listIndex);
    const int n2 = ListChildren(c, listUsedIndex);
    if (n2 != 0 && n2 <= n1 + 1) {
      s = Relocate(s, c, 0, listUsedIndex, n2);
    } else {
      s = Relocate(s, s, *key, listIndex, n1);
    }
  }
  InsertTail(s, key, tailPos);
  node.state = 6 - tailPos;
  node.value = tail + tailPos - 4;
}

int QR_DaTrie::ListChildren(int32_t state, unsigned char* list) const {
  const int32_t base = bc[state].base;
  int n = 0;
  if (base >= 1) {
    for (int code = 1; code <= 255; ++code) {
      if (bc[base + code].check == state) {
        list[n++] = static_cast<unsigned char>(code);
      }
    }
  }
  list[n] = 0;
  return n;
}

int32_t QR_DaTrie::Relocate(int32_t current, int32_t target,
                            unsigned char newByte, unsigned char* list,
                            int n) {
  const int32_t oldBase = bc[target].base;
  const unsigned char newCode = CodeMap[newByte];
  if (newByte != 0) {
    int i = 0;
    while (i < n && newCode >= list[i]) ++i;
    for (int k = n; k > i; --k) list[k] = list[k - 1];
    list[i] = newCode;
    list[n + 1] = 0;
  }
  SetBase(target, FindBase(list));

  for (int k = 0; list[k] != 0; ++k) {
    const int32_t c = list[k];
    if (c == newCode) continue;  // its cell is made by InsertTail
    const int32_t oldCell = oldBase + c;
    const int32_t newCell = c + bc[target].base;
    SetCheck(newCell, target);
    SetBase(newCell, bc[oldCell].base);
    if (bc[oldCell].base > 0) {
      // The grandchildren now hang below the moved cell.
      const int32_t b = bc[oldCell].base;
      for (int i = 0; i < 256; ++i) {
        if (bc[b + i].check == oldCell) SetCheck(b + i, newCell);
      }
    }
    if (oldCell == current) current = newCell;
    SetBase(oldCell, 0);
    SetCheck(oldCell, 0);
  }
  return current;
}

int32_t QR_DaTrie::FindBase(const unsigned char* list) const {
  const int32_t first = list[0];
  for (int32_t f = bcEmptyStart;; f = -bc[f].check) {
    if (f > bcPos) return f <= first ? 1 : f - first;
    const int32_t b = f - first;
    if (b <= 0) continue;
    bool fits = true;
    for (int k = 1; list[k] != 0; ++k) {
      if (bc[b + list[k]].check > 0) {
        fits = false;
        break;
      }
    }
    if (fits) return b;
  }
}

void QR_DaTrie::SetBase(int32_t i, int32_t value) {
  GrowCellsFor(i);
  bc[i].base = value;
  if (i > bcPos) ExtendUsed(i);
}

void QR_DaTrie::SetCheck(int32_t i, int32_t value) {
  GrowCellsFor(i);

  if (bc[i].check < 0) {
    // Unlink i from the free list.
    if (i != bcEmptyStart) {
      int32_t prev = bcEmptyStart;
      while (-bc[prev].check != i) prev = -bc[prev].check;
      bc[prev].check = bc[i].check;
      if (i == bcEmptyEnd) bcEmptyEnd = prev;
    } else {
      if (bcEmptyStart == bcEmptyEnd) bcEmptyEnd = -bc[i].check;
      bcEmptyStart = -bc[i].check;
    }
  }

  if (value != 0) {
    bc[i].check = value;
  } else if (i >= bcEmptyStart) {
    // Free i after the last list cell below it, keeping index order.
    int32_t p = bcEmptyStart;
    for (int32_t next = -bc[p].check; next > 0 && next < i;
         next = -bc[p].check) {
      p = next;
    }
    bc[i].check = bc[p].check;
    bc[p].check = -i;
    if (bcEmptyEnd == p) bcEmptyEnd = i;
  } else {
    // i becomes the new head.
    bc[i].check = -bcEmptyStart;
    if (bcEmptyStart == bcEmptyEnd && bcEmptyEnd > bcPos) bcEmptyEnd = i;
    bcEmptyStart = i;
  }

  if (i > bcPos) ExtendUsed(i);
}

void QR_DaTrie::ExtendUsed(int32_t n) {
  const int32_t next =
      bcPos >= bcEmptyEnd ? -bc[bcEmptyEnd].check : bcEmptyEnd;
  bcPos = n;
  if (next == n) {
    if (next != bcEmptyEnd) {
      bc[bcEmptyEnd].check = -(n + 1);
    } else {
      bcEmptyStart = n + 1;
      bcEmptyEnd = n + 1;
    }
    return;
  }
  // The gap next .. n-1 goes on the end of the list; the former last cell
  // already links to next.
  bcEmptyEnd = n - 1;
  for (int32_t k = next; k <= n - 2; ++k) {
    bc[k].base = 0;
    bc[k].check = -(k + 1);
  }
  bc[n - 1].base = 0;
  bc[n - 1].check = -(n + 1);
}

void QR_DaTrie::InsertTail(int32_t s, const unsigned char* key, int32_t pos) {
  const int32_t t = CodeMap[*key] + bc[s].base;
  SetCheck(t, s);
  SetBase(t, -pos);

  // When key points into the tail (a split record rewritten in place), the
  // writes at pos stay behind the reads and pos stays below tailPos, so the
  // tail is not reallocated under key.
  if (*key != kEnd) {
    ++key;
    while (*key != kEnd) {
      if (pos >= tailSize) GrowTail();
      tail[pos++] = *key++;
    }
    if (pos >= tailSize) GrowTail();
    tail[pos++] = kEnd;
  }
  // A rewritten record carries its old value along; a new one starts at 0.
  const bool rewrite = pos < tailPos;
  for (int i = 1; i <= 4; ++i) {
    if (pos >= tailSize) GrowTail();
    tail[pos++] = rewrite ? key[i] : 0;
  }
  if (pos > tailPos) tailPos = pos;

  if (tailPos >= tailSize) GrowTail();
  if (bcPos >= bcSize) GrowCells();
}

void QR_DaTrie::SplitTail(int32_t s, const unsigned char* key,
                          TrieNode& node) {
  const int32_t old = -bc[s].base;
  const unsigned char* p = tail + old;

  // The bytes both rests share become a chain of single-child cells.
  while (*p != kEnd && *key == *p) {
    const unsigned char code = CodeMap[*key];
    pList[0] = code;
    pList[1] = 0;
    SetBase(s, FindBase(pList));
    SetCheck(code + bc[s].base, s);
    s = code + bc[s].base;
    ++key;
    ++p;
  }

  const unsigned char a = CodeMap[*key];
  const unsigned char b = CodeMap[*p];
  pList[0] = a < b ? a : b;
  pList[1] = a < b ? b : a;
  pList[2] = 0;
  SetBase(s, FindBase(pList));

  // The old rest first, in place; then the new rest at the end of the tail.
  InsertTail(s, p, old);
  InsertTail(s, key, tailPos);
  node.state = 6 - tailPos;
  node.value = tail + tailPos - 4;
}

void QR_DaTrie::GrowCellsFor(int32_t i) {
  // One growth suffices whenever the step is at least the spare cells;
  // the loop only keeps smaller steps inside the array.
  while (i >= bcSize) {
    const int32_t before = bcSize;
    GrowCells();
    if (bcSize <= before) break;
  }
}

void QR_DaTrie::GrowCells() {
  const int32_t n = bcSize + bcIncrement;
  TrieCell* cells = static_cast<TrieCell*>(
      std::malloc((static_cast<size_t>(n) + kSpareCells) * sizeof(TrieCell)));
  if (cells == nullptr) AllocFailed();
  std::memset(cells + n + kSpareCells - bcIncrement, 0,
              static_cast<size_t>(bcIncrement) * sizeof(TrieCell));
  std::memcpy(cells, bc,
              (static_cast<size_t>(bcSize) + kSpareCells) * sizeof(TrieCell));
  std::free(bc);
  bc = cells;
  bcSize = n;
}

void QR_DaTrie::GrowTail() {
  const int32_t n = tailSize + tailIncrement;
  unsigned char* bytes = static_cast<unsigned char*>(
      std::malloc(static_cast<size_t>(n) + kSpareTail));
  if (bytes == nullptr) AllocFailed();
  std::memcpy(bytes, tail, static_cast<size_t>(tailSize) + kSpareTail);
  std::free(tail);
  tail = bytes;
  tailSize = n;
}

void QR_DaTrie::AllocFailed() {
  std::fputs("memory alloc failed\n", stderr);
  Clear();
  std::exit(1);
}

}  // namespace Quorel
