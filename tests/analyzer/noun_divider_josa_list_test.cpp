// The josa list of the divider is searched as a substring; the quick path
// for two-byte keys must answer as the plain search does for every key.
#include <gtest/gtest.h>

#include <cstring>

#include "analyzer/noun_divider.h"
#include "analyzer/noun_divider_literals.h"

namespace Quorel {
namespace {

bool PlainSearch(const char* key, int32_t len) {
  char text[9] = {};
  std::memcpy(text, key, static_cast<size_t>(len));
  if (std::memchr(text, '\0', static_cast<size_t>(len)) != nullptr) return false;
  return std::strstr(DividerText::kJosaList, text) != nullptr;
}

TEST(NounDividerJosaList, EveryTwoByteKeyAnswersAsTheSubstringSearch) {
  int found = 0;
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; ++b) {
      const char key[2] = {static_cast<char>(a), static_cast<char>(b)};
      const bool expected = PlainSearch(key, 2);
      ASSERT_EQ(expected, NounDivider::InJosaList(key, 2)) << a << " " << b;
      found += expected ? 1 : 0;
    }
  }
  // 15 syllables, and the pairs of ':' with a first or last byte.
  EXPECT_GT(found, 15);
}

TEST(NounDividerJosaList, SyllablesAndOtherLengths) {
  EXPECT_TRUE(NounDivider::InJosaList("\xC0\xC7", 2));    // 의
  EXPECT_TRUE(NounDivider::InJosaList("\xB0\xA1", 2));    // 가, the first
  EXPECT_TRUE(NounDivider::InJosaList("\xC0\xCC", 2));    // 이, the last
  EXPECT_FALSE(NounDivider::InJosaList("\xC0\xCE", 2));   // 인
  EXPECT_FALSE(NounDivider::InJosaList("\xA1\xB0", 2));   // across a joint
  EXPECT_TRUE(NounDivider::InJosaList(":\xB0\xA1:", 4));
  EXPECT_TRUE(NounDivider::InJosaList("\xB0\xA1:\xB0", 4));
  EXPECT_FALSE(NounDivider::InJosaList("\xB0\xA1\xB0\xFA", 4));  // 가과
  EXPECT_FALSE(NounDivider::InJosaList("\xB0\xA1", 0));
  EXPECT_FALSE(NounDivider::InJosaList(nullptr, 2));
}

}  // namespace
}  // namespace Quorel
