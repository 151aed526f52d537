// The recursive walk of NounDivider: every way of covering the word with its
// dictionary hits, gaps and tails becomes a row of elements. The walk never
// opens more than kDivRows rows nor writes past kDivElements elements; a row
// left unfinished is dead.
#include <cstring>

#include "analyzer/noun_divider.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "text/syllable_table.h"

namespace Quorel {

namespace {

bool HasTag(uint32_t bits, uint32_t tag) { return (bits & tag) == tag; }

}  // namespace

int NounDivider::WriteDivision(int row, int pos, int hit, char letter,
                               const char* text) {
  int p = pos;
  for (int32_t i = 0; text[i] != '\0' && text[i] != '@';) {
    int32_t length = 0;
    char stored = 0;
    if (!ReadStoredPiece(text, i, length, stored)) continue;
    const char pieceLetter =
        stored != 0 ? stored : (letter == 'N' ? 'N' : ' ');
    AddElement(row, p, 2 * length, pieceLetter);
    if (p < kDivElements) {
      rows[row].elements[p].weight += 2;
      rows[row].hitIndex[p] = static_cast<unsigned char>(hit);
    }
    ++p;
  }
  rows[row].score += (hits[hit].end - hits[hit].start) / 10.0;
  splitFlag = 1;
  lastSpan = p - pos;
  return p - 1;
}

bool ReadStoredPiece(const char* text, int32_t& i, int32_t& length,
                     char& letter) {
  const char c = text[i];
  letter = 0;
  length = 0;
  if (c >= '0' && c <= '9') {
    length = c - '0';
    ++i;
  } else if (c >= 'a' && c <= 'z') {
    length = 10 + (c - 'a');
    ++i;
  } else {
    while (text[i] == c) {
      ++length;
      ++i;
    }
    letter = c;
  }
  return length > 0;
}

inline void NounDivider::PrevSpan(int row, int pos, TailSpan& span) const {
  span.prevHit = -1;
  if (pos > 0 && pos <= kDivElements) {
    const unsigned char h = rows[row].hitIndex[pos - 1];
    if (h != kNoHit && h < hits.size()) {
      span.prevHit = h;
      span.prevStart = hits[h].start;
      span.prevEnd = hits[h].end;
      return;
    }
  }
  int32_t covered = 0;
  for (int j = 0; j < pos && j < kDivElements; ++j) {
    if (rows[row].elements[j].length > 0) {
      covered += 2 * rows[row].elements[j].length;
    }
  }
  span.prevStart = covered;
  span.prevEnd = covered;
}

bool NounDivider::LongerHitToEnd(int prevHit) const {
  if (prevHit < 0) return false;
  for (size_t i = static_cast<size_t>(prevHit) + 1; i < hits.size(); ++i) {
    if (hits[i].start == hits[prevHit].start && hits[i].end == wordLength) {
      return true;
    }
  }
  return false;
}

int NounDivider::JosaBehind(int32_t at, int32_t len, uint16_t& attach) {
  // The last syllable is the one most asked about, once per row that ends
  // in it; its answer is kept for the word.
  const bool lastSyllable = len == 2 && at == wordLength - 2;
  if (lastSyllable && lastJosa != kNotAsked) {
    attach = lastJosaAttach;
    return lastJosa;
  }
  const int answer = AskJosaBehind(at, len, attach);
  if (lastSyllable) {
    lastJosa = static_cast<int8_t>(answer);
    lastJosaAttach = attach;
  }
  return answer;
}

int NounDivider::AskJosaBehind(int32_t at, int32_t len, uint16_t& attach) const {
  attach = 0;
  if (at < 2 || len <= 0 || at + len > wordLength) return -1;
  const char* w = word.CStr();
  const SyllableRec* before = SyllableAt(w + at - 2);
  if (before == nullptr) return -1;
  SearchJEInfo found;
  if (dictionary->SearchJE(w + at, found, len) != len) return 0;
  jeInfo reading;
  dictionary->GetJEInfo(reading, found, 0);
  attach = reading.attach;
  if (reading.text == nullptr || (reading.bits & Pos::J_) == 0) return 0;
  return Dictionary::CheckAttach(*before, reading) != 0 ? 1 : 0;
}

int NounDivider::RejectRow(int row, int pos) {
  AddElement(row, pos, 0, 'Q');
  Kill(row);
  return rowCount;
}

int NounDivider::Walk(int row, int hit, int pos) {
  if (rowCount >= kDivRows || pos < 0 || pos >= kDivElements) return rowCount;
  if (row < 0 || row >= kDivRows || IsDead(row)) return rowCount;
  const char* w = word.CStr();
  if (hits.empty()) {
    // No hit at all: one unknown piece, with a suffix split off.
    if (wordLength > 2 && SuffixAt(wordLength - 2)) {
      AddElement(row, 0, wordLength - 2, 'U');
      rows[row].elements[0].weight += 1;
      AddElement(row, 1, 2, 'Y');
      return CloseRow(row, 2);
    }
    AddElement(row, 0, wordLength, 'U');
    return CloseRow(row, 1);
  }
  // A hit passed over walks on with the next one in this loop: row and pos
  // stay, and nothing but a new row is written meanwhile, so the span behind
  // element pos-1 holds for every turn.
  TailSpan span;
  PrevSpan(row, pos, span);
  const int hitCount = static_cast<int>(hits.size());
  for (;; ++hit) {
    if (hit > 0 && rowCount >= kDivRows) return rowCount;
    if (hit >= hitCount) {
      if (pos > 0 && span.prevEnd >= wordLength) return CloseRow(row, pos);
      return WalkTail(row, pos, span);
    }
    const SearchInfo& h = hits[hit];

    // A head that no hit covers.
    if (pos == 0 && inSpan == 0 && h.start >= 2 && h.start <= 6) {
      inSpan = 1;
      bool covered = HasHit(0, h.end);
      for (const SearchInfo& other : hits) covered |= other.end == h.start;
      if (h.start == 2 && h.end == 6 && dictionary->IsXP(w, 2) != 0) {
        AddElement(row, 0, 2, 'X');
        if (HasHit(0, 4) || HasHit(0, 6)) rows[row].elements[0].weight -= 1;
      } else if (covered) {
        return RejectRow(row, 0);
      } else {
        AddElement(row, 0, h.start, 'U');
      }
      return TakeHit(row, hit, 1);
    }
    if ((pos == 0 && h.start == 0) || (pos > 0 && h.start == span.prevEnd)) {
      return TakeHit(row, hit, pos);
    }
    if (inSpan == 1 && pos > 0 && h.start < span.prevEnd &&
        ((pos < 3 && h.start != span.prevStart) || h.start == 0)) {
      // An overlapping hit starts a division of its own.
      const int fresh = NewRow();
      if (fresh >= 0) {
        inSpan = 0;
        Walk(fresh, hit, 0);
      }
      inSpan = 1;
      continue;
    }
    if (inSpan == 1 && pos > 0 && h.start > span.prevEnd) {
      const int32_t gap = h.start - span.prevEnd;
      if (gap != 2) {
        AddElement(row, pos, gap, 'U');
      } else if (HasHit(span.prevStart, h.start)) {
        return RejectRow(row, pos);
      } else {
        const bool suffix = SuffixAt(span.prevEnd);
        AddElement(row, pos, 2, suffix ? 'Y' : 'U');
      }
      return TakeHit(row, hit, pos + 1);
    }
    if (pos > 0 && span.prevHit >= 0 && h.start == span.prevStart) {
      // The longer hit of the same start replaces the previous one.
      int first = pos - 1;
      while (first > 0 && rows[row].hitIndex[first - 1] == span.prevHit) --first;
      const int fresh = NewRow();
      if (fresh >= 0) {
        CopyRow(fresh, row, first);
        TakeHit(fresh, hit, first);
      }
    }
    // Otherwise the hit is passed over.
  }
}

int NounDivider::TakeHit(int row, int hit, int pos) {
  if (pos < 0 || pos >= kDivElements) {
    Kill(row);
    return rowCount;
  }
  const SearchInfo& h = hits[hit];
  const uint32_t bits = h.info.bits;
  const int32_t bytes = h.end - h.start;
  inSpan = 1;
  const char* stored = nullptr;
  char letter = 0;
  if ((bits & 0x8) != 0 && h.nnuText != nullptr) {
    if (std::strcmp(h.nnuText, "0") == 0) {
      letter = 'N';
    } else {
      stored = h.nnuText;
      letter = 'N';
    }
  } else if ((bits & 0x4) != 0 && h.nnpText != nullptr &&
             std::strcmp(h.nnpText, "0") != 0) {
    stored = h.nnpText;
    letter = 'M';
  }
  if (stored == nullptr) {
    if (letter == 0) {
      letter = HasTag(bits, Pos::NNG)   ? ' '
               : HasTag(bits, Pos::NNI) ? 'I'
               : HasTag(bits, Pos::NP)  ? 'P'
                                        : 'U';
    }
    AddElement(row, pos, bytes, letter);
    rows[row].hitIndex[pos] = static_cast<unsigned char>(hit);
    return Walk(row, hit + 1, pos + 1);
  }
  // A stored division; its second alternative gets a row of its own.
  const char* second = std::strchr(stored, '@');
  const int other =
      second != nullptr && second[1] != '\0' ? NewRow() : -1;
  if (other >= 0) CopyRow(other, row, pos);
  const int last = WriteDivision(row, pos, hit, letter, stored);
  const int otherLast =
      other >= 0 ? WriteDivision(other, pos, hit, letter, second + 1) : -1;
  Walk(row, hit + 1, last + 1);
  if (other >= 0) Walk(other, hit + 1, otherLast + 1);
  return rowCount;
}

}  // namespace Quorel
