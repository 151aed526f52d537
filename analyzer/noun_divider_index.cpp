// The index-word extractor of NounDivider: a debugging companion that takes
// a word, divides it and collects each noun piece with the prefixes and
// suffixes that may join it, then logs the division and the words found.
#include <cstdio>
#include <cstring>

#include "analyzer/noun_divider.h"
#include "analyzer/noun_divider_literals.h"
#include "knowledge/dictionary.h"
#include "log/logger.h"

namespace Quorel {

namespace {

// Bytes of the word that one byte of a text division stands for: a digit
// 1..9 that many syllables, "X" or "Y" one; -1 for any other byte.
int32_t PieceBytes(char c) {
  if (c >= '1' && c <= '9') return 2 * (c - '0');
  if (c == 'X' || c == 'Y') return 2;
  return -1;
}

}  // namespace

int NounDivider::ExtractIndexWords(const char* text) {
  ClearRows();
  hitsComplete = false;
  word = text != nullptr ? text : "";
  wordLength = word.Length();
  if (dictionary == nullptr) return indexWordCount;
  SearchInfo si;
  const bool properNoun = dictionary->SearchMain(word.CStr(), si) != 0 &&
                          (si.info.bits & 0x4) != 0 && si.nnpText != nullptr;
  if (!properNoun) {
    Enumerate(word.CStr());
    PrintIndexWords();
    return indexWordCount;
  }
  rowCount = 0;
  divText = si.nnpText;
  int32_t from = 0;
  while (from <= divText.Length()) {
    int32_t at = divText.Find('@', from);
    if (at < 0) at = divText.Length();
    StringEx part;
    divText.Substr(part, from, at - from);
    CollectIndexWords(part.CStr());
    PrintDivision(part.CStr());
    if (rowCount < kDivRows) ++rowCount;
    from = at + 1;
  }
  PrintIndexWords();
  return indexWordCount;
}

int NounDivider::AddIndexWord(const char* text, int32_t len) {
  if (text == nullptr) return indexWordCount;
  if (len <= 0) len = static_cast<int32_t>(std::strlen(text));
  if (len == 0 || indexWordCount >= kMaxIndexWords) return indexWordCount;
  for (int i = 0; i < indexWordCount; ++i) {
    const StringEx& known = indexWords[i];
    if (known.Length() == len &&
        std::memcmp(known.CStr(), text, static_cast<size_t>(len)) == 0) {
      return indexWordCount;
    }
  }
  indexWords[indexWordCount++].Assign(text, len);
  return indexWordCount;
}

void NounDivider::CollectIndexWords(const char* division) {
  if (division == nullptr) return;
  const char* w = word.CStr();
  DivRow* row = nullptr;
  if (rowCount < kDivRows) {
    BlankRow(rowCount);
    row = &rows[rowCount];
  }
  int element = 0;
  int32_t at = 0;
  for (int i = 0; division[i] != '\0'; ++i) {
    const char c = division[i];
    const int32_t bytes = PieceBytes(c);
    if (bytes < 0) {
      Logger().Write(DividerText::kPatternError);
      return;
    }
    if (row != nullptr && element < kDivElements) {
      const bool piece = c != 'X' && c != 'Y';
      row->elements[element++] =
          DivElement{bytes / 2, 0, piece ? ' ' : c};
    }
    if (c != 'X' && c != 'Y' && at + bytes <= wordLength) {
      AddIndexWord(w + at, bytes);
      if (i > 0 && division[i - 1] == 'X' && at >= 2) {
        AddIndexWord(w + at - 2, bytes + 2);
        if (i > 1 && division[i - 2] == 'X' && at >= 4) {
          AddIndexWord(w + at - 4, bytes + 4);
        }
      }
      if (i < 19 && division[i + 1] == 'Y' && at + bytes + 2 <= wordLength) {
        AddIndexWord(w + at, bytes + 2);
        if (i < 18 && division[i + 2] == 'Y' && at + bytes + 4 <= wordLength) {
          AddIndexWord(w + at, bytes + 4);
        }
      }
    }
    at += bytes;
  }
  if (row != nullptr) row->elementCount = element;
}

void NounDivider::PrintDivision(const char* division) {
  if (division == nullptr || division[0] == '\0') return;
  StringEx line(DividerText::kDivisionHeading);
  if (std::strcmp(division, "0") == 0) {
    line.Append(word);
    Logger().Write(line.CStr());
    return;
  }
  int32_t at = 0;
  for (int i = 0; division[i] != '\0'; ++i) {
    const int32_t bytes = PieceBytes(division[i]);
    if (bytes < 0) {
      Logger().Write(DividerText::kPatternError);
      return;
    }
    if (i > 0) line.Append(" + ");
    if (at < wordLength) {
      line.Append(word.CStr() + at,
                  at + bytes <= wordLength ? bytes : wordLength - at);
    }
    at += bytes;
  }
  Logger().Write(line.CStr());
}

void NounDivider::PrintIndexWords() {
  char count[16];
  std::snprintf(count, sizeof(count), "%d", indexWordCount);
  StringEx line(DividerText::kIndexHeading);
  line.Append(count);
  line.Append(DividerText::kCountUnit);
  Logger logger;
  logger.Write(line.CStr());
  for (int i = 0; i < indexWordCount; ++i) logger.Write(indexWords[i].CStr());
}

}  // namespace Quorel
