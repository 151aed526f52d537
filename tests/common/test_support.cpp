#include "common/test_support.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "text/charset.h"

namespace Quorel {
namespace testsupport {

namespace {

std::string Convert(const std::string& in, const char* from, const char* to) {
  WideChar* wide = ToWide(in.c_str(), from);
  char* bytes = FromWide(wide, to);
  std::string out = bytes != nullptr ? bytes : "";
  FreeWide(wide);
  FreeBytes(bytes);
  return out;
}

}  // namespace

std::string Cp949(const std::string& utf8) {
  return Convert(utf8, "UTF-8", "CP949");
}

std::string Utf8(const std::string& cp949) {
  return Convert(cp949, "CP949", "UTF-8");
}

TempDir::TempDir() {
  std::string pattern =
      (std::filesystem::temp_directory_path() / "qrlsl_test_XXXXXX").string();
  if (mkdtemp(&pattern[0]) == nullptr) throw std::runtime_error("mkdtemp");
  path = pattern;
}

TempDir::~TempDir() {
  std::error_code ignored;
  std::filesystem::remove_all(path, ignored);
}

std::string TempDir::Write(const std::string& name,
                           const std::string& utf8) const {
  return WriteRaw(name, Cp949(utf8));
}

std::string TempDir::WriteRaw(const std::string& name,
                              const std::string& bytes) const {
  std::filesystem::path file = File(name);
  std::error_code ignored;
  std::filesystem::create_directories(file.parent_path(), ignored);
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out << bytes;
  return file.string();
}

std::string TempDir::Read(const std::string& name) const {
  return ReadFile(File(name));
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream all;
  all << in.rdbuf();
  return all.str();
}

bool TempDir::Exists(const std::string& name) const {
  return std::filesystem::exists(File(name));
}

std::string CorpusDirectory() {
  std::filesystem::path corpus =
      std::filesystem::path(QRLSL_SOURCE_DIR) / ".." / "shared" / "corpus";
  return std::filesystem::is_directory(corpus) ? corpus.string() : "";
}

namespace {

// Calls `take` with every line of every CoNLL-U file of the corpus.
template <class Take>
void ForEachCorpusLine(Take take) {
  std::string corpus = CorpusDirectory();
  if (corpus.empty()) return;
  for (const auto& entry :
       std::filesystem::recursive_directory_iterator(corpus)) {
    if (entry.path().extension() != ".conllu") continue;
    std::ifstream in(entry.path());
    std::string line;
    while (std::getline(in, line)) take(line);
  }
}

}  // namespace

std::vector<std::string> CorpusForms() {
  std::vector<std::string> forms;
  ForEachCorpusLine([&](const std::string& line) {
    if (line.empty() || line[0] == '#') return;
    size_t first = line.find('\t');
    if (first == std::string::npos) return;
    size_t second = line.find('\t', first + 1);
    forms.push_back(line.substr(first + 1, second == std::string::npos
                                               ? std::string::npos
                                               : second - first - 1));
  });
  return forms;
}

std::vector<std::string> CorpusSentences() {
  static const std::string mark = "# text = ";
  std::vector<std::string> sentences;
  ForEachCorpusLine([&](const std::string& line) {
    if (line.compare(0, mark.size(), mark) == 0) {
      sentences.push_back(line.substr(mark.size()));
    }
  });
  return sentences;
}

}  // namespace testsupport
}  // namespace Quorel
