// The statistical knowledge learnt from a tagged corpus: the joint and
// position frequencies of compound nouns (divInfo_freq_sorted.txt,
// posInfo_freq_sorted.txt) and the tagger's frequency model (sinfo/
// tag_list.txt, word_list.txt, taglist.klg, wordlist.klg). Texts are CP949;
// the caller gives compounds as their pieces and sentences as the eojuls the
// scanner cuts, each with the tag-list string of its right analysis.
#ifndef QRLSL_KNOWLEDGE_CORPUS_STATISTICS_H_
#define QRLSL_KNOWLEDGE_CORPUS_STATISTICS_H_

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Quorel {

// One eojul of a training sentence: its surface and its tag-list string
// ("NNG+J_"), both as the tagger builds them.
struct TaggedEojul {
  std::string surface;
  std::string tagList;
};

class CorpusStatistics {
 public:
  // The loaders keep no frequency below these floors, so lines under them
  // are not written.
  static constexpr int64_t kDivFloor = 100;
  static constexpr int64_t kPosFloor = 100;
  // Sizes of the loaders' arrays and the 16-bit tag-list ids.
  static constexpr size_t kMaxDivLines = 140000;
  static constexpr size_t kMaxPosLines = 175000;
  static constexpr size_t kMaxTagLists = 65535;

  // Every count is written multiplied by `scale` (at least 1): a small
  // corpus then speaks with the weight of a large one, and a joint or place
  // seen once clears the loaders' floors when `scale` is 100 or more.
  void SetScale(int64_t factor) { scale = factor < 1 ? 1 : factor; }
  // Word-level entries (a word's totals and contexts, a compound piece's
  // places) are written only for words seen in at least `n` sentences.
  void SetMinSentences(int n) { minSentences = n < 1 ? 1 : n; }

  // A compound noun as its pieces in order; pieces other than Hangul
  // syllables break it into separate compounds of two or more pieces.
  void AddCompound(const std::vector<std::string>& pieces);
  // One sentence; eojuls without a tag list are left out of it. Compounds
  // added before it count as seen in it.
  void AddSentence(const std::vector<TaggedEojul>& eojuls);

  // The content of each file.
  std::string DivInfoText() const;
  std::string PosInfoText() const;
  std::string TagListText() const;
  std::string WordListText() const;
  std::string TagCountText() const;
  std::string WordCountText() const;

  // Writes the six files under `directory` (sinfo/ is made when missing).
  // False with `error` set when a file can't be written.
  bool Write(const std::string& directory, std::string& error) const;

  size_t SentenceCount() const { return sentences; }

 private:
  using Context = std::pair<std::string, std::string>;  // previous, next
  using ContextCounts = std::map<Context, int64_t>;

  // The tag lists that get an id: "FOS", "EOS", then by frequency.
  std::vector<std::string> TagLists() const;
  std::string BlocksText(const std::map<std::string, ContextCounts>& blocks,
                         const std::vector<std::string>& order) const;

  std::map<std::string, int64_t> joints;  // "A B": last and first syllable
  std::map<std::string, std::array<int64_t, 3>> positions;
  std::map<std::string, int64_t> tagListTotals;
  std::map<std::string, ContextCounts> tagContexts;   // by tag list
  std::map<std::string, int64_t> wordTotals;          // by surface
  std::map<std::string, ContextCounts> wordContexts;  // by word key
  std::map<std::string, std::string> tagListOfKey;    // word key's tag list
  // Per word: the sentences it was seen in, and the last of them.
  struct Seen {
    int count = 0;
    size_t last = 0;
  };
  void See(std::map<std::string, Seen>& seen, const std::string& word);
  bool SeenEnough(const std::map<std::string, Seen>& seen,
                  const std::string& word) const;
  std::string Count(int64_t n) const;
  std::map<std::string, Seen> pieceSentences;
  std::map<std::string, Seen> surfaceSentences;
  size_t sentences = 0;
  int64_t scale = 1;
  int minSentences = 1;
};

}  // namespace Quorel

#endif  // QRLSL_KNOWLEDGE_CORPUS_STATISTICS_H_
