// Test support for the knowledge suites: CP949 conversion of UTF-8 literals,
// a scratch directory, and the small knowledge directory the suites share.
#ifndef QRLSL_TESTS_KNOWLEDGE_KNOWLEDGE_HELPERS_H_
#define QRLSL_TESTS_KNOWLEDGE_KNOWLEDGE_HELPERS_H_

#include <string>

namespace Quorel {
namespace testing_knowledge {

// UTF-8 to CP949 and back, through glibc's iconv.
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
  std::string File(const std::string& name) const { return path + "/" + name; }
  // Writes name with the CP949 form of the UTF-8 content.
  void Write(const std::string& name, const std::string& utf8) const;
  // Writes bytes as they are.
  void WriteRaw(const std::string& name, const std::string& bytes) const;
  std::string Read(const std::string& name) const;

 private:
  std::string path;
};

// Writes the small source knowledge directory the suites use.
void WriteSmallKnowledge(const TempDir& dir);

}  // namespace testing_knowledge
}  // namespace Quorel

#endif  // QRLSL_TESTS_KNOWLEDGE_KNOWLEDGE_HELPERS_H_
