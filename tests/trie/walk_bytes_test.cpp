// WalkBytes against Walk byte by byte: the same cursor and value behind the
// last byte for every prefix of keys, near-keys and strangers, over cell
// and tail paths, with lengths that stop early or run into a NUL.
#include <gtest/gtest.h>

#include <random>
#include <string>
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

}  // namespace
}  // namespace Quorel
