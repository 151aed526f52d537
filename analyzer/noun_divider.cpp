// NounDivider: the frame of a division (Divide), the choice of rows and the
// pattern string. The walk, the weighing and the index words live in the
// noun_divider_*.cpp files.
#include "analyzer/noun_divider.h"

#include <cstdlib>
#include <cstring>

#include "analyzer/noun_divider_literals.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

bool HasTag(uint32_t bits, uint32_t tag) { return (bits & tag) == tag; }

bool Same2(const char* a, const char* b) { return std::memcmp(a, b, 2) == 0; }

// The numeric attribute of a bound noun's extra text, 0 without one.
// True when the n bytes of text contain the m bytes of part (m > 0).
bool Contains(const char* text, int32_t n, const char* part, int32_t m) {
  for (int32_t i = 0; i + m <= n; ++i) {
    if (text[i] == part[0] &&
        std::memcmp(text + i, part, static_cast<size_t>(m)) == 0) {
      return true;
    }
  }
  return false;
}

// Room kept behind the groups for '$' and the NUL.
constexpr int32_t kOutputLimit = kDivOutputSize - 2;
// Longest element the pattern string can carry: 36 would read as '$'.
constexpr int32_t kMaxWrittenLength = 35;

}  // namespace

NounDivider::NounDivider()
    : patternCount(kLengthPatternCount),
      indexWordCount(0),
      inSpan(0),
      rowCount(0),
      lastSpan(0),
      splitFlag(0),
      wordLength(0),
      mode(0),
      dictionary(nullptr) {
  word.Reserve(256);
  seenText[0] = '\0';
  seenLength = 0;
  hits.reserve(kMaxDivHits + 64);
  for (int k = 0; k < kDivRows; ++k) BlankRow(k);
  ClearRows();
  std::memset(output, 0, sizeof(output));
}

void NounDivider::Bind(Dictionary* knowledge) { dictionary = knowledge; }

bool NounDivider::InJosaListText(const char* text, int32_t len) {
  if (text == nullptr || len <= 0 || len > 8) return false;
  char key[9];
  std::memcpy(key, text, static_cast<size_t>(len));
  key[len] = '\0';
  if (std::memchr(key, '\0', static_cast<size_t>(len)) != nullptr) return false;
  return std::strstr(DividerText::kJosaList, key) != nullptr;
}

void NounDivider::ClearRows() {
  // Rows from rowCount on may hold an earlier word's leftovers: each row is
  // blanked as it opens (BlankRow), and nothing reads past rowCount.
  std::memset(selected, 0xFF, sizeof(selected));  // -1 is all one bytes
  indexWordCount = 0;
  inSpan = 0;
  rowCount = 0;
  lastSpan = 0;
  splitFlag = 0;
}

void NounDivider::CopyRow(int to, int from, int count) {
  if (count > kDivElements) count = kDivElements;
  for (int j = 0; j < count; ++j) {
    rows[to].elements[j] = rows[from].elements[j];
    rows[to].hitIndex[j] = rows[from].hitIndex[j];
  }
  rows[to].score = rows[from].score;
}

double NounDivider::GetPatternScore(int k) const {
  if (k < 0 || k >= kDivRows) return 0.0;
  if (answerTaken) return takenScores[k];
  const int r = selected[k];
  if (r < 0 || r >= kDivRows) return 0.0;
  return rows[r].score;
}

void NounDivider::ClearOutput() {
  std::memset(output, 0, strnlen(output, sizeof(output)));
}

const char* NounDivider::Divide(const char* text, int divideMode,
                                const std::vector<SearchInfo>* startHits) {
  const int32_t length =
      text != nullptr ? static_cast<int32_t>(std::strlen(text)) : 0;
  return Divide(text, length, divideMode, startHits);
}

const char* NounDivider::Divide(const char* text, int32_t length,
                                int divideMode,
                                const std::vector<SearchInfo>* startHits) {
  mode = divideMode;
  answerTaken = false;
  ClearRows();
  ClearOutput();
  if (text == nullptr || text[0] == '\0' || dictionary == nullptr) {
    output[0] = '$';
    return output;
  }
  // A word that begins the last enumerated one takes its hits from them.
  const bool stem = hitsComplete && hitsLength == wordLength &&
                   length < wordLength &&
                   std::memcmp(word.CStr(), text, static_cast<size_t>(length)) == 0;
  hitsComplete = false;
  word.Assign(text, length);
  wordLength = length;
  // The caller's hits of this word end with the whole word when it is one.
  SearchInfo si;
  bool whole = false;
  if (startHits != nullptr) {
    whole = !startHits->empty() && startHits->back().end == wordLength;
    if (whole) si = startHits->back();
  } else {
    whole = dictionary->SearchMain(word.CStr(), si) != 0;
  }
  const uint32_t tag = whole ? si.info.bits : 0;

  // Two syllables that are no noun: a josa alone, or a noun with a suffix
  // or a bound noun.
  if (wordLength == 4 && (tag & Pos::N_) == 0) {
    if (word == DividerText::kButeo || word == DividerText::kKkaji) {
      const char josa[] = {1, 'J', 2};
      std::memcpy(output, josa, sizeof(josa));
    } else {
      DivideTwoSyllables(startHits);
    }
    FinishOutput(tag, static_cast<int32_t>(std::strlen(output)));
    return output;
  }
  // Stored divisions of proper nouns and user nouns.
  if ((tag & 0x4) != 0 && mode == 3 && si.nnpText != nullptr) {
    CopyStoredDivision(si.nnpText, false);
    if (output[0] != '$') {
      FinishOutput(tag, static_cast<int32_t>(std::strlen(output)));
    }
    return output;
  }
  if ((tag & 0x8) != 0 && mode == 4 && si.nnuText != nullptr) {
    CopyStoredDivision(si.nnuText, true);
    if (output[0] != '$') {
      FinishOutput(tag, static_cast<int32_t>(std::strlen(output)));
    }
    return output;
  }

  hitsOfLonger = stem;
  const int live = Enumerate(word.CStr(), startHits, &si);
  if (live < 1) {
    ClearOutput();
    output[0] = '$';
    return output;
  }
  output[0] = static_cast<char>(live);
  const int32_t end = ChooseRows();
  if (end >= 0) FinishOutput(tag, end);
  return output;
}

void NounDivider::DivideTwoSyllables(
    const std::vector<SearchInfo>* startHits) {
  const char* w = word.CStr();
  const char* second = w + 2;
  SearchInfo looked;
  if (startHits == nullptr) dictionary->SearchMain(w, looked, 2);
  const SearchInfo& first =
      startHits != nullptr ? HeadRecord(*startHits, 2) : looked;
  const uint32_t firstBits = first.info.bits;  // 0 on a miss
  const int attr = NnbAttribute(first);
  const char* answer = nullptr;
  static const char kPluralPronoun[] = {1, 'P', 1, 'Y', 1, 0};
  static const char kNounSuffix[] = {1, 1, 'Y', 1, 0};
  static const char kBoundSuffix[] = {1, 'B', 1, 'Y', 1, 0};
  static const char kPronounBound[] = {1, 'P', 1, 'B', 1, 0};
  static const char kNounBound[] = {1, 1, 'B', 1, 0};
  static const char kBoundBound[] = {1, 'B', 1, 'B', 1, 0};
  static const char kBoundNoun[] = {1, 'B', 1, 1, 0};
  if (dictionary->IsXSN(second, 2) != 0) {
    const bool deul = Same2(second, DividerText::kDeul);
    if (HasTag(firstBits, Pos::NP) && deul) {
      answer = kPluralPronoun;
    } else if (HasTag(firstBits, Pos::NNG)) {
      answer = kNounSuffix;
    } else if ((HasTag(firstBits, Pos::NNB) && deul) ||
               ((attr & 1) != 0 && (Same2(second, DividerText::kSsik) ||
                                    Same2(second, DividerText::kSun)))) {
      answer = kBoundSuffix;
    }
  } else {
    SearchInfo next;
    const uint32_t nextBits =
        dictionary->SearchMain(second, next, 2) != 0 ? next.info.bits : 0;
    const bool nextCounts =
        HasTag(nextBits, Pos::NNB) && (NnbAttribute(next) & (2 | 4)) != 0;
    if (HasTag(firstBits, Pos::NP) && Same2(second, DividerText::kPPun)) {
      answer = kPronounBound;
    } else if (HasTag(firstBits, Pos::NNG) && nextCounts) {
      answer = kNounBound;
    } else if (HasTag(firstBits, Pos::NNB) && (attr & 2) != 0 && nextCounts) {
      answer = kBoundBound;
    } else if (HasTag(firstBits, Pos::NNB) && HasTag(nextBits, Pos::NNG)) {
      answer = kBoundNoun;
    }
  }
  if (answer != nullptr) std::strcpy(output, answer);
}

void NounDivider::CopyStoredDivision(const char* text, bool userNoun) {
  if (std::strcmp(text, "0") == 0) {
    output[0] = '$';
    return;
  }
  int32_t at = 1;
  int groups = 1;
  for (int32_t i = 0; text[i] != '\0' && at < kOutputLimit - 2;) {
    if (text[i] == '@') {
      output[at++] = '@';
      ++groups;
      ++i;
      continue;
    }
    int32_t length = 0;
    char letter = 0;
    if (!ReadStoredPiece(text, i, length, letter)) continue;
    if (letter == 0 && userNoun) letter = 'N';
    if (length > kMaxWrittenLength) length = kMaxWrittenLength;
    if (IsMarkedLetter(letter)) output[at++] = letter;
    output[at++] = static_cast<char>(length);
  }
  output[0] = static_cast<char>(groups);
  output[at] = '\0';
}

void NounDivider::AddPlainBonus(int k) {
  const DivRow& r = rows[k];
  for (int j = 0; j < r.elementCount && j < kDivElements; ++j) {
    const char c = r.elements[j].letter;
    if (c != 'N' && IsMarkedLetter(c)) return;
  }
  if (r.elementCount > 1) {
    rows[k].score += 1.0 / ((r.elementCount - 1) * 2);
  }
}

bool NounDivider::WriteRow(int k, int32_t& at) {
  const DivRow& r = rows[k];
  int32_t need = 1;
  for (int j = 0; j < r.elementCount && j < kDivElements; ++j) {
    const DivElement& e = r.elements[j];
    if (e.length <= 0) continue;
    if (e.length > kMaxWrittenLength) return false;
    need += IsMarkedLetter(e.letter) ? 2 : 1;
  }
  if (at + need > kOutputLimit) return false;
  for (int j = 0; j < r.elementCount && j < kDivElements; ++j) {
    const DivElement& e = r.elements[j];
    if (e.length <= 0) continue;
    if (IsMarkedLetter(e.letter)) output[at++] = e.letter;
    output[at++] = static_cast<char>(e.length);
  }
  output[at++] = '@';
  return true;
}

int32_t NounDivider::ChooseRows() {
  int best = -1;
  int groups = 0;
  int32_t at = 1;
  // The open rows up to the first empty one.
  for (int k = 0; k < rowCount && rows[k].elements[0].length != 0; ++k) {
    if (IsDead(k)) continue;
    if (best < 0 || rows[k].score > rows[best].score) best = k;
    if (mode != 1 && rows[k].score >= 0.8 && WriteRow(k, at)) {
      AddPlainBonus(k);
      selected[groups++] = k;
    }
  }
  if (groups == 0 || mode == 1) {
    if (best < 0) {
      output[0] = static_cast<char>(255);
      return 1;
    }
    if (rows[best].score < 0.0) {
      std::memset(output, 0, static_cast<size_t>(at));  // zeros from at on
      output[0] = '%';
      return -1;
    }
    if (rows[best].score < 0.4) {
      output[0] = static_cast<char>(255);
      return 1;
    }
    if (WriteRow(best, at)) {
      AddPlainBonus(best);
      selected[groups] = best;
    }
  }
  return at;
}

void NounDivider::FinishOutput(uint32_t tag, int32_t end) {
  if (end <= 0) {
    ClearOutput();  // the whole output, as zeros follow its string
    output[0] = '$';
    return;
  }
  const int32_t written = end;  // output is zero from here on
  if (end > 1 && output[end - 1] == '@') --end;
  // Rebuild the groups: a one-syllable unknown joins the piece before it,
  // and a group met before is dropped with its row. seenText is "@" and each
  // kept group with an '@' behind, so the kept groups joined by '@' (the
  // pattern) are seenText without its first and last byte.
  seenText[0] = '@';
  seenLength = 1;
  int keptCount = 0;
  int group = 0;
  // One group between two '@', the form seenText keeps; a group is never
  // longer than the output it is read from.
  char groupText[kDivOutputSize + 2];
  for (int32_t p = 1; p < end;) {
    groupText[0] = '@';
    int32_t groupLength = 1;
    int32_t lastStart = -1;
    while (p < end && output[p] != '@') {
      const char c = output[p];
      if (IsMarkedLetter(c) && p + 1 < end) {
        const char length = output[p + 1];
        p += 2;
        if (c == 'U' && length == 1 && lastStart >= 0) {
          const char before = groupText[groupLength - 1];
          groupLength = lastStart;
          groupText[groupLength++] = 'U';
          groupText[groupLength++] = static_cast<char>(before + 1);
          continue;
        }
        lastStart = groupLength;
        groupText[groupLength++] = c;
        groupText[groupLength++] = length;
      } else {
        lastStart = groupLength;
        groupText[groupLength++] = c;
        ++p;
      }
    }
    if (p < end) ++p;  // the '@'
    if (groupLength > 1) {
      groupText[groupLength++] = '@';
      if (!Contains(seenText, seenLength, groupText, groupLength)) {
        std::memcpy(seenText + seenLength, groupText + 1,
                    static_cast<size_t>(groupLength - 1));
        seenLength += groupLength - 1;
        // Kept rows move down in place: group is never below keptCount.
        if (keptCount < kDivRows) {
          selected[keptCount] = group < kDivRows ? selected[group] : -1;
          ++keptCount;
        }
      }
    }
    ++group;
  }
  std::memset(selected + keptCount, 0xFF,
              sizeof(int32_t) * static_cast<size_t>(kDivRows - keptCount));
  int32_t at = 1;
  if (end > 1 && seenLength > 1) {
    const int32_t patternLength = seenLength - 2;
    std::memcpy(output + 1, seenText + 1, static_cast<size_t>(patternLength));
    at = 1 + patternLength;
  }
  // Three-syllable words of the ending-search modes carry their lengths
  // 1 and 2 as digits.
  if ((tag & 0x4) == 0 && wordLength == 6 && mode >= 2 && mode <= 4) {
    for (int32_t i = 0; i < at; ++i) {
      if (output[i] == 1) output[i] = '1';
      if (output[i] == 2) output[i] = '2';
    }
  }
  if (wordLength == 8 && std::strchr(word.CStr(), 'U') == nullptr &&
      static_cast<unsigned char>(output[0]) == 255) {
    SearchInfo tail;
    if (dictionary->SearchMain(word.CStr() + 4, tail, 4) != 0 &&
        HasTag(tail.info.bits, Pos::NNG)) {
      const char unknownHead[] = {1, 'U', 2, 2};
      std::memcpy(output, unknownHead, sizeof(unknownHead));
      at = 4;
    }
  }
  output[at] = '$';
  // What was written beyond the new end: no byte of a pattern is 0, so this
  // clears what a search for the first NUL from at + 1 would find.
  if (written > at + 1) {
    std::memset(output + at + 1, 0, static_cast<size_t>(written - at - 1));
  }
}

}  // namespace Quorel
