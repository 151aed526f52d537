// Pre-analysed eojuls and user nouns, loaded on top of the knowledge.
#include <cstring>

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "knowledge/knowledge_io.h"

namespace Quorel {

namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// The text of [begin, end) without blanks at both ends.
void AssignTrimmed(StringEx& out, const char* begin, const char* end) {
  while (begin < end && IsBlank(*begin)) ++begin;
  while (end > begin && IsBlank(end[-1])) --end;
  out.Assign(begin, static_cast<int32_t>(end - begin));
}

int32_t FindLast(const StringEx& text, char c) {
  for (int32_t i = text.Length() - 1; i >= 0; --i) {
    if (text.At(i) == c) return i;
  }
  return -1;
}

void ReportPre(const char* what, const StringEx& line) {
  Report("In PRE dic, ", what, line.CStr(), " line is not loaded.");
}

}  // namespace

int Dictionary::LoadPreAnalysis(const char* path, const char* fileName,
                                bool overwrite) {
  ++generation;
  if (preAnalTrie.bc == nullptr) {
    if (preAnalTrie.Create(kTrieSize, kTrieSize, kTrieSize, kTrieSize) < 0) {
      Report("Can't create preanalysis trie. So dictonaries are not "
             "created...");
      return -1;
    }
    // Offset 0 is never a record, so a value of 0 means a new key.
    preAnalBuffer.push_back(' ');
  }
  std::FILE* in = std::fopen(JoinPath(path, fileName, false).c_str(), "rb");
  if (in == nullptr) return 0;
  StringEx raw;
  StringEx line;
  StringEx eojul;
  Text analyses;
  Text morphemes;
  while (ReadLine(in, raw)) {
    AssignTrimmed(line, raw.CStr(), raw.CStr() + raw.Length());
    if (line.IsEmpty() || std::strchr("; /\n\r", line.At(0)) != nullptr) {
      continue;
    }
    const auto offset = static_cast<int32_t>(preAnalBuffer.size());
    const char* begin = line.CStr();
    const char* end = begin + line.Length();
    const char* cut = begin;
    while (cut < end && *cut != '\t' && *cut != ' ') ++cut;
    if (cut == end) {
      ReportPre("Invalid delimiter.\t", line);
      continue;
    }
    AssignTrimmed(eojul, begin, cut);
    AssignTrimmed(analyses, cut + 1, end);
    if (eojul.IsEmpty()) continue;
    int32_t alternativeCount = analyses.Split('@');
    for (int32_t a = 0; a < alternativeCount; ++a) {
      if (analyses.Field(a).IsEmpty()) {
        ReportPre("Invalid format.\t", line);
        break;
      }
    }
    if (analyses.Find('/', 1) < 0) {
      ReportPre("Invalid format.\t", line);
      continue;
    }
    preAnalBuffer.push_back(static_cast<unsigned char>(alternativeCount));
    for (int32_t a = 0; a < alternativeCount; ++a) {
      morphemes = analyses.Field(a).CStr();
      int32_t morphemeCount = morphemes.Split('+');
      // A bad morpheme is skipped but still counted here.
      preAnalBuffer.push_back(static_cast<unsigned char>(morphemeCount));
      for (int32_t m = 0; m < morphemeCount; ++m) {
        const StringEx& morpheme = morphemes.Field(m);
        int32_t slash = FindLast(morpheme, '/');
        if (slash < 0) {
          Report("Error in ", line.CStr(), " Line...");
          continue;
        }
        const char* form = morpheme.CStr();
        preAnalBuffer.insert(preAnalBuffer.end(), form, form + slash);
        preAnalBuffer.push_back(0);
        preAnalBuffer.push_back(
            static_cast<unsigned char>(PosRowOf(morpheme.CStr(slash + 1))));
      }
    }
    TrieNode node;
    if (preAnalTrie.Insert(eojul.CStr(), node) == 0) {
      Report("Error in reading PRE dic..", eojul.CStr());
      continue;
    }
    // Without overwrite the first record stays; these bytes go unreferenced.
    if (QR_DaTrie::GetValue(node) < 1 || overwrite) {
      QR_DaTrie::SetValue(node, offset);
    }
  }
  std::fclose(in);
  // The inserts dropped the trie's read indexes.
  preAnalTrie.BuildReadIndexes();
  return 1;
}

int Dictionary::LoadUserNoun(const char* path, const char* fileName, bool) {
  ++generation;
  int result = LoadMainDic(JoinPath(path, fileName, false).c_str(), "NNU");
  // Inserting dropped the main trie's read indexes; lookups stay right
  // without them but walk byte by byte, so they are built again.
  IndexLookupTries();
  return result < 0 ? 0 : 1;
}

bool Dictionary::CheckUserNoun(const char* word, const char* pattern) {
  if (std::strcmp(pattern, "0") == 0) return true;
  const auto* w = reinterpret_cast<const unsigned char*>(word);
  const int32_t n = static_cast<int32_t>(std::strlen(word));
  int32_t units = 0;
  for (int32_t k = 0; k < n; ++units) {
    unsigned char c = w[k];
    if (c == '\t' || c == '\n') break;
    if (c < 128) {
      ++k;
      continue;
    }
    // In the symbol rows only pairs of the double-byte form take two bytes;
    // at the end of the word the NUL stands for the second byte.
    unsigned char second = k + 1 < n ? w[k + 1] : 0;
    bool lead = c < 161 || c > 172 || (second >= 65 && second <= 160) ||
                (c == 164 && second < 253);
    if (lead && k + 1 >= n) return false;
    k += lead ? 2 : 1;
  }
  int32_t sum = 0;
  bool halve = false;
  for (const char* p = pattern; *p != '\0'; ++p) {
    char c = *p;
    if (c >= '1' && c <= '9') {
      sum += c - '0';
    } else if (c >= 'a' && c <= 'z') {
      sum += c - 'a' + 10;
    } else if (c >= 'A' && c <= 'Z') {
      sum += 1;
    } else if (c == '@') {
      halve = true;
    } else {
      return false;
    }
    if (sum > 1 << 24) return false;  // no word is that long
  }
  if (halve) sum /= 2;
  return units == sum;
}

}  // namespace Quorel
