// WalkBytes against Walk byte by byte: the same cursor and value behind the
// last byte for every prefix of keys, near-keys and strangers, over cell
// and tail paths, with lengths that stop early or run into a NUL.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "trie/qr_datrie.h"
#include "trie/trie_helpers.h"

namespace Quorel {
namespace {

using testing_trie::InsertValue;

// Walk over key[0..len) stopping at a NUL, as WalkBytes promises to.
int WalkEach(const QR_DaTrie& trie, const std::string& key, int32_t len,
             TrieNode& node) {
  for (int32_t i = 0; i < len && i < static_cast<int32_t>(key.size()) && key[i] != 0; ++i) {
    if (trie.Walk(static_cast<unsigned char>(key[i]), node) == 0) return 0;
  }
  return 1;
}

class WalkBytesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(0, trie.Create(1024, 1024, 1024, 1024));
    std::mt19937 random(7);
    for (int i = 0; i < 400; ++i) {
      std::string key;
      const int length = 1 + static_cast<int>(random() % 9);
      for (int k = 0; k < length; ++k) key += static_cast<char>('a' + random() % 5);
      keys.push_back(key);
      InsertValue(trie, key, i + 1);
    }
  }

  void ExpectSame(const std::string& key, int32_t len) {
    TrieNode byWalk;
    TrieNode byBytes;
    const int walked = WalkEach(trie, key, len, byWalk);
    const int bytes = trie.WalkBytes(reinterpret_cast<const unsigned char*>(key.c_str()),
                                     len, byBytes);
    ASSERT_EQ(walked, bytes) << key << " " << len;
    if (walked == 0) return;
    EXPECT_EQ(byWalk.state, byBytes.state) << key << " " << len;
    EXPECT_EQ(byWalk.value, byBytes.value) << key << " " << len;
  }

  QR_DaTrie trie;
  std::vector<std::string> keys;
};

TEST_F(WalkBytesTest, AnswersAsWalkOnEveryPrefixAndNeighbour) {
  for (const std::string& key : keys) {
    for (int32_t len = 0; len <= static_cast<int32_t>(key.size()) + 1; ++len) {
      ExpectSame(key, len);
      ExpectSame(key + "e", len);
      ExpectSame(key + "zz", len + 1);
    }
  }
}

TEST_F(WalkBytesTest, StopsAtANulInsideTheLength) {
  for (size_t k = 0; k < 50; ++k) {
    const std::string key = keys[k];
    std::string withNul = key;
    withNul += '\0';
    withNul += "abc";
    ExpectSame(withNul, static_cast<int32_t>(withNul.size()));
    TrieNode node;
    ASSERT_EQ(1, trie.WalkBytes(reinterpret_cast<const unsigned char*>(withNul.c_str()),
                                static_cast<int32_t>(withNul.size()), node));
    EXPECT_NE(nullptr, node.value) << key;  // the key before the NUL
  }
  TrieNode empty;
  EXPECT_EQ(1, trie.WalkBytes(reinterpret_cast<const unsigned char*>(""), 5, empty));
  EXPECT_EQ(nullptr, empty.value);
  EXPECT_EQ(1, empty.state);
}

// The hits (position, value bytes) of Walk over key[begin], key[begin+step],
// ... from the root, as WalkPrefixes promises them.
std::vector<std::pair<int32_t, const unsigned char*>> HitsByWalk(
    const QR_DaTrie& trie, const std::string& key, int32_t begin, int32_t end,
    int step, bool stopAtNul) {
  std::vector<std::pair<int32_t, const unsigned char*>> hits;
  TrieNode node;
  for (int32_t i = begin; step > 0 ? i < end : i > end; i += step) {
    const auto c = static_cast<unsigned char>(key[i]);
    if (stopAtNul && c == 0) break;
    if (trie.Walk(c, node) == 0) break;
    if (node.value != nullptr) hits.emplace_back(i, node.value);
  }
  return hits;
}

template <int step, bool stopAtNul>
std::vector<std::pair<int32_t, const unsigned char*>> HitsByPrefixes(
    const QR_DaTrie& trie, const std::string& key, int32_t begin,
    int32_t end) {
  std::vector<std::pair<int32_t, const unsigned char*>> hits;
  trie.WalkPrefixes<step, stopAtNul>(
      reinterpret_cast<const unsigned char*>(key.data()), begin, end,
      [&hits](int32_t i, const unsigned char* value) {
        hits.emplace_back(i, value);
        return true;
      });
  return hits;
}

// Keys, keys with a byte more or less, and keys followed by the terminator
// byte, a NUL and more (walks that run past a tail's ";").
std::vector<std::string> Probes(const std::vector<std::string>& keys) {
  std::vector<std::string> probes;
  for (const std::string& key : keys) {
    probes.push_back(key);
    probes.push_back(key + "e");
    probes.push_back(key.substr(0, key.size() - 1));
    probes.push_back(key + ";" + std::string(1, '\0') + "ab");
    probes.push_back(key + std::string(1, '\0') + "ab");
    probes.push_back("c" + key);
  }
  return probes;
}

TEST_F(WalkBytesTest, ValueOfAnswersAsWalk) {
  for (const std::string& probe : Probes(keys)) {
    const auto size = static_cast<int32_t>(probe.size());
    for (int32_t len = 0; len <= size + 1; ++len) {
      TrieNode node;
      const int walked = WalkEach(trie, probe, len, node);
      const int32_t bytes = static_cast<int32_t>(
          std::min<size_t>(static_cast<size_t>(len), std::strlen(probe.c_str())));
      int32_t length = -1;
      const unsigned char* value = trie.ValueOf(
          reinterpret_cast<const unsigned char*>(probe.c_str()), len, length);
      EXPECT_EQ(walked != 0 && bytes > 0 ? node.value : nullptr, value)
          << probe << " " << len;
      if (value != nullptr) {
        EXPECT_EQ(bytes, length) << probe << " " << len;
      }
    }
  }
}

TEST_F(WalkBytesTest, WalkPrefixesHitsAsWalkBothWays) {
  for (const std::string& probe : Probes(keys)) {
    const auto size = static_cast<int32_t>(probe.size());
    for (int32_t begin = 0; begin < size; ++begin) {
      EXPECT_EQ((HitsByWalk(trie, probe, begin, size, 1, true)),
                (HitsByPrefixes<1, true>(trie, probe, begin, size)))
          << probe << " " << begin;
      EXPECT_EQ((HitsByWalk(trie, probe, begin, size, 1, false)),
                (HitsByPrefixes<1, false>(trie, probe, begin, size)))
          << probe << " " << begin;
      EXPECT_EQ((HitsByWalk(trie, probe, begin, 0, -1, false)),
                (HitsByPrefixes<-1, false>(trie, probe, begin, 0)))
          << probe << " " << begin;
    }
  }
}

TEST_F(WalkBytesTest, WalkPrefixesStopsWhenTheCallbackSaysSo) {
  const std::string probe = keys[0] + keys[1];
  const auto all = HitsByWalk(trie, probe, 0, 64, 1, true);
  ASSERT_FALSE(all.empty());
  int calls = 0;
  trie.WalkPrefixes<1, true>(
      reinterpret_cast<const unsigned char*>(probe.c_str()), 0, 64,
      [&calls](int32_t, const unsigned char*) { return ++calls < 1; });
  EXPECT_EQ(1, calls);
}

TEST(WalkPrefixesEmpty, ATrieNeverCreatedHasNoHits) {
  QR_DaTrie trie;
  int32_t length = 0;
  EXPECT_EQ(nullptr, trie.ValueOf(reinterpret_cast<const unsigned char*>("ab"), 2, length));
  bool called = false;
  trie.WalkPrefixes<1, true>(reinterpret_cast<const unsigned char*>("ab"), 0, 2,
                             [&called](int32_t, const unsigned char*) {
                               called = true;
                               return true;
                             });
  EXPECT_FALSE(called);
}

}  // namespace
}  // namespace Quorel
