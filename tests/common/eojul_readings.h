// Everything a reader can see of an eojul, as one text, so that two eojuls
// that must read alike compare as strings.
#ifndef QRLSL_TESTS_COMMON_EOJUL_READINGS_H_
#define QRLSL_TESTS_COMMON_EOJUL_READINGS_H_

#include <string>

#include "eojul/eojul.h"

namespace Quorel {
namespace testsupport {

// The surface, type, offset, view size and best candidate; each candidate
// (one past the last too) with its score, and each morpheme up to one past
// its count with lexicon, POS, index flag and offsets; then both printed
// forms.
std::string EojulReadings(Eojul& e);

}  // namespace testsupport
}  // namespace Quorel

#endif  // QRLSL_TESTS_COMMON_EOJUL_READINGS_H_
