// Option 20: an unknown word keeps no josa. The cascade leaves an eojul that
// no dictionary word explains as one NNR over its whole surface, josa and
// all (쿠팡에서); with the option the josa at its end is given up, so that a
// search engine indexes the stem and a tagger sees the josa.
#include <cstring>

#include "analyzer/josa_reading.h"
#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"
#include "text/syllable_table.h"

namespace Quorel {

namespace {

constexpr int32_t kSyllable = 2;
// The stem keeps this many bytes at least: two syllables.
constexpr int32_t kMinStem = 4;

bool AllSyllables(const char* text, int32_t length) {
  if (length % kSyllable != 0) return false;
  for (int32_t at = 0; at < length; at += kSyllable) {
    if (SyllableAt(text + at) == nullptr) return false;
  }
  return true;
}

}  // namespace

void MAnalyzer::GiveUpUnknownEnding(Eojul& e) {
  const Dictionary* dic = Knowledge();
  if (dic == nullptr || e.GetListSize() != 1 || e.GetCount(0) != 1 ||
      e.GetPOS(0, 0) != Pos::NNR) {
    return;
  }
  const char* surface = e.GetString();
  const int32_t length = static_cast<int32_t>(std::strlen(surface));
  if (length < kMinStem + kSyllable ||
      std::strcmp(e.GetLexicon(0, 0), surface) != 0 ||
      !AllSyllables(surface, length)) {
    return;
  }
  // The longest josa first: the stem grows from its shortest.
  for (int32_t cut = kMinStem; cut < length; cut += kSyllable) {
    const jeInfo josa = JosaReading(*dic, surface + cut, length - cut);
    if (josa.text == nullptr ||
        Dictionary::CheckAttach(*SyllableAt(surface + cut - kSyllable), josa) == 0) {
      continue;
    }
    const double score = e.GetScore(0);
    const unsigned type = e.GetType();
    const int offset = e.GetOffset();
    unknownText.Assign(surface, length);
    e.Initialize(false);
    e.SetText(unknownText.CStr(), static_cast<uint32_t>(length), type);
    e.SetOffset(offset);
    e.BeginCandidate();
    e.AddMorpheme(unknownText.CStr(), static_cast<uint32_t>(cut), Pos::NNR);
    e.AddMorpheme(unknownText.CStr() + cut, static_cast<uint32_t>(length - cut),
                  Pos::J_);
    e.SetCandidateScore(score);
    e.EndCandidate();
    return;
  }
}

}  // namespace Quorel
