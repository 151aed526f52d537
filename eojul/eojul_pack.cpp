// Packing an analysed Eojul into one flat record and back. The record is
// four counts (text, morpheme, candidate and score positions), then the used
// scores, morphemes, candidates and text, each as stored; the readers never
// look past the used parts, so those are all a record needs.
#include <cstring>

#include "eojul/eojul.h"

namespace Quorel {

namespace {

constexpr uint32_t kHeaderBytes = 4 * sizeof(uint32_t);

struct PackedCounts {
  uint32_t textUsed;
  uint32_t morphemeUsed;
  uint32_t candidatePos;
  uint32_t scorePos;

  // Entries of each array in the record.
  uint32_t Scores() const { return scorePos + 1; }
  uint32_t Candidates() const { return candidatePos + 2; }
  uint32_t Bytes() const {
    return kHeaderBytes + Scores() * sizeof(double) +
           (morphemeUsed + Candidates()) * sizeof(uint32_t) + textUsed;
  }
};

PackedCounts CountsOf(const unsigned char* record) {
  PackedCounts counts;
  std::memcpy(&counts, record, kHeaderBytes);
  return counts;
}

uint32_t TextAt(const PackedCounts& counts) {
  return counts.Bytes() - counts.textUsed;
}

}  // namespace

uint32_t Eojul::PackedSize() const {
  // Only what fits the inline areas, so that every Eojul can take it back.
  if (sorted || offsetCount != 0 || textUsed == 0 ||
      textUsed > kInlineCapacity || morphemeUsed > kInlineCapacity / 8 ||
      candidatePos + 2 > kInlineCapacity / 12 ||
      scorePos + 1 > kInlineCapacity / 12) {
    return 0;
  }
  const PackedCounts counts{textUsed, morphemeUsed, candidatePos, scorePos};
  return counts.Bytes();
}

void Eojul::Pack(unsigned char* out) const {
  const PackedCounts counts{textUsed, morphemeUsed, candidatePos, scorePos};
  unsigned char* at = out;
  std::memcpy(at, &counts, kHeaderBytes);
  at += kHeaderBytes;
  std::memcpy(at, scores, counts.Scores() * sizeof(double));
  at += counts.Scores() * sizeof(double);
  std::memcpy(at, morphemes, morphemeUsed * sizeof(uint32_t));
  at += morphemeUsed * sizeof(uint32_t);
  std::memcpy(at, candidates, counts.Candidates() * sizeof(uint32_t));
  at += counts.Candidates() * sizeof(uint32_t);
  std::memcpy(at, text, textUsed);
}

void Eojul::Unpack(const unsigned char* in) {
  const PackedCounts counts = CountsOf(in);
  const unsigned char* at = in + kHeaderBytes;
  std::memcpy(scores, at, counts.Scores() * sizeof(double));
  at += counts.Scores() * sizeof(double);
  std::memcpy(morphemes, at, counts.morphemeUsed * sizeof(uint32_t));
  at += counts.morphemeUsed * sizeof(uint32_t);
  std::memcpy(candidates, at, counts.Candidates() * sizeof(uint32_t));
  at += counts.Candidates() * sizeof(uint32_t);
  std::memcpy(text, at, counts.textUsed);
  textUsed = counts.textUsed;
  morphemeUsed = counts.morphemeUsed;
  candidatePos = counts.candidatePos;
  scorePos = counts.scorePos;
}

const char* Eojul::PackedSurface(const unsigned char* record) {
  return reinterpret_cast<const char*>(record + TextAt(CountsOf(record)));
}

}  // namespace Quorel
