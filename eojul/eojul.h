// Eojul: one token and its candidate analyses, stored in six flat arrays.
//
//   text        surface at offset 0 (NUL, then one spare byte), then the
//               NUL-terminated lexicon strings
//   morphemes   entry 0 the type bits, entry 1 the surface offset, then one
//               (POS mask, text offset) pair per morpheme of all candidates
//   candidates  entry 0 the candidate count; candidate k has its morpheme
//               count at 2k+1 and its first morpheme number at 2k+2
//   scores      candidate k at k+1
//   startOffsets, endOffsets  per-morpheme offsets of the offset pass
//
// An Eojul of up to 256 text bytes lives in its inline areas; beyond that all
// arrays double together (Grow). Initialize(true) returns to the inline areas
// but keeps the largest heap blocks it let go of, and the next Grow takes them
// again, so a warm Eojul no longer allocates. Candidates are appended and never moved;
// SelectTop narrows a view through `order`. A candidate closed without
// morphemes leaves the count one too high (a phantom with no morphemes);
// readers and analyzers tolerate it. One caller at a time.
#ifndef QRLSL_EOJUL_EOJUL_H_
#define QRLSL_EOJUL_EOJUL_H_

#include <cstdint>
#include <ostream>
#include <vector>

#include "qrlsl/qr_eojul.h"
#include "text/strings.h"

namespace Quorel {

// Type bits of a token, set by the scanner and tested by the analyzers.
namespace EojulType {
constexpr uint32_t kDigit = 0x0001;
constexpr uint32_t kLatin = 0x0002;
constexpr uint32_t kDoubleByte = 0x0004;
constexpr uint32_t kSymbol = 0x0008;        // one punctuation character
constexpr uint32_t kOtherChar = 0x0010;     // one double-byte non-symbol
constexpr uint32_t kHalfChar = 0x0020;      // ended inside a double-byte char
constexpr uint32_t kClosed = 0x0040;        // closed by a quote or bracket
constexpr uint32_t kSubToken = 0x0080;      // remainder re-analysed
constexpr uint32_t kLongFirst = 0x0100;     // with kSubToken
constexpr uint32_t kInnerSymbol = 0x0800;
constexpr uint32_t kNumberJoin = 0x4000;
constexpr uint32_t kTooLong = 0x8000;       // over 256 bytes, not analysed
}  // namespace EojulType

class Eojul final : public QR_Eojul {
 public:
  static constexpr uint32_t kInlineCapacity = 256;

  explicit Eojul(unsigned size = kInlineCapacity);
  // Copies the used part; the copy shows all candidates (not narrowed) and
  // has keepCase and numberPunctuation off.
  Eojul(const Eojul& other);
  // The same as the copy, but takes other's heap blocks instead of
  // allocating; other is left cleared.
  Eojul(Eojul&& other) noexcept;
  Eojul& operator=(const Eojul&) = delete;
  ~Eojul() override;

  // QR_Eojul
  void Initialize(bool releaseMemory) override {
    textUsed = 0;
    morphemeUsed = 0;
    candidatePos = 1;
    scorePos = 1;
    offset = -1;
    offsetCount = 0;
    if (releaseMemory && capacity > kInlineCapacity) ReleaseArrays();
    text[0] = 0;
    morphemes[0] = morphemes[1] = 0;
    candidates[0] = candidates[1] = candidates[2] = 0;
    scores[0] = scores[1] = 0.0;
    startOffsets[0] = endOffsets[0] = 0;
    sorted = false;
    order.clear();
  }
  void SetString(const char* text) override;
  const char* GetString() override { return text; }
  int GetListSize() override {
    return static_cast<int>(sorted ? order[0] : StoredCount());
  }
  int GetCount(int candidate) override {
    if (candidate < 0 || !MapCandidate(candidate)) return 0;
    return static_cast<int>(MorphemeCountAt(static_cast<uint32_t>(candidate)));
  }
  const char* GetLexicon(int candidate, int morpheme) override {
    uint32_t number;
    return Locate(candidate, morpheme, number) ? LexiconOf(number) : nullptr;
  }
  unsigned int GetPOS(int candidate, int morpheme) override {
    uint32_t number;
    return Locate(candidate, morpheme, number) ? PosOf(number) : 0xFFFFFFFFu;
  }
  const char* GetStrPOS(int candidate, int morpheme) override;
  bool IsIndexWord(int candidate, int morpheme) override;
  double GetScore(int candidate) override;
  int BestCandidate() override;
  int GetStartOffset(int candidate, int morpheme) override;
  int GetEndOffset(int candidate, int morpheme) override;

  // Assignment between passes: grows to the other's capacity (never
  // shrinks) and copies the used parts and the offset; leaves the view,
  // the index mask and the minima as they are.
  void CopyFrom(const Eojul& other);
  // Becomes what the copy constructor makes of other, in this object's
  // storage: a recycled Eojul allocates only beyond the blocks it holds.
  void BecomeCopyOf(const Eojul& other);

  // For analysing in place what would otherwise be analysed elsewhere and
  // copied: TakeSettingsOf gives this eojul the index mask, minima and case
  // and punctuation switches of `other` (what analysis reads besides the
  // text); ShowAsCopy then leaves it as the copy constructor would have made
  // it of the result: all candidates in view, both switches off, the used
  // ends zero-terminated.
  void TakeSettingsOf(const Eojul& other) {
    CopyAttributes(other);
    keepCase = other.keepCase;
    numberPunctuation = other.numberPunctuation;
  }
  void ShowAsCopy();

  // A flat record of the analysis, for the analyzer's memo of tokens seen
  // before. PackedSize is its size in bytes, 0 when it cannot be packed (it
  // exceeds the inline areas, or has a narrowed view or recorded offsets).
  // Pack writes PackedSize() bytes; Unpack makes an eojul just given the
  // same surface by SetText what this one is now, for every reader.
  uint32_t PackedSize() const;
  void Pack(unsigned char* out) const;
  void Unpack(const unsigned char* in);
  // The surface inside a packed record.
  static const char* PackedSurface(const unsigned char* record);

  // Initialize(true), then stores the surface and its type bits.
  void SetText(const char* surface, unsigned type);
  // The same for a surface of `length` bytes with no NUL among them:
  // nothing is measured.
  void SetText(const char* surface, uint32_t length, unsigned type);
  unsigned GetType() const { return morphemes[0]; }
  int GetOffset() const { return offset; }
  void SetOffset(int value) { offset = value; }

  // Filling: BeginCandidate, AddMorpheme..., [SetCandidateScore],
  // EndCandidate. REQUIRES: SetText first.
  void BeginCandidate() {
    if (candidatePos + 1 >= candidateSlots || scorePos >= candidateSlots) {
      EnsureCandidateRoom();
    }
    candidates[0] += 1;
    uint32_t first = 0;
    if (candidatePos != 1) {
      first = candidates[candidatePos - 1] + candidates[candidatePos - 2];
    }
    candidates[candidatePos] = 0;
    candidates[candidatePos + 1] = first;
    scores[scorePos] = 0.0;
  }
  void AddMorpheme(const char* lexicon, unsigned pos);
  // The same for a lexicon of `length` bytes with no NUL among them (a
  // StringEx's text): nothing is measured. It may lie in our own storage.
  // Inline while there is room for it; AddMorphemeGrowing otherwise.
  void AddMorpheme(const char* lexicon, uint32_t length, unsigned pos) {
    const uint32_t at = textUsed;
    if (lexicon == nullptr || at + length + 1 >= capacity ||
        morphemeUsed < 2 || morphemeUsed + 2 >= capacity / 8) {
      AddMorphemeGrowing(lexicon, length, pos);
      return;
    }
    // No Grow happens, so a lexicon from our own pool stays where it is.
    spr::stdstyle::MoveBytes(text + at, lexicon, length);
    text[at + length] = 0;
    morphemes[morphemeUsed] = pos;
    morphemes[morphemeUsed + 1] = at;
    morphemeUsed += 2;
    textUsed = at + length + 1;
    candidates[candidatePos] += 1;
  }
  // A morpheme whose lexicon is the surface itself (no copy).
  void AddSurfaceMorpheme(unsigned pos);
  void EndCandidate() {
    if (candidates[candidatePos] == 0) return;
    candidatePos += 2;
    scorePos += 1;
    if (candidatePos + 1 >= candidateSlots || scorePos >= candidateSlots) {
      EnsureCandidateRoom();
    }
    candidates[candidatePos] = 0;
    candidates[candidatePos + 1] = 0;
    scores[scorePos] = 0.0;
  }
  void SetCandidateScore(double score) { scores[scorePos] = score; }
  // Score of stored candidate `candidate` (0-based), ignoring the view.
  void SetScoreAt(unsigned candidate, double score);

  // Appends every morpheme of every candidate of `other` to the open
  // candidate, summing the positive scores.
  void AppendMorphemes(const Eojul& other);
  // One candidate per candidate of `left`, followed by right's first.
  void JoinAfter(const Eojul& left, const Eojul& right);
  // One candidate per candidate of `right`, preceded by left's first.
  void JoinBefore(const Eojul& left, const Eojul& right);

  // Narrows the view to the n best (0: all, in stored order). Returns the
  // number visible. Among equal scores later candidates come first.
  int SelectTop(unsigned char n);

  void AddMorphemeOffsets(short start, unsigned short end);
  // Forgets the recorded offsets, before the offset pass records them anew.
  void ClearOffsets() { offsetCount = 0; }
  // The stored (0-based) number of view candidate `candidate`; -1 outside.
  int StoredCandidate(int candidate) const;
  // 0: the surface; m >= 1: the text of morpheme pair m; null outside.
  const char* GetMorphemeAt(int m) const;

  // Debug and file output; compact is one line per token.
  void Print(std::ostream& stream, bool compact);

  // Raw reads of stored candidate k (0-based, no view); 0 outside.
  // Entries at or before candidatePos were written for this token; later
  // ones (phantom candidates) read as empty.
  uint32_t StoredCount() const { return candidates[0]; }
  uint32_t MorphemeCountAt(uint32_t k) const {
    uint32_t at = 2 * k + 1;
    return at <= candidatePos ? candidates[at] : 0;
  }
  uint32_t FirstMorphemeAt(uint32_t k) const {
    uint32_t at = 2 * k + 2;
    return at <= candidatePos + 1 ? candidates[at] : 0;
  }
  double ScoreAt(uint32_t k) const {
    return k + 1 <= scorePos ? scores[k + 1] : 0.0;
  }
  const char* LexiconOf(uint32_t morpheme) const {
    uint32_t at = 2 * morpheme + 3;
    if (at >= morphemeUsed) return "";
    uint32_t textOffset = morphemes[at];
    return textOffset < textUsed ? text + textOffset : "";
  }
  uint32_t PosOf(uint32_t morpheme) const {
    uint32_t at = 2 * morpheme + 2;
    return at < morphemeUsed ? morphemes[at] : 0;
  }

  uint32_t indexMask;
  uint32_t minForeignLength = 0;
  uint32_t minNumberLength = 0;
  bool keepCase = false;
  bool numberPunctuation = false;

 private:
  // The arrays pointed at the inline areas, nothing else set.
  struct InlineStorage {};
  explicit Eojul(InlineStorage);

  // Six heap arrays made for a capacity of `size` (0: none).
  struct Blocks {
    uint32_t size = 0;
    char* text = nullptr;
    uint32_t* morphemes = nullptr;
    uint32_t* candidates = nullptr;
    double* scores = nullptr;
    int16_t* starts = nullptr;
    int16_t* ends = nullptr;
  };
  // Zeroed new blocks; blocks freed (size 0 afterwards).
  static Blocks NewBlocks(uint32_t size);
  static void DeleteBlocks(Blocks& blocks);
  // The heap arrays in use (size 0 when inline).
  Blocks InUse() const;

  void AllocateArrays(uint32_t newCapacity, bool copyOld);
  // Lets go of the heap arrays in use (kept as spare when the larger), back
  // to the inline areas.
  void ReleaseArrays();
  // Points the six arrays at blocks with `newCapacity`, or at the inline
  // areas.
  void UseBlocks(const Blocks& blocks, uint32_t newCapacity);
  void UseInline();
  // The index mask and minima that a copy carries over.
  void CopyAttributes(const Eojul& other);
  void Grow();
  void EnsureTextRoom(uint32_t length);
  void EnsureMorphemeRoom();
  void EnsureCandidateRoom();
  // Maps a view candidate number to a stored one; false when out of view.
  bool MapCandidate(int& candidate) const {
    if (!sorted) return true;
    size_t at = static_cast<size_t>(candidate) + 1;
    if (at >= order.size() || order[at] == 0) return false;
    candidate = static_cast<int>(order[at]) - 1;
    return true;
  }
  // Morpheme number of (candidate, morpheme) under the readers' rules.
  bool Locate(int candidate, int morpheme, uint32_t& number) const {
    if (candidate < 0 || morpheme < 0) return false;
    if (static_cast<int64_t>(candidate) > static_cast<int64_t>(StoredCount()) - 1) {
      return false;
    }
    if (!MapCandidate(candidate)) return false;
    uint32_t k = static_cast<uint32_t>(candidate);
    // A morpheme equal to the count still reads: it is the next one stored.
    if (static_cast<uint32_t>(morpheme) > MorphemeCountAt(k)) return false;
    number = FirstMorphemeAt(k) + static_cast<uint32_t>(morpheme);
    return true;
  }
  // AddMorpheme when the text or morpheme area must grow (or a null
  // lexicon, or no SetText yet).
  void AddMorphemeGrowing(const char* lexicon, uint32_t length, unsigned pos);
  void AddCandidateFrom(const Eojul& source, uint32_t k);
  // The used counts, offset and end marks of other, whose used parts are
  // already in our arrays.
  void AdoptCounts(const Eojul& other);
  // Zeroes the entries just past the used parts, which readers take as ends.
  void TerminateUsed();
  void AddSurfaceOf(const Eojul& source, unsigned pos);

  char inlineText[kInlineCapacity];
  uint32_t inlineMorphemes[kInlineCapacity / 8];
  uint32_t inlineCandidates[kInlineCapacity / 12];
  double inlineScores[kInlineCapacity / 12];
  int16_t inlineStartOffsets[kInlineCapacity / 8];
  int16_t inlineEndOffsets[kInlineCapacity / 8];

  char* text;
  uint32_t* morphemes;
  uint32_t* candidates;
  double* scores;
  std::vector<uint32_t> order;
  uint32_t capacity;
  uint32_t candidateSlots;  // entries of candidates and scores: capacity / 12
  uint32_t textUsed;
  uint32_t morphemeUsed;
  uint32_t candidatePos;
  uint32_t scorePos;
  bool sorted;
  int32_t offset;
  int16_t* startOffsets;
  int16_t* endOffsets;
  uint32_t offsetCount;
  // Size of the heap arrays in use, which may exceed capacity (0: inline).
  uint32_t heapCapacity = 0;
  Blocks spare;  // heap arrays kept for reuse
};

}  // namespace Quorel

#endif  // QRLSL_EOJUL_EOJUL_H_
