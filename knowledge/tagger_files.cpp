// Reading the four frequency files of the tagger, and their lookups.
#include "knowledge/tagger_files.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "knowledge/dictionary.h"
#include "knowledge/line_fields.h"

namespace Quorel {

namespace {

const char kFault[] = "The format of this information is fault : ";
const char kTrieFailed[] =
    "Can't create tag list trie. So dictonaries are not created...";
const char kReadError[] = "Error in reading the tag list..";

// Creates the trie when it has no cells yet; false (reported) on failure.
bool EnsureTrie(QR_DaTrie& trie) {
  if (trie.bc != nullptr) return true;
  int32_t size = Dictionary::kTrieSize;
  if (trie.Create(size, size, size, size) < 0) {
    Report(kTrieFailed);
    return false;
  }
  return true;
}

// Inserts key with value; false (reported) when the trie refuses it.
bool StoreKey(QR_DaTrie& trie, const std::string& key, int32_t value) {
  TrieNode node;
  if (trie.Insert(key.c_str(), node) == 0) {
    Report(kReadError, key.c_str());
    return false;
  }
  QR_DaTrie::SetValue(node, value);
  return true;
}

// Reads the next raw line; false at the end of the file.
bool NextLine(std::FILE* in, StringEx& raw, std::string& line) {
  if (!ReadLine(in, raw)) return false;
  line.assign(raw.CStr(), raw.Length());
  return true;
}

// The text of line from `start` up to the next TAB (or the end), trimmed;
// start moves behind that TAB (or to npos).
std::string NextField(const std::string& line, size_t& start) {
  if (start == std::string::npos || start > line.size()) {
    start = std::string::npos;
    return std::string();
  }
  size_t tab = line.find('\t', start);
  std::string field = Trimmed(line.substr(start, tab == std::string::npos
                                                     ? std::string::npos
                                                     : tab - start));
  start = tab == std::string::npos ? std::string::npos : tab + 1;
  return field;
}

// One "previous TAB next TAB count" line into list; false (reported) when it
// is malformed.
bool ParseCountLine(const Dictionary& dictionary, const std::string& line,
                    TagListInfoList& list) {
  size_t at = 0;
  int32_t ids[2];
  static const char* const kCodes[2][2] = {{"[10]", "[11]"}, {"[12]", "[13]"}};
  for (int f = 0; f < 2; ++f) {
    std::string field = NextField(line, at);
    if (field.empty()) {
      Report(kCodes[f][0], kFault, line.c_str());
      return false;
    }
    ids[f] = GetTagListId(dictionary, field.c_str());
    if (ids[f] < 0) {
      Report(kCodes[f][1], kFault, field.c_str());
      return false;
    }
  }
  std::string count =
      at == std::string::npos ? std::string() : Trimmed(line.substr(at));
  if (count.empty()) {
    Report("[14]", kFault, count.c_str());
    return false;
  }
  if (!AllDigits(count)) {
    Report("[15]", kFault, count.c_str());
    return false;
  }
  int32_t number = std::atoi(count.c_str());
  list.total += number;
  TagListInfo info;
  info.previous = static_cast<uint16_t>(ids[0]);
  info.next = static_cast<uint16_t>(ids[1]);
  list.counts.emplace(info, number);  // the first seen, backwards, stays
  return true;
}

}  // namespace

int LoadTagListFiles(Dictionary& dictionary, const char* path) {
  const std::string directory = SinfoPath(path, "");
  ReadTagList(dictionary, directory);
  ReadWordList(dictionary, directory);
  ReadCountFile(dictionary, directory, 2);
  ReadCountFile(dictionary, directory, 4);
  return 1;
}

int ReadTagList(Dictionary& dictionary, const std::string& directory) {
  std::FILE* in = std::fopen((directory + "tag_list.txt").c_str(), "rb");
  if (in == nullptr) return -1;
  if (!EnsureTrie(dictionary.tagListTrie)) {
    std::fclose(in);
    return -1;
  }
  StringEx raw;
  std::string line;
  int32_t n = 0;
  while (NextLine(in, raw, line)) {
    if (IsCommentLine(line)) continue;
    // A line that fails still takes its id.
    StoreKey(dictionary.tagListTrie, Trimmed(line), n);
    ++n;
  }
  std::fclose(in);
  return 1;
}

int ReadWordList(Dictionary& dictionary, const std::string& directory) {
  const std::string file = directory + "word_list.txt";
  std::FILE* in = std::fopen(file.c_str(), "rb");
  if (in == nullptr) return -1;
  if (!EnsureTrie(dictionary.wordTotalTrie)) {
    std::fclose(in);
    return -1;
  }
  const std::string where = file + " - ";
  StringEx raw;
  std::string line;
  while (NextLine(in, raw, line)) {
    if (IsCommentLine(line)) continue;
    size_t tab = line.find('\t');
    if (tab == std::string::npos) {
      Report("[0]", kFault, where.c_str(), line.c_str());
      continue;
    }
    std::string word = Trimmed(line.substr(0, tab));
    if (word.empty()) {
      Report("[1]", kFault, where.c_str(), word.c_str());
      continue;
    }
    std::string rest = Trimmed(line.substr(tab + 1));
    if (rest.empty()) {
      Report("[2]", kFault, where.c_str(), rest.c_str());
      continue;
    }
    if (!AllDigits(rest)) {
      Report("[3]", kFault, where.c_str(), rest.c_str());
      continue;
    }
    StoreKey(dictionary.wordTotalTrie, word, std::atoi(rest.c_str()));
  }
  std::fclose(in);
  return 1;
}

int ReadCountFile(Dictionary& dictionary, const std::string& directory,
                  int mode) {
  const char* name;
  if (mode == 2) {
    Report("\nTI loading");
    name = "taglist.klg";
  } else if (mode == 4) {
    Report("\nWI loading");
    name = "wordlist.klg";
  } else {
    Report("mode error");
    return -1;
  }
  std::FILE* in = std::fopen((directory + name).c_str(), "rb");
  if (in == nullptr) return -1;
  StringEx raw;
  std::string line;
  std::vector<std::string> lines;
  int32_t b = 0;
  while (NextLine(in, raw, line)) {
    line = Trimmed(line);
    if (IsCommentLine(line)) continue;
    size_t tab = line.find('\t');
    if (tab == std::string::npos || tab == 0) continue;
    std::string key = line.substr(0, tab);
    // The number is read from the TAB on; strtol passes over it.
    long n = std::strtol(line.c_str() + tab, nullptr, 10);
    lines.clear();
    for (long j = 0; j < n && NextLine(in, raw, line); ++j) {
      lines.push_back(Trimmed(line));
    }
    if (b % 1000 == 0) std::fprintf(stderr, "[%d] ", static_cast<int>(b));
    ++b;
    if (mode == 2) {
      AddTagBlock(dictionary, key, lines);
    } else {
      AddWordBlock(dictionary, key, lines);
    }
  }
  std::fclose(in);
  std::fprintf(stderr, "[%d]\n", static_cast<int>(b));
  return 1;
}

int ParseBlock(const Dictionary& dictionary, const std::string& /*key*/,
               const std::vector<std::string>& lines, TagListInfoList& list) {
  list.total = 0;
  // A malformed line is given up and the next one taken, so that no line
  // after it is lost and the block always ends.
  for (size_t j = lines.size(); j > 0; --j) {
    ParseCountLine(dictionary, lines[j - 1], list);
  }
  return 1;
}

int AddTagBlock(Dictionary& dictionary, const std::string& key,
                const std::vector<std::string>& lines) {
  TagListInfoList list;
  if (ParseBlock(dictionary, key, lines, list) < 0) return -1;
  int32_t id = GetTagListId(dictionary, key.c_str());
  if (id < 0) {
    Report("[7]", kFault, key.c_str());
    return -1;
  }
  dictionary.tagListInfos.push_back(list);
  dictionary.tagListIndex.insert(std::make_pair(
      id, static_cast<int32_t>(dictionary.tagListInfos.size() - 1)));
  return 1;
}

int AddWordBlock(Dictionary& dictionary, const std::string& key,
                 const std::vector<std::string>& lines) {
  TagListInfoList list;
  if (ParseBlock(dictionary, key, lines, list) < 0) return -1;
  if (!EnsureTrie(dictionary.wordTagTrie)) return -1;
  if (key.empty()) {
    Report("[8]", kFault, key.c_str());
    return -1;
  }
  dictionary.wordListInfos.push_back(list);
  StoreKey(dictionary.wordTagTrie, key,
           static_cast<int32_t>(dictionary.wordListInfos.size() - 1));
  return 1;
}

bool FindKeyValue(const QR_DaTrie& trie, const char* key, int32_t& value) {
  if (key == nullptr || trie.bc == nullptr) return false;
  TrieNode node;
  for (const char* p = key; *p != '\0'; ++p) {
    if (trie.Walk(static_cast<unsigned char>(*p), node) == 0) return false;
  }
  if (node.value == nullptr) return false;
  value = QR_DaTrie::GetValue(node);
  return true;
}

int32_t GetTagListId(const Dictionary& dictionary, const char* text) {
  int32_t id = -1;
  return FindKeyValue(dictionary.tagListTrie, text, id) ? id : -1;
}

int32_t GetWordTotal(const Dictionary& dictionary, const char* text) {
  int32_t total = 0;
  return FindKeyValue(dictionary.wordTotalTrie, text, total) ? total : 0;
}

int GetTagListIndex(const Dictionary& dictionary, int32_t id,
                    int32_t& index) {
  index = -1;
  auto found = dictionary.tagListIndex.find(id);
  if (found == dictionary.tagListIndex.end()) return 0;
  index = found->second;
  return 1;
}

int GetWordIndex(const Dictionary& dictionary, const char* text,
                 int32_t& index) {
  index = -1;
  int32_t value = -1;
  if (!FindKeyValue(dictionary.wordTagTrie, text, value)) return 0;
  index = value;
  return 1;
}

}  // namespace Quorel
