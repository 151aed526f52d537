// WalkBytes, ValueOf and WalkPrefixes against Walk byte by byte: the same
// cursor and values for every prefix of keys, near-keys and strangers, over
// cell and tail paths, with lengths that stop early or run into a NUL; over
// ASCII keys and over double-byte keys with and without the read indexes.
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

// Keys of 1..9 letters a..e.
std::string LetterKey(std::mt19937& random) {
  std::string key;
  const int length = 1 + static_cast<int>(random() % 9);
  for (int k = 0; k < length; ++k) key += static_cast<char>('a' + random() % 5);
  return key;
}

// Keys of double-byte characters (leads B0, B1, C0; trails A1, A2 and "a"),
// some ending in half a character; C0 alone is a key, so that its pairs are
// left to the byte walk.
std::string DoubleByteKey(std::mt19937& random) {
  static const char kLeads[] = "\xB0\xB1\xC0";
  static const char kTrails[] = "\xA1\xA2" "a";
  if (random() % 50 == 0) return "\xC0";
  std::string key;
  const int length = 1 + static_cast<int>(random() % 4);
  for (int k = 0; k < length; ++k) {
    key += kLeads[random() % 3];
    key += kTrails[random() % 3];
  }
  if (random() % 4 == 0) key += kLeads[random() % 3];
  return key;
}

struct WalkCase {
  std::string (*makeKey)(std::mt19937&);
  bool indexed;  // with the read indexes
};

class WalkBytesTest : public ::testing::TestWithParam<WalkCase> {
 protected:
  void SetUp() override {
    ASSERT_EQ(0, trie.Create(1024, 1024, 1024, 1024));
    std::mt19937 random(7);
    for (int i = 0; i < 400; ++i) {
      const std::string key = GetParam().makeKey(random);
      keys.push_back(key);
      InsertValue(trie, key, i + 1);
    }
    if (GetParam().indexed) trie.BuildReadIndexes();
    ASSERT_EQ(GetParam().indexed, trie.HasReadIndexes());
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

TEST_P(WalkBytesTest, AnswersAsWalkOnEveryPrefixAndNeighbour) {
  for (const std::string& key : keys) {
    for (int32_t len = 0; len <= static_cast<int32_t>(key.size()) + 1; ++len) {
      ExpectSame(key, len);
      ExpectSame(key + "e", len);
      ExpectSame(key + "zz", len + 1);
    }
  }
}

TEST_P(WalkBytesTest, StopsAtANulInsideTheLength) {
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
    probes.push_back(key + "\xB0\xA1");
    probes.push_back("\xB1" + key);
  }
  return probes;
}

TEST_P(WalkBytesTest, ValueOfAnswersAsWalk) {
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

TEST_P(WalkBytesTest, WalkPrefixesHitsAsWalkBothWays) {
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

TEST_P(WalkBytesTest, WalkPrefixesStopsWhenTheCallbackSaysSo) {
  const std::string probe = keys[0] + keys[1];
  const auto all = HitsByWalk(trie, probe, 0, 64, 1, true);
  ASSERT_FALSE(all.empty());
  int calls = 0;
  trie.WalkPrefixes<1, true>(
      reinterpret_cast<const unsigned char*>(probe.c_str()), 0, 64,
      [&calls](int32_t, const unsigned char*) { return ++calls < 1; });
  EXPECT_EQ(1, calls);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, WalkBytesTest,
    ::testing::Values(WalkCase{LetterKey, false}, WalkCase{DoubleByteKey, false},
                      WalkCase{DoubleByteKey, true}));

TEST(ReadIndexes, InsertDropsThemAndLookupsStayRight) {
  QR_DaTrie trie;
  ASSERT_EQ(0, trie.Create(1024, 1024, 1024, 1024));
  InsertValue(trie, "\xB0\xA1\xB0\xA2", 1);
  trie.BuildReadIndexes();
  ASSERT_TRUE(trie.HasReadIndexes());
  InsertValue(trie, "\xB0\xA1\xB1", 2);  // splits the first key's tail
  EXPECT_FALSE(trie.HasReadIndexes());
  int32_t length = 0;
  const unsigned char* value = trie.ValueOf(
      reinterpret_cast<const unsigned char*>("\xB0\xA1\xB1"), 3, length);
  ASSERT_NE(nullptr, value);
  EXPECT_EQ(2, value[0]);
  trie.BuildReadIndexes();
  value = trie.ValueOf(reinterpret_cast<const unsigned char*>("\xB0\xA1\xB0\xA2"),
                       4, length);
  ASSERT_NE(nullptr, value);
  EXPECT_EQ(1, value[0]);
  trie.Clear();
  EXPECT_FALSE(trie.HasReadIndexes());
}

// The read indexes change no answer: every prefix of keys and near-keys
// walks to the same states and values, byte by byte and whole, in a trie
// with them as in its twin without.
TEST(ReadIndexes, EveryWalkAnswersAsWithout) {
  for (auto makeKey : {LetterKey, DoubleByteKey}) {
    QR_DaTrie indexed;
    QR_DaTrie plain;
    ASSERT_EQ(0, indexed.Create(1024, 1024, 1024, 1024));
    ASSERT_EQ(0, plain.Create(1024, 1024, 1024, 1024));
    std::mt19937 random(11);
    std::vector<std::string> keys;
    for (int i = 0; i < 600; ++i) {
      keys.push_back(makeKey(random));
      InsertValue(indexed, keys.back(), i + 1);
      InsertValue(plain, keys.back(), i + 1);
    }
    indexed.BuildReadIndexes();
    ASSERT_TRUE(indexed.HasReadIndexes());
    ASSERT_FALSE(plain.HasReadIndexes());
    size_t ends = 0;
    for (const std::string& key : keys) {
      for (const std::string& probe : {key, key + "b", key + "\xB0\xA1"}) {
        TrieNode a;
        TrieNode b;
        for (size_t i = 0; i < probe.size(); ++i) {
          const unsigned char c = static_cast<unsigned char>(probe[i]);
          const int walkedA = indexed.Walk(c, a);
          ASSERT_EQ(plain.Walk(c, b), walkedA) << probe << " at " << i;
          if (walkedA == 0) break;
          ASSERT_EQ(b.state, a.state) << probe << " at " << i;
          ASSERT_EQ(b.value != nullptr, a.value != nullptr) << probe << " at " << i;
          if (a.value == nullptr) continue;
          ++ends;
          EXPECT_EQ(QR_DaTrie::GetValue(b), QR_DaTrie::GetValue(a));
        }
        const auto* bytes = reinterpret_cast<const unsigned char*>(probe.data());
        const int32_t n = static_cast<int32_t>(probe.size());
        int32_t lengthA = 0;
        int32_t lengthB = 0;
        const unsigned char* valueA = indexed.ValueOf(bytes, n, lengthA);
        const unsigned char* valueB = plain.ValueOf(bytes, n, lengthB);
        ASSERT_EQ(valueB != nullptr, valueA != nullptr) << probe;
        if (valueA != nullptr) {
          EXPECT_EQ(0, std::memcmp(valueA, valueB, 4)) << probe;
        }
        std::vector<std::pair<int32_t, int32_t>> hitsA;
        std::vector<std::pair<int32_t, int32_t>> hitsB;
        auto collect = [](std::vector<std::pair<int32_t, int32_t>>& hits) {
          return [&hits](int32_t i, const unsigned char* value) {
            int32_t v;
            std::memcpy(&v, value, sizeof v);
            hits.emplace_back(i, v);
            return true;
          };
        };
        indexed.WalkPrefixes<1, true>(bytes, 0, n, collect(hitsA));
        plain.WalkPrefixes<1, true>(bytes, 0, n, collect(hitsB));
        EXPECT_EQ(hitsB, hitsA) << probe;
      }
    }
    // Keys that are prefixes of longer keys end at cells, not only in tails.
    EXPECT_GT(ends, keys.size());
  }
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
