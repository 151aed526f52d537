// Eojul storage and readers: filling, phantom candidates, the narrowed view,
// growth past the inline areas, copying and joining.
#include "eojul/eojul.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "eojul/tag_set.h"

namespace Quorel {
namespace {

// Adds one candidate of the given (lexicon, pos) morphemes with a score.
void AddCandidate(Eojul& e, std::initializer_list<std::pair<const char*, uint32_t>> morphemes,
                  double score) {
  e.BeginCandidate();
  for (const auto& m : morphemes) e.AddMorpheme(m.first, m.second);
  e.SetCandidateScore(score);
  e.EndCandidate();
}

TEST(EojulTest, EmptyEojulReadsAsNothing) {
  Eojul e;
  EXPECT_EQ(e.GetListSize(), 0);
  EXPECT_EQ(e.GetCount(0), 0);
  EXPECT_EQ(e.GetLexicon(0, 0), nullptr);
  EXPECT_EQ(e.GetPOS(0, 0), 0xFFFFFFFFu);
  EXPECT_STREQ(e.GetStrPOS(0, 0), "");
  EXPECT_STREQ(e.GetString(), "");
  EXPECT_EQ(e.GetOffset(), -1);
  EXPECT_EQ(e.GetStartOffset(0, 0), -1);
  e.SetText("abc", 2);
  EXPECT_STREQ(e.GetString(), "abc");
  EXPECT_EQ(e.GetType(), 2u);
  EXPECT_EQ(e.GetListSize(), 0);
}

TEST(EojulTest, FillsAndReadsCandidates) {
  Eojul e;
  e.SetText("ab", EojulType::kLatin);
  AddCandidate(e, {{"a", Pos::NNG}, {"b", Pos::JX}}, 1.5);
  e.BeginCandidate();
  e.AddSurfaceMorpheme(Pos::NNR);
  e.EndCandidate();
  ASSERT_EQ(e.GetListSize(), 2);
  EXPECT_EQ(e.GetCount(0), 2);
  EXPECT_STREQ(e.GetLexicon(0, 0), "a");
  EXPECT_STREQ(e.GetLexicon(0, 1), "b");
  EXPECT_EQ(e.GetPOS(0, 1), Pos::JX);
  EXPECT_STREQ(e.GetStrPOS(0, 1), "J_");  // JX shares its mask's name
  EXPECT_DOUBLE_EQ(e.GetScore(0), 1.5);
  EXPECT_EQ(e.GetCount(1), 1);
  EXPECT_STREQ(e.GetLexicon(1, 0), "ab");  // the surface itself
  EXPECT_STREQ(e.GetStrPOS(1, 0), "NNR");
  EXPECT_EQ(e.GetLexicon(-1, 0), nullptr);
  EXPECT_EQ(e.GetLexicon(0, -1), nullptr);
  EXPECT_EQ(e.GetLexicon(2, 0), nullptr);
}

TEST(EojulTest, MorphemeAtCountReadsTheNextStoredOne) {
  Eojul e;
  e.SetText("xy", 0);
  AddCandidate(e, {{"x", Pos::NNG}}, 1);
  AddCandidate(e, {{"y", Pos::NNP}}, 1);
  // One past the count still reads: it is the next morpheme in storage.
  EXPECT_STREQ(e.GetLexicon(0, e.GetCount(0)), "y");
  EXPECT_EQ(e.GetLexicon(0, e.GetCount(0) + 1), nullptr);
  // Past the last candidate's morphemes there is nothing stored, yet the
  // reader doesn't fail.
  EXPECT_NE(e.GetLexicon(1, 1), nullptr);
  EXPECT_EQ(e.GetLexicon(1, 2), nullptr);
}

TEST(EojulTest, AbandonedCandidateLeavesAPhantom) {
  Eojul e;
  e.SetText("w", 0);
  e.BeginCandidate();
  e.EndCandidate();  // no morphemes: abandoned
  AddCandidate(e, {{"w", Pos::NNG}}, 2.0);
  ASSERT_EQ(e.GetListSize(), 2);
  EXPECT_EQ(e.GetCount(0), 1);
  EXPECT_STREQ(e.GetLexicon(0, 0), "w");
  EXPECT_EQ(e.GetCount(1), 0);  // the phantom at the tail
  EXPECT_DOUBLE_EQ(e.GetScore(1), 0.0);
}

TEST(EojulTest, PhantomsNeverReadStaleCandidates) {
  Eojul e;
  e.SetText("a", 0);
  for (int i = 0; i < 5; ++i) AddCandidate(e, {{"old", Pos::NNG}}, 9.0);
  e.SetText("b", 0);
  AddCandidate(e, {{"new", Pos::NNG}}, 1.0);
  for (int i = 0; i < 3; ++i) {
    e.BeginCandidate();
    e.EndCandidate();
  }
  e.BeginCandidate();  // left open
  ASSERT_EQ(e.GetListSize(), 5);
  for (int c = 1; c < 5; ++c) {
    EXPECT_EQ(e.GetCount(c), 0) << c;
    EXPECT_DOUBLE_EQ(e.GetScore(c), 0.0) << c;
  }
}

TEST(EojulTest, SelectTopTieRules) {
  Eojul e;
  e.SetText("t", 0);
  AddCandidate(e, {{"one", Pos::NNG}}, 1.0);
  AddCandidate(e, {{"two", Pos::NNG}}, 2.0);
  AddCandidate(e, {{"three", Pos::NNG}}, 2.0);

  EXPECT_EQ(e.SelectTop(2), 2);
  ASSERT_EQ(e.GetListSize(), 2);
  EXPECT_STREQ(e.GetLexicon(0, 0), "three");
  EXPECT_STREQ(e.GetLexicon(1, 0), "two");
  // The range test uses the stored count, then maps through the whole
  // order: past the view a reader still sees the rest, worst last.
  EXPECT_STREQ(e.GetLexicon(2, 0), "one");

  EXPECT_EQ(e.SelectTop(1), 1);
  EXPECT_STREQ(e.GetLexicon(0, 0), "three");  // last of equal scores

  EXPECT_EQ(e.SelectTop(0), 3);
  EXPECT_EQ(e.GetListSize(), 3);
  EXPECT_STREQ(e.GetLexicon(0, 0), "one");

  EXPECT_EQ(e.SelectTop(9), 3);  // more than there are
  EXPECT_STREQ(e.GetLexicon(0, 0), "three");
  EXPECT_STREQ(e.GetLexicon(2, 0), "one");
}

TEST(EojulTest, SelectTopOnEmptyShowsNothing) {
  Eojul e;
  e.SetText("t", 0);
  EXPECT_EQ(e.SelectTop(3), 0);
  EXPECT_EQ(e.GetListSize(), 0);
  EXPECT_EQ(e.GetLexicon(0, 0), nullptr);
}

TEST(EojulTest, BestCandidateDropsTheView) {
  Eojul e;
  e.SetText("t", 0);
  AddCandidate(e, {{"a", Pos::NNG}}, 3.0);
  AddCandidate(e, {{"b", Pos::NNG}}, 3.0);
  AddCandidate(e, {{"c", Pos::NNG}}, 1.0);
  e.SelectTop(1);
  EXPECT_EQ(e.GetListSize(), 1);
  EXPECT_EQ(e.BestCandidate(), 1);  // the later of two equals
  EXPECT_EQ(e.GetListSize(), 3);
}

TEST(EojulTest, CopyShowsAllCandidatesAgain) {
  Eojul e;
  e.SetText("t", 0);
  AddCandidate(e, {{"a", Pos::NNG}}, 1.0);
  AddCandidate(e, {{"b", Pos::NNG}}, 2.0);
  e.indexMask = 0x1234;
  e.keepCase = true;
  e.SetOffset(7);
  e.SelectTop(1);
  Eojul copy(e);
  EXPECT_EQ(copy.GetListSize(), 2);
  EXPECT_STREQ(copy.GetLexicon(0, 0), "a");
  EXPECT_EQ(copy.indexMask, 0x1234u);
  EXPECT_FALSE(copy.keepCase);
  EXPECT_EQ(copy.GetOffset(), 7);
}

TEST(EojulTest, GrowthKeepsEveryEarlierAnswer) {
  Eojul e;
  e.SetText("grow", 0);
  std::vector<std::string> words;
  for (int i = 0; i < 200; ++i) {
    words.push_back("word" + std::to_string(i));
    AddCandidate(e, {{words.back().c_str(), Pos::NNG}, {"x", Pos::JX}}, i);
  }
  ASSERT_EQ(e.GetListSize(), 200);
  for (int i = 0; i < 200; ++i) {
    ASSERT_EQ(e.GetCount(i), 2);
    EXPECT_EQ(e.GetLexicon(i, 0), words[i]);
    EXPECT_DOUBLE_EQ(e.GetScore(i), i);
  }
  EXPECT_STREQ(e.GetString(), "grow");
  e.Initialize(true);
  EXPECT_EQ(e.GetListSize(), 0);
  e.SetText("again", 0);
  AddCandidate(e, {{"again", Pos::NNG}}, 1);
  EXPECT_STREQ(e.GetLexicon(0, 0), "again");
}

// Morphemes of known length stored in room (inline) and at the step that
// makes the text area grow, from our own surface, read back as the
// measured form stores copies of the same texts.
TEST(EojulTest, KnownLengthMorphemesMatchMeasuredOnesAcrossGrowth) {
  std::string surface(200, 'a');
  for (size_t i = 0; i < surface.size(); ++i) surface[i] = static_cast<char>('a' + i % 26);
  Eojul given;
  Eojul measured;
  given.SetText(surface.c_str(), 0);
  measured.SetText(surface.c_str(), 0);
  // 202 + 41 bytes fit the 256 inline bytes; the next 21 do not.
  const std::pair<size_t, size_t> pieces[] = {{0, 40}, {10, 20}, {5, 3}};
  for (Eojul* e : {&given, &measured}) e->BeginCandidate();
  for (const auto& piece : pieces) {
    given.AddMorpheme(given.GetString() + piece.first,
                      static_cast<uint32_t>(piece.second), Pos::NNG);
    measured.AddMorpheme(surface.substr(piece.first, piece.second).c_str(),
                         Pos::NNG);
  }
  for (Eojul* e : {&given, &measured}) e->EndCandidate();
  ASSERT_EQ(given.GetCount(0), 3);
  for (int m = 0; m < 3; ++m) {
    EXPECT_STREQ(given.GetLexicon(0, m), measured.GetLexicon(0, m));
    EXPECT_EQ(given.GetPOS(0, m), measured.GetPOS(0, m));
  }
  EXPECT_EQ(std::string(given.GetString()), surface);
}

TEST(EojulTest, ManyShortCandidatesStayInBounds) {
  // Candidates fill their directory before the text or morphemes would grow.
  Eojul e;
  e.SetText("s", 0);
  for (int i = 0; i < 60; ++i) {
    e.BeginCandidate();
    e.AddSurfaceMorpheme(Pos::NNG);
    e.SetCandidateScore(i);
    e.EndCandidate();
  }
  ASSERT_EQ(e.GetListSize(), 60);
  EXPECT_DOUBLE_EQ(e.GetScore(59), 59.0);
  EXPECT_EQ(e.BestCandidate(), 59);
}

TEST(EojulTest, CopyFromGrowsAndTerminates) {
  Eojul big;
  big.SetText("big", 0);
  for (int i = 0; i < 100; ++i) AddCandidate(big, {{"morpheme", Pos::NNG}}, i);
  Eojul small;
  small.indexMask = 7;
  small.CopyFrom(big);
  EXPECT_EQ(small.GetListSize(), 100);
  EXPECT_DOUBLE_EQ(small.GetScore(99), 99.0);
  EXPECT_EQ(small.indexMask, 7u);
  // Filling on after the copy goes on from the copied state.
  small.BeginCandidate();
  small.AddMorpheme("next", Pos::NNP);
  small.EndCandidate();
  EXPECT_STREQ(small.GetLexicon(100, 0), "next");
}

TEST(EojulTest, JoinAfterAndBeforeUseTheFirstStoredCandidate) {
  Eojul left;
  left.SetText("L", 0);
  AddCandidate(left, {{"l1", Pos::NNG}}, 1.0);
  AddCandidate(left, {{"l2", Pos::NNP}}, 5.0);
  Eojul right;
  right.SetText("R", 0);
  AddCandidate(right, {{"r1", Pos::JX}}, 0.5);
  AddCandidate(right, {{"r2", Pos::JKG}}, 9.0);

  Eojul after;
  after.SetText("LR", 0);
  after.JoinAfter(left, right);
  ASSERT_EQ(after.GetListSize(), 2);
  EXPECT_STREQ(after.GetLexicon(1, 0), "l2");
  EXPECT_STREQ(after.GetLexicon(1, 1), "r1");
  EXPECT_DOUBLE_EQ(after.GetScore(1), 5.5);

  Eojul before;
  before.SetText("LR", 0);
  before.JoinBefore(left, right);
  ASSERT_EQ(before.GetListSize(), 2);
  EXPECT_STREQ(before.GetLexicon(1, 0), "l1");
  EXPECT_STREQ(before.GetLexicon(1, 1), "r2");
  EXPECT_DOUBLE_EQ(before.GetScore(1), 10.0);

  Eojul none;
  none.SetText("N", 0);
  Eojul joined;
  joined.SetText("LN", 0);
  joined.JoinAfter(left, none);  // no candidates: the surface as NNR
  EXPECT_STREQ(joined.GetLexicon(0, 1), "N");
  EXPECT_EQ(joined.GetPOS(0, 1), Pos::NNR);
}

TEST(EojulTest, AppendMorphemesSumsPositiveScores) {
  Eojul part;
  part.SetText("p", 0);
  AddCandidate(part, {{"a", Pos::NNG}}, 2.0);
  AddCandidate(part, {{"b", Pos::JX}}, -1.0);
  AddCandidate(part, {{"c", Pos::EM}}, 3.0);
  Eojul e;
  e.SetText("abc", 0);
  e.BeginCandidate();
  e.AppendMorphemes(part);
  e.EndCandidate();
  ASSERT_EQ(e.GetCount(0), 3);
  EXPECT_STREQ(e.GetLexicon(0, 2), "c");
  EXPECT_DOUBLE_EQ(e.GetScore(0), 5.0);
}

TEST(EojulTest, IsIndexWordFiltersByMaskAndLength) {
  Eojul e;
  e.SetText("t", 0);
  AddCandidate(e, {{"ab", Pos::FL}, {"abc", Pos::FL}, {"n", Pos::NNG}, {"p", Pos::NNP}}, 1);
  e.indexMask = Pos::N_ | 0x1 | Pos::FL;
  e.minForeignLength = 3;
  EXPECT_FALSE(e.IsIndexWord(0, 0));  // 2 bytes
  EXPECT_TRUE(e.IsIndexWord(0, 1));
  EXPECT_TRUE(e.IsIndexWord(0, 2));
  EXPECT_FALSE(e.IsIndexWord(0, 3));  // NNP bit outside the mask
  EXPECT_FALSE(e.IsIndexWord(0, 9));  // failed read
  e.indexMask = 0xFFFFFFFF;
  EXPECT_FALSE(e.IsIndexWord(5, 0));  // a failed read has the FL bit too
  e.minForeignLength = 0;
  EXPECT_TRUE(e.IsIndexWord(5, 0));   // all bits admit even a failed read
}

TEST(EojulTest, OffsetsAreReadPerMorpheme) {
  Eojul e;
  e.SetText("t", 0);
  AddCandidate(e, {{"a", Pos::NNG}, {"b", Pos::JX}}, 1);
  e.AddMorphemeOffsets(0, 2);
  e.AddMorphemeOffsets(-3, 4);
  EXPECT_EQ(e.GetStartOffset(0, 0), 0);
  EXPECT_EQ(e.GetEndOffset(0, 0), 2);
  EXPECT_EQ(e.GetStartOffset(0, 1), -3);
  EXPECT_EQ(e.GetEndOffset(0, 1), 4);
  EXPECT_EQ(e.GetStartOffset(0, 3), -1);
}

TEST(EojulTest, GetMorphemeAt) {
  Eojul e;
  e.SetText("sur", 0);
  AddCandidate(e, {{"m1", Pos::NNG}, {"m2", Pos::JX}}, 1);
  EXPECT_STREQ(e.GetMorphemeAt(0), "sur");
  EXPECT_STREQ(e.GetMorphemeAt(1), "m1");
  EXPECT_STREQ(e.GetMorphemeAt(2), "m2");
  EXPECT_EQ(e.GetMorphemeAt(3), nullptr);
  EXPECT_EQ(e.GetMorphemeAt(9), nullptr);
  EXPECT_EQ(e.GetMorphemeAt(-1), nullptr);
}

TEST(EojulTest, PrintForms) {
  Eojul e;
  e.SetText("ab", 0);
  e.SetOffset(4);
  AddCandidate(e, {{"a", Pos::NNG}, {"b", Pos::JX}}, 1.5);
  AddCandidate(e, {{"ab", Pos::NNP}}, 0.5);
  std::ostringstream full;
  e.Print(full, false);
  EXPECT_EQ(full.str(),
            "[ab]\nOffset : 4\n\t0: a/NNG + b/J_\t1.5\n\t1: ab/NNP\t0.5\n");
  std::ostringstream compact;
  e.Print(compact, true);
  EXPECT_EQ(compact.str(), "ab\tOffset : 4\na/NNG+b/J_@ab/NNP\n");
}

TEST(EojulTest, SurfaceFromItsOwnStorageSurvivesSetText) {
  Eojul e;
  std::string longText(400, 'z');
  e.SetText(longText.c_str(), 0);
  e.SetText(e.GetString(), 2);
  EXPECT_EQ(std::string(e.GetString()), longText);
  e.BeginCandidate();
  e.AddMorpheme(e.GetString(), Pos::NNG);  // copied from our own pool
  e.EndCandidate();
  EXPECT_EQ(std::string(e.GetLexicon(0, 0)), longText);
}

// SetText with the length given stores what the measuring form stores:
// short, long (past the inline areas) and from the eojul's own storage.
TEST(EojulTest, SurfaceOfKnownLengthMatchesTheMeasuredOne) {
  for (const std::string& surface :
       {std::string("ab"), std::string(), std::string(300, 'k')}) {
    Eojul measured;
    Eojul given;
    measured.SetText(surface.c_str(), EojulType::kLatin);
    given.SetText(surface.c_str(), static_cast<uint32_t>(surface.size()),
                  EojulType::kLatin);
    EXPECT_EQ(std::string(given.GetString()), surface);
    EXPECT_EQ(given.GetType(), measured.GetType());
    for (Eojul* e : {&measured, &given}) {
      e->BeginCandidate();
      e->AddSurfaceMorpheme(Pos::NNG);
      e->AddMorpheme("x", Pos::JKG);
      e->EndCandidate();
    }
    EXPECT_EQ(std::string(given.GetLexicon(0, 0)), surface);
    EXPECT_STREQ(given.GetLexicon(0, 1), measured.GetLexicon(0, 1));
    EXPECT_EQ(given.GetListSize(), measured.GetListSize());
  }
  Eojul e;
  std::string longText(400, 'w');
  e.SetText(longText.c_str(), 0);
  // The first 5 bytes of our own surface, with no NUL behind them.
  e.SetText(e.GetString(), 5u, 2);
  EXPECT_EQ(std::string(e.GetString()), longText.substr(0, 5));
}

TEST(EojulTest, MorphemeOfKnownLengthTakesExactlyThoseBytes) {
  Eojul e;
  e.SetText("abcdef", 0);
  e.BeginCandidate();
  e.AddMorpheme("stemXYZ", 4u, Pos::NNG);  // no terminator at byte 4
  e.AddMorpheme("", 0u, Pos::JKG);
  e.AddMorpheme(nullptr, 3u, Pos::NNP);    // null: the empty lexicon
  e.EndCandidate();
  ASSERT_EQ(e.GetCount(0), 3);
  EXPECT_STREQ(e.GetLexicon(0, 0), "stem");
  EXPECT_STREQ(e.GetLexicon(0, 1), "");
  EXPECT_STREQ(e.GetLexicon(0, 2), "");
  EXPECT_EQ(e.GetPOS(0, 2), Pos::NNP);
}

TEST(EojulTest, MorphemeOfKnownLengthFromOwnStorageSurvivesGrowth) {
  Eojul e;
  std::string longText(400, 'q');
  longText.replace(0, 3, "abc");
  e.SetText(longText.c_str(), 0);
  e.BeginCandidate();
  // The whole surface and then its tail from byte 3, both from our own pool,
  // each long enough to make the text area grow.
  e.AddMorpheme(e.GetString(), 400u, Pos::NNG);
  e.AddMorpheme(e.GetString() + 3, 397u, Pos::JKG);
  e.EndCandidate();
  EXPECT_EQ(std::string(e.GetLexicon(0, 0)), longText);
  EXPECT_EQ(std::string(e.GetLexicon(0, 1)), longText.substr(3));
  EXPECT_EQ(std::string(e.GetString()), longText);
}

}  // namespace
}  // namespace Quorel
