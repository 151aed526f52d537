#include "lexical/lexical_helpers.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <vector>

#include "lexical/synonym.h"

namespace lexical_test {

std::string K(const std::string& utf8) {
  iconv_t cd = iconv_open("CP949", "UTF-8");
  if (cd == reinterpret_cast<iconv_t>(-1)) {
    ADD_FAILURE() << "iconv has no CP949";
    return std::string();
  }
  std::vector<char> in(utf8.begin(), utf8.end());
  std::vector<char> out(utf8.size() * 2 + 1);
  char* inPtr = in.data();
  size_t inLeft = in.size();
  char* outPtr = out.data();
  size_t outLeft = out.size();
  if (iconv(cd, &inPtr, &inLeft, &outPtr, &outLeft) == static_cast<size_t>(-1)) {
    ADD_FAILURE() << "no CP949 form for \"" << utf8 << "\" (errno " << errno << ")";
  }
  iconv_close(cd);
  return std::string(out.data(), out.size() - outLeft);
}

std::string Render(Quorel::QR_SynonymContainer& container,
                   const std::string& word) {
  Quorel::Synonym result;
  const int found = container.Search(word.c_str(), &result);
  std::ostringstream out;
  out << found << ":" << result.GetCount();
  for (int i = 0; i < result.GetCount(); ++i) {
    out << "|" << result.GetGroupHead(i) << "/" << result.GetGroupSize(i);
    for (int p = 0; p < result.GetGroupSize(i); ++p) {
      out << " " << result.GetWord(i, p) << result.HasLessMark(i, p)
          << result.HasGreaterMark(i, p);
    }
  }
  return out.str();
}

ScratchDir::ScratchDir() {
  std::string pattern =
      (std::filesystem::temp_directory_path() / "qrlsl_lexical_XXXXXX").string();
  std::vector<char> buffer(pattern.begin(), pattern.end());
  buffer.push_back('\0');
  if (mkdtemp(buffer.data()) == nullptr) {
    ADD_FAILURE() << "can't make a scratch directory";
  }
  path = buffer.data();
}

ScratchDir::~ScratchDir() {
  std::error_code ignored;
  std::filesystem::remove_all(path, ignored);
}

std::string ScratchDir::File(const std::string& name) const {
  return path + "/" + name;
}

std::string ScratchDir::Write(const std::string& name,
                              const std::string& bytes) const {
  const std::string full = File(name);
  std::ofstream out(full, std::ios::binary);
  out << bytes;
  EXPECT_TRUE(out.good()) << "can't write " << full;
  return full;
}

std::string ScratchDir::Read(const std::string& name) const {
  std::ifstream in(File(name), std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in),
                     std::istreambuf_iterator<char>());
}

bool ScratchDir::Exists(const std::string& name) const {
  return std::filesystem::exists(File(name));
}

}  // namespace lexical_test
