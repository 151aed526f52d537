// The built-in suffix lists: their tables, the reversed search from the end
// of a text, and the byte-wide result lists.
#include <gtest/gtest.h>

#include <string>

#include "knowledge/knowledge_helpers.h"
#include "knowledge/suffix_lists.h"
#include "text/syllable_table.h"

namespace Quorel {
namespace {

using testing_knowledge::Cp949;
using testing_knowledge::Utf8;

// "position:surface" of each hit, in result order.
std::string Describe(const SuffixList& list, const PositionList& hits) {
  std::string out;
  for (uint32_t k = 0; k < hits.count; ++k) {
    out += (out.empty() ? "" : " ") + std::to_string(hits.positions[k]) +
           ":" + Utf8(list.GetEntry(hits.values[k])->surface);
  }
  return out;
}

std::string Search(const SuffixList& list, const std::string& utf8) {
  PositionList hits;
  std::string text = Cp949(utf8);
  if (list.Find(text.c_str(), hits) == 0) return "none";
  return Describe(list, hits);
}

TEST(SuffixLists, TablesHaveTheirRowsAndBuildWithoutMessages) {
  ::testing::internal::CaptureStderr();
  AVList av;
  XSDList xsd;
  EPList ep;
  EXPECT_EQ("", ::testing::internal::GetCapturedStderr());
  EXPECT_EQ(46, av.RowCount());
  EXPECT_EQ(13, xsd.RowCount());
  EXPECT_EQ(128, ep.RowCount());
  EXPECT_STREQ("", av.GetEntry(0)->surface);
  EXPECT_EQ(nullptr, av.GetEntry(46));
  EXPECT_EQ(nullptr, av.GetEntry(-1));
  EXPECT_EQ("만하", Utf8(av.GetEntry(18)->base));
  EXPECT_EQ(0x2000u, av.GetEntry(18)->mark);
  EXPECT_EQ(0u, av.GetEntry(17)->mark);
  EXPECT_EQ("마지아니하", Utf8(av.GetEntry(45)->surface));
  EXPECT_EQ("다우", Utf8(xsd.GetEntry(11)->surface));
  EXPECT_EQ("답", Utf8(xsd.GetEntry(11)->base));
  EXPECT_EQ("스러우", Utf8(xsd.GetEntry(12)->surface));
  // Both rows with the base 으시: 26 written 으셔, 28 written 으시.
  EXPECT_EQ("으시", Utf8(ep.GetEntry(26)->base));
  EXPECT_EQ("으셔", Utf8(ep.GetEntry(26)->surface));
  EXPECT_EQ("으시", Utf8(ep.GetEntry(28)->base));
  EXPECT_EQ("으시", Utf8(ep.GetEntry(28)->surface));
  EXPECT_EQ("으시었겠으옵", Utf8(ep.GetEntry(127)->surface));
}

TEST(SuffixLists, EPKeepsOnlyTheLongestHit) {
  EPList ep;
  EXPECT_EQ("2:었", Search(ep, "먹었"));
  EXPECT_EQ("2:었겠", Search(ep, "뛰었겠"));
  EXPECT_EQ("2:으시었겠으옵", Search(ep, "가으시었겠으옵"));
  EXPECT_EQ("none", Search(ep, "먹다"));
  EXPECT_EQ(nullptr, ep.Find(Cp949("먹다").c_str()));
  // The first byte is never walked: a suffix can't start there.
  EXPECT_EQ("none", Search(ep, "었"));
  EXPECT_EQ("none", Search(ep, "x"));
  EXPECT_EQ(nullptr, ep.Find(""));
}

TEST(SuffixLists, XSDRecordsEveryHitNearestTheEndFirst) {
  XSDList xsd;
  EXPECT_EQ("4:하 2:당하", Search(xsd, "가당하"));
  EXPECT_EQ("4:스러우", Search(xsd, "사랑스러우"));
  EXPECT_EQ("", Search(xsd, "사랑"));  // a search without hits is not null
  StringEx text(Cp949("공부하").c_str());
  PositionList hits;
  EXPECT_EQ(1, xsd.Find(text, hits));
  EXPECT_EQ(1u, hits.count);
  // len limits the text: the search runs from its own end.
  EXPECT_EQ(1, xsd.Find(text, hits, 4));
  EXPECT_EQ(0u, hits.count);
}

TEST(SuffixLists, AVNeedsAnOpenSyllableOrFinalRieulOrNieunBefore) {
  AVList av;
  EXPECT_EQ("2:보", Search(av, "가보"));
  EXPECT_EQ("", Search(av, "먹보"));
  EXPECT_EQ("2:보", Search(av, "갈보"));
  EXPECT_EQ("2:보", Search(av, "간보"));
  EXPECT_EQ("8:하 4:싶어하", Search(av, "있어싶어하"));
}

TEST(SuffixLists, AVWithoutASyllableBeforeTheHit) {
  AVList av;
  // A byte pair that has no syllable record, then a hit.
  std::string text = std::string("a\xC9") + Cp949("보");
  PositionList hits;
  EXPECT_EQ(0, av.Find(text.c_str(), hits));
  // The form with the list's own results records the hit all the same.
  PositionList* own = av.Find(text.c_str());
  ASSERT_NE(nullptr, own);
  EXPECT_EQ("2:보", Describe(av, *own));
  std::string oddStart = "a" + Cp949("보");
  EXPECT_EQ(0, av.Find(oddStart.c_str(), hits));
}

// What Find answers by the table alone: every row whose surface ends the
// text from a position of 1 or more, nearest the end first, with the AV
// syllable rule and the EP longest hit; "none" for a result of 0.
std::string ByTable(const SuffixList& list, const std::string& text,
                    bool ep, bool av) {
  const auto len = static_cast<int32_t>(text.size());
  if (len < 2) return "none";
  std::string out;
  std::string longest;
  for (int32_t i = len - 1; i >= 1; --i) {
    int32_t row = 1;
    while (row < list.RowCount() && text.compare(i, std::string::npos,
                                                 list.GetEntry(row)->surface) != 0) {
      ++row;
    }
    if (row == list.RowCount()) continue;
    const std::string hit = std::to_string(i & 0xFF) + ":" +
                            Utf8(list.GetEntry(row)->surface);
    if (ep) {
      longest = hit;
      continue;
    }
    if (av) {
      const SyllableRec* before =
          i >= 2 ? SyllableAt(text.c_str() + i - 2) : nullptr;
      if (before == nullptr) return "none";
      if ((before->flags & 0x1) && before->jongseong != 9 &&
          before->jongseong != 5) {
        continue;
      }
    }
    out += (out.empty() ? "" : " ") + hit;
  }
  if (ep) return longest.empty() ? "none" : longest;
  return out;
}

TEST(SuffixLists, FindAnswersAsTheTableOnEverySurfaceAndNeighbour) {
  AVList av;
  XSDList xsd;
  EPList ep;
  const std::string leads[] = {"", "a", "가", "갈", "각", "간", "먹었", "하시"};
  size_t checked = 0;
  for (const SuffixList* list : {static_cast<const SuffixList*>(&av),
                                 static_cast<const SuffixList*>(&xsd),
                                 static_cast<const SuffixList*>(&ep)}) {
    const bool isEP = list == &ep;
    const bool isAV = list == &av;
    for (int32_t row = 1; row < list->RowCount(); ++row) {
      const std::string surface = list->GetEntry(row)->surface;
      const std::string other =
          list->GetEntry(1 + row % (list->RowCount() - 1))->surface;
      for (const std::string& lead : leads) {
        const std::string front = Cp949(lead);
        for (const std::string& text :
             {front + surface, front + other + surface, front + surface + "a",
              front + surface.substr(0, surface.size() - 1),
              front + surface.substr(1)}) {
          PositionList hits;
          const int found = list->Find(text.c_str(), hits);
          EXPECT_EQ(ByTable(*list, text, isEP, isAV),
                    found == 0 ? "none" : Describe(*list, hits))
              << Utf8(text);
          ++checked;
        }
      }
    }
  }
  EXPECT_GT(checked, 5000u);
}

TEST(SuffixLists, PositionsAreBytesAndWrap) {
  EPList ep;
  std::string text;
  for (int i = 0; i < 130; ++i) text += "가";
  EXPECT_EQ("4:었", Search(ep, text + "었"));  // 260 modulo 256
}

TEST(PositionListTest, GrowsByDoublingAndClears) {
  PositionList list;
  EXPECT_EQ(PositionList::kMinCapacity, list.capacity);
  for (uint32_t k = 0; k < PositionList::kMinCapacity; ++k) {
    list.Add(static_cast<unsigned char>(k), static_cast<unsigned char>(k + 1));
  }
  EXPECT_EQ(2 * PositionList::kMinCapacity, list.capacity);
  EXPECT_EQ(PositionList::kMinCapacity, list.count);
  EXPECT_EQ(7, list.positions[7]);
  EXPECT_EQ(8, list.values[7]);
  EXPECT_EQ(255, list.positions[PositionList::kMinCapacity - 1]);
  list.Clear();
  EXPECT_EQ(0u, list.count);
  EXPECT_EQ(0, list.positions[7]);
  EXPECT_EQ(2 * PositionList::kMinCapacity, list.capacity);
  list.Clear(true);
  EXPECT_EQ(PositionList::kMinCapacity, list.capacity);
}

}  // namespace
}  // namespace Quorel
