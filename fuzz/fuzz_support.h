// Support shared by the fuzz targets: the knowledge they run on, scratch
// knowledge directories, CP949 texts, and the reads and runs that make a
// loaded knowledge or an analysed text show any fault to the sanitizers.
#ifndef QRLSL_FUZZ_FUZZ_SUPPORT_H_
#define QRLSL_FUZZ_FUZZ_SUPPORT_H_

#include <cstddef>
#include <cstdint>
#include <string>

#include "knowledge/dictionary.h"
#include "qrlsl/qrlsl.h"

namespace Quorel {
namespace fuzz {

// The knowledge directory (CP949 sources and qrl.klg) the fuzz build makes
// from knowledge-src, or $QRLSL_FUZZ_KNOWLEDGE when set.
const std::string& KnowledgeDir();
// Loading messages and printed results go nowhere, unless
// $QRLSL_FUZZ_VERBOSE is set; sanitizer reports still reach standard error.
void Quiet();
// The knowledge of KnowledgeDir(), read once from its compiled file and
// shared by every run (read-only, as hosts share it).
Dictionary& SharedKnowledge();
// Quiet(), then SharedKnowledge() loaded; 0, for LLVMFuzzerInitialize.
int StartOnSharedKnowledge();

// UTF-8 to CP949 through the library's converter.
std::string Cp949(const char* utf8);
// The whole file; "" when it can't be read.
std::string ReadFile(const std::string& path);

// A directory under the temporary directory, removed at destruction.
class ScratchDir {
 public:
  ScratchDir();
  ~ScratchDir();
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  const std::string& Path() const { return path; }
  // Writes the bytes to Path()/name (subdirectories made as needed).
  void Write(const std::string& name, const std::string& bytes) const;
  void Write(const std::string& name, const uint8_t* data, size_t size) const;

 private:
  std::string path;
};

// Reads every field of every candidate, as a host would.
void ReadEojul(QR_Eojul& e);
// Reads every eojul of the analyzer's sentence.
void ReadSentence(QR_Analyzer& a);
// Analyses the fixed sample texts with the knowledge, tagging in both modes.
void AnalyseSamples(QR_Knowledge& k);
// What a host does with a knowledge that loaded: the lookups on sample keys,
// user nouns and pre-analysis added (in `dir`), then AnalyseSamples.
void Exercise(Dictionary& k, const ScratchDir& dir);
// Stops the run (a finding) when `ok` is false.
void Require(bool ok, const char* what);

}  // namespace fuzz
}  // namespace Quorel

#endif  // QRLSL_FUZZ_FUZZ_SUPPORT_H_
