// Counting and writing the statistical knowledge. Every list is sorted by
// count, highest first, and by bytes among equals, so that the same corpus
// always gives the same files.
#include "knowledge/corpus_statistics.h"

#include <algorithm>
#include <climits>
#include <filesystem>
#include <fstream>
#include <set>
#include <system_error>

namespace Quorel {

namespace {

const char kFirstOfSentence[] = "FOS";
const char kEndOfSentence[] = "EOS";
const size_t kSyllable = 2;
const size_t kMaxPosLine = 511;  // the position loader's line buffer

// A CP949 Hangul syllable: the KS X 1001 rows from 0xB0 and the extended
// syllables of CP949 before them.
bool IsHangulSyllable(unsigned char lead, unsigned char trail) {
  if (lead < 0x81 || lead > 0xC8) return false;
  if (lead >= 0xA1 && lead <= 0xAF) return trail < 0xA1;
  return trail >= 0x41;
}

bool IsHangulWord(const std::string& text) {
  if (text.empty() || text.size() % kSyllable != 0) return false;
  for (size_t i = 0; i < text.size(); i += kSyllable) {
    if (!IsHangulSyllable(static_cast<unsigned char>(text[i]),
                          static_cast<unsigned char>(text[i + 1]))) {
      return false;
    }
  }
  return true;
}

// The loaders read a line starting with these as a comment, so such a key
// would be lost, and a key holding a line end or TAB would break its line.
bool IsWritableKey(const std::string& key) {
  if (key.empty() || key[0] == ';' || key[0] == '/' || key[0] == ' ') {
    return false;
  }
  return key.find_first_of("\t\r\n") == std::string::npos;
}

// The keys of `counts` by count (highest first), then by bytes.
template <typename Map, typename CountOf>
std::vector<typename Map::key_type> ByCount(const Map& counts, CountOf countOf) {
  std::vector<std::pair<int64_t, typename Map::key_type>> order;
  for (const auto& entry : counts) {
    order.emplace_back(-countOf(entry.second), entry.first);
  }
  std::sort(order.begin(), order.end());
  std::vector<typename Map::key_type> keys;
  for (auto& entry : order) keys.push_back(std::move(entry.second));
  return keys;
}

int64_t Plain(int64_t n) { return n; }

int64_t Sum(const std::array<int64_t, 3>& counts) {
  return counts[0] + counts[1] + counts[2];
}

bool WriteFile(const std::string& path, const std::string& text,
               std::string& error) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
  out.close();
  if (!out) {
    error = "can't write " + path;
    return false;
  }
  return true;
}

}  // namespace

std::string CorpusStatistics::Count(int64_t n) const {
  return std::to_string(std::min<int64_t>(n * scale, INT32_MAX));
}

// A sentence is numbered by the count of sentences before it, so that the
// compounds of a sentence, added before it, share its number.
void CorpusStatistics::See(std::map<std::string, Seen>& seen,
                           const std::string& word) {
  Seen& s = seen[word];
  if (s.count == 0 || s.last != sentences) {
    ++s.count;
    s.last = sentences;
  }
}

bool CorpusStatistics::SeenEnough(const std::map<std::string, Seen>& seen,
                                  const std::string& word) const {
  auto it = seen.find(word);
  return it != seen.end() && it->second.count >= minSentences;
}

void CorpusStatistics::AddCompound(const std::vector<std::string>& pieces) {
  size_t start = 0;
  while (start < pieces.size()) {
    size_t end = start;
    while (end < pieces.size() && IsHangulWord(pieces[end])) ++end;
    const size_t n = end - start;
    for (size_t i = start; n >= 2 && i < end; ++i) {
      const std::string& piece = pieces[i];
      if (i + 1 < end) {
        joints[piece.substr(piece.size() - kSyllable) + " " +
               pieces[i + 1].substr(0, kSyllable)] += 1;
      }
      // Only pieces of more than one syllable are looked up by position.
      if (piece.size() > kSyllable) {
        const int place = i == start ? 0 : i + 1 == end ? 2 : 1;
        positions[piece][place] += 1;
        See(pieceSentences, piece);
      }
    }
    start = end + 1;
  }
}

void CorpusStatistics::AddSentence(const std::vector<TaggedEojul>& eojuls) {
  std::vector<const TaggedEojul*> kept;
  for (const TaggedEojul& e : eojuls) {
    if (!e.tagList.empty()) kept.push_back(&e);
  }
  for (size_t i = 0; i < kept.size(); ++i) {
    const TaggedEojul& e = *kept[i];
    const Context context(i == 0 ? kFirstOfSentence : kept[i - 1]->tagList,
                          i + 1 == kept.size() ? kEndOfSentence
                                               : kept[i + 1]->tagList);
    tagListTotals[e.tagList] += 1;
    tagContexts[e.tagList][context] += 1;
    if (!IsWritableKey(e.surface)) continue;
    const std::string key = e.surface + "-" + e.tagList;
    wordTotals[e.surface] += 1;
    wordContexts[key][context] += 1;
    tagListOfKey[key] = e.tagList;
    See(surfaceSentences, e.surface);
  }
  ++sentences;
}

std::string CorpusStatistics::DivInfoText() const {
  std::string text;
  size_t lines = 0;
  for (const std::string& key : ByCount(joints, Plain)) {
    const int64_t n = joints.at(key);
    if (n * scale < kDivFloor || lines == kMaxDivLines) break;
    text += key + "\t" + Count(n) + "\n";
    ++lines;
  }
  return text;
}

std::string CorpusStatistics::PosInfoText() const {
  std::string text;
  size_t lines = 0;
  for (const std::string& key : ByCount(positions, Sum)) {
    const std::array<int64_t, 3>& c = positions.at(key);
    if (Sum(c) * scale < kPosFloor || lines == kMaxPosLines) break;
    if (!SeenEnough(pieceSentences, key)) continue;
    std::string line = key + "\t" + Count(c[0]) + "\t" + Count(c[1]) + "\t" +
                       Count(c[2]);
    if (line.size() >= kMaxPosLine) continue;
    text += line + "\n";
    ++lines;
  }
  return text;
}

std::vector<std::string> CorpusStatistics::TagLists() const {
  std::vector<std::string> lists = {kFirstOfSentence, kEndOfSentence};
  for (const std::string& list : ByCount(tagListTotals, Plain)) {
    if (lists.size() == kMaxTagLists) break;
    if (IsWritableKey(list) && list != kFirstOfSentence &&
        list != kEndOfSentence) {
      lists.push_back(list);
    }
  }
  return lists;
}

std::string CorpusStatistics::TagListText() const {
  std::string text;
  for (const std::string& list : TagLists()) text += list + "\n";
  return text;
}

std::string CorpusStatistics::WordListText() const {
  std::string text;
  for (const std::string& word : ByCount(wordTotals, Plain)) {
    if (!SeenEnough(surfaceSentences, word)) continue;
    text += word + "\t" + Count(wordTotals.at(word)) + "\n";
  }
  return text;
}

// Blocks in `order`: a header "key TAB lines", then "previous TAB next TAB
// count" by count. A context naming a tag list without an id is left out.
std::string CorpusStatistics::BlocksText(
    const std::map<std::string, ContextCounts>& blocks,
    const std::vector<std::string>& order) const {
  const std::vector<std::string> lists = TagLists();
  const std::set<std::string> known(lists.begin(), lists.end());
  std::string text;
  for (const std::string& key : order) {
    auto block = blocks.find(key);
    if (block == blocks.end()) continue;
    std::string lines;
    size_t count = 0;
    for (const Context& context : ByCount(block->second, Plain)) {
      if (known.count(context.first) == 0 || known.count(context.second) == 0) {
        continue;
      }
      lines += context.first + "\t" + context.second + "\t" +
               Count(block->second.at(context)) + "\n";
      ++count;
    }
    text += key + "\t" + std::to_string(count) + "\n" + lines;
  }
  return text;
}

std::string CorpusStatistics::TagCountText() const {
  std::vector<std::string> order = TagLists();
  order.erase(order.begin(), order.begin() + 2);  // FOS and EOS are no block
  return BlocksText(tagContexts, order);
}

std::string CorpusStatistics::WordCountText() const {
  const std::vector<std::string> lists = TagLists();
  const std::set<std::string> known(lists.begin(), lists.end());
  std::map<std::string, int64_t> keyTotals;
  for (const auto& block : wordContexts) {
    const std::string& list = tagListOfKey.at(block.first);
    if (known.count(list) == 0) continue;
    // The key is the surface, "-" and the tag list.
    const std::string surface =
        block.first.substr(0, block.first.size() - list.size() - 1);
    if (!SeenEnough(surfaceSentences, surface)) continue;
    int64_t total = 0;
    for (const auto& context : block.second) total += context.second;
    keyTotals[block.first] = total;
  }
  return BlocksText(wordContexts, ByCount(keyTotals, Plain));
}

bool CorpusStatistics::Write(const std::string& directory,
                             std::string& error) const {
  const std::string sinfo = directory + "/sinfo";
  std::error_code ignored;  // a failure shows when the first file is written
  std::filesystem::create_directories(sinfo, ignored);
  return WriteFile(directory + "/divInfo_freq_sorted.txt", DivInfoText(),
                   error) &&
         WriteFile(directory + "/posInfo_freq_sorted.txt", PosInfoText(),
                   error) &&
         WriteFile(sinfo + "/tag_list.txt", TagListText(), error) &&
         WriteFile(sinfo + "/word_list.txt", WordListText(), error) &&
         WriteFile(sinfo + "/taglist.klg", TagCountText(), error) &&
         WriteFile(sinfo + "/wordlist.klg", WordCountText(), error);
}

}  // namespace Quorel
