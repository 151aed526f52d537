// SynonymContainer: groups of synonyms, one group a line of a CP949 text
// file or of its scrambled form, looked up by word. Each word of a group is
// an EntryNInfo in a flat vector, the group's words in a row after its head;
// the trie maps a word to its first entry. A word that stands in several
// groups is an overlap and has a list of the heads of its groups.
#ifndef QRLSL_LEXICAL_SYNONYMS_H_
#define QRLSL_LEXICAL_SYNONYMS_H_

#include <cstdint>
#include <string>
#include <vector>

#include "qrlsl/qr_synonym.h"
#include "text/strings.h"
#include "trie/qr_datrie.h"

namespace Quorel {

// One word of a group. flags: bit 0 head (first word of its group); bit 1
// overlap, bits 12 up then index an overlap list; bit 2 written with "<";
// bit 3 written with ">"; bits 4 to 11 on a head the group size; bits 12 up
// without overlap, on a word that isn't the head, the head's entry index.
struct EntryNInfo {
  StringEx text;  // word delimiters shown as blanks
  uint32_t flags = 0;
};

constexpr uint32_t kHeadBit = 1u << 0;
constexpr uint32_t kOverlapBit = 1u << 1;
constexpr uint32_t kLessMarkBit = 1u << 2;
constexpr uint32_t kGreaterMarkBit = 1u << 3;
constexpr int kGroupSizeShift = 4;
constexpr uint32_t kGroupSizeMask = 0xFFu;
constexpr int kLinkShift = 12;

inline uint32_t GroupSizeOf(uint32_t flags) {
  return (flags >> kGroupSizeShift) & kGroupSizeMask;
}
inline uint32_t LinkOf(uint32_t flags) { return flags >> kLinkShift; }

class SynonymContainer : public QR_SynonymContainer {
 public:
  SynonymContainer();
  ~SynonymContainer() override = default;

  // Reads path/fileName under the id "SYN", as text or as scrambled records.
  // 1 after reading; 0 when the file can't be opened (the old groups stay);
  // -1 when the two delimiters are equal (checked before opening) or the trie
  // can't be created. A new file replaces the groups of an earlier Load.
  int Load(const char* path, const char* fileName, bool scrambled) override;
  // Every character of `delimiters` separates words in the input; the first
  // one becomes the delimiter that the rest are normalised to. Null or ""
  // changes nothing.
  void SetSynonymDelimiter(const char* delimiters) override;
  // The same for the characters that stand for a blank inside a word.
  void SetWordDelimiter(const char* delimiters) override;
  // Binds `result` to this container and fills it with the groups of `word`,
  // which ends at its NUL or at ";". 1 when found, else 0.
  int Search(const char* word, QR_Synonym* result) override;
  // Writes the scrambled form of the text file `path` beside it: the name up
  // to its last "." plus "bin" (a name without "." gets ".bin"). -1 when the
  // source or the target can't be opened, or they are the same file; else 0.
  int ScrambleFile(const char* path) override;

  // Read access for Synonym results.
  size_t EntryCount() const { return entries.size(); }
  const EntryNInfo& Entry(size_t index) const { return entries[index]; }
  size_t OverlapCount() const { return overlaps.size(); }
  const std::vector<uint32_t>& Overlap(size_t index) const {
    return overlaps[index];
  }

 private:
  // Splits one line into its words and adds them as one group.
  void AddLine(std::string& line);
  // Replaces each run of delimiter-set characters by the one delimiter.
  void NormaliseDelimiters(std::string& line) const;
  // Adds one word (marks already taken off) to the group with head `head`.
  bool AddEntry(const std::string& word, uint32_t flags, uint32_t head);

  QR_DaTrie trie;
  char synonymDelimiter;
  char wordDelimiter;
  std::string synonymSet;
  std::string wordSet;
  std::vector<EntryNInfo> entries;               // entry 0 is blank
  std::vector<std::vector<uint32_t>> overlaps;   // heads of each overlap
};

}  // namespace Quorel

#endif  // QRLSL_LEXICAL_SYNONYMS_H_
