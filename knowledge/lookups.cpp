// The read-only lookups of the knowledge. Each walks with a cursor on its own
// stack and copies records out; nothing is allocated but the growth of a
// caller's result vector.
#include <cstdint>
#include <cstring>

#include "knowledge/dictionary.h"
#include "text/syllable_table.h"

namespace Quorel {

namespace {

int32_t EffectiveLength(const spr::stdstyle::string<char>& key, int32_t len) {
  return len == 0 ? key.Length() : len;
}

inline bool InRange(unsigned char c, int low, int high) {
  return c >= low && c <= high;
}

// Points the four texts of si at the pool texts of its record's offsets.
inline void SetTexts(const TextPool& pool, SearchInfo& si) {
  const MainTrieInfo& info = si.info;
  if ((info.nnbInfo & info.nnpInfo & info.nnuInfo & info.nuInfo) < 0) {
    // All four offsets negative, as for most words: no texts.
    si.nnbText = si.nnpText = si.nnuText = si.nuText = nullptr;
    return;
  }
  const char* const buffer = pool.buffer;
  const int32_t used = pool.used;
  auto text = [buffer, used](int32_t offset) -> const char* {
    return offset >= 0 && offset < used ? buffer + offset : nullptr;
  };
  si.nnbText = text(si.info.nnbInfo);
  si.nnpText = text(si.info.nnpInfo);
  si.nnuText = text(si.info.nnuInfo);
  si.nuText = text(si.info.nuInfo);
}

}  // namespace

const unsigned char* Dictionary::KeyValue(const QR_DaTrie& trie,
                                          const char* key, int32_t len,
                                          int32_t& length) {
  // The key ends at len (0: no limit) or at a NUL before it.
  if (key == nullptr || len < 0) return nullptr;
  return trie.ValueOf(reinterpret_cast<const unsigned char*>(key),
                      len == 0 ? INT32_MAX : len, length);
}

int Dictionary::SearchMain(const char* key, SearchInfo& si,
                           int32_t len) const {
  std::memset(static_cast<void*>(&si), 0, sizeof si);
  int32_t length = 0;
  const unsigned char* value = KeyValue(mainTrie, key, len, length);
  if (value == nullptr) return 0;
  int32_t index;
  std::memcpy(&index, value, sizeof index);
  if (index < 0 || static_cast<size_t>(index) >= mainInfos.size()) return 0;
  // With len 0 the walk ran to the NUL, so length is the key's strlen.
  si.end = len == 0 ? length : len;
  si.info = mainInfos[index];
  SetTexts(mainPool, si);
  return 1;
}

int Dictionary::SearchMain(const spr::stdstyle::string<char>& key,
                           SearchInfo& si, int32_t len) const {
  return SearchMain(key.CStr(), si, EffectiveLength(key, len));
}

int Dictionary::SearchAll(const char* key, std::vector<SearchInfo>& results,
                          int32_t len, int32_t start, int nounOnly,
                          int allowShort, int keepLongest,
                          int foreignOnly) const {
  if (key == nullptr || start < 0) return static_cast<int>(results.size());
  const auto* text = reinterpret_cast<const unsigned char*>(key);
  const MainTrieInfo* const infos = mainInfos.data();
  const size_t infoCount = mainInfos.size();
  // With keepLongest, the last hit taken (its end is above 0).
  const MainTrieInfo* longest = nullptr;
  int32_t longestEnd = -1;
  auto append = [&](int32_t end, const MainTrieInfo& info) {
    SearchInfo si;
    si.start = start;
    si.end = end;
    si.info = info;
    SetTexts(mainPool, si);
    results.push_back(si);
  };
  // len 0 walks to the NUL, as the loop would after a strlen.
  mainTrie.WalkPrefixes<1, true>(
      text, start, len == 0 ? INT32_MAX : len,
      [&](int32_t i, const unsigned char* value) {
        int32_t index;
        std::memcpy(&index, value, sizeof index);
        if (index < 0 || static_cast<size_t>(index) >= infoCount) return true;
        const MainTrieInfo& info = infos[index];
        if (foreignOnly == 1 && !IsForeignHit(text, start, i, info)) {
          return true;
        }
        if (nounOnly == 1 && (info.bits & kNounOnlyBits) == 0) return true;
        if (allowShort == 0 && i + 1 - start < (foreignOnly == 1 ? 2 : 3)) {
          return true;
        }
        if (keepLongest == 1) {
          longest = &info;
          longestEnd = i + 1;
        } else {
          append(i + 1, info);
        }
        return true;
      });
  if (keepLongest == 1 && longestEnd >= 1) append(longestEnd, *longest);
  return static_cast<int>(results.size());
}

bool Dictionary::IsForeignHit(const unsigned char* text, int32_t start,
                              int32_t i, const MainTrieInfo& info) {
  // Only user nouns that are not plain Hangul are wanted.
  if ((info.bits & 0x8) == 0) return false;
  for (int32_t j = start; j <= i; j += 2) {
    if (text[j] < 128) return true;
    if (!InRange(text[j], 161, 172)) continue;
    // The first test looks at the hit's last byte and the one behind it (at
    // most the NUL), not at the pair at j; this mode has always answered so.
    if (InRange(text[i], 161, 172) && j + 1 < i &&
        InRange(text[i + 1], 65, 160)) {
      continue;
    }
    if (text[j] == 164 && j + 1 < i && text[j + 1] < 253) continue;
    return true;
  }
  return false;
}

int Dictionary::SearchAll(const spr::stdstyle::string<char>& key,
                          std::vector<SearchInfo>& results, int32_t len,
                          int32_t start, int nounOnly, int allowShort,
                          int keepLongest, int foreignOnly) const {
  return SearchAll(key.CStr(), results, EffectiveLength(key, len), start,
                   nounOnly, allowShort, keepLongest, foreignOnly);
}

int Dictionary::SearchJE(const char* key, SearchJEInfo& sjei,
                         int32_t len) const {
  sjei.length = 0;
  if (key == nullptr) return 0;
  if (len == 0) len = static_cast<int32_t>(std::strlen(key));
  const auto* text = reinterpret_cast<const unsigned char*>(key);
  TrieNode node;
  // The record of a key that ends behind byte i, if it is one.
  auto take = [&](int32_t i) {
    const int32_t index = QR_DaTrie::GetValue(node);
    if (index < 0 || static_cast<size_t>(index) >= jeInfos.size()) return;
    sjei.length = i + 1;
    sjei.jeti = jeInfos[index];
  };
  int32_t i = 0;
  if (len >= 2) {
    const int paired = jeTrie.WalkRootPair(text[0], text[1], node);
    if (paired == 0) return 0;
    if (paired == 1) {
      if (node.value != nullptr) take(1);
      i = 2;
    }
  }
  // No NUL test here: the walk fails on it.
  for (; i < len; ++i) {
    if (jeTrie.Walk(text[i], node) == 0) break;
    if (node.value != nullptr) take(i);
  }
  return sjei.length;
}

int Dictionary::SearchJE(const spr::stdstyle::string<char>& key,
                         SearchJEInfo& sjei, int32_t len) const {
  return SearchJE(key.CStr(), sjei, EffectiveLength(key, len));
}

int Dictionary::CheckAttach(const SyllableRec& syllable, const jeInfo& jei) {
  const bool closed = (syllable.flags & 0x1) != 0;
  if ((jei.attach & 0x4) && syllable.jongseong == 9) return 1;
  if ((jei.attach & 0x1) && !closed) return 0;
  if ((jei.attach & 0x2) && closed) return 0;
  return 1;
}

int Dictionary::IsXP(const char* key, int32_t len) const {
  int32_t length = 0;
  return KeyValue(xpTrie, key, len, length) != nullptr ? 1 : 0;
}

int Dictionary::IsXSN(const char* key, int32_t len) const {
  int32_t length = 0;
  return KeyValue(xsnTrie, key, len, length) != nullptr ? 1 : 0;
}

int Dictionary::IsXSNXSN(const char* key, int32_t len) const {
  int32_t length = 0;
  return KeyValue(xsnxsnTrie, key, len, length) != nullptr ? 1 : 0;
}

int Dictionary::IsCONJ(const char* key, int32_t len) const {
  int32_t length = 0;
  return KeyValue(conjTrie, key, len, length) != nullptr ? 1 : 0;
}

int Dictionary::IsXP(const spr::stdstyle::string<char>& key,
                     int32_t len) const {
  return IsXP(key.CStr(), EffectiveLength(key, len));
}

int Dictionary::IsXSN(const spr::stdstyle::string<char>& key,
                      int32_t len) const {
  return IsXSN(key.CStr(), EffectiveLength(key, len));
}

int Dictionary::IsXSNXSN(const spr::stdstyle::string<char>& key,
                         int32_t len) const {
  return IsXSNXSN(key.CStr(), EffectiveLength(key, len));
}

int Dictionary::IsCONJ(const spr::stdstyle::string<char>& key,
                       int32_t len) const {
  return IsCONJ(key.CStr(), EffectiveLength(key, len));
}

int Dictionary::GetDivFreq(const char* key, int32_t& freq,
                           int32_t len) const {
  freq = 0;
  // Knowledge without division statistics answers 0 without a walk.
  if (divInfo == nullptr || sizeDivInfo <= 0) return 0;
  int32_t length = 0;
  const unsigned char* value = KeyValue(divTrie, key, len, length);
  if (value == nullptr) return 0;
  int32_t index;
  std::memcpy(&index, value, sizeof index);
  if (index < 0 || index >= sizeDivInfo) return 0;
  freq = divInfo[index];
  return 1;
}

int Dictionary::GetDivFreq(const spr::stdstyle::string<char>& key,
                           int32_t& freq, int32_t len) const {
  return GetDivFreq(key.CStr(), freq, EffectiveLength(key, len));
}

int Dictionary::GetPosFreq(const char* key, PosInfoRec& rec,
                           int32_t len) const {
  rec = PosInfoRec();
  if (posInfo == nullptr || sizePosInfo <= 0) return 0;
  int32_t length = 0;
  const unsigned char* value = KeyValue(posTrie, key, len, length);
  if (value == nullptr) return 0;
  int32_t index;
  std::memcpy(&index, value, sizeof index);
  if (index < 0 || index >= sizePosInfo) return 0;
  rec = posInfo[index];
  return 1;
}

int Dictionary::GetPosFreq(const spr::stdstyle::string<char>& key,
                           PosInfoRec& rec, int32_t len) const {
  return GetPosFreq(key.CStr(), rec, EffectiveLength(key, len));
}

}  // namespace Quorel
