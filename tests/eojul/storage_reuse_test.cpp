// Eojul storage kept for reuse: blocks let go of by Initialize(true) and
// taken again by the next growth, the move that takes another's blocks, and
// BecomeCopyOf over an Eojul that held something else. Each must read
// exactly as a fresh Eojul filled the same way.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "eojul/eojul.h"
#include "eojul/tag_set.h"

namespace Quorel {
namespace {

// Fills e with `candidates` candidates of `morphemes` numbered morphemes
// each; large counts run the arrays well past the inline areas.
void Fill(Eojul& e, const std::string& surface, int candidates, int morphemes) {
  e.SetText(surface.c_str(), EojulType::kDoubleByte);
  for (int k = 0; k < candidates; ++k) {
    e.BeginCandidate();
    for (int m = 0; m < morphemes; ++m) {
      const std::string lexicon = surface + "-" + std::to_string(k) + "." + std::to_string(m);
      e.AddMorpheme(lexicon.c_str(), m % 2 == 0 ? Pos::NNG : Pos::JKG);
    }
    e.SetCandidateScore(0.5 + k);
    e.EndCandidate();
  }
  e.SetOffset(candidates);
}

// Everything the readers of QR_Eojul show, as text.
std::string Reading(Eojul& e) {
  std::string out = std::string(e.GetString()) + "|" + std::to_string(e.GetType()) + "|" +
                    std::to_string(e.GetOffset()) + "|" + std::to_string(e.GetListSize());
  for (int k = 0; k < e.GetListSize(); ++k) {
    out += "\n" + std::to_string(e.GetScore(k)) + ":";
    for (int m = 0; m < e.GetCount(k); ++m) {
      out += std::string(" ") + e.GetLexicon(k, m) + "/" + e.GetStrPOS(k, m);
    }
  }
  return out;
}

std::string FreshReading(const std::string& surface, int candidates, int morphemes) {
  Eojul fresh;
  Fill(fresh, surface, candidates, morphemes);
  return Reading(fresh);
}

TEST(EojulStorageTest, KeptBlocksServeLaterFillsOfEverySize) {
  Eojul e;
  // Sizes up and down: inline, past it, far past it, inline again.
  const int sizes[][2] = {{2, 2}, {40, 6}, {3, 1}, {120, 9}, {60, 4}, {1, 1}, {120, 9}};
  int round = 0;
  for (const auto& size : sizes) {
    const std::string surface = "w" + std::to_string(round++);
    Fill(e, surface, size[0], size[1]);
    EXPECT_EQ(FreshReading(surface, size[0], size[1]), Reading(e)) << surface;
    e.Initialize(true);
    EXPECT_EQ(0, e.GetListSize());
    EXPECT_STREQ("", e.GetString());
  }
}

TEST(EojulStorageTest, GrowthOverKeptBlocksStartsFromZeroedArrays) {
  Eojul e;
  Fill(e, "big", 120, 9);
  e.Initialize(true);
  // Grown again from the inline areas: the kept blocks must not leak the
  // earlier candidates into the new ones.
  Fill(e, "small", 30, 5);
  EXPECT_EQ(FreshReading("small", 30, 5), Reading(e));
  e.SetText("again", EojulType::kDoubleByte);
  EXPECT_EQ(0, e.GetListSize());
  EXPECT_EQ(0, e.GetCount(0));
}

TEST(EojulStorageTest, MoveReadsAsTheCopyAndLeavesTheSourceCleared) {
  for (int candidates : {2, 80}) {
    Eojul source;
    Fill(source, "moved", candidates, 7);
    source.indexMask = 0x5;
    source.SelectTop(1);
    Eojul copy(source);
    Eojul moved(std::move(source));
    EXPECT_EQ(Reading(copy), Reading(moved)) << candidates;
    EXPECT_EQ(copy.indexMask, moved.indexMask);
    // Neither carries the narrowed view of the source.
    EXPECT_EQ(candidates, moved.GetListSize());
    EXPECT_EQ(0, source.GetListSize());
    EXPECT_STREQ("", source.GetString());
    // The source stays usable.
    Fill(source, "after", 50, 3);
    EXPECT_EQ(FreshReading("after", 50, 3), Reading(source));
  }
}

TEST(EojulStorageTest, VectorGrowthKeepsEveryElement) {
  std::vector<Eojul> eojuls;
  std::vector<std::string> expected;
  for (int i = 0; i < 40; ++i) {
    Eojul e;
    const int candidates = i % 5 == 0 ? 60 : 2;
    Fill(e, "v" + std::to_string(i), candidates, 4);
    expected.push_back(Reading(e));
    eojuls.push_back(e);
  }
  for (int i = 0; i < 40; ++i) EXPECT_EQ(expected[i], Reading(eojuls[i])) << i;
}

TEST(EojulStorageTest, BecomeCopyOfEqualsTheCopyOverAnyFormerContent) {
  Eojul target;
  const int sizes[][2] = {{90, 8}, {2, 2}, {50, 5}, {1, 1}, {120, 9}};
  int round = 0;
  for (const auto& size : sizes) {
    Eojul source;
    Fill(source, "s" + std::to_string(round++), size[0], size[1]);
    source.indexMask = static_cast<uint32_t>(round);
    source.minForeignLength = 3;
    source.keepCase = true;
    Eojul copy(source);
    target.BecomeCopyOf(source);
    EXPECT_EQ(Reading(copy), Reading(target)) << round;
    EXPECT_EQ(copy.indexMask, target.indexMask);
    EXPECT_EQ(copy.minForeignLength, target.minForeignLength);
    EXPECT_EQ(copy.keepCase, target.keepCase);
  }
}

}  // namespace
}  // namespace Quorel
