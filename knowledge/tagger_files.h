// The frequency model of the tagger, four CP949 text files under
// <knowledge>/sinfo: tag_list.txt (tag-list strings, id = line number),
// word_list.txt (word totals), taglist.klg and wordlist.klg (blocks of
// "previous TAB next TAB count" lines under a key). Bad lines are reported on
// standard error and skipped; the lookups answer "unknown" when nothing is
// loaded.
#ifndef QRLSL_KNOWLEDGE_TAGGER_FILES_H_
#define QRLSL_KNOWLEDGE_TAGGER_FILES_H_

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace Quorel {

class Dictionary;
class QR_DaTrie;

// The key of a count: the tag-list ids before and after.
struct TagListInfo {
  uint16_t previous = 0;
  uint16_t next = 0;
  bool operator<(const TagListInfo& other) const {
    return previous != other.previous ? previous < other.previous
                                      : next < other.next;
  }
};

// The counts of one block, and their sum.
struct TagListInfoList {
  std::map<TagListInfo, int32_t> counts;
  int32_t total = 0;
};

// Reads the four files of path/sinfo in order. Always 1.
int LoadTagListFiles(Dictionary& dictionary, const char* path);
// The single files; `directory` ends in a separator. -1 when unreadable.
int ReadTagList(Dictionary& dictionary, const std::string& directory);
int ReadWordList(Dictionary& dictionary, const std::string& directory);
// Mode 2 reads taglist.klg, mode 4 wordlist.klg; any other mode is refused
// ("mode error", -1). 1 at the end of the file.
int ReadCountFile(Dictionary& dictionary, const std::string& directory,
                  int mode);
// The lines of one block (last to first) into list; a malformed line is
// reported and skipped. total = sum of the counts. Returns 1.
int ParseBlock(const Dictionary& dictionary, const std::string& key,
               const std::vector<std::string>& lines, TagListInfoList& list);
// A taglist.klg block under the tag list `key`; -1 when the key is unknown.
int AddTagBlock(Dictionary& dictionary, const std::string& key,
                const std::vector<std::string>& lines);
// A wordlist.klg block; a repeated key points at the later block.
int AddWordBlock(Dictionary& dictionary, const std::string& key,
                 const std::vector<std::string>& lines);

// Lookups; each walks its trie to the key's NUL.
int32_t GetTagListId(const Dictionary& dictionary, const char* text);  // or -1
int32_t GetWordTotal(const Dictionary& dictionary, const char* text);  // or 0
// 1 with the index of the tag list's block, 0 with index -1.
int GetTagListIndex(const Dictionary& dictionary, int32_t id, int32_t& index);
// 1 with the index of the word key's block, 0 with index -1.
int GetWordIndex(const Dictionary& dictionary, const char* text,
                 int32_t& index);
// True when the whole NUL-terminated key is in the trie; value is its value.
bool FindKeyValue(const QR_DaTrie& trie, const char* key, int32_t& value);

}  // namespace Quorel

#endif  // QRLSL_KNOWLEDGE_TAGGER_FILES_H_
