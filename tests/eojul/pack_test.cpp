// Packing an analysed Eojul into a flat record and back: what the readers
// see of the unpacked eojul, and what cannot be packed.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/eojul_readings.h"
#include "eojul/eojul.h"
#include "eojul/tag_set.h"

namespace Quorel {
namespace {

using testsupport::EojulReadings;

// Packs `e` and unpacks it into a fresh eojul given the same surface.
void RoundTrip(const Eojul& e, Eojul& into) {
  const uint32_t size = e.PackedSize();
  ASSERT_GT(size, 0u);
  std::vector<unsigned char> record(size);
  e.Pack(record.data());
  EXPECT_EQ(std::string(Eojul::PackedSurface(record.data())),
            std::string(const_cast<Eojul&>(e).GetString()));
  into.Unpack(record.data());
}

void AddCandidate(Eojul& e, const std::vector<std::pair<const char*, uint32_t>>& morphemes,
                  double score) {
  e.BeginCandidate();
  for (const auto& m : morphemes) e.AddMorpheme(m.first, m.second);
  e.SetCandidateScore(score);
  e.EndCandidate();
}

TEST(EojulPackTest, UnpackedEojulReadsAsTheOriginal) {
  Eojul e;
  e.indexMask = Pos::N_ | Pos::NNG;
  e.SetText("abcd", EojulType::kLatin);
  AddCandidate(e, {{"ab", Pos::NNG}, {"cd", Pos::JX}}, 2.5);
  AddCandidate(e, {{"abcd", Pos::NNP}}, 0.75);
  e.BeginCandidate();
  e.AddSurfaceMorpheme(Pos::NNR);
  e.EndCandidate();

  Eojul copy;
  copy.indexMask = e.indexMask;
  copy.SetText("abcd", EojulType::kLatin);
  RoundTrip(e, copy);
  EXPECT_EQ(EojulReadings(copy), EojulReadings(e));
  // The copy takes further candidates and a narrowed view as the original.
  AddCandidate(e, {{"x", Pos::NNG}}, 3.0);
  AddCandidate(copy, {{"x", Pos::NNG}}, 3.0);
  e.SelectTop(2);
  copy.SelectTop(2);
  EXPECT_EQ(EojulReadings(copy), EojulReadings(e));
}

TEST(EojulPackTest, OpenAndPhantomCandidatesSurvive) {
  // A candidate closed without morphemes leaves a phantom; one left open
  // holds its morphemes past the last closed one. Both read as before.
  Eojul e;
  e.SetText("ab", EojulType::kLatin);
  AddCandidate(e, {{"a", Pos::NNG}}, 1.0);
  e.BeginCandidate();
  e.EndCandidate();
  e.BeginCandidate();
  e.AddMorpheme("b", Pos::JKG);
  Eojul copy;
  copy.SetText("ab", EojulType::kLatin);
  RoundTrip(e, copy);
  EXPECT_EQ(EojulReadings(copy), EojulReadings(e));
}

TEST(EojulPackTest, OverwritesWhateverTheTargetHeldBefore) {
  Eojul e;
  e.SetText("ab", EojulType::kLatin);
  AddCandidate(e, {{"ab", Pos::NNG}}, 1.0);
  // The target analysed a longer token with more candidates before.
  Eojul target;
  target.SetText("wxyz", EojulType::kLatin);
  for (int k = 0; k < 5; ++k) AddCandidate(target, {{"w", Pos::NNG}, {"xyz", Pos::JX}}, k);
  target.SetText("ab", EojulType::kLatin);
  RoundTrip(e, target);
  EXPECT_EQ(EojulReadings(target), EojulReadings(e));
}

TEST(EojulPackTest, WhatCannotBePackedHasNoSize) {
  Eojul empty;
  EXPECT_EQ(empty.PackedSize(), 0u);

  Eojul viewed;
  viewed.SetText("ab", EojulType::kLatin);
  AddCandidate(viewed, {{"ab", Pos::NNG}}, 1.0);
  EXPECT_GT(viewed.PackedSize(), 0u);
  viewed.SelectTop(1);
  EXPECT_EQ(viewed.PackedSize(), 0u);

  Eojul offsets;
  offsets.SetText("ab", EojulType::kLatin);
  AddCandidate(offsets, {{"ab", Pos::NNG}}, 1.0);
  offsets.AddMorphemeOffsets(0, 2);
  EXPECT_EQ(offsets.PackedSize(), 0u);

  // More candidates than the inline areas hold.
  Eojul many;
  many.SetText("ab", EojulType::kLatin);
  for (int k = 0; k < 40; ++k) AddCandidate(many, {{"a", Pos::NNG}}, k);
  EXPECT_EQ(many.PackedSize(), 0u);

  // A surface longer than the inline text area.
  Eojul longer;
  longer.SetText(std::string(300, 'a').c_str(), EojulType::kLatin);
  EXPECT_EQ(longer.PackedSize(), 0u);
}

}  // namespace
}  // namespace Quorel
