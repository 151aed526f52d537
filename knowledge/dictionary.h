// Dictionary: the knowledge object. It builds itself from the source
// dictionaries of a knowledge directory or reads the compiled file, takes
// user nouns and pre-analysed eojuls on top, and answers the analyzers'
// lookups. Filled on one thread, then read-only and shareable; members are
// public plain data so that the analyzers can read the pre-analysis buffer
// and the pools directly.
#ifndef QRLSL_KNOWLEDGE_DICTIONARY_H_
#define QRLSL_KNOWLEDGE_DICTIONARY_H_

#include <cstdint>
#include <map>
#include <vector>

#include "knowledge/je_info_pool.h"
#include "knowledge/rule_files.h"
#include "knowledge/suffix_lists.h"
#include "knowledge/tagger_files.h"
#include "knowledge/text_pool.h"
#include "qrlsl/qr_knowledge.h"
#include "text/strings.h"
#include "trie/lookup_records.h"
#include "trie/qr_datrie.h"

namespace Quorel {

struct SyllableRec;

class Dictionary : public QR_Knowledge {
 public:
  // Sizes and growth steps of every knowledge trie.
  static constexpr int32_t kTrieSize = 102400;
  // Slots of the two frequency arrays; lines beyond them are not kept.
  static constexpr int32_t kMaxDivInfo = 140000;
  static constexpr int32_t kMaxPosInfo = 175000;

  // With autoLoad, loads "./knowledge" from its compiled file.
  explicit Dictionary(bool autoLoad);
  ~Dictionary() override;
  Dictionary(const Dictionary&) = delete;
  Dictionary& operator=(const Dictionary&) = delete;

  int LoadKnowledge(const char* path, bool fromCompiledFile,
                    bool withPreAnalysis) override;
  // 1 when the file was read, 0 when it can't be opened; flag is unused.
  int LoadUserNoun(const char* path, const char* fileName,
                   bool flag) override;
  // 1 at the end of the file, 0 when it can't be opened, -1 when the trie
  // can't be made. With overwrite a repeated eojul takes the new record.
  int LoadPreAnalysis(const char* path, const char* fileName,
                      bool overwrite) override;
  bool CompileKnowledge(const char* path, const char* outputPath) override;
  // The tagger's files under path/sinfo: erule.klg, grule.klg (1, or 0 when
  // unreadable) and the four frequency files (always 1).
  int LoadEojulRules(const char* path) override;
  int LoadGroupRules(const char* path) override;
  int LoadTagLists(const char* path) override;
  void SetTaggerWeights(double w1, double w2, double w3, double w4,
                        double w5) override;

  // ---- Source loaders (results as the callers of LoadKnowledge expect) ----
  // em.dic / js.dic into jeTrie, jeInfos, jePool. -1 when unreadable,
  // else 1.
  int LoadJosaEomi(const char* file, const char* tagName);
  // A main word file (or the user nouns with "NNU"). -1 when unreadable,
  // else 1.
  int LoadMainDic(const char* file, const char* tagName);
  // xp.dic, xsn.dic, xsnxsn.dic, conj.dic by list name "XP", "XSN",
  // "XSNXSN", "CONJ". 0, or -1 when unreadable or the trie can't be made.
  int LoadList(const char* file, const char* listName);
  // The two frequency files; the number of kept entries, -1 when unreadable.
  int LoadDivInfo(const char* file);
  int LoadPosInfo(const char* file);
  // Adds the three jamo endings "ㄴ", "ㄹ", "ㅁ" to jePool and jamoEomiInfos.
  void AddJamoEndings();

  // ---- Compiled file ----
  // Writes directory/qrl.klg. 1, or 0 on failure.
  int SaveCompiled(const char* directory);
  // Reads the compiled file `file`. 1 when all wanted sections were read,
  // 0 when one failed, -1 when the file can't be opened.
  int LoadCompiled(const char* file, bool withPreAnalysis);

  // ---- Lookups; len 0 means up to the NUL, walking stops at a NUL ----
  // 1 when the whole key is a word; si filled (zeroed on a miss).
  int SearchMain(const char* key, SearchInfo& si, int32_t len = 0) const;
  int SearchMain(const spr::stdstyle::string<char>& key, SearchInfo& si,
                 int32_t len = 0) const;
  // Bits of the words that SearchAll keeps when asked for nouns only.
  static constexpr uint32_t kNounOnlyBits = 0x1 | 0x4 | 0x400 | 0x20 | 0x8 | 0x40;
  // Appends every word that starts at `start` and ends before `len` (an end
  // position in key) to results, in increasing end. Returns results.size().
  int SearchAll(const char* key, std::vector<SearchInfo>& results,
                int32_t len = 0, int32_t start = 0, int nounOnly = 0,
                int allowShort = 1, int keepLongest = 0,
                int foreignOnly = 0) const;
  int SearchAll(const spr::stdstyle::string<char>& key,
                std::vector<SearchInfo>& results, int32_t len = 0,
                int32_t start = 0, int nounOnly = 0, int allowShort = 1,
                int keepLongest = 0, int foreignOnly = 0) const;
  // Length of the longest prefix of key that is a josa/eomi key; sjei.jeti
  // holds its record (untouched without a hit).
  int SearchJE(const char* key, SearchJEInfo& sjei, int32_t len = 0) const;
  int SearchJE(const spr::stdstyle::string<char>& key, SearchJEInfo& sjei,
               int32_t len = 0) const;
  // The reading of one class: type 0 josa, 1 eomi of stored type 0, 5, 9,
  // 17, 19 the eomi of that type. Blank (text null) when there is none.
  jeInfo& GetJEInfo(jeInfo& out, const SearchJEInfo& sjei, int type) const;
  // 1 when the reading may follow the syllable.
  static int CheckAttach(const SyllableRec& syllable, const jeInfo& jei);
  // Membership of the whole key in the four lists.
  int IsXP(const char* key, int32_t len = 0) const;
  int IsXSN(const char* key, int32_t len = 0) const;
  int IsXSNXSN(const char* key, int32_t len = 0) const;
  int IsCONJ(const char* key, int32_t len = 0) const;
  int IsXP(const spr::stdstyle::string<char>& key, int32_t len = 0) const;
  int IsXSN(const spr::stdstyle::string<char>& key, int32_t len = 0) const;
  int IsXSNXSN(const spr::stdstyle::string<char>& key,
               int32_t len = 0) const;
  int IsCONJ(const spr::stdstyle::string<char>& key, int32_t len = 0) const;
  // 1 and the frequency, or 0 with freq 0.
  int GetDivFreq(const char* key, int32_t& freq, int32_t len = 0) const;
  int GetDivFreq(const spr::stdstyle::string<char>& key, int32_t& freq,
                 int32_t len = 0) const;
  // 1 and the three counts, or 0 with rec zeroed.
  int GetPosFreq(const char* key, PosInfoRec& rec, int32_t len = 0) const;
  int GetPosFreq(const spr::stdstyle::string<char>& key, PosInfoRec& rec,
                 int32_t len = 0) const;

  // Builds the read indexes of the tries that the analyzers look up
  // most; LoadKnowledge does it at its end, and the loaders that insert
  // later (user nouns, pre-analyses) again. After an Insert the lookups stay
  // right but walk byte by byte until it is called again.
  void IndexLookupTries();
  // Moves at every load and change of the knowledge, so that what an
  // analyzer keeps across tokens (its TokenMemo) knows when it is stale.
  uint64_t generation = 0;

  // True when the user noun `word` fits its composition pattern.
  static bool CheckUserNoun(const char* word, const char* pattern);

  // ---- Members ----
  QR_DaTrie mainTrie;
  std::vector<MainTrieInfo> mainInfos;
  TextPool mainPool;
  QR_DaTrie jeTrie;
  std::vector<JosaEomiTrieInfo> jeInfos;
  JeInfoPool jePool;
  std::vector<JosaEomiTrieInfo> jamoEomiInfos;
  int32_t* divInfo = nullptr;
  PosInfoRec* posInfo = nullptr;
  int32_t sizeDivInfo = 0;
  int32_t sizePosInfo = 0;
  QR_DaTrie divTrie;
  QR_DaTrie posTrie;
  QR_DaTrie preAnalTrie;
  std::vector<unsigned char> preAnalBuffer;
  AVList avList;
  EPList epList;
  XSDList xsdList;
  int32_t sizeXPList = 0;
  int32_t sizeXSNList = 0;
  int32_t sizeXSNXSNList = 0;
  int32_t sizeCONJList = 0;
  QR_DaTrie xpTrie;
  QR_DaTrie xsnTrie;
  QR_DaTrie xsnxsnTrie;
  QR_DaTrie conjTrie;
  std::vector<Grule> groupRules;
  QR_DaTrie eojulRuleTrie;
  QR_DaTrie tagListTrie;
  QR_DaTrie wordTotalTrie;
  std::map<int32_t, int32_t> tagListIndex;
  QR_DaTrie wordTagTrie;
  std::vector<TagListInfoList> tagListInfos;
  std::vector<TagListInfoList> wordListInfos;
  StringEx scratch;
  int32_t littleEndian = 1;  // 0 swaps the compiled file's numbers
  int32_t endianProbe = 0;
  double weight1 = 0.0;
  double weight2 = 0.0;
  double weight3 = 0.0;
  double weight4 = 0.0;
  double weight5 = 0.0;

 private:
  // The value bytes of the whole key (up to len, 0 meaning no limit, or the
  // NUL), or null; length gets the bytes walked on a hit.
  static const unsigned char* KeyValue(const QR_DaTrie& trie, const char* key,
                                       int32_t len, int32_t& length);
  // Whether a user-noun hit text[start..i] of SearchAll's foreignOnly mode
  // is taken: the entry is a user noun and its text is not plain Hangul.
  static bool IsForeignHit(const unsigned char* text, int32_t start,
                           int32_t i, const MainTrieInfo& info);
};

// Inline: the analyzers ask for one class after another on every split.
inline jeInfo& Dictionary::GetJEInfo(jeInfo& out, const SearchJEInfo& sjei,
                                     int type) const {
  out = jeInfo();
  int32_t index = -1;
  switch (type) {
    case 0: index = sjei.jeti.josaInfo; break;
    case 1: index = sjei.jeti.eomiInfo0; break;
    case 5: index = sjei.jeti.eomiInfo5; break;
    case 9: index = sjei.jeti.eomiInfo9; break;
    case 17: index = sjei.jeti.eomiInfo17; break;
    case 19: index = sjei.jeti.eomiInfo19; break;
    default: return out;
  }
  if (index < 0 || index >= jePool.count) return out;
  uint32_t offset = jePool.offset[index];
  if (offset >= static_cast<uint32_t>(jePool.text.used)) return out;
  out.text = jePool.text.At(static_cast<int32_t>(offset));
  out.bits = jePool.bits[index];
  out.attach = jePool.attach[index];
  out.type = jePool.type[index];
  return out;
}

}  // namespace Quorel

#endif  // QRLSL_KNOWLEDGE_DICTIONARY_H_
