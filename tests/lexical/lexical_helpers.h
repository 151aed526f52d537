// Test helpers for the stop-word and synonym suites: CP949 text from UTF-8
// literals, and a scratch directory for the files a test writes.
#ifndef QRLSL_TESTS_LEXICAL_LEXICAL_HELPERS_H_
#define QRLSL_TESTS_LEXICAL_LEXICAL_HELPERS_H_

#include <string>

#include "common/test_support.h"
#include "qrlsl/qr_synonym.h"

namespace lexical_test {

// The CP949 bytes of a UTF-8 text.
inline std::string K(const std::string& utf8) {
  return Quorel::testsupport::Cp949(utf8);
}

// One search answer in one line: "found:count", then per group
// "|head/size" and each word with its "<" and ">" flags: "1:1|a/2 a00 b10".
std::string Render(Quorel::QR_SynonymContainer& container,
                   const std::string& word);

// The shared scratch directory, whose Write takes the bytes as they are.
class ScratchDir : public Quorel::testsupport::TempDir {
 public:
  std::string Write(const std::string& name, const std::string& bytes) const {
    return WriteRaw(name, bytes);
  }
};

}  // namespace lexical_test

#endif  // QRLSL_TESTS_LEXICAL_LEXICAL_HELPERS_H_
