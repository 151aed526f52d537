// Buffer-reusing conversion, the UTF-8 test, and the CP949 copies of user
// files.
#include "tools/qrl/recode.h"

#include <stdlib.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace Quorel {
namespace cli {

// Buffers sized by the worst case, so each direction is a single pass: a
// byte gives at most one unit, a unit at most three bytes.
const std::string& Recoder::Convert(const char* text, int32_t from,
                                    int32_t to) {
  const int32_t length = static_cast<int32_t>(std::strlen(text));
  wide.resize(static_cast<size_t>(length) + 1);
  const int32_t units = DecodeCount(wide.data(), text, length + 1, from);
  bytes.resize(static_cast<size_t>(units) * 3 + 1);
  const int32_t size = EncodeCount(&bytes[0], wide.data(), units * 3 + 1, to);
  bytes.resize(static_cast<size_t>(size));
  return bytes;
}

// The input road in one pass: no character grows, so length + 1 bytes hold
// the result and its NUL.
const std::string& Recoder::ToCp949(const char* utf8) {
  const int32_t length = static_cast<int32_t>(std::strlen(utf8));
  bytes.resize(static_cast<size_t>(length) + 1);
  bytes.resize(static_cast<size_t>(Utf8ToCp949(&bytes[0], utf8, length)));
  return bytes;
}

const std::string& Recoder::ToUtf8(const char* cp949) {
  return Convert(cp949, kEncodingCp949, kEncodingUtf8);
}

bool IsCp949Text(const std::string& bytes) {
  bool wide = false;
  for (size_t i = 0; i < bytes.size(); ++i) {
    const unsigned char lead = static_cast<unsigned char>(bytes[i]);
    if (lead < 0x80) continue;
    if (lead < 0x81 || lead > 0xFE || i + 1 >= bytes.size()) return false;
    const unsigned char trail = static_cast<unsigned char>(bytes[++i]);
    if (!((trail >= 0x41 && trail <= 0x5A) || (trail >= 0x61 && trail <= 0x7A) ||
          (trail >= 0x81 && trail <= 0xFE))) {
      return false;
    }
    wide = true;
  }
  return wide;
}

bool IsUtf8Text(const std::string& bytes) {
  bool wide = false;
  size_t i = 0;
  while (i < bytes.size()) {
    unsigned char lead = static_cast<unsigned char>(bytes[i]);
    size_t trail = 0;
    if (lead < 0x80) {
      ++i;
      continue;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
      trail = 1;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
      trail = 2;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
      trail = 3;
    } else {
      return false;
    }
    if (i + trail >= bytes.size()) return false;
    for (size_t k = 1; k <= trail; ++k) {
      if ((static_cast<unsigned char>(bytes[i + k]) & 0xC0) != 0x80) {
        return false;
      }
    }
    wide = true;
    i += trail + 1;
  }
  return wide;
}

bool ReadWholeFile(const std::string& path, std::string& content) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  content.assign(std::istreambuf_iterator<char>(in),
                 std::istreambuf_iterator<char>());
  return !in.bad();
}

void SplitPath(const std::string& path, std::string& directory,
               std::string& name) {
  size_t slash = path.find_last_of('/');
  if (slash == std::string::npos) {
    directory = "./";
    name = path;
  } else {
    directory = path.substr(0, slash + 1);
    name = path.substr(slash + 1);
  }
}

Cp949Copy::Cp949Copy(const std::string& path) {
  SplitPath(path, directory, name);
  std::string content;
  if (!ReadWholeFile(path, content)) return;
  static const char kBom[] = "\xEF\xBB\xBF";
  if (content.compare(0, 3, kBom) == 0) content.erase(0, 3);
  if (!IsUtf8Text(content)) {
    ok = true;
    return;
  }
  std::error_code error;
  std::string pattern =
      (std::filesystem::temp_directory_path(error) / "qrl-XXXXXX").string();
  if (error || mkdtemp(&pattern[0]) == nullptr) return;
  tempDirectory = pattern;
  directory = tempDirectory + "/";
  Recoder recoder;
  std::ofstream out(Path(), std::ios::binary);
  out << recoder.ToCp949(content.c_str());
  ok = static_cast<bool>(out.flush());
}

Cp949Copy::~Cp949Copy() {
  if (tempDirectory.empty()) return;
  std::error_code ignored;
  std::filesystem::remove_all(tempDirectory, ignored);
}

}  // namespace cli
}  // namespace Quorel
