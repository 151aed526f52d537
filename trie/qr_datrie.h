// QR_DaTrie: the double-array trie with tail that stores every key-to-value
// map of the system (dictionaries, suffix lists, stop words, rule indexes).
//
// Keys are byte strings of at most 128 bytes (longer keys are cut); values
// are 32-bit and live in the tail. The cell and tail arrays are saved to and
// loaded from the compiled knowledge file as they stand, so the order in
// which cells are taken, freed and relocated is part of the file format:
// the same key sequence always gives the same arrays.
//
// Built by one thread with Insert, then read-only: Walk changes nothing but
// the caller's TrieNode, so any number of readers may share a trie.
#ifndef QRLSL_TRIE_QR_DATRIE_H_
#define QRLSL_TRIE_QR_DATRIE_H_

#include <climits>
#include <cstdint>
#include <cstring>

namespace Quorel {

// Ends every key and every tail rest.
constexpr unsigned char kTrieEnd = ';';
// CodeMap[kTrieEnd], the code of the terminator transition, as a constant of
// the walks.
constexpr unsigned char kTrieEndCode = 0x4F;

// One cell of the double array. In use: check > 0 is the parent state;
// base > 0 the offset of the children, base < 0 a leaf whose key rest starts
// at tail position -base. On the free list: base 0, check -(next free cell).
struct TrieCell {
  int32_t base;
  int32_t check;
};

// Walking cursor. state > 0 is a cell; state <= 0 is minus the tail position
// being matched. value points at the 4 value bytes when the bytes walked so
// far form a whole key, else null.
struct TrieNode {
  int32_t state = 1;
  unsigned char* value = nullptr;
  uint8_t nativeOrder = 1;  // 1: value bytes in machine order

  void Reset() {
    state = 1;
    value = nullptr;
  }
};

// Key byte to transition code; a fixed permutation, constant of the format.
extern const unsigned char CodeMap[256];

class QR_DaTrie {
 public:
  QR_DaTrie();
  virtual ~QR_DaTrie();  // calls Clear

  QR_DaTrie(const QR_DaTrie&) = delete;
  QR_DaTrie& operator=(const QR_DaTrie&) = delete;

  // Allocates an empty trie with these capacities and growth steps.
  // Returns 0.
  int Create(int32_t bcSize, int32_t tailSize, int32_t bcIncrement,
             int32_t tailIncrement);
  // Frees both arrays; afterwards Insert and Walk return 0.
  void Clear();
  // Finds or adds `key` (NUL-terminated) and points `node.value` at its
  // value bytes; a new key's value is 0. Returns 0 only when not created.
  int Insert(const char* key, TrieNode& node);
  // Advances `node` over one key byte. 1 if the transition exists, else 0.
  // Clears node.value first and sets it when a whole key has been walked.
  // Inline: every lookup of the analyzer runs through this loop body.
  inline int Walk(unsigned char byte, TrieNode& node) const;
  // Walks the bytes of key up to len or a NUL before them as Walk would,
  // but looks for a value only behind the last one. 1 when every byte had
  // its transition, else 0.
  inline int WalkBytes(const unsigned char* key, int32_t len,
                       TrieNode& node) const;
  // The value bytes of the whole key key[0..len), the key ending early at a
  // NUL; null when it is no key, is empty or the trie was not created.
  // `length` gets the bytes of the key (up to len or the NUL) on a hit.
  // The answer of Walk over every byte, with the arrays held in locals.
  inline unsigned char* ValueOf(const unsigned char* key, int32_t len,
                                int32_t& length) const;
  // Walks key[i] for i = begin, begin + step, ... while i < end (step 1) or
  // i > end (step -1), as Walk from the root would, stopping at the first
  // byte without a transition and, with stopAtNul, at a NUL. After each byte
  // behind which a whole key ends it calls onValue(i, value bytes); a false
  // answer ends the walk.
  template <int step, bool stopAtNul, class OnValue>
  inline void WalkPrefixes(const unsigned char* key, int32_t begin,
                           int32_t end, OnValue&& onValue) const;

  // The read indexes, built on demand once the trie is filled; Create,
  // Clear and Insert drop them, and whoever writes bc or tail directly must
  // build them again. Lookups answer the same with or without them.
  // - The root-pair index: for a first key byte of 0x80 or more (the lead
  //   byte of a CP949 character) and any second byte, the cursor state after
  //   both, so that a walk from the root takes its first two bytes in one
  //   step.
  // - The key-end bits: one bit per cell, set when a key ends at that state
  //   (it has a terminator transition to a bare record), so that a walk
  //   learns it without reading a second, distant cell.
  void BuildReadIndexes();
  void DropReadIndexes();  // walks go byte by byte again
  bool HasReadIndexes() const { return rootPairs != nullptr && endBits != nullptr; }
  // Starts loading the root-pair entry of a walk about to begin with the
  // two bytes at key.
  void PrefetchRootPair(const char* key) const {
#if defined(__GNUC__)
    const auto c1 = static_cast<unsigned char>(key[0]);
    const auto c2 = static_cast<unsigned char>(key[1]);
    if (rootPairs != nullptr && c1 >= kPairFirst) {
      __builtin_prefetch(rootPairs + ((c1 - kPairFirst) << 8 | c2));
    }
#else
    (void)key;
#endif
  }
  // From the root, walks c1 and then c2 as two Walk calls would: 1 when both
  // have their transition (node as after the second Walk), 0 when one has
  // none and no key ends after c1 (node unusable). -1 when the index can't
  // answer (none built, c1 below 0x80, or c1 reaches a leaf or ends a key):
  // then node is untouched and the bytes are walked one by one.
  // REQUIRES: node is at the root.
  inline int WalkRootPair(unsigned char c1, unsigned char c2,
                          TrieNode& node) const;

  // The 32-bit value at node.value. REQUIRES: node.value not null.
  static int32_t GetValue(const TrieNode& node) {
    int32_t value;
    if (node.nativeOrder != 0) {
      std::memcpy(&value, node.value, sizeof value);
    } else {
      unsigned char bytes[4] = {node.value[3], node.value[2], node.value[1],
                                node.value[0]};
      std::memcpy(&value, bytes, sizeof value);
    }
    return value;
  }
  static void SetValue(TrieNode& node, int32_t value);

  // The arrays and positions, exposed to the compiled-file reader and writer.
  TrieCell* bc = nullptr;   // bcSize + 256 cells
  int32_t bcSize = 0;
  int32_t bcIncrement = 0;
  int32_t bcPos = 0;        // highest cell in use
  int32_t bcEmptyStart = 0; // head of the free-cell list
  int32_t bcEmptyEnd = 0;   // last cell of the free-cell list
  unsigned char* tail = nullptr;  // tailSize + 128 bytes
  int32_t tailSize = 0;
  int32_t tailIncrement = 0;
  int32_t tailPos = 0;      // first unwritten tail position
  // Both arrays come from the C allocator (Create, GrowCells, GrowTail) and
  // are released by Clear; a reader fills them after Create, never swaps them.

  // Entries of the root-pair index: 0 is a pair without a path, and this
  // marks a pair to walk byte by byte; anything else is a cursor state.
  static constexpr int32_t kPairByBytes = INT32_MIN;

 private:
  // Longest key kept; longer keys are cut to this many bytes.
  static constexpr int kMaxKey = 128;
  // The root-pair index covers first bytes 0x80..0xFF, 256 entries each.
  static constexpr int kPairFirst = 0x80;
  static constexpr int kPairCount = 128 * 256;

  // The value bytes of a key that ends at cursor state `state` (a cell
  // reached by a transition, or a position in a tail), or null: what Walk
  // sets node.value to on arriving there. REQUIRES: bc not null.
  inline unsigned char* ValueAt(int32_t state) const;
  // Whether a key ends at cell `state` (>= 1, with base >= 0), by the
  // key-end bits when there are any, else by its terminator transition.
  inline bool KeyEndsAt(const TrieCell* cells, int32_t state) const;

  // Sets endBits from the cells (left null when memory runs out).
  void BuildEndBits();
  // Position of the tail's ";" when the rest at leaf s equals key up to its
  // ";", else 0.
  int32_t CompareTail(int32_t s, const unsigned char* key) const;
  // Adds the transition for *key below s, moving s or the owner of the
  // wanted cell out of the way, then stores the key's rest.
  void ResolveConflict(int32_t s, const unsigned char* key, TrieNode& node);
  // Codes 1..255 of the children of state, ascending, ending with 0.
  int ListChildren(int32_t state, unsigned char* list) const;
  // Moves the children of target (plus newByte's code when not 0) to a new
  // base; returns where current lives afterwards.
  int32_t Relocate(int32_t current, int32_t target, unsigned char newByte,
                   unsigned char* list, int n);
  // First-fit base for the codes of list (ascending, ending with 0).
  int32_t FindBase(const unsigned char* list) const;
  void SetBase(int32_t i, int32_t value);
  // Writes check of cell i, unlinking it from the free list first; value 0
  // puts the cell back on the list in index order.
  void SetCheck(int32_t i, int32_t value);
  // bcPos moves up to n; the cells in between join the free list.
  void ExtendUsed(int32_t n);
  // Makes the leaf below s for *key and stores the rest of key at tail
  // position pos (pos below tailPos rewrites a record in place).
  void InsertTail(int32_t s, const unsigned char* key, int32_t pos);
  // Leaf s holds a rest that differs from key: branches where they part.
  void SplitTail(int32_t s, const unsigned char* key, TrieNode& node);
  // Grows cells until index i fits (once for any step of 256 or more).
  void GrowCellsFor(int32_t i);
  void GrowCells();
  void GrowTail();
  // Reports a failed allocation, frees everything and ends the process.
  [[noreturn]] void AllocFailed();

  // Scratch buffers of Insert: the key with its ";", child code lists.
  unsigned char pKeyBuff[kMaxKey + 2] = {};
  unsigned char listIndex[256] = {};
  unsigned char listUsedIndex[256] = {};
  unsigned char pList[3] = {};
  int32_t* rootPairs = nullptr;  // kPairCount entries, or null
  uint64_t* endBits = nullptr;    // bit s of word s / 64: a key ends at s
};

inline int QR_DaTrie::Walk(unsigned char byte, TrieNode& node) const {
  node.value = nullptr;
  if (bc == nullptr) return 0;

  if (node.state < 1) {
    // Inside a tail rest: bytes are matched one by one.
    unsigned char* p = tail - node.state;
    if (*p != byte) return 0;
    node.state -= 1;
    if (p[1] == kTrieEnd) node.value = p + 2;
    return 1;
  }

  const int32_t t = CodeMap[byte] + bc[node.state].base;
  if (t > bcPos || bc[t].check != node.state) return 0;
  const int32_t base = bc[t].base;
  if (base >= 0) {
    node.state = t;
    if (KeyEndsAt(bc, t)) node.value = tail - bc[kTrieEndCode + base].base;
  } else {
    node.state = base;
    unsigned char* p = tail - base;
    if (*p == kTrieEnd) node.value = p + 1;
  }
  return 1;
}

inline int QR_DaTrie::WalkBytes(const unsigned char* key, int32_t len,
                                TrieNode& node) const {
  if (len <= 0 || key[0] == 0) return 1;
  node.value = nullptr;
  if (bc == nullptr) return 0;
  int32_t i = 0;
  for (; i + 1 < len && key[i + 1] != 0; ++i) {
    if (node.state < 1) {
      if (tail[-node.state] != key[i]) return 0;
      node.state -= 1;
      continue;
    }
    const int32_t t = CodeMap[key[i]] + bc[node.state].base;
    if (t > bcPos || bc[t].check != node.state) return 0;
    const int32_t base = bc[t].base;
    node.state = base >= 0 ? t : base;
  }
  return Walk(key[i], node);
}

inline unsigned char* QR_DaTrie::ValueAt(int32_t state) const {
  if (state < 1) {
    // In a tail: a key ends here when the rest is used up.
    unsigned char* p = tail - state;
    return *p == kTrieEnd ? p + 1 : nullptr;
  }
  return KeyEndsAt(bc, state) ? tail - bc[kTrieEndCode + bc[state].base].base
                               : nullptr;
}

inline bool QR_DaTrie::KeyEndsAt(const TrieCell* cells, int32_t state) const {
  if (endBits != nullptr) return ((endBits[state >> 6] >> (state & 63)) & 1) != 0;
  // A key that ends at a cell has a terminator transition to a bare record.
  const TrieCell& u = cells[kTrieEndCode + cells[state].base];
  return u.check == state && state >= 1 && u.base < 0;
}

inline int QR_DaTrie::WalkRootPair(unsigned char c1, unsigned char c2,
                                   TrieNode& node) const {
  if (rootPairs == nullptr || c1 < kPairFirst) return -1;
  const int32_t state = rootPairs[(c1 - kPairFirst) << 8 | c2];
  if (state == kPairByBytes) return -1;
  if (state == 0) return 0;
  node.state = state;
  node.value = ValueAt(state);
  return 1;
}

inline unsigned char* QR_DaTrie::ValueOf(const unsigned char* key,
                                         int32_t len, int32_t& length) const {
  if (len <= 0) return nullptr;
  const unsigned char c0 = key[0];
  int32_t state = 1;
  int32_t i = 0;
  // Most keys are CP949 words: their first two bytes go through the
  // root-pair index at once. An index exists only over a filled trie, so bc
  // is not null on this path.
  if (c0 >= kPairFirst && rootPairs != nullptr && len >= 2 && key[1] != 0) {
    const int32_t paired = rootPairs[(c0 - kPairFirst) << 8 | key[1]];
    if (paired == 0) return nullptr;
    if (paired != kPairByBytes) {
      state = paired;
      i = 2;
    }
  } else if (bc == nullptr || c0 == 0) {
    return nullptr;
  }
  const TrieCell* const cells = bc;
  const int32_t last = bcPos;
  for (; state >= 1 && i < len && key[i] != 0; ++i) {
    const int32_t t = CodeMap[key[i]] + cells[state].base;
    if (t > last || cells[t].check != state) return nullptr;
    const int32_t base = cells[t].base;
    state = base >= 0 ? t : base;
  }
  if (state < 1) {
    // In a tail: the rest of the key must match it up to its ";".
    unsigned char* p = tail - state;
    for (; i < len && key[i] != 0; ++i, ++p) {
      if (*p != key[i]) return nullptr;
    }
    length = i;
    return *p == kTrieEnd ? p + 1 : nullptr;
  }
  length = i;
  return ValueAt(state);
}

template <int step, bool stopAtNul, class OnValue>
inline void QR_DaTrie::WalkPrefixes(const unsigned char* key, int32_t begin,
                                    int32_t end, OnValue&& onValue) const {
  static_assert(step == 1 || step == -1, "one byte forward or backward");
  if (bc == nullptr) return;
  const TrieCell* const cells = bc;
  const int32_t last = bcPos;
  unsigned char* const rest = tail;
  int32_t state = 1;  // as TrieNode::state
  // Where the root-pair index takes two bytes at once: the first byte, if
  // the second lies inside the walk.
  int32_t pairAt = -1;
  if (step > 0 && rootPairs != nullptr && begin + 1 < end &&
      key[begin] >= kPairFirst && !(stopAtNul && key[begin + 1] == 0)) {
    pairAt = begin;
  }
  for (int32_t i = begin; step > 0 ? i < end : i > end; i += step) {
    const unsigned char c = key[i];
    if (stopAtNul && c == 0) return;
    unsigned char* value;
    if (state < 1) {
      unsigned char* p = rest - state;
      if (*p != c) return;
      state -= 1;
      if (p[1] != kTrieEnd) continue;
      value = p + 2;
    } else if (i == pairAt) {
      TrieNode node;
      const int paired = WalkRootPair(c, key[i + 1], node);
      if (paired == 0) return;
      if (paired < 0) {
        // Not indexed: the byte walk below.
        pairAt = -1;
        i -= step;
        continue;
      }
      state = node.state;
      ++i;
      if (node.value == nullptr) continue;
      value = node.value;
    } else {
      const int32_t t = CodeMap[c] + cells[state].base;
      if (t > last || cells[t].check != state) return;
      const int32_t base = cells[t].base;
      if (base >= 0) {
        state = t;
        if (!KeyEndsAt(cells, t)) continue;
        value = rest - cells[kTrieEndCode + base].base;
      } else {
        state = base;
        unsigned char* p = rest - base;
        if (*p != kTrieEnd) continue;
        value = p + 1;
      }
    }
    // One call site, so that the callback is inlined.
    if (!onValue(i, value)) return;
  }
}

}  // namespace Quorel

#endif  // QRLSL_TRIE_QR_DATRIE_H_
