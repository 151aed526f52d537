// Support shared by the test suites: CP949 text from UTF-8 literals, and a
// scratch directory for the files a test writes. Linked into every suite.
#ifndef QRLSL_TESTS_COMMON_TEST_SUPPORT_H_
#define QRLSL_TESTS_COMMON_TEST_SUPPORT_H_

#include <string>
#include <vector>

namespace Quorel {
namespace testsupport {

// UTF-8 to CP949 and back through the library's converter (whose tables
// the charset suite checks against glibc's iconv); a character CP949 lacks
// becomes a blank.
std::string Cp949(const std::string& utf8);
std::string Utf8(const std::string& cp949);

// A fresh directory under the system's temporary directory, removed with
// everything in it at destruction.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::string& Path() const { return path; }
  // Path() + "/" + name.
  std::string File(const std::string& name) const { return path + "/" + name; }
  // Writes the CP949 form of the UTF-8 content; returns the file's path.
  std::string Write(const std::string& name, const std::string& utf8) const;
  // Writes the bytes as they are (making subdirectories of `name`);
  // returns the file's path.
  std::string WriteRaw(const std::string& name, const std::string& bytes) const;
  // The whole content of the file; "" when it can't be read.
  std::string Read(const std::string& name) const;
  bool Exists(const std::string& name) const;

 private:
  std::string path;
};

// The whole content of a file; "" when it can't be read.
std::string ReadFile(const std::string& path);

// The annotated corpus beside the repository ("../shared/corpus"), read at
// run time only; "" when it is absent (tests then skip).
std::string CorpusDirectory();
// The FORM column of every token line of its CoNLL-U files, in file order.
std::vector<std::string> CorpusForms();
// The "# text = " sentences of its CoNLL-U files, in file order.
std::vector<std::string> CorpusSentences();

}  // namespace testsupport
}  // namespace Quorel

#endif  // QRLSL_TESTS_COMMON_TEST_SUPPORT_H_
