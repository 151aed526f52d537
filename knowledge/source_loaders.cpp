// The four loaders of the source dictionaries: josa/eomi files, main word
// files, membership lists and the two frequency files.
#include <cstdlib>
#include <cstring>

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "knowledge/knowledge_io.h"

namespace Quorel {

namespace {

bool StartsComment(const StringEx& line, const char* marks) {
  return line.IsEmpty() || std::strchr(marks, line.At(0)) != nullptr;
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// [begin, end) without blanks at both ends.
void Trim(const char*& begin, const char*& end) {
  while (begin < end && IsBlank(*begin)) ++begin;
  while (end > begin && IsBlank(end[-1])) --end;
}

// strtok's rule with a cursor: skips leading delimiters, cuts at the next.
char* NextToken(char*& rest, const char* delimiters) {
  char* start = rest + std::strspn(rest, delimiters);
  if (*start == '\0') {
    rest = start;
    return nullptr;
  }
  char* end = start + std::strcspn(start, delimiters);
  if (*end != '\0') *end++ = '\0';
  rest = end;
  return start;
}

int32_t ParseInt(const char* text, int base) {
  return static_cast<int32_t>(std::strtol(text, nullptr, base));
}

// The MainTrieInfo field that holds a tag's extra text, or null.
int32_t MainTrieInfo::*ExtraTextField(const char* tag) {
  if (std::strcmp(tag, "NNB") == 0) return &MainTrieInfo::nnbInfo;
  if (std::strcmp(tag, "NNP") == 0) return &MainTrieInfo::nnpInfo;
  if (std::strcmp(tag, "NNU") == 0) return &MainTrieInfo::nnuInfo;
  if (std::strcmp(tag, "NU") == 0) return &MainTrieInfo::nuInfo;
  return nullptr;
}

// Opens a frequency file and makes its trie afresh; null when either fails,
// with the loader's result in `failure` (-1 unreadable, 0 no trie).
std::FILE* OpenFrequencyFile(const char* file, QR_DaTrie& trie,
                             int& failure) {
  failure = -1;
  std::FILE* in = std::fopen(file, "rb");
  if (in == nullptr) return nullptr;
  if (trie.Create(Dictionary::kTrieSize, Dictionary::kTrieSize,
                  Dictionary::kTrieSize, Dictionary::kTrieSize) < 0) {
    Report("Can't create trie. So dictonaries are not created...");
    std::fclose(in);
    failure = 0;
    return nullptr;
  }
  return in;
}

// Stores slot n under key; false when the trie takes no key.
bool KeepSlot(QR_DaTrie& trie, const char* key, int32_t n) {
  TrieNode node;
  if (trie.Insert(key, node) == 0) return false;
  QR_DaTrie::SetValue(node, n);
  return true;
}

void ReportFull(const char* file) {
  Report("Too many lines in ", file, ", the rest is not loaded..");
}

bool TakesMask(const char* tag) {
  static const char* const kTags[] = {"NNG", "NP", "NNI", "MA", "MM", "IC",
                                      "VV",  "VA", "VX",  "NNB", "NNP",
                                      "NNU", "NU"};
  for (const char* t : kTags) {
    if (std::strcmp(tag, t) == 0) return true;
  }
  return false;
}

}  // namespace

int Dictionary::LoadJosaEomi(const char* file, const char* tagName) {
  std::FILE* in = std::fopen(file, "rb");
  if (in == nullptr) return -1;
  const bool isJosa = (PosCodeOf(tagName) & 0x800000) != 0;
  StringEx line;
  StringEx key;
  Text readings;
  Text fields;
  while (ReadLine(in, line)) {
    if (StartsComment(line, "; /")) continue;
    int32_t tab = line.FindFirstChar('\t');
    if (tab < 1) continue;
    key.Assign(line.CStr(), tab);
    readings = line.CStr(tab + 1);
    int32_t n = readings.Split('#');
    JosaEomiTrieInfo jeti;
    uint32_t b = 0;
    for (int32_t r = 0; r < n; ++r) {
      fields = readings.Field(r).CStr();
      int32_t fieldCount = fields.Split(' ');
      const StringEx& first = fields.Field(0);
      int32_t slash = first.FindFirstChar('/');
      if (fieldCount < 2 || fieldCount > 3 || slash < 0) {
        Report("Error in ", line.CStr(), " Line...");
        continue;
      }
      uint32_t mask = PosCodeOf(first.CStr(slash + 1));
      auto attach = static_cast<uint16_t>(
          std::strtoul(fields.Field(1).CStr(), nullptr, 16));
      unsigned long t =
          fieldCount == 3 ? std::strtoul(fields.Field(2).CStr(), nullptr, 16)
                          : 0;
      if (isJosa) {
        b |= mask;
        if (r == n - 1) {
          jeti.josaInfo = jePool.Add(b, attach, static_cast<uint8_t>(t),
                                     first.CStr(), slash);
        }
        continue;
      }
      b = mask;
      int32_t index = jePool.Add(b, attach, static_cast<uint8_t>(t),
                                 first.CStr(), slash);
      switch (t) {
        case 0: jeti.eomiInfo0 = index; break;
        case 5: jeti.eomiInfo5 = index; break;
        case 9: jeti.eomiInfo9 = index; break;
        case 17: jeti.eomiInfo17 = index; break;
        case 19: jeti.eomiInfo19 = index; break;
        default: Report("Error in ", tagName, " file.."); break;
      }
    }
    TrieNode node;
    if (jeTrie.Insert(key.CStr(), node) == 0) {
      Report("Error in reading ", tagName, " dic..", key.CStr());
      continue;
    }
    jeti.bits |= b;
    int32_t value = QR_DaTrie::GetValue(node);
    if (value < 1) {
      QR_DaTrie::SetValue(node, static_cast<int32_t>(jeInfos.size()));
      jeInfos.push_back(jeti);
      continue;
    }
    if (static_cast<size_t>(value) >= jeInfos.size()) continue;
    // The newest line's eomi readings replace all those of an older line.
    JosaEomiTrieInfo& rec = jeInfos[value];
    rec.bits |= jeti.bits;
    if (isJosa) {
      rec.josaInfo = jeti.josaInfo;
    } else {
      rec.eomiInfo0 = jeti.eomiInfo0;
      rec.eomiInfo5 = jeti.eomiInfo5;
      rec.eomiInfo9 = jeti.eomiInfo9;
      rec.eomiInfo17 = jeti.eomiInfo17;
      rec.eomiInfo19 = jeti.eomiInfo19;
    }
  }
  std::fclose(in);
  return 1;
}

int Dictionary::LoadMainDic(const char* file, const char* tag) {
  std::FILE* in = std::fopen(file, "rb");
  if (in == nullptr) return -1;
  const bool isUser = std::strcmp(tag, "NNU") == 0;
  const bool marked = isUser || std::strcmp(tag, "NNG") == 0;
  const uint32_t mask = TakesMask(tag) ? PosCodeOf(tag) : 0;
  int32_t MainTrieInfo::*textField = ExtraTextField(tag);
  StringEx line;
  StringEx word;
  StringEx extra;
  while (ReadLine(in, line)) {
    if (StartsComment(line, "; /\n\r")) continue;
    const char* p = line.CStr();
    const char* lineEnd = p + line.Length();
    bool mark = false;
    if (marked && *p == '@') {
      while (*p == '@') ++p;
      mark = true;
    }
    const char* cut = p;
    while (cut < lineEnd && *cut != '\t' && *cut != ' ') ++cut;
    const char* wordBegin = p;
    const char* wordEnd = cut;
    const char* extraBegin = cut < lineEnd ? cut + 1 : lineEnd;
    const char* extraEnd = lineEnd;
    Trim(wordBegin, wordEnd);
    Trim(extraBegin, extraEnd);
    if (wordBegin == wordEnd) continue;
    word.Assign(wordBegin, static_cast<int32_t>(wordEnd - wordBegin));
    extra.Assign(extraBegin, static_cast<int32_t>(extraEnd - extraBegin));
    if (isUser) {
      char* w = word.Data();
      for (int32_t i = 0; i < word.Length(); ++i) {
        if (w[i] >= 'A' && w[i] <= 'Z') w[i] = static_cast<char>(w[i] + 32);
      }
      if (!CheckUserNoun(word.CStr(), extra.CStr())) {
        Report("An usernoun entry with wrong information : ", line.CStr());
        continue;
      }
    }
    MainTrieInfo mti;
    mti.bits = mask;
    if (textField != nullptr) {
      if (extra.IsEmpty()) {
        Report(tag, " file is corrupted..");
        Report(line.CStr());
        continue;
      }
      mti.*textField = mainPool.Append(extra.CStr(), extra.Length());
    }
    mti.marks = mark ? 1 : 0;
    TrieNode node;
    if (mainTrie.Insert(word.CStr(), node) == 0) {
      Report("Error in reading ", tag, " dic..");
      continue;
    }
    int32_t value = QR_DaTrie::GetValue(node);
    if (value < 1) {
      QR_DaTrie::SetValue(node, static_cast<int32_t>(mainInfos.size()));
      mainInfos.push_back(mti);
      continue;
    }
    if (static_cast<size_t>(value) >= mainInfos.size()) continue;
    MainTrieInfo& rec = mainInfos[value];
    if (textField != nullptr) rec.*textField = mti.*textField;
    if (isUser) {
      // The user's word takes over: a proper noun goes first, which also
      // clears the family bit, so that a common noun then survives.
      if ((rec.bits & 0x40000000) && (rec.bits & 0x4)) {
        rec.nnpInfo = -1;
        rec.bits &= 0xBFFFFFFB;
      }
      if ((rec.bits & 0x40000000) && (rec.bits & 0x1)) {
        rec.bits &= 0xBFFFFFFE;
        rec.marks = 0;
      }
    }
    rec.marks |= mti.marks;
    rec.bits |= mti.bits;
  }
  std::fclose(in);
  return 1;
}

int Dictionary::LoadList(const char* file, const char* listName) {
  QR_DaTrie* trie = &xpTrie;
  int32_t* size = &sizeXPList;
  if (std::strcmp(listName, "XSN") == 0) {
    trie = &xsnTrie;
    size = &sizeXSNList;
  } else if (std::strcmp(listName, "XSNXSN") == 0) {
    trie = &xsnxsnTrie;
    size = &sizeXSNXSNList;
  } else if (std::strcmp(listName, "CONJ") == 0) {
    trie = &conjTrie;
    size = &sizeCONJList;
  }
  std::FILE* in = std::fopen(file, "rb");
  if (in == nullptr) return -1;
  if (trie->bc == nullptr &&
      trie->Create(kTrieSize, kTrieSize, kTrieSize, kTrieSize) < 0) {
    Report("Can't create ", listName,
           " list trie. So dictonaries are not created...");
    std::fclose(in);
    return -1;
  }
  int32_t c = 0;
  StringEx line;
  StringEx key;
  while (ReadLine(in, line)) {
    if (StartsComment(line, "; /\n\r")) continue;
    const char* begin = line.CStr();
    const char* end = begin + line.Length();
    Trim(begin, end);
    key.Assign(begin, static_cast<int32_t>(end - begin));
    if (!KeepSlot(*trie, key.CStr(), c + 1)) {
      Report("Error in reading the ", listName, " list..", line.CStr());
      continue;
    }
    ++c;
  }
  std::fclose(in);
  *size = c;
  return 0;
}

int Dictionary::LoadDivInfo(const char* file) {
  int failure = 0;
  std::FILE* in = OpenFrequencyFile(file, divTrie, failure);
  if (in == nullptr) return failure;
  delete[] divInfo;
  divInfo = new int32_t[kMaxDivInfo]();
  int32_t n = 0;
  char buffer[128];  // a line holds at most 127 bytes
  char key[128];
  while (std::fgets(buffer, sizeof buffer, in) != nullptr) {
    char* rest = buffer;
    char* first = NextToken(rest, " ");
    char* second = first ? NextToken(rest, "\t") : nullptr;
    char* third = second ? NextToken(rest, "\n") : nullptr;
    if (third == nullptr) continue;
    if (n >= kMaxDivInfo) {
      ReportFull(file);
      break;
    }
    divInfo[n] = ParseInt(third, 10);
    if (divInfo[n] <= 99) continue;
    std::snprintf(key, sizeof key, "%s%s", first, second);
    if (KeepSlot(divTrie, key, n)) ++n;
  }
  std::fclose(in);
  sizeDivInfo = n;
  return n;
}

int Dictionary::LoadPosInfo(const char* file) {
  int failure = 0;
  std::FILE* in = OpenFrequencyFile(file, posTrie, failure);
  if (in == nullptr) return failure;
  delete[] posInfo;
  posInfo = new PosInfoRec[kMaxPosInfo]();
  int32_t n = 0;
  char buffer[512];  // a line holds at most 511 bytes
  while (std::fgets(buffer, sizeof buffer, in) != nullptr) {
    char* rest = buffer;
    char* key = NextToken(rest, "\t");
    char* counts[3];
    counts[0] = key ? NextToken(rest, "\t") : nullptr;
    counts[1] = counts[0] ? NextToken(rest, "\t") : nullptr;
    counts[2] = counts[1] ? NextToken(rest, "\n") : nullptr;
    if (counts[2] == nullptr || std::strlen(key) < 3) continue;
    if (n >= kMaxPosInfo) {
      ReportFull(file);
      break;
    }
    int64_t sum = 0;
    for (int k = 0; k < 3; ++k) {
      int32_t count = ParseInt(counts[k], 10);
      posInfo[n].counts[k] = static_cast<uint32_t>(count);
      sum += count;
    }
    if (sum < 100) continue;
    if (KeepSlot(posTrie, key, n)) ++n;
  }
  std::fclose(in);
  sizePosInfo = n;
  return n;
}

}  // namespace Quorel
