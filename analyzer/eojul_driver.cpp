// AnalyzeEojul: the per-token cascade. Overlong tokens, pre-analysed
// eojuls, pure symbols and cut double-byte text are settled here; every
// other token ends with its surface as an unregistered noun, the cascade's
// last resort, until the dictionary routes join it.
#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

// Reads the pre-analysis record of `surface` into `e`. False when the
// surface has no valid record.
bool ReadPreAnalysis(const Dictionary& dictionary, const char* surface,
                     Eojul& e, bool& compoundTried) {
  TrieNode node;
  for (const char* p = surface; *p != 0; ++p) {
    if (!dictionary.preAnalTrie.Walk(static_cast<unsigned char>(*p), node)) {
      return false;
    }
  }
  if (node.value == nullptr) return false;
  int32_t at = QR_DaTrie::GetValue(node);
  const std::vector<unsigned char>& buffer = dictionary.preAnalBuffer;
  size_t size = buffer.size();
  if (at <= 0 || static_cast<size_t>(at) >= size) return false;

  size_t p = static_cast<size_t>(at);
  int n = buffer[p++];
  for (int i = 0; i < n && p < size; ++i) {
    int m = buffer[p++];
    if (m == 0) continue;
    e.BeginCandidate();
    for (int k = 0; k < m && p < size; ++k) {
      const char* lexicon = reinterpret_cast<const char*>(&buffer[p]);
      while (p < size && buffer[p] != 0) ++p;
      if (p + 1 >= size) break;  // a record cut short ends the read
      ++p;
      signed char row = static_cast<signed char>(buffer[p++]);
      uint32_t pos = row >= 0 && row < kPosTableSize ? PosTable[row].mask : 0;
      e.AddMorpheme(lexicon, pos);
      if (!compoundTried && (pos & (Pos::XP | Pos::XSN)) != 0) {
        compoundTried = true;
      }
    }
    e.SetCandidateScore(static_cast<double>(n - i));
    e.EndCandidate();
  }
  return true;
}

void AddSurfaceCandidate(Eojul& e, uint32_t pos) {
  e.BeginCandidate();
  e.AddSurfaceMorpheme(pos);
  e.EndCandidate();
}

}  // namespace

int MAnalyzer::AnalyzeEojul(Eojul& e) {
  analysisResult = 0;
  foundMask = 0;
  levelIndex = 0;
  compoundTried = false;
  restarted = false;
  if (contextCode != 1 && contextCode != 5) contextCode = 0;

  unsigned type = e.GetType();
  bool sub = (type & EojulType::kSubToken) != 0;
  if ((type & EojulType::kTooLong) != 0) {
    AddSurfaceCandidate(e, Pos::NNR);
    return 1;
  }

  Dictionary* dictionary = Knowledge();
  if (!sub && dictionary != nullptr && !rawOutput &&
      ReadPreAnalysis(*dictionary, e.GetString(), e, compoundTried)) {
    analysisResult = 1;
    return 1;
  }

  if (!sub) {
    if (type == EojulType::kSymbol || type == EojulType::kInnerSymbol) {
      AddSurfaceCandidate(e, Pos::SC);
      return 1;
    }
    if ((type & EojulType::kHalfChar) != 0 &&
        (type & (EojulType::kDigit | EojulType::kLatin |
                 EojulType::kInnerSymbol)) == 0) {
      AddSurfaceCandidate(e, Pos::NNR);
      return 0;
    }
  }

  if (!sub) AddSurfaceCandidate(e, Pos::NNR);
  return analysisResult;
}

}  // namespace Quorel
