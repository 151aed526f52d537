#include "lexical/stop_words.h"

#include <cstdio>
#include <cstring>
#include <new>
#include <string>

#include "lexical/list_file.h"

namespace Quorel {

namespace {
constexpr int32_t kTrieSize = 102400;
}  // namespace

int StopWordContainer::Load(const char* path, const char* fileName) {
  const std::string fullPath = JoinPath(path, fileName);
  FILE* file = std::fopen(fullPath.c_str(), "r");
  if (!file) return 0;

  // Only the newest file counts: release the old arrays before building.
  trie.Clear();
  if (trie.Create(kTrieSize, kTrieSize, kTrieSize, kTrieSize) < 0) {
    std::fprintf(stderr, "Can't create trie. So stopwords are not created...\n");
    std::fclose(file);
    return -1;
  }

  std::string line;
  TrieNode node;
  while (ReadLine(file, line)) {
    if (IsSkippedLine(line.c_str())) continue;
    CutTrailingSpace(line);
    // A repeated word finds its old key; values are never set.
    if (trie.Insert(line.c_str(), node) == 0) {
      std::fprintf(stderr,
                   "Error in reading stopwords...\nThe line content is %s\n",
                   line.c_str());
    }
  }
  std::fclose(file);
  return 1;
}

bool StopWordContainer::IsStopWord(const char* word) {
  if (!word) return false;
  const size_t length = std::strlen(word);
  TrieNode node;
  for (size_t i = 0; i < length; ++i) {
    if (!trie.Walk(static_cast<unsigned char>(word[i]), node)) return false;
  }
  return node.value != nullptr;
}

QR_StopWordContainer* CreateStopWordContainer() {
  return new (std::nothrow) StopWordContainer();
}

}  // namespace Quorel
