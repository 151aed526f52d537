// Exact cell and tail contents for small key sets, and the value protocol.
#include <gtest/gtest.h>

#include <sys/resource.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "trie/qr_datrie.h"
#include "trie/trie_helpers.h"

namespace Quorel {
namespace {

using testing_trie::FreeListIsSound;
using testing_trie::Lookup;
using testing_trie::SameArrays;

std::string TailBytes(const QR_DaTrie& trie, int32_t from, int32_t count) {
  return std::string(reinterpret_cast<const char*>(trie.tail) + from, count);
}

class TrieTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(0, trie.Create(1024, 1024, 1024, 1024)); }
  // Inserts key and sets its value.
  void Put(const char* key, int32_t value) {
    TrieNode node;
    trie.Insert(key, node);
    QR_DaTrie::SetValue(node, value);
  }
  // The value of key found by Walk, -1 when it is not a key.
  int32_t ValueOf(const std::string& key) const {
    int32_t value = -1;
    return Lookup(trie, key, &value) ? value : -1;
  }
  QR_DaTrie trie;
};

TEST_F(TrieTest, EmptyAfterCreate) {
  EXPECT_EQ(1, trie.bcPos);
  EXPECT_EQ(2, trie.bcEmptyStart);
  EXPECT_EQ(2, trie.bcEmptyEnd);
  EXPECT_EQ(1, trie.tailPos);
  EXPECT_EQ(';', trie.tail[0]);
  EXPECT_EQ(1, trie.bc[1].base);
  EXPECT_EQ(1, trie.bc[1].check);
  EXPECT_EQ(0, trie.bc[2].check);
  TrieNode node;
  EXPECT_EQ(0, trie.Walk('a', node));
  EXPECT_EQ(nullptr, node.value);
}

TEST_F(TrieTest, FirstKeyTakesCellOfItsFirstByte) {
  TrieNode node;
  ASSERT_EQ(1, trie.Insert("ab", node));
  // Cell 1 + code of "a" (2) holds the leaf; its rest "b" is in the tail.
  EXPECT_EQ(-1, trie.bc[3].base);
  EXPECT_EQ(1, trie.bc[3].check);
  EXPECT_EQ(std::string("b;\0\0\0\0", 6), TailBytes(trie, 1, 6));
  EXPECT_EQ(7, trie.tailPos);
  EXPECT_EQ(3, trie.bcPos);
  // Cell 2 was skipped: it heads the free list and links past bcPos.
  EXPECT_EQ(2, trie.bcEmptyStart);
  EXPECT_EQ(2, trie.bcEmptyEnd);
  EXPECT_EQ(0, trie.bc[2].base);
  EXPECT_EQ(-4, trie.bc[2].check);
  EXPECT_EQ(trie.tail + 3, node.value);
  EXPECT_EQ(0, QR_DaTrie::GetValue(node)) << "a new key's value is 0";
  EXPECT_TRUE(FreeListIsSound(trie));
}

TEST_F(TrieTest, PrefixKeyGetsTerminatorTransition) {
  TrieNode node;
  trie.Insert("ab", node);
  QR_DaTrie::SetValue(node, 0x01020304);
  unsigned char* before = node.value;
  trie.Insert("a", node);
  QR_DaTrie::SetValue(node, 42);

  // Cell 3 became a state with base 1: "b" at 1 + 3 = 4, ";" at 1 + 0x4F.
  EXPECT_EQ(1, trie.bc[3].base);
  EXPECT_EQ(1, trie.bc[3].check);
  EXPECT_EQ(-1, trie.bc[4].base);
  EXPECT_EQ(3, trie.bc[4].check);
  EXPECT_EQ(-7, trie.bc[0x50].base);
  EXPECT_EQ(3, trie.bc[0x50].check);
  EXPECT_EQ(0x50, trie.bcPos);
  // The old record was rewritten in place: ";" and its value, one byte on.
  EXPECT_EQ(std::string(";\x04\x03\x02\x01", 5), TailBytes(trie, 1, 5));
  // The terminator record is the 4 value bytes alone, no ";" in front.
  EXPECT_EQ(std::string("\x2a\0\0\0", 4), TailBytes(trie, 7, 4));
  EXPECT_EQ(11, trie.tailPos);
  EXPECT_EQ(trie.tail + 7, node.value);
  // Cells 2 and 5..0x4F are free, in order.
  EXPECT_EQ(2, trie.bcEmptyStart);
  EXPECT_EQ(-5, trie.bc[2].check);
  EXPECT_EQ(0x4F, trie.bcEmptyEnd);
  EXPECT_EQ(-0x51, trie.bc[0x4F].check);
  EXPECT_TRUE(FreeListIsSound(trie));

  EXPECT_EQ(0x01020304, ValueOf("ab")) << "the value set before the split survives";
  TrieNode walked;
  trie.Walk('a', walked);
  trie.Walk('b', walked);
  EXPECT_EQ(trie.tail + 2, walked.value);
  EXPECT_NE(before, walked.value) << "the record moved one byte down";
  EXPECT_EQ(42, ValueOf("a"));
  EXPECT_EQ(-1, ValueOf("abc"));
  EXPECT_EQ(-1, ValueOf("b"));
}

TEST_F(TrieTest, KeyAddedBeforeItsPrefixOrAfterIt) {
  // "a" first: its leaf holds ";" + value; "ab" splits it at the ";".
  Put("a", 7);
  Put("ab", 8);
  EXPECT_EQ(7, ValueOf("a"));
  EXPECT_EQ(8, ValueOf("ab"));
  EXPECT_TRUE(FreeListIsSound(trie));
}

TEST_F(TrieTest, FreeListEmptyWhenNoGapOpens) {
  TrieNode node;
  trie.Insert("#x", node);  // "#" has code 1: cell 2, right after the root
  EXPECT_EQ(2, trie.bcPos);
  EXPECT_EQ(3, trie.bcEmptyStart);
  EXPECT_EQ(3, trie.bcEmptyEnd);
  EXPECT_EQ(0, trie.bc[3].check);
  EXPECT_TRUE(FreeListIsSound(trie));

  // Splitting "x" from "y" puts cell 2's children at base 1: the gap
  // 3..0x19 joins the list, which then links past the new bcPos.
  trie.Insert("#y", node);
  EXPECT_EQ(1, trie.bc[2].base);
  EXPECT_EQ(2, trie.bc[1 + 0x19].check);
  EXPECT_EQ(2, trie.bc[1 + 0x1A].check);
  EXPECT_EQ(0x1B, trie.bcPos);
  EXPECT_EQ(3, trie.bcEmptyStart);
  EXPECT_EQ(0x19, trie.bcEmptyEnd);
  EXPECT_EQ(-0x1C, trie.bc[0x19].check);
  EXPECT_TRUE(FreeListIsSound(trie));
}

TEST_F(TrieTest, CommonRestBecomesChainOfCells) {
  Put("abcdx", 1);
  Put("abcdy", 2);
  // a (leaf turned state) -> b -> c -> d, each a single child.
  int32_t s = 1;
  for (char c : std::string("abcd")) {
    const int32_t t = CodeMap[static_cast<unsigned char>(c)] + trie.bc[s].base;
    ASSERT_EQ(s, trie.bc[t].check) << c;
    ASSERT_GT(trie.bc[t].base, 0) << c;
    s = t;
  }
  EXPECT_EQ(1, ValueOf("abcdx"));
  EXPECT_EQ(2, ValueOf("abcdy"));
  EXPECT_EQ(-1, ValueOf("abcd"));
  EXPECT_TRUE(FreeListIsSound(trie));
}

TEST_F(TrieTest, InsertingTwiceFindsTheSameValue) {
  TrieNode first;
  trie.Insert("\xb0\xa1\xb3\xaa", first);
  QR_DaTrie::SetValue(first, 99);
  TrieNode second;
  ASSERT_EQ(1, trie.Insert("\xb0\xa1\xb3\xaa", second));
  EXPECT_EQ(first.value, second.value);
  EXPECT_EQ(99, QR_DaTrie::GetValue(second));
  const int32_t tailPos = first.value - trie.tail + 4;
  EXPECT_EQ(tailPos, trie.tailPos) << "nothing was written the second time";
}

TEST_F(TrieTest, KeysLongerThan128BytesAreCut) {
  std::string key128(128, 'k');
  key128[60] = '\xc7';
  key128[61] = '\xd1';
  TrieNode node;
  trie.Insert((key128 + "z").c_str(), node);
  QR_DaTrie::SetValue(node, 5);
  TrieNode again;
  trie.Insert(key128.c_str(), again);
  EXPECT_EQ(node.value, again.value);
  EXPECT_EQ(5, QR_DaTrie::GetValue(again));
  EXPECT_EQ(5, ValueOf(key128));
  EXPECT_EQ(-1, ValueOf(key128 + "z"));

  QR_DaTrie cut;
  cut.Create(1024, 1024, 1024, 1024);
  cut.Insert(key128.c_str(), node);
  QR_DaTrie::SetValue(node, 5);
  EXPECT_TRUE(SameArrays(trie, cut));
}

TEST_F(TrieTest, WalkStopsWhereTheTailDiffers) {
  TrieNode node;
  trie.Insert("hello", node);
  TrieNode w;
  ASSERT_EQ(1, trie.Walk('h', w));
  EXPECT_LT(w.state, 1) << "a lone key lives in the tail after its first byte";
  ASSERT_EQ(1, trie.Walk('e', w));
  EXPECT_EQ(nullptr, w.value);
  EXPECT_EQ(0, trie.Walk('x', w));
  TrieNode full;
  for (char c : std::string("hello")) ASSERT_EQ(1, trie.Walk(c, full));
  EXPECT_EQ(node.value, full.value);
  EXPECT_EQ(0, trie.Walk('!', full)) << "past the end of the key";
  EXPECT_EQ(nullptr, full.value) << "a failed walk clears the value";
}

TEST_F(TrieTest, ValueBytesOrder) {
  TrieNode node;
  trie.Insert("v", node);
  QR_DaTrie::SetValue(node, 0x11223344);
  EXPECT_EQ(std::string("\x44\x33\x22\x11", 4),
            std::string(reinterpret_cast<char*>(node.value), 4));
  node.nativeOrder = 0;
  EXPECT_EQ(0x44332211, QR_DaTrie::GetValue(node));
  QR_DaTrie::SetValue(node, 0x01020304);
  EXPECT_EQ(std::string("\x01\x02\x03\x04", 4),
            std::string(reinterpret_cast<char*>(node.value), 4));
}

// The address space the process maps now, in bytes (0 if unknown). A
// sanitizer build maps terabytes of shadow memory before main.
rlim_t MappedBytes() {
  std::FILE* status = std::fopen("/proc/self/status", "r");
  if (status == nullptr) return 0;
  char line[256];
  unsigned long long kib = 0;
  while (std::fgets(line, sizeof line, status) != nullptr) {
    if (std::sscanf(line, "VmSize: %llu kB", &kib) == 1) break;
  }
  std::fclose(status);
  return static_cast<rlim_t>(kib) * 1024;
}

// Grows the tail past what the address space allows.
void GrowTailBeyondMemory() {
  // Room for 1 GiB of address space beyond what is mapped; the tail asks
  // for 1.5 GiB.
  rlimit limit;
  limit.rlim_cur = limit.rlim_max = MappedBytes() + (rlim_t{1} << 30);
  setrlimit(RLIMIT_AS, &limit);
  QR_DaTrie trie;
  trie.Create(64, 8, 64, 1500000000);
  TrieNode node;
  trie.Insert("a key with a long rest", node);
}

#if defined(__SANITIZE_ADDRESS__)
// Under AddressSanitizer a failed allocation returns null, as the C library's
// does, instead of ending the process with the sanitizer's own report.
extern "C" const char* __asan_default_options() {
  return "allocator_may_return_null=1";
}
#endif

TEST(TrieLifecycleDeathTest, FailedGrowthEndsTheProcess) {
  EXPECT_EXIT(GrowTailBeyondMemory(), ::testing::ExitedWithCode(1),
              "^memory alloc failed\n$");
}

TEST(TrieLifecycle, NotCreatedOrClearedAnswersNothing) {
  QR_DaTrie trie;
  TrieNode node;
  EXPECT_EQ(0, trie.Insert("a", node));
  EXPECT_EQ(nullptr, node.value);
  EXPECT_EQ(0, trie.Walk('a', node));

  trie.Create(64, 64, 64, 64);
  trie.Insert("a", node);
  trie.bcIncrement = 77;
  trie.Clear();
  EXPECT_EQ(nullptr, trie.bc);
  EXPECT_EQ(nullptr, trie.tail);
  EXPECT_EQ(0, trie.bcSize);
  EXPECT_EQ(0, trie.bcPos);
  EXPECT_EQ(0, trie.tailSize);
  EXPECT_EQ(0, trie.tailPos);
  EXPECT_EQ(77, trie.bcIncrement) << "increments survive Clear";
  EXPECT_EQ(0, trie.Insert("a", node));
  EXPECT_EQ(0, trie.Walk('a', node));
}

}  // namespace
}  // namespace Quorel
