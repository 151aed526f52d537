// SyllableTable data and its two-read lookup.
#include "text/syllable_table.h"

#include <cstring>

namespace Quorel {

const SyllableRec SyllableTable[] = {
#include "text/syllable_data.inc"
};
static_assert(sizeof(SyllableTable) / sizeof(SyllableTable[0]) == kSyllableCount,
              "the generated table must hold every record");
static_assert(sizeof(SyllableRec) == 64, "record layout is fixed");

namespace {

// Bands of rows: leads first..last share a first trail and a row length.
struct RowBand {
  int firstLead;
  int lastLead;
  int firstTrail;
  int recordsPerRow;
  int firstRecord;
};

constexpr RowBand kRowBands[] = {
    {0x81, 0xA0, 0x41, 190, 0},
    {0xA1, 0xAF, 0x41, 96, 6080},
    {0xB0, 0xC6, 0x41, 190, 7520},
    {0xC7, 0xC7, 0xA1, 94, 11890},
    {0xC8, 0xC8, 0xA1, 94, 11984},
};

struct RowIndex {
  SyllableRow rows[kSyllableRowCount];
};

constexpr RowIndex BuildRowIndex() {
  RowIndex index{};
  for (const RowBand& band : kRowBands) {
    for (int lead = band.firstLead; lead <= band.lastLead; ++lead) {
      SyllableRow& row = index.rows[lead % 129];
      row.firstRecord = static_cast<int16_t>(
          band.firstRecord + band.recordsPerRow * (lead - band.firstLead));
      row.firstTrail = static_cast<unsigned char>(band.firstTrail);
    }
  }
  return index;
}

constexpr RowIndex kRowIndex = BuildRowIndex();

}  // namespace

const SyllableRow (&SyllableRowIndex)[kSyllableRowCount] = kRowIndex.rows;

// Literal on purpose: a lead below 0x81 with a small trail reads row `lead`
// (record `trail` from row 72 up), and a lead from 0xC9 reads row lead - 129.
const SyllableRec* SyllableAt(const char* bytes) {
  const unsigned lead = static_cast<unsigned char>(bytes[0]);
  const unsigned trail = static_cast<unsigned char>(bytes[1]);
  if (lead < 129 && trail > 200) return nullptr;
  const SyllableRow& row = kRowIndex.rows[lead % 129];
  const short n = static_cast<short>(row.firstRecord +
                                     ((trail - row.firstTrail) & 255));
  if (n < 0 || n >= kSyllableCount) return nullptr;
  return &SyllableTable[n];
}

const SyllableRec* LastSyllable(const char* text) {
  if (text == nullptr) return nullptr;
  const size_t length = std::strlen(text);
  if (length < 2) return nullptr;
  return SyllableAt(text + length - 2);
}

const SyllableRec* SyllableByNumber(short n) {
  if (n < 0 || n >= kSyllableCount) return nullptr;
  return &SyllableTable[n];
}

}  // namespace Quorel

