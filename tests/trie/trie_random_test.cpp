// A trie filled with fixed-seed random keys answers like a std::map, and
// the same key sequence always gives the same arrays, whatever the sizes
// the trie started with and however often it grew.
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "trie/qr_datrie.h"
#include "trie/trie_helpers.h"

namespace Quorel {
namespace {

using testing_trie::FreeListIsSound;
using testing_trie::InsertValue;
using testing_trie::Lookup;
using testing_trie::SameArrays;
using testing_trie::WalkablePrefix;

// Keys over a small alphabet so that many share prefixes: ASCII letters,
// digits and punctuation (never ";"), CP949-like two-byte syllables, and a
// few control and high bytes.
class KeyMaker {
 public:
  explicit KeyMaker(uint32_t seed) : rng_(seed) {}

  std::string Unit() {
    static const char kAscii[] = "abcdeAZ019-_ #'~";
    switch (Pick(10)) {
      case 0:
        return std::string(1, static_cast<char>(1 + Pick(31)));
      case 1:
        return std::string(1, static_cast<char>(0x80 + Pick(128)));
      case 2: case 3: case 4: case 5:
        return std::string(1, kAscii[Pick(sizeof(kAscii) - 1)]);
      default: {
        std::string s;
        s += static_cast<char>(0xB0 + Pick(4));
        s += static_cast<char>(0xA1 + Pick(6));
        return s;
      }
    }
  }

  std::string Fresh() {
    std::string s;
    const uint32_t units = 1 + Pick(Pick(20) == 0 ? 80 : 6);
    for (uint32_t i = 0; i < units; ++i) s += Unit();
    return s;
  }

  // A new key, an extension of an old one, or a prefix of an old one.
  std::string Next(const std::vector<std::string>& earlier) {
    const uint32_t kind = Pick(10);
    if (earlier.empty() || kind < 5) return Fresh();
    const std::string& base = earlier[Pick(static_cast<uint32_t>(earlier.size()))];
    if (kind < 8) {
      std::string s = base;
      for (uint32_t i = 0, n = 1 + Pick(3); i < n; ++i) s += Unit();
      return s;
    }
    if (base.size() < 2) return base;  // a repeat
    return base.substr(0, 1 + Pick(static_cast<uint32_t>(base.size() - 1)));
  }

  uint32_t Pick(uint32_t n) { return rng_() % n; }

 private:
  std::mt19937 rng_;
};

constexpr size_t kMaxKey = 128;

std::vector<std::string> MakeKeys(uint32_t seed, int count) {
  KeyMaker maker(seed);
  std::vector<std::string> keys;
  for (int i = 0; i < count; ++i) keys.push_back(maker.Next(keys));
  return keys;
}

// Builds the trie from keys, giving each new key the next number, and
// checks the free list after every insert. Returns the model.
std::map<std::string, int32_t> Build(QR_DaTrie& trie,
                                     const std::vector<std::string>& keys,
                                     bool checkEachStep) {
  std::map<std::string, int32_t> model;
  for (const std::string& key : keys) {
    const std::string stored = key.substr(0, kMaxKey);
    auto found = model.find(stored);
    const int32_t expect =
        found != model.end() ? found->second : static_cast<int32_t>(model.size()) + 1;
    EXPECT_EQ(expect, InsertValue(trie, key, expect)) << "key #" << model.size();
    model.emplace(stored, expect);
    if (checkEachStep) {
      EXPECT_TRUE(FreeListIsSound(trie)) << "after inserting key #" << model.size();
      if (::testing::Test::HasFailure()) break;
    }
  }
  return model;
}

bool HasKeyWithPrefix(const std::map<std::string, int32_t>& model,
                      const std::string& prefix) {
  auto it = model.lower_bound(prefix);
  return it != model.end() && it->first.compare(0, prefix.size(), prefix) == 0;
}

// Walks q byte by byte and compares every step with the model: the walk
// goes on exactly while some key starts with the bytes walked, and a value
// shows exactly where they form a key.
void ExpectPrefixWalkMatches(const QR_DaTrie& trie,
                             const std::map<std::string, int32_t>& model,
                             const std::string& q) {
  TrieNode node;
  for (size_t n = 1; n <= q.size(); ++n) {
    const std::string prefix = q.substr(0, n);
    const bool walked = trie.Walk(static_cast<unsigned char>(q[n - 1]), node) == 1;
    ASSERT_EQ(HasKeyWithPrefix(model, prefix), walked) << "prefix of " << n << " bytes";
    if (!walked) return;
    auto it = model.find(prefix);
    if (it == model.end()) {
      ASSERT_EQ(nullptr, node.value) << "prefix of " << n << " bytes";
    } else {
      ASSERT_NE(nullptr, node.value) << "prefix of " << n << " bytes";
      ASSERT_EQ(it->second, QR_DaTrie::GetValue(node));
    }
  }
}

void ExpectAnswersLikeModel(const QR_DaTrie& trie,
                            const std::map<std::string, int32_t>& model,
                            uint32_t seed) {
  for (const auto& entry : model) {
    int32_t value = 0;
    ASSERT_TRUE(Lookup(trie, entry.first, &value)) << "missing key";
    ASSERT_EQ(entry.second, value);
    ExpectPrefixWalkMatches(trie, model, entry.first);
  }
  // Keys that were never inserted, many sharing prefixes with real ones.
  KeyMaker maker(seed);
  std::vector<std::string> earlier;
  for (const auto& entry : model) earlier.push_back(entry.first);
  for (int i = 0; i < 3000; ++i) {
    const std::string q = maker.Next(earlier).substr(0, kMaxKey);
    int32_t value = 0;
    ASSERT_EQ(model.count(q) == 1, Lookup(trie, q, &value));
    ExpectPrefixWalkMatches(trie, model, q);
  }
}

TEST(TrieRandom, AnswersLikeAMapAndKeepsTheFreeListSound) {
  const std::vector<std::string> keys = MakeKeys(20240611u, 4000);
  QR_DaTrie trie;
  trie.Create(1024, 1024, 1024, 1024);
  const std::map<std::string, int32_t> model = Build(trie, keys, true);
  ASSERT_FALSE(::testing::Test::HasFailure());
  EXPECT_GT(model.size(), 2000u);
  EXPECT_LT(model.size(), keys.size()) << "the sequence repeats some keys";
  ExpectAnswersLikeModel(trie, model, 7u);
}

TEST(TrieRandom, SameSequenceGivesSameArrays) {
  const std::vector<std::string> keys = MakeKeys(99u, 3000);
  QR_DaTrie a;
  QR_DaTrie b;
  a.Create(102400, 102400, 102400, 102400);
  b.Create(102400, 102400, 102400, 102400);
  Build(a, keys, false);
  Build(b, keys, false);
  EXPECT_TRUE(SameArrays(a, b));
}

TEST(TrieRandom, GrowthKeepsArraysAndAnswers) {
  const std::vector<std::string> keys = MakeKeys(4242u, 3000);
  QR_DaTrie roomy;
  roomy.Create(102400, 102400, 102400, 102400);
  const std::map<std::string, int32_t> model = Build(roomy, keys, false);

  // Tiny starts: the cells and the tail grow many times over.
  QR_DaTrie grown;
  grown.Create(8, 8, 256, 16);
  Build(grown, keys, false);
  EXPECT_GT(grown.bcSize, 8 + 256 * 10);
  EXPECT_GT(grown.tailSize, 8 + 16 * 10);
  EXPECT_TRUE(SameArrays(roomy, grown));
  EXPECT_TRUE(FreeListIsSound(grown));
  ExpectAnswersLikeModel(grown, model, 8u);

  // Steps below the spare cells still keep every write inside the array.
  QR_DaTrie creeping;
  creeping.Create(2, 2, 1, 1);
  Build(creeping, keys, false);
  EXPECT_TRUE(SameArrays(roomy, creeping));
}

TEST(TrieRandom, LoadedImageAnswersAndGrowsOn) {
  // A reader of the compiled file creates the trie with bcSize = bcPos + 1
  // and tailSize = tailPos + 1, copies the arrays, and may insert on.
  const std::vector<std::string> keys = MakeKeys(31337u, 2000);
  const size_t half = keys.size() / 2;
  QR_DaTrie source;
  source.Create(1024, 1024, 1024, 1024);
  Build(source, std::vector<std::string>(keys.begin(), keys.begin() + half), false);

  QR_DaTrie loaded;
  loaded.Create(source.bcPos + 1, source.tailPos + 1, 102400, 102400);
  std::copy(source.bc, source.bc + source.bcPos + 1, loaded.bc);
  std::copy(source.tail, source.tail + source.tailPos + 1, loaded.tail);
  loaded.bcPos = source.bcPos;
  loaded.tailPos = source.tailPos;
  loaded.bcEmptyStart = source.bcEmptyStart;
  loaded.bcEmptyEnd = source.bcEmptyEnd;

  const std::map<std::string, int32_t> model = Build(source, keys, false);
  Build(loaded, keys, false);
  EXPECT_TRUE(SameArrays(source, loaded));
  EXPECT_TRUE(FreeListIsSound(loaded));
  ExpectAnswersLikeModel(loaded, model, 9u);
}

}  // namespace
}  // namespace Quorel
