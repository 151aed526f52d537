// NounDivider: divides a word that no dictionary entry covers (a run of
// nouns, often with prefixes, suffixes and a josa behind) into division
// patterns. A recursive walk over every dictionary hit in the word builds rows
// of elements; rows are weighted, scored by a table of length patterns and by
// joint and position frequencies, and the passing rows are written as one
// pattern string (format below). It also holds a debugging extractor of index
// words. One word at a time; nothing survives from one word to the next.
#ifndef QRLSL_ANALYZER_NOUN_DIVIDER_H_
#define QRLSL_ANALYZER_NOUN_DIVIDER_H_

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "analyzer/noun_divider_literals.h"
#include "text/strings.h"
#include "trie/lookup_records.h"

namespace Quorel {

class Dictionary;

constexpr int kDivRows = 20;          // rows of one word
constexpr int kDivElements = 20;      // elements of one row
constexpr int kMaxIndexWords = 400;
constexpr int kDivOutputSize = 821;   // bytes of the pattern string
constexpr int kLengthPatternCount = 89;
constexpr unsigned char kNoHit = 'S'; // hitIndex of an element no hit gave
// Hits kept per word, so that a hit index never reads as kNoHit.
constexpr int kMaxDivHits = 80;

// Letters that the pattern string carries before a length byte.
inline bool IsMarkedLetter(unsigned char c) {
  switch (c) {
    case 'B': case 'C': case 'D': case 'I': case 'J':
    case 'N': case 'P': case 'U': case 'X': case 'Y':
      return true;
    default:
      return false;
  }
}

// Every two bytes that stand side by side in the josa list, for the search
// of a two-byte text (a syllable, mostly) in it without a string search.
struct JosaPairs {
  static constexpr int kMaxRows = 32;
  unsigned char rowOf[256];        // 1 + row of a first byte, 0 for none
  uint32_t seconds[kMaxRows][8];   // per row, the second bytes as bits
  int rows;
  constexpr JosaPairs() : rowOf(), seconds(), rows(0) {
    const char* list = DividerText::kJosaList;
    for (int i = 0; list[i] != '\0' && list[i + 1] != '\0'; ++i) {
      const unsigned char a = static_cast<unsigned char>(list[i]);
      const unsigned char b = static_cast<unsigned char>(list[i + 1]);
      if (rowOf[a] == 0) rowOf[a] = static_cast<unsigned char>(++rows);
      seconds[rowOf[a] - 1][b >> 5] |= 1U << (b & 31);
    }
  }
  bool Has(const char* two) const {
    const unsigned char a = static_cast<unsigned char>(two[0]);
    const unsigned char b = static_cast<unsigned char>(two[1]);
    return rowOf[a] != 0 && ((seconds[rowOf[a] - 1][b >> 5] >> (b & 31)) & 1U) != 0;
  }
};
inline constexpr JosaPairs kJosaPairs{};
static_assert(kJosaPairs.rows <= JosaPairs::kMaxRows, "josa list too varied");

// One piece of a division. length in syllables; 0 ends the used elements,
// -1 in element 0 marks a dead row. Letters: ' ' noun, 'B' NNB, 'C' one-
// syllable conjunction, 'D' NU, 'I' NNI, 'J' josa, 'M' proper-noun piece,
// 'N' stored user-noun piece, 'P' NP, 'Q' rejected, 'U' unknown, 'X' prefix,
// 'Y' suffix.
struct DivElement {
  int32_t length;
  int32_t weight;
  char letter;
};

struct DivRow {
  DivElement elements[kDivElements];
  unsigned char hitIndex[kDivElements];  // index in hits, or kNoHit
  int32_t elementCount;
  double score;
};

// The attribute of a bound noun's record: atoi of its nnbText, 0 without
// one. A lone digit, the usual form, is read without the C library.
inline int NnbAttribute(const SearchInfo& si) {
  const char* t = si.nnbText;
  if (t == nullptr) return 0;
  if (t[0] >= '0' && t[0] <= '9' && !(t[1] >= '0' && t[1] <= '9')) {
    return t[0] - '0';
  }
  return std::atoi(t);
}

// Value of a decimal code of piece lengths (last piece in the units), as a
// base score; the table is sorted by code.
struct LengthPattern {
  int32_t code;
  double value;
};
extern const LengthPattern LengthPatterns[kLengthPatternCount];
// The table value of code, found by binary search; 0.0 when absent.
double LengthPatternValue(int32_t code);

// The units that the ASCII letters (33..126) among the length bytes at w add
// to a word's length in syllables: their number, less one when there are
// several.
int32_t AsciiUnits(const char* w, int32_t length);

// Reads the piece of a stored division text that starts at text[i] (not
// NUL, not '@') and moves i behind it: a digit 1..9 or a letter a..z (10 and
// on) is a length with letter 0; a run of n equal other bytes is that letter
// with length n. Returns false for a "0", which is no piece.
bool ReadStoredPiece(const char* text, int32_t& i, int32_t& length,
                     char& letter);

// The pattern string that Divide returns:
//   byte 0      number of groups (255 while no group stands)
//   per group   per element its length in syllables as a byte, preceded by
//               its letter when that is one of B C D I J N P U X Y
//   '@'         between groups;  '$' ends the string
// Special answers: "$" (nothing came of the word), "%" (the best row scored
// below 0), 255 '$' (no row good enough). Byte 255 reads as "not above 0".
class NounDivider {
 public:
  NounDivider();
  NounDivider(const NounDivider&) = delete;
  NounDivider& operator=(const NounDivider&) = delete;

  // The knowledge every lookup goes to; must be set before Divide.
  void Bind(Dictionary* knowledge);

  // Divides the CP949 word under the caller's mode (the context code of the
  // noun analysis: 1 best row only, 2..4 josa readings at the end, 3 stored
  // proper-noun division, 4 stored user-noun division, 10 no josa row).
  // startHits, when given, are the caller's SearchAll of every word at the
  // start of this very word (short ones included); the walk takes its first
  // hits from them, and the whole word's record is their last one when that
  // covers the word. Returns output, valid until the next call.
  const char* Divide(const char* word, int divideMode,
                     const std::vector<SearchInfo>* startHits = nullptr);
  // The same for a word whose length the caller knows: `length` bytes with
  // no NUL among them and a NUL after (ignored when word is null).
  const char* Divide(const char* word, int32_t length, int divideMode,
                     const std::vector<SearchInfo>* startHits = nullptr);
  // Score of the row that gave group k of the last output; 0.0 for none.
  double GetPatternScore(int k) const;

  // ---- One answer kept aside, for a caller that divides a word, then a
  // shorter form of it, then the word again (all within one eojul) ----
  // Keeps the last answer (word, mode, pattern, group scores) aside,
  // replacing one kept before.
  void KeepAnswer();
  // If the kept answer is the division of text under divideMode, makes it
  // the last answer again (output, word, mode, GetPatternScore), as Divide
  // would have made it, and returns true. The kept answer is used up.
  bool TakeKeptAnswer(const char* text, int divideMode);
  // Forgets the kept answer and the hits of the last word (the caller's
  // next eojul).
  void DropKeptAnswer() {
    kept.valid = false;
    hitsComplete = false;
  }

  // ---- Index words (debugging companion; reports go to the logger) ----
  // Divides word, collects the index words of a stored proper-noun division
  // and logs them. Returns indexWordCount.
  int ExtractIndexWords(const char* word);
  // Appends text (len bytes, 0: to the NUL) unless present or full. Returns
  // indexWordCount.
  int AddIndexWord(const char* text, int32_t len = 0);
  // Adds the pieces of a text division ("1".."9", "X", "Y") of word.
  void CollectIndexWords(const char* division);
  // Logs one text division of word as its pieces.
  void PrintDivision(const char* division);
  // Logs the count and each index word.
  void PrintIndexWords();

  // ---- The steps, public so that a reader (or a test) can drive them ----
  // Stores word, collects its hits (startHits as for Divide) and walks,
  // weighs, deduplicates and scores the rows. Returns the number of live rows.
  // whole, when given, is the word's own SearchMain record (blank on a miss).
  int Enumerate(const char* text,
                const std::vector<SearchInfo>* startHits = nullptr,
                const SearchInfo* whole = nullptr);
  // SearchMain's record of the first `bytes` bytes of the word, read from
  // the caller's search of every word at its start (increasing end).
  static const SearchInfo& HeadRecord(const std::vector<SearchInfo>& startHits,
                                      int32_t bytes);
  // Recursive search of divisions into rows; returns rowCount.
  int Walk(int row, int hit, int pos);
  // Sets element pos of row (one of the 20; a dead one is left alone) to
  // letter over `bytes` bytes with its default weight. A pos outside 0..19
  // kills the row.
  void AddElement(int row, int pos, int32_t bytes, char letter);
  // Writes the first alternative of a stored division as elements from pos;
  // returns the last position used.
  int WriteDivision(int row, int pos, int hit, char letter, const char* text);
  // Kills rows equal in lengths and letters to an earlier one, keeping the
  // higher weightSum (the earlier on a tie).
  void Deduplicate();
  // The table, joint and position score of a row.
  double Score(int row) const;
  // Writes the chosen rows as groups from output byte 1 (the best row only
  // in mode 1). Returns the end of what was written, -1 after a "%".
  int32_t ChooseRows();
  // Closes the output written up to `end`: rewrites and deduplicates the
  // groups and ends the string with '$'. tag: POS bits of the whole word.
  void FinishOutput(uint32_t tag, int32_t end);

  bool IsDead(int row) const { return rows[row].elements[0].length < 0; }
  void Kill(int row) { rows[row].elements[0].length = -1; }
  // True when text (len bytes) is in the josa list.
  static bool InJosaList(const char* text, int32_t len) {
    if (len == 2 && text != nullptr) return kJosaPairs.Has(text);
    return InJosaListText(text, len);
  }
  // InJosaList by a string search, for any length.
  static bool InJosaListText(const char* text, int32_t len);

  // ---- State, in this order ----
  int32_t patternCount;
  DivRow rows[kDivRows];
  double weightSum[kDivRows];
  int32_t selected[kDivRows];
  int32_t indexWordCount;
  int32_t inSpan;
  int32_t rowCount;
  int32_t lastSpan;
  int32_t splitFlag;
  int32_t wordLength;
  int32_t mode;
  StringEx indexWords[kMaxIndexWords];
  StringEx divText;
  // Groups kept by FinishOutput, each between '@'; the pattern is seenText
  // without its outer '@' (the group under test is FinishOutput's own).
  char seenText[kDivOutputSize + 2];
  int32_t seenLength;
  StringEx word;
  StringEx josaText;
  char output[kDivOutputSize];
  std::vector<SearchInfo> hits;
  Dictionary* dictionary;

 private:
  // Where the covered part of a row ends: the hit of element pos-1, or the
  // bytes its elements cover when no hit gave that element (prevHit -1).
  struct TailSpan {
    int32_t prevStart;
    int32_t prevEnd;
    int prevHit;
  };

  // An answer set aside by KeepAnswer.
  struct KeptAnswer {
    bool valid = false;
    int32_t mode = 0;
    int32_t length = 0;  // bytes of output before its first NUL
    StringEx word;
    char output[kDivOutputSize];
    double scores[kDivRows];  // GetPatternScore of each group
  };
  KeptAnswer kept;
  // True while the last answer came from TakeKeptAnswer: its group scores
  // are takenScores, not those of the rows.
  bool answerTaken = false;
  double takenScores[kDivRows];

  // Fills hits with the nouns of 3 bytes or more at each even offset of
  // word (those at offset 0 from startHits when given), at most kMaxDivHits.
  void CollectHits(const std::vector<SearchInfo>* startHits);
  // hits holds every hit of the last enumerated word (none cut), whose
  // length was hitsLength; Divide of a word that begins it may filter them.
  bool hitsComplete = false;
  int32_t hitsLength = 0;
  bool hitsOfLonger = false;  // set by Divide for its Enumerate

  // Answers of the dictionary that one Enumerate asks more than once. Each
  // is exact for the word being enumerated and is reset with it.
  static constexpr int32_t kSuffixMemoBytes = 64;
  // IsXSN of the two bytes at `at`, asked of the dictionary once per word.
  bool SuffixAt(int32_t at);
  // SuffixAt's question to the dictionary, noted in the memo.
  bool AskSuffix(int32_t at);
  int8_t suffixMemo[kSuffixMemoBytes];  // -1 not asked yet, else the answer
  const SearchInfo* wholeWord = nullptr;  // the record of the whole word
  // JosaBehind of the word's last syllable and its attach mask.
  static constexpr int8_t kNotAsked = -2;
  int8_t lastJosa = kNotAsked;
  uint16_t lastJosaAttach = 0;
  // The caller's words at the start of the word, while Enumerate runs.
  const std::vector<SearchInfo>* headHits = nullptr;
  SearchInfo pieceRecord;  // WeighElement's lookup of a piece no hit gave

  // Per-word reset of selections and counters; no row is open after it.
  void ClearRows();
  // Blanks row r and its weight sum: no elements, every hitIndex kNoHit.
  void BlankRow(int r);
  // Zeroes output up to its first NUL: between the steps it holds one string
  // and zeros behind it, which each step keeps so.
  void ClearOutput();
  // Opens a fresh (blanked) row; -1 when 20 are open.
  int NewRow();
  // Copies elements 0..count-1 and the score of row `from` into `to`.
  void CopyRow(int to, int from, int count);
  // Ends row at pos: elementCount = pos. Returns rowCount.
  int CloseRow(int row, int pos);
  // Puts the rejected element at pos and kills the row. Returns rowCount.
  int RejectRow(int row, int pos);
  // Adds hit `hit` at pos (a stored division as its pieces) and walks on.
  int TakeHit(int row, int hit, int pos);
  // The rules for the bytes behind the last hit of a row. The parts return
  // rowCount when they settled the row, -1 when the next rule is to run.
  int WalkTail(int row, int pos, const TailSpan& span);
  int TailSecondSuffix(int row, int pos);
  int TailFourBytes(int row, int pos, const TailSpan& span);
  int TailJosaTwoBytes(int row, int pos, const TailSpan& span);
  int TailJosa(int row, int pos, const TailSpan& span);
  // An unknown piece over the rest; rejected when a longer hit from the
  // previous start reaches the end of the word.
  int CloseUnknownTail(int row, int pos, const TailSpan& span);
  void PrevSpan(int row, int pos, TailSpan& span) const;
  // Letter of element i of row, 0 outside the row.
  char LetterAt(int row, int i) const;
  // True when some hit runs from `start` to `end`.
  bool HasHit(int32_t start, int32_t end) const;
  // The first hit from `start` to `end`; null when none.
  const SearchInfo* FindHit(int32_t start, int32_t end) const;
  // True when a hit after prevHit has its start and ends at the word end.
  bool LongerHitToEnd(int prevHit) const;
  // The josa reading of the len bytes at word+at behind the syllable before
  // them: 1 when it has a josa bit and may attach, 0 when not, -1 when no
  // syllable stands before. attach gets the reading's mask.
  int JosaBehind(int32_t at, int32_t len, uint16_t& attach);
  // JosaBehind asked of the dictionary.
  int AskJosaBehind(int32_t at, int32_t len, uint16_t& attach) const;
  // Weighs the elements of row k; returns the weight sum. covered gets the
  // syllables its elements cover (0 when the row died).
  double WeighRow(int k, bool uCopy[kDivRows], int32_t& covered);
  // The rules of one looked-up element j at byte offset `at` of row k.
  void WeighElement(int k, int j, int32_t at, bool uCopy[kDivRows],
                    double& sum);
  // The josa merge of an element ending in 이 or 되 with the josa behind.
  void MergeJosa(int k, int j, int32_t at);
  // Appends row k as one group and '@'; false when it doesn't fit.
  bool WriteRow(int k, int32_t& at);
  // Writes a stored division text as the output (proper or user noun).
  void CopyStoredDivision(const char* text, bool userNoun);
  // The special answers for a word of two syllables that is no noun;
  // startHits as for Divide.
  void DivideTwoSyllables(const std::vector<SearchInfo>* startHits);
  // Adds 1 / ((n-1)*2) to the score of a row without marked letters.
  void AddPlainBonus(int k);
};

// Inline: the walk adds an element at almost every step.
inline void NounDivider::AddElement(int row, int pos, int32_t bytes, char letter) {
  if (IsDead(row)) return;
  if (pos < 0 || pos >= kDivElements) {
    Kill(row);
    return;
  }
  const int32_t b = bytes;
  int32_t weight = 0;
  switch (letter) {
    case ' ':
    case 'M':
      weight = b <= 5 ? b - 1 : (b == 6 ? 10 : (b - 1) * (b / 2));
      break;
    case 'I':
      weight = b == 6 ? 8 : 3;
      break;
    case 'J':
      weight = InJosaList(josaText.CStr(), josaText.Length()) ? 2 : 0;
      break;
    case 'N':
      weight = b < 6 ? 2 * b : b * (b / 2);
      break;
    case 'P':
      weight = 2;
      break;
    case 'Q':
      weight = -3;
      break;
    case 'U':
      weight = -2;
      break;
    case 'X':
    case 'Y':
      weight = 1;
      break;
    default:
      break;
  }
  rows[row].elements[pos] = DivElement{b / 2, weight, letter};
}

// Small steps of the walk and the weighing, inline for their many calls.
inline char NounDivider::LetterAt(int row, int i) const {
  if (i < 0 || i >= kDivElements) return 0;
  return rows[row].elements[i].letter;
}

inline const SearchInfo* NounDivider::FindHit(int32_t start, int32_t end) const {
  for (const SearchInfo& h : hits) {
    if (h.start == start && h.end == end) return &h;
  }
  return nullptr;
}

inline bool NounDivider::HasHit(int32_t start, int32_t end) const {
  return FindHit(start, end) != nullptr;
}

inline int NounDivider::CloseRow(int row, int pos) {
  if (pos > kDivElements) {
    Kill(row);
  } else {
    rows[row].elementCount = pos;
  }
  return rowCount;
}

inline bool NounDivider::SuffixAt(int32_t at) {
  if (at >= 0 && at < kSuffixMemoBytes && suffixMemo[at] >= 0) {
    return suffixMemo[at] != 0;
  }
  return AskSuffix(at);
}

inline void NounDivider::BlankRow(int r) {
  std::memset(&rows[r], 0, sizeof(DivRow));
  std::memset(rows[r].hitIndex, kNoHit, sizeof(rows[r].hitIndex));
  weightSum[r] = 0.0;
}

inline int NounDivider::NewRow() {
  if (rowCount >= kDivRows) return -1;
  const int r = rowCount++;
  BlankRow(r);
  return r;
}

}  // namespace Quorel

#endif  // QRLSL_ANALYZER_NOUN_DIVIDER_H_
