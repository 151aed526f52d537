// The in-line and the growing paths of assignment and appending: each length
// around the inline buffer's edge and a doubled heap block, sources inside
// the string's own storage, and a plain model of what the text must become.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "text/strings.h"

namespace Quorel {
namespace {

std::string Letters(int n, char first = 'a') {
  std::string text;
  for (int i = 0; i < n; ++i) text += static_cast<char>(first + i % 26);
  return text;
}

void ExpectText(const StringEx& text, const std::string& model) {
  ASSERT_EQ(text.Length(), static_cast<int32_t>(model.size()));
  EXPECT_EQ(std::string(text.CStr(), text.Length()), model);
  EXPECT_EQ(text.CStr()[text.Length()], '\0');
}

TEST(StringPathsTest, AssignAndOperatorAtEveryLengthFromEveryStart) {
  for (int before = 0; before <= 40; ++before) {
    for (int n = 0; n <= 40; ++n) {
      const std::string model = Letters(n, 'A');
      StringEx byCount(Letters(before).c_str());
      byCount.Assign(model.c_str(), n);
      ExpectText(byCount, model);
      StringEx byText(Letters(before).c_str());
      byText = model.c_str();
      ExpectText(byText, model);
      StringEx byCopy(Letters(before).c_str());
      byCopy = StringEx(model.c_str());
      ExpectText(byCopy, model);
    }
  }
}

TEST(StringPathsTest, NullAndNegativeCountsEmptyTheString) {
  StringEx text(Letters(20).c_str());
  text = static_cast<const char*>(nullptr);
  ExpectText(text, "");
  text = Letters(5).c_str();
  text.Assign(nullptr, 3);
  ExpectText(text, "");
  text = Letters(5).c_str();
  text.Assign("xyz", -1);
  ExpectText(text, "");
  text = Letters(5).c_str();
  text.Append(static_cast<const char*>(nullptr));
  text.Append("xyz", 0);
  text.Append("xyz", -2);
  ExpectText(text, Letters(5));
}

TEST(StringPathsTest, AppendsAcrossTheInlineEdgeAndHeapDoubling) {
  for (int before = 0; before <= 40; ++before) {
    for (int n = 1; n <= 40; ++n) {
      std::string model = Letters(before);
      StringEx text(model.c_str());
      const std::string tail = Letters(n, 'A');
      text.Append(tail.c_str());
      text.Append(tail.c_str(), n - 1);
      text.Append('#');
      model += tail + tail.substr(0, n - 1) + "#";
      ExpectText(text, model);
    }
  }
}

TEST(StringPathsTest, SourcesInsideTheOwnStorage) {
  for (int n = 1; n <= 40; ++n) {
    const std::string model = Letters(n);
    // The tail of the text over the whole text, by count and as C text.
    StringEx text(model.c_str());
    text.Assign(text.CStr(n / 2), n - n / 2);
    ExpectText(text, model.substr(n / 2));
    text = model.c_str();
    text = text.CStr(n / 2);
    ExpectText(text, model.substr(n / 2));
    // The text appended to itself: the copy is of the text before the append.
    text = model.c_str();
    text.Append(text.CStr(), n);
    ExpectText(text, model + model);
    text = model.c_str();
    text.Append(text);
    ExpectText(text, model + model);
    text = model.c_str();
    text = text;
    ExpectText(text, model);
  }
}

TEST(StringPathsTest, MoveBytesAsMemmoveForEveryShortLengthAndOverlap) {
  for (size_t n = 0; n <= 40; ++n) {
    for (int shift = -20; shift <= 20; ++shift) {
      std::string moved = Letters(100), expected = moved;
      char* to = &moved[30 + shift];
      spr::stdstyle::MoveBytes(to, &moved[30], n);
      std::memmove(&expected[30 + shift], &expected[30], n);
      EXPECT_EQ(moved, expected) << n << " bytes moved by " << shift;
    }
  }
}

TEST(StringPathsTest, EqualityReadsUpToTheFirstNulAndComparesBytesUnsigned) {
  StringEx text;
  text.Assign("ab\0cd", 5);
  EXPECT_TRUE(text == "ab");
  EXPECT_FALSE(text == "abc");
  text = "\xB0\xA1";
  EXPECT_TRUE(text == "\xB0\xA1");
  EXPECT_FALSE(text == "\xB0\xA2");
  EXPECT_FALSE(text == "\xB0");
  text.Clear();
  EXPECT_TRUE(text == "");
  EXPECT_TRUE(text == nullptr);
  EXPECT_FALSE(text == "a");
}

}  // namespace
}  // namespace Quorel
