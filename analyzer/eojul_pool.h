// EojulPool: the right-hand parts of an eojul whose left part still waits
// for the noun analysis, kept for one token. Four tables of 20 entries; an
// insertion into a full table is dropped. The fill counts live in MAnalyzer
// as its status fields (pendingNounEnding, pendingNounSuffix,
// pendingNounOther, auxTailCount).
#ifndef QRLSL_ANALYZER_EOJUL_POOL_H_
#define QRLSL_ANALYZER_EOJUL_POOL_H_

#include <cstdint>

#include "eojul/eojul.h"
#include "trie/lookup_records.h"

namespace Quorel {

// A stem that ended before a josa: its length in bytes and the josa reading.
struct StemEnd {
  int32_t length = 0;
  jeInfo reading;
};

struct EojulPool {
  static constexpr int32_t kCapacity = 20;

  // Noun part + copula 이 and the endings.
  Eojul copulaTails[kCapacity];
  // Noun part + predicative suffix and the endings.
  Eojul suffixTails[kCapacity];
  // Part left of an auxiliary predicate; the candidate holds the VX and the
  // endings. Re-analysed as a sub-token.
  Eojul auxTails[kCapacity];
  StemEnd stemEnds[kCapacity];
};

}  // namespace Quorel

#endif  // QRLSL_ANALYZER_EOJUL_POOL_H_
