// Corrupt compiled files: the reader refuses an image whose cells, tail,
// key values or record indexes would let a lookup or a later insert leave
// the arrays, names the section, and leaves that trie empty; sound tries
// (built by any sequence of inserts) always pass the checks.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "knowledge/dictionary.h"
#include "knowledge/image_checks.h"
#include "knowledge/knowledge_helpers.h"

namespace Quorel {
namespace {

using testing_knowledge::Cp949;
using testing_knowledge::TempDir;

class CorruptImageTest : public ::testing::Test {
 protected:
  void SetUp() override {
    testing_knowledge::WriteSmallKnowledge(source);
    ::testing::internal::CaptureStderr();
    ASSERT_TRUE(built.CompileKnowledge(source.Path().c_str(),
                                       output.Path().c_str()));
    ::testing::internal::GetCapturedStderr();
  }

  // Saves `dict` (after the caller damaged it) and loads the image into
  // `loaded`; the result, the messages in `messages`.
  int SaveAndLoad(Dictionary& dict, Dictionary& loaded) {
    EXPECT_EQ(1, dict.SaveCompiled(scratch.Path().c_str()));
    ::testing::internal::CaptureStderr();
    int result = loaded.LoadKnowledge(scratch.Path().c_str(), true, true);
    messages = ::testing::internal::GetCapturedStderr();
    return result;
  }

  // Saves the damaged `built` and loads it into `loaded`: refused, with the
  // one message that names the section and the fault.
  void ExpectRefused(Dictionary& loaded, const std::string& section,
                     const std::string& fault) {
    EXPECT_EQ(0, SaveAndLoad(built, loaded));
    EXPECT_EQ("Knowledge file is corrupted in the " + section + ": " + fault +
                  "..\n",
              messages);
  }

  // The first in-use leaf of a trie whose record holds a key's rest.
  static int32_t FirstRestLeaf(const QR_DaTrie& trie) {
    for (int32_t i = 2; i <= trie.bcPos; ++i) {
      const TrieCell& cell = trie.bc[i];
      if (cell.check >= 1 && cell.base < 0 &&
          trie.bc[cell.check].base + CodeMap[';'] != i) {
        return i;
      }
    }
    return -1;
  }

  TempDir source;
  TempDir output;
  TempDir scratch;
  Dictionary built{false};
  std::string messages;
};

TEST_F(CorruptImageTest, SoundTriesOfTheBuiltKnowledgePass) {
  for (const QR_DaTrie* trie :
       {&built.mainTrie, &built.jeTrie, &built.divTrie, &built.posTrie,
        &built.xpTrie, &built.xsnTrie, &built.xsnxsnTrie, &built.conjTrie,
        &built.preAnalTrie}) {
    EXPECT_EQ(nullptr, TrieImageFault(*trie));
  }
  const auto records = static_cast<int64_t>(built.mainInfos.size());
  EXPECT_EQ(nullptr, TrieValueFault(built.mainTrie, 0, records));
  EXPECT_NE(nullptr, TrieValueFault(built.mainTrie, 0, records - 1));
  QR_DaTrie never;
  EXPECT_EQ(nullptr, TrieImageFault(never));
}

TEST(TrieImageChecks, EveryInsertSequenceLeavesASoundTrie) {
  // Random keys over a few bytes force splits, relocations and growth; the
  // checks hold after each batch, so no trie a build makes is refused.
  std::mt19937 random(7);
  const std::string alphabet = "abz\xB0\xA1\xB3\xAA";
  for (int round = 0; round < 20; ++round) {
    QR_DaTrie trie;
    trie.Create(64, 64, 64, 64);
    for (int k = 0; k < 300; ++k) {
      std::string key;
      const int length = 1 + static_cast<int>(random() % 8);
      for (int c = 0; c < length; ++c) {
        key += alphabet[random() % alphabet.size()];
      }
      TrieNode node;
      trie.Insert(key.c_str(), node);
      QR_DaTrie::SetValue(node, k);
      if (k % 50 == 0) {
        ASSERT_EQ(nullptr, TrieImageFault(trie)) << round;
      }
    }
    ASSERT_EQ(nullptr, TrieImageFault(trie)) << round;
    EXPECT_EQ(nullptr, TrieValueFault(trie, 0, 300));
  }
}

TEST_F(CorruptImageTest, LeafBeyondTheTailIsRefused) {
  const int32_t leaf = FirstRestLeaf(built.mainTrie);
  ASSERT_GT(leaf, 0);
  built.mainTrie.bc[leaf].base = -(built.mainTrie.tailPos + 40);
  Dictionary loaded(false);
  ExpectRefused(loaded, "main dictionary", "a key's rest runs past the tail");
  EXPECT_EQ(nullptr, loaded.mainTrie.bc);
  SearchInfo si;
  EXPECT_EQ(0, loaded.SearchMain(Cp949("학교").c_str(), si));
}

TEST_F(CorruptImageTest, RestWithoutItsEndIsRefused) {
  // The last record's ";" and value overwritten: its rest runs to the end.
  QR_DaTrie& trie = built.jeTrie;
  for (int32_t k = 1; k < trie.tailPos; ++k) {
    if (trie.tail[k] == ';') trie.tail[k] = 'x';
  }
  Dictionary loaded(false);
  ExpectRefused(loaded, "josa/eomi dictionary",
                "a key's rest runs past the tail");
  EXPECT_EQ(nullptr, loaded.jeTrie.bc);
}

TEST_F(CorruptImageTest, ChildrenOrParentBeyondTheCellsAreRefused) {
  Dictionary far(false);
  built.divTrie.bc[1].base = built.divTrie.bcPos + 2;
  ExpectRefused(far, "divide information",
                "a cell's children lie beyond the cells");
  built.divTrie.bc[1].base = 1;

  const int32_t leaf = FirstRestLeaf(built.posTrie);
  ASSERT_GT(leaf, 0);
  built.posTrie.bc[leaf].check = 0x7FFFFFF0;
  Dictionary parent(false);
  ExpectRefused(parent, "position information",
                "a cell's parent lies beyond the cells");
  EXPECT_EQ(nullptr, parent.posTrie.bc);
  EXPECT_NE(nullptr, parent.divTrie.bc) << "the sections before stay";
}

TEST_F(CorruptImageTest, BrokenFreeCellListIsRefused) {
  // A list head on a cell in use would make the next insert (a user noun)
  // walk the cells as if they were free.
  QR_DaTrie& trie = built.mainTrie;
  ASSERT_LE(trie.bcEmptyStart, trie.bcPos) << "the small main trie has gaps";
  const int32_t head = trie.bcEmptyStart;
  trie.bcEmptyStart = 1;
  Dictionary a(false);
  ExpectRefused(a, "main dictionary", "its free-cell list is broken");
  trie.bcEmptyStart = head;

  // A list that loops back on itself.
  const int32_t check = trie.bc[head].check;
  trie.bc[head].check = -head;
  Dictionary b(false);
  EXPECT_EQ(0, SaveAndLoad(built, b));
  EXPECT_NE(std::string::npos, messages.find("free-cell list is broken"));
  trie.bc[head].check = check;

  // A free cell left off the list.
  trie.bcEmptyStart = -trie.bc[head].check;
  if (trie.bcEmptyEnd == head) trie.bcEmptyEnd = trie.bcEmptyStart;
  Dictionary c(false);
  EXPECT_EQ(0, SaveAndLoad(built, c));
  EXPECT_NE(std::string::npos, messages.find("free-cell list is broken"));
}

TEST_F(CorruptImageTest, RootThatIsNoBranchIsRefused) {
  built.xpTrie.bc[1].base = -1;
  Dictionary loaded(false);
  ExpectRefused(loaded, "XP list", "its root cell is not a branch");
}

TEST_F(CorruptImageTest, KeyValuesOutsideTheirArraysAreRefused) {
  TrieNode node;
  ASSERT_EQ(1, built.mainTrie.Insert(Cp949("학교").c_str(), node));
  QR_DaTrie::SetValue(node, static_cast<int32_t>(built.mainInfos.size()));
  Dictionary main(false);
  ExpectRefused(main, "main dictionary", "a key's value points nowhere");
  EXPECT_EQ(nullptr, main.mainTrie.bc);
  QR_DaTrie::SetValue(node, 1);

  ASSERT_EQ(1, built.preAnalTrie.Insert(Cp949("나는").c_str(), node));
  QR_DaTrie::SetValue(node, -3);
  Dictionary pre(false);
  ExpectRefused(pre, "pre-analysis", "a key's value points nowhere");
  Dictionary without(false);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(1, without.LoadKnowledge(scratch.Path().c_str(), true, false))
      << "a section that is not read is not checked";
  EXPECT_EQ("", ::testing::internal::GetCapturedStderr());
}

TEST_F(CorruptImageTest, RecordIndexesOutsideThePoolsAreRefused) {
  ASSERT_GT(built.mainInfos.size(), 1u);
  built.mainInfos[1].nnbInfo = built.mainPool.used;
  Dictionary texts(false);
  ExpectRefused(texts, "main dictionary",
                "a word's text lies outside the pool");
  EXPECT_TRUE(texts.mainInfos.empty());
  built.mainInfos[1].nnbInfo = -1;

  ASSERT_GT(built.jeInfos.size(), 1u);
  built.jeInfos[1].eomiInfo5 = built.jePool.count;
  Dictionary readings(false);
  ExpectRefused(readings, "josa/eomi dictionary",
                "a reading lies outside its pool");
  built.jeInfos[1].eomiInfo5 = -1;

  built.jePool.offset[0] = static_cast<uint32_t>(built.jePool.text.used);
  Dictionary forms(false);
  EXPECT_EQ(0, SaveAndLoad(built, forms));
  EXPECT_NE(std::string::npos, messages.find("a reading lies outside its pool"));
}

TEST_F(CorruptImageTest, ImpossibleTrieSizesAreReported) {
  // A never-built trie is written with one cell and one tail byte; less is
  // no trie at all.
  built.conjTrie.Clear();
  built.conjTrie.bcPos = -1;
  Dictionary loaded(false);
  ExpectRefused(loaded, "CONJ list", "its sizes are impossible");
  built.conjTrie.bcPos = 0;
  Dictionary empty(false);
  EXPECT_EQ(1, SaveAndLoad(built, empty));
  EXPECT_EQ("", messages);
  EXPECT_EQ(0, empty.IsCONJ(Cp949("그리고").c_str()));
}

TEST_F(CorruptImageTest, FlippedBytesNeverLeadALookupOrInsertAstray) {
  // Each damaged image is either refused or, when it loads, answers its
  // lookups and takes user nouns and pre-analysis without leaving the
  // arrays (which the sanitizer builds would report).
  const std::string good = output.Read("qrl.klg");
  ASSERT_GT(good.size(), 67u);
  scratch.Write("users.txt", "새말\t2\n학교\t2\n");
  scratch.Write("pre.txt", "갔다\t가/VV+았/EP+다/EF\n");
  const std::vector<std::string> keys = {Cp949("학교"), Cp949("하늘"),
                                         Cp949("가"), Cp949("에서"), "ab"};
  int loaded = 0;
  for (size_t at = 67; at < good.size(); at += 1 + good.size() / 250) {
    std::string bad = good;
    bad[at] = static_cast<char>(bad[at] ^ (1 << (at % 8)));
    scratch.WriteRaw("qrl.klg", bad);
    Dictionary dict(false);
    ::testing::internal::CaptureStderr();
    const int result = dict.LoadKnowledge(scratch.Path().c_str(), true, true);
    if (result == 1) {
      ++loaded;
      for (const std::string& key : keys) {
        SearchInfo si;
        dict.SearchMain(key.c_str(), si);
        std::vector<SearchInfo> hits;
        dict.SearchAll(key.c_str(), hits);
        SearchJEInfo sjei;
        dict.SearchJE(key.c_str(), sjei);
        jeInfo je;
        dict.GetJEInfo(je, sjei, 0);
        int32_t freq = 0;
        dict.GetDivFreq(key.c_str(), freq);
      }
      dict.LoadUserNoun(scratch.Path().c_str(), "users.txt", false);
      dict.LoadPreAnalysis(scratch.Path().c_str(), "pre.txt", false);
      SearchInfo si;
      dict.SearchMain(Cp949("새말").c_str(), si);
    }
    ::testing::internal::GetCapturedStderr();
  }
  EXPECT_GT(loaded, 0) << "flips of values and texts still load";
}

}  // namespace
}  // namespace Quorel
