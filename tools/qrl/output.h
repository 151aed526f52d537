// The output forms of qrl, one result per eojul, all UTF-8:
//   text           (the default) as tsv, and a line "EOS" after the eojuls
//                  of each input line
//   full, compact  the eojul's own Print forms
//   tsv            surface, then one column per visible candidate with its
//                  morphemes as lexicon/TAG joined by "+"
//   json           one JSON object per line: surface, the input line's
//                  number (from 1 in each input), the library's offset,
//                  start and end (code points of the input line) with
//                  byte_start and byte_end (its UTF-8 bytes), candidates
//                  with score and morphemes (lexicon, tag, POS mask,
//                  index-word flag, start, end, byte_start, byte_end)
//   index          surface, then the distinct index words of the visible
//                  candidates, tab-separated
// Surfaces are the input as written (case, Hanja, characters CP949 lacks);
// lexicons are the analysis's own, but for a morpheme over characters that
// CP949 lacks, which is written as the input has it.
#ifndef QRLSL_TOOLS_QRL_OUTPUT_H_
#define QRLSL_TOOLS_QRL_OUTPUT_H_

#include <ostream>
#include <string>

#include "qrlsl/qr_eojul.h"
#include "tools/qrl/line_edge.h"
#include "tools/qrl/recode.h"

namespace Quorel {
namespace cli {

enum class Format { kText, kFull, kCompact, kTsv, kJson, kIndex };

// The format named `name`; false when there is none of that name.
bool ParseFormat(const std::string& name, Format& format);

// Appends `utf8` as a JSON string literal, quotes included.
void AppendJsonString(std::string& out, const char* utf8);
// Appends a score as a JSON number (null when it is not finite).
void AppendJsonNumber(std::string& out, double value);

// Where the text analysed comes from: the line read, and the place in the
// input line of its first code point and byte (a long line is analysed in
// pieces).
struct LinePlace {
  const LineEdge* edge = nullptr;
  size_t codePointBase = 0;
  size_t byteBase = 0;
  bool characterOffsets = false;  // the library counts characters (option 18)
  long line = 0;                  // the input line, from 1
};

// The CP949 span [begin, end) in the text of `place` of `e`, an eojul of a
// sentence found at `offset`.
void EojulSpan(QR_Eojul& e, int offset, const LinePlace& place, size_t& begin,
               size_t& end);

class EojulWriter {
 public:
  EojulWriter(std::ostream& out, Format format) : out(out), format(format) {}
  // Writes the visible candidates of `e`, an eojul of a sentence found at
  // `offset` of the text of `place`. The full and compact forms need the
  // library's own Eojul behind `e`, and so do the others when a morpheme
  // stands on characters CP949 lacks.
  void Write(QR_Eojul& e, int offset, const LinePlace& place);
  // Ends the results of one input line (the text form's "EOS").
  void EndLine();

 private:
  void WriteTsv(QR_Eojul& e);
  void WriteJson(QR_Eojul& e, int offset);
  void WriteIndex(QR_Eojul& e);
  // line += the UTF-8 form of a CP949 string (null counts as empty).
  void AppendUtf8(const char* cp949);
  // The UTF-8 lexicon of morpheme m of candidate c.
  const std::string& Lexicon(QR_Eojul& e, int c, int m);
  // The CP949 span of morpheme m of candidate c in the text.
  void MorphemeSpan(QR_Eojul& e, int c, int m, size_t& begin, size_t& end);
  void AppendOffsets(size_t begin, size_t end);

  std::ostream& out;
  Format format;
  Recoder recoder;
  std::string line;
  std::string lexicon;
  // The eojul being written: its CP949 span in the text, and whether a
  // stand-in lies in it (the morpheme offsets are then known).
  const LinePlace* place = nullptr;
  size_t begin = 0, end = 0;
  bool standIn = false;
};

}  // namespace cli
}  // namespace Quorel

#endif  // QRLSL_TOOLS_QRL_OUTPUT_H_
