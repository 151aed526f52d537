#include "lexical/synonyms.h"

#include <cstdio>
#include <new>

#include "lexical/list_file.h"
#include "lexical/scramble.h"
#include "lexical/synonym.h"

namespace Quorel {

namespace {

constexpr int32_t kTrieSize = 102400;
const char kId[] = "SYN";

// Bytes of the CP949 character at line[i]: 2 for a lead byte with a byte
// after it, else 1. Keeps delimiters from matching a trail byte.
size_t CharLength(const std::string& line, size_t i) {
  return (static_cast<unsigned char>(line[i]) >= 0x81 && i + 1 < line.size())
             ? 2
             : 1;
}

bool IsBlankOrTab(char c) { return c == ' ' || c == '\t'; }

}  // namespace

SynonymContainer::SynonymContainer()
    : synonymDelimiter(' '), wordDelimiter('_'), synonymSet(" "), wordSet("_") {}

void SynonymContainer::SetSynonymDelimiter(const char* delimiters) {
  if (!delimiters || !*delimiters) return;
  synonymSet = delimiters;
  synonymDelimiter = delimiters[0];
}

void SynonymContainer::SetWordDelimiter(const char* delimiters) {
  if (!delimiters || !*delimiters) return;
  wordSet = delimiters;
  wordDelimiter = delimiters[0];
}

int SynonymContainer::Load(const char* path, const char* fileName,
                           bool scrambled) {
  const std::string fullPath = JoinPath(path, fileName);
  if (synonymDelimiter == wordDelimiter) {
    std::fprintf(stderr,
                 "Because delimeter among synonyms and delimiter among words "
                 "are same, Can't not load synonym dictionary.\n"
                 "Please set delimiters differentlty.\n");
    return -1;
  }
  FILE* file = std::fopen(fullPath.c_str(), scrambled ? "rb" : "r");
  if (!file) return 0;

  // Only the newest file counts: release the old groups before building.
  trie.Clear();
  entries.clear();
  overlaps.clear();
  if (trie.Create(kTrieSize, kTrieSize, kTrieSize, kTrieSize) < 0) {
    std::fprintf(stderr, "Can't create trie. So synonyms are not created...\n");
    std::fclose(file);
    return -1;
  }
  entries.emplace_back();  // index 0: a trie value below 1 means a new word

  std::string line;
  for (;;) {
    if (scrambled) {
      const int read = ReadScrambledRecord(file, line);
      if (read < 0) break;
      if (read == 0) continue;
    } else if (!ReadLine(file, line)) {
      break;
    }
    if (IsSkippedLine(line.c_str())) continue;
    AddLine(line);
  }
  std::fclose(file);
  return 1;
}

void SynonymContainer::NormaliseDelimiters(std::string& line) const {
  std::string normal;
  normal.reserve(line.size());
  const std::string* run = nullptr;  // the set of the run being passed, if any
  for (size_t i = 0; i < line.size();) {
    const size_t length = CharLength(line, i);
    const char c = line[i];
    const std::string* set = nullptr;
    if (length == 1 && synonymSet.find(c) != std::string::npos) {
      set = &synonymSet;
    } else if (length == 1 && wordSet.find(c) != std::string::npos) {
      set = &wordSet;
    }
    if (!set) {
      normal.append(line, i, length);
    } else if (set != run) {
      normal += (set == &synonymSet) ? synonymDelimiter : wordDelimiter;
    }
    run = set;
    i += length;
  }
  line.swap(normal);
}

void SynonymContainer::AddLine(std::string& line) {
  CutTrailingSpace(line);
  NormaliseDelimiters(line);

  uint32_t head = 0;
  std::string word;
  for (size_t pos = 0; pos <= line.size();) {
    while (pos < line.size() && IsBlankOrTab(line[pos])) ++pos;
    size_t end = pos;
    while (end < line.size() && line[end] != synonymDelimiter) {
      end += CharLength(line, end);
    }
    word.assign(line, pos, end - pos);
    pos = end + 1;
    while (!word.empty() && IsBlankOrTab(word.back())) word.pop_back();

    uint32_t flags = 0;
    if (!word.empty() && (word[0] == '<' || word[0] == '>' || word[0] == '|')) {
      if (word[0] == '<') flags |= kLessMarkBit;
      if (word[0] == '>') flags |= kGreaterMarkBit;
      word.erase(0, 1);
    }
    if (word.empty()) continue;

    if (head == 0) {
      head = static_cast<uint32_t>(entries.size());
      flags |= kHeadBit;
    } else {
      flags |= head << kLinkShift;
    }
    if (!AddEntry(word, flags, head)) {
      std::fprintf(stderr, "Error in reading %s dic..\n", kId);
    }
  }
  if (head != 0) {
    const uint32_t size = static_cast<uint32_t>(entries.size()) - head;
    entries[head].flags |= (size & kGroupSizeMask) << kGroupSizeShift;
  }
}

bool SynonymContainer::AddEntry(const std::string& word, uint32_t flags,
                                uint32_t head) {
  const uint32_t index = static_cast<uint32_t>(entries.size());
  constexpr uint32_t kLowBits = (1u << kLinkShift) - 1;
  TrieNode node;
  // The key keeps the word delimiters as written.
  const bool inserted = trie.Insert(word.c_str(), node) != 0;
  if (inserted) {
    const int32_t value = QR_DaTrie::GetValue(node);
    if (value < 1) {
      QR_DaTrie::SetValue(node, static_cast<int32_t>(index));
    } else {
      EntryNInfo& first = entries[static_cast<uint32_t>(value)];
      uint32_t list = static_cast<uint32_t>(overlaps.size());
      if (first.flags & kOverlapBit) {
        list = LinkOf(first.flags);
        if (overlaps[list].back() != head) overlaps[list].push_back(head);
        flags = (flags & kLowBits) | kOverlapBit | (list << kLinkShift);
      } else {
        const uint32_t firstHead = (first.flags & kHeadBit)
                                       ? static_cast<uint32_t>(value)
                                       : LinkOf(first.flags);
        if (firstHead != head) {
          overlaps.push_back({firstHead, head});
          first.flags = (first.flags & kLowBits) | kOverlapBit | (list << kLinkShift);
          flags = (flags & kLowBits) | kOverlapBit | (list << kLinkShift);
        } else {
          // The same word twice in one group: no overlap.
          flags = (flags & kLowBits & ~kOverlapBit) | (head << kLinkShift);
        }
      }
    }
  }

  EntryNInfo entry;
  entry.flags = flags;
  entry.text.Assign(word.data(), static_cast<int32_t>(word.size()));
  char* text = entry.text.Data();
  for (size_t i = 0; i < word.size(); i += CharLength(word, i)) {
    if (text[i] == wordDelimiter) text[i] = ' ';
  }
  entries.push_back(entry);
  return inserted;
}

int SynonymContainer::Search(const char* word, QR_Synonym* result) {
  Synonym* synonym = dynamic_cast<Synonym*>(result);
  if (!synonym) return 0;
  synonym->Reset();
  synonym->Bind(this);
  if (!word) return 0;

  TrieNode node;
  for (const char* p = word; *p != '\0' && *p != ';'; ++p) {
    if (!trie.Walk(static_cast<unsigned char>(*p), node)) return 0;
  }
  if (node.value) {
    const int32_t value = QR_DaTrie::GetValue(node);
    if (value >= 1 && static_cast<size_t>(value) < entries.size()) {
      const EntryNInfo& found = entries[static_cast<uint32_t>(value)];
      const int count = (found.flags & kOverlapBit)
                            ? static_cast<int>(overlaps[LinkOf(found.flags)].size())
                            : 1;
      synonym->SetFound(static_cast<uint32_t>(value), count);
      if (node.state > 0) synonym->NoteLongerWords();
      return 1;
    }
  }
  if (node.state != 0) synonym->NoteLongerWords();
  return 0;
}

int SynonymContainer::ScrambleFile(const char* path) {
  if (!path) return -1;
  const std::string source = path;
  const size_t slash = source.find_last_of("/\\");
  const size_t nameStart = (slash == std::string::npos) ? 0 : slash + 1;
  const size_t dot = source.rfind('.');
  std::string target = (dot != std::string::npos && dot >= nameStart)
                           ? source.substr(0, dot + 1)
                           : source + ".";
  target += "bin";
  if (target == source) return -1;  // would overwrite its own input

  FILE* in = std::fopen(source.c_str(), "r");
  if (!in) return -1;
  FILE* out = std::fopen(target.c_str(), "wb");
  if (!out) {
    std::fclose(in);
    return -1;
  }
  std::string line;
  std::string record;
  while (ReadLine(in, line)) {
    if (IsSkippedLine(line.c_str())) continue;
    if (line.back() == '\r') line.pop_back();
    record.clear();
    if (!ScrambleLine(line.data(), line.size(), record)) {
      std::fprintf(stderr, "Line too long to scramble, passed over..\n");
      continue;
    }
    std::fwrite(record.data(), 1, record.size(), out);
  }
  std::fclose(out);
  std::fclose(in);
  return 0;
}

QR_SynonymContainer* CreateSynonymContainer() {
  return new (std::nothrow) SynonymContainer();
}

}  // namespace Quorel
