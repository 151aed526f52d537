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

#include <cstdint>

namespace Quorel {

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
  int Walk(unsigned char byte, TrieNode& node) const;

  // The 32-bit value at node.value. REQUIRES: node.value not null.
  static int32_t GetValue(const TrieNode& node);
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
};

}  // namespace Quorel

#endif  // QRLSL_TRIE_QR_DATRIE_H_
