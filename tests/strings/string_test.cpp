// Byte-string storage, the Substr and Replace range rules, and searching.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "text/strings.h"

namespace Quorel {
namespace {

using ByteString = spr::stdstyle::string<char>;

std::string Str(const ByteString& s) { return std::string(s.CStr(), s.Length()); }

TEST(StringStorage, EmptyAndNull) {
  ByteString a;
  ByteString b(static_cast<const char*>(nullptr));
  EXPECT_TRUE(a.IsEmpty());
  EXPECT_TRUE(b.IsEmpty());
  EXPECT_STREQ("", a.CStr());
  EXPECT_EQ('\0', a.At(0));
}

TEST(StringStorage, AppendPastInlineBufferKeepsText) {
  ByteString s("0123456789");
  std::string expect = "0123456789";
  for (int i = 0; i < 200; ++i) {
    s.Append(static_cast<char>('a' + i % 26));
    expect += static_cast<char>('a' + i % 26);
    ASSERT_EQ(expect, Str(s));
    ASSERT_EQ('\0', s.CStr()[s.Length()]);
  }
  s.Append(s);  // appending itself must read before it grows
  EXPECT_EQ(expect + expect, Str(s));
}

TEST(StringStorage, ReserveKeepsTextAndRoom) {
  ByteString small("\xc7\xd1\xb1\xb9");  // two CP949 syllables
  small.Reserve(29);
  EXPECT_EQ("\xc7\xd1\xb1\xb9", Str(small));
  ByteString big("abc");
  big.Reserve(66560);
  EXPECT_EQ("abc", Str(big));
  const char* before = big.CStr();
  for (int i = 0; i < 66557; ++i) big.Append('x');
  EXPECT_EQ(66560, big.Length());
  EXPECT_EQ(before, big.CStr()) << "reserved room must not reallocate";
}

TEST(StringStorage, CopiesAreIndependent) {
  ByteString a("a rather long text past the inline buffer");
  ByteString b(a);
  ByteString c;
  c = a;
  a.Replace(0, 1, "A");
  EXPECT_EQ("a rather long text past the inline buffer", Str(b));
  EXPECT_EQ(Str(b), Str(c));
  c = "short";
  EXPECT_EQ("short", Str(c));
  c = c;
  EXPECT_EQ("short", Str(c));
}

// Swap leaves each string as a copy of the other would have been, for
// every pairing of inline and heap storage, and both stay usable.
TEST(StringStorage, SwapExchangesTextAndStorage) {
  const std::string shortText = "short";
  const std::string longText = "a rather long text past the inline buffer";
  const std::string other = "another text well past the inline buffer too";
  for (const auto& pair : {std::make_pair(shortText, std::string("tiny")),
                           std::make_pair(shortText, longText),
                           std::make_pair(longText, shortText),
                           std::make_pair(longText, other)}) {
    ByteString a(pair.first.c_str());
    ByteString b(pair.second.c_str());
    a.Swap(b);
    EXPECT_EQ(pair.second, Str(a));
    EXPECT_EQ(pair.first, Str(b));
    a.Append("+");
    b = "after";
    EXPECT_EQ(pair.second + "+", Str(a));
    EXPECT_EQ("after", Str(b));
  }
  ByteString empty;
  ByteString full(longText.c_str());
  empty.Swap(full);
  EXPECT_EQ(longText, Str(empty));
  EXPECT_TRUE(full.IsEmpty());
}

TEST(StringStorage, TruncateAndClear) {
  ByteString s("abcdef");
  s.Truncate(3);
  EXPECT_EQ("abc", Str(s));
  s.Truncate(9);  // out of range: no change
  EXPECT_EQ("abc", Str(s));
  s.Clear();
  EXPECT_TRUE(s.IsEmpty());
}

TEST(StringCompare, ByteOrderAndCaseFolding) {
  ByteString s("Apple");
  EXPECT_EQ(0, s.Compare("Apple"));
  EXPECT_LT(s.Compare("apple"), 0);
  EXPECT_GT(s.Compare("App"), 0);
  EXPECT_LT(s.Compare("Apple\xb0\xa1"), 0);
  EXPECT_EQ(0, s.CompareNoCase("aPPLE"));
  EXPECT_LT(s.CompareNoCase("apples"), 0);
  // CP949 lead bytes sort above ASCII, as unsigned bytes.
  EXPECT_GT(ByteString("\xb0\xa1").Compare("z"), 0);
  EXPECT_TRUE(s == "Apple");
}

TEST(StringSubstr, RangesPastTheEndGiveEmpty) {
  ByteString s("abcdef");
  ByteString r("junk");
  s.Substr(r, 2, 3);
  EXPECT_EQ("cde", Str(r));
  s.Substr(r, 2);
  EXPECT_EQ("cdef", Str(r));
  s.Substr(r, 6);
  EXPECT_TRUE(r.IsEmpty()) << "position equal to the length";
  r = "junk";
  s.Substr(r, 7);
  EXPECT_TRUE(r.IsEmpty());
  r = "junk";
  s.Substr(r, -1, 2);
  EXPECT_TRUE(r.IsEmpty());
  r = "junk";
  s.Substr(r, 4, 3);  // "ef" exist, but the range runs past: empty
  EXPECT_TRUE(r.IsEmpty());
  s.Substr(r, 0, 6);
  EXPECT_EQ("abcdef", Str(r));
  s.Substr(s, 1, 2);  // into itself
  EXPECT_EQ("bc", Str(s));
}

TEST(StringReplace, RangeRulesAndGrowth) {
  ByteString s("abcdef");
  s.Replace(1, 2, "XYZ");
  EXPECT_EQ("aXYZdef", Str(s));
  s.Replace(0, 7, "");
  EXPECT_TRUE(s.IsEmpty());

  ByteString t("abc");
  t.Replace(2, 2, "Q");  // position + count past the length: nothing
  EXPECT_EQ("abc", Str(t));
  t.Replace(-1, 1, "Q");
  EXPECT_EQ("abc", Str(t));
  t.Replace(3, 0, "def");  // at the end: an insertion
  EXPECT_EQ("abcdef", Str(t));

  // Growth from the inline buffer to the heap and on.
  ByteString g("x");
  std::string expect = "x";
  std::string piece = "\xc7\xd1\xb1\xb9\xbe\xee";
  for (int i = 0; i < 30; ++i) {
    g.Replace(0, 0, piece.c_str());
    expect = piece + expect;
  }
  EXPECT_EQ(expect, Str(g));
  // Text that lies in the string itself.
  ByteString self("abcdefghijklmnopqrstuvwxyz");
  self.Replace(0, 1, self.CStr(20));
  EXPECT_EQ("uvwxyzbcdefghijklmnopqrstuvwxyz", Str(self));
}

TEST(StringFind, CharsAndStrings) {
  ByteString s("a;b;c");
  EXPECT_EQ(1, s.FindFirstChar(';'));
  EXPECT_EQ(3, s.Find(';', 2));
  EXPECT_EQ(-1, s.Find(';', 4));
  EXPECT_EQ(-1, s.FindFirstChar('x'));
  EXPECT_EQ(-1, s.FindFirstChar('\0')) << "NUL is not the terminator";
  EXPECT_EQ(2, s.FindString("b;"));
  EXPECT_EQ(-1, s.FindString("c;"));
  EXPECT_EQ(-1, ByteString().FindString("a"));
}

TEST(StringFind, FindStringIsAPlainByteSearch) {
  // "\xb0\xa1\xb0\xa1" holds "\xa1\xb0" across the syllable boundary.
  ByteString s("\xb0\xa1\xb0\xa1");
  EXPECT_EQ(1, s.FindString("\xa1\xb0"));
}

TEST(StringEx, PrefixSuffixTrim) {
  StringEx s("word\t \r\n");
  s.TrimRight();
  EXPECT_STREQ("word", s.CStr());
  EXPECT_TRUE(s.StartsWith("wo"));
  EXPECT_TRUE(s.StartsWith(""));
  EXPECT_FALSE(s.StartsWith("words"));
  EXPECT_TRUE(s.EndsWith("rd"));
  EXPECT_FALSE(s.EndsWith("xword"));
  StringEx blank("  ");
  blank.TrimRight();
  EXPECT_TRUE(blank.IsEmpty());
}

}  // namespace
}  // namespace Quorel
