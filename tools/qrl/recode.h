// Text encodings at the edge of the qrl tool: the library speaks CP949, the
// user UTF-8. A Recoder converts strings both ways through the library's
// converter and reuses its buffers, so a long run allocates only while lines
// grow. Cp949Copy hands the library a knowledge-format (CP949) version of a
// text file that the user may have written in UTF-8.
#ifndef QRLSL_TOOLS_QRL_RECODE_H_
#define QRLSL_TOOLS_QRL_RECODE_H_

#include <string>
#include <vector>

#include "text/charset.h"

namespace Quorel {
namespace cli {

class Recoder {
 public:
  // The converted text; valid until the next call on this object.
  // Characters without a counterpart become blanks.
  const std::string& ToCp949(const char* utf8);
  const std::string& ToUtf8(const char* cp949);

 private:
  const std::string& Convert(const char* text, int32_t from, int32_t to);
  std::vector<WideChar> wide;
  std::string bytes;
};

// True when `bytes` hold at least one non-ASCII character and are valid
// UTF-8 throughout. CP949 Hangul is never valid UTF-8, so this tells the two
// apart for the files users hand to the tool.
bool IsUtf8Text(const std::string& bytes);

// True when `bytes` hold at least one non-ASCII character and are CP949
// throughout (a lead byte 0x81 to 0xFE, each followed by a trail byte).
bool IsCp949Text(const std::string& bytes);

// The whole content of a file; false when it can't be read.
bool ReadWholeFile(const std::string& path, std::string& content);

// A file as the library's loaders want it: the original when it is already
// CP949 (or plain ASCII), otherwise a CP949 copy of the same name in a
// private temporary directory that disappears with this object. The loaders
// take a directory and a file name, hence the two parts.
class Cp949Copy {
 public:
  explicit Cp949Copy(const std::string& path);
  ~Cp949Copy();
  Cp949Copy(const Cp949Copy&) = delete;
  Cp949Copy& operator=(const Cp949Copy&) = delete;

  // False when the file could not be read or the copy not written.
  bool Ok() const { return ok; }
  // Directory with a trailing "/", and file name, of the file to load.
  const std::string& Directory() const { return directory; }
  const std::string& Name() const { return name; }
  std::string Path() const { return directory + name; }

 private:
  bool ok = false;
  std::string directory;
  std::string name;
  std::string tempDirectory;  // empty when the original is used
};

// "dir/" and "name" of a path ("./" when it has no directory part).
void SplitPath(const std::string& path, std::string& directory,
               std::string& name);

}  // namespace cli
}  // namespace Quorel

#endif  // QRLSL_TOOLS_QRL_RECODE_H_
