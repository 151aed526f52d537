// The three built-in lists of predicate suffixes: AV (auxiliary predicates),
// XSD (predicative derivation suffixes) and EP (prefinal endings). Each holds
// its table's surfaces byte-reversed in a trie, so that Find walks a text from
// its end and reports which entries end it and where they start.
#ifndef QRLSL_KNOWLEDGE_SUFFIX_LISTS_H_
#define QRLSL_KNOWLEDGE_SUFFIX_LISTS_H_

#include <cstdint>

#include "text/strings.h"
#include "trie/qr_datrie.h"

namespace Quorel {

// A row of a suffix table: the morpheme's base form, its surface in the text
// (the key) and extra POS bits.
struct SuffixEntry {
  const char* base;
  const char* surface;
  uint64_t mark;
};

// Hits of a suffix search: start position and row number of each, as bytes
// (a position above 255 wraps).
class PositionList {
 public:
  static constexpr uint32_t kMinCapacity = 102400;

  PositionList();
  ~PositionList();
  PositionList(const PositionList&) = delete;
  PositionList& operator=(const PositionList&) = delete;

  // Stores one hit, doubling both arrays when count + 1 reaches capacity.
  void Add(unsigned char position, unsigned char value);
  // count = 0 and the arrays zeroed; with resetCapacity back to kMinCapacity.
  void Clear(bool resetCapacity = false);

  uint32_t count = 0;
  unsigned char* positions = nullptr;
  unsigned char* values = nullptr;
  uint32_t capacity = 0;

 private:
  void Allocate(uint32_t newCapacity);
};

class SuffixList {
 public:
  enum Kind { kAV, kXSD, kEP };

  SuffixList(const SuffixList&) = delete;
  SuffixList& operator=(const SuffixList&) = delete;
  virtual ~SuffixList() {}

  // Row `row` of the table (row 0 is blank); null when out of range.
  const SuffixEntry* GetEntry(int32_t row) const;
  int32_t RowCount() const { return rowCount; }
  // Fills `results` with the entries that end text[0..len) (len 0: up to the
  // NUL), nearest the end first. 1 when the search ran, 0 when not (text
  // under 2 bytes, no EP hit, or for AV an unknown syllable before a hit).
  int Find(const char* text, PositionList& results, int32_t len = 0) const;
  int Find(const spr::stdstyle::string<char>& text, PositionList& results,
           int32_t len = 0) const;
  // The same into the list's own PositionList; null when the result is 0.
  // Not for concurrent use.
  PositionList* Find(const char* text, int32_t len = 0);
  PositionList* Find(const spr::stdstyle::string<char>& text,
                     int32_t len = 0);

 protected:
  SuffixList(Kind kind, const SuffixEntry* table, int32_t rowCount);

 private:
  // The common search; checkSyllable enables the AV early return.
  int Search(const char* text, int32_t len, PositionList& results,
             bool checkSyllable) const;

  QR_DaTrie trie;
  PositionList ownList;
  Kind kind;
  const SuffixEntry* table;
  int32_t rowCount;  // rows including the blank row 0
};

class AVList : public SuffixList {
 public:
  AVList();
};

class XSDList : public SuffixList {
 public:
  XSDList();
};

class EPList : public SuffixList {
 public:
  EPList();
};

}  // namespace Quorel

#endif  // QRLSL_KNOWLEDGE_SUFFIX_LISTS_H_
