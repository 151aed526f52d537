// SyllableTable data and the row indexes of its two-read lookup.
#include "text/syllable_table.h"

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

namespace {

constexpr SyllableLeadRows BuildLeadRows() {
  SyllableLeadRows byLead{};
  for (int lead = 0; lead < 256; ++lead) byLead.rows[lead] = kRowIndex.rows[lead % 129];
  return byLead;
}

}  // namespace

const SyllableLeadRows SyllableRowsByLead = BuildLeadRows();

}  // namespace Quorel
