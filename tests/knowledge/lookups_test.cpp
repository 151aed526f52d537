// The lookups over a loaded knowledge: whole-word and prefix searches with
// their flags, the josa/eomi search and readings, and CheckAttach.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "knowledge/knowledge_helpers.h"
#include "text/syllable_table.h"

namespace Quorel {
namespace {

using testing_knowledge::Cp949;
using testing_knowledge::TempDir;
using testing_knowledge::Utf8;

std::string LongWord() {
  std::string word;
  for (int i = 0; i < 70; ++i) word += "가";
  return word;
}

class LookupTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    dir = new TempDir;
    testing_knowledge::WriteSmallKnowledge(*dir);
    dir->Write("nng.dic", "학\n학교\n학교생활\nabcd\n" + LongWord() + "\n");
    dir->Write("nnb.dic", "개\t1\n");
    dir->Write("users.txt",
               "abc\t3\n가나\t2\nㄱ가\t0\nㄱ\t0\n★가\t0\na\t1\nab\t2\n");
    dict = new Dictionary(false);
    ::testing::internal::CaptureStderr();
    dict->LoadKnowledge(dir->Path().c_str(), false, false);
    dict->LoadUserNoun(dir->Path().c_str(), "users.txt", false);
    ::testing::internal::GetCapturedStderr();
  }
  static void TearDownTestSuite() {
    delete dict;
    delete dir;
  }

  // "start-end" of each hit, in order.
  static std::string Hits(const std::string& utf8Text, int32_t len,
                          int32_t start, int nounOnly, int allowShort,
                          int keepLongest, int foreignOnly) {
    std::string text = Cp949(utf8Text);
    std::vector<SearchInfo> results;
    int n = dict->SearchAll(text.c_str(), results, len, start, nounOnly,
                            allowShort, keepLongest, foreignOnly);
    EXPECT_EQ(static_cast<size_t>(n), results.size());
    std::string out;
    for (const SearchInfo& si : results) {
      out += (out.empty() ? "" : " ") + std::to_string(si.start) + "-" +
             std::to_string(si.end);
    }
    return out;
  }

  static TempDir* dir;
  static Dictionary* dict;
};

TempDir* LookupTest::dir = nullptr;
Dictionary* LookupTest::dict = nullptr;

TEST_F(LookupTest, SearchMainTakesOnlyWholeWords) {
  SearchInfo si;
  EXPECT_EQ(1, dict->SearchMain(Cp949("학교").c_str(), si));
  EXPECT_EQ(0, si.start);
  EXPECT_EQ(4, si.end);  // len 0: the NUL-terminated length
  EXPECT_EQ(Pos::NNG, si.info.bits);
  // A word without extra texts (the shortcut) and one with a text (the
  // offsets resolved one by one) fill the four pointers alike.
  EXPECT_EQ(nullptr, si.nnbText);
  EXPECT_EQ(nullptr, si.nnpText);
  EXPECT_EQ(nullptr, si.nnuText);
  EXPECT_EQ(nullptr, si.nuText);

  EXPECT_EQ(1, dict->SearchMain(StringEx(Cp949("서울").c_str()), si));
  ASSERT_NE(nullptr, si.nnpText);
  EXPECT_EQ("서울", Utf8(si.nnpText));
  EXPECT_EQ(nullptr, si.nnbText);
  EXPECT_EQ(nullptr, si.nnuText);
  EXPECT_EQ(nullptr, si.nuText);

  // A miss leaves the record zeroed, not at its initial values.
  EXPECT_EQ(0, dict->SearchMain(Cp949("학교생").c_str(), si));
  EXPECT_EQ(0, si.end);
  EXPECT_EQ(0, si.info.nnpInfo);
  EXPECT_EQ(0, dict->SearchMain("", si));
  // len shorter than the text: only that prefix is looked up.
  EXPECT_EQ(1, dict->SearchMain(Cp949("학교생활").c_str(), si, 4));
  EXPECT_EQ(4, si.end);
}

TEST_F(LookupTest, KeysAreCutAt128Bytes) {
  std::string word = Cp949(LongWord());
  SearchInfo si;
  EXPECT_EQ(0, dict->SearchMain(word.c_str(), si));
  EXPECT_EQ(1, dict->SearchMain(word.substr(0, 128).c_str(), si));
  std::vector<SearchInfo> results;
  dict->SearchAll(word.c_str(), results, 0, 0, 0, 1, 1, 0);
  ASSERT_EQ(1u, results.size());
  EXPECT_EQ(128, results[0].end);
}

TEST_F(LookupTest, SearchAllListsPrefixesInIncreasingEnd) {
  EXPECT_EQ("0-2 0-4 0-8", Hits("학교생활가", 0, 0, 0, 1, 0, 0));
  // len is an end position in the text, not a count from start.
  EXPECT_EQ("0-2 0-4", Hits("학교생활", 6, 0, 0, 1, 0, 0));
  EXPECT_EQ("2-4 2-6", Hits("가학교", 0, 2, 0, 1, 0, 0));
  EXPECT_EQ("2-4", Hits("가학교", 4, 2, 0, 1, 0, 0));
  EXPECT_EQ("", Hits("없는말", 0, 0, 0, 1, 0, 0));
}

TEST_F(LookupTest, SearchAllShortAndLongestFlags) {
  // One syllable alone is a hit only with allowShort.
  EXPECT_EQ("0-2", Hits("학", 0, 0, 0, 1, 0, 0));
  EXPECT_EQ("", Hits("학", 0, 0, 0, 0, 0, 0));
  EXPECT_EQ("0-4 0-8", Hits("학교생활", 0, 0, 0, 0, 0, 0));
  EXPECT_EQ("0-8", Hits("학교생활", 0, 0, 0, 1, 1, 0));
  EXPECT_EQ("0-4", Hits("학교생활", 6, 0, 0, 0, 1, 0));
  EXPECT_EQ("", Hits("없는말", 0, 0, 0, 1, 1, 0));  // nothing to keep
}

TEST_F(LookupTest, SearchAllNounOnlySkipsBoundNounsAndPredicates) {
  EXPECT_EQ("0-2", Hits("개", 0, 0, 0, 1, 0, 0));
  EXPECT_EQ("", Hits("개", 0, 0, 1, 1, 0, 0));
  EXPECT_EQ("", Hits("먹", 0, 0, 1, 1, 0, 0));
  EXPECT_EQ("0-4", Hits("그것", 0, 0, 1, 1, 0, 0));   // NP
  EXPECT_EQ("0-4", Hits("하나", 0, 0, 1, 1, 0, 0));   // NU
  EXPECT_EQ("0-1 0-2 0-3", Hits("abc", 0, 0, 1, 1, 0, 0));  // NNU
  EXPECT_EQ("0-4", Hits("세계", 0, 0, 1, 1, 0, 0));   // NNI
}

TEST_F(LookupTest, SearchAllForeignOnlyTakesUserNounsThatAreNotPlainHangul) {
  EXPECT_EQ("0-1 0-2 0-3", Hits("abc", 0, 0, 0, 1, 0, 1));
  // abcd is a common noun only: its user-noun prefixes are the hits.
  EXPECT_EQ("0-1 0-2 0-3 0-4", Hits("abcd", 0, 0, 0, 1, 0, 0));
  EXPECT_EQ("0-1 0-2 0-3", Hits("abcd", 0, 0, 0, 1, 0, 1));
  EXPECT_EQ("", Hits("가나", 0, 0, 0, 1, 0, 1));  // plain Hangul
  EXPECT_EQ("0-4", Hits("가나", 0, 0, 0, 1, 0, 0));
  // A jamo lead counts as plain, except in the hit's last pair.
  EXPECT_EQ("0-2 0-4", Hits("ㄱ가", 0, 0, 0, 1, 0, 0));
  EXPECT_EQ("0-2", Hits("ㄱ가", 0, 0, 0, 1, 0, 1));
  // The short limit is 2 bytes in this mode, 3 otherwise.
  EXPECT_EQ("0-2 0-3", Hits("abc", 0, 0, 0, 0, 0, 1));
  EXPECT_EQ("0-3", Hits("abc", 0, 0, 0, 0, 0, 0));
  EXPECT_EQ("0-3", Hits("abc", 0, 0, 0, 0, 1, 1));
}

TEST_F(LookupTest, SearchAllForeignOnlyLooksBehindTheHitForSymbolPairs) {
  // The symbol test reads the hit's last byte and the byte behind the hit:
  // the same word is taken or skipped by what follows it.
  EXPECT_EQ("0-4", Hits("★가", 0, 0, 0, 1, 0, 1));
  EXPECT_EQ("", Hits("★가A", 0, 0, 0, 1, 0, 1));
  EXPECT_EQ("0-4", Hits("★가A", 0, 0, 0, 1, 0, 0));
}

TEST_F(LookupTest, SearchAllAppendsToTheCallersResults) {
  std::vector<SearchInfo> results(2);
  std::string text = Cp949("학교");
  EXPECT_EQ(4, dict->SearchAll(text.c_str(), results));
  EXPECT_EQ(-1, results[1].end);
  EXPECT_EQ(2, results[2].end);
  EXPECT_EQ(5, dict->SearchAll(StringEx(text.c_str()), results, 0, 0, 0, 1,
                               1, 0));
  EXPECT_EQ(4, results[4].end);
}

TEST_F(LookupTest, SearchJEKeepsTheLongestPrefix) {
  SearchJEInfo sjei;
  EXPECT_EQ(4, dict->SearchJE(Cp949("에서는").c_str(), sjei));
  EXPECT_EQ(4, sjei.length);
  jeInfo out;
  EXPECT_EQ("에서", Utf8(dict->GetJEInfo(out, sjei, 0).text));

  EXPECT_EQ(2, dict->SearchJE(Cp949("에게").c_str(), sjei));
  EXPECT_EQ("에", Utf8(dict->GetJEInfo(out, sjei, 0).text));
  EXPECT_EQ(2, dict->SearchJE(StringEx(Cp949("에서").c_str()), sjei, 2));

  // Without a hit the record stays as the caller left it.
  SearchJEInfo untouched;
  untouched.jeti.josaInfo = 77;
  EXPECT_EQ(0, dict->SearchJE(Cp949("없음").c_str(), untouched));
  EXPECT_EQ(0, untouched.length);
  EXPECT_EQ(77, untouched.jeti.josaInfo);
}

TEST_F(LookupTest, GetJEInfoTypeArgumentIsShiftedForTheEomiOfTypeZero) {
  SearchJEInfo sjei;
  ASSERT_EQ(2, dict->SearchJE(Cp949("는").c_str(), sjei));
  jeInfo out;
  dict->GetJEInfo(out, sjei, 0);
  EXPECT_EQ("는", Utf8(out.text));  // the last reading's form
  EXPECT_EQ(Pos::JX, out.bits);
  EXPECT_EQ(1, out.attach);
  dict->GetJEInfo(out, sjei, 1);
  EXPECT_EQ("는", Utf8(out.text));
  EXPECT_EQ(Pos::EM, out.bits);
  EXPECT_EQ(0, out.type);
  dict->GetJEInfo(out, sjei, 5);
  EXPECT_EQ(Pos::ETM, out.bits);
  EXPECT_EQ(5, out.type);
  for (int type : {2, 9, 17, 19, -1, 100}) {
    dict->GetJEInfo(out, sjei, type);
    EXPECT_EQ(nullptr, out.text) << type;
    EXPECT_EQ(0u, out.bits) << type;
  }
  ASSERT_EQ(2, dict->SearchJE(Cp949("게").c_str(), sjei));
  EXPECT_EQ(19, dict->GetJEInfo(out, sjei, 19).type);
  EXPECT_EQ(3, out.attach);
  EXPECT_EQ(nullptr, dict->GetJEInfo(out, sjei, 17).text);
}

TEST(CheckAttach, TestsTheThreeBitsInOrder) {
  const SyllableRec& open = *SyllableAt(Cp949("가").c_str());
  const SyllableRec& closed = *SyllableAt(Cp949("각").c_str());
  const SyllableRec& rieul = *SyllableAt(Cp949("갈").c_str());
  jeInfo jei;
  jei.attach = 0;
  EXPECT_EQ(1, Dictionary::CheckAttach(open, jei));
  EXPECT_EQ(1, Dictionary::CheckAttach(closed, jei));
  jei.attach = 0x1;  // not after an open syllable
  EXPECT_EQ(0, Dictionary::CheckAttach(open, jei));
  EXPECT_EQ(1, Dictionary::CheckAttach(closed, jei));
  jei.attach = 0x2;  // not after a closed syllable
  EXPECT_EQ(1, Dictionary::CheckAttach(open, jei));
  EXPECT_EQ(0, Dictionary::CheckAttach(closed, jei));
  EXPECT_EQ(0, Dictionary::CheckAttach(rieul, jei));
  jei.attach = 0x2 | 0x4;  // final ㄹ allowed before the closed test
  EXPECT_EQ(1, Dictionary::CheckAttach(rieul, jei));
  EXPECT_EQ(0, Dictionary::CheckAttach(closed, jei));
  jei.attach = 0x1 | 0x4;
  EXPECT_EQ(0, Dictionary::CheckAttach(open, jei));
}

}  // namespace
}  // namespace Quorel
