// The UTF-8 edge of the qrl command on arbitrary bytes, as one input line:
// read at the edge, analysed (the first byte chooses option 20 and the
// tagging mode), every eojul written as JSON. What the edge promises is
// checked on the way out: every character that is not a blank comes back
// in the surfaces, in order, none twice; the byte offsets of each eojul cut
// out of the input what its surface shows, and its code-point offsets
// count as many characters; each morpheme lies inside its eojul.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

#include "eojul/eojul.h"
#include "fuzz/fuzz_support.h"
#include "tools/qrl/line_edge.h"
#include "tools/qrl/output.h"

using namespace Quorel;

namespace {

void Check(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "utf8_edge_fuzzer: %s\n", what);
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  return fuzz::StartOnSharedKnowledge();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // One line, well inside the analyzer's line buffer.
  if (size < 1 || size > 8192) return 0;
  const uint8_t choice = data[0];
  std::string_view line(reinterpret_cast<const char*>(data) + 1, size - 1);
  line = line.substr(0, line.find('\n'));

  cli::LineEdge edge;
  edge.Read(line);
  std::unique_ptr<QR_Analyzer> a(CreateAnalyzer(&fuzz::SharedKnowledge()));
  a->SetExOption(1);
  a->SetOption(20, choice & 1);
  if (!edge.Cp949().empty()) {
    a->RunWithString(edge.Cp949().c_str());
    if (choice & 2) a->Tagging((choice >> 2) & 1);
  }
  cli::LinePlace place;
  place.edge = &edge;
  std::ostringstream json;
  cli::EojulWriter writer(json, cli::Format::kJson);
  std::string surfaces;
  size_t previousEnd = 0;
  const int count = edge.Cp949().empty() ? 0 : a->GetEojulCountInSentence();
  for (int i = 0; i < count; ++i) {
    QR_Eojul& e = *a->GetEojulInSentence(i);
    const int offset = a->GetEojulOffsetInSentence(i);
    size_t begin, end;
    cli::EojulSpan(e, offset, place, begin, end);
    Check(begin >= previousEnd, "eojuls overlap or go back");
    previousEnd = end;
    const std::string_view written = edge.Written(begin, end);
    surfaces += written;
    // The input bytes of the eojul, read on their own, show its surface.
    const size_t from = edge.ByteAt(begin), to = edge.ByteAt(end);
    cli::LineEdge alone;
    alone.Read(line.substr(from, to - from));
    Check(alone.Written(0, alone.Cp949().size()) == written,
          "the byte offsets don't cut out the surface");
    Check(edge.CodePointAt(end) - edge.CodePointAt(begin) == alone.CodePoints(),
          "the code-point offsets don't count the surface");
    writer.Write(e, offset, place);
    for (int c = 0; c < e.GetListSize(); ++c) {
      for (int m = 0; m < e.GetCount(c); ++m) {
        const int s = e.GetStartOffset(c, m), t = e.GetEndOffset(c, m);
        Check(s == -1 || s <= t, "a morpheme ends before it starts");
      }
    }
  }
  Check(surfaces == edge.NonBlankText(), "a character was lost or repeated");
  return 0;
}
