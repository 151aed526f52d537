// The records that dictionary lookups answer in. Index values are positions
// in the record arrays and pools of the knowledge object; -1 means none.
// Each record is plain data with the initial values a fresh search expects,
// and is copied by value into results.
#ifndef QRLSL_TRIE_LOOKUP_RECORDS_H_
#define QRLSL_TRIE_LOOKUP_RECORDS_H_

#include <cstdint>

namespace Quorel {

// A word of the main dictionary. 24 bytes, stored as such in the compiled file.
struct MainTrieInfo {
  uint32_t bits = 0;     // union of the POS masks of the word's tags
  int32_t nnbInfo = -1;  // main text pool offsets of the extra texts
  int32_t nnpInfo = -1;
  int32_t nnuInfo = -1;
  int32_t nuInfo = -1;
  uint32_t marks = 0;    // bit 0: the entry carried the "@" mark
};

// A josa/eomi surface form: indexes into the jeInfo pool per class of ending.
// 28 bytes, stored as such in the compiled file.
struct JosaEomiTrieInfo {
  uint32_t bits = 0;  // union of the POS masks of all readings
  int32_t josaInfo = -1;
  int32_t eomiInfo9 = -1;
  int32_t eomiInfo5 = -1;
  int32_t eomiInfo19 = -1;
  int32_t eomiInfo17 = -1;
  int32_t eomiInfo0 = -1;
};

// One hit of the main dictionary; the texts point into the knowledge's pool
// and stay valid while the knowledge is loaded.
struct SearchInfo {
  int32_t start = 0;  // first byte of the hit in the searched text
  int32_t end = -1;   // byte behind the hit
  MainTrieInfo info;
  const char* nnbText = nullptr;
  const char* nnpText = nullptr;
  const char* nnuText = nullptr;
  const char* nuText = nullptr;
};

// Longest hit of a josa/eomi search.
struct SearchJEInfo {
  int32_t length = -1;   // bytes of the longest hit, 0 when none
  int32_t reserved = 0;  // free for the caller; no search writes it
  JosaEomiTrieInfo jeti;
};

// One reading of a josa or eomi, built on demand from the jeInfo pool.
struct jeInfo {
  const char* text = nullptr;  // the morpheme's form; null: no reading
  uint32_t bits = 0;
  uint16_t attach = 0;  // mask tested by CheckAttach
  uint8_t type = 0;     // class of ending: 0, 5, 9, 17 or 19
};

// Counts of a piece as first, middle and last part of a word.
struct PosInfoRec {
  uint32_t counts[3] = {0, 0, 0};
};

}  // namespace Quorel

#endif  // QRLSL_TRIE_LOOKUP_RECORDS_H_
