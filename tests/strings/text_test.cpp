// Text: splitting into fields and deep copies.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "text/strings.h"

namespace Quorel {
namespace {

std::vector<std::string> Fields(const Text& t) {
  std::vector<std::string> out;
  for (int32_t i = 0; i < t.FieldCount(); ++i) out.emplace_back(t.Field(i).CStr());
  return out;
}

using V = std::vector<std::string>;

// Splits a fresh Text of `line`; the count returned must match the fields.
template <class Delimiter>
V SplitLine(const char* line, Delimiter delimiter) {
  Text t(line);
  const int32_t count = t.Split(delimiter);
  V fields = Fields(t);
  EXPECT_EQ(static_cast<int32_t>(fields.size()), count);
  return fields;
}

TEST(TextSplit, CharDelimiter) {
  EXPECT_EQ((V{"\xb0\xa1\xb0\xa1", "NNG", "12"}),
            SplitLine("\xb0\xa1\xb0\xa1\tNNG\t12", '\t'));
}

TEST(TextSplit, EmptyFieldsAndEmptyText) {
  EXPECT_EQ((V{"", "a", "", "b", ""}), SplitLine(",a,,b,", ','));
  EXPECT_EQ((V{""}), SplitLine("", ','));
}

TEST(TextSplit, NoDelimiterGivesWholeText) {
  Text t("no delimiter here, at all");
  EXPECT_EQ(1, t.Split('|'));
  EXPECT_EQ((V{"no delimiter here, at all"}), Fields(t));
  EXPECT_EQ(1, t.Split('\0'));
  EXPECT_EQ(1, t.Split(""));
}

TEST(TextSplit, StringDelimiter) {
  EXPECT_EQ((V{"a", "b:c", "", "d", ""}), SplitLine("a::b:c::::d::", "::"));
  // Occurrences do not overlap: ":::" is one delimiter and a ":".
  EXPECT_EQ((V{"x", ":y"}), SplitLine("x:::y", "::"));
  EXPECT_EQ((V{"\xb0\xa1", "\xb3\xaa"}), SplitLine("\xb0\xa1<->\xb3\xaa", "<->"));
}

TEST(TextSplit, LongFieldsAndResplit) {
  std::string longField(300, 'k');
  std::string line = longField + "/" + longField + "x";
  Text t(line.c_str());
  EXPECT_EQ(2, t.Split('/'));
  EXPECT_EQ((V{longField, longField + "x"}), Fields(t));
  // A second split frees the first fields.
  EXPECT_EQ(1, t.Split(';'));
  EXPECT_EQ((V{line}), Fields(t));
}

TEST(TextSplit, FieldOutOfRangeIsEmpty) {
  Text t("a b");
  EXPECT_EQ(0, t.FieldCount());
  EXPECT_TRUE(t.Field(0).IsEmpty()) << "not split yet";
  t.Split(' ');
  EXPECT_TRUE(t.Field(2).IsEmpty());
  EXPECT_TRUE(t.Field(-1).IsEmpty());
  t = "new text";
  EXPECT_EQ(0, t.FieldCount()) << "new text drops the old fields";
}

TEST(TextCopy, DeepCopiesFields) {
  Text a("one,two,three");
  a.Split(',');
  Text b(a);
  Text c;
  c = a;
  a.Split('o');
  a = "changed";
  EXPECT_EQ((V{"one", "two", "three"}), Fields(b));
  EXPECT_EQ((V{"one", "two", "three"}), Fields(c));
  EXPECT_STREQ("one,two,three", c.CStr());
  c = c;
  EXPECT_EQ((V{"one", "two", "three"}), Fields(c));
}

}  // namespace
}  // namespace Quorel
