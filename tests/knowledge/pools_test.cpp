// The text and jeInfo pools, and the bounds of the frequency loaders.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "knowledge/dictionary.h"
#include "knowledge/je_info_pool.h"
#include "knowledge/knowledge_helpers.h"
#include "knowledge/text_pool.h"

namespace Quorel {
namespace {

using testing_knowledge::TempDir;

TEST(TextPoolTest, AppendsBehindTheLastTextAndDoublesWhenFull) {
  TextPool pool;
  EXPECT_EQ(TextPool::kMinCapacity, pool.capacity);
  EXPECT_EQ(0, pool.Append("ab", 2));
  EXPECT_EQ(3, pool.Append("", 0));
  EXPECT_EQ(4, pool.Append("xyz", 3));
  EXPECT_EQ(8, pool.used);
  EXPECT_STREQ("ab", pool.At(0));
  EXPECT_STREQ("", pool.At(3));
  EXPECT_STREQ("xyz", pool.At(4));

  std::string big(TextPool::kMinCapacity - 9, 'q');  // used + n + 1 = capacity
  EXPECT_EQ(8, pool.Append(big.c_str(), static_cast<int32_t>(big.size())));
  EXPECT_EQ(2 * TextPool::kMinCapacity, pool.capacity);
  EXPECT_STREQ("xyz", pool.At(4));
  EXPECT_EQ(big, pool.At(8));
  EXPECT_EQ(-1, pool.Append("x", -1));

  EXPECT_TRUE(pool.Reset(10));
  EXPECT_EQ(TextPool::kMinCapacity, pool.capacity);
  EXPECT_EQ(0, pool.used);
  EXPECT_TRUE(pool.Reset(TextPool::kMinCapacity * 3));
  EXPECT_EQ(TextPool::kMinCapacity * 3, pool.capacity);
}

TEST(JeInfoPoolTest, AddsEntriesBeforeTheirTextsAndGrows) {
  JeInfoPool pool;
  EXPECT_EQ(JeInfoPool::kMinCapacity, pool.capacity);
  pool.text.Append("zz", 2);  // the entry's offset is the text's
  EXPECT_EQ(0, pool.Add(0x400600, 3, 5, "abc", 3));
  EXPECT_EQ(3u, pool.offset[0]);
  EXPECT_STREQ("abc", pool.text.At(3));
  EXPECT_EQ(0x400600u, pool.bits[0]);
  EXPECT_EQ(3, pool.attach[0]);
  EXPECT_EQ(5, pool.type[0]);
  for (int32_t i = 1; i < JeInfoPool::kMinCapacity; ++i) {
    ASSERT_EQ(i, pool.Add(static_cast<uint32_t>(i), 1, 0, "e", 1));
  }
  EXPECT_EQ(2 * JeInfoPool::kMinCapacity, pool.capacity);
  EXPECT_EQ(JeInfoPool::kMinCapacity, pool.count);
  EXPECT_EQ(0x400600u, pool.bits[0]);
  EXPECT_EQ(777u, pool.bits[777]);
  EXPECT_STREQ("e", pool.text.At(static_cast<int32_t>(pool.offset[777])));

  EXPECT_TRUE(pool.Reset(5));
  EXPECT_EQ(0, pool.count);
  EXPECT_EQ(JeInfoPool::kMinCapacity, pool.capacity);
  EXPECT_EQ(0u, pool.bits[1]);
}

// `lines` kept lines: a repeated key (each line still takes a slot), then
// "last" on the line that fills the array, then "past" on every line after.
std::string FrequencyLines(int32_t lines, int32_t bound, bool division) {
  std::string text;
  for (int32_t i = 0; i < lines; ++i) {
    std::string key = i < bound - 1 ? "same" : i == bound - 1 ? "last" : "past";
    text += division ? key + " x\t" + std::to_string(100 + i % 7) + "\n"
                     : key + "\t100\t" + std::to_string(i % 7) + "\t0\n";
  }
  return text;
}

TEST(FrequencyBounds, LinesBeyondTheArraysAreNotKept) {
  TempDir dir;
  dir.WriteRaw("divInfo_freq_sorted.txt",
               FrequencyLines(Dictionary::kMaxDivInfo + 3,
                              Dictionary::kMaxDivInfo, true));
  dir.WriteRaw("posInfo_freq_sorted.txt",
               FrequencyLines(Dictionary::kMaxPosInfo + 3,
                              Dictionary::kMaxPosInfo, false));
  Dictionary dict(false);
  ::testing::internal::CaptureStderr();
  ASSERT_EQ(1, dict.LoadKnowledge(dir.Path().c_str(), false, false));
  const std::string messages = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(Dictionary::kMaxDivInfo, dict.sizeDivInfo);
  EXPECT_EQ(Dictionary::kMaxPosInfo, dict.sizePosInfo);
  int32_t freq = 0;
  EXPECT_EQ(1, dict.GetDivFreq("lastx", freq));
  EXPECT_EQ(100 + (Dictionary::kMaxDivInfo - 1) % 7, freq);
  EXPECT_EQ(1, dict.GetDivFreq("samex", freq));
  EXPECT_EQ(100 + (Dictionary::kMaxDivInfo - 2) % 7, freq);
  EXPECT_EQ(0, dict.GetDivFreq("pastx", freq));
  PosInfoRec rec;
  EXPECT_EQ(1, dict.GetPosFreq("last", rec));
  EXPECT_EQ(static_cast<uint32_t>((Dictionary::kMaxPosInfo - 1) % 7),
            rec.counts[1]);
  EXPECT_EQ(0, dict.GetPosFreq("past", rec));
  EXPECT_NE(std::string::npos, messages.find("divInfo_freq_sorted.txt"));
  EXPECT_NE(std::string::npos, messages.find("posInfo_freq_sorted.txt"));
}

TEST(FrequencyBounds, DroppedLinesReuseTheirSlot) {
  TempDir dir;
  dir.WriteRaw("divInfo_freq_sorted.txt",
               "a b\t50\nc d\t200\n");
  Dictionary dict(false);
  ASSERT_EQ(1, dict.LoadKnowledge(dir.Path().c_str(), false, false));
  EXPECT_EQ(1, dict.sizeDivInfo);
  int32_t freq = 0;
  EXPECT_EQ(1, dict.GetDivFreq("cd", freq));
  EXPECT_EQ(200, freq);
  EXPECT_EQ(0, dict.GetDivFreq("ab", freq));
  EXPECT_EQ(200, dict.divInfo[0]);  // the dropped line's slot, overwritten
}

}  // namespace
}  // namespace Quorel
