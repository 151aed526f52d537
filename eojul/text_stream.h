// TextStream: the input and output streams of an analyzer's file runs. With
// no input file open the console's input serves, with no output file the
// console's output. Opening failures are logged, and the run goes on with
// the console.
#ifndef QRLSL_EOJUL_TEXT_STREAM_H_
#define QRLSL_EOJUL_TEXT_STREAM_H_

#include <fstream>
#include <istream>
#include <ostream>
#include <vector>

#include "text/strings.h"

namespace Quorel {

class TextStream {
 public:
  TextStream() {}
  ~TextStream() { Close(); }

  // False (with "Input stream is not opened!" in the log) on failure.
  bool OpenInput(const char* path);
  // False (with "Output stream is not opened!" in the log) on failure.
  bool OpenOutput(const char* path);
  // Reads one line without its line end into `line`; 0 at the end of input.
  // A line longer than `limit` bytes comes back in pieces.
  int ReadLine(StringEx& line, int limit);
  bool AtEnd();
  void Close();

  std::istream& In();
  std::ostream& Out();

 private:
  std::ifstream input;
  std::ofstream output;
  std::vector<char> buffer;  // one line, kept between reads
  bool inputOpen = false;
  bool outputOpen = false;
};

}  // namespace Quorel

#endif  // QRLSL_EOJUL_TEXT_STREAM_H_
