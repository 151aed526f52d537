// Option 20: an unknown word keeps no josa, and is divided when it is plainly
// made of known words. The cascade leaves a word that no dictionary word
// explains as an NNR piece that swallows the josa behind it (쿠팡에서 whole,
// 출판 + 분야에/NNR + 도) or is cut into pieces that no reader would see in
// it (크/NNR + 리스 + 탈 + 의). With the option, each candidate made of nouns
// and at most one josa, with an unknown piece among them, is read again
// from its first unknown piece: the josa at its end is given up, and the
// stem becomes a known noun, a known noun and a noun suffix (유권자 + 들),
// two known nouns (백합 + 물), or one unknown word. A search engine then
// indexes the stem, and a tagger sees the josa.
#include <cstring>

#include "analyzer/josa_reading.h"
#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"
#include "text/syllable_table.h"

namespace Quorel {

namespace {

constexpr int32_t kSyllable = 2;
// A stem standing alone, and the head of a divided stem, keep two
// syllables at least.
constexpr int32_t kMinStem = 4;
// The keys of a josa chain (에서 + 도 + 는).
constexpr int kMaxChain = 3;

bool AllSyllables(const char* text, int32_t length) {
  if (length <= 0 || length % kSyllable != 0) return false;
  for (int32_t at = 0; at < length; at += kSyllable) {
    if (SyllableAt(text + at) == nullptr) return false;
  }
  return true;
}

// The mask of a common or proper noun of the dictionary, or 0.
uint32_t KnownNoun(const Dictionary& dic, const char* text, int32_t length) {
  SearchInfo si;
  if (length <= 0 || dic.SearchMain(text, si, length) != 1) return 0;
  if ((si.info.bits & Pos::NNG) == Pos::NNG) return Pos::NNG;
  if ((si.info.bits & Pos::NNP) == Pos::NNP) return Pos::NNP;
  return 0;
}

// True when `text` is a run of josa keys, the first of which may follow
// the syllable before it; the longest key first at each step.
bool JosaChain(const Dictionary& dic, const char* text, int32_t length,
               const SyllableRec& before, int depth = 0) {
  if (depth == kMaxChain) return false;
  for (int32_t key = length; key >= kSyllable; key -= kSyllable) {
    const jeInfo josa = JosaReading(dic, text, key);
    if (josa.text == nullptr) continue;
    if (depth == 0 && Dictionary::CheckAttach(before, josa) == 0) continue;
    if (key == length ||
        JosaChain(dic, text + key, length - key, before, depth + 1)) {
      return true;
    }
  }
  return false;
}

bool NounLike(uint32_t mask) {
  return (mask & Pos::N_) != 0 || (mask & Pos::XSN) == Pos::XSN ||
         (mask & Pos::XP) == Pos::XP;
}

}  // namespace

int MAnalyzer::DivideUnknownStem(const char* stem, int32_t length,
                                 UnknownPiece pieces[2]) const {
  const Dictionary& dic = *Knowledge();
  const uint32_t whole = KnownNoun(dic, stem, length);
  if (whole != 0) {
    pieces[0] = UnknownPiece{0, length, whole};
    return 1;
  }
  // A known noun and a noun suffix of one syllable.
  const int32_t head = length - kSyllable;
  if (head >= kMinStem && dic.IsXSN(stem + head, kSyllable) != 0) {
    const uint32_t mask = KnownNoun(dic, stem, head);
    if (mask != 0) {
      pieces[0] = UnknownPiece{0, head, mask};
      pieces[1] = UnknownPiece{head, kSyllable, Pos::XSN};
      return 2;
    }
  }
  // Two known nouns, the longest head first.
  for (int32_t cut = length - kSyllable; cut >= kMinStem; cut -= kSyllable) {
    const uint32_t first = KnownNoun(dic, stem, cut);
    if (first == 0) continue;
    const uint32_t second = KnownNoun(dic, stem + cut, length - cut);
    if (second == 0) continue;
    pieces[0] = UnknownPiece{0, cut, first};
    pieces[1] = UnknownPiece{cut, length - cut, second};
    return 2;
  }
  pieces[0] = UnknownPiece{0, length, Pos::NNR};
  return 1;
}

int MAnalyzer::ReadUnknownAgain(Eojul& e, int candidate, UnknownPiece* out) const {
  const Dictionary& dic = *Knowledge();
  const char* surface = e.GetString();
  const int32_t length = static_cast<int32_t>(std::strlen(surface));
  const int count = e.GetCount(candidate);
  if (count < 1 || count > kUnknownPieces - 2) return 0;
  int32_t at = 0;
  int firstUnknown = -1;
  int32_t restStart = 0;
  for (int m = 0; m < count; ++m) {
    const char* lexicon = e.GetLexicon(candidate, m);
    const uint32_t mask = e.GetPOS(candidate, m);
    const int32_t bytes = static_cast<int32_t>(std::strlen(lexicon));
    const bool josa = (mask & Pos::J_) != 0;
    if (bytes == 0 || at + bytes > length ||
        std::memcmp(lexicon, surface + at, bytes) != 0 ||
        !(NounLike(mask) || (josa && m == count - 1 && m > 0))) {
      return 0;
    }
    if (mask == Pos::NNR && firstUnknown < 0) {
      firstUnknown = m;
      restStart = at;
    }
    if (firstUnknown < 0) out[m] = UnknownPiece{at, bytes, mask};
    at += bytes;
  }
  if (at != length || firstUnknown < 0) return 0;

  // The josa at the end, the longest first; a stem alone keeps two
  // syllables, and behind known pieces the unknown piece may be all josa.
  int32_t stemEnd = length;
  const int32_t minStem = firstUnknown > 0 ? 0 : kMinStem;
  for (int32_t cut = restStart + minStem; cut < length; cut += kSyllable) {
    if (JosaChain(dic, surface + cut, length - cut,
                  *SyllableAt(surface + cut - kSyllable))) {
      stemEnd = cut;
      break;
    }
  }
  int n = firstUnknown;
  UnknownPiece stem[2];
  const int stemPieces = stemEnd == restStart ? 0 :
      DivideUnknownStem(surface + restStart, stemEnd - restStart, stem);
  for (int p = 0; p < stemPieces; ++p) {
    out[n++] = UnknownPiece{restStart + stem[p].start, stem[p].length, stem[p].mask};
  }
  if (stemEnd < length) out[n++] = UnknownPiece{stemEnd, length - stemEnd, Pos::J_};
  return n;
}

void MAnalyzer::GiveUpUnknownEnding(Eojul& e) {
  const int candidates = e.GetListSize();
  if (Knowledge() == nullptr || candidates < 1 || candidates > kUnknownCandidates) {
    return;
  }
  // Most eojuls hold no unknown piece: their first candidate tells at once.
  bool unknown = false;
  for (int m = 0; m < e.GetCount(0) && !unknown; ++m) {
    unknown = e.GetPOS(0, m) == Pos::NNR;
  }
  if (!unknown) return;
  const char* surface = e.GetString();
  const int32_t length = static_cast<int32_t>(std::strlen(surface));
  if (!AllSyllables(surface, length)) return;
  // Every candidate must be of the shape, or none is touched.
  for (int c = 0; c < candidates; ++c) {
    unknownCounts[c] = ReadUnknownAgain(e, c, unknownPieces[c]);
    if (unknownCounts[c] == 0) return;
    unknownScores[c] = e.GetScore(c);
  }
  const unsigned type = e.GetType();
  const int offset = e.GetOffset();
  unknownText.Assign(surface, length);
  const char* text = unknownText.CStr();
  e.Initialize(false);
  e.SetText(text, static_cast<uint32_t>(length), type);
  e.SetOffset(offset);
  for (int c = 0; c < candidates; ++c) {
    const UnknownPiece* pieces = unknownPieces[c];
    const int n = unknownCounts[c];
    bool repeated = false;
    for (int k = 0; k < c && !repeated; ++k) {
      repeated = unknownCounts[k] == n &&
                 std::memcmp(unknownPieces[k], pieces, n * sizeof *pieces) == 0;
    }
    if (repeated) continue;
    e.BeginCandidate();
    for (int p = 0; p < n; ++p) {
      e.AddMorpheme(text + pieces[p].start, static_cast<uint32_t>(pieces[p].length),
                    pieces[p].mask);
    }
    e.SetCandidateScore(unknownScores[c]);
    e.EndCandidate();
  }
}

}  // namespace Quorel
