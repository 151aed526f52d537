// The output forms of qrl, one result per eojul, all UTF-8:
//   full, compact  the eojul's own Print forms
//   tsv            surface, then one column per visible candidate with its
//                  morphemes as lexicon/TAG joined by "+"
//   json           one JSON object per line: surface, offset, candidates
//                  with score and morphemes (lexicon, tag, POS mask,
//                  index-word flag, start and end offsets)
//   index          surface, then the distinct index words of the visible
//                  candidates, tab-separated
#ifndef QRLSL_TOOLS_QRL_OUTPUT_H_
#define QRLSL_TOOLS_QRL_OUTPUT_H_

#include <ostream>
#include <string>

#include "qrlsl/qr_eojul.h"
#include "tools/qrl/recode.h"

namespace Quorel {
namespace cli {

enum class Format { kFull, kCompact, kTsv, kJson, kIndex };

// The format named `name`; false when there is none of that name.
bool ParseFormat(const std::string& name, Format& format);

// Appends `utf8` as a JSON string literal, quotes included.
void AppendJsonString(std::string& out, const char* utf8);
// Appends a score as a JSON number (null when it is not finite).
void AppendJsonNumber(std::string& out, double value);

class EojulWriter {
 public:
  EojulWriter(std::ostream& out, Format format) : out(out), format(format) {}
  // Writes the visible candidates of `e`, an eojul of a sentence found at
  // `offset`. The full and compact forms need the library's own Eojul
  // behind `e`.
  void Write(QR_Eojul& e, int offset);

 private:
  void WriteTsv(QR_Eojul& e);
  void WriteJson(QR_Eojul& e, int offset);
  void WriteIndex(QR_Eojul& e);
  // line += the UTF-8 form of a CP949 string (null counts as empty).
  void AppendUtf8(const char* cp949);
  void AppendJsonUtf8(const char* cp949);

  std::ostream& out;
  Format format;
  Recoder recoder;
  std::string line;
};

}  // namespace cli
}  // namespace Quorel

#endif  // QRLSL_TOOLS_QRL_OUTPUT_H_
