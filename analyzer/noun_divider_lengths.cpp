// The length-pattern table of compound-noun division: the code of a
// division (piece lengths in syllables, the last piece in the units) and its
// base value. Sorted by code for binary search.
#include "analyzer/noun_divider.h"

namespace Quorel {

constexpr LengthPattern LengthPatterns[kLengthPatternCount] = {
    {3, 1.3}, {12, 3.1}, {13, 2.0}, {14, 2.0}, {15, 1.0}, {16, 1.0},
    {17, 1.0}, {21, 2.0}, {22, 5.0}, {23, 5.0}, {24, 3.0}, {25, 3.0},
    {26, 1.0}, {27, 1.0}, {31, 3.0}, {32, 5.0}, {33, 4.0}, {34, 3.0},
    {35, 1.0}, {36, 1.0}, {41, 3.0}, {42, 3.0}, {43, 3.0}, {45, 1.0},
    {51, 2.0}, {52, 3.0}, {53, 2.0}, {54, 1.0}, {55, 1.0}, {61, 2.0},
    {62, 2.0}, {63, 1.0}, {71, 1.0}, {72, 1.0}, {111, -10.0}, {113, -15.0},
    {121, 1.0}, {122, 0.0}, {124, -3.0}, {211, 1.0}, {212, 1.0}, {221, 1.0},
    {222, 5.0}, {223, 5.0}, {224, 3.0}, {225, 1.0}, {231, 0.01}, {232, 4.0},
    {233, 3.0}, {234, 1.0}, {235, 1.0}, {242, 2.0}, {243, 1.0}, {244, 1.0},
    {252, 1.0}, {253, 1.0}, {322, 5.0}, {323, 4.0}, {324, 2.0}, {325, 1.0},
    {332, 3.0}, {333, 3.0}, {334, 1.0}, {342, 1.0}, {343, 1.0}, {352, 1.0},
    {422, 3.0}, {423, 1.0}, {424, 1.0}, {432, 1.0}, {433, 1.0}, {442, 1.0},
    {522, 3.0}, {523, 1.0}, {532, 1.0}, {1211, -9.0}, {2122, 1.0},
    {2222, 5.0}, {2223, 5.0}, {2232, 4.0}, {2233, 2.0}, {2322, 4.0},
    {2323, 2.0}, {2332, 2.0}, {3222, 5.0}, {3223, 4.0}, {3232, 2.0},
    {3322, 3.0}, {22222, 5.0}};

namespace {

// Codes below kDirectCodes find their row through this index (row + 1, 0 for
// none); the few longer codes by binary search over the rest of the table.
constexpr int32_t kDirectCodes = 1000;

struct DirectIndex {
  unsigned char row[kDirectCodes];
  int firstLong;  // first row whose code is kDirectCodes or more
  constexpr DirectIndex() : row(), firstLong(kLengthPatternCount) {
    for (int i = kLengthPatternCount - 1; i >= 0; --i) {
      const int32_t code = LengthPatterns[i].code;
      if (code < kDirectCodes) {
        row[code] = static_cast<unsigned char>(i + 1);
      } else {
        firstLong = i;
      }
    }
  }
};
constexpr DirectIndex kDirect;

}  // namespace

double LengthPatternValue(int32_t code) {
  if (code >= 0 && code < kDirectCodes) {
    const int row = kDirect.row[code];
    return row != 0 ? LengthPatterns[row - 1].value : 0.0;
  }
  int lo = kDirect.firstLong;
  int hi = kLengthPatternCount - 1;
  while (lo <= hi) {
    const int mid = (lo + hi) / 2;
    if (LengthPatterns[mid].code == code) return LengthPatterns[mid].value;
    if (LengthPatterns[mid].code < code) {
      lo = mid + 1;
    } else {
      hi = mid - 1;
    }
  }
  return 0.0;
}

}  // namespace Quorel
