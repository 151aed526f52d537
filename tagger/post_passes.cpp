// Passes 11, 14, 15, 17 and 19: candidates rebuilt with pieces joined.
//
// The rebuild passes build one candidate at a time in `scratch` and keep it
// unless a better-scored candidate already says the same; candidates that
// come out equal are kept once, with the higher score.
#include "tagger/post_passes.h"

#include <cstring>
#include <string>

#include "eojul/tag_set.h"

namespace Quorel {

namespace {

// Suffixes that pass 14 leaves apart from their base.
const char kSuffixStopList[] =
    ":\xB2\xB2:\xB3\xD7:\xB4\xE7:\xB5\xE9:\xB9\xDF:\xBA\xB0:\xBB\xB9:\xBB\xEA"
    ":\xBC\xF8:\xBE\xBF:\xBF\xA9:\xC0\xFB:\xC2\xB0:\xC2\xEB:\xC2\xF7:\xC3\xF8"
    ":\xC3\xFE:\xC7\xB3:\xC7\xE0:\xC7\xCF:\xC8\xA3:";

bool InStopList(const char* lexicon) {
  return std::strstr(kSuffixStopList, lexicon == nullptr ? "" : lexicon) !=
         nullptr;
}

bool Has(uint32_t mask, uint32_t bits) { return (mask & bits) != 0; }

bool Joinable(uint32_t t) {
  if (Has(t, Pos::FL) || Has(t, Pos::SN)) return true;
  return Has(t, Pos::N_) &&
         Has(t, 0x1 | 0x2 | 0x8 | 0x10 | 0x40 | 0x400 | 0x800 | 0x1000 | 0x2000);
}

const char* Lexicon(Eojul& e, int c, int m) {
  const char* lexicon = e.GetLexicon(c, m);
  return lexicon == nullptr ? "" : lexicon;
}

// The mask of morpheme m of view candidate c, or 0 past its end.
uint32_t MaskOrZero(Eojul& e, int c, int m) {
  return m < e.GetCount(c) ? e.GetPOS(c, m) : 0;
}

void StartScratch(Eojul& scratch, Eojul& e) {
  scratch.Initialize(true);
  scratch.SetText(e.GetString(), e.GetType());
  scratch.BeginCandidate();
}

// Whether candidate k of `a` has the morphemes of `b`'s only candidate.
enum SameKind { kDifferent, kSameLexicons, kSameMorphemes };
SameKind Compare(Eojul& a, int k, Eojul& b) {
  int count = b.GetCount(0);
  if (a.GetCount(k) != count) return kDifferent;
  bool masks = true;
  for (int m = 0; m < count; ++m) {
    if (std::strcmp(Lexicon(a, k, m), Lexicon(b, 0, m)) != 0) return kDifferent;
    if (a.GetPOS(k, m) != b.GetPOS(0, m)) masks = false;
  }
  return masks ? kSameMorphemes : kSameLexicons;
}

void AppendCandidate(Eojul& to, Eojul& from) {
  to.BeginCandidate();
  to.AppendMorphemes(from);
  to.EndCandidate();
}

// The rebuild of passes 14 and 17: a prefix joined to what follows it, a
// suffix to what precedes it. Returns whether anything was joined.
bool RebuildAffixes(Eojul& e, int c, Eojul& scratch, bool useStopList) {
  bool changed = false;
  int n = e.GetCount(c);
  int m = 0;
  while (m < n) {
    std::string lex = Lexicon(e, c, m);
    uint32_t t = e.GetPOS(c, m);
    uint32_t u = MaskOrZero(e, c, m + 1);
    const char* next = Lexicon(e, c, m + 1);
    if (!Has(t, Pos::XP)) {
      bool suffixFollows = Has(u, Pos::XSN) && !Has(t, Pos::XSN) &&
                           !(useStopList && InStopList(next));
      if (suffixFollows && lex.size() != 2) {
        scratch.AddMorpheme((lex + next).c_str(), Pos::NNC);
        m += 1;
        changed = true;
      } else {
        // A base of one syllable is not joined to its suffix.
        scratch.AddMorpheme(lex.c_str(), t);
      }
      m += 1;
      continue;
    }
    if (Has(u, Pos::XP)) {
      scratch.AddMorpheme(lex.c_str(), t);
      m += 1;
      continue;
    }
    if (m + 2 >= n) {
      if (!useStopList && m + 1 >= n) {
        scratch.AddMorpheme(lex.c_str(), t);  // a last prefix stays as it is
      } else {
        scratch.AddMorpheme((lex + next).c_str(), Pos::NNC);
      }
    } else if (Has(e.GetPOS(c, m + 2), Pos::XSN) &&
               !(useStopList && InStopList(Lexicon(e, c, m + 2)))) {
      scratch.AddMorpheme(lex.c_str(), t);
      scratch.AddMorpheme((std::string(next) + Lexicon(e, c, m + 2)).c_str(),
                          Pos::NNC);
      m += 1;
    } else {
      scratch.AddMorpheme((lex + next).c_str(), Pos::NNC);
    }
    m += 2;
    changed = true;
  }
  return changed;
}

// The rebuild of pass 15: runs of two or more joinable pieces become NNC.
void RebuildRuns(Eojul& e, int c, Eojul& scratch) {
  std::string lex;
  int run = 0;
  int n = e.GetCount(c);
  for (int m = 0; m < n; ++m) {
    uint32_t t = e.GetPOS(c, m);
    const char* lexicon = Lexicon(e, c, m);
    if (!Joinable(t)) {
      scratch.AddMorpheme(lexicon, t);
      run = 0;
      continue;
    }
    lex += lexicon;
    run += 1;
    if (Joinable(MaskOrZero(e, c, m + 1))) continue;
    scratch.AddMorpheme(lex.c_str(), run < 2 ? t : Pos::NNC);
    lex.clear();
    run = 0;
  }
}

// The keep step into `kept`. `stopAtSame` ends the search at the first
// equal candidate. Returns whether `scratch` was added as a new candidate.
bool Keep(Eojul& e, int c, Eojul& scratch, Eojul& kept, bool stopAtSame) {
  double score = scratch.GetScore(0);
  int visible = e.GetListSize();
  for (int q = 0; q < visible; ++q) {
    if (q == c || e.GetScore(q) <= score) continue;
    if (Compare(e, q, scratch) != kDifferent) return false;  // dropped
  }
  int found = -1;
  bool same = false;
  for (int k = 0; k < kept.GetListSize(); ++k) {
    if (kept.GetCount(k) != scratch.GetCount(0)) continue;
    same = Compare(kept, k, scratch) == kSameMorphemes;
    found = k;
    if (same && stopAtSame) break;
  }
  if (same) {
    if (score > kept.GetScore(found)) kept.SetScoreAt(found, score);
    return false;
  }
  AppendCandidate(kept, scratch);
  return true;
}

// Runs a rebuild over every visible candidate and keeps the results in a
// fresh list that replaces the candidates of `e`.
template <class Rebuild>
void RebuildAll(Eojul& e, PassContext& context, bool stopAtSame,
                Rebuild rebuild) {
  Eojul kept(256);
  kept.SetText(e.GetString(), e.GetType());
  int visible = e.GetListSize();
  for (int c = 0; c < visible; ++c) {
    StartScratch(context.scratch, e);
    rebuild(c);
    context.scratch.SetCandidateScore(e.GetScore(c));
    context.scratch.EndCandidate();
    Keep(e, c, context.scratch, kept, stopAtSame);
  }
  int offset = e.GetOffset();
  e.Initialize(true);
  e.CopyFrom(kept);
  e.SetOffset(offset);
}

}  // namespace

void PassNumberUnit(Eojul& e, PassContext& context) {
  Eojul& scratch = context.scratch;
  int count = e.GetListSize();
  for (int c = 0; c < count; ++c) {
    StartScratch(scratch, e);
    bool joined = false;
    int n = e.GetCount(c);
    for (int m = 0; m < n;) {
      uint32_t t = e.GetPOS(c, m);
      uint32_t u = MaskOrZero(e, c, m + 1);
      if (Has(t, Pos::SN) && (u & Pos::NNB) == Pos::NNB) {
        std::string both = std::string(Lexicon(e, c, m)) + Lexicon(e, c, m + 1);
        scratch.AddMorpheme(both.c_str(), Pos::NNG);
        m += 2;
        joined = true;
      } else {
        scratch.AddMorpheme(Lexicon(e, c, m), t);
        m += 1;
      }
    }
    scratch.SetCandidateScore(e.GetScore(c) + 0.3);
    scratch.EndCandidate();
    if (joined) AppendCandidate(e, scratch);
  }
}

void PassCompoundPrefixSuffix(Eojul& e, PassContext& context) {
  RebuildAll(e, context, true, [&](int c) {
    RebuildAffixes(e, c, context.scratch, true);
  });
}

void PassCompoundRun(Eojul& e, PassContext& context) {
  RebuildAll(e, context, false,
             [&](int c) { RebuildRuns(e, c, context.scratch); });
}

void PassCompoundAffix(Eojul& e, PassContext& context) {
  if (!context.compoundTried) return;
  Eojul& scratch = context.scratch;
  int initial = e.GetListSize();
  if (context.option17 == 2) {
    int added = 0;
    for (int c = 0; c < initial; ++c) {
      StartScratch(scratch, e);
      bool changed = RebuildAffixes(e, c, scratch, false);
      scratch.SetCandidateScore(e.GetScore(c));
      scratch.EndCandidate();
      if (!changed) continue;
      double score = scratch.GetScore(0);
      bool found = false;
      for (int q = 0; q < initial + added; ++q) {
        if (Compare(e, q, scratch) != kSameMorphemes) continue;
        found = true;
        int stored = e.StoredCandidate(q);
        if (stored >= 0 && score > e.GetScore(q)) e.SetScoreAt(stored, score);
        break;
      }
      if (found) continue;
      AppendCandidate(e, scratch);
      added += 1;
      if (context.option0 > 0) context.addedCount += 1;
    }
    return;
  }
  if (context.option17 != 1) return;
  Eojul kept(256);
  kept.SetText(e.GetString(), e.GetType());
  for (int c = 0; c < initial; ++c) {
    StartScratch(scratch, e);
    bool changed = RebuildAffixes(e, c, scratch, false);
    scratch.SetCandidateScore(e.GetScore(c));
    scratch.EndCandidate();
    if (Keep(e, c, scratch, kept, true) && changed) {
      AppendCandidate(e, scratch);
      if (context.option0 > 0) context.addedCount += 1;
    }
  }
  int offset = e.GetOffset();
  e.Initialize(true);
  e.CopyFrom(kept);
  e.SetOffset(offset);
  if (context.option0 > 0) context.addedCount -= static_cast<signed char>(initial);
}

void PassCutAtUserNoun(Eojul& e) {
  int visible = e.GetListSize();
  for (int c = 0; c < visible; ++c) {
    int count = e.GetCount(c);
    for (int m = 0; m < count; ++m) {
      uint32_t pos = e.GetPOS(c, m);
      if (Has(pos, Pos::N_) && Has(pos, 0x8 | 0x2000)) {
        e.SelectTop(static_cast<unsigned char>(c + 1));
        return;
      }
    }
  }
}

}  // namespace Quorel
