// The josa reading of a whole key, shared by the routes that ask whether a
// tail of a word is a josa.
#ifndef QRLSL_ANALYZER_JOSA_READING_H_
#define QRLSL_ANALYZER_JOSA_READING_H_

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

// The josa reading of the whole key (len bytes), or a blank reading when the
// key is no josa key or its reading is no josa.
inline jeInfo JosaReading(const Dictionary& d, const char* key, int32_t len) {
  jeInfo reading;
  SearchJEInfo found;
  if (len > 0 && d.SearchJE(key, found, len) == len) {
    d.GetJEInfo(reading, found, 0);
  }
  if (reading.text != nullptr && (reading.bits & Pos::J_) == 0) {
    reading = jeInfo();
  }
  return reading;
}

}  // namespace Quorel

#endif  // QRLSL_ANALYZER_JOSA_READING_H_
