// Test helpers for the stop-word and synonym suites: CP949 text from UTF-8
// literals, and a scratch directory for the files a test writes.
#ifndef QRLSL_TESTS_LEXICAL_LEXICAL_HELPERS_H_
#define QRLSL_TESTS_LEXICAL_LEXICAL_HELPERS_H_

#include <string>

#include "qrlsl/qr_synonym.h"

namespace lexical_test {

// The CP949 bytes of a UTF-8 text, converted by iconv; fails the test on a
// conversion error.
std::string K(const std::string& utf8);

// One search answer in one line: "found:count", then per group
// "|head/size" and each word with its "<" and ">" flags: "1:1|a/2 a00 b10".
std::string Render(Quorel::QR_SynonymContainer& container,
                   const std::string& word);

// A fresh directory under the system's temporary directory, removed with
// everything in it when the object goes.
class ScratchDir {
 public:
  ScratchDir();
  ~ScratchDir();
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  const std::string& Path() const { return path; }
  // Path() + "/" + name.
  std::string File(const std::string& name) const;
  // Writes `bytes` to the file `name` and returns its full path.
  std::string Write(const std::string& name, const std::string& bytes) const;
  // The whole content of the file `name`; "" when it can't be read.
  std::string Read(const std::string& name) const;
  bool Exists(const std::string& name) const;

 private:
  std::string path;
};

}  // namespace lexical_test

#endif  // QRLSL_TESTS_LEXICAL_LEXICAL_HELPERS_H_
