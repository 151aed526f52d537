// The tail rules of the NounDivider walk: what the bytes behind the last hit
// of a row become (suffixes, a josa, unknown pieces), or whether the row is
// rejected. The first rule that applies closes the row.
#include <cstring>

#include "analyzer/noun_divider.h"
#include "analyzer/noun_divider_literals.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

bool Same(const char* a, const char* b, size_t n) {
  return std::memcmp(a, b, n) == 0;
}

bool IsNounLetter(char c) { return c == ' ' || c == 'Y' || c == 'N'; }

}  // namespace

int NounDivider::WalkTail(int row, int pos, const TailSpan& span) {
  const char* w = word.CStr();
  const int32_t rest = wordLength - span.prevEnd;
  const char* r = w + span.prevEnd;
  const char l1 = LetterAt(row, pos - 1);
  const char l2 = LetterAt(row, pos - 2);
  if (rest == 2 && SuffixAt(span.prevEnd)) {
    if (wordLength < 11 && pos >= 1 && l1 != 'Y' && l1 != 'C' &&
        (pos < 2 || l2 != 'Y')) {
      AddElement(row, pos, 2, 'Y');
      if (pos < kDivElements) rows[row].elements[pos].weight += 1;
      return CloseRow(row, pos + 1);
    }
    if (pos >= 2 && l1 == 'Y' && (l2 == ' ' || l2 == 'N') &&
        rows[row].hitIndex[pos - 1] != kNoHit &&
        rows[row].hitIndex[pos - 1] == rows[row].hitIndex[pos - 2]) {
      return TailSecondSuffix(row, pos);
    }
    if ((l1 == ' ' || l1 == 'N') && pos > 1 && l2 == 'Y') {
      AddElement(row, pos, 2, 'Y');
      return CloseRow(row, pos + 1);
    }
  }
  if (rest == 4) {
    const int done = TailFourBytes(row, pos, span);
    if (done >= 0) return done;
  }
  if (mode >= 2 && mode <= 4) {
    const int done = rest == 2 ? TailJosaTwoBytes(row, pos, span)
                               : TailJosa(row, pos, span);
    if (done >= 0) return done;
  }
  // The last rule: a josa of two syllables, or an unknown piece.
  if (l1 == 'Y' && span.prevEnd == wordLength - 2 &&
      HasHit(wordLength - 4, wordLength)) {
    return RejectRow(row, pos);
  }
  if ((mode < 2 || mode > 4) && rest == 4 &&
      (Same(r, DividerText::kButeo, 4) || Same(r, DividerText::kKkaji, 4))) {
    AddElement(row, pos, 4, 'J');
    if (pos < kDivElements) rows[row].elements[pos].weight *= 2;
    return CloseRow(row, pos + 1);
  }
  return CloseUnknownTail(row, pos, span);
}

int NounDivider::CloseUnknownTail(int row, int pos, const TailSpan& span) {
  AddElement(row, pos, wordLength - span.prevEnd, 'U');
  if (pos < kDivElements) rows[row].elements[pos].weight -= 2;
  if (LongerHitToEnd(span.prevHit)) return RejectRow(row, pos + 1);
  return CloseRow(row, pos + 1);
}

int NounDivider::TailSecondSuffix(int row, int pos) {
  const char* w = word.CStr();
  const char* last = w + wordLength - 2;
  AddElement(row, pos, 2, 'Y');
  if (pos < kDivElements) rows[row].elements[pos].weight -= 1;
  if (dictionary->IsXSNXSN(w + wordLength - 4, 4) == 0) {
    rows[row].elements[pos - 1].weight -= 5;
  }
  if (Same(last, DividerText::kIn, 2) || Same(last, DividerText::kJeong, 2)) {
    rows[row].elements[pos - 1].weight -= 5;
  }
  CloseRow(row, pos + 1);
  uint16_t attach = 0;
  if (mode != 10 && rowCount < kDivRows && InJosaList(last, 2) &&
      JosaBehind(wordLength - 2, 2, attach) == 1) {
    // The last syllable read as a josa instead of a second suffix.
    const int other = NewRow();
    CopyRow(other, row, pos);
    AddElement(other, pos, 2, 'J');
    CloseRow(other, pos + 1);
  }
  return rowCount;
}

int NounDivider::TailFourBytes(int row, int pos, const TailSpan& span) {
  const char* w = word.CStr();
  const char* r = w + span.prevEnd;
  const char* second = r + 2;
  const char l1 = LetterAt(row, pos - 1);
  if (dictionary->IsXSNXSN(r, 4) != 0 && l1 != 'Y') {
    AddElement(row, pos, 2, 'Y');
    AddElement(row, pos + 1, 2, 'Y');
    return CloseRow(row, pos + 2);
  }
  if (SuffixAt(span.prevEnd + 2) && !InJosaList(second, 2) &&
      !Same(second, DividerText::kGa, 2) && !Same(r, DividerText::kDeul, 2) &&
      !Same(r, DividerText::kEu, 2) && !Same(r, DividerText::kBeop, 2) &&
      !Same(r, DividerText::kE, 2) && !Same(r, DividerText::kHyeong, 2)) {
    AddElement(row, pos, 2, 'U');
    AddElement(row, pos + 1, 2, 'Y');
    if (pos + 1 < kDivElements) rows[row].elements[pos + 1].weight += 1;
    return CloseRow(row, pos + 2);
  }
  if (!SuffixAt(span.prevEnd) || Same(r, DividerText::kRoseo, 4) ||
      l1 == 'C' || l1 == 'J' || l1 == 'Q') {
    return -1;
  }
  if (span.prevEnd >= 2 && Same(r - 2, DividerText::kGehamyeo, 6)) {
    return RejectRow(row, pos);
  }
  AddElement(row, pos, 2, 'Y');
  if (mode >= 2 && mode <= 4) {
    uint16_t attach = 0;
    const int josa = JosaBehind(wordLength - 2, 2, attach);
    if (josa < 0) return rowCount;
    if ((attach & (8 | 16)) != 0) return RejectRow(row, pos + 1);
    if (josa == 1 && IsNounLetter(l1)) {
      josaText.Assign(w + wordLength - 2, 2);
      AddElement(row, pos + 1, 2, 'J');
      return CloseRow(row, pos + 2);
    }
    if (Same(r, DividerText::kDeul, 2)) {
      AddElement(row, pos + 1, 2, 'U');
      return CloseRow(row, pos + 2);
    }
    AddElement(row, pos, 4, 'U');
    return CloseRow(row, pos + 1);
  }
  if (Same(r, DividerText::kButeo, 4) || Same(r, DividerText::kKkaji, 4)) {
    AddElement(row, pos, 4, 'J');
    if (pos < kDivElements) rows[row].elements[pos].weight *= 2;
    return CloseRow(row, pos + 1);
  }
  AddElement(row, pos + 1, 2, 'U');
  if (pos + 1 < kDivElements) rows[row].elements[pos + 1].weight += 1;
  return CloseRow(row, pos + 2);
}

int NounDivider::TailJosaTwoBytes(int row, int pos, const TailSpan& span) {
  const char* r = word.CStr() + span.prevEnd;
  const char l1 = LetterAt(row, pos - 1);
  uint16_t attach = 0;
  const int josa = JosaBehind(span.prevEnd, 2, attach);
  if (josa < 0) return rowCount;
  if (josa == 1 && (IsNounLetter(l1) || (l1 == 'P' && (attach & 8) != 0))) {
    josaText.Assign(r, 2);
    AddElement(row, pos, 2, 'J');
    return CloseRow(row, pos + 1);
  }
  if (l1 == 'Y' && span.prevEnd == wordLength - 2 &&
      HasHit(wordLength - 4, wordLength)) {
    return RejectRow(row, pos);
  }
  if (!Same(r, DividerText::kBeop, 2)) return CloseUnknownTail(row, pos, span);
  AddElement(row, pos, 2, ' ');
  return CloseRow(row, pos + 1);
}

int NounDivider::TailJosa(int row, int pos, const TailSpan& span) {
  const char* w = word.CStr();
  const char* r = w + span.prevEnd;
  const int32_t rest = wordLength - span.prevEnd;
  uint16_t attach = 0;
  if (rest >= 6 && Same(r, DividerText::kEu, 2)) {
    const int josa = JosaBehind(span.prevEnd, rest, attach);
    if (josa < 0) return rowCount;
    if (josa == 1) {
      AddElement(row, pos, rest, 'J');
      if (pos < kDivElements) rows[row].elements[pos].weight += 3;
      return CloseRow(row, pos + 1);
    }
  }
  const int josa = JosaBehind(wordLength - 2, 2, attach);
  if (josa < 0) return rowCount;
  if (josa != 1 || (attach & 8) != 0) return -1;
  josaText.Assign(w + wordLength - 2, 2);
  int p = pos;
  const int32_t lastLength =
      pos > 0 ? rows[row].elements[pos - 1].length : 0;
  if (rest == 6 && lastLength < 5 && dictionary->IsXSNXSN(r, 4) != 0) {
    AddElement(row, p++, 2, 'Y');
    AddElement(row, p++, 2, 'Y');
  } else if (rest == 6 && SuffixAt(span.prevEnd)) {
    AddElement(row, p, 2, 'Y');
    if (Same(r, DividerText::kHa, 2) && p < kDivElements) {
      rows[row].elements[p].weight -= 2;
    }
    ++p;
    AddElement(row, p++, 2, 'U');
  } else if (rest == 6 && SuffixAt(span.prevEnd + 2)) {
    AddElement(row, p++, 2, 'U');
    AddElement(row, p++, 2, 'Y');
  } else if (rest == 8 && SuffixAt(span.prevEnd)) {
    AddElement(row, p++, 2, 'Y');
    AddElement(row, p++, 4, 'U');
  } else {
    AddElement(row, p++, rest - 2, 'U');
  }
  AddElement(row, p, 2, 'J');
  return CloseRow(row, p + 1);
}

}  // namespace Quorel
