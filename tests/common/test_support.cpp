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

}  // namespace testsupport
}  // namespace Quorel
