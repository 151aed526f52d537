// SurfaceCut: the surface of an eojul cut with a NUL at a byte offset while
// the object lives, for a noun analysis that divides the surface up to a
// stem. The byte is put back on destruction.
#ifndef QRLSL_ANALYZER_SURFACE_CUT_H_
#define QRLSL_ANALYZER_SURFACE_CUT_H_

#include <cstdint>

#include "eojul/eojul.h"

namespace Quorel {

class SurfaceCut {
 public:
  SurfaceCut(Eojul& e, int32_t length) : eojul(e), at(length) {
    char* text = const_cast<char*>(eojul.GetString());
    saved = text[at];
    text[at] = 0;
  }
  ~SurfaceCut() { const_cast<char*>(eojul.GetString())[at] = saved; }
  SurfaceCut(const SurfaceCut&) = delete;
  SurfaceCut& operator=(const SurfaceCut&) = delete;

 private:
  Eojul& eojul;
  int32_t at;
  char saved;
};

}  // namespace Quorel

#endif  // QRLSL_ANALYZER_SURFACE_CUT_H_
