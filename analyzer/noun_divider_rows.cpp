// Enumerate of NounDivider: walks the word into rows, then weighs each
// element by what the dictionary says of it, drops rows that don't cover the
// word or repeat another, and scores the rest by the length table and the
// joint and position frequencies. Each element starts from the weight the
// walk gave it; a rule with a plain value replaces it, a signed step adds.
#include <cstdlib>
#include <cstring>

#include "analyzer/josa_reading.h"
#include "analyzer/noun_divider.h"
#include "analyzer/noun_divider_literals.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "text/syllable_table.h"

namespace Quorel {

namespace {

bool HasTag(uint32_t bits, uint32_t tag) { return (bits & tag) == tag; }

bool Same2(const char* a, const char* b) { return std::memcmp(a, b, 2) == 0; }

// Letters compared by Deduplicate: a plain noun equals a stored noun piece.
char ShapeLetter(char c) { return c == ' ' ? 'N' : c; }

}  // namespace

// Words of Hangul alone, whose bytes all have the high bit, are told apart
// eight bytes at a time; only other words count byte by byte.
int32_t AsciiUnits(const char* w, int32_t length) {
  constexpr uint64_t kHigh = 0x8080808080808080ULL;
  int32_t i = 0;
  for (; i + 8 <= length; i += 8) {
    uint64_t chunk;
    std::memcpy(&chunk, w + i, sizeof(chunk));
    if ((chunk & kHigh) != kHigh) break;
  }
  if (i + 8 > length) {
    // The last bytes, four, two and one at a time.
    bool high = true;
    int32_t t = i;
    if (t + 4 <= length) {
      uint32_t part;
      std::memcpy(&part, w + t, sizeof(part));
      high = (part & 0x80808080U) == 0x80808080U;
      t += 4;
    }
    if (high && t + 2 <= length) {
      uint16_t part;
      std::memcpy(&part, w + t, sizeof(part));
      high = (part & 0x8080U) == 0x8080U;
      t += 2;
    }
    if (high && t < length) high = (static_cast<unsigned char>(w[t]) & 0x80) != 0;
    if (high) return 0;
  }
  int32_t ascii = 0;
  for (; i < length; ++i) {
    const unsigned char c = static_cast<unsigned char>(w[i]);
    if (c >= 33 && c <= 126) ++ascii;
  }
  return ascii > 1 ? ascii - 1 : ascii;
}

int NounDivider::Enumerate(const char* text,
                           const std::vector<SearchInfo>* startHits,
                           const SearchInfo* whole) {
  ClearRows();
  if (text != word.CStr()) word = text != nullptr ? text : "";
  wordLength = word.Length();
  const char* w = word.CStr();
  wholeWord = whole;
  headHits = startHits;
  std::memset(suffixMemo, -1, sizeof(suffixMemo));
  lastJosa = kNotAsked;
  if (hitsOfLonger) {
    // The hits of a word this one begins: those that end within it are its
    // own, in the order a search would give them, and were never cut.
    hitsOfLonger = false;
    size_t kept = 0;
    for (size_t i = 0; i < hits.size(); ++i) {
      if (hits[i].end <= wordLength) hits[kept++] = hits[i];
    }
    hits.resize(kept);
  } else {
    CollectHits(startHits);
  }
  hitsComplete = hits.size() < static_cast<size_t>(kMaxDivHits);
  hitsLength = wordLength;
  const int32_t units = wordLength / 2 + AsciiUnits(w, wordLength);

  rowCount = 1;
  BlankRow(0);
  splitFlag = 0;
  josaText.Clear();
  inSpan = 0;
  Walk(0, 0, 0);

  bool uCopy[kDivRows] = {};
  for (int k = 0; k < rowCount; ++k) {
    if (IsDead(k)) continue;
    int32_t covered = 0;
    weightSum[k] = WeighRow(k, uCopy, covered);
    if (covered != units) Kill(k);
  }
  Deduplicate();
  int live = 0;
  for (int k = 0; k < rowCount; ++k) {
    if (IsDead(k)) continue;
    rows[k].score = rows[k].score + Score(k) + weightSum[k] / 10.0;
    ++live;
  }
  wholeWord = nullptr;
  headHits = nullptr;
  return live;
}

void NounDivider::CollectHits(const std::vector<SearchInfo>* startHits) {
  const char* w = word.CStr();
  hits.clear();
  // Only words of 3 bytes or more are kept, so none starts in the last 2.
  for (int32_t off = 0; off + 3 <= wordLength; off += 2) {
    if (off == 0 && startHits != nullptr) {
      // The nouns of two syllables or more, as the search below keeps them.
      for (const SearchInfo& h : *startHits) {
        if ((h.info.bits & Dictionary::kNounOnlyBits) != 0 && h.end >= 3) {
          hits.push_back(h);
        }
      }
    } else {
      if (off + 5 <= wordLength) dictionary->mainTrie.PrefetchRootPair(w + off + 2);
      dictionary->SearchAll(w, hits, wordLength, off, 1, 0, 0, 0);
    }
    if (hits.size() >= static_cast<size_t>(kMaxDivHits)) break;
  }
  if (hits.size() > static_cast<size_t>(kMaxDivHits)) hits.resize(kMaxDivHits);
}

bool NounDivider::AskSuffix(int32_t at) {
  const bool suffix = dictionary->IsXSN(word.CStr() + at, 2) != 0;
  if (at >= 0 && at < kSuffixMemoBytes) suffixMemo[at] = suffix ? 1 : 0;
  return suffix;
}

const SearchInfo& NounDivider::HeadRecord(
    const std::vector<SearchInfo>& startHits, int32_t bytes) {
  // What SearchMain leaves of a miss: every field zero.
  static constexpr SearchInfo kMiss{0, 0, {0, 0, 0, 0, 0, 0},
                                    nullptr, nullptr, nullptr, nullptr};
  for (const SearchInfo& h : startHits) {
    if (h.end == bytes) return h;
    if (h.end > bytes) break;  // in increasing end
  }
  return kMiss;
}

double NounDivider::WeighRow(int k, bool uCopy[kDivRows], int32_t& covered) {
  DivRow& r = rows[k];
  const char* w = word.CStr();
  double sum = 0.0;
  int32_t at = 0;
  int count = 0;
  for (int j = 0; j < kDivElements && !IsDead(k); ++j) {
    DivElement& e = r.elements[j];
    if (e.length <= 0) break;
    const bool last = j + 1 >= kDivElements || r.elements[j + 1].length <= 0;
    const char next = last ? 0 : r.elements[j + 1].letter;
    if (e.letter == 'X') {
      if (next == 'Y') e.weight -= 3;
      bool headHit = false;
      for (const SearchInfo& h : hits) headHit |= h.start == 0;
      if (!headHit) sum -= 3;
    } else if (e.letter == 'Y') {
      if (j > 0 && r.elements[j - 1].length == 1) {
        int run = 0;
        for (int i = j - 1; i >= 0 && r.elements[i].length == 1; --i) ++run;
        const bool josa = InJosaList(w + at, 2);
        e.weight = run >= 2 ? (josa ? -11 : -9) : (josa ? -5 : -3);
        if (r.elements[j - 1].letter == 'X') e.weight -= 2;
      }
    } else if (e.letter == 'J') {
      if (last && e.length == 1 && rowCount > 1 && j > 0 &&
          r.elements[j - 1].length == 1) {
        Kill(k);
        break;
      }
    } else if (!(e.letter == 'U' && j == 0 && uCopy[k])) {
      WeighElement(k, j, at, uCopy, sum);
      if (IsDead(k)) break;
    }
    sum += e.weight;
    at += 2 * e.length;
    ++count;
  }
  r.elementCount = count;
  // The syllables of the elements weighed, which are those up to the first
  // empty one (a merged josa empties the one it took); a dead row covers
  // nothing.
  covered = IsDead(k) ? 0 : at / 2;
  return sum;
}

void NounDivider::WeighElement(int k, int j, int32_t at, bool uCopy[kDivRows],
                               double& sum) {
  DivRow& r = rows[k];
  DivElement& e = r.elements[j];
  const char* w = word.CStr();
  int32_t bytes = 2 * e.length;
  if (at + bytes > wordLength) bytes = wordLength - at;
  if (bytes <= 0) return;
  const bool last = j + 1 >= kDivElements || r.elements[j + 1].length <= 0;
  const char next = last ? 0 : r.elements[j + 1].letter;
  const int32_t nextLength = last ? 0 : r.elements[j + 1].length;
  // The walk's hits hold the records of the words they cover, and Divide
  // the record of the whole word.
  const SearchInfo* record = FindHit(at, at + bytes);
  if (record == nullptr) {
    if (at == 0 && bytes == wordLength && wholeWord != nullptr) {
      record = wholeWord;
    } else if (at == 0 && headHits != nullptr) {
      record = &HeadRecord(*headHits, bytes);
    } else {
      dictionary->SearchMain(w + at, pieceRecord, bytes);
      record = &pieceRecord;
    }
  }
  const SearchInfo& si = *record;
  const uint32_t bits = si.info.bits;
  const int attr = NnbAttribute(si);

  if (at > 0 && HasTag(bits, Pos::NNB) && (attr & 2) != 0) {
    e.letter = 'B';
    e.weight = 1;
    return;
  }
  if (mode == 4 && at == 0 && HasTag(bits, Pos::NNB) && (attr & 1) != 0) {
    e.letter = 'B';
    e.weight = 2;
    return;
  }
  if (at == 0 && e.length >= 2 && HasTag(bits, Pos::NP)) {
    e.letter = 'P';
    e.weight = 1;
    return;
  }
  if (at == 0 && e.length == 1 && !uCopy[k] && dictionary->IsXP(w, 2) != 0) {
    // A prefix; if the syllable is a noun as well, a copy of the row keeps
    // it as an unknown piece.
    e.letter = 'X';
    e.weight = 1;
    if ((bits & Pos::N_) != 0 && !Same2(w, DividerText::kHang) &&
        rowCount < kDivRows && (si.nnbText == nullptr || si.nnbText[0] == '0')) {
      const int copy = NewRow();
      CopyRow(copy, k, kDivElements);
      rows[copy].elements[j] = DivElement{e.length, -3, 'U'};
      uCopy[copy] = true;
      e.weight += 2;
    } else if (next == 'N') {
      e.weight += 1;
    } else {
      e.weight -= 9;
    }
    return;
  }
  if (last && e.length == 1 && (j == 0 || r.elements[j - 1].letter != 'C') &&
      SuffixAt(wordLength - 2)) {
    e.letter = 'Y';
    if (InJosaList(w + wordLength - 2, 2)) {
      e.weight -= 1;
      if (j > 0 && r.elements[j - 1].length >= 4) sum /= 1.7;
    } else {
      e.weight += 1;
    }
    return;
  }
  const bool commonNoun =
      (bits & 0x1) != 0 &&
      !(at == 0 && (Same2(w, DividerText::kSu) || Same2(w, DividerText::kYeo)));
  if ((bits & 0x8) == 0 && !commonNoun) {
    if ((bits & 0x400) != 0) {
      e.letter = 'I';
      e.weight = 10;
    } else if (HasTag(bits, Pos::NU)) {
      e.letter = 'D';
    } else if (at > 0 && e.length == 1 && at + 2 < wordLength &&
               dictionary->IsCONJ(w + at, 2) != 0) {
      if (next == 'X' || next == 'Y' || next == 'J' || next == 'Q') {
        Kill(k);
        return;
      }
      e.letter = 'C';
      e.weight = 3;
    } else if (!last && nextLength == 1 && next == 'J' &&
               (Same2(w + at + bytes - 2, DividerText::kI) ||
                Same2(w + at + bytes - 2, DividerText::kDoe))) {
      MergeJosa(k, j, at);
    }
    if (at > 0 && !last && e.length == 1 && j > 0 &&
        r.elements[j - 1].length == 1) {
      for (const SearchInfo& h : hits) {
        const uint32_t b = h.info.bits;
        if (h.start == at - 2 && h.end == at + 2 &&
            (HasTag(b, Pos::NNG) || HasTag(b, Pos::NNP) ||
             HasTag(b, Pos::NNU))) {
          Kill(k);
          return;
        }
      }
    }
    return;
  }
  if ((bits & 0x8) == 0) {
    e.letter = ' ';
  } else {
    const char c = si.nnuText != nullptr ? si.nnuText[0] : 0;
    if (c >= 'A' && c <= 'Z') {
      e.letter = c;
      e.weight = 2;
    } else {
      e.letter = 'N';
    }
  }
  if (at == 0) {
    // A longer hit from byte 0, looked for only where it counts.
    const auto longerHead = [this, bytes]() {
      for (const SearchInfo& h : hits) {
        if (h.start == 0 && h.end > bytes) return true;
      }
      return false;
    };
    if (wordLength == 6 && InJosaList(w + 4, 2)) {
      e.weight -= 1;
    } else if (wordLength > 6 && hits.size() > 1 && e.length == 1 &&
               longerHead()) {
      e.weight -= 9;
    } else if (hits.size() == 1) {
      e.weight = 0;
    }
  } else {
    e.weight += 3;
    if (wordLength < 7) e.weight += 1;
    if (e.length == 1 && nextLength == 1) e.weight -= 3;
  }
  if (hits.size() == 1 && hits[0].start > 0) e.weight += 3;
}

void NounDivider::MergeJosa(int k, int j, int32_t at) {
  DivRow& r = rows[k];
  DivElement& e = r.elements[j];
  const char* w = word.CStr();
  const int32_t bytes = 2 * e.length;
  const bool josaLast =
      j + 2 >= kDivElements || r.elements[j + 2].length <= 0;
  if (!josaLast) return;
  const jeInfo whole = JosaReading(*dictionary, w + at, wordLength - at);
  const SyllableRec* before = at >= 2 ? SyllableAt(w + at - 2) : nullptr;
  if (whole.text != nullptr && before != nullptr &&
      Dictionary::CheckAttach(*before, whole) != 0) {
    e = DivElement{e.length + r.elements[j + 1].length, 3, 'J'};
    r.elements[j + 1] = DivElement{0, 0, 0};
    r.hitIndex[j + 1] = kNoHit;
    return;
  }
  for (int32_t s = at + 2; s < at + bytes; s += 2) {
    if (JosaReading(*dictionary, w + s, wordLength - s).text != nullptr) {
      Kill(k);
      return;
    }
  }
}

void NounDivider::Deduplicate() {
  for (int i = 0; i < rowCount; ++i) {
    for (int j = i + 1; j < rowCount && !IsDead(i); ++j) {
      if (IsDead(j) || rows[i].elementCount != rows[j].elementCount) continue;
      bool same = true;
      for (int e = 0; e < rows[i].elementCount && e < kDivElements; ++e) {
        const DivElement& a = rows[i].elements[e];
        const DivElement& b = rows[j].elements[e];
        if (a.length != b.length ||
            ShapeLetter(a.letter) != ShapeLetter(b.letter)) {
          same = false;
          break;
        }
      }
      if (!same) continue;
      if (weightSum[i] < weightSum[j]) {
        Kill(i);
      } else {
        Kill(j);
      }
    }
  }
}

double NounDivider::Score(int row) const {
  const DivRow& r = rows[row];
  const int count = r.elementCount < kDivElements ? r.elementCount : kDivElements;
  int32_t startOf[kDivElements + 1];  // byte where element j starts
  startOf[0] = 0;
  for (int j = 0; j < count; ++j) {
    startOf[j + 1] = startOf[j] + 2 * r.elements[j].length;
  }
  int64_t code = 0;
  int64_t unit = 1;  // 10^places
  int places = 0;
  int suffix = 0;
  bool tooLong = false;
  int pieces[kDivElements];  // element index of each piece, last first
  for (int j = count - 1; j >= 0; --j) {
    const DivElement& e = r.elements[j];
    if (e.length <= 0) continue;
    if (e.length == 1) {
      if (e.letter == 'J' && places == 0) continue;
      if (e.letter == 'X') {
        if (places > 0 && !tooLong) code += unit / 10;
        continue;
      }
      if (e.letter == 'Y') {
        ++suffix;
        continue;
      }
    }
    if (places >= 9) tooLong = true;
    if (!tooLong) {
      code += (e.length + suffix) * unit;
      unit *= 10;
    }
    suffix = 0;
    pieces[places++] = j;
  }
  if (places == 0) return 0.0;

  double base = 0.0;
  if (places == 1 && code >= 4) {
    base = -1.0;
  } else if (!tooLong) {
    base = LengthPatternValue(static_cast<int32_t>(code));
    if (code == 222 && (josaText == DividerText::kGwa ||
                        josaText == DividerText::kUi)) {
      base *= 0.8;
    }
  }

  const char* w = word.CStr();
  int64_t joint = 0;
  for (int j = 0; j < places - 1 && j < count; ++j) {
    const int32_t at = startOf[j + 1];
    int32_t freq = 0;
    if (at >= 2 && at + 2 <= wordLength) dictionary->GetDivFreq(w + at - 2, freq, 4);
    joint += freq;
  }
  if (joint >= 1 && places >= 2) joint /= places - 1;

  double position = 0.0;
  for (int p = places - 1; p >= 0; --p) {
    const int j = pieces[p];
    const int32_t bytes = 2 * r.elements[j].length;
    if (bytes <= 2 || startOf[j] + bytes > wordLength) continue;
    PosInfoRec rec;
    dictionary->GetPosFreq(w + startOf[j], rec, bytes);
    const int slot = p == places - 1 ? 0 : (p == 0 ? 2 : 1);
    position += rec.counts[slot];
  }
  position /= places;
  return (base * 100.0 + static_cast<double>(joint) / 1000.0 +
          position / 500.0) /
         1000.0;
}

}  // namespace Quorel
