// Range-table lookup and the generated mapping tables.
#include "text/charset_tables.h"

namespace Quorel {
namespace charset {

int32_t MapCode(const CodeMap& map, uint32_t key) {
  // The last run whose first key is at or below `key`.
  int32_t low = 0;
  int32_t high = map.count;
  while (low < high) {
    int32_t middle = (low + high) / 2;
    if (map.runs[middle].first <= key) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  if (low == 0) return -1;
  const CodeRun& run = map.runs[low - 1];
  if (key > run.last) return -1;
  uint32_t offset = key - run.first;
  if (!run.listed) return static_cast<int32_t>(run.value + offset);
  uint16_t value = map.list[run.value + offset];
  return value == 0xFFFF ? -1 : value;
}

#include "text/charset_tables.inc"

}  // namespace charset
}  // namespace Quorel
