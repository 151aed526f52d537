// The divider fed the caller's search of the words at the start of the word
// answers exactly as the divider that searches them itself: same pattern,
// same rows, same group scores, in every mode.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "noun_divider/divider_helpers.h"

namespace Quorel {
namespace {

using testing_divider::Cp949;
using testing_divider::Render;

class StartHitsTest : public testing_divider::SmallKnowledgeTest {
 protected:
  // Everything a reader of the divider sees after one division.
  struct Answer {
    std::string pattern;
    int rowCount;
    std::vector<double> scores;
  };

  Answer Divide(NounDivider& d, const std::string& cp949, int mode,
                const std::vector<SearchInfo>* startHits) {
    Answer a;
    a.pattern = Render(d.Divide(cp949.c_str(), mode, startHits));
    a.rowCount = d.rowCount;
    for (int k = 0; k < kDivRows; ++k) a.scores.push_back(d.GetPatternScore(k));
    return a;
  }
};

TEST_F(StartHitsTest, GivenStartHitsChangeNoAnswer) {
  const char* const kWords[] = {
      "국가경제정책", "경기관광공사", "국가경제정책에", "국가경제를",
      "국가뷁뷁정책", "국가뷁정책",   "국가및경제",     "신국가",
      "책학교",       "대한민국",     "신한국인들",     "국가부터",
      "부터",         "뷁뷁뷁뷁",     "책",             "국가경제정책들"};
  const int kModes[] = {0, 1, 2, 3, 4, 10};
  NounDivider fed;
  fed.Bind(&knowledge->dictionary);
  int divided = 0;
  for (const char* utf8 : kWords) {
    const std::string word = Cp949(utf8);
    std::vector<SearchInfo> startHits;
    knowledge->dictionary.SearchAll(word.c_str(), startHits, 0, 0, 0, 1, 0, 0);
    for (int mode : kModes) {
      const Answer own = Divide(divider, word, mode, nullptr);
      const Answer given = Divide(fed, word, mode, &startHits);
      EXPECT_EQ(own.pattern, given.pattern) << utf8 << " mode " << mode;
      EXPECT_EQ(own.rowCount, given.rowCount) << utf8 << " mode " << mode;
      EXPECT_EQ(own.scores, given.scores) << utf8 << " mode " << mode;
      if (own.pattern.size() > 2) ++divided;
    }
  }
  EXPECT_GT(divided, 20);  // the words mostly divide, so rows were compared
}

TEST_F(StartHitsTest, HitsBeyondTheSearchLimitAreCutAlike) {
  // A long run of known nouns gives more hits than the divider keeps.
  std::string utf8;
  for (int i = 0; i < 50; ++i) utf8 += "국가경제";
  const std::string word = Cp949(utf8);
  std::vector<SearchInfo> startHits;
  knowledge->dictionary.SearchAll(word.c_str(), startHits, 0, 0, 0, 1, 0, 0);
  NounDivider fed;
  fed.Bind(&knowledge->dictionary);
  const Answer own = Divide(divider, word, 2, nullptr);
  const Answer given = Divide(fed, word, 2, &startHits);
  EXPECT_EQ(static_cast<size_t>(kMaxDivHits), divider.hits.size());
  EXPECT_EQ(own.pattern, given.pattern);
  EXPECT_EQ(own.scores, given.scores);
  ASSERT_EQ(divider.hits.size(), fed.hits.size());
  for (size_t i = 0; i < divider.hits.size(); ++i) {
    EXPECT_EQ(divider.hits[i].start, fed.hits[i].start) << i;
    EXPECT_EQ(divider.hits[i].end, fed.hits[i].end) << i;
  }
}

// The caller's search of the words at the start answers each head of the
// word as SearchMain does, a miss as its blank record.
TEST_F(StartHitsTest, HeadRecordsAnswerAsSearchMain) {
  int found = 0;
  for (const char* utf8 : {"국가경제정책", "신한국인들", "그들", "책학교", "뷁국가"}) {
    const std::string word = Cp949(utf8);
    std::vector<SearchInfo> startHits;
    knowledge->dictionary.SearchAll(word.c_str(), startHits, 0, 0, 0, 1, 0, 0);
    for (int32_t bytes = 1; bytes <= static_cast<int32_t>(word.size()); ++bytes) {
      SearchInfo looked;
      found += knowledge->dictionary.SearchMain(word.c_str(), looked, bytes);
      const SearchInfo& head = NounDivider::HeadRecord(startHits, bytes);
      EXPECT_EQ(looked.start, head.start) << utf8 << " " << bytes;
      EXPECT_EQ(looked.end, head.end) << utf8 << " " << bytes;
      EXPECT_EQ(looked.info.bits, head.info.bits) << utf8 << " " << bytes;
      EXPECT_EQ(looked.info.marks, head.info.marks) << utf8 << " " << bytes;
      EXPECT_EQ(looked.nnbText, head.nnbText) << utf8 << " " << bytes;
      EXPECT_EQ(looked.nnpText, head.nnpText) << utf8 << " " << bytes;
      EXPECT_EQ(looked.nnuText, head.nnuText) << utf8 << " " << bytes;
      EXPECT_EQ(looked.nuText, head.nuText) << utf8 << " " << bytes;
    }
  }
  EXPECT_GE(found, 4);  // hits and misses were both compared
}

// A word that begins the word divided before it takes its hits from that
// word's: the same hits, rows and answer as when searched afresh.
TEST_F(StartHitsTest, AShorterWordAfterALongerOneAnswersAlike) {
  struct Case {
    const char* longer;
    const char* shorter;
  };
  std::string run;
  for (int i = 0; i < 50; ++i) run += "국가경제";  // more hits than kept
  const Case kCases[] = {
      {"국가경제정책에", "국가경제정책"}, {"국가경제정책에", "국가경"},
      {"국가경제를", "국가경제"},         {"신한국인들", "신한국인"},
      {"국가뷁정책", "국가뷁"},           {"경기관광공사", "경기관광"},
      {"국가경제정책들", "국"},           {run.c_str(), "국가경제국가경제"},
  };
  NounDivider fresh;
  fresh.Bind(&knowledge->dictionary);
  for (const Case& c : kCases) {
    const std::string longer = Cp949(c.longer);
    const std::string shorter = Cp949(c.shorter);
    for (int mode : {0, 2}) {
      divider.Divide(longer.c_str(), mode);
      const Answer after = Divide(divider, shorter, mode, nullptr);
      const Answer own = Divide(fresh, shorter, mode, nullptr);
      EXPECT_EQ(own.pattern, after.pattern) << c.shorter;
      EXPECT_EQ(own.rowCount, after.rowCount) << c.shorter;
      EXPECT_EQ(own.scores, after.scores) << c.shorter;
      ASSERT_EQ(fresh.hits.size(), divider.hits.size()) << c.shorter;
      for (size_t i = 0; i < fresh.hits.size(); ++i) {
        EXPECT_EQ(fresh.hits[i].start, divider.hits[i].start) << c.shorter;
        EXPECT_EQ(fresh.hits[i].end, divider.hits[i].end) << c.shorter;
        EXPECT_EQ(fresh.hits[i].info.bits, divider.hits[i].info.bits);
      }
    }
  }
}

// Enumerate given the word's own record (as Divide gives it) weighs a piece
// over the whole word as a lookup of its own would.
TEST_F(StartHitsTest, TheWholeWordRecordChangesNoRow) {
  const char* const kWords[] = {"뷁뷁뷁뷁", "뷁뷁뷁", "국가경제정책", "국가",
                                "신한국인들", "국가뷁", "뷁국가", "책학교"};
  NounDivider fed;
  fed.Bind(&knowledge->dictionary);
  int wholePieces = 0;
  for (const char* utf8 : kWords) {
    const std::string word = Cp949(utf8);
    SearchInfo record;
    knowledge->dictionary.SearchMain(word.c_str(), record);
    const int own = divider.Enumerate(word.c_str());
    const int given = fed.Enumerate(word.c_str(), nullptr, &record);
    ASSERT_EQ(own, given) << utf8;
    ASSERT_EQ(divider.rowCount, fed.rowCount) << utf8;
    for (int k = 0; k < divider.rowCount; ++k) {
      EXPECT_EQ(testing_divider::RowShape(divider, k),
                testing_divider::RowShape(fed, k)) << utf8 << " row " << k;
      EXPECT_EQ(divider.IsDead(k), fed.IsDead(k)) << utf8 << " row " << k;
      EXPECT_EQ(divider.weightSum[k], fed.weightSum[k]) << utf8 << " row " << k;
      EXPECT_EQ(divider.rows[k].score, fed.rows[k].score) << utf8 << " row " << k;
      const DivElement& first = divider.rows[k].elements[0];
      if (2 * first.length == static_cast<int32_t>(word.size())) ++wholePieces;
    }
  }
  EXPECT_GT(wholePieces, 1);  // rows of one piece over the word were weighed
}

}  // namespace
}  // namespace Quorel
